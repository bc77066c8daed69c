// The bulk command of the content list: its members move to another data
// set, or to another owner, as the tags of single moves would; and the
// viewer of the reserve list.
#include "dialogs/Mode4MoveOb.h"
#include "dialogs/ReserveF.h"
#include "editing/MoveVars.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"
#include "tags/TagBinding.h"

#include <QComboBox>
#include <QPersistentModelIndex>
#include <QSet>
#include <algorithm>

namespace {

// The number behind the last "_" of text.
bool NumberAtEnd(const QString& text, int& number) {
    const int at = text.lastIndexOf('_');
    bool ok = false;
    number = at < 0 ? 0 : text.mid(at + 1).toInt(&ok);
    return ok;
}

// The owner and data set numbers of a row of the data set list: "ICC_n/
// DataSet_m", or "DataSet_m" in the VCC.
bool ParseSource(const QString& text, int& domain, int& dataSet) {
    const int slash = text.indexOf('/');
    if (slash < 0) {
        domain = 0;
        return NumberAtEnd(text, dataSet);
    }
    return NumberAtEnd(text.left(slash), domain) && NumberAtEnd(text.mid(slash + 1), dataSet);
}

// The objects that a list row may still point at: the variables of every
// owner and the standard fields of every data set. A row may outlive its
// object when a variable was deleted while its set was shown.
QSet<void*> LiveObjects() {
    QSet<void*> live;
    if (!pVCC)
        return live;
    auto addVars = [&live](StringList& vars) {
        for (int i = 0; i < vars.Count; ++i)
            live.insert(vars.Objects(i));
    };
    addVars(pVCC->Vars);
    for (int i = 0; i < pVCC->ICCs.Count; ++i)
        if (StringList* vars = VarsOf(ListOb(pVCC->ICCs, i)))
            addVars(*vars);
    ForEachDataSetList([&live](StringList& dataSets) {
        for (int i = 0; i < dataSets.Count; ++i)
            if (DcICCPBase* dataSet = ListOb(dataSets, i))
                for (QObject* child : dataSet->children())
                    live.insert(static_cast<DcICCPBase*>(child));
    });
    return live;
}

} // namespace

void CfgArvenSR::MoveOb_ContDS() {
    const QList<QListWidgetItem*> selected = lWInfo_2->selectedItems();
    QListWidgetItem* current = lWInfo->currentItem();
    int oldDomain = 0, oldDs = 0;
    if (!current || !ParseSource(current->text(), oldDomain, oldDs))
        return;
    Mode4MoveOb* dialog = NeedMode4MoveOb(this);
    dialog->OnShow();
    if (dialog->exec() != QDialog::Accepted)
        return;
    const int newDomain = dialog->cBDomain->currentIndex();
    const int newDs = dialog->cBDataSet->currentIndex();
    if (newDomain == oldDomain && newDs == oldDs)
        return;

    const QSet<void*> live = LiveObjects();
    QList<DcICCPBase*> obs;
    // A row may be gone before the end, when a slot refills the list:
    // persistent indexes tell which rows are still there.
    QList<QPersistentModelIndex> rows;
    for (QListWidgetItem* item : selected) {
        void* ob = item->data(Qt::UserRole).value<void*>();
        obs << (live.contains(ob) ? static_cast<DcICCPBase*>(ob) : nullptr);
        rows << QPersistentModelIndex(lWInfo_2->model()->index(lWInfo_2->row(item), 0));
    }
    if (newDomain == oldDomain)
        ChangeDsOnly(newDomain, newDs, &obs);
    else
        ChangeDomainAndDs(newDomain, newDs, oldDomain, oldDs, &obs);

    std::vector<int> left;
    for (const QPersistentModelIndex& row : rows)
        if (row.isValid())
            left.push_back(row.row());
    rows.clear();
    // From the bottom up, so that the rows above keep their numbers.
    std::sort(left.begin(), left.end());
    for (auto row = left.rbegin(); row != left.rend(); ++row)
        delete lWInfo_2->takeItem(*row);
}

void CfgArvenSR::ChangeDsOnly(int newDomain, int newDs, QList<DcICCPBase*>* obs) {
    if (!obs)
        return;
    // The box's index counts the sets from 0: "NoDataSet" means the first.
    DcDataSet* target = DataSetOf(DomainContainer(newDomain), newDs + 1);
    for (DcICCPBase* ob : *obs) {
        if (!ob)
            continue;
        if (ob->BoundTag)
            SetIntProp(ob->BoundTag, "isinDataSet", newDs);
        if (target)
            target->AddObRef(ob);
    }
}

void CfgArvenSR::ChangeDomainAndDs(int newDomain, int newDs, int oldDomain, int oldDs,
                                   QList<DcICCPBase*>* obs) {
    if (!obs)
        return;
    MoveRun run(pTreeIedModel, true);
    for (DcICCPBase* ob : *obs) {
        // A row may name an object that a move before has freed.
        if (!ob || run.Gone(ob) || !ob->BoundTag)
            continue;
        void* tag = ob->BoundTag;
        SetIntProp(tag, "domain", newDomain);
        Changedomain(newDomain, oldDomain, tag, &run);
        if (newDs != oldDs) {
            // The tag keeps the old number; the membership moves.
            SetIntProp(tag, "isinDataSet", oldDs);
            Changedsnum(newDs, oldDs, tag, &run);
        }
    }
}

void CfgArvenSR::onShowReservDSList() {
    ReserveF* viewer = NeedReserveF(this);
    viewer->Init(&ReserveList);
    viewer->exec();
}
