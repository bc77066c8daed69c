// The choice of a data set for the variables being added to one: a list of
// the sets of one ICC or of the VCC beside Ok and Cancel. The caller sets the
// title, fills the list and reads its current item after exec().
#pragma once

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QListWidget;
class QListWidgetItem;

class ChoiceDS : public QDialog {
    Q_OBJECT
public:
    explicit ChoiceDS(QWidget* parent);

    QLabel* label;
    // One row per data set; UserRole carries the DcDataSet*.
    QListWidget* listWidget;
    QDialogButtonBox* buttonBox;

public slots:
    // A double click on a row accepts the dialog.
    void OnitemDoubleClicked(QListWidgetItem* item);
};

// The one dialog of the form, made on first use with `parent`, the form that
// asks, and kept as long as the form lives.
extern ChoiceDS* pChoiceDS;
ChoiceDS* NeedChoiceDS(QWidget* parent);
