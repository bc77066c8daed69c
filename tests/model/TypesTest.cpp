// Base type tables, their lookups, the class table and the object core.
#include <cstring>
#include <initializer_list>
#include <string>
#include <utility>

#include "ModelFixture.h"
#include "support/myNode.h"

namespace {

int Row(const char* name) {
    return FindDAType2(DATypes, 0, DATypesCount - 1, name);
}

} // namespace

TEST(BaseTypes, FindDAType2FollowsAliasesToABaseRow) {
    // The result is the row of the sorted table, not the id; DATA_TIMESTAMP
    // takes two steps, through GMTBASEDS to INT32.
    const struct {
        const char *alias, *base;
        int row;
    } rows[] = {{"BITSTRING5", "BITSTRING5", 2},
                {"DATA_STATE", "BITSTRING", -1},
                {"DATA_TIMESTAMP", "INT32", -1}};
    for (const auto& r : rows) {
        int row = Row(r.alias);
        ASSERT_GE(row, 0) << r.alias;
        EXPECT_STREQ(DATypes[row].name, r.base);
        if (r.row >= 0) {
            EXPECT_EQ(row, r.row);
        }
    }
    // Aliases are upper-cased once at start, so the mixed-case name fails.
    for (const char* missing :
         {"Data_Real", "NOSUCHTYPE", "", "A_NAME_LONGER_THAN_ANY_ROW_OF_THE_TABLES_AT_ALL"})
        EXPECT_EQ(Row(missing), -1) << missing;
}

TEST(BaseTypes, TablesAreSortedAndEveryRowIsFound) {
    for (int i = 0; i < DATypesCount; ++i) {
        if (i > 0) {
            EXPECT_LT(strcmp(DATypes[i - 1].name, DATypes[i].name), 0);
        }
        EXPECT_EQ(FindDAType(DATypes, 0, DATypesCount - 1, DATypes[i].name), i);
    }
    for (int i = 0; i < SecTypesCount; ++i) {
        if (i > 0) {
            EXPECT_LT(strcmp(SecTypesA[i - 1].alias, SecTypesA[i].alias), 0);
        }
        char target[32] = "";
        EXPECT_EQ(FindSecond(SecTypesA[i].alias, target, 0, SecTypesCount - 1), i);
        EXPECT_STREQ(target, SecTypesA[i].target);
    }
    // Names before, between and after the rows.
    for (const char* missing : {"A", "BOOLEAN", "ZZZ"})
        EXPECT_EQ(FindDAType(DATypes, 0, DATypesCount - 1, missing), -1) << missing;
    char target[32] = "unchanged";
    EXPECT_EQ(FindSecond("INT32", target, 0, SecTypesCount - 1), -1);
    EXPECT_STREQ(target, "unchanged");
}

TEST(BaseTypes, GetTypeKnowsFourTypes) {
    const std::pair<const char*, int> rows[] = {{"BOOL", 1}, {"FLOAT32", 4}, {"bool", 0}};
    for (const auto& r : rows)
        EXPECT_EQ(GetType(r.first), r.second) << r.first;
}

// Each object's ObType is the code the class table gives its class name.
TEST(ClassTable, EveryClassHasItsNameAndCode) {
    DcDAType daType;
    DcDA da;
    DcDOType doType;
    DcDO dobject;
    DcLD ld;
    DcDTTP dttp;
    DcVCC vcc;
    ObICCP ob;
    DcDataSet dataSet("DS", nullptr);
    DcNextTransferSet next;
    for (DcICCPBase* object : std::initializer_list<DcICCPBase*>{
             &daType, &da, &doType, &dobject, &ld, &dttp, &vcc, &ob, &dataSet, &next}) {
        const std::string name = object->ClassName().toStdString();
        EXPECT_GT(object->ObType, 0) << name;
        EXPECT_EQ(TabDcObCode(name.c_str()), object->ObType) << name;
    }
    EXPECT_EQ(TabDcObCode("DcTransSet"), 52);
    EXPECT_EQ(TabDcObCode("DcICCPBase"), 0);
    EXPECT_EQ(TabDcObCode("DcNothing"), -1);
}

TEST_F(ModelTest, IsHostObTypeWalksUpTheOwners) {
    MakeModel();
    DcDO* structure = AddDO(icc->Vars, icc, "S");
    DcICCPBase* member = ListOb(structure->Members, 0);
    ASSERT_NE(member, nullptr);
    EXPECT_EQ(member->IsHostObType("DcDA"), member);
    EXPECT_EQ(member->IsHostObType("DcDO"), structure);
    EXPECT_EQ(member->IsHostObType("DcVCC"), vcc);
    EXPECT_EQ(member->IsHostObType("DcDataSet"), nullptr);
}
