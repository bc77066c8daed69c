// Variables from tags: each tag of the unit becomes one DcDA or DcDO of the
// owner its "domain" names, typed by its "tag_type", in the data set its
// "isinDataSet" names.
#include "editing/CreateVars.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/cfgCalls.h"
#include "support/myNode.h"
#include "tags/TagBinding.h"

#include <QMessageBox>

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

// True for a tag of a kind that may have a select-before-operate twin and
// whose "presentSBO" reads above 0.
static bool WantsSBOTwin(void* tag) {
    const int kind = cfgObType(tag);
    if (kind != cotSource && kind != cotControlSource)
        return false;
    cfgParamValue value = {};
    return cfgPropGet(tag, "presentSBO", &value) && value.intValue > 0;
}

DcICCPBase* CfgArvenSR::CreateNewVarSimple(void* tag, int& isDO, int) {
    if (!pVCC || !pDcDTTP)
        return nullptr;
    const TagData data = GetTagData(tag);

    DcICCPBase* owner = pVCC;
    if (data.domain != 0) {
        if (data.domain < 0 || data.domain > pVCC->ICCs.Count) {
            QMessageBox::information(this, "", "Недопустимое значение ICC");
            return nullptr;
        }
        owner = ListOb(pVCC->ICCs, data.domain - 1);
    }
    StringList* vars = nullptr;
    if (auto icc = qobject_cast<DcLD*>(owner))
        vars = &icc->Vars;
    else if (owner == pVCC)
        vars = &pVCC->Vars;
    if (!vars)
        return nullptr;

    // The list is put in idtype order once per load, not here.
    const QList<DcICCPBase*>& types = pDcDTTP->TypeList;
    if (data.tag_type < 0 || data.tag_type >= types.size())
        return nullptr;
    DcICCPBase* templ = types.at(data.tag_type);
    if (!templ)
        return nullptr;

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
    vars->AddObject(name, var, true);
    if (twin)
        vars->AddObject(twin->name, twin, true);

    const int number = data.isinDataSet;
    if (number < 1)
        return var;
    DcDataSet* dataSet = nullptr;
    if (auto icc = qobject_cast<DcLD*>(owner)) {
        if (number > icc->DataSets.Count)
            return var;
        dataSet = qobject_cast<DcDataSet*>(ListOb(icc->DataSets, number - 1));
    } else {
        // In the VCC any number means its first data set.
        dataSet = qobject_cast<DcDataSet*>(ListOb(pVCC->DataSets, 0));
    }
    if (!dataSet)
        return var;
    dataSet->AddObRef(var);

    QListWidgetItem* current = lWInfo->currentItem();
    if (current && current->data(Qt::UserRole).value<void*>() == dataSet) {
        auto item = new QListWidgetItem(
            QString::fromStdString(dataSet->Elems.Strings(FindIdObjByPtr(var, &dataSet->Elems))));
        item->setData(Qt::UserRole, QVariant::fromValue(static_cast<void*>(var)));
        lWInfo_2->insertItem(0, item);
    }
    return var;
}

// The bit rows of a bit-string variable: the names of its type's senum, or
// "h0", "h1", ... over the used bits when the type names none.
static void AddBitNodes(myNode* node, DcDA* var) {
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

static DcICCPBase* NodeObject(myNode* node) {
    return node ? static_cast<DcICCPBase*>(node->object) : nullptr;
}

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
