#include "SetsFixture.h"

#include "model/DcBaseTypes.h"

namespace {

// The type tables are prepared once per process, as the form does.
class TypeTablesEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        SortDATypes();
        SecTypesAToUp();
        SortSecondaryTypes();
    }
};

const auto* const typeTables = ::testing::AddGlobalTestEnvironment(new TypeTablesEnvironment);

} // namespace

std::string SetTypes(bool withBitString5) {
    const char* const rows[][4] = {{"VISIBLE_STRING32", "32", "0", "Str"},
                                   {"UINT8", "1", "0", "0"},
                                   {"INT8", "1", "0", "0"},
                                   {"INT16", "2", "0", "0"},
                                   {"INT32", "4", "0", "0"},
                                   {"BOOL", "1", "0", "false"},
                                   {"BitString", "1", "4", "00000000"},
                                   {"BitString5", "1", "3", "00100000"}};
    std::string xml = "<DcTemplate>";
    for (const auto& r : rows)
        if (withBitString5 || std::string(r[0]) != "BitString5")
            xml += std::string("<DcDAType type=\"") + r[0] + "\" size=\"" + r[1] + "\" unused=\"" +
                   r[2] + "\" value=\"" + r[3] + "\"/>";
    return xml + "</DcTemplate>";
}

DcDTTP* ReadTypes(const std::string& xml) {
    XmlText text(xml.c_str());
    DcDTTP* types = nullptr;
    FindAndRakeDTTPFromStr(text.Document(), &types);
    return types;
}

void SetsTest::SetUp() {
    needemit = false;
    pDcDTTP = ReadTypes(SetTypes());
    vcc = new DcVCC();
    vcc->name = "VCC_1";
    pVCC = vcc;
    icc = new DcLD(vcc);
    icc->name = "ICC_1";
    vcc->ICCs.AddObject(icc->name, icc, true);
}

void SetsTest::TearDown() {
    needemit = false;
    delete vcc;
    pVCC = nullptr;
    delete pDcDTTP;
    pDcDTTP = nullptr;
}

DcDA* SetsTest::AddVar(StringList& vars, QObject* owner, const std::string& name) {
    DcDA* variable = new DcDA(name, GetDcDAType("INT16"), owner);
    vars.AddObject(name, variable, true);
    return variable;
}

DcDataSet* SetsTest::AddDataSet(StringList& sets, QObject* owner, const std::string& name) {
    DcDataSet* set = new DcDataSet(name, owner);
    sets.AddObject(name, set, true);
    return set;
}

DcTransSet* SetsTest::AddTransSet(const std::string& name) {
    DcTransSet* set = new DcTransSet(name, false, icc);
    icc->TransSets.AddObject(name, set, true);
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
