// A viewer of the reserve list: the names of its objects on the left, the
// XML of the one clicked on the right.
#pragma once

#include <QDialog>

class QDialogButtonBox;
class QListWidget;
class QListWidgetItem;
class StringList;

class ReserveF : public QDialog {
    Q_OBJECT
public:
    explicit ReserveF(QWidget* parent);

    QListWidget* lW1; // one row per entry; UserRole carries its object
    QListWidget* lW2; // lines of the clicked object's XML
    QDialogButtonBox* buttonBox;

    void Init(StringList* list);

public slots:
    void onLW1Clicked(QListWidgetItem* item);
};

// The one viewer, made on first use with parent and kept.
extern ReserveF* FReserveF;
ReserveF* NeedReserveF(QWidget* parent);
