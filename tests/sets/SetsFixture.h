// A small model for the tests of data sets and transfer sets: a VCC with one
// ICC, over a template set of the basic types that the sets use.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <tinyxml.h>

#include "model/DcDA.h"
#include "model/DcDO.h"
#include "model/DcDataSet.h"
#include "model/DcLD.h"
#include "model/DcNextTransferSet.h"
#include "model/DcTemplates.h"
#include "model/DcTransSet.h"
#include "model/DcVCC.h"

// The basic types of data sets and transfer sets as DcTemplate text, with
// "BitString5" or without it.
std::string SetTypes(bool withBitString5 = true);
DcDTTP* ReadTypes(const std::string& xml);

// A parsed document that lives as long as the object.
struct XmlText {
    explicit XmlText(const char* xml) { doc.Parse(xml); }
    TiXmlElement* Root() { return doc.RootElement(); }
    TiXmlNode* Document() { return &doc; }
    TiXmlDocument doc;
};

class SetsTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    DcDA* AddVar(StringList& vars, QObject* owner, const std::string& name);
    DcDataSet* AddDataSet(StringList& sets, QObject* owner, const std::string& name);
    DcTransSet* AddTransSet(const std::string& name);

    DcVCC* vcc = nullptr;
    DcLD* icc = nullptr;
};

// The value of a member by path, empty when the path fails.
std::string Var(DcDO* object, const std::string& path);
// The entry texts of a list, joined with ",".
std::string Texts(const StringList& list);
