// The object choice dialog: a class that can be made by hand (data set,
// transfer set, Next_DSTransfer_Set), a name and the place for the new
// object. The caller reads the two lists and the name after exec().
#pragma once

#include <QDialog>

#include "support/UStringList.h"
#include "ui_ChoiceObj.h"

class QListWidgetItem;
class DcICCPBase;
class DcVCC;

// lWObjects: the classes, UserRole the class code as int; lEName: the name;
// lWWhere: the places, UserRole the DcVCC or DcLD.
class FChoiceOb : public QDialog, public Ui_ChoiceObj {
    Q_OBJECT
public:
    explicit FChoiceOb(QWidget* parent);

    // The object of the row the dialog was opened from; it decides the
    // proposed name.
    DcICCPBase* pHost;
    // The places: the VCC, then its ICCs, by name with the object.
    StringList WhereList;

    // The classes of the table from DcDataSet on, in table order.
    void Fill_lWObjects();
    // Takes the VCC and its ICCs as the places; the place list waits for a
    // class to be clicked.
    void FillWhere(DcVCC* vcc);
    // Makes the place of object current, if the place list holds it.
    void SetActiveW(DcICCPBase* object);
    void FilterOb(DcICCPBase* host);

public slots:
    // Refills the places for the clicked class and proposes a name.
    void OnClicked(QListWidgetItem* item);
    void OnWhereItemChanged(QListWidgetItem* current, QListWidgetItem* previous);
    void OnDblClick(QListWidgetItem* item);
    // Accepts only with a class and a place chosen.
    void accept() override;
};

// The one dialog of the form, made on first use with `parent`, the form that
// asks, and kept as long as the form lives.
extern FChoiceOb* pFChoiceOb;
FChoiceOb* NeedChoiceOb(QWidget* parent);
