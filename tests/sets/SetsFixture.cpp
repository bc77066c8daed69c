#include "SetsFixture.h"

#include <tinyxml.h>

#include "model/DcBaseTypes.h"

const char* const kSetTypes =
    "<DcTemplate>"
    "<DcDAType idtype=\"0\" type=\"VISIBLE_STRING32\" size=\"32\" unused=\"0\" value=\"Str\"/>"
    "<DcDAType idtype=\"1\" type=\"UINT8\" size=\"1\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"2\" type=\"INT8\" size=\"1\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"3\" type=\"INT16\" size=\"2\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"4\" type=\"INT32\" size=\"4\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"5\" type=\"BOOL\" size=\"1\" unused=\"0\" value=\"false\"/>"
    "<DcDAType idtype=\"6\" type=\"BitString\" size=\"1\" unused=\"4\" value=\"00000000\"/>"
    "<DcDAType idtype=\"7\" type=\"BitString5\" size=\"1\" unused=\"3\" value=\"00100000\"/>"
    "</DcTemplate>";

const char* const kTypesWithoutBitString5 =
    "<DcTemplate>"
    "<DcDAType idtype=\"0\" type=\"VISIBLE_STRING32\" size=\"32\" unused=\"0\" value=\"Str\"/>"
    "<DcDAType idtype=\"1\" type=\"UINT8\" size=\"1\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"3\" type=\"INT16\" size=\"2\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"4\" type=\"INT32\" size=\"4\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"5\" type=\"BOOL\" size=\"1\" unused=\"0\" value=\"false\"/>"
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

DcDTTP* ReadTypes(const char* xml) {
    TiXmlDocument doc;
    doc.Parse(xml);
    DcDTTP* types = nullptr;
    FindAndRakeDTTPFromStr(&doc, &types);
    return types;
}

void SetsTest::SetUp() {
    needemit = false;
    pDcDTTP = ReadTypes(kSetTypes);
    ASSERT_NE(pDcDTTP, nullptr);
    vcc = new DcVCC();
    vcc->name = "VCC_1";
    pVCC = vcc;
    icc = AddICC("ICC_1");
}

void SetsTest::TearDown() {
    needemit = false;
    delete vcc;
    pVCC = nullptr;
    delete pDcDTTP;
    pDcDTTP = nullptr;
}

DcDA* SetsTest::AddVar(StringList& vars, QObject* owner, const std::string& name,
                       const std::string& type) {
    DcDA* variable = new DcDA(name, GetDcDAType(type), owner);
    vars.AddObject(name, variable, true);
    return variable;
}

DcLD* SetsTest::AddICC(const std::string& name) {
    DcLD* ld = new DcLD(vcc);
    ld->name = name;
    vcc->ICCs.AddObject(name, ld, true);
    return ld;
}

DcDataSet* SetsTest::AddDataSet(StringList& sets, QObject* owner, const std::string& name) {
    DcDataSet* set = new DcDataSet(name, owner);
    sets.AddObject(name, set, true);
    return set;
}

DcTransSet* SetsTest::AddTransSet(DcLD* ld, const std::string& name) {
    DcTransSet* set = new DcTransSet(name, false, ld);
    ld->TransSets.AddObject(name, set, true);
    return set;
}

std::string Var(DcDO* object, const std::string& path) {
    std::string text;
    object->GetVar(path, text);
    return text;
}

std::string Texts(const StringList& list) {
    std::string out;
    for (int i = 0; i < list.Count; ++i)
        out += (i ? "," : "") + list.Strings(i);
    return out;
}
