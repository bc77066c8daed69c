// A small model for the tests of data sets and transfer sets: a VCC with one
// ICC, over a template set of the basic types that the sets use.
#pragma once

#include <gtest/gtest.h>
#include <string>

#include "model/DcDA.h"
#include "model/DcDO.h"
#include "model/DcDataSet.h"
#include "model/DcLD.h"
#include "model/DcNextTransferSet.h"
#include "model/DcTemplates.h"
#include "model/DcTransSet.h"
#include "model/DcVCC.h"

// The basic types of data sets and transfer sets, as DcTemplate text.
extern const char* const kSetTypes;
// The same without "BitString5".
extern const char* const kTypesWithoutBitString5;

// Reads the DcTemplate element of xml into a new template set.
DcDTTP* ReadTypes(const char* xml);

class SetsTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A variable of that type added to vars with owner as its owner.
    DcDA* AddVar(StringList& vars, QObject* owner, const std::string& name,
                 const std::string& type = "INT16");
    DcLD* AddICC(const std::string& name);
    DcDataSet* AddDataSet(StringList& sets, QObject* owner, const std::string& name);
    DcTransSet* AddTransSet(DcLD* ld, const std::string& name);

    DcVCC* vcc = nullptr;
    DcLD* icc = nullptr;
};

// The value of a member of a structure by path, empty when the path fails.
std::string Var(DcDO* object, const std::string& path);
// The entry texts of a list, joined with ",".
std::string Texts(const StringList& list);
