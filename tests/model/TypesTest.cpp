// Base type tables, their lookups, the class table and the object core.
#include <cstring>

#include "ModelFixture.h"
#include "support/myNode.h"

namespace {

int Row(const char* name) {
    return FindDAType2(DATypes, 0, DATypesCount - 1, name);
}

} // namespace

TEST(BaseTypes, FindDAType2FollowsAliasesToABaseRow) {
    int row = Row("BITSTRING5");
    ASSERT_GE(row, 0);
    EXPECT_STREQ(DATypes[row].name, "BITSTRING5");
    EXPECT_EQ(DATypes[row].id, 13);
    // The result is the row of the sorted table, not the id.
    EXPECT_EQ(row, 2);

    row = Row("DATA_STATE");
    ASSERT_GE(row, 0);
    EXPECT_STREQ(DATypes[row].name, "BITSTRING");
    EXPECT_EQ(DATypes[row].id, 9);

    // Two steps: DATA_TIMESTAMP, GMTBASEDS, INT32.
    row = Row("DATA_TIMESTAMP");
    ASSERT_GE(row, 0);
    EXPECT_STREQ(DATypes[row].name, "INT32");
    EXPECT_EQ(DATypes[row].size, 4);

    // Aliases are upper-cased once at start, so the mixed-case name fails.
    EXPECT_EQ(Row("Data_Real"), -1);
    EXPECT_EQ(Row("NOSUCHTYPE"), -1);
    EXPECT_EQ(Row(""), -1);
    EXPECT_EQ(Row("A_NAME_LONGER_THAN_ANY_ROW_OF_THE_TABLES_AT_ALL"), -1);
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
    EXPECT_EQ(FindDAType(DATypes, 0, DATypesCount - 1, "A"), -1);
    EXPECT_EQ(FindDAType(DATypes, 0, DATypesCount - 1, "BOOLEAN"), -1);
    EXPECT_EQ(FindDAType(DATypes, 0, DATypesCount - 1, "ZZZ"), -1);
    char target[32] = "unchanged";
    EXPECT_EQ(FindSecond("INT32", target, 0, SecTypesCount - 1), -1);
    EXPECT_STREQ(target, "unchanged");
}

TEST(BaseTypes, GetTypeKnowsFourTypes) {
    EXPECT_EQ(GetType("BOOL"), 1);
    EXPECT_EQ(GetType("INT32"), 2);
    EXPECT_EQ(GetType("FLOAT32"), 4);
    EXPECT_EQ(GetType("VISIBLE_STRING32"), 5);
    EXPECT_EQ(GetType("INT16"), 0);
    EXPECT_EQ(GetType("bool"), 0);
}

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
    const struct {
        DcICCPBase* object;
        const char* name;
        int code;
    } rows[] = {{&daType, "DcDAType", 1},
                {&da, "DcDA", 2},
                {&doType, "DcDOType", 3},
                {&dobject, "DcDO", 4},
                {&ld, "DcLD", 6},
                {&dttp, "DcDTTP", 10},
                {&vcc, "DcVCC", 20},
                {&ob, "ObICCP", 50},
                {&dataSet, "DcDataSet", 51},
                {&next, "DcNextTransferSet", 53}};
    for (const auto& row : rows) {
        EXPECT_EQ(row.object->ClassName(), row.name);
        EXPECT_EQ(row.object->ObType, row.code) << row.name;
        EXPECT_EQ(TabDcObCode(row.name), row.code);
    }
    EXPECT_EQ(TabDcObCode("DcTransSet"), 52);
    EXPECT_EQ(TabDcObCode("DcICCPBase"), 0);
    EXPECT_EQ(TabDcObCode("DcNothing"), -1);
    EXPECT_EQ(TabDcObCount, 12);
}

TEST_F(ModelTest, IsHostObTypeWalksUpTheOwners) {
    MakeModel();
    DcDO* structure = AddDO(icc->Vars, icc, "S");
    DcICCPBase* member = ListOb(structure->Members, 0);
    ASSERT_NE(member, nullptr);
    EXPECT_EQ(member->IsHostObType("DcDA"), member);
    EXPECT_EQ(member->IsHostObType("DcDO"), structure);
    EXPECT_EQ(member->IsHostObType("DcLD"), icc);
    EXPECT_EQ(member->IsHostObType("DcVCC"), vcc);
    EXPECT_EQ(member->IsHostObType("DcDataSet"), nullptr);
    DcDA lone;
    EXPECT_EQ(lone.IsHostObType("DcVCC"), nullptr);
    EXPECT_EQ(lone.IsHostObType("DcDA"), &lone);
}

TEST_F(ModelTest, IsStructSetFlChangeAndSetUseInTestReachMembers) {
    MakeModel();
    DcDO* structure = AddDO(vcc->Vars, vcc, "S", "Data_RealQTimeTag");
    DcDO* inner = qobject_cast<DcDO*>(ListOb(structure->Members, 0));
    ASSERT_NE(inner, nullptr);
    DcICCPBase* leaf = ListOb(inner->Members, 1);
    ASSERT_NE(leaf, nullptr);
    EXPECT_TRUE(structure->IsStruct());
    EXPECT_FALSE(leaf->IsStruct());
    DcTransSet transSet("", true, nullptr);
    EXPECT_TRUE(transSet.IsStruct());

    structure->setFlChange(true);
    EXPECT_TRUE(structure->flChange && inner->flChange && leaf->flChange);
    inner->setFlChange(false);
    EXPECT_TRUE(structure->flChange);
    EXPECT_FALSE(leaf->flChange);

    structure->SetUseInTest(true);
    EXPECT_TRUE(structure->UseInTest && inner->UseInTest && leaf->UseInTest);
    DcDA* da = AddDA(vcc->Vars, vcc, "A");
    da->SetUseInTest(true);
    EXPECT_TRUE(da->UseInTest);
}
