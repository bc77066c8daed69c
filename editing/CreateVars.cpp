// Variables from tags: each tag of the unit becomes one DcDA or DcDO of the
// owner its "domain" names, typed by its "tag_type", in the data set its
// "isinDataSet" names.
#include "editing/CreateVars.h"

#include "dialogs/AddVar.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"
#include "support/myNode.h"
#include "tags/TagBinding.h"
#include "views/PropModel.h"
#include "views/ProxyModel4TagsModel.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"
#include "views/ViewModel.h"

#include <QComboBox>
#include <QListView>
#include <QMessageBox>
#include <algorithm>
#include <vector>

std::string GetDefFromType(DcICCPBase* type) {
    if (!type)
        return std::string();
    const QString cls = type->ClassName();
    if (cls == "DcDAType")
        return static_cast<DcDAType*>(type)->defname;
    if (cls == "DcDOType")
        return static_cast<DcDOType*>(type)->defname;
    return std::string();
}

namespace {

// The open batch: each list with its variables in order of making.
using WaitingVars = std::vector<std::pair<StringList*, std::vector<std::pair<std::string, void*>>>>;
WaitingVars* VarBatch = nullptr;

void AddVariable(StringList* vars, const std::string& name, DcICCPBase* var) {
    if (!VarBatch) {
        vars->AddObject(name, var, true);
        return;
    }
    // A load fills the VCC and a few ICCs: the last list is the likely one.
    auto at = std::find_if(VarBatch->rbegin(), VarBatch->rend(),
                           [vars](const auto& waiting) { return waiting.first == vars; });
    if (at == VarBatch->rend()) {
        VarBatch->push_back({vars, {}});
        at = VarBatch->rbegin();
    }
    at->second.emplace_back(name, var);
}

} // namespace

void OpenVarBatch() {
    if (!VarBatch)
        VarBatch = new WaitingVars;
}

void CloseVarBatch() {
    if (!VarBatch)
        return;
    for (auto& waiting : *VarBatch)
        waiting.first->AddObjects(waiting.second);
    delete VarBatch;
    VarBatch = nullptr;
}

namespace {

// True for a tag of a kind that may have a select-before-operate twin and
// whose "presentSBO" reads above 0.
bool WantsSBOTwin(void* tag) {
    const int kind = cfgObType(tag);
    if (kind != cotSource && kind != cotControlSource)
        return false;
    cfgParamValue value = {};
    return cfgPropGet(tag, "presentSBO", &value) && value.intValue > 0;
}

// The owner a tag's domain names: the VCC for 0, else that ICC; null, after
// telling, for a domain out of range.
DcICCPBase* DomainOwner(CfgArvenSR* form, int domain) {
    if (domain == 0)
        return pVCC;
    if (domain < 0 || domain > pVCC->ICCs.Count) {
        QMessageBox::information(form, "", "Недопустимое значение ICC");
        return nullptr;
    }
    return ListOb(pVCC->ICCs, domain - 1);
}

// The variable of the tag, and its select-before-operate twin, added to the
// owner's list; for a template of neither kind the template itself.
DcICCPBase* MakeVariable(void* tag, const TagData& data, DcICCPBase* templ, DcICCPBase* owner,
                         StringList* vars, int& isDO) {
    const QString cls = templ->ClassName();
    const std::string base = data.tag_name.empty() ? GetDefFromType(templ) : data.tag_name;
    const std::string name = base + "_" + std::to_string(data.number);
    DcICCPBase* var;
    DcDA* twin = nullptr;
    if (cls == "DcDAType") {
        isDO = 0;
        auto daType = static_cast<DcDAType*>(templ);
        var = new DcDA(name, daType, owner);
        if (WantsSBOTwin(tag))
            twin = new DcDA(name + "_SBO", daType, owner);
    } else if (cls == "DcDOType") {
        isDO = 1;
        var = new DcDO(name, static_cast<DcDOType*>(templ), owner);
    } else {
        return templ;
    }
    var->desc = data.caption;
    var->BoundTag = tag;
    AddVariable(vars, name, var);
    if (twin)
        AddVariable(vars, twin->name, twin);
    return var;
}

// The data set a tag's number names in the owner: that one of an ICC, the
// first one of the VCC whatever the number.
DcDataSet* NumberedDataSet(DcICCPBase* owner, int number) {
    if (auto icc = qobject_cast<DcLD*>(owner)) {
        if (number > icc->DataSets.Count)
            return nullptr;
        return qobject_cast<DcDataSet*>(ListOb(icc->DataSets, number - 1));
    }
    return qobject_cast<DcDataSet*>(ListOb(pVCC->DataSets, 0));
}

// A new member of the data set shown in the content list gets its row there.
void ShowNewMember(CfgArvenSR* form, DcDataSet* dataSet, DcICCPBase* var) {
    QListWidgetItem* current = form->lWInfo->currentItem();
    if (!current || current->data(Qt::UserRole).value<void*>() != dataSet)
        return;
    dataSet->FlushRefs();
    auto item =
        new QListWidgetItem(LocalToQ(dataSet->Elems.Strings(FindIdObjByPtr(var, &dataSet->Elems))));
    item->setData(Qt::UserRole, QVariant::fromValue(static_cast<void*>(var)));
    form->lWInfo_2->insertItem(0, item);
}

} // namespace

DcICCPBase* CfgArvenSR::CreateNewVarSimple(void* tag, int& isDO, int) {
    if (!pVCC || !pDcDTTP)
        return nullptr;
    const TagData data = GetTagData(tag);
    DcICCPBase* owner = DomainOwner(this, data.domain);
    StringList* vars = VarsOf(owner);
    if (!vars)
        return nullptr;

    // The list is put in idtype order once per load, not here.
    const QList<DcICCPBase*>& types = pDcDTTP->TypeList;
    if (data.tag_type < 0 || data.tag_type >= types.size())
        return nullptr;
    DcICCPBase* templ = types.at(data.tag_type);
    if (!templ)
        return nullptr;
    DcICCPBase* var = MakeVariable(tag, data, templ, owner, vars, isDO);
    if (var == templ || data.isinDataSet < 1)
        return var;

    DcDataSet* dataSet = NumberedDataSet(owner, data.isinDataSet);
    if (!dataSet)
        return var;
    dataSet->AddObRef(var);
    ShowNewMember(this, dataSet, var);
    return var;
}

namespace {

// The bit rows of a bit-string variable: the names of its type's senum, or
// "h0", "h1", ... over the used bits when the type names none.
void AddBitNodes(myNode* node, DcDA* var) {
    if (!var->IsBitStr() || !var->Template)
        return;
    const DcDAType* type = var->Template;
    if (type->senum.empty()) {
        const int bits = type->size * 8 - type->unused;
        for (int k = 0; k < bits; ++k)
            node->AddChild("h" + std::to_string(k), nullptr);
        return;
    }
    size_t from = 0;
    while (from <= type->senum.size()) {
        size_t to = type->senum.find(';', from);
        if (to == std::string::npos)
            to = type->senum.size();
        if (to > from)
            node->AddChild(type->senum.substr(from, to - from), nullptr);
        from = to + 1;
    }
}

} // namespace

QModelIndex ChildRowByText(QAbstractItemModel* model, const QModelIndex& parent,
                           const QString& text) {
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (child.data(Qt::DisplayRole).toString() == text)
            return child;
    }
    return QModelIndex();
}

namespace {

DcICCPBase* NodeObject(myNode* node) {
    return node ? static_cast<DcICCPBase*>(node->object) : nullptr;
}

} // namespace

void List2Tree(myNode* root, StringList* list) {
    if (!root || !list)
        return;
    for (int i = 0; i < list->Count; ++i) {
        DcICCPBase* object = ListOb(*list, i);
        myNode* node = root->AddChild(list->Strings(i), object);
        if (!node || !object)
            continue;
        const QString cls = object->ClassName();
        if (cls == "DcDO")
            AddSubTree(node);
        else if (cls == "DcDA")
            AddBitNodes(node, static_cast<DcDA*>(object));
    }
}

void AddSubTree(myNode* node) {
    if (auto structure = qobject_cast<DcDO*>(NodeObject(node)))
        List2Tree(node, &structure->Members);
}

void DcDO2Tree(myNode* node) {
    auto structure = qobject_cast<DcDO*>(NodeObject(node));
    if (!structure)
        return;
    for (int i = 0; i < structure->Members.Count; ++i) {
        DcICCPBase* member = ListOb(structure->Members, i);
        if (!member)
            continue;
        const QString cls = member->ClassName();
        if (cls == "DcDA") {
            node->AddChild(DcDAtoTree(static_cast<DcDA*>(member)));
        } else if (cls == "DcDO") {
            if (myNode* child = node->AddChild(structure->Members.Strings(i), member))
                DcDO2Tree(child);
        }
    }
}

myNode* DcDAtoTree(DcDA* var) {
    if (!var)
        return nullptr;
    auto node = new myNode(var->name, var);
    if (myNode* value = node->AddChild("value", var))
        AddBitNodes(value, var);
    return node;
}

void CfgArvenSR::Prepare4AddVar(int quantity) {
    GetVarFrm* dialog = NeedGetVarFrm(this);
    dialog->setWhatsThis(QString());
    dialog->ui.lEName->clear();
    dialog->ui.sBCount->setValue(quantity);
    // The structure shown last was built over templates loaded since freed.
    if (dialog->TemplLoadsShown != TemplLoads) {
        SetViewModel(dialog->ui.tVStruct, nullptr);
        myNode* old = dialog->pModel4Add->rootNode;
        dialog->pModel4Add->setRootNode(nullptr);
        if (old)
            old->DeleteSubTree();
        dialog->TemplLoadsShown = TemplLoads;
    }
    if (pDcDTTP) {
        QListView* view = dialog->ui.listVAD;
        SetViewModel(view, nullptr);
        dialog->pListTypes->FillTypes(pDcDTTP);
        SetViewModel(view, dialog->pListTypes);
    }
    QComboBox* dataSets = dialog->ui.cBDataSet;
    dataSets->clear();
    dataSets->addItem("NoDataSet");
    for (int k = 1; k <= ICCdata.maxDS; ++k)
        dataSets->addItem("DataSet" + QString::number(k));
    dataSets->setCurrentIndex(1);
    // The index of an entry is the number written to the tag.
    QComboBox* where = dialog->ui.cBWhere;
    where->clear();
    if (pVCC) {
        where->addItem(LocalToQ(pVCC->name));
        for (int i = 0; i < pVCC->ICCs.Count; ++i)
            where->addItem(LocalToQ(pVCC->ICCs.Strings(i)));
    }
    where->setCurrentIndex(1);
}

namespace {

// The tag folder that takes new tags from the current row of tVTags, and the
// tag model's index of the rows beneath it.
void* TargetTagFolder(CfgArvenSR* form, QModelIndex& parent) {
    QModelIndex current = form->tVTags->currentIndex();
    if (auto proxy = qobject_cast<ProxyModel4TagsModel*>(form->tVTags->model()))
        current = proxy->mapToSource(current);
    if (!current.isValid()) {
        parent = QModelIndex();
        return form->pTagsModel->rootNode();
    }
    void* object = form->pTagsModel->nodeFromIndex(current);
    if (cfgObType(object) < cotFolderSource) {
        parent = current.parent();
        return cfgObOwner(object);
    }
    parent = current;
    return object;
}

// What the dialog asks for: the tags' name, how many, the owner's index and
// the data set's number, and the type's index in the type list.
struct TagRequest {
    std::string name;
    int quantity;
    int where;
    int dataSet;
    int typeIndex;
};

// The dialog's fields, the name in the local 8-bit encoding; the type's
// index is looked up later.
TagRequest ReadRequest(GetVarFrm* dialog) {
    return {QToLocal(dialog->ui.lEName->text()), dialog->ui.sBCount->value(),
            dialog->ui.cBWhere->currentIndex(), dialog->ui.cBDataSet->currentIndex(), -1};
}

// Creates the tags in the folder, appending them to `batch`; false, after
// telling, when a variable's name is taken. The test takes the name and
// number without "_", as it always has: distinct tag numbers are what keeps
// the names apart.
bool CreateTags(CfgArvenSR* form, void* folder, const TagRequest& request, StringList* names,
                QList<void*>& batch) {
    for (int i = 0; i < request.quantity; ++i) {
        const int number = cfgObFreeNumber(folder, form->TagMode);
        void* tag = cfgObCreate(folder, form->TagMode, number, "Arvons");
        if (!tag)
            continue;
        if (!request.name.empty())
            SetStr2PropOb(tag, "tag_name", QString::fromLocal8Bit(request.name.c_str()));
        SetIntProp(tag, "tag_type", request.typeIndex);
        SetIntProp(tag, "domain", request.where);
        SetIntProp(tag, "isinDataSet", request.dataSet);
        if (names->IndexOf(request.name + std::to_string(number)) >= 0) {
            QMessageBox::information(form, "Ошибка", "Нарушена уникальность имен");
            return false;
        }
        batch.append(tag);
    }
    return true;
}

} // namespace

void CfgArvenSR::OnAddVar() {
    GetVarFrm* dialog = NeedGetVarFrm(this);
    Prepare4AddVar(1);
    dialog->SelType = nullptr;
    if (!pVCC || !pDcDTTP || !pTagsModel)
        return;
    for (;;) {
        if (dialog->exec() != QDialog::Accepted || !dialog->SelType)
            return;
        TagRequest request = ReadRequest(dialog);

        DcICCPBase* owner = request.where == 0 ? pVCC : ListOb(pVCC->ICCs, request.where - 1);
        StringList* names = VarsOf(owner);
        if (!names) {
            QMessageBox::information(this, "Ошибка", "Ошибка в определении источника");
            return;
        }

        QModelIndex parent;
        void* folder = TargetTagFolder(this, parent);
        request.typeIndex = pDcDTTP->TypeList.indexOf(dialog->SelType);
        if (request.typeIndex < 0)
            return;
        if (request.name.empty())
            request.name = GetDefFromType(dialog->SelType);

        const int first = pTagsModel->rowCount(parent);
        const int last = first + request.quantity - 1;
        pTagsModel->beginInsertRows(parent, first, last);
        QList<void*> batch;
        const bool made = CreateTags(this, folder, request, names, batch);
        pTagsModel->endInsertRows();
        // After a clash the tags made so far stay without variables and the
        // dialog comes back for a fresh batch.
        if (!made)
            continue;
        if (auto proxy = qobject_cast<ProxyModel4TagsModel*>(tVTags->model()))
            proxy->UpdateData(pTagsModel->index(first, 0, parent),
                              pTagsModel->index(last, 0, parent));
        for (void* tag : batch) {
            int isDO = 0;
            DcICCPBase* var = CreateNewVarSimple(tag, isDO, -1);
            Tags2TaseTree(QList<void*>{tag}, isDO, var);
        }
        return;
    }
}

bool CfgArvenSR::CreateInTree(QString base, int first, int count, DcICCPBase* host,
                              DcICCPBase* type, StringList& out) {
    StringList* names = VarsOf(host);
    if (!names)
        return false;
    const std::string prefix = QToLocal(base);
    for (int i = first; i < first + count; ++i) {
        const std::string name = prefix + std::to_string(i);
        if (names->IndexOf(name) >= 0) {
            QMessageBox::information(this, "Ошибка", "Нарушена уникальность имен");
            return false;
        }
        out.AddString(name);
    }
    DcICCPBase* chosen = FGetVarFrm ? FGetVarFrm->SelType : nullptr;
    for (int i = 0; i < out.Count; ++i) {
        const std::string name = out.Strings(i);
        myNode* node;
        if (auto daType = qobject_cast<DcDAType*>(type)) {
            node = new myNode(name, new DcDA(name, daType, host));
        } else if (qobject_cast<DcDOType*>(chosen)) {
            auto var = new DcDO(name, qobject_cast<DcDOType*>(type), host);
            node = new myNode(name, var);
            var->FillmyNode(node);
        } else {
            return false;
        }
        out.AddObjToString(node, i);
    }
    if (!pTreeIedModel)
        return true;
    const QModelIndexList hosts = pTreeIedModel->match(
        pTreeIedModel->index(0, 0), Qt::UserRole, QVariant::fromValue(static_cast<void*>(host)), 1,
        Qt::MatchRecursive | Qt::MatchWrap);
    if (hosts.isEmpty())
        return true;
    const QModelIndex folder = ChildRowByText(pTreeIedModel, hosts.first(), "Переменные");
    SetViewModel(tVprop, nullptr);
    if (folder.isValid())
        pTreeIedModel->AddVarmNode(folder, 0, &out, names);
    return true;
}
