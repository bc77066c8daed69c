// A command variable added by hand to an ICC, with its SBO twin: the type,
// the instance number and the twin come from the command dialog.
#include "dialogs/DComm.h"
#include "editing/CreateVars.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "support/MyBuf.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

#include <QCheckBox>
#include <QComboBox>
#include <QMessageBox>
#include <QSpinBox>

namespace {

// A variable of the ICC with its three flags off, typed and with its value.
DcDA* CommandVar(DcICCPBase* icc, const std::string& name, const char* type, const char* value) {
    auto var = new DcDA(icc);
    var->name = name;
    var->type = type;
    var->Template = GetDcDAType(type);
    var->CanA = false;
    var->CanB = false;
    var->CanC = false;
    var->Value->SetbType(var);
    var->Value->SetFromstring(value);
    return var;
}

struct tCommandKind {
    const char* type;
    const char* value;
    bool flagged; // flagAbility 3 with a twin, 2 without
};

// By the index of the dialog's type list.
const tCommandKind CommandKinds[] = {
    {"INT16", "0", true}, {"INT16", "0", true}, {"FLOAT32", "0", false}};

} // namespace

void CfgArvenSR::OnAcmd() {
    // The form has no command action to uncheck: without a row, nothing.
    const QModelIndex current = tVIed->currentIndex();
    if (!current.isValid() || !pTreeIedModel)
        return;
    DcICCPBase* icc = GetLDByNode(pTreeIedModel->nodeFromIndex(current));
    if (!icc) {
        QMessageBox::information(this, "Информация", "Не могу найти  ICC для вставки");
        return;
    }
    DComm* dialog = NeedDComm(this);
    if (dialog->exec() != QDialog::Accepted)
        return;
    const int index = dialog->comboBox->currentIndex();
    if (index < 0 || index > 2)
        return;
    const std::string name = QToLocal(dialog->comboBox->currentText() + dialog->spinBox->text());
    const tCommandKind& kind = CommandKinds[index];
    DcDA* var = CommandVar(icc, name, kind.type, kind.value);
    const bool sbo = dialog->checkBox->isChecked();
    if (kind.flagged)
        var->flagAbility = sbo ? 3 : 2;
    DcDA* twin = sbo ? CommandVar(icc, name + "_SBO", "BOOL", "false") : nullptr;

    const QModelIndex iccRow = FindByPVOID(icc, pTreeIedModel, pTreeIedModel->index(0, 0));
    const QModelIndex folder =
        iccRow.isValid() ? ChildRowByText(pTreeIedModel, iccRow, "Переменные") : QModelIndex();
    if (!folder.isValid()) {
        delete var;
        delete twin;
        return;
    }
    myNode* folderNode = pTreeIedModel->nodeFromIndex(folder);
    StringList& vars = static_cast<DcLD*>(icc)->Vars;
    const int row = pTreeIedModel->rowCount(folder);
    pTreeIedModel->beginInsertRows(folder, row, row + (twin ? 1 : 0));
    for (DcDA* made : {var, twin}) {
        if (!made)
            continue;
        vars.AddObject(made->name, made, true);
        folderNode->AddChild(new myNode(made->name, made));
    }
    pTreeIedModel->endInsertRows();
}
