#include "model/DcVCC.h"

#include <QStringBuilder>
#include <tinyxml.h>

#include "model/DcDA.h"
#include "model/DcDO.h"
#include "model/DcDataSet.h"
#include "model/DcLD.h"
#include "model/DcTemplates.h"
#include "model/DcTransSet.h"
#include "support/JoinedText.h"
#include "support/myNode.h"

DcVCC::DcVCC(QObject* parent)
    : DcICCPBase(parent), RootNode(nullptr), VarsNode(nullptr), DataSetsNode(nullptr),
      ICCNode(nullptr), Detail(10000), RowBase{0, 0, 0, 0, 0} {
    ObType = TabDcObCode("DcVCC");
    CanA = false;
    CanC = false;
}

DcVCC::~DcVCC() {
    DeleteListObjects(Vars);
    DeleteListObjects(DataSets);
    DeleteListObjects(ICCs);
    DeleteListObjects(Extra);
    // ServiceVars holds second references to objects of Vars.
}

QString DcVCC::ClassName() {
    return "DcVCC";
}

int DcVCC::DecodeElement(TiXmlNode* node, const std::string& elementName) {
    if (elementName == "DcDataSet") {
        DcDataSet* dataSet = new DcDataSet("", this);
        dataSet->DecodeXML(node);
        if (DataSets.IndexOf(dataSet->name) >= 0)
            delete dataSet;
        else
            DataSets.AddObject(dataSet->name, dataSet, true);
        return 0;
    }
    DcICCPBase* object;
    StringList* list;
    if (elementName == "DcDA" || elementName == "DcDO") {
        object = ReadVariable(this, node, elementName);
        list = &Vars;
    } else if (elementName == "DcLD") {
        object = new DcLD(this);
        object->DecodeXML(node);
        list = &ICCs;
    } else {
        return 0;
    }
    if (list->IndexOf(object->name) >= 0) {
        emit Put2SLog("error: VCC " + Utf8ToQ(name) + " duplicate variable " +
                      Utf8ToQ(object->name));
        ++ErrCount;
    }
    list->AddObject(object->name, object, true);
    if (elementName == "DcDO" && !FindTemplate(static_cast<DcDO*>(object)->type)) {
        emit Put2SLog("error: VCC " + Utf8ToQ(name) + " type is absent in Template " +
                      Utf8ToQ(object->name));
        ++ErrCount;
    }
    return 0;
}

bool DcVCC::SetAttFromStr(const std::string& attribute, const std::string& value) {
    // Every attribute but the name lands in desc.
    if (attribute == "name")
        name = value;
    else
        desc = value;
    return true;
}

int DcVCC::GetChildCount() {
    return Vars.Count + DataSets.Count;
}

DcICCPBase* DcVCC::GetChildById(int i) {
    if (i >= Vars.Count + DataSets.Count)
        return nullptr;
    if (i < Vars.Count)
        return ListOb(Vars, i);
    // The rows after the variables read Vars again.
    return ListOb(Vars, i - Vars.Count);
}

int DcVCC::GetChildRow(DcICCPBase*) {
    return -1;
}

QString DcVCC::ToXML(int indent) {
    return WrittenXML(indent);
}

void DcVCC::WriteXML(int indent, JoinedText& out) {
    QString blanks(indent, ' ');
    out +=
        blanks + "<DcVCC name = \"" + LocalToQ(name) + "\"  desc=\"" + Utf8ToQ(desc) + "\"  >\r\n";
    for (StringList* list : {&Vars, &DataSets, &ICCs})
        for (int i = 0; i < list->Count; ++i)
            if (DcICCPBase* object = ListOb(*list, i))
                object->WriteXML(indent + 2, out);
    out += blanks % "</DcVCC>\r\n";
}

QString DataSetToCSV(DcICCPBase* object) {
    DcDataSet* dataSet = qobject_cast<DcDataSet*>(object);
    if (!dataSet)
        return QString();
    QString text = ";;DataSet " + Utf8ToQ(dataSet->name) + "\r\n";
    for (int i = 0; i < dataSet->Elems.Count; ++i)
        text += ";;;" + Utf8ToQ(dataSet->Elems.Strings(i)) + "\r\n";
    return text;
}

QString DcVCC::ToCSV(int indent) {
    QString text = "VCC::;" + Utf8ToQ(name) + "\r\n" +
                   QString::fromUtf8(";;Переменные:; ObjectName; Type; Владелец;Описание;\r\n");
    for (int i = 0; i < Vars.Count; ++i)
        if (DcICCPBase* var = ListOb(Vars, i))
            text += var->ToCSV(indent + 3);
    for (int i = 0; i < DataSets.Count; ++i)
        text += DataSetToCSV(ListOb(DataSets, i));
    for (int i = 0; i < ICCs.Count; ++i)
        if (DcICCPBase* icc = ListOb(ICCs, i))
            text += icc->ToCSV(1);
    return text;
}

void DcVCC::FillmyNode(myNode* root) {
    if (!root)
        return;
    RootNode = root;
    DataSetsNode = root->AddChild("Наборы данных (DataSets)", nullptr);
    VarsNode = root->AddChild("Переменные", nullptr);
    ICCNode = root->AddChild("Inter Control Center's (ICC)", nullptr);
    if (VarsNode)
        AddVarNodes(Vars, VarsNode, false);
    for (int i = 0; DataSetsNode && i < DataSets.Count; ++i)
        if (DcICCPBase* dataSet = ListOb(DataSets, i))
            DataSetsNode->AddChild(DataSets.Strings(i), dataSet);
    for (int i = 0; ICCNode && i < ICCs.Count; ++i)
        if (DcICCPBase* icc = ListOb(ICCs, i))
            icc->FillmyNode(ICCNode->AddChild(ICCs.Strings(i), icc));
}

bool DcVCC::IsExistNext() {
    return false;
}

DcICCPBase* DcVCC::FindObject(const std::string& name) {
    int index;
    StringList* list = FindInd(name, index);
    return list ? ListOb(*list, index) : nullptr;
}

StringList* DcVCC::FindInd(const std::string& name, int& index) {
    for (StringList* list : {&Extra, &Vars}) {
        int i = list->IndexOf(name);
        if (i >= 0) {
            index = i;
            return list;
        }
    }
    index = -1;
    return nullptr;
}

DcICCPBase* DcVCC::GetObj(int i) {
    if (i < RowBase[3])
        return ListOb(Extra, i - RowBase[0]);
    if (i >= RowBase[4])
        return nullptr;
    return ListOb(Vars, i - RowBase[3]);
}

bool DcVCC::IsDO(const std::string& path) {
    size_t p = path.find('/');
    DcICCPBase* var;
    if (p == std::string::npos) {
        var = ListOb(Vars, Vars.IndexOf(""));
    } else {
        DcLD* icc = qobject_cast<DcLD*>(ListOb(ICCs, ICCs.IndexOf(path.substr(0, p))));
        var = icc ? ListOb(icc->Vars, icc->Vars.IndexOf(path.substr(p + 1))) : nullptr;
    }
    return var && var->ClassName() == "DcDO";
}

DcICCPBase* GetDAFromList(const std::string& path, StringList* list) {
    if (!list)
        return nullptr;
    size_t p = path.find('$');
    if (p == std::string::npos)
        return ListOb(*list, list->IndexOf(path));
    DcICCPBase* head = ListOb(*list, list->IndexOf(path.substr(0, p)));
    if (!head)
        return nullptr;
    QString cls = head->ClassName();
    if (cls == "DcDA")
        return head;
    if (cls == "DcDO")
        return GetDAFromList(path.substr(p + 1), &static_cast<DcDO*>(head)->Members);
    return nullptr;
}

DcICCPBase* DcVCC::GetDAbyLongName(const std::string& path) {
    size_t p = path.find('/');
    if (p == std::string::npos)
        return GetDAFromList(path, &Vars);
    DcLD* icc = qobject_cast<DcLD*>(ListOb(ICCs, ICCs.IndexOf(path.substr(0, p))));
    return icc ? GetDAFromList(path.substr(p + 1), &icc->Vars) : nullptr;
}

void DcVCC::SetRefDS() {}

void DcVCC::BornDO() {
    for (int i = 0; i < Vars.Count; ++i) {
        DcICCPBase* var = ListOb(Vars, i);
        if (var && var->ClassName() == "DcDO")
            FindDOwZero(static_cast<DcDO*>(var));
    }
    for (int k = 0; k < ICCs.Count; ++k) {
        DcLD* icc = qobject_cast<DcLD*>(ListOb(ICCs, k));
        if (!icc)
            continue;
        for (int i = 0; i < icc->Vars.Count; ++i)
            if (DcDO* dobject = qobject_cast<DcDO*>(ListOb(icc->Vars, i)))
                FindDOwZero(dobject);
        icc->SetRowBase();
    }
    RowBase[1] = Extra.Count;
    RowBase[2] = Vars.Count;
    RowBase[3] = RowBase[1] + RowBase[0];
    RowBase[4] = RowBase[3] + RowBase[2];
}

// Calls f on every data set of the VCC, then on those of every ICC.
template <typename F> static void ForEachDataSet(DcVCC* vcc, F f) {
    for (int i = 0; i < vcc->DataSets.Count; ++i)
        if (DcDataSet* dataSet = qobject_cast<DcDataSet*>(ListOb(vcc->DataSets, i)))
            f(dataSet);
    for (int k = 0; k < vcc->ICCs.Count; ++k)
        if (DcLD* icc = qobject_cast<DcLD*>(ListOb(vcc->ICCs, k)))
            for (int i = 0; i < icc->DataSets.Count; ++i)
                if (DcDataSet* dataSet = qobject_cast<DcDataSet*>(ListOb(icc->DataSets, i)))
                    f(dataSet);
}

void DcVCC::SetReletion() {
    ForEachDataSet(this, [](DcDataSet* dataSet) { dataSet->SetCorrespond(); });
}

void DcVCC::CorrectDSTS(StringList* list) {
    if (!list || list->Count == 0)
        return;
    auto stored = [list](DcICCPBase* object) {
        return ListOb(*list, list->IndexOf(object->GetFullName()));
    };
    for (int i = 0; i < DataSets.Count; ++i)
        if (DcDataSet* dataSet = qobject_cast<DcDataSet*>(ListOb(DataSets, i)))
            if (DcDataSet* source = qobject_cast<DcDataSet*>(stored(dataSet)))
                dataSet->AssignSelf(source);
    for (int k = 0; k < ICCs.Count; ++k) {
        DcLD* icc = qobject_cast<DcLD*>(ListOb(ICCs, k));
        if (!icc)
            continue;
        for (int i = 0; i < icc->DataSets.Count; ++i)
            if (DcDataSet* dataSet = qobject_cast<DcDataSet*>(ListOb(icc->DataSets, i)))
                if (DcDataSet* source = qobject_cast<DcDataSet*>(stored(dataSet)))
                    dataSet->AssignSelf(source);
        for (int i = 0; i < icc->TransSets.Count; ++i)
            if (DcTransSet* transSet = qobject_cast<DcTransSet*>(ListOb(icc->TransSets, i)))
                if (DcTransSet* source = qobject_cast<DcTransSet*>(stored(transSet)))
                    transSet->AssignSelf(source);
    }
}

void MakeServiceVars(DcICCPBase* owner, StringList& vars, const std::string& scopeType,
                     StringList* serviceVars) {
    static const struct {
        const char* name;
        const char* type;
        const char* value;
    } leaves[] = {{"DSConditions_Detected", "BitString", "00100"},
                  {"Event_Code_Detected", "INT16", "0"},
                  {"Transfer_Set_Time_Stamp", "INT32", "0"}};
    auto keep = [&](DcICCPBase* var) {
        var->Service = true;
        var->CanA = false;
        var->CanC = false;
        vars.AddObject(var->name, var, true);
        if (serviceVars)
            serviceVars->AddObject(var->name, var, true);
    };
    for (const auto& leaf : leaves) {
        if (vars.IndexOf(leaf.name) >= 0)
            continue;
        DcDA* da = new DcDA(leaf.name, GetDcDAType(leaf.type), owner);
        da->type = leaf.type;
        da->Plain = false;
        da->SetTypedValue(leaf.value);
        keep(da);
    }
    if (vars.IndexOf("Transfer_Set_Name") >= 0)
        return;
    DcDO* dobject = new DcDO(owner);
    dobject->name = "Transfer_Set_Name";
    dobject->CreateDcDA(scopeType, "Scope", "");
    dobject->CreateDcDA("VISIBLE_STRING32", "DomainName", "");
    dobject->CreateDcDA("VISIBLE_STRING32", "Name", "");
    keep(dobject);
}

void DcVCC::InitVar4DS() {
    MakeServiceVars(this, Vars, "UINT8", &ServiceVars);
}

namespace {

// Reads the DcVCC elements under node; a later one replaces an earlier one
// of the same document, which is deleted.
void RakeVCC(TiXmlNode* node, DcVCC*& made) {
    if (node->Type() == TiXmlNode::TINYXML_ELEMENT && node->ValueStr() == "DcVCC") {
        if (made) {
            bool emitting = needemit;
            needemit = false;
            delete made;
            needemit = emitting;
        }
        made = new DcVCC();
        pVCC = made;
        made->DecodeXML(node);
    }
    for (TiXmlNode* child = node->FirstChild(); child; child = child->NextSibling())
        RakeVCC(child, made);
}

} // namespace

void RakeNode1(TiXmlNode* node) {
    DcVCC* made = nullptr;
    if (node)
        RakeVCC(node, made);
}
