// What the tests of the object model share: parsed XML text, the type
// tables, the model's globals with a small VCC in them, and their teardown.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <tinyxml.h>

#include "model/DcBaseTypes.h"
#include "model/DcDA.h"
#include "model/DcDO.h"
#include "model/DcLD.h"
#include "model/DcTemplates.h"
#include "model/DcVCC.h"

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

inline ::testing::Environment* const typeTablesEnvironment =
    ::testing::AddGlobalTestEnvironment(new TypeTablesEnvironment);

// A parsed document that lives as long as the object.
struct XmlText {
    explicit XmlText(const char* xml) { doc.Parse(xml, nullptr, TIXML_ENCODING_UTF8); }
    TiXmlElement* Root() { return doc.RootElement(); }
    TiXmlNode* Document() { return &doc; }
    TiXmlDocument doc;
};

// Reads the first DcTemplate element of xml into a fresh pDcDTTP, as the load
// does, so that structured types find the basic types read before them. The
// set that was there is the caller's.
inline DcDTTP* ReadTypes(const std::string& xml) {
    XmlText text(xml.c_str());
    pDcDTTP = nullptr;
    FindAndRakeDTTPFromStr(text.Document(), &pDcDTTP);
    return pDcDTTP;
}

inline DcDA* AddDA(StringList& vars, QObject* owner, const std::string& name,
                   const std::string& type = "INT16") {
    DcDA* variable = new DcDA(name, GetDcDAType(type), owner);
    vars.AddObject(name, variable, true);
    return variable;
}

inline DcDO* AddDO(StringList& vars, QObject* owner, const std::string& name,
                   const std::string& type = "Data_RealQ") {
    DcDO* variable = new DcDO(name, qobject_cast<DcDOType*>(pDcDTTP->FindType(type)), owner);
    vars.AddObject(name, variable, true);
    return variable;
}

// The entry texts of a list, joined with ",".
inline std::string Texts(const StringList& list) {
    std::string out;
    for (int i = 0; i < list.Count; ++i)
        out += (i ? "," : "") + list.Strings(i);
    return out;
}

// Each test tears pVCC and pDcDTTP down with needemit false.
class ModelWorldTest : public ::testing::Test {
protected:
    void TearDown() override {
        needemit = false;
        delete pVCC;
        pVCC = nullptr;
        delete pDcDTTP;
        pDcDTTP = nullptr;
    }

    // A VCC named VCC_1 in pVCC with one ICC named ICC_1.
    void MakeModel() {
        vcc = new DcVCC();
        vcc->name = "VCC_1";
        pVCC = vcc;
        icc = new DcLD(vcc);
        icc->name = "ICC_1";
        vcc->ICCs.AddObject(icc->name, icc, true);
    }

    DcVCC* vcc = nullptr;
    DcLD* icc = nullptr;
};
