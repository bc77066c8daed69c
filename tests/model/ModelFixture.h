// A template set of a few basic and structured types, and helpers to read
// model text and to record what the model reports.
#pragma once

#include <QObject>
#include <QStringList>
#include <gtest/gtest.h>
#include <string>

#include "model/ICCPTypes_Nat.h"

class TiXmlElement;

// Basic types, two structured types and the types of a transfer set, as
// DcTemplate text.
extern const char* const kModelTypes;

// Reads the first DcTemplate element of xml into pDcDTTP, as the load does,
// so that structured types find the basic types read before them.
void ReadTypes(const char* xml);

// Parses xml and keeps the document for the test; the first element is its
// root.
class XmlText {
public:
    explicit XmlText(const char* xml);
    ~XmlText();
    TiXmlElement* Root();
    TiXmlNode* Document();

private:
    class TiXmlDocument* doc;
};

// Collects the texts that an object reports through Put2SLog.
class LogRecorder {
public:
    void Listen(DcICCPBase* object);
    QStringList texts;
};

// Each test starts with pDcDTTP read from kModelTypes and without pVCC, and
// tears both down with needemit false.
class ModelTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A VCC named VCC_1 in pVCC with one ICC named ICC_1.
    void MakeModel();
    DcDA* AddDA(StringList& vars, QObject* owner, const std::string& name,
                const std::string& type = "INT16");
    DcDO* AddDO(StringList& vars, QObject* owner, const std::string& name,
                const std::string& type = "Data_RealQ");

    DcVCC* vcc = nullptr;
    DcLD* icc = nullptr;
};

// A variable made as the readers make it, with its texts only, put in list.
template <class T>
T* AddRaw(StringList& list, QObject* owner, const std::string& name, const std::string& type = "") {
    T* variable = new T(owner);
    variable->name = name;
    variable->type = type;
    list.AddObject(name, variable, true);
    return variable;
}

// The value of a variable as text, empty without a value.
std::string ValueOf(DcDA* variable);
// The names of the children of node, joined with ",".
std::string ChildNames(myNode* node);
