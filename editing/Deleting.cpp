// Deleting: variables with their tags from the model tree, members from a
// data set, the unit from the unit list, and the older routes kept beside
// them. ICCs, data sets and transfer sets follow the unit's limits and are
// not deleted by hand.
#include "editing/Deleting.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/HostTitles.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"
#include "support/myNode.h"
#include "tags/TagBinding.h"
#include "tags/TagFolders.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"
#include "views/ViewModel.h"

#include <QMessageBox>
#include <QSet>
#include <QStatusBar>
#include <QTreeView>
#include <algorithm>
#include <vector>

namespace {

bool IsVariable(DcICCPBase* ob) {
    const QString cls = ob ? ob->ClassName() : QString();
    return cls == "DcDA" || cls == "DcDO";
}

// The first row of the tag model that carries the tag in a search of the
// whole model from its first row; invalid when the tag isn't shown. The
// search descends through the shown rows of each folder, and a host object
// stands under its owner alone: the row lies on the chain of the tag's
// owners, each shown among its owner's rows. That chain is followed, and a
// row that isn't where the host's lists put it sends the question to the
// search itself.
QModelIndex TagRow(UnitTagsModel* model, void* tag) {
    if (!tag || !model->index(0, 0).isValid())
        return QModelIndex();
    std::vector<void*> chain;
    for (void* ob = tag; ob != model->rootNode(); ob = cfgObOwner(ob)) {
        if (!ob || chain.size() > 256)
            return QModelIndex();
        chain.push_back(ob);
    }
    QModelIndex row;
    for (auto ob = chain.rbegin(); ob != chain.rend(); ++ob) {
        void* owner = model->nodeFromIndex(row);
        const int kind = cfgObType(*ob);
        if (kind != model->mode && kind != model->mode + 8)
            return QModelIndex();
        const std::vector<void*> kin = GetChildren(owner, kind);
        const int at = int(std::find(kin.begin(), kin.end(), *ob) - kin.begin()) +
                       (kind == model->mode ? cfgObChildCount(owner, model->mode + 8) : 0);
        if (at >= model->rowCount(row))
            return QModelIndex();
        row = model->index(at, 0, row);
        if (row.internalPointer() != *ob)
            return model
                ->match(model->index(0, 0), Qt::UserRole, QVariant::fromValue(tag), -1,
                        Qt::MatchRecursive | Qt::MatchWrap)
                .value(0);
    }
    return row;
}

// The variable of a member row, when it still stands in the model: the one
// its key names, or one of the variables of the VCC or an ICC. A row of the
// member list keeps its object until the list is filled again, and the
// variable may have been deleted since.
DcICCPBase* LiveVariable(QListWidgetItem* item) {
    auto var = static_cast<DcICCPBase*>(item->data(Qt::UserRole).value<void*>());
    if (!var || !pVCC || pVCC->GetDAbyLongName(QToLocal(item->text())) == var)
        return var;
    bool found = FindIdObjByPtr(var, &pVCC->Vars) >= 0;
    for (int i = 0; i < pVCC->ICCs.Count && !found; ++i)
        if (auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, i)))
            found = FindIdObjByPtr(var, &icc->Vars) >= 0;
    return found ? var : nullptr;
}

} // namespace

void RemoveMember(DcDataSet* dataSet, const std::string& name) {
    if (!dataSet)
        return;
    const int i = dataSet->Elems.IndexOf(name);
    if (i >= 0)
        dataSet->Elems.Delete(i);
}

QuietView::QuietView(QTreeView* view, bool openRemoved)
    : m_view(view), m_blocker(view->selectionModel()) {
    if (openRemoved && view->model())
        m_watch = QObject::connect(view->model(), &QAbstractItemModel::rowsAboutToBeRemoved,
                                   [this](const QModelIndex& parent) { m_opened << parent; });
}

QuietView::~QuietView() {
    QObject::disconnect(m_watch);
    m_blocker.unblock();
    if (m_view->isVisible() && m_view->hasAutoScroll() && m_view->itemsExpandable())
        for (QModelIndex up : m_opened)
            for (; up.isValid(); up = up.parent())
                m_view->expand(up);
    QItemSelectionModel* selection = m_view->selectionModel();
    if (selection && selection->currentIndex().isValid())
        emit selection->currentChanged(selection->currentIndex(), selection->currentIndex());
    m_view->viewport()->update();
}

void CfgArvenSR::OnDelOb() {
    if (lW_ieds->hasFocus())
        DelFromUnits();
    else if (tVTags->hasFocus())
        DelFromtVTags();
    else if (tVIed->hasFocus())
        DeleteFromiedTree();
    else if (lWInfo_2->hasFocus())
        DeleteFromContentRefDS();
}

void CfgArvenSR::DeleteFromiedTree() {
    QItemSelectionModel* selection = tVIed->selectionModel();
    const QModelIndexList selected = selection ? selection->selectedIndexes() : QModelIndexList();
    if (selected.isEmpty() || !pTreeIedModel)
        return;
    // Only the first row is judged: a variable right under a folder row.
    const QModelIndex first = selected.first();
    if (RowObject(first.parent()) || !IsVariable(static_cast<DcICCPBase*>(RowObject(first)))) {
        QMessageBox::information(this, QString(), "Объект нельзя удалить");
        return;
    }
    // Rows of a subtree removed before are freed: their indexes aren't read.
    // Rows are found through an index of the tree while rows go one by one.
    QSet<const myNode*> removed;
    IEDTreeModel::SearchBatch batch(pTreeIedModel);
    QuietView quiet(tVIed, false);
    for (const QModelIndex& index : selected) {
        myNode* node = pTreeIedModel->nodeFromIndex(index);
        if (index.column() != 0 || removed.contains(node))
            continue;
        auto var = static_cast<DcICCPBase*>(RowObject(index));
        // A variable without a tag (an SBO twin, a system variable) stays.
        if (!var || !var->BoundTag)
            continue;
        if (!IsVariable(var))
            return;
        const std::string fullName = var->GetFullName();
        void* tag = var->BoundTag;
        int domain = 0, dataSet = 0;
        if (!GetIntProp(tag, "domain", domain) || !GetIntProp(tag, "isinDataSet", dataSet))
            continue;
        if (dataSet != 0)
            RemoveMember(DataSetOf(DomainContainer(domain), dataSet), fullName);
        const QModelIndex hit = TagRow(pTagsModel, tag);
        if (!hit.isValid())
            continue;
        pTagsModel->beginRemoveRows(hit.parent(), hit.row(), hit.row());
        cfgObDelete(RowObject(hit));
        pTagsModel->endRemoveRows();
        // The row number is the selection's, taken before the removals.
        pTreeIedModel->RemoveNode(index.parent(), index.row(), node, &removed);
    }
}

void CfgArvenSR::DeleteFromContentRefDS() {
    const QList<QListWidgetItem*> items = lWInfo_2->selectedItems();
    QListWidgetItem* current = lWInfo->currentItem();
    // The current row names the set: "ICC/set" for a set of an ICC.
    const QString text = current ? current->text() : QString();
    std::string name;
    StringList* sets = ScopedList(pVCC, QToLocal(text), true, name);
    auto dataSet = sets ? qobject_cast<DcDataSet*>(ListOb(*sets, sets->IndexOf(name))) : nullptr;
    for (int i = items.size() - 1; i >= 0; --i) {
        QListWidgetItem* item = items[i];
        if (DcICCPBase* var = LiveVariable(item))
            SetIntProp(var->BoundTag, "isinDataSet", 0);
        RemoveMember(dataSet, QToLocal(item->text()));
        delete item;
    }
}

void CfgArvenSR::DelFromUnits() {
    if (lW_ieds->count() == 1) {
        QMessageBox::information(this, "Предупреждение",
                                 "Устройство последнее, его можно удалять вместе \n с направлением "
                                 "в основной программе");
        return;
    }
    QListWidgetItem* item = lW_ieds->currentItem();
    void* unit = item ? item->data(Qt::UserRole).value<void*>() : nullptr;
    if (!unit)
        return;
    if (QMessageBox::question(this, "Предупреждение", "Удалить устройство " + GetTitle(unit),
                              QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Cancel)
        return;
    delete lW_ieds->takeItem(lW_ieds->row(item));
    cfgObDelete(unit);
    for (QTreeView* view : {tVTags, tVProp, tVIed, tVprop})
        SetViewModel(view, nullptr);
    if (QListWidgetItem* next = lW_ieds->currentItem())
        emit lW_ieds->currentItemChanged(next, next);
}

void CfgArvenSR::OnRemoveObFromDS(void* host, std::string name, void* tag) {
    int domain = 0, number = 0;
    GetIntProp(tag, "domain", domain);
    if (!pVCC || !GetIntProp(tag, "isinDataSet", number) || number == 0)
        return;
    auto icc = qobject_cast<DcLD*>(static_cast<DcICCPBase*>(host));
    if (host && !icc)
        return;
    // The number counts from 0 here: the set behind the tag's one is meant.
    StringList& sets = icc ? icc->DataSets : pVCC->DataSets;
    auto dataSet = qobject_cast<DcDataSet*>(ListOb(sets, number));
    if (!dataSet)
        return;
    lWInfo_2->clear();
    RemoveMember(dataSet, name);
}

void CfgArvenSR::DelElemsFromDS(std::string name, DcVCC* vcc) {
    // One model at a time: the walk is that of pVCC.
    if (!vcc || vcc != pVCC)
        return;
    ForEachDataSetList([&name](StringList& sets) {
        for (int i = 0; i < sets.Count; ++i)
            RemoveMember(qobject_cast<DcDataSet*>(ListOb(sets, i)), name);
    });
}

void CfgArvenSR::OnDelTaseFld() {
    const QModelIndexList selected =
        tVTags->selectionModel() ? tVTags->selectionModel()->selectedIndexes() : QModelIndexList();
    for (const QModelIndex& index : selected) {
        void* tag = RowObject(index);
        if (cfgObType(tag) < 4) {
            Settag_id(tag, QString(""));
            SetIntProp(tag, "tag_type", 0);
        }
    }
    if (!selected.isEmpty())
        emit pTagsModel->dataChanged(selected.first(), selected.last());
}

void CfgArvenSR::OnDelObFromDS() {
    QListWidgetItem* current = lWInfo->currentItem();
    auto dataSet = current ? qobject_cast<DcDataSet*>(static_cast<DcICCPBase*>(
                                 current->data(Qt::UserRole).value<void*>()))
                           : nullptr;
    if (!dataSet)
        return;
    const QString ref = dataSet->GetRefNameDS();
    const QList<QListWidgetItem*> items = lWInfo_2->selectedItems();
    for (int i = items.size() - 1; i >= 0; --i) {
        RemoveMember(dataSet, QToLocal(items[i]->text()));
        if (DcICCPBase* var = LiveVariable(items[i])) {
            const int at = var->refDS.indexOf(ref);
            if (at >= 0)
                var->refDS = var->refDS.mid(0, at) + var->refDS.mid(at + ref.size());
        }
        delete items[i];
    }
}

void CfgArvenSR::DelFromtVIed() {
    // The selection is never read into this list: it stays empty.
    QModelIndexList selected;
    if (selected.isEmpty() || !pTreeIedModel)
        return;
    for (const QModelIndex& index : selected)
        if (index.parent() != selected.first().parent())
            return;
    const QString question = "Удалить объект(ы)  в кол-ве " + QString::number(selected.size());
    if (QMessageBox::question(this, "Предупреждение", question,
                              QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Cancel)
        return;
    for (int i = selected.size() - 1; i >= 0; --i) {
        const QModelIndex index = selected[i];
        auto ob = static_cast<DcICCPBase*>(RowObject(index));
        auto up = static_cast<DcICCPBase*>(RowObject(index.parent()));
        const QString upClass = up ? up->ClassName() : QString();
        if (IsVariable(ob) && upClass == "DcDO")
            return;
        if (!ob && upClass != "DcDataSet") {
            statusBar->showMessage("Объект не может быть удален", 5000);
            continue;
        }
        DeleteOb(index);
        pTreeIedModel->RemoveNode(index.parent(), index.row(), pTreeIedModel->nodeFromIndex(index));
    }
}

void CfgArvenSR::DeleteOb(const QModelIndex& index) {
    auto ob = static_cast<DcICCPBase*>(RowObject(index));
    if (!ob) {
        DeleteElemDS(index, index.parent());
        return;
    }
    DcICCPBase* owner = ob->OwnerOb();
    auto list = [](StringList* from, DcICCPBase* object) {
        if (from)
            from->Delete(FindIdObjByPtr(object, from));
    };
    switch (ob->ObType) {
    case 2: // DcDA
    case 4: // DcDO
        DeleteDOorDA(index);
        break;
    case 6: // DcLD; the sweeps of its name through the data sets and the tag
            // keys are not part of this route.
        list(pVCC ? &pVCC->ICCs : nullptr, ob);
        delete ob;
        break;
    case 51: // DcDataSet
        if (auto icc = qobject_cast<DcLD*>(owner))
            list(&icc->DataSets, ob);
        else if (auto vcc = qobject_cast<DcVCC*>(owner))
            list(&vcc->DataSets, ob);
        delete ob;
        UpDateFullDSList();
        break;
    case 52: // DcTransSet, under an ICC
        if (auto icc = qobject_cast<DcLD*>(owner)) {
            SetViewModel(tVprop, nullptr);
            SetViewModel(tVProp, nullptr);
            list(&icc->TransSets, ob);
            delete ob;
            pTreeIedModel->nodeFromIndex(index)->object = nullptr;
        }
        break;
    default:
        break;
    }
}

void CfgArvenSR::DeleteDOorDA(const QModelIndex& index) {
    auto var = static_cast<DcICCPBase*>(RowObject(index));
    std::string key;
    StringList keys;
    if (!IsVariable(var))
        return;
    if (var->ClassName() == "DcDO")
        DeleteDO(static_cast<DcDO*>(var), key, keys);
    else
        DeleteDA(static_cast<DcDA*>(var), key);
    FreeTag(key);
    for (int i = 0; i < keys.Count; ++i)
        FreeTag(keys.Strings(i));
    DelElemsFromDS(key, pVCC);
}

void CfgArvenSR::DeleteDA(DcDA* var, std::string& key) {
    key = var->GetFullName();
    if (StringList* vars = VarsOf(var->OwnerOb()))
        vars->Delete(FindIdObjByPtr(var, vars));
    delete var;
}

void CfgArvenSR::DeleteDO(DcDO* var, std::string& key, StringList& keys) {
    for (int i = 0; i < var->Members.Count; ++i)
        if (DcICCPBase* member = ListOb(var->Members, i))
            keys.AddString(member->GetFullName());
    key = var->GetFullName();
    if (StringList* vars = VarsOf(var->OwnerOb()))
        vars->Delete(FindIdObjByPtr(var, vars));
    delete var;
}

void CfgArvenSR::DeleteElemDS(const QModelIndex& index, const QModelIndex& parent) {
    RemoveMember(qobject_cast<DcDataSet*>(static_cast<DcICCPBase*>(RowObject(parent))),
                 QToLocal(index.data().toString()));
}

void CfgArvenSR::TryDelDS(const QModelIndex&) {}
