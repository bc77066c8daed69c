// The add-variable dialog: the engineer picks a type, a base name, a count,
// the owner and a data set. The caller reads the picked type from SelType and
// the rest from the widgets after exec() returns accepted; the dialog itself
// makes nothing.
#pragma once

#include <QDialog>
#include <QModelIndex>

#include "dialogs/Tase2Models.h"
#include "ui_DGetVar.h"

class QAbstractButton;
class QListWidgetItem;
class QMainWindow;
class QStatusBar;
class DcICCPBase;
class DcVCC;
class Model4AddFrm;
class StringList;

// Every field is public: the form fills the lists and reads the result.
class GetVarFrm : public QDialog {
    Q_OBJECT
public:
    explicit GetVarFrm(QWidget* parent);

    // listVAD: the types; cBWhere: "Куда добавить:" (0 the VCC, k ICC k);
    // cBDataSet: "Добавлять ли в DataSet" (0 none, k data set k); tVStruct:
    // the members of a structured type; lW: the template's comment; lEName:
    // the base name; sBCount: how many; lEStart: "Нач.значение".
    Ui_DGetVar ui;
    ListTypesModel* pListTypes;
    // Built and kept; no view shows it.
    Tase2VarModel VarModel;
    // Holds the central widget of the form, for the status bar.
    QMainWindow* wMain;
    QStatusBar* statusBar;
    Model4AddFrm* pModel4Add;
    // The type last clicked; null until then. The caller clears it before
    // each exec().
    DcICCPBase* SelType;
    // The form's count of template loads when the dialog was last filled.
    int TemplLoadsShown = 0;
    // Variable names of the place last clicked in lW (not owned).
    StringList* pNames;

    // Fills lW with the VCC, then its ICCs.
    void FillWhere(DcVCC* vcc);
    void SetActiveW(DcICCPBase* object);

public slots:
    void onButtClick(QAbstractButton* button);
    void OnlistVADcliked(const QModelIndex& index);
    void ontButClicked();
    // Proposes the next free number of the base name in the chosen place.
    void onlWClicked(QListWidgetItem* item);
};

// The one dialog of the form, made on first use with `parent`, the form that
// asks, and kept as long as the form lives.
extern GetVarFrm* FGetVarFrm;
GetVarFrm* NeedGetVarFrm(QWidget* parent);
