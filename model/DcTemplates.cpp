#include "model/DcTemplates.h"

#include <algorithm>
#include <tinyxml.h>

#include "model/DcDA.h"
#include "model/DcDO.h"
#include "support/StrUtils.h"
#include "support/myNode.h"

DcDAType::DcDAType(QObject* parent)
    : DcICCPBase(parent), idfrm(-1), intType(0), size(1), unused(-1), enums(false), editable(true) {
    ObType = TabDcObCode("DcDAType");
    CanA = false;
    CanC = true;
}

DcDAType::~DcDAType() = default;

QString DcDAType::ClassName() {
    return "DcDAType";
}

bool DcDAType::SetAttFromStr(const std::string& attribute, const std::string& value) {
    if (attribute == "type")
        type = value;
    else if (attribute == "defname")
        defname = value;
    else if (attribute == "senum")
        senum = value;
    else if (attribute == "value")
        this->value = value;
    else if (attribute == "desc")
        desc = value;
    else if (attribute == "idtype")
        idtype = Str2Int(value);
    else if (attribute == "idfrm")
        idfrm = Str2Int(value);
    else if (attribute == "intType")
        intType = Str2Int(value);
    else if (attribute == "size")
        size = Str2Int(value);
    else if (attribute == "unused")
        unused = Str2Int(value);
    else if (attribute == "enums")
        enums = Str2Bool(value);
    return true;
}

QString DcDAType::ToXML(int) {
    return "<DcDAType idtype=\"" + QString::number(idtype) + "\" type = \"" + LocalToQ(type) +
           "\"  defname = \"" + LocalToQ(defname) + "\" size = \"" + QString::number(size) +
           "\" unused = \"" + QString::number(unused) + "\" desc = \"" + LocalToQ(desc) +
           "\"  enums = \"" + (enums ? "true" : "false") + "\" value = \"" + LocalToQ(value) +
           "\"  />\r\n";
}

DcDOType::DcDOType(QObject* parent) : DcICCPBase(parent), idfrm(-1), Valid(1) {
    ObType = TabDcObCode("DcDOType");
    CanA = CanB = CanC = false;
}

DcDOType::~DcDOType() {
    DeleteListObjects(Members);
}

QString DcDOType::ClassName() {
    return "DcDOType";
}

int DcDOType::DecodeElement(TiXmlNode* node, const std::string& elementName) {
    if (elementName == "DcDA") {
        DcDA* da = new DcDA(this);
        da->DecodeXML(node);
        // Only the basic types read so far count.
        DcICCPBase* found = FindTemplate(da->type);
        if (!found) {
            delete da;
            return 3;
        }
        if (DcDAType* templ = qobject_cast<DcDAType*>(found))
            da->Template = templ;
        da->SetTypedValue(da->svalue);
        Members.AddObject(da->name, da, true);
    } else if (elementName == "DcDO") {
        DcDO* dobject = new DcDO(this);
        dobject->DecodeXML(node);
        Members.AddObject(dobject->name, dobject, true);
    }
    return 0;
}

bool DcDOType::SetAttFromStr(const std::string& attribute, const std::string& value) {
    if (attribute == "type")
        type = value;
    else if (attribute == "defname")
        defname = value;
    else if (attribute == "idfrm")
        idfrm = Str2Int(value);
    else if (attribute == "idtype")
        idtype = Str2Int(value);
    else
        return false;
    return true;
}

int DcDOType::GetChildCount() {
    return Members.Count;
}

DcICCPBase* DcDOType::GetChildById(int i) {
    return ListOb(Members, i);
}

QString DcDOType::ToXML(int indent) {
    QString blanks(indent, ' ');
    QString text = blanks + "<DcDOType idtype=\"" + QString::number(idtype) + "\" type = \"" +
                   LocalToQ(type) + "\"  defname=\"" + LocalToQ(defname) + "\" >\r\n";
    for (int i = 0; i < Members.Count; ++i) {
        DcICCPBase* member = ListOb(Members, i);
        if (!member)
            continue;
        QString cls = member->ClassName();
        if (cls == "DcDA")
            text += member->ToXML(indent + 1);
        else if (cls == "DcDO")
            text += blanks + " <DcDO name = \"" + LocalToQ(member->name) + "\" type = \"" +
                    LocalToQ(static_cast<DcDO*>(member)->type) + "\" />\r\n";
    }
    return text + blanks + "</DcDOType> \r\n";
}

bool DcDOType::GetValid() {
    Valid = 1;
    if (!pDcDTTP || Members.Count == 0)
        return true;
    for (int i = 0; i < Members.Count; ++i) {
        DcICCPBase* member = ListOb(Members, i);
        if (!member)
            continue;
        QString cls = member->ClassName();
        if (cls == "DcDA" && !pDcDTTP->FindType(static_cast<DcDA*>(member)->type)) {
            Valid = 0;
            emit Put2SLog("error: DOType " + LocalToQ(type) + "(include DA )is absent in List");
        } else if (cls == "DcDO" && !static_cast<DcDO*>(member)->GetValid()) {
            Valid = 0;
            emit Put2SLog("error: DOType " + LocalToQ(static_cast<DcDO*>(member)->type) +
                          "(include DO )is absent in List");
        }
    }
    return Valid != 0;
}

namespace {

// Members left for one expansion; a template set that nests without end is
// cut when they run out.
const int MaxContDescNodes = 4096;

void FillContDesc(DcDOType* templ, myNode* node, QList<DcDOType*>& path, int& budget) {
    path.append(templ);
    for (int i = 0; i < templ->Members.Count && budget > 0; ++i) {
        DcICCPBase* member = ListOb(templ->Members, i);
        if (!member)
            continue;
        QString cls = member->ClassName();
        if (cls != "DcDA" && cls != "DcDO")
            continue;
        --budget;
        myNode* child = node->AddChild(member->name, member);
        if (cls == "DcDA" || !child)
            continue;
        DcICCPBase* found = FindTemplate(static_cast<DcDO*>(member)->type);
        if (!found)
            break;
        DcDOType* sub = qobject_cast<DcDOType*>(found);
        // A structure that contains itself is shown one level deep.
        if (sub && !path.contains(sub))
            FillContDesc(sub, child, path, budget);
    }
    path.removeLast();
}

} // namespace

void DcDOType::GetFullContDesc(myNode* node) {
    if (!node)
        return;
    QList<DcDOType*> path;
    int budget = MaxContDescNodes;
    FillContDesc(this, node, path, budget);
}

DcDTTP::DcDTTP(QObject* parent) : DcICCPBase(parent), DupDAType(0), DupDOType(0) {
    ObType = TabDcObCode("DcDTTP");
    CanA = false;
    CanC = false;
}

DcDTTP::~DcDTTP() {
    TypeList.clear();
    DeleteListObjects(Types);
}

QString DcDTTP::ClassName() {
    return "DcDTTP";
}

int DcDTTP::DecodeElement(TiXmlNode* node, const std::string& elementName) {
    DcICCPBase* templ;
    std::string type;
    int32_t* duplicates;
    if (elementName == "DcDAType") {
        DcDAType* t = new DcDAType(this);
        t->DecodeXML(node);
        templ = t;
        type = t->type;
        duplicates = &DupDAType;
    } else if (elementName == "DcDOType") {
        DcDOType* t = new DcDOType(this);
        int result = t->DecodeXML(node);
        if (result != 0) {
            delete t;
            return result;
        }
        templ = t;
        type = t->type;
        duplicates = &DupDOType;
    } else {
        return 4;
    }
    if (Types.IndexOf(type) < 0) {
        Types.AddObject(type, templ, true);
        TypeList.append(templ);
        return 0;
    }
    ++*duplicates;
    ++ErrCount;
    delete templ;
    emit Put2SLog("error: DTTP duplicate variable : " + LocalToQ(type));
    return 0;
}

int DcDTTP::GetChildCount() {
    return Types.Count;
}

DcICCPBase* DcDTTP::GetChildById(int i) {
    return ListOb(Types, i);
}

int DcDTTP::GetChildRow(DcICCPBase* object) {
    if (DcDAType* t = qobject_cast<DcDAType*>(object))
        return t->ObType == 1 ? Types.IndexOf(t->type) : -1;
    if (DcDOType* t = qobject_cast<DcDOType*>(object))
        return t->ObType == 3 ? Types.IndexOf(t->type) : -1;
    return -1;
}

QString DcDTTP::ToXML(int) {
    QString text = "<DcTemplate>\r\n";
    for (int i = 0; i < Types.Count; ++i)
        if (DcICCPBase* templ = ListOb(Types, i))
            text += templ->ToXML(3) + "\r\n";
    return text + "</DcTemplate>\r\n";
}

bool DcDTTP::ValidVar() {
    bool valid = true;
    for (int i = 0; i < Types.Count && valid; ++i) {
        DcICCPBase* templ = ListOb(Types, i);
        if (templ && templ->ClassName() == "DcDOType")
            valid = static_cast<DcDOType*>(templ)->GetValid();
    }
    return valid;
}

void DcDTTP::sortByidtype() {
    std::stable_sort(TypeList.begin(), TypeList.end(), lessThen);
}

DcICCPBase* DcDTTP::FindType(const std::string& typeName) {
    return ListOb(Types, Types.IndexOf(typeName));
}

bool lessThen(DcICCPBase* a, DcICCPBase* b) {
    auto isTemplate = [](DcICCPBase* o) {
        if (!o)
            return false;
        QString cls = o->ClassName();
        return cls == "DcDAType" || cls == "DcDOType";
    };
    if (!isTemplate(a) || !isTemplate(b))
        return true;
    return a->idtype < b->idtype;
}

DcICCPBase* FindTemplate(const std::string& typeName) {
    return pDcDTTP ? pDcDTTP->FindType(typeName) : nullptr;
}

DcDAType* GetDcDAType(const std::string& typeName) {
    return qobject_cast<DcDAType*>(FindTemplate(typeName));
}

bool FindAndRakeDTTPFromStr(TiXmlNode* node, DcDTTP** out) {
    if (!node || !out)
        return true;
    if (node->Type() == TiXmlNode::TINYXML_ELEMENT && node->ValueStr() == "DcTemplate") {
        if (!*out) {
            DcDTTP* dttp = new DcDTTP();
            dttp->CanA = dttp->CanB = dttp->CanC = false;
            // Stored first: the structured types look their members up in it.
            *out = dttp;
            dttp->DecodeXML(node);
        }
        return true;
    }
    for (TiXmlNode* child = node->FirstChild(); child; child = child->NextSibling())
        FindAndRakeDTTPFromStr(child, out);
    return true;
}
