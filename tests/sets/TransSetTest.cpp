#include "SetsFixture.h"
#include "support/MyBuf.h"

using TransSetTest = SetsTest;

namespace {

const std::string kMembers = "DataSetName,StartTime,Interval,TLE,BufferTime,IntegrityCheck,"
                             "DSConditionsRequested,BlockData,Critical,RBE,Status,"
                             "EventCodeRequested";

DcDA* Leaf(DcDO* object, const char* name) {
    return static_cast<DcDA*>(object->Members.Objects(object->Members.IndexOf(name)));
}

DcTransSet* ReadInto(DcTransSet* set, const char* xml) {
    XmlText text(xml);
    set->DecodeXML(text.Root());
    return set;
}

void SetParts(DcTransSet* set, const char* scope, const char* domain, const char* name) {
    set->ResetDataSetName();
    set->PutVar("DataSetName$Scope", scope);
    set->PutVar("DataSetName$DomainName", domain);
    set->PutVar("DataSetName$Name", name);
}

} // namespace

TEST_F(TransSetTest, ConstructorsMakeTheMembersOrOnlyDataSetName) {
    DcTransSet* set = AddTransSet("TrSet_1");
    EXPECT_EQ(Texts(set->Members), kMembers);
    ASSERT_NE(set->DataSetName, nullptr);
    EXPECT_EQ(Texts(set->DataSetName->Members), "Scope,DomainName,Name");
    // The set owns the parts that DataSetName lists: their full name skips both.
    DcDA* scope = Leaf(set->DataSetName, "Scope");
    EXPECT_EQ(scope->type, "UINT8");
    EXPECT_EQ(scope->GetFullName(), "ICC_1/Scope");
    EXPECT_FALSE(Leaf(set, "Status")->CanA);
    DcDA* conditions = Leaf(set, "DSConditionsRequested");
    EXPECT_EQ(conditions->Value->Tostring(), "00100");
    EXPECT_EQ(conditions->BitNames.toStdString(),
              "IntervalTimeOut,IntegrityTimeOut,ObjectChange,OperatorRequest,OtherExternalEvent");

    DcTransSet bare("", true, nullptr);
    EXPECT_EQ(Texts(bare.Members), "DataSetName");
    EXPECT_FALSE(bare.Service);
    bare.InitVar();
    EXPECT_EQ(Texts(bare.Members), kMembers);

    // A template set without "BitString5" ends the members before BlockData.
    DcDTTP* types = pDcDTTP;
    pDcDTTP = ReadTypes(SetTypes(false));
    DcTransSet* partial = AddTransSet("TrSet_3");
    EXPECT_EQ(Texts(partial->Members),
              "DataSetName,StartTime,Interval,TLE,BufferTime,IntegrityCheck");
    EXPECT_FALSE(partial->SetAttFromStr("DSConditionRequested", "10100"));
    delete pDcDTTP;
    pDcDTTP = types;
}

TEST_F(TransSetTest, AttributeFormTakesDSConditionsRequestedForTheEventCode) {
    DcTransSet* set = ReadInto(AddTransSet(""),
                               "<DcTransSet name=\"TrSet_1\" StartTime=\"12\" TLE=\"4\" "
                               "DSConditionsRequested=\"7\" BlockData=\"true\" Critical=\"y\"/>");
    EXPECT_EQ(set->TLE, 4);
    EXPECT_EQ(set->EventCodeRequested, 7);
    EXPECT_EQ(Var(set, "EventCodeRequested"), "7");
    EXPECT_EQ(Var(set, "DSConditionsRequested"), "00100");
    EXPECT_EQ(Var(set, "BlockData"), "true");
    // The field reads "y" as true, the boolean member only "true".
    EXPECT_TRUE(set->Critical);
    EXPECT_EQ(Var(set, "Critical"), "false");

    XmlText tsBase(TSbase.c_str());
    ASSERT_FALSE(tsBase.doc.Error());
    RakeTrans(tsBase.Document());
    ASSERT_NE(pTrans, nullptr);
    EXPECT_EQ(pTrans->DSDomain, "domain");
    EXPECT_EQ(pTrans->DSConditionText, "00100");
    // The name without "s" is one member more; the parts of the name are
    // listed beside those of InitVar.
    EXPECT_EQ(Texts(pTrans->Members), kMembers + ",DSConditionRequested");
    EXPECT_EQ(Texts(pTrans->DataSetName->Members), "Scope,DomainName,Name,Scope,DomainName,Name");
    delete pTrans;

    XmlText two("<a><b><DcTransSet name=\"one\"/></b><DcTransSet name=\"two\"/></a>");
    RakeTrans(two.Document());
    EXPECT_EQ(pTrans->name, "one");
    delete pTrans;
    pTrans = nullptr;
}

TEST_F(TransSetTest, ToXMLBreaksTheLineAfterMembersZeroFourAndEight) {
    DcTransSet set("", true, nullptr);
    set.name = "T";
    set.desc = "d";
    const std::string gap = "\r\n          ";
    std::string expected = "    <DcTransSet name = \"T\" desc=\"d\" >\r\n"
                           "  <DcDO  name = \"DataSetName\" type = \"\" desc = \"\" refDSRT = \"\" "
                           "refDS = \"\" >\r\n  </DcDO> \r\n\r\n" +
                           gap;
    for (int i = 1; i <= 8; ++i) {
        DcDA* member = new DcDA(&set);
        member->name = "M" + std::to_string(i);
        set.Members.AddObject(member->name, member, true);
        expected += "  <DcDA  name = \"" + member->name +
                    "\" type = \"\" desc = \"\" svalue = \"\" refDSRT = \"\" ByteCount=\"0\"  "
                    "unused=\"0\" refDS = \"\"  flagAbility = \"0\" /> \r\n\r\n" +
                    (i % 4 == 0 ? gap : "");
    }
    EXPECT_EQ(set.ToXML(4).toStdString(), expected + "    </DcTransSet>\r\n");
}

TEST_F(TransSetTest, ChildElementsTakeThePlaceOfMembersOfTheSameName) {
    DcTransSet* set = ReadInto(AddTransSet(""),
                               "<DcTransSet><DcDA name=\"StartTime\" type=\"INT32\" svalue=\"42\"/>"
                               "<DcDO name=\"DataSetName\"><DcDA name=\"Name\" "
                               "type=\"VISIBLE_STRING32\" svalue=\"DS_1\"/></DcDO>"
                               "<DcDA name=\"Extra\" type=\"INT16\"/></DcTransSet>");
    EXPECT_EQ(Texts(set->Members), kMembers + ",Extra");
    EXPECT_EQ(Var(set, "StartTime"), "42");
    EXPECT_EQ(Var(set, "DataSetName$Name"), "DS_1");

    // A leaf read as DataSetName, or a structure read under a part's name,
    // leaves nothing dangling and no structure listing itself.
    DcTransSet* leaf = ReadInto(AddTransSet(""), "<DcTransSet><DcDA name=\"DataSetName\"/>"
                                                 "<DcDO name=\"Scope\"/></DcTransSet>");
    DcDO* scope = leaf->DataSetName;
    EXPECT_EQ(scope, leaf->Members.Objects(leaf->Members.IndexOf("Scope")));
    leaf->InitVar();
    EXPECT_EQ(Texts(scope->Members), "DomainName,Name");
    DcTransSet* noName = ReadInto(AddTransSet(""), "<DcTransSet><DcDA name=\"DataSetName\"/>"
                                                   "</DcTransSet>");
    EXPECT_EQ(noName->DataSetName, nullptr);
    noName->ResetDataSetName();
    noName->GetVarFromDA();
    set->AssignSelf(noName);
    EXPECT_FALSE(CheckValidTrset(noName, 1));
}

TEST_F(TransSetTest, DataSetNamePartsAreWrittenAndReadBackIntoTheFields) {
    DcDataSet* dataSet = AddDataSet(icc->DataSets, icc, "DS_1");
    DcTransSet* set = AddTransSet("TrSet_1");
    set->ResetDataSetName();
    EXPECT_EQ(Var(set, "DataSetName$Name"), "");
    set->SetVar();
    EXPECT_EQ(Var(set, "DataSetName$Name"), "H");

    SetParts(set, "1", "ICC_1", "DS_1");
    set->PutVar("Interval", "7");
    set->PutVar("Status", "true");
    set->DSDomain = "old";
    set->GetVarFromDA();
    EXPECT_EQ(set->Interval, 7);
    EXPECT_TRUE(set->Status);
    EXPECT_EQ(set->DSName, "DS_1");
    // The domain and the conditions are read under names that no member of
    // InitVar has.
    EXPECT_EQ(set->DSDomain, "");
    EXPECT_EQ(set->DSConditions.GetOneCount(), 0);
    EXPECT_EQ(set->RefDS, dataSet);

    set->SetAttFromStr("DSConditionRequested", "10100");
    set->PutVar("DataSetName$Name", "DS_X");
    set->GetVarFromDA();
    EXPECT_EQ(set->DSConditions.BufToStr().substr(0, 3), "101");
    EXPECT_EQ(set->RefDS, nullptr);

    // AssignSelf copies member values by index; a bare set has no members to take them.
    DcTransSet* copy = AddTransSet("TrSet_2");
    copy->AssignSelf(set);
    EXPECT_EQ(Var(copy, "Interval"), "7");
    EXPECT_EQ(Var(copy, "DataSetName$Name"), "DS_X");
    DcTransSet bare("", true, nullptr);
    bare.AssignSelf(set);
    EXPECT_EQ(bare.Members.Count, 1);
}

TEST_F(TransSetTest, CheckValidTrsetTestsDomainScopeAndDataSetThenStatusAgainstMode) {
    AddDataSet(icc->DataSets, icc, "DS_1");
    DcTransSet* set = AddTransSet("TrSet_1");
    SetParts(set, "1", "ICC_1", "DS_1");
    set->PutVar("Status", "false");
    EXPECT_TRUE(CheckValidTrset(set, 1));
    EXPECT_FALSE(CheckValidTrset(set, 0));
    set->PutVar("Status", "true");
    EXPECT_TRUE(CheckValidTrset(set, 0));
    for (const auto& parts : {std::array<const char*, 3>{"1", "ICC_2", "DS_1"},
                              std::array<const char*, 3>{"0", "ICC_1", "DS_1"},
                              std::array<const char*, 3>{"1", "ICC_1", "DS_9"}}) {
        SetParts(set, parts[0], parts[1], parts[2]);
        EXPECT_FALSE(CheckValidTrset(set, 0)) << parts[1];
        EXPECT_FALSE(CheckValidTrset(set, 1)) << parts[1];
    }

    // Outside an ICC the VCC's data sets count, and pVCC becomes that VCC.
    AddDataSet(vcc->DataSets, vcc, "DS_V");
    DcTransSet* atVcc = new DcTransSet("TS", false, vcc);
    SetParts(atVcc, "0", "", "DS_V");
    pVCC = nullptr;
    EXPECT_TRUE(CheckValidTrset(atVcc, 1));
    EXPECT_EQ(pVCC, vcc);
    DcTransSet orphan("TS", false, nullptr);
    EXPECT_FALSE(CheckValidTrset(&orphan, 1));
    EXPECT_EQ(pVCC, vcc);
}

TEST_F(TransSetTest, NextTransferSetTakesTheLastFreeTransferSet) {
    DcTransSet* first = AddTransSet("TrSet_1");
    DcTransSet* second = AddTransSet("TrSet_2");
    DcNextTransferSet* next = new DcNextTransferSet(icc);
    next->InitVar();
    EXPECT_EQ(Leaf(next, "Scope")->type, "INT8");
    EXPECT_EQ(next->ToXML(2).toStdString(),
              "  <DcNextTransferSet name = \"Next_DSTransfer_Set\" />\r\n");

    EXPECT_TRUE(next->FindFreeTS());
    EXPECT_TRUE(second->Used);
    EXPECT_FALSE(first->Used);
    EXPECT_EQ(Var(next, "DomainName"), "ICC_1");
    EXPECT_EQ(Var(next, "Name"), "TrSet_2");
    EXPECT_EQ(Var(second, "RBE"), "true");
    EXPECT_TRUE(next->FindFreeTS());
    EXPECT_EQ(next->CurName, "TrSet_1");
    EXPECT_FALSE(next->FindFreeTS());
    EXPECT_EQ(Var(next, "Name"), "TrSet_1");
    EXPECT_FALSE(DcNextTransferSet().FindFreeTS());
}
