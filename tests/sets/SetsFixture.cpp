#include "SetsFixture.h"

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

void SetsTest::SetUp() {
    needemit = false;
    ReadTypes(SetTypes());
    MakeModel();
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
