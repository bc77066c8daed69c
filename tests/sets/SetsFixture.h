// A small model for the tests of data sets and transfer sets: a VCC with one
// ICC, over a template set of the basic types that the sets use.
#pragma once

#include <string>

#include "common/ModelWorld.h"
#include "model/DcDataSet.h"
#include "model/DcNextTransferSet.h"
#include "model/DcTransSet.h"

// The basic types of data sets and transfer sets as DcTemplate text, with
// "BitString5" or without it.
std::string SetTypes(bool withBitString5 = true);

class SetsTest : public ModelWorldTest {
protected:
    void SetUp() override;

    DcDataSet* AddDataSet(StringList& sets, QObject* owner, const std::string& name);
    DcTransSet* AddTransSet(const std::string& name);
};

// The value of a member by path, empty when the path fails.
std::string Var(DcDO* object, const std::string& path);
