#include "editing/MoveVars.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "support/StrUtils.h"
#include "support/myNode.h"
#include "tags/TagBinding.h"
#include "views/SomeModelsIED.h"

namespace {

// Tells the content list to show the current data set again.
void RefreshContent(CfgArvenSR* form) {
    QListWidgetItem* current = form->lWInfo->currentItem();
    emit form->lWInfo->currentItemChanged(current, current);
}

// The current row of the data set list when it shows `dataSet`, else null.
QListWidgetItem* CurrentSetRow(CfgArvenSR* form, DcDataSet* dataSet) {
    QListWidgetItem* current = form->lWInfo->currentItem();
    if (!current || !dataSet)
        return nullptr;
    return current->text() == LocalToQ(dataSet->GetFullName()) ? current : nullptr;
}

// Member entries that point at a variable about to be deleted keep their
// text and lose the pointer, so that nothing reaches the freed object.
void ForgetMember(DcICCPBase* var) {
    ForEachDataSetList([var](StringList& dataSets) {
        for (int i = 0; i < dataSets.Count; ++i) {
            auto dataSet = qobject_cast<DcDataSet*>(ListOb(dataSets, i));
            if (!dataSet)
                continue;
            for (int k = 0; k < dataSet->Elems.Count; ++k)
                if (dataSet->Elems.Objects(k) == var)
                    dataSet->Elems.AddObjToString(nullptr, k);
        }
    });
}

} // namespace

void Changedomain(int newDomain, int oldDomain, void* tag) {
    CfgArvenSR* form = FCfgArvenSR;
    if (!form || !form->pTreeIedModel || !pVCC || !pDcDTTP)
        return;
    IEDTreeModel* model = form->pTreeIedModel;
    std::string caption, tagName;
    int type = 0, number = 0;
    GetTextProp(tag, "caption", caption);
    if (!GetIntProp(tag, "tag_type", type) || !GetTextProp(tag, "tag_name", tagName) ||
        !GetIntProp(tag, "number", number))
        return;
    const QList<DcICCPBase*>& types = pDcDTTP->TypeList;
    DcICCPBase* templ = type >= 0 && type < types.size() ? types.at(type) : nullptr;
    const std::string name = tagName + "_" + Int2Str(number);

    DcICCPBase* owner = DomainContainer(newDomain);
    StringList* target = VarsOf(owner);
    DcICCPBase* var = nullptr;
    const QModelIndex folder = VarsFolderRow(model, owner);
    if (folder.isValid() && target) {
        myNode* folderNode = model->nodeFromIndex(folder);
        const int row = model->rowCount(folder);
        model->beginInsertRows(folder, row, row);
        if (auto doType = qobject_cast<DcDOType*>(templ))
            var = new DcDO(name, doType, owner);
        else
            var = new DcDA(name, qobject_cast<DcDAType*>(templ), owner);
        var->BoundTag = tag;
        var->desc = caption;
        folderNode->AddChild(new myNode(name, var));
        target->AddObject(name, var, true);
        model->endInsertRows();
    }

    int dataSetNumber = 0;
    GetIntProp(tag, "isinDataSet", dataSetNumber);
    DcDataSet* newSet = nullptr;
    if (dataSetNumber > 0 && var) {
        newSet = DataSetOf(owner, dataSetNumber);
        if (newSet)
            newSet->AddObRef(var);
    }

    DcICCPBase* oldOwner = DomainContainer(oldDomain);
    const QModelIndex oldRow = VarRowOf(model, oldOwner, QString::fromStdString(name));
    if (oldRow.isValid()) {
        const QModelIndex parent = oldRow.parent();
        // The node goes with the rows after it, which the view must let go
        // of too.
        model->beginRemoveRows(parent, oldRow.row(), model->rowCount(parent) - 1);
        model->nodeFromIndex(oldRow)->DeleteSubTree();
        StringList* oldVars = VarsOf(oldOwner);
        const int at = oldVars ? oldVars->IndexOf(name) : -1;
        if (at >= 0) {
            DcICCPBase* old = ListOb(*oldVars, at);
            if (dataSetNumber > 0)
                if (DcDataSet* oldSet = DataSetOf(oldOwner, dataSetNumber))
                    oldSet->RemoveRef(old);
            oldVars->Delete(at);
            ForgetMember(old);
            delete old;
        }
        model->endRemoveRows();
    }
    if (CurrentSetRow(form, newSet))
        RefreshContent(form);
}

void Changedsnum(int newDs, int oldDs, void* tag) {
    CfgArvenSR* form = FCfgArvenSR;
    std::string tagName;
    int type = 0, number = 0, domain = 0;
    if (!form || !GetIntProp(tag, "tag_type", type) || !GetTextProp(tag, "tag_name", tagName) ||
        !GetIntProp(tag, "number", number) || !GetIntProp(tag, "domain", domain))
        return;
    const std::string name = tagName + "_" + Int2Str(number);
    DcICCPBase* owner = DomainContainer(domain);
    DcDataSet* newSet = DataSetOf(owner, newDs);
    DcDataSet* oldSet = DataSetOf(owner, oldDs);
    StringList* vars = VarsOf(owner);
    const int at = vars ? vars->IndexOf(name) : -1;
    if (at >= 0) {
        DcICCPBase* var = ListOb(*vars, at);
        if (oldSet)
            oldSet->RemoveRef(var);
        if (newSet)
            newSet->AddObRef(var);
    }
    QListWidgetItem* current = form->lWInfo->currentItem();
    void* shown = current ? current->data(Qt::UserRole).value<void*>() : nullptr;
    if (shown && (shown == newSet || shown == oldSet))
        RefreshContent(form);
}

void Changedtype(int, int, void* tag) {
    CfgArvenSR* form = FCfgArvenSR;
    const std::string name = GetNamewNumberByTag(tag);
    if (!form || !form->pTreeIedModel || name.empty())
        return;
    IEDTreeModel* model = form->pTreeIedModel;
    const QModelIndexList hits =
        model->match(model->index(0, 0), Qt::DisplayRole, QString::fromStdString(name), 1,
                     Qt::MatchRecursive | Qt::MatchWrap);
    if (hits.isEmpty())
        return;
    const QModelIndex row = hits.first();
    auto old = static_cast<DcICCPBase*>(RowObject(row));
    DcICCPBase* owner = old ? old->OwnerOb() : nullptr;
    if (!owner || (owner->ClassName() != "DcVCC" && owner->ClassName() != "DcLD"))
        return;
    const QModelIndex parent = row.parent();
    myNode* node = model->nodeFromIndex(row);
    myNode* parentNode = node->Parent;
    model->beginRemoveRows(parent, row.row(), row.row());
    node->DeleteNode();
    delete node;
    ForgetMember(old);
    delete old;
    model->endRemoveRows();

    int isDO = 0;
    DcICCPBase* var = form->CreateNewVarSimple(tag, isDO, -1);
    if (var && parentNode) {
        const int last = model->rowCount(parent);
        model->beginInsertRows(parent, last, last);
        parentNode->AddChild(new myNode(var->name, var));
        model->endInsertRows();
    }
    RefreshContent(form);
}
