// New containers of the model: ICCs, data sets, transfer sets, and variables
// put into a data set as members.
#include "editing/CreateVars.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/cfgCalls.h"
#include "support/StrUtils.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

#include <QInputDialog>
#include <QLineEdit>

DcICCPBase* CfgArvenSR::GetObFromtVIed() {
    const QModelIndex index = tVIed->currentIndex();
    if (index.row() < 0 || index.column() < 0 || !index.model())
        return nullptr;
    return static_cast<DcICCPBase*>(index.data(Qt::UserRole).value<void*>());
}

void CfgArvenSR::OnAddLD() {
    if (!pVCC)
        return;
    const QString suggestion = "ICC_" + QString::number(pVCC->ICCs.Count);
    bool ok = false;
    const QString text =
        QInputDialog::getText(this, "Ввод ICC", "Имя ICC:", QLineEdit::Normal, suggestion, &ok);
    if (!ok || text.isEmpty())
        return;
    const std::string name = QToLocal(text);
    if (pVCC->ICCs.IndexOf(name) >= 0)
        return;
    BornLD(name);
}

void CfgArvenSR::BornLD(std::string name) {
    if (!pTreeIedModel || !pVCC)
        return;
    const QModelIndexList hits = pTreeIedModel->match(pTreeIedModel->index(0, 0), Qt::DisplayRole,
                                                      "Inter Control Center's (ICC)", -1,
                                                      Qt::MatchRecursive | Qt::MatchWrap);
    if (hits.isEmpty())
        return;
    auto icc = new DcLD(pVCC);
    icc->ObType = 6;
    icc->name = name;
    const QModelIndex folder = hits.first();
    myNode* folderNode = pTreeIedModel->nodeFromIndex(folder);
    const int row = pTreeIedModel->rowCount(folder);
    pTreeIedModel->beginInsertRows(folder, row, row);
    auto node = new myNode(name, icc);
    folderNode->AddChild(node);
    pVCC->ICCs.AddObject(name, icc, true);
    icc->FillmyNode(node);
    pTreeIedModel->endInsertRows();
}

void CfgArvenSR::OnAddDS() {
    if (!pVCC)
        return;
    QStringList names;
    for (int i = 0; i < pVCC->ICCs.Count; ++i)
        names << GetRusQStr(pVCC->ICCs.Strings(i).c_str());
    bool ok = false;
    const QString chosen = QInputDialog::getItem(
        this, "Добаление DataSet", "Выберите ICC для добавления", names, 0, false, &ok);
    if (!ok)
        return;
    auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, names.indexOf(chosen)));
    if (!icc)
        return;
    // These two objects go into no list and get no row: the command has no
    // effect that the model or its file shows. The set stays with its Qt
    // parent; the transfer set has no owner at all and goes at once.
    const std::string number = Int2Str(icc->DataSets.Count + 1);
    new DcDataSet("DataSet_" + number, icc);
    delete new DcTransSet("TrSet_" + number, true, nullptr);
}

namespace {

// The row of the first object of list; invalid when the list is empty or the
// object has no row.
QModelIndex FirstObjectRow(IEDTreeModel* model, StringList& list) {
    if (!list.Objects(0))
        return QModelIndex();
    const QModelIndexList hits =
        model->match(model->index(0, 0), Qt::UserRole, QVariant::fromValue(list.Objects(0)), 2,
                     Qt::MatchRecursive | Qt::MatchWrap);
    if (hits.isEmpty())
        return QModelIndex();
    return hits.first();
}

// Rows for the entries of list from position `from` on, as last children of
// the folder node, announced under `announced` for rows from to last.
void AddRowsFrom(IEDTreeModel* model, const QModelIndex& announced, myNode* folder,
                 StringList& list, int from, int last) {
    if (!folder || from > last)
        return;
    model->beginInsertRows(announced, from, last);
    for (int i = from; i < list.Count; ++i)
        folder->AddChild(list.Strings(i), list.Objects(i));
    model->endInsertRows();
}

} // namespace

void CfgArvenSR::AdDs() {
    if (!pVCC)
        return;
    const int maxDS = ICCdata.maxDS;
    const int vccCount = pVCC->DataSets.Count;
    for (int i = vccCount + 1; i <= maxDS; ++i) {
        const std::string name = "DataSet_" + Int2Str(i);
        pVCC->DataSets.AddObject(name, new DcDataSet(name, pVCC), true);
    }
    if (pTreeIedModel && vccCount >= 1) {
        const QModelIndex first = FirstObjectRow(pTreeIedModel, pVCC->DataSets);
        if (first.isValid()) {
            const QModelIndex folder = first.parent();
            AddRowsFrom(pTreeIedModel, folder, pTreeIedModel->nodeFromIndex(folder), pVCC->DataSets,
                        vccCount, maxDS - 1);
        }
    }
    for (int n = 0; n < pVCC->ICCs.Count; ++n) {
        auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, n));
        if (!icc)
            continue;
        const int count = icc->DataSets.Count;
        for (int i = count + 1; i <= maxDS; ++i) {
            // Until the next load such a set has the VCC as parent, so it
            // names no ICC in its references.
            const std::string dsName = "DataSet_" + Int2Str(i);
            icc->DataSets.AddObject(dsName, new DcDataSet(dsName, pVCC), true);
            const std::string tsName = "TrSet_" + Int2Str(i);
            auto transSet = new DcTransSet(tsName, false, icc);
            transSet->Owner = icc;
            transSet->name = tsName;
            transSet->SetbTypeList();
            icc->TransSets.AddObject(tsName, transSet, true);
        }
        if (!pTreeIedModel)
            continue;
        // The rows are announced under the ICC's row, one level above the
        // folders that take them; the form expands and repaints afterwards.
        const QModelIndex dsRow = FirstObjectRow(pTreeIedModel, icc->DataSets);
        if (dsRow.isValid())
            AddRowsFrom(pTreeIedModel, dsRow.parent().parent(),
                        pTreeIedModel->nodeFromIndex(dsRow.parent()), icc->DataSets, count,
                        maxDS - 1);
        const QModelIndex tsRow = FirstObjectRow(pTreeIedModel, icc->TransSets);
        if (tsRow.isValid())
            AddRowsFrom(pTreeIedModel, tsRow.parent().parent(),
                        pTreeIedModel->nodeFromIndex(tsRow.parent()), icc->TransSets, count,
                        maxDS - 1);
    }
}
