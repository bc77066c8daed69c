// A template set of a few basic and structured types, and helpers to read
// what the model reports.
#pragma once

#include <QObject>
#include <QStringList>
#include <string>

#include "common/ModelWorld.h"
#include "model/ICCPTypes_Nat.h"

// Basic types, two structured types and the types of a transfer set, as
// DcTemplate text.
extern const char* const kModelTypes;

// Collects the texts that an object reports through Put2SLog.
class LogRecorder {
public:
    void Listen(DcICCPBase* object);
    QStringList texts;
};

// Each test starts with pDcDTTP read from kModelTypes and without pVCC.
class ModelTest : public ModelWorldTest {
protected:
    void SetUp() override {
        needemit = false;
        pVCC = nullptr;
        ASSERT_NE(ReadTypes(kModelTypes), nullptr);
    }
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
