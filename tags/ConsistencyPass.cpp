// The pass that turns the template model into the unit's model: ICCs, data
// sets and transfer sets grown to the limits, rows for the variables; and
// the additions that make a container only when it is absent.
#include "tags/ConsistencyPass.h"

#include "editing/CreateVars.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "support/StrUtils.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

namespace {

const int MatchAll = int(Qt::MatchRecursive | Qt::MatchWrap);
const char* const TransFolder = "Transfer_Sets";
const char* const DataSetsFolder = "Наборы данных (DataSets)";
const char* const VarsFolder = "Переменные";

QVariant Pointer(void* object) {
    return QVariant::fromValue(object);
}

// The first row from start on with that value under role; invalid for none.
QModelIndex FirstHit(IEDTreeModel* model, const QModelIndex& start, int role, const QVariant& value,
                     int flags = MatchAll) {
    if (!start.isValid())
        return QModelIndex();
    const QModelIndexList hits = model->match(start, role, value, 1, Qt::MatchFlags(flags));
    return hits.isEmpty() ? QModelIndex() : hits.first();
}

// The folder row of that text among the rows below row.
QModelIndex FolderUnder(IEDTreeModel* model, const QModelIndex& row, const char* text) {
    return FirstHit(model, model->index(0, 0, row), Qt::DisplayRole, QString(text));
}

// Rows for entries from..Count-1 of list, appended to folder's children.
// Each row goes after the one made before it, so the chain is walked once.
void AppendRows(myNode* folder, StringList& list, int from) {
    myNode* last = folder->FirstChild ? folder->FirstChild->GetLastSibling() : nullptr;
    for (int i = from; i < list.Count; ++i)
        last = last ? last->AddAsSibling(list.Strings(i), list.Objects(i))
                    : folder->AddChild(list.Strings(i), list.Objects(i));
}

// The same inside begin and end of the model's row insertion.
void InsertRows(IEDTreeModel* model, const QModelIndex& folder, StringList& list, int from) {
    model->beginInsertRows(folder, from, list.Count - 1);
    AppendRows(model->nodeFromIndex(folder), list, from);
    model->endInsertRows();
}

DcLD* AsLD(void* container) {
    auto object = static_cast<DcICCPBase*>(container);
    return object && object->ClassName() == "DcLD" ? static_cast<DcLD*>(object) : nullptr;
}

} // namespace

void AddDataSetPairs(DcLD* ld, int first, int last) {
    for (int k = first; k <= last; ++k) {
        const std::string n = Int2Str(k);
        auto dataSet = new DcDataSet("DataSet_" + n, ld);
        ld->DataSets.AddObject(dataSet->name, dataSet);
        auto transSet = new DcTransSet("TrSet_" + n, false, ld);
        transSet->Owner = ld;
        SetbTypeList(&transSet->Members);
        ld->TransSets.AddObject(transSet->name, transSet);
    }
}

DcNextTransferSet* MakeNextSet(DcLD* ld) {
    auto next = new DcNextTransferSet(ld);
    next->name = "Next_DSTransfer_Set";
    next->InitVar();
    ld->NextSet = next;
    ld->NextSets.AddObject(next->name, next);
    return next;
}

myNode* BornICCWithSets(int number) {
    auto ld = new DcLD(pVCC);
    ld->name = "ICC_" + Int2Str(number);
    pVCC->ICCs.AddObject(ld->name, ld, true);
    auto node = new myNode(ld->name, ld);
    AddDataSetPairs(ld, ld->DataSets.Count + 1, ICCdata.maxDS);
    if (!ld->IsExistNext())
        node->AddChild("Next_DSTransfer_Set", MakeNextSet(ld));
    AppendRows(node->AddChild(TransFolder, nullptr), ld->TransSets, 0);
    // Not the folder text of a loaded ICC: later searches for that text
    // pass this ICC by.
    AppendRows(node->AddChild("Наборы данных (DataSet)", nullptr), ld->DataSets, 0);
    node->AddChild(VarsFolder, nullptr);
    return node;
}

QModelIndex ICCFolderIndex(IEDTreeModel* model) {
    if (!model || !pVCC || pVCC->ICCs.Count < 1)
        return QModelIndex();
    void* last = pVCC->ICCs.Objects(pVCC->ICCs.Count - 1);
    return FirstHit(model, model->index(0, 0), Qt::UserRole, Pointer(last)).parent();
}

void CfgArvenSR::CheckLD() {
    if (!pVCC || !pTreeIedModel)
        return;
    const int count = pVCC->ICCs.Count;
    const QModelIndex folder = ICCFolderIndex(pTreeIedModel);
    myNode* parentNode = folder.isValid() ? pTreeIedModel->nodeFromIndex(folder) : nullptr;
    if (ICCdata.maxICC <= count)
        return;
    pTreeIedModel->beginInsertRows(folder, count + 1, ICCdata.maxICC);
    myNode* last =
        parentNode && parentNode->FirstChild ? parentNode->FirstChild->GetLastSibling() : nullptr;
    for (int n = count + 1; n <= ICCdata.maxICC; ++n) {
        myNode* node = BornICCWithSets(n);
        if (!parentNode) {
            // No row to hang it on: the ICC lives in the model only.
            node->DeleteSubTree();
        } else if (last) {
            last->AddSibling(node);
            last = node;
        } else {
            parentNode->AddChild(node);
            last = node;
        }
    }
    pTreeIedModel->endInsertRows();
}

void CfgArvenSR::CorrectQuanDS() {
    if (!pVCC || !pTreeIedModel)
        return;
    const int maxDS = ICCdata.maxDS;
    for (int i = 0; i < pVCC->ICCs.Count; ++i) {
        auto ld = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, i));
        if (!ld)
            continue;
        const int m = ld->DataSets.Count;
        if (maxDS <= m)
            continue;
        AddDataSetPairs(ld, m + 1, maxDS);
        const QModelIndex row =
            FirstHit(pTreeIedModel, pTreeIedModel->index(0, 0), Qt::UserRole, Pointer(ld));
        if (!row.isValid())
            continue;
        const QModelIndex trans = FolderUnder(pTreeIedModel, row, TransFolder);
        if (trans.isValid())
            InsertRows(pTreeIedModel, trans, ld->TransSets, m);
        const QModelIndex sets = FolderUnder(pTreeIedModel, row, DataSetsFolder);
        if (sets.isValid())
            InsertRows(pTreeIedModel, sets, ld->DataSets, m);
    }
}

void CfgArvenSR::CreateNewNodeInTree() {
    if (!pTreeIedModel)
        return;
    const QModelIndexList hits =
        pTreeIedModel->match(pTreeIedModel->index(0, 0), Qt::DisplayRole, QString(VarsFolder), -1,
                             Qt::MatchFlags(MatchAll));
    for (const QModelIndex& hit : hits) {
        myNode* folder = pTreeIedModel->nodeFromIndex(hit);
        auto owner =
            static_cast<DcICCPBase*>(folder && folder->Parent ? folder->Parent->object : nullptr);
        // The VCC's variables keep the template's rows and get no new ones.
        if (!owner || owner->ClassName() != "DcLD")
            continue;
        StringList& vars = static_cast<DcLD*>(owner)->Vars;
        if (vars.Count > 0)
            InsertRows(pTreeIedModel, hit, vars, 0);
    }
}

void CfgArvenSR::CreateNewVar(QList<void*>& tags) {
    if (pDcDTTP)
        pDcDTTP->sortByidtype();
    int isDO = 0;
    // Thousands of variables may go into one list and one data set: they
    // are put in together at the end.
    OpenVarBatch();
    DcDataSet::OpenRefBatch();
    for (void* tag : tags) {
        if (!tag)
            break;
        CreateNewVarSimple(tag, isDO, -1);
    }
    DcDataSet::CloseRefBatch();
    CloseVarBatch();
}

int CfgArvenSR::CheckAndSetDataSet(void* container, std::string name) {
    auto object = static_cast<DcICCPBase*>(container);
    const QString cls = object ? object->ClassName() : QString();
    StringList* list = cls == "DcVCC"  ? &static_cast<DcVCC*>(object)->DataSets
                       : cls == "DcLD" ? &static_cast<DcLD*>(object)->DataSets
                                       : nullptr;
    if (!list)
        return 0;
    if (list->IndexOf(name) >= 0)
        return -1;
    auto dataSet = new DcDataSet(name, object);
    if (list->AddObject(name, dataSet) < 0 || !pTreeIedModel)
        return 0;
    const QModelIndex row =
        FirstHit(pTreeIedModel, pTreeIedModel->index(0, 0), Qt::UserRole, Pointer(object));
    const QModelIndex folder = FolderUnder(pTreeIedModel, row, DataSetsFolder);
    if (!folder.isValid())
        return -2;
    myNode* folderNode = pTreeIedModel->nodeFromIndex(folder);
    const int at = folderNode->GetChildCount();
    pTreeIedModel->beginInsertRows(folder, at, at);
    folderNode->AddChild(dataSet->CreatemyNode());
    pTreeIedModel->endInsertRows();
    auto item = new QListWidgetItem(LocalToQ(dataSet->GetFullName()), lWInfo);
    item->setData(Qt::UserRole, Pointer(dataSet));
    return 0;
}

int CfgArvenSR::CheckAndSetTrans(void* container, std::string name) {
    DcLD* ld = AsLD(container);
    if (!ld) {
        auto object = static_cast<DcICCPBase*>(container);
        return object && object->ClassName() == "DcVCC" ? -2 : 0;
    }
    if (ld->TransSets.IndexOf(name) >= 0)
        return -1;
    pTrans = new DcTransSet(name, true, nullptr);
    pTrans->setParent(ld);
    pTrans->Owner = ld;
    pTrans->name = name;
    SetbTypeList(&pTrans->Members);
    ld->TransSets.AddObject(name, pTrans);
    if (!pTreeIedModel)
        return -2;
    const QModelIndex row =
        FirstHit(pTreeIedModel, pTreeIedModel->index(0, 0), Qt::UserRole, Pointer(ld));
    const QModelIndex folder = FolderUnder(pTreeIedModel, row, TransFolder);
    if (!folder.isValid())
        return -2;
    myNode* folderNode = pTreeIedModel->nodeFromIndex(folder);
    const int at = folderNode->GetChildCount();
    pTreeIedModel->beginInsertRows(folder, at, at);
    folderNode->AddChild(name, pTrans);
    pTreeIedModel->endInsertRows();
    return 0;
}

int CfgArvenSR::CheckAndSetNextTrans(void* container) {
    DcLD* ld = AsLD(container);
    if (!ld)
        return -2;
    if (ld->IsExistNext())
        return 0;
    DcNextTransferSet* next = MakeNextSet(ld);
    if (!pTreeIedModel)
        return -2;
    const QModelIndex row =
        FirstHit(pTreeIedModel, pTreeIedModel->index(0, 0), Qt::UserRole, Pointer(ld));
    if (!row.isValid())
        return -2;
    pTreeIedModel->beginInsertRows(row, 0, 0);
    pTreeIedModel->nodeFromIndex(row)->AddChildAsFirst(new myNode(next->name, next));
    pTreeIedModel->endInsertRows();
    return 0;
}
