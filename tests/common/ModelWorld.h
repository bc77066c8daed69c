// The model world of the model, sets and XML tests.
#pragma once

#include <QStringList>
#include <gtest/gtest.h>
#include <string>

#include "support/MyBuf.h"
#include "xml/ModelRoad.h"

// Basic types, two structured types and those of the sets, as DcTemplate text.
inline const char* const kModelTypes =
    "<DcTemplate><DcDAType idtype=\"10\" type=\"INT16\" defname=\"I16\" size=\"2\" unused=\"0\" "
    "value=\"0\"/><DcDAType idtype=\"11\" type=\"INT32\" size=\"4\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"12\" type=\"INT8\" unused=\"0\" value=\"0\"/><DcDAType idtype=\"13\" "
    "type=\"UINT8\" unused=\"0\" value=\"0\"/><DcDAType idtype=\"14\" type=\"VISIBLE_STRING32\" "
    "size=\"32\" unused=\"0\" value=\"Str\"/><DcDAType idtype=\"15\" type=\"Data_Real\" size=\"4\" "
    "unused=\"-1\" value=\"-10.000\"/><DcDAType idtype=\"16\" type=\"Data_Flags\" unused=\"0\" "
    "value=\"00000000\"/><DcDAType idtype=\"17\" type=\"BitString12\" size=\"2\" unused=\"4\" "
    "senum=\"a,b\" value=\"110000000000\"/><DcDAType idtype=\"18\" type=\"Data_TimeStamp\" "
    "size=\"4\" unused=\"-1\" value=\"\"/><DcDAType idtype=\"19\" type=\"BitString5\" unused=\"3\" "
    "value=\"00100\"/><DcDAType idtype=\"20\" type=\"BOOL\" unused=\"0\" value=\"false\"/>"
    "<DcDAType idtype=\"21\" type=\"BitString\" unused=\"4\" value=\"0010\"/><DcDOType "
    "idtype=\"1\" type=\"Data_RealQ\" defname=\"RealQ\"><DcDA name=\"Value\" type=\"Data_Real\"/>"
    "<DcDA name=\"Flags\" type=\"Data_Flags\"/></DcDOType><DcDOType idtype=\"2\" "
    "type=\"Data_RealQTimeTag\" defname=\"RealQT\"><DcDO name=\"Q\" type=\"Data_RealQ\"/><DcDA "
    "name=\"TimeStamp\" type=\"Data_TimeStamp\"/></DcDOType></DcTemplate>";

// A parsed document that lives as long as the object.
struct XmlText {
    explicit XmlText(const char* xml) { doc.Parse(xml, nullptr, TIXML_ENCODING_UTF8); }
    TiXmlElement* Root() { return doc.RootElement(); }
    TiXmlNode* Document() { return &doc; }
    TiXmlDocument doc;
};

// The first DcTemplate of xml read into a fresh pDcDTTP (the old one is the caller's).
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

// A variable made as the readers make it, with its texts only.
template <class T>
T* AddRaw(StringList& list, QObject* owner, const std::string& name, const std::string& type = "") {
    T* variable = new T(owner);
    variable->name = name;
    variable->type = type;
    list.AddObject(name, variable, true);
    return variable;
}

template <class T> T* At(const StringList& list, int i) {
    return qobject_cast<T*>(ListOb(list, i));
}

inline std::string Texts(const StringList& list) {
    std::string out;
    for (int i = 0; i < list.Count; ++i)
        out += (i ? "," : "") + list.Strings(i);
    return out;
}

inline std::string ChildNames(myNode* node) {
    std::string names;
    for (myNode* child = node ? node->FirstChild : nullptr; child; child = child->Next)
        names += (names.empty() ? "" : ",") + child->name;
    return names;
}

// The value of a variable as text, empty without a value.
inline std::string ValueOf(DcDA* variable) {
    return variable && variable->Value ? variable->Value->Tostring() : std::string();
}

// The values of members by path, joined with ","; empty where a path fails.
inline std::string Var(DcDO* object, std::initializer_list<std::string> paths) {
    std::string out, text;
    for (const std::string& path : paths)
        out += (&path == paths.begin() ? "" : ",") +
               (object->GetVar(path, text) == 0 ? text : std::string());
    return out;
}

// Collects the texts that objects report through Put2SLog.
struct LogRecorder {
    void Listen(DcICCPBase* object) {
        QObject::connect(object, &DcICCPBase::Put2SLog, [this](QString text) { texts << text; });
    }
    QStringList texts;
};

inline std::string GoldenFile(const char* name) {
    return ReadWholeFile(QString(ICCP_GOLDEN_DIR "/") + name);
}

// Each test starts with pDcDTTP read from kModelTypes and no pVCC.
class ModelWorldTest : public ::testing::Test {
protected:
    void SetUp() override {
        PrepareModelTables();
        ClearModel(tree);
        ASSERT_NE(ReadTypes(kModelTypes), nullptr);
    }
    void TearDown() override { ClearModel(tree); }

    // Replaces the model by the one read from text, as the load does.
    bool Load(const std::string& text) {
        ClearModel(tree);
        return ReadModelText(text, &tree);
    }

    // A VCC named VCC_1 in pVCC with one ICC named ICC_1.
    void MakeModel() {
        pVCC = vcc = new DcVCC();
        vcc->name = "VCC_1";
        icc = new DcLD(vcc);
        icc->name = "ICC_1";
        vcc->ICCs.AddObject(icc->name, icc, true);
    }

    DcDataSet* AddDataSet(StringList& sets, QObject* owner, const std::string& name) {
        DcDataSet* set = new DcDataSet(name, owner);
        sets.AddObject(name, set, true);
        return set;
    }

    DcTransSet* AddTransSet(const std::string& name) {
        DcTransSet* set = new DcTransSet(name, false, icc);
        icc->TransSets.AddObject(name, set, true);
        return set;
    }

    myNode* tree = nullptr;
    DcVCC* vcc = nullptr;
    DcLD* icc = nullptr;
};
