// The list of what does not fit the unit's tags: tag titles and variable
// keys, over the buttons "Удалить", Ignore and Cancel. The caller reads the
// answer after exec().
#pragma once

#include <QDialog>

class QAbstractButton;
class QDialogButtonBox;
class QListWidget;
class StringList;

class Log4Tree : public QDialog {
    Q_OBJECT
public:
    explicit Log4Tree(QWidget* parent);

    QListWidget* listWidget;
    QDialogButtonBox* buttonBox;
    // The last button pressed: 2 "Удалить", 1 Ignore, 0 Cancel.
    int Answer = 0;

    // Gives the Yes button its text.
    void Init();
    // One row per entry text, decoded from the local 8-bit encoding.
    void FillLW(StringList& list);

public slots:
    void onClicked(QAbstractButton* button);
};

// The one dialog, made on first use with parent and kept from then on.
extern Log4Tree* FLog4Tree;
Log4Tree* NeedLog4Tree(QWidget* parent);
