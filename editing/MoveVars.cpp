#include "editing/MoveVars.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"
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

// The text of the entry that AddObRef and RemoveRef look for.
std::string MemberKey(DcDataSet* dataSet, DcICCPBase* var) {
    return dataSet->Domain.empty() ? var->name : dataSet->Domain + "/" + var->name;
}

} // namespace

QModelIndex MoveRun::Folder(DcICCPBase* owner) {
    auto at = folders.find(owner);
    if (at == folders.end())
        at = folders.insert(owner, QPersistentModelIndex(VarsFolderRow(model, owner)));
    return *at;
}

MoveRun::~MoveRun() {
    for (Rows& list : rows)
        Flush(list);
}

MoveRun::Rows& MoveRun::RowsOf(const QModelIndex& folder) {
    myNode* node = model->nodeFromIndex(folder);
    auto at = rows.find(node);
    if (at != rows.end())
        return *at;
    Rows& made = rows[node];
    made.folder = folder;
    const int count = model->rowCount(folder);
    for (int r = 0; r < count; ++r) {
        const QModelIndex row = model->index(r, 0, folder);
        made.nodes.push_back(model->nodeFromIndex(row));
        made.texts.push_back(row.data().toString());
        if (!made.first.contains(made.texts.back()))
            made.first.insert(made.texts.back(), r);
    }
    made.linked = made.nodes.size();
    return made;
}

int MoveRun::RowOf(const QModelIndex& folder, const QString& name) {
    return RowsOf(folder).first.value(name, -1);
}

void MoveRun::Flush(Rows& list, const std::function<void()>& inside) {
    const int first = int(list.linked), last = int(list.nodes.size()) - 1;
    if (first > last || !list.folder.isValid())
        return;
    model->beginInsertRows(list.folder, first, last);
    // Linked behind the known last child: no walk along the chain.
    for (; list.linked < list.nodes.size(); ++list.linked) {
        if (list.linked == 0)
            model->nodeFromIndex(list.folder)->AddChild(list.nodes[0]);
        else
            list.nodes[list.linked - 1]->AddSibling(list.nodes[list.linked]);
    }
    if (inside)
        inside();
    model->endInsertRows();
}

void MoveRun::Append(const QModelIndex& folder, myNode* node, const std::function<void()>& inside) {
    Rows& list = RowsOf(folder);
    const int row = int(list.nodes.size());
    list.nodes.push_back(node);
    list.texts.push_back(GetRusQStr(node->name.c_str()));
    if (!list.first.contains(list.texts.back()))
        list.first.insert(list.texts.back(), row);
    // The model announces a row by counting its parent's children, one by
    // one: a batch of rows is counted once.
    if (batch)
        inside();
    else
        Flush(list, inside);
}

void MoveRun::RemoveFrom(const QModelIndex& folder, int row, const std::function<void()>& inside) {
    Rows& list = RowsOf(folder);
    Flush(list);
    const int last = int(list.nodes.size()) - 1;
    if (row < 0 || row > last)
        return;
    // The node goes with the rows after it, which the view must let go of
    // too.
    model->beginRemoveRows(folder, row, last);
    list.nodes[row]->DeleteSubTree();
    for (int r = row; r <= last; ++r) {
        auto first = list.first.find(list.texts[r]);
        if (first != list.first.end() && *first >= row)
            list.first.erase(first);
    }
    list.nodes.resize(row);
    list.texts.resize(row);
    list.linked = list.nodes.size();
    inside();
    model->endRemoveRows();
}

void MoveRun::CountMembers() {
    counted = true;
    ForEachDataSetList([this](StringList& dataSets) {
        for (int i = 0; i < dataSets.Count; ++i)
            if (auto dataSet = qobject_cast<DcDataSet*>(ListOb(dataSets, i)))
                for (int k = 0; k < dataSet->Elems.Count; ++k)
                    if (void* ob = dataSet->Elems.Objects(k))
                        ++members[qMakePair(ob, dataSet)];
    });
}

void MoveRun::AddRef(DcDataSet* dataSet, DcICCPBase* var) {
    if (!dataSet || !var)
        return;
    dataSet->AddObRef(var);
    // A renewed entry still counts for the object it held: counting too many
    // costs a look at the set, too few would leave a pointer behind.
    if (counted)
        ++members[qMakePair(static_cast<void*>(var), dataSet)];
}

void MoveRun::RemoveRef(DcDataSet* dataSet, DcICCPBase* var) {
    if (!dataSet || !var)
        return;
    if (counted) {
        const int at = dataSet->Elems.IndexOf(MemberKey(dataSet, var));
        auto count =
            at < 0 ? members.end() : members.find(qMakePair(dataSet->Elems.Objects(at), dataSet));
        if (count != members.end() && *count > 0)
            --*count;
    }
    dataSet->RemoveRef(var);
}

void MoveRun::ForgetMember(DcICCPBase* var) {
    if (!counted)
        CountMembers();
    freed.insert(var);
    ForEachDataSetList([this, var](StringList& dataSets) {
        for (int i = 0; i < dataSets.Count; ++i) {
            auto dataSet = qobject_cast<DcDataSet*>(ListOb(dataSets, i));
            auto count = members.find(qMakePair(static_cast<void*>(var), dataSet));
            if (!dataSet || count == members.end())
                continue;
            if (*count > 0)
                for (int k = 0; k < dataSet->Elems.Count; ++k)
                    if (dataSet->Elems.Objects(k) == var)
                        dataSet->Elems.AddObjToString(nullptr, k);
            members.erase(count);
        }
    });
}

namespace {

// The variable of the tag made under the owner's "Переменные" row and added
// to its list; null when the owner has no such row or no list.
DcICCPBase* BornInOwner(MoveRun* run, DcICCPBase* owner, const std::string& name, DcICCPBase* templ,
                        void* tag, const std::string& caption) {
    StringList* target = VarsOf(owner);
    const QModelIndex folder = run->Folder(owner);
    if (!folder.isValid() || !target)
        return nullptr;
    DcICCPBase* var;
    if (auto doType = qobject_cast<DcDOType*>(templ))
        var = new DcDO(name, doType, owner);
    else
        var = new DcDA(name, qobject_cast<DcDAType*>(templ), owner);
    run->Born(var);
    var->BoundTag = tag;
    var->desc = caption;
    run->Append(folder, new myNode(name, var), [&] { target->AddObject(name, var, true); });
    return var;
}

// The old variable is one of the rows under its owner's "Переменные": a
// variable made at load without a row stays where it is.
void RemoveOldVariable(MoveRun* run, DcICCPBase* oldOwner, const std::string& name,
                       int dataSetNumber) {
    const QModelIndex oldFolder = run->Folder(oldOwner);
    const int oldRow =
        oldFolder.isValid() ? run->RowOf(oldFolder, QString::fromStdString(name)) : -1;
    if (oldRow < 0)
        return;
    run->RemoveFrom(oldFolder, oldRow, [&] {
        StringList* oldVars = VarsOf(oldOwner);
        const int at = oldVars ? oldVars->IndexOf(name) : -1;
        if (at < 0)
            return;
        DcICCPBase* old = ListOb(*oldVars, at);
        if (dataSetNumber > 0)
            run->RemoveRef(DataSetOf(oldOwner, dataSetNumber), old);
        // With needemit the destructor takes the entry out, finding it
        // by name; a search by pointer after it would cost a walk.
        if (!old || !needemit || old->OwnerOb() != oldOwner)
            oldVars->Delete(at);
        if (old) {
            run->ForgetMember(old);
            delete old;
        }
    });
}

} // namespace

void Changedomain(int newDomain, int oldDomain, void* tag, MoveRun* run) {
    CfgArvenSR* form = FCfgArvenSR;
    if (!form || !form->pTreeIedModel || !pVCC || !pDcDTTP)
        return;
    MoveRun single(form->pTreeIedModel);
    if (!run)
        run = &single;
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
    DcICCPBase* var = BornInOwner(run, owner, name, templ, tag, caption);
    int dataSetNumber = 0;
    GetIntProp(tag, "isinDataSet", dataSetNumber);
    DcDataSet* newSet = nullptr;
    if (dataSetNumber > 0 && var) {
        newSet = DataSetOf(owner, dataSetNumber);
        run->AddRef(newSet, var);
    }

    RemoveOldVariable(run, DomainContainer(oldDomain), name, dataSetNumber);
    if (CurrentSetRow(form, newSet))
        RefreshContent(form);
}

void Changedsnum(int newDs, int oldDs, void* tag, MoveRun* run) {
    CfgArvenSR* form = FCfgArvenSR;
    std::string tagName;
    int type = 0, number = 0, domain = 0;
    if (!form || !GetIntProp(tag, "tag_type", type) || !GetTextProp(tag, "tag_name", tagName) ||
        !GetIntProp(tag, "number", number) || !GetIntProp(tag, "domain", domain))
        return;
    MoveRun single(form->pTreeIedModel);
    if (!run)
        run = &single;
    const std::string name = tagName + "_" + Int2Str(number);
    DcICCPBase* owner = DomainContainer(domain);
    DcDataSet* newSet = DataSetOf(owner, newDs);
    DcDataSet* oldSet = DataSetOf(owner, oldDs);
    StringList* vars = VarsOf(owner);
    const int at = vars ? vars->IndexOf(name) : -1;
    if (at >= 0) {
        DcICCPBase* var = ListOb(*vars, at);
        run->RemoveRef(oldSet, var);
        run->AddRef(newSet, var);
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
    MoveRun(model).ForgetMember(old);
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
