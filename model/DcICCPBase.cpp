#include "model/DcICCPBase.h"

#include <cstring>
#include <tinyxml.h>

#include "model/DcDO.h"
#include "model/DcTransSet.h"
#include "support/JoinedText.h"

tTabDcOb TabDcOb[] = {
    {"DcICCPBase", 0}, {"DcDAType", 1},   {"DcDA", 2},        {"DcDOType", 3},
    {"DcDO", 4},       {"DcLD", 6},       {"DcDTTP", 10},     {"DcVCC", 20},
    {"ObICCP", 50},    {"DcDataSet", 51}, {"DcTransSet", 52}, {"DcNextTransferSet", 53},
};
const int TabDcObCount = sizeof(TabDcOb) / sizeof(TabDcOb[0]);

int32_t TabDcObCode(const char* className) {
    for (int i = 0; i < TabDcObCount; ++i)
        if (strncmp(TabDcOb[i].name, className, sizeof(TabDcOb[i].name)) == 0)
            return TabDcOb[i].code;
    return -1;
}

DcVCC* pVCC = nullptr;
DcDTTP* pDcDTTP = nullptr;
DcDTTP* pDcDTTPnew = nullptr;
DcTransSet* pTrans = nullptr;
std::string TSbase = DefaultTransSetText();
bool needemit = false;
QMap<QString, int> CompareTypeTase;

void FillCompareType() {
    CompareTypeTase.insert("BOOL", 1);
    CompareTypeTase.insert("INT32", 2);
    CompareTypeTase.insert("FLOAT32", 4);
    CompareTypeTase.insert("VISIBLE_STRING32", 5);
}

int GetType(const QString& typeName) {
    return CompareTypeTase.value(typeName, 0);
}

DcICCPBase* ListOb(const StringList& list, int i) {
    return i < 0 ? nullptr : static_cast<DcICCPBase*>(list.Objects(i));
}

void DeleteListObjects(StringList& list) {
    // An object that takes its own entry away on deletion leaves the
    // entries below it in place.
    for (int i = list.Count - 1; i >= 0; --i) {
        DcICCPBase* object = ListOb(list, i);
        if (i < list.Count)
            list.AddObjToString(nullptr, i);
        delete object;
    }
    list.Clear();
}

std::string Utf8ToLocal(const char* text) {
    return QString::fromUtf8(text).toLocal8Bit().toStdString();
}

QString Utf8ToQ(const std::string& text) {
    return QString::fromStdString(text);
}

DcICCPBase::DcICCPBase(QObject* parent)
    : QObject(parent), Owner(parent), ObType(TabDcObCode("DcICCPBase")), ErrCount(0), idtype(0),
      CanA(true), CanB(true), CanC(true), UseInTest(false), Service(false), Mark(0xFFFF),
      flChange(false), IsTagV(false), BoundTag(nullptr) {}

DcICCPBase::~DcICCPBase() = default;

QString DcICCPBase::ClassName() {
    return "DcICCPBase";
}

QString DcICCPBase::Parent() {
    return QString();
}

int DcICCPBase::DecodeXML(TiXmlNode* node) {
    if (!node || node->Type() != TiXmlNode::TINYXML_ELEMENT)
        return 0;
    TiXmlElement* element = node->ToElement();
    if (!element)
        return 4;
    for (TiXmlAttribute* a = element->FirstAttribute(); a; a = a->Next())
        SetAttFromStr(a->Name(), Utf8ToLocal(a->Value()));
    for (TiXmlNode* child = node->FirstChild(); child; child = child->NextSibling())
        DecodeElement(child, child->ValueStr());
    return 0;
}

QString DcICCPBase::EncodeXML() {
    return QString();
}

int DcICCPBase::DecodeElement(TiXmlNode*, const std::string&) {
    return 0;
}

bool DcICCPBase::SetAttFromStr(const std::string&, const std::string&) {
    return true;
}

void DcICCPBase::SetUseInTest(bool use) {
    UseInTest = use;
}

int DcICCPBase::GetChildCount() {
    return 0;
}

DcICCPBase* DcICCPBase::GetChildById(int) {
    return nullptr;
}

int DcICCPBase::GetChildRow(DcICCPBase*) {
    return -1;
}

QString DcICCPBase::ToXML(int) {
    return QString();
}

void DcICCPBase::WriteXML(int indent, JoinedText& out) {
    out += ToXML(indent);
}

QString DcICCPBase::WrittenXML(int indent) {
    JoinedText out;
    WriteXML(indent, out);
    return out.Text();
}

QString DcICCPBase::ToCSV(int) {
    return QString();
}

std::string DcICCPBase::GetFullName() {
    return name;
}

void DcICCPBase::FillmyNode(myNode*) {}

DcICCPBase* DcICCPBase::IsHostObType(const QString& className) {
    for (DcICCPBase* o = this; o; o = o->OwnerOb())
        if (o->ClassName() == className)
            return o;
    return nullptr;
}

bool DcICCPBase::IsStruct() {
    return qobject_cast<DcDO*>(this) != nullptr;
}

void DcICCPBase::setFlChange(bool change) {
    flChange = change;
    DcDO* dobject = qobject_cast<DcDO*>(this);
    if (!dobject)
        return;
    for (int i = 0; i < dobject->Members.Count; ++i)
        if (DcICCPBase* member = static_cast<DcICCPBase*>(dobject->Members.Objects(i)))
            member->setFlChange(change);
}

DcICCPBase* DcICCPBase::OwnerOb() const {
    // A QObject cast: an owner in the middle of its destruction is no model
    // object any more and ends the walk.
    return qobject_cast<DcICCPBase*>(Owner);
}

ObICCP::ObICCP(QObject* parent) : DcICCPBase(parent), TabDesc(nullptr), TabCount(0) {
    ObType = TabDcObCode("ObICCP");
}

ObICCP::~ObICCP() = default;

QString ObICCP::ClassName() {
    return "ObICCP";
}

void ObICCP::SetTabICCPObDesc(ICCPObDesc* table, int count) {
    TabDesc = table;
    TabCount = count;
    for (int i = 0; table && i < count; ++i)
        OwnVars.AddObject(std::string(table[i].name, strnlen(table[i].name, sizeof(table[i].name))),
                          &table[i], true);
}

int ObICCP::GetSelfVarIdx(const std::string& name) {
    return OwnVars.IndexOf(name);
}
