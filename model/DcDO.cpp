#include "model/DcDO.h"

#include <QStringBuilder>
#include <cstring>
#include <tinyxml.h>

#include "model/DcDA.h"
#include "model/DcLD.h"
#include "model/DcTemplates.h"
#include "model/DcVCC.h"
#include "support/MyBuf.h"
#include "support/myNode.h"

namespace {

// Limits of the members that templates can make for one structure: real
// structures nest a few levels, a template set that nests deeper or without
// end is cut here.
const int MaxStructDepth = 16;
const int MaxBornMembers = 4096;

} // namespace

DcDO::DcDO(QObject* parent) : DcICCPBase(parent), Top(true), Template(nullptr) {
    ObType = TabDcObCode("DcDO");
    Mark = 1;
}

DcDO::DcDO(const std::string& name, DcDOType* templ, QObject* parent) : DcDO(parent) {
    this->name = name;
    Template = templ;
    if (templ)
        type = templ->type;
    BornContext();
}

DcDO::~DcDO() {
    DeleteListObjects(Members);
    if (!needemit || !Owner)
        return;
    RemoveFromOwnerVars(this);
    std::string fullName = GetFullName();
    DcICCPBase* owner = OwnerOb();
    DcLD* icc = owner && owner->ClassName() == "DcLD" ? static_cast<DcLD*>(owner) : nullptr;
    if (DcVCC* vcc = qobject_cast<DcVCC*>(IsHostObType("DcVCC")))
        emit vcc->RemoveObFromDS(icc, fullName, BoundTag);
}

QString DcDO::ClassName() {
    return "DcDO";
}

DcICCPBase* ReadVariable(DcICCPBase* owner, TiXmlNode* node, const std::string& elementName) {
    if (elementName == "DcDO") {
        DcDO* dobject = new DcDO(owner);
        dobject->DecodeXML(node);
        return dobject;
    }
    DcDA* da = new DcDA(owner);
    da->DecodeXML(node);
    da->SetTypedValue(da->svalue);
    return da;
}

int DcDO::DecodeElement(TiXmlNode* node, const std::string& elementName) {
    if (elementName != "DcDO" && elementName != "DcDA")
        return 0;
    DcICCPBase* member = ReadVariable(this, node, elementName);
    member->CanC = true;
    member->CanA = false;
    Members.AddObject(member->name, member, true);
    return 0;
}

bool DcDO::SetAttFromStr(const std::string& attribute, const std::string& value) {
    if (attribute == "name")
        name = value;
    else if (attribute == "desc")
        desc = value;
    else if (attribute == "type")
        type = value;
    else if (attribute == "refDS")
        refDS = LocalToQ(value);
    else
        return false;
    return true;
}

void DcDO::SetUseInTest(bool use) {
    UseInTest = use;
    for (int i = 0; i < Members.Count; ++i)
        if (DcICCPBase* member = ListOb(Members, i))
            member->SetUseInTest(use);
}

QString DcDO::ToXML(int indent) {
    QString blanks(indent, ' ');
    QString text = blanks % "<DcDO  name = \"" % LocalToQ(name) % "\" type = \"" % LocalToQ(type) %
                   "\" " % "desc = \"" % Utf8ToQ(desc) % "\" refDSRT = \"" % refDSRT %
                   "\" refDS = \"" % refDS % "\" >\r\n";
    for (int i = 0; i < Members.Count; ++i)
        if (DcICCPBase* member = ListOb(Members, i))
            text += member->ToXML(indent + 2);
    text += blanks % "</DcDO> \r\n";
    return text;
}

QString DcDO::ToCSV(int indent) {
    DcICCPBase* owner = OwnerOb();
    QString text = QString(indent, ';') + Utf8ToQ(name) + ";" + Utf8ToQ(type) + ";" +
                   (owner ? Utf8ToQ(owner->name) : QString()) + ";" + Utf8ToQ(desc) + "\r\n";
    for (int i = 0; i < Members.Count; ++i)
        if (DcICCPBase* member = ListOb(Members, i))
            text += member->ToCSV(indent);
    return text;
}

std::string DcDO::GetFullName() {
    return MemberFullName(this);
}

void DcDO::FillmyNode(myNode* node) {
    if (node)
        AddVarNodes(Members, node, true);
}

std::string DcDO::GetFullName2() {
    DcICCPBase* vcc = IsHostObType("DcVCC");
    return (vcc ? vcc->name : std::string()) + "|" + GetFullName();
}

namespace {

// The DcDA at the end of path in list: every step before the last names a
// member of class "DcDO", the last one of class "DcDA".
DcDA* LeafAtPath(StringList& list, const std::string& path) {
    size_t p = path.find('$');
    DcICCPBase* o = ListOb(list, list.IndexOf(path.substr(0, p)));
    if (!o)
        return nullptr;
    if (p == std::string::npos)
        return o->ClassName() == "DcDA" ? static_cast<DcDA*>(o) : nullptr;
    if (o->ClassName() != "DcDO")
        return nullptr;
    return LeafAtPath(static_cast<DcDO*>(o)->Members, path.substr(p + 1));
}

} // namespace

int GetVarInList(StringList& list, const std::string& path, std::string& out) {
    DcDA* da = LeafAtPath(list, path);
    if (!da || !da->Value)
        return -1;
    out = da->Value->Tostring();
    return 0;
}

int PutVarInList(StringList& list, const std::string& path, const std::string& text) {
    DcDA* da = LeafAtPath(list, path);
    if (!da || !da->Value)
        return -1;
    da->Value->SetFromstring(text);
    return 0;
}

int DcDO::GetVar(const std::string& path, std::string& out) {
    return GetVarInList(Members, path, out);
}

int DcDO::PutVar(const std::string& path, const std::string& text) {
    return PutVarInList(Members, path, text);
}

bool DcDO::IsValidFName(const std::string& path) {
    size_t p = path.find('$');
    if (p == std::string::npos)
        return Members.IndexOf(path) >= 0;
    int i = Members.IndexOf(path.substr(0, p));
    if (i < 0)
        return false;
    DcDO* head = qobject_cast<DcDO*>(ListOb(Members, i));
    return head && head->IsValidFName(path.substr(p + 1));
}

bool DcDO::GetValid() {
    if (!pDcDTTP || Members.Count == 0)
        return true;
    bool valid = true;
    for (int i = 0; i < Members.Count; ++i) {
        DcICCPBase* member = ListOb(Members, i);
        if (!member)
            continue;
        QString cls = member->ClassName();
        if (cls == "DcDA") {
            if (!pDcDTTP->FindType(static_cast<DcDA*>(member)->type)) {
                emit Put2SLog("error: DO implementation " + LocalToQ(type) +
                              "(include DA )is absent in List");
                valid = false;
            }
        } else if (cls == "DcDO") {
            DcDO* dobject = static_cast<DcDO*>(member);
            DcICCPBase* found = pDcDTTP->FindType(dobject->type);
            if (!found)
                continue;
            if (DcDOType* templ = qobject_cast<DcDOType*>(found))
                dobject->Template = templ;
            if (!dobject->GetValid()) {
                emit Put2SLog("error: DO implementation " + LocalToQ(dobject->type) +
                              "(include DO )is absent in List");
                valid = false;
            }
        }
    }
    return valid;
}

namespace {

// Members left for the structure being built; reset by the outermost call.
int bornBudget = 0;
int bornNesting = 0;

} // namespace

void DcDO::BornContext() {
    if (!pDcDTTP)
        return;
    DcDOType* templ = qobject_cast<DcDOType*>(pDcDTTP->FindType(type));
    if (!templ)
        return;
    Template = templ;
    if (templ->Members.Count == 0)
        return;
    // A template that contains itself, or nests too deep, stops here.
    int depth = 0;
    for (DcDO* up = qobject_cast<DcDO*>(OwnerOb()); up; up = qobject_cast<DcDO*>(up->OwnerOb())) {
        if (up->Template == templ || ++depth >= MaxStructDepth)
            return;
    }
    if (bornNesting == 0)
        bornBudget = MaxBornMembers;
    ++bornNesting;
    for (int i = 0; i < templ->Members.Count && bornBudget > 0; ++i) {
        DcICCPBase* proto = ListOb(templ->Members, i);
        if (!proto)
            continue;
        --bornBudget;
        if (proto->ClassName() == "DcDA") {
            DcDA* pa = static_cast<DcDA*>(proto);
            DcDA* da = new DcDA(this);
            if (pa->Template)
                pa->SetTypedValue(pa->svalue);
            da->name = pa->name;
            da->type = pa->type;
            da->Template = pa->Template;
            if (pa->Value)
                da->Value->Assign(*pa->Value);
            da->svalue = pa->svalue;
            da->desc = pa->desc;
            Members.AddObject(da->name, da, true);
        } else if (DcDO* po = qobject_cast<DcDO*>(proto)) {
            DcDO* dobject = new DcDO(this);
            dobject->Top = false;
            dobject->name = po->name;
            dobject->type = po->type;
            dobject->Template = po->Template;
            Members.AddObject(dobject->name, dobject, true);
            dobject->BornContext();
        }
    }
    --bornNesting;
}

void FindDOwZero(DcDO* dobject) {
    if (!dobject)
        return;
    if (dobject->Members.Count == 0)
        dobject->BornContext();
    for (int i = 0; i < dobject->Members.Count; ++i) {
        DcICCPBase* member = ListOb(dobject->Members, i);
        if (member && member->ClassName() == "DcDO")
            FindDOwZero(static_cast<DcDO*>(member));
    }
}

namespace {

// The template of a type name when it is of class T; null otherwise.
template <class T> T* TemplateOfClass(const std::string& typeName) {
    const int t = pDcDTTP ? pDcDTTP->Types.IndexOf(typeName) : -1;
    return t < 0 ? nullptr : qobject_cast<T*>(ListOb(pDcDTTP->Types, t));
}

} // namespace

int DcDO::CreateDcDA(const std::string& typeName, const std::string& memberName,
                     const std::string& value) {
    if (!TemplateOfClass<DcDAType>(typeName))
        return -1;
    int i = Members.IndexOf(memberName);
    if (i >= 0) {
        DcDA* da = qobject_cast<DcDA*>(ListOb(Members, i));
        if (da && da->Value)
            da->Value->SetFromstring(value);
        return i;
    }
    return CreateDcDA(typeName, memberName, value, &Members);
}

int DcDO::CreateDcDA(const std::string& typeName, const std::string& memberName,
                     const std::string& value, StringList* list) {
    DcDAType* templ = TemplateOfClass<DcDAType>(typeName);
    if (!list || !templ)
        return -1;
    DcDA* da = new DcDA(memberName, templ, this);
    da->Value->SetFromstring(value);
    return list->AddObject(memberName, da, true);
}

int DcDO::CreateDcDO(const std::string& typeName, const std::string& memberName) {
    DcDOType* templ = TemplateOfClass<DcDOType>(typeName);
    if (!templ)
        return -1;
    DcDO* dobject = new DcDO(memberName, templ, this);
    return Members.AddObject(memberName, dobject, true);
}

void DcDO::SetDescList(const DescDA* table, int count) {
    for (int r = 0; table && r < count; ++r) {
        std::string member(table[r].name, strnlen(table[r].name, sizeof(table[r].name)));
        DcICCPBase* o = ListOb(Members, Members.IndexOf(member));
        if (o && o->ClassName() == "DcDA")
            o->desc = std::string(table[r].desc, strnlen(table[r].desc, sizeof(table[r].desc)));
    }
}

void SetbTypeList(StringList* list) {
    for (int i = 0; list && i < list->Count; ++i) {
        DcICCPBase* o = ListOb(*list, i);
        if (DcDA* da = qobject_cast<DcDA*>(o)) {
            if (da->Value)
                da->Value->SetbType(da);
        } else if (DcDO* dobject = qobject_cast<DcDO*>(o)) {
            SetbTypeList(&dobject->Members);
        }
    }
}

void AddVarNodes(StringList& list, myNode* node, bool byCast) {
    // Each new row goes right after the one added before it: the same chain
    // as appending to the children, without walking it for every variable.
    myNode* last = nullptr;
    for (int i = 0; i < list.Count; ++i) {
        DcICCPBase* o = ListOb(list, i);
        if (!o || o->Service)
            continue;
        myNode* child =
            last ? last->AddAsSibling(list.Strings(i), o) : node->AddChild(list.Strings(i), o);
        last = child;
        if (!child)
            continue;
        if (byCast ? o->IsStruct() : o->ClassName() == "DcDO") {
            o->FillmyNode(child);
            child->Saved = child->FirstChild;
        }
    }
}
