#include "model/DcTransSet.h"

#include <cstring>
#include <tinyxml.h>

#include "model/DcDA.h"
#include "model/DcDataSet.h"
#include "model/DcLD.h"
#include "model/DcVCC.h"
#include "support/StrUtils.h"

DescDA ListDescTrans[] = {
    {0, "StartTime", "время начала  мониторинга состояния"},
    {1, "Interval",
     "Временной интервал между отчетами сервера TASE_2,\r\n начинается, когда наступает время "
     "начала."},
    {2, "TLE",
     "время, в течение которого сервер TASE.2 должен отправить отчет\r\n \tпри превышении этого "
     "времени передаче набора данных отбрасывается, отчет не передается."},
    {3, "BufferTime",
     "временной интервал для буферизации условия изменения объекта перед отправкой отчета\r\n "
     "Буферное время начинается с момента возникновения первого условия изменения объекта."},
    {4, "IntegrityCheck",
     "время для проверки целостности при использовании условия таймаута целостности."},
    {5, "DSConditionsRequested",
     "условия, при которых должен быть составлен отчет.Этот атрибут имеет тип DS Conditions.\r\n "
     "(IntervalTimeOut,IntegrityTimeOut,ObjectChange,OperatorRequest,OtherExternalEvent)"},
    {6, "BlockData",
     "true -- указывает на блокировку отчета о передаче\r\n false --отчет о передаче не "
     "блокируется."},
    {7, "Critical",
     "true -- требуется подтверждение передачи \r\n false -- подтверждение не требуется."},
    {8, "RBE",
     "true -- в отчет включаются только измененные значения объекта\r\n \tfalse --о все значения "
     "должны быть включены в oтчет"},
};
const int ListDescTransCount = sizeof(ListDescTrans) / sizeof(ListDescTrans[0]);

ICCPObDesc TabObTransSet[] = {
    {"Name", 32, 0, 0, 0, 0},
    {"datasetdomain", 32, 0, 0, 0, 0},
    {"Scope", 2, 0, 0, 0, 0},
    {"DSConditionRequested", 5, 1, 3, 0, 0},
    {"StartTime", 4, 0, 0, 0, 0},
    {"Interval", 4, 0, 0, 0, 0},
    {"IntegrityCheck", 4, 0, 0, 0, 0},
    {"BlockData", 1, 0, 0, 0, 0},
    {"Critical", 1, 0, 0, 0, 0},
    {"RBE", 1, 0, 0, 0, 0},
    {"Status", 1, 0, 0, 0, 0},
    {"TLE", 2, 0, 0, 0, 0},
    {"EventCodeRequested", 4, 0, 0, 0, 0},
};
const int TabObTransSetCount = sizeof(TabObTransSet) / sizeof(TabObTransSet[0]);

namespace {

struct tMemberDef {
    const char* name;
    const char* type;
    const char* value;
};

// The members of DataSetName.
const tMemberDef DataSetNameMembers[] = {
    {"Scope", "UINT8", ""},
    {"DomainName", "VISIBLE_STRING32", ""},
    {"Name", "VISIBLE_STRING32", ""},
};

// The other members of a transfer set, in their order.
const tMemberDef TransSetMembers[] = {
    {"StartTime", "INT32", ""},
    {"Interval", "INT16", ""},
    {"TLE", "INT16", ""},
    {"BufferTime", "INT16", ""},
    {"IntegrityCheck", "INT16", ""},
    {"DSConditionsRequested", "BitString5", "00100"},
    {"BlockData", "BOOL", ""},
    {"Critical", "BOOL", ""},
    {"RBE", "BOOL", ""},
    {"Status", "BOOL", ""},
    {"EventCodeRequested", "INT32", ""},
};

const char* const DSConditionNames =
    "IntervalTimeOut,IntegrityTimeOut,ObjectChange,OperatorRequest,OtherExternalEvent";

DcICCPBase* MemberNamed(const StringList& list, const std::string& name) {
    return ListOb(list, list.IndexOf(name));
}

bool IsDA(DcICCPBase* object) {
    return object && object->ClassName() == "DcDA";
}

// The text of a member by path; empty when the path leads nowhere.
std::string ReadVar(DcDO* object, const std::string& path) {
    std::string text;
    object->GetVar(path, text);
    return text;
}

} // namespace

DcTransSet::DcTransSet(const std::string& name, bool bare, QObject* parent)
    : DcDO(parent), DSScope(0), Limit0(0), Limit1(0), Limit2(0), StartTime(0), Interval(0), TLE(0),
      BufferTime(0), IntegrityCheck(0), BlockData(false), Critical(false), RBE(false),
      Status(false), RefDS(nullptr), EventCodeRequested(0), DSConditions(5), Used(false),
      DataSetName(nullptr) {
    ObType = TabDcObCode("DcTransSet");
    this->name = name;
    if (bare && name.empty()) {
        EnsureDataSetName(nullptr);
        return;
    }
    InitVar();
    Service = true;
    Limit0 = 480;
    Limit1 = 0;
    Limit2 = 10000;
    SetDescList(ListDescTrans, ListDescTransCount);
}

DcTransSet::~DcTransSet() = default;

QString DcTransSet::ClassName() {
    return "DcTransSet";
}

DcDO* DcTransSet::EnsureDataSetName(QObject* parent) {
    if (!DataSetName) {
        DataSetName = new DcDO(parent);
        DataSetName->name = "DataSetName";
    }
    if (FindIdObjByPtr(DataSetName, &Members) < 0)
        Members.AddObject(DataSetName->name, DataSetName, true);
    return DataSetName;
}

void DcTransSet::MoveToDataSetName(int i) {
    // The set stays the member's Owner while DataSetName lists it. A
    // DataSetName read under a part's name stays where it is: it can't list
    // itself.
    DcDO* dataSetName = EnsureDataSetName(this);
    if (Members.Objects(i) == dataSetName)
        return;
    dataSetName->Members.AddObject(Members.Strings(i), Members.Objects(i), true);
    Members.Delete(i);
}

void DcTransSet::InitVar() {
    EnsureDataSetName(this)->CanA = false;
    for (const tMemberDef& m : DataSetNameMembers) {
        if (DataSetName->Members.IndexOf(m.name) >= 0)
            continue;
        int i = CreateDcDA(m.type, m.name, m.value);
        if (i < 0)
            return;
        if (DcICCPBase* member = ListOb(Members, i))
            member->CanA = false;
        MoveToDataSetName(i);
    }
    for (const tMemberDef& m : TransSetMembers) {
        int i = CreateDcDA(m.type, m.name, m.value);
        if (i < 0)
            return;
        DcICCPBase* member = ListOb(Members, i);
        if (member)
            member->CanA = false;
        if (strcmp(m.name, "DSConditionsRequested") == 0 && IsDA(member))
            static_cast<DcDA*>(member)->BitNames = DSConditionNames;
    }
    Status = false;
}

namespace {

// An attribute of the attribute form: the member it makes and the field that
// mirrors it (exactly one of the four field pointers is set). The parts of
// the data set's name are made on the set and then listed by DataSetName.
struct tTransAttribute {
    const char* attribute;
    const char* type;
    int32_t DcTransSet::*number;
    int16_t DcTransSet::*shortNumber;
    bool DcTransSet::*flag;
    std::string DcTransSet::*text;
    bool dataSetPart;
};

const tTransAttribute TransAttributes[] = {
    {"Scope", "UINT8", nullptr, &DcTransSet::DSScope, nullptr, nullptr, true},
    {"DomainName", "VISIBLE_STRING32", nullptr, nullptr, nullptr, &DcTransSet::DSDomain, true},
    {"Name", "VISIBLE_STRING32", nullptr, nullptr, nullptr, &DcTransSet::DSName, true},
    {"StartTime", "INT32", &DcTransSet::StartTime, nullptr, nullptr, nullptr, false},
    {"Interval", "INT16", nullptr, &DcTransSet::Interval, nullptr, nullptr, false},
    {"TLE", "INT16", nullptr, &DcTransSet::TLE, nullptr, nullptr, false},
    {"BufferTime", "INT16", nullptr, &DcTransSet::BufferTime, nullptr, nullptr, false},
    {"IntegrityCheck", "INT16", nullptr, &DcTransSet::IntegrityCheck, nullptr, nullptr, false},
    {"DSConditionRequested", "BitString5", nullptr, nullptr, nullptr, &DcTransSet::DSConditionText,
     false},
    {"BlockData", "BOOL", nullptr, nullptr, &DcTransSet::BlockData, nullptr, false},
    {"Critical", "BOOL", nullptr, nullptr, &DcTransSet::Critical, nullptr, false},
    {"RBE", "BOOL", nullptr, nullptr, &DcTransSet::RBE, nullptr, false},
    {"Status", "BOOL", nullptr, nullptr, &DcTransSet::Status, nullptr, false},
};

} // namespace

bool DcTransSet::SetAttFromStr(const std::string& attribute, const std::string& value) {
    if (attribute == "name") {
        name = value;
        return true;
    }
    if (attribute == "desc") {
        desc = value;
        return true;
    }
    if (attribute == "DataSetName") {
        EnsureDataSetName(this);
        return true;
    }
    for (const tTransAttribute& a : TransAttributes) {
        if (attribute != a.attribute)
            continue;
        if (a.number)
            this->*a.number = Str2Int(value);
        else if (a.shortNumber)
            this->*a.shortNumber = int16_t(Str2Int(value));
        else if (a.flag)
            this->*a.flag = Str2Bool(value);
        else
            this->*a.text = value;
        const int i = CreateDcDA(a.type, attribute, value);
        if (i < 0)
            return false;
        if (a.dataSetPart)
            MoveToDataSetName(i);
        return true;
    }
    // Everything else, "DSConditionsRequested" of older files among it, is
    // taken for the event code.
    EventCodeRequested = Str2Int(value);
    return CreateDcDA("INT32", "EventCodeRequested", value) >= 0;
}

int DcTransSet::DecodeElement(TiXmlNode* node, const std::string& elementName) {
    const int before = Members.Count;
    DcDO::DecodeElement(node, elementName);
    if (Members.Count == before)
        return 0;
    const int last = Members.Count - 1;
    DcICCPBase* read = ListOb(Members, last);
    if (elementName == "DcDO")
        DataSetName = static_cast<DcDO*>(read);
    // A member of the same name gives way to the one read, which takes its
    // place: the order of InitVar stays.
    const int i = Members.IndexOfAfterPos(0, read->name);
    if (i < 0 || i == last)
        return 0;
    DcICCPBase* old = ListOb(Members, i);
    Members.Delete(last);
    Members.AddObjToString(read, i);
    if (old == DataSetName)
        DataSetName = nullptr;
    delete old;
    return 0;
}

QString DcTransSet::ToXML(int indent) {
    const QString pad(qMax(indent, 0), ' ');
    QString out =
        pad + "<DcTransSet name = \"" + LocalToQ(name) + "\" desc=\"" + Utf8ToQ(desc) + "\" >\r\n";
    for (int i = 0; i < Members.Count; ++i) {
        if (DcICCPBase* member = ListOb(Members, i))
            out += member->ToXML(2);
        out += "\r\n";
        if (i % 4 == 0)
            out += "\r\n" + pad + "      ";
    }
    out += pad + "</DcTransSet>\r\n";
    return out;
}

void DcTransSet::AssignSelf(DcTransSet* source) {
    if (!source || source == this)
        return;
    for (int i = 0; i < source->Members.Count; ++i) {
        DcICCPBase* from = ListOb(source->Members, i);
        DcICCPBase* to = ListOb(Members, i);
        if (!from || !to)
            continue;
        if (IsDA(from)) {
            if (IsDA(to))
                AssignDA(static_cast<DcDA*>(to), static_cast<DcDA*>(from));
            continue;
        }
        if (from->ClassName() != "DcDO" || to->ClassName() != "DcDO")
            continue;
        DcDO* fromStruct = static_cast<DcDO*>(from);
        DcDO* toStruct = static_cast<DcDO*>(to);
        for (int j = 0; j < fromStruct->Members.Count; ++j) {
            DcICCPBase* fromMember = ListOb(fromStruct->Members, j);
            DcICCPBase* toMember = ListOb(toStruct->Members, j);
            if (IsDA(fromMember) && IsDA(toMember))
                AssignDA(static_cast<DcDA*>(toMember), static_cast<DcDA*>(fromMember));
        }
    }
}

void DcTransSet::ResetDataSetName() {
    if (!DataSetName)
        return;
    for (const tMemberDef& m : DataSetNameMembers) {
        DcICCPBase* member = MemberNamed(DataSetName->Members, m.name);
        if (!IsDA(member))
            continue;
        DcDA* variable = static_cast<DcDA*>(member);
        variable->svalue.clear();
        if (variable->Value && variable->Value->Buf)
            memset(variable->Value->Buf, 0, size_t(variable->Value->Len));
    }
}

void DcTransSet::SetVar() {
    PutVar("DataSetName$Scope", "1");
    PutVar("DataSetName$DomainName", "H");
    PutVar("DataSetName$Name", "H");
}

void DcTransSet::GetVarFromDA() {
    StartTime = Str2Int(ReadVar(this, "StartTime"));
    Interval = int16_t(Str2Int(ReadVar(this, "Interval")));
    TLE = int16_t(Str2Int(ReadVar(this, "TLE")));
    BufferTime = int16_t(Str2Int(ReadVar(this, "BufferTime")));
    IntegrityCheck = int16_t(Str2Int(ReadVar(this, "IntegrityCheck")));
    EventCodeRequested = Str2Int(ReadVar(this, "EventCodeRequested"));
    BlockData = Str2Bool(ReadVar(this, "BlockData"));
    Critical = Str2Bool(ReadVar(this, "Critical"));
    RBE = Str2Bool(ReadVar(this, "RBE"));
    Status = Str2Bool(ReadVar(this, "Status"));
    DSConditions.REALLOCBUF(5);
    // The attribute form's member, without the "s": the members of InitVar
    // leave the conditions clear here.
    const std::string conditions = ReadVar(this, "DSConditionRequested");
    for (size_t i = 0; i < conditions.size(); ++i)
        if (conditions[i] != '0')
            DSConditions.SetBit(int(i));
    DSScope = int16_t(Str2Int(ReadVar(this, "DataSetName$Scope")));
    DSDomain = ReadVar(this, "DataSetName$datasetdomain");
    DSName = ReadVar(this, "DataSetName$Name");
    SetRefDS();
}

bool DcTransSet::SetRefDS() {
    if (!DataSetName)
        return false;
    DcICCPBase* member = MemberNamed(DataSetName->Members, "Name");
    if (!IsDA(member))
        return false;
    MyBufValue* value = static_cast<DcDA*>(member)->Value;
    const std::string text = value ? value->Tostring() : std::string();
    StringList* sets = nullptr;
    if (DcICCPBase* owner = OwnerOb()) {
        if (owner->ClassName() == "DcLD")
            sets = &static_cast<DcLD*>(owner)->DataSets;
        else if (owner->ClassName() == "DcVCC")
            sets = &static_cast<DcVCC*>(owner)->DataSets;
    }
    RefDS = sets ? qobject_cast<DcDataSet*>(MemberNamed(*sets, text)) : nullptr;
    return RefDS != nullptr;
}

void DcTransSet::SetbTypeList() {
    ::SetbTypeList(&Members);
}

bool CheckValidTrset(DcDO* object, int mode) {
    if (!object)
        return false;
    const std::string domain = ReadVar(object, "DataSetName$DomainName");
    const std::string scope = ReadVar(object, "DataSetName$Scope");
    const std::string setName = ReadVar(object, "DataSetName$Name");
    std::string status = ReadVar(object, "Status");
    StringList* sets;
    if (DcICCPBase* ld = object->IsHostObType("DcLD")) {
        if (domain != ld->name || scope != "1")
            return false;
        sets = &static_cast<DcLD*>(ld)->DataSets;
    } else {
        DcVCC* vcc = static_cast<DcVCC*>(object->IsHostObType("DcVCC"));
        if (!vcc)
            return false;
        pVCC = vcc;
        sets = &vcc->DataSets;
    }
    if (!MemberNamed(*sets, setName))
        return false;
    return (mode != 0) != (Str2Lower(status) != "false");
}

std::string DefaultTransSetText() {
    return "<?xml version = \"1.0\" ?>\r\n"
           "<schema xmlns = \"http://www.w3.org/2001/XMLSchema\">\r\n"
           "<DcTransSet name = \"noname\"  Scope = \"1\"  DomainName = \"domain\" Name =\"\"  "
           " StartTime = \"0\"  Interval=\"0\" TLE = \"0\" BufferTime=\"0\" IntegrityCheck=\"0\"  "
           "DSConditionRequested = \"00100\"\r\n"
           "BlockData = \"false\"   Critical= \"false\"  RBE = \"true\" Status= \"false\"  "
           "EventCodeRequested = \"0\"   /> \r\n"
           "</schema>";
}

namespace {

// Reads the first DcTransSet element under node, in document order; true
// once one is read.
bool RakeFirstTrans(TiXmlNode* node) {
    if (node->Type() == TiXmlNode::TINYXML_ELEMENT && node->ValueStr() == "DcTransSet") {
        pTrans = new DcTransSet("", false, nullptr);
        pTrans->DecodeXML(node);
        return true;
    }
    for (TiXmlNode* child = node->FirstChild(); child; child = child->NextSibling())
        if (RakeFirstTrans(child))
            return true;
    return false;
}

} // namespace

void RakeTrans(TiXmlNode* node) {
    if (node)
        RakeFirstTrans(node);
}
