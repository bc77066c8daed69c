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

void CfgArvenSR::OnAddOb() {
    if (!pTreeIedModel)
        return;
    const QModelIndex current = tVIed->currentIndex();
    myNode* node = current.isValid() ? pTreeIedModel->nodeFromIndex(current) : nullptr;
    // A folder row stands for the object of the row above it.
    if (node && !node->object)
        node = node->Parent;
    auto object = static_cast<DcICCPBase*>(node ? node->object : nullptr);
    if (!object)
        return;
    // Read through the node: a current index of column 1 has no object role.
    const QModelIndex hostRow = FindHost(pTreeIedModel, current);
    myNode* hostNode = hostRow.isValid() ? pTreeIedModel->nodeFromIndex(hostRow) : nullptr;
    auto host = static_cast<DcICCPBase*>(hostNode ? hostNode->object : nullptr);
    if (!host)
        host = object->IsHostObType("DcVCC");
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

    auto tell = [this](const QString& text) {
        QMessageBox::information(this, "Сообщение", text, QMessageBox::Ok);
    };
    for (;;) {
        if (dialog->exec() != QDialog::Accepted)
            return;
        QListWidgetItem* kindItem = dialog->lWObjects->currentItem();
        QListWidgetItem* whereItem = dialog->lWWhere->currentItem();
        if (!kindItem || !whereItem)
            return;
        const int kind = kindItem->data(Qt::UserRole).toInt();
        void* target = whereItem->data(Qt::UserRole).value<void*>();
        if (kind == 51) {
            const std::string name = dialog->lEName->text().toLocal8Bit().toStdString();
            if (CheckAndSetDataSet(target, name) >= 0)
                return;
            tell("Нарушена уникальность имен");
        } else if (kind == 52) {
            const std::string name = dialog->lEName->text().toLocal8Bit().toStdString();
            const int result = CheckAndSetTrans(target, name);
            if (result >= 0)
                return;
            if (result == -2)
                tell("Недопустимый объект приемник");
            else if (result == -1 || result == -3)
                tell("Нарушена уникальность имен или ошибка разбора");
            else
                return;
        } else if (kind == 53) {
            auto place = static_cast<DcICCPBase*>(target);
            if (!place || place->ClassName() == "DcVCC") {
                tell("Недопустимый объект приемник");
                continue;
            }
            if (CheckAndSetNextTrans(target) != 0)
                tell("Next_DSTransfer_Set уже существует");
            return;
        } else {
            return;
        }
    }
}
