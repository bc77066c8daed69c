#include "model/DcDA.h"

#include "model/DcLD.h"
#include "model/DcTemplates.h"
#include "model/DcVCC.h"
#include "support/MyBuf.h"
#include "support/StrUtils.h"

#include <QStringBuilder>

DcDA::DcDA(QObject* parent)
    : DcICCPBase(parent), Template(nullptr), Value(new MyBufValue()), Plain(true), ByteCount(0),
      unused(0), flagAbility(0) {
    ObType = TabDcObCode("DcDA");
    Mark = 1;
}

DcDA::DcDA(const std::string& name, DcDAType* templ, QObject* parent) : DcDA(parent) {
    Template = templ;
    if (templ)
        type = templ->type;
    this->name = name;
    if (templ && !templ->value.empty()) {
        svalue = templ->value;
        Value->SetbType(this);
        Value->SetFromstring(svalue);
        ByteCount = 1;
        unused = 0;
    }
    flagAbility = 0;
}

namespace {

// Removes the entry that holds object from list, if there is one.
void RemoveEntryOf(StringList& list, DcICCPBase* object) {
    int i = list.IndexOf(object->name);
    if (i < 0 || list.Objects(i) != object)
        i = FindIdObjByPtr(object, &list);
    list.Delete(i);
}

} // namespace

void RemoveFromOwnerVars(DcICCPBase* object) {
    DcICCPBase* owner = object->OwnerOb();
    if (!owner)
        return;
    QString cls = owner->ClassName();
    if (cls == "DcLD")
        RemoveEntryOf(static_cast<DcLD*>(owner)->Vars, object);
    else if (cls == "DcVCC")
        RemoveEntryOf(static_cast<DcVCC*>(owner)->Vars, object);
}

DcDA::~DcDA() {
    delete Value;
    if (needemit)
        RemoveFromOwnerVars(this);
}

QString DcDA::ClassName() {
    return "DcDA";
}

bool DcDA::SetAttFromStr(const std::string& attribute, const std::string& value) {
    if (attribute == "name") {
        name = value;
    } else if (attribute == "desc") {
        desc = value;
    } else if (attribute == "type") {
        type = value;
        DcICCPBase* found = FindTemplate(value);
        if (!found)
            return true;
        if (found->ClassName() != "DcDAType") {
            emit Put2SLog("error: Problem with DcDAType");
            return false;
        }
        Template = static_cast<DcDAType*>(found);
    } else if (attribute == "svalue") {
        svalue = value;
    } else if (attribute == "refDS") {
        refDS = LocalToQ(value);
    } else {
        flagAbility = uint8_t(Str2Int(value));
        svalue = value;
    }
    return true;
}

QString DcDA::ToXML(int indent) {
    if (Value && Value->Buf && Value->Len > 0)
        svalue = Value->Tostring();
    // One allocation for the whole line: a model has a line per variable.
    return QString(indent, ' ') % "<DcDA  name = \"" % LocalToQ(name) % "\" type = \"" %
           LocalToQ(type) % "\" " % "desc = \"" % Utf8ToQ(desc) % "\" svalue = \"" %
           Utf8ToQ(svalue) % "\" refDSRT = \"" % refDSRT % "\" ByteCount=\"" %
           QString::number(ByteCount) % "\"  unused=\"" % QString::number(unused) %
           "\" refDS = \"" % refDS % "\"  flagAbility = \"" % QString::number(flagAbility) %
           "\" /> \r\n";
}

QString DcDA::ToCSV(int indent) {
    DcICCPBase* owner = OwnerOb();
    return QString(indent, ';') + Utf8ToQ(name) + ";" + Utf8ToQ(type) + ";" +
           (owner ? Utf8ToQ(owner->name) : QString()) + ";" + Utf8ToQ(desc) + "\r\n";
}

std::string MemberFullName(DcICCPBase* object) {
    std::string result = object->name;
    for (DcICCPBase* o = object->OwnerOb(); o; o = o->OwnerOb()) {
        QString cls = o->ClassName();
        if (cls == "DcDO") {
            result = o->name + "$" + result;
        } else if (cls == "DcLD") {
            result = o->name + "/" + result;
            break;
        }
    }
    return result;
}

std::string DcDA::GetFullName() {
    return MemberFullName(this);
}

bool DcDA::IsBitStr() {
    if (!Value)
        return false;
    int t = Value->bType;
    return t == 9 || t == 12 || t == 13 || t == 14;
}

QStringList DcDA::GetEnumList() {
    if (BitNames.isEmpty())
        return QStringList();
    return BitNames.split(",");
}

void DcDA::SetTypedValue(const std::string& text) {
    if (!Template)
        return;
    if (!Value)
        Value = new MyBufValue();
    Value->SetbType(this);
    Value->SetFromstring(text.empty() ? Template->value : text);
}
