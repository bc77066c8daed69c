// Renaming an object of the model by hand. A name stands in many copies: the
// object, its tree row, data set member keys, the form's tag list, the tags'
// "tag_id" and the data set list. Each routine carries the new name through
// the copies that belong to its kind of object and leaves the rest; the
// owner's list keeps the old key until the next load, and no uniqueness is
// tested.
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

#include <QAction>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>

namespace {

// "ICC/name" for an object within an ICC, else the name alone.
std::string InOwnerICC(DcICCPBase* ob, const std::string& name) {
    DcICCPBase* icc = ob->IsHostObType("DcLD");
    return icc ? icc->name + "/" + name : name;
}

// Writes the key as the tag's "tag_id".
void WriteTagId(void* tag, const std::string& key) {
    SetStr2PropOb(tag, "tag_id", QString::fromStdString(key));
}

// The key with everything before the old ICC name's length replaced by the
// new name; the cut counts bytes, wherever in the key the old name stood.
std::string WithNewICC(const std::string& key, const std::string& oldName,
                       const std::string& newName) {
    return newName + key.substr(std::min(oldName.size(), key.size()));
}

} // namespace

void CfgArvenSR::AddRenameAct() {
    actRename = new QAction("Переименовать", this);
    actRename->setShortcut(Qt::Key_F2);
    actRename->setShortcutContext(Qt::WidgetShortcut);
    connect(actRename, SIGNAL(triggered()), this, SLOT(OnRename()));
    MenuIed->addAction(actRename);
    tVIed->addAction(actRename);
}

void CfgArvenSR::OnRename() {
    const QModelIndex index = tVIed->currentIndex();
    if (!index.isValid() || index.column() != 0 || !pTreeIedModel || index.model() != pTreeIedModel)
        return;
    myNode* node = pTreeIedModel->nodeFromIndex(index);
    auto ob = node ? static_cast<DcICCPBase*>(node->object) : nullptr;
    // A folder row has nothing to rename.
    if (!ob)
        return;
    myNode* up = pTreeIedModel->nodeFromIndex(index.parent());
    auto parent = up ? static_cast<DcICCPBase*>(up->object) : nullptr;
    if (parent && parent->ClassName() == "DcDO") {
        QMessageBox::information(this, "Предупреждение",
                                 "Переименование переменных объекта невозможно");
        return;
    }
    bool ok = false;
    const QString text = QInputDialog::getText(this, "Переименование", "Введите новое имя",
                                               QLineEdit::Normal, LocalToQ(ob->name), &ok);
    if (!ok)
        return;
    const std::string oldName = ob->name;
    ob->name = QToLocal(text);
    node->name = ob->name;
    emit pTreeIedModel->dataChanged(index, index);
    std::string oldFull, newFull;
    switch (ob->ObType) {
    case 2:
        RenameDA1(oldName, ob, oldFull, newFull);
        CorrTagAfterRenDA(oldFull, newFull);
        break;
    case 4:
        RenameDO(oldName, static_cast<DcDO*>(ob), oldFull, newFull);
        CorrTagAfterRenDO(oldFull, newFull);
        break;
    case 6:
        RenameLD(oldName, index, static_cast<DcLD*>(ob));
        break;
    case 20:
        if (QListWidgetItem* item = lW_ieds->currentItem()) {
            SetStr2PropOb(item->data(Qt::UserRole).value<void*>(), "ied_name", text);
            OnlW_UnitClicked(item);
        }
        break;
    case 51:
        RenameDS(oldName, index, static_cast<DcDataSet*>(ob));
        break;
    default:
        break;
    }
}

void CfgArvenSR::RenameDA1(std::string oldName, DcICCPBase* ob, std::string& oldFull,
                           std::string& newFull) {
    oldFull = InOwnerICC(ob, oldName);
    newFull = InOwnerICC(ob, ob->name);
    // refDSRT holds "set;" or "ICC/set;" entries, a set's name perhaps
    // followed by "," and a number.
    std::string rest = QToLocal(ob->refDSRT);
    for (;;) {
        const size_t end = rest.find(';');
        if (end == std::string::npos || end == 0)
            return;
        std::string entry;
        StringList* sets = ScopedList(pVCC, rest.substr(0, end), true, entry);
        rest = rest.substr(end + 1);
        if (!sets)
            return;
        const size_t comma = entry.find(',');
        if (comma != std::string::npos)
            entry = entry.substr(0, comma);
        auto set = qobject_cast<DcDataSet*>(ListOb(*sets, sets->IndexOf(entry)));
        if (!set)
            return;
        const int at = set->Elems.IndexOf(oldFull);
        if (at < 0)
            continue;
        if (auto member = static_cast<DcICCPBase*>(set->Elems.Objects(at)))
            member->name = ob->name;
        set->Elems.ChString(at, newFull);
    }
}

void CfgArvenSR::RenameDA(std::string oldName, DcDA* da) {
    std::string oldFull, newFull;
    RenameDA1(oldName, da, oldFull, newFull);
    CorrTagAfterRenDA(oldFull, newFull);
}

void CfgArvenSR::RenameDO(std::string oldName, DcDO* ob, std::string& oldFull,
                          std::string& newFull) {
    oldFull = InOwnerICC(ob, oldName);
    newFull = InOwnerICC(ob, ob->name);
    ForEachDataSetList([](StringList& sets) {
        for (int i = 0; i < sets.Count; ++i)
            if (auto set = qobject_cast<DcDataSet*>(ListOb(sets, i)))
                set->UpdRefObs();
    });
}

void CfgArvenSR::CorrTagAfterRenDA(std::string& oldFull, std::string& newFull) {
    const int at = pListTag->IndexOf(oldFull);
    if (at < 0)
        return;
    WriteTagId(pListTag->Objects(at), newFull);
    pListTag->ChString(at, newFull);
    QListWidgetItem* current = lWInfo->currentItem();
    emit lWInfo->currentItemChanged(current, current);
}

void CfgArvenSR::CorrTagAfterRenDO(std::string& oldFull, std::string& newFull) {
    // The list keeps its keys: a second rename finds them by the first name.
    for (int i = 0; i < pListTag->Count; ++i) {
        const std::string key = pListTag->Strings(i);
        if (key.compare(0, oldFull.size(), oldFull) == 0)
            WriteTagId(pListTag->Objects(i), newFull + key.substr(oldFull.size()));
    }
    if (QListWidgetItem* current = lWInfo->currentItem())
        emit lWInfo->currentItemChanged(current, current);
}

void CfgArvenSR::RenameDS(std::string oldName, QModelIndex, DcDataSet* ds) {
    const QString oldText = LocalToQ(InOwnerICC(ds, oldName));
    for (int row = 0; row < lWInfo->count(); ++row) {
        if (lWInfo->item(row)->text() == oldText) {
            lWInfo->item(row)->setData(Qt::DisplayRole, LocalToQ(InOwnerICC(ds, ds->name)));
            return;
        }
    }
}

void CfgArvenSR::RenameLD(std::string oldName, QModelIndex, DcLD* ld) {
    QListWidgetItem* item = lWInfo->currentItem();
    void* shown = item ? item->data(Qt::UserRole).value<void*>() : nullptr;
    const std::string mark = oldName + "/";
    for (int i = 0; i < ld->DataSets.Count; ++i) {
        auto set = qobject_cast<DcDataSet*>(ListOb(ld->DataSets, i));
        if (!set)
            continue;
        for (int k = 0; k < set->Elems.Count; ++k) {
            const std::string key = set->Elems.Strings(k);
            if (key.find(mark) != std::string::npos)
                set->Elems.ChString(k, WithNewICC(key, oldName, ld->name));
        }
    }
    UpDateFullDSList();
    for (int row = 0; row < lWInfo->count(); ++row)
        if (shown && lWInfo->item(row)->data(Qt::UserRole).value<void*>() == shown)
            lWInfo->setCurrentRow(row);
    for (int i = 0; i < pListTag->Count; ++i) {
        const std::string key = pListTag->Strings(i);
        if (key.find(mark) == std::string::npos)
            continue;
        const std::string renamed = WithNewICC(key, oldName, ld->name);
        pListTag->ChString(i, renamed);
        WriteTagId(pListTag->Objects(i), renamed);
    }
    if (QAbstractItemModel* tags = tVTags->model()) {
        const int rows = tags->rowCount();
        if (rows > 0)
            emit tags->dataChanged(tags->index(0, 0), tags->index(rows - 1, 0));
    }
}

void CfgArvenSR::RenameVCC(std::string, QModelIndex, DcVCC* vcc) {
    QListWidgetItem* item = lW_ieds->item(0);
    if (!item || !vcc)
        return;
    SetStr2PropOb(item->data(Qt::UserRole).value<void*>(), "ied_name", LocalToQ(vcc->name));
    emit lW_ieds->itemClicked(item);
}
