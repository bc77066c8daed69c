#include "model/DcDataSet.h"

#include <QStringBuilder>
#include <tinyxml.h>

#include "model/DcDA.h"
#include "model/DcDO.h"
#include "model/DcLD.h"
#include "model/DcTemplates.h"
#include "model/DcVCC.h"
#include "support/JoinedText.h"
#include "support/myNode.h"

tvarRefDS varRefDS[] = {
    {"DSConditions_Detected", "BitString", "", "00100"}, {"Event_Code_Detected", "INT16", "", "0"},
    {"Transfer_Set_Time_Stamp", "INT32", "", ""},        {"Scope", "UINT8", "", ""},
    {"DomainName", "VISIBLE_STRING32", "", ""},          {"Name", "VISIBLE_STRING32", "", ""},
};
const int varRefDSCount = sizeof(varRefDS) / sizeof(varRefDS[0]);

ICCPObDesc TabObDataSet[] = {
    {"Event_Code_Detected", 2, 0, 0, 0, 0},
};
const int TabObDataSetCount = sizeof(TabObDataSet) / sizeof(TabObDataSet[0]);

namespace {

// The names of the four standard fields, in the order they end Elems.
const char* const StdFieldNames[] = {"DSConditions_Detected", "Event_Code_Detected",
                                     "Transfer_Set_Time_Stamp", "Transfer_Set_Name"};
const int StdFieldCount = 4;

bool IsStdFieldName(const std::string& text) {
    for (const char* n : StdFieldNames)
        if (text == n)
            return true;
    return false;
}

// The variable an entry text names under vcc: "Var" in the VCC's Vars,
// "ICC/Var" in the Vars of that ICC (the variable's name cut at 255 bytes).
// iccName receives the ICC part; inIcc tells whether the text had one.
DcICCPBase* ResolveEntry(DcVCC* vcc, const std::string& text, std::string& iccName, bool& inIcc) {
    size_t slash = text.find('/');
    inIcc = slash != std::string::npos;
    if (!inIcc) {
        iccName.clear();
        return ListOb(vcc->Vars, vcc->Vars.IndexOf(text));
    }
    iccName = text.substr(0, slash);
    DcLD* ld = qobject_cast<DcLD*>(ListOb(vcc->ICCs, vcc->ICCs.IndexOf(iccName)));
    return ld ? ListOb(ld->Vars, ld->Vars.IndexOf(text.substr(slash + 1, 255))) : nullptr;
}

} // namespace

void AssignDA(DcDA* target, DcDA* source) {
    if (!target || !source || target == source)
        return;
    target->name = source->name;
    target->type = source->type;
    target->Template = source->Template;
    if (source->Value) {
        if (!target->Value) {
            target->Value = new MyBufValue();
            target->Value->Owner = target;
        }
        target->Value->Assign(*source->Value);
    }
    target->svalue = source->svalue;
    target->desc = source->desc;
}

DcDataSet::DcDataSet(const std::string& name, QObject* parent)
    : ObICCP(parent), Count0(0), Count1(0), Scope(0), Bits(0), Event_Code_Detected(0),
      RtBits(nullptr) {
    ObType = TabDcObCode("DcDataSet");
    CanA = false;
    CanB = true;
    CanC = false;
    SetTabICCPObDesc(TabObDataSet, TabObDataSetCount);
    this->name = name;
    if (!parent)
        return;
    FullName = name;
    DcICCPBase* owner = OwnerOb();
    if (owner && owner->ClassName() == "DcLD") {
        Scope = 1;
        Domain = owner->name;
        FullName = Domain + "/" + name;
    }
    InitVar(GetOwnVarList());
    SelfListFill();
}

namespace {

bool RefBatchOpen = false;
// The sets with entries waiting in the open batch.
QList<DcDataSet*> WaitingSets;

} // namespace

DcDataSet::~DcDataSet() {
    // The standard fields go with the QObject children; the other entries
    // belong to their containers.
    delete RtBits;
    if (!Waiting.empty())
        WaitingSets.removeOne(this);
}

QString DcDataSet::ClassName() {
    return "DcDataSet";
}

bool DcDataSet::SetAttFromStr(const std::string& attribute, const std::string& value) {
    if (attribute == "name") {
        name = value;
        if (!Domain.empty())
            FullName = Domain + "/" + name;
        return true;
    }
    if (attribute == "desc") {
        desc = value;
        return true;
    }
    return false;
}

int DcDataSet::DecodeElement(TiXmlNode* node, const std::string& elementName) {
    if (elementName != "ElemDS" || !node)
        return 0;
    TiXmlElement* element = node->ToElement();
    if (!element)
        return 0;
    for (TiXmlAttribute* a = element->FirstAttribute(); a; a = a->Next()) {
        if (a->NameTStr() != "name" || Elems.IndexOf(a->ValueStr()) >= 0)
            continue;
        // Before the four standard fields, in file order; a set without
        // them takes the entry at its end.
        const int place = Elems.Count - StdFieldCount;
        Elems.InsertObject(place < 0 ? Elems.Count : place, a->ValueStr(), nullptr);
    }
    return 0;
}

QString DcDataSet::ToXML(int indent) {
    return WrittenXML(indent);
}

void DcDataSet::WriteXML(int indent, JoinedText& out) {
    const QString pad(qMax(indent, 0), ' ');
    out += pad + "<DcDataSet  name = \"" + LocalToQ(name) + "\"  desc=\"" + Utf8ToQ(desc) +
           "\" > \r\n";
    for (int i = 0; i < Elems.Count; ++i) {
        const std::string text = Elems.Strings(i);
        if (!IsStdFieldName(text))
            out += pad % "   <ElemDS name=\"" % LocalToQ(text) % "\" /> \r\n";
    }
    out += pad + "</DcDataSet> \r\n";
}

std::string DcDataSet::GetFullName() {
    DcICCPBase* ld = IsHostObType("DcLD");
    return ld ? ld->name + "/" + name : name;
}

std::string DcDataSet::RefKey(DcICCPBase* object) const {
    return Domain.empty() ? object->name : Domain + "/" + object->name;
}

int DcDataSet::AddObRef(DcICCPBase* object) {
    if (!object)
        return -1;
    const std::string key = RefKey(object);
    int i = Elems.IndexOf(key);
    if (i >= 0)
        return Elems.AddObjToString(object, i);
    // A new member goes to the front: members stand in reverse order of
    // adding, before the standard fields.
    if (!RefBatchOpen)
        return Elems.InsertObject(0, key, object);
    auto at = WaitingAt.find(key);
    if (at != WaitingAt.end()) {
        Waiting[at->second].second = object;
        return 0;
    }
    if (Waiting.empty())
        WaitingSets.append(this);
    WaitingAt.emplace(key, Waiting.size());
    Waiting.emplace_back(key, object);
    return 0;
}

void DcDataSet::OpenRefBatch() {
    RefBatchOpen = true;
}

void DcDataSet::CloseRefBatch() {
    RefBatchOpen = false;
    while (!WaitingSets.isEmpty())
        WaitingSets.first()->FlushRefs();
}

void DcDataSet::FlushRefs() {
    if (Waiting.empty())
        return;
    WaitingSets.removeOne(this);
    Elems.InsertFront(Waiting);
    Waiting.clear();
    WaitingAt.clear();
}

void DcDataSet::RemoveRef(DcICCPBase* object) {
    if (!object)
        return;
    FlushRefs();
    int i = Elems.IndexOf(RefKey(object));
    if (i >= 0)
        Elems.Delete(i);
}

int DcDataSet::IdxObbyName(std::string& name) {
    int i = Elems.IndexOf(name);
    if (i >= 0)
        return i;
    size_t dollar = name.find('$');
    if (dollar != std::string::npos)
        name.erase(dollar);
    return -1;
}

QString DcDataSet::GetRefNameDS() {
    return LocalToQ(GetFullName() + ";");
}

StringList* DcDataSet::GetOwnVarList() {
    DcICCPBase* owner = OwnerOb();
    if (!owner)
        return nullptr;
    const QString cls = owner->ClassName();
    if (cls == "DcVCC")
        return &static_cast<DcVCC*>(owner)->Vars;
    if (cls == "DcLD")
        return &static_cast<DcLD*>(owner)->Vars;
    return nullptr;
}

void DcDataSet::InitVar(StringList* list) {
    for (int k = 0; list && k < StdFieldCount; ++k) {
        int i = list->IndexOf(StdFieldNames[k]);
        if (i >= 0)
            list->Delete(i);
    }
    CreateStFld();
}

void DcDataSet::CreateStFld() {
    for (int r = 0; r < 3; ++r) {
        const tvarRefDS& row = varRefDS[r];
        DcDA* field = new DcDA(this);
        field->name = row.name;
        field->type = row.type;
        field->desc = row.desc;
        field->svalue = row.value;
        field->Template = GetDcDAType(field->type);
        field->SetTypedValue(row.value);
        Elems.AddObject(field->name, field, true);
    }
    DcDO* setName = new DcDO(this);
    setName->name = StdFieldNames[3];
    Elems.AddObject(setName->name, setName, true);
    for (int r = 3; r < varRefDSCount; ++r)
        setName->CreateDcDA(varRefDS[r].type, varRefDS[r].name, varRefDS[r].value);
}

void DcDataSet::SelfListFill() {
    SelfList.Clear();
    for (const char* n : StdFieldNames) {
        int i = Elems.IndexOf(n);
        if (i >= 0)
            SelfList.AddObject(n, Elems.Objects(i), true);
    }
}

void DcDataSet::ClearRealVar() {
    for (int i = Elems.Count - 1; i >= 0; --i)
        if (SelfList.IndexOf(Elems.Strings(i)) < 0)
            Elems.Delete(i);
}

void DcDataSet::UpdRefObs() {
    for (int i = 0; i < Elems.Count; ++i) {
        DcICCPBase* member = ListOb(Elems, i);
        if (!member)
            continue;
        DcICCPBase* ld = member->IsHostObType("DcLD");
        if (!ld)
            continue;
        const std::string text = ld->name + "/" + member->name;
        if (Elems.Strings(i) != text)
            Elems.ChString(i, text);
    }
}

void DcDataSet::SetCorrespond() {
    DcVCC* vcc = static_cast<DcVCC*>(IsHostObType("DcVCC"));
    if (!vcc)
        return;
    std::string iccName;
    bool inIcc = false;
    for (int i = 0; i < Elems.Count; ++i)
        if (DcICCPBase* variable = ResolveEntry(vcc, Elems.Strings(i), iccName, inIcc))
            Elems.AddObjToString(variable, i);
    if (Scope == 1)
        BindObDs();
}

void DcDataSet::BindObDs() {
    DcVCC* vcc = static_cast<DcVCC*>(IsHostObType("DcVCC"));
    if (!vcc)
        return;
    std::string iccName;
    bool inIcc = false;
    for (int i = 0; i < Elems.Count; ++i) {
        DcICCPBase* variable = ResolveEntry(vcc, Elems.Strings(i), iccName, inIcc);
        if (!variable)
            continue;
        const QString place = "," + QString::number(i) + ";";
        if (!inIcc) {
            if (!variable->Service)
                variable->refDSRT += LocalToQ(name) + place;
            continue;
        }
        const QString item = LocalToQ(iccName + "/" + name) + place;
        if (!variable->refDSRT.contains(item))
            variable->refDSRT += item;
    }
    if (!RtBits)
        RtBits = new qolBitSet(Elems.Count);
}

void DcDataSet::OnChangeNameOwn(const std::string& newName) {
    for (int i = 0; i < OwnVars.Count; ++i) {
        const std::string text = OwnVars.Strings(i);
        size_t slash = text.find('/');
        if (slash != std::string::npos)
            OwnVars.ChString(i, newName + text.substr(slash));
    }
    Domain = newName;
}

void DcDataSet::AssignSelf(DcDataSet* source) {
    if (!source)
        return;
    for (int i = 0; i < source->SelfList.Count; ++i) {
        DcICCPBase* from = ListOb(source->SelfList, i);
        DcICCPBase* to = ListOb(SelfList, i);
        if (!from || !to || from->ClassName() != "DcDA" || to->ClassName() != "DcDA")
            continue;
        AssignDA(static_cast<DcDA*>(to), static_cast<DcDA*>(from));
    }
}

myNode* DcDataSet::CreatemyNode() {
    return new myNode(name, this);
}
