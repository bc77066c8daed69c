#include "ModelFixture.h"

#include <tinyxml.h>

#include "support/MyBuf.h"
#include "support/myNode.h"

const char* const kModelTypes =
    "<DcTemplate>"
    "<DcDAType idtype=\"10\" type=\"INT16\" defname=\"I16\" size=\"2\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"11\" type=\"INT32\" size=\"4\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"12\" type=\"INT8\" size=\"1\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"13\" type=\"UINT8\" size=\"1\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"14\" type=\"VISIBLE_STRING32\" size=\"32\" unused=\"0\" value=\"Str\"/>"
    "<DcDAType idtype=\"15\" type=\"Data_Real\" size=\"4\" unused=\"-1\" value=\"-10.000\"/>"
    "<DcDAType idtype=\"16\" type=\"Data_Flags\" size=\"1\" unused=\"0\" value=\"00000000\"/>"
    "<DcDAType idtype=\"17\" type=\"BitString12\" size=\"2\" unused=\"4\" senum=\"a,b\" "
    "value=\"110000000000\"/>"
    "<DcDAType idtype=\"18\" type=\"Data_TimeStamp\" size=\"4\" unused=\"-1\" value=\"\"/>"
    "<DcDAType idtype=\"19\" type=\"BitString5\" size=\"1\" unused=\"3\" value=\"00100\"/>"
    "<DcDAType idtype=\"20\" type=\"BOOL\" size=\"1\" unused=\"0\" value=\"false\"/>"
    "<DcDAType idtype=\"21\" type=\"BitString\" size=\"1\" unused=\"4\" value=\"0010\"/>"
    "<DcDOType idtype=\"1\" type=\"Data_RealQ\" defname=\"RealQ\">"
    "<DcDA name=\"Value\" type=\"Data_Real\"/><DcDA name=\"Flags\" type=\"Data_Flags\"/>"
    "</DcDOType>"
    "<DcDOType idtype=\"2\" type=\"Data_RealQTimeTag\" defname=\"RealQT\">"
    "<DcDO name=\"Q\" type=\"Data_RealQ\"/><DcDA name=\"TimeStamp\" type=\"Data_TimeStamp\"/>"
    "</DcDOType>"
    "</DcTemplate>";

namespace {

// The type tables are prepared once per process, as the form does.
class TypeTablesEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        FillCompareType();
        SortDATypes();
        SecTypesAToUp();
        SortSecondaryTypes();
    }
};

const auto* const typeTables = ::testing::AddGlobalTestEnvironment(new TypeTablesEnvironment);

} // namespace

void ReadTypes(const char* xml) {
    XmlText text(xml);
    FindAndRakeDTTPFromStr(text.Document(), &pDcDTTP);
}

XmlText::XmlText(const char* xml) : doc(new TiXmlDocument()) {
    doc->Parse(xml, nullptr, TIXML_ENCODING_UTF8);
}

XmlText::~XmlText() {
    delete doc;
}

TiXmlElement* XmlText::Root() {
    return doc->RootElement();
}

TiXmlNode* XmlText::Document() {
    return doc;
}

void LogRecorder::Listen(DcICCPBase* object) {
    QObject::connect(object, &DcICCPBase::Put2SLog, [this](QString text) { texts << text; });
}

void ModelTest::SetUp() {
    needemit = false;
    pVCC = nullptr;
    pDcDTTP = nullptr;
    ReadTypes(kModelTypes);
    ASSERT_NE(pDcDTTP, nullptr);
}

void ModelTest::TearDown() {
    needemit = false;
    delete pVCC;
    pVCC = nullptr;
    delete pDcDTTP;
    pDcDTTP = nullptr;
}

void ModelTest::MakeModel() {
    vcc = new DcVCC();
    vcc->name = "VCC_1";
    pVCC = vcc;
    icc = new DcLD(vcc);
    icc->name = "ICC_1";
    vcc->ICCs.AddObject(icc->name, icc, true);
}

DcDA* ModelTest::AddDA(StringList& vars, QObject* owner, const std::string& name,
                       const std::string& type) {
    DcDA* variable = new DcDA(name, GetDcDAType(type), owner);
    vars.AddObject(name, variable, true);
    return variable;
}

DcDO* ModelTest::AddDO(StringList& vars, QObject* owner, const std::string& name,
                       const std::string& type) {
    DcDO* variable = new DcDO(name, qobject_cast<DcDOType*>(pDcDTTP->FindType(type)), owner);
    vars.AddObject(name, variable, true);
    return variable;
}

std::string ValueOf(DcDA* variable) {
    return variable && variable->Value ? variable->Value->Tostring() : std::string();
}

std::string ChildNames(myNode* node) {
    std::string names;
    for (myNode* child = node ? node->FirstChild : nullptr; child; child = child->Next)
        names += (names.empty() ? "" : ",") + child->name;
    return names;
}
