// A data set, a transfer set or the Next_DSTransfer_Set object added by hand:
// class, name and place come from the object choice dialog, the additions
// are the guarded ones of the load pass.
#include "dialogs/ChoiceObj.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

#include <QListWidget>
#include <QMessageBox>

namespace {

void Tell(QWidget* parent, const QString& text) {
    QMessageBox::information(parent, "Сообщение", text, QMessageBox::Ok);
}

// The host of the current row of the model tree: its ICC, or the VCC above
// its object; null with no object or no host.
DcICCPBase* CurrentHost(CfgArvenSR* form) {
    IEDTreeModel* model = form->pTreeIedModel;
    const QModelIndex current = form->tVIed->currentIndex();
    myNode* node = current.isValid() ? model->nodeFromIndex(current) : nullptr;
    // A folder row stands for the object of the row above it.
    if (node && !node->object)
        node = node->Parent;
    auto object = static_cast<DcICCPBase*>(node ? node->object : nullptr);
    if (!object)
        return nullptr;
    // Read through the node: a current index of column 1 has no object role.
    const QModelIndex hostRow = FindHost(model, current);
    myNode* hostNode = hostRow.isValid() ? model->nodeFromIndex(hostRow) : nullptr;
    auto host = static_cast<DcICCPBase*>(hostNode ? hostNode->object : nullptr);
    return host ? host : object->IsHostObType("DcVCC");
}

// Adds the object of the chosen kind at the target; false when the dialog
// is to open again after the message.
bool AddChosenObject(CfgArvenSR* form, FChoiceOb* dialog, int kind, void* target) {
    if (kind == 51) {
        const std::string name = QToLocal(dialog->lEName->text());
        if (form->CheckAndSetDataSet(target, name) >= 0)
            return true;
        Tell(form, "Нарушена уникальность имен");
        return false;
    }
    if (kind == 52) {
        const std::string name = QToLocal(dialog->lEName->text());
        const int result = form->CheckAndSetTrans(target, name);
        if (result >= 0)
            return true;
        if (result == -2)
            Tell(form, "Недопустимый объект приемник");
        else if (result == -1 || result == -3)
            Tell(form, "Нарушена уникальность имен или ошибка разбора");
        else
            return true;
        return false;
    }
    if (kind == 53) {
        auto place = static_cast<DcICCPBase*>(target);
        if (!place || place->ClassName() == "DcVCC") {
            Tell(form, "Недопустимый объект приемник");
            return false;
        }
        if (form->CheckAndSetNextTrans(target) != 0)
            Tell(form, "Next_DSTransfer_Set уже существует");
    }
    return true;
}

} // namespace

void CfgArvenSR::OnAddOb() {
    if (!pTreeIedModel)
        return;
    DcICCPBase* host = CurrentHost(this);
    if (!host)
        return;

    FChoiceOb* dialog = NeedChoiceOb(this);
    dialog->Fill_lWObjects();
    dialog->lEName->clear();
    // The places are taken afresh each time: the model may have been loaded
    // again since the last call. The dialog is given no host, so it
    // proposes no name.
    dialog->FillWhere(pVCC);
    dialog->SetActiveW(host);

    for (;;) {
        if (dialog->exec() != QDialog::Accepted)
            return;
        QListWidgetItem* kindItem = dialog->lWObjects->currentItem();
        QListWidgetItem* whereItem = dialog->lWWhere->currentItem();
        if (!kindItem || !whereItem)
            return;
        const int kind = kindItem->data(Qt::UserRole).toInt();
        if (AddChosenObject(this, dialog, kind, whereItem->data(Qt::UserRole).value<void*>()))
            return;
    }
}
