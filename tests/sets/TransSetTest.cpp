#include <tinyxml.h>

#include "SetsFixture.h"
#include "support/MyBuf.h"

using TransSetTest = SetsTest;

namespace {

const char* const kMemberNames = "DataSetName,StartTime,Interval,TLE,BufferTime,IntegrityCheck,"
                                 "DSConditionsRequested,BlockData,Critical,RBE,Status,"
                                 "EventCodeRequested";

DcICCPBase* Member(DcDO* object, const char* name) {
    return static_cast<DcICCPBase*>(object->Members.Objects(object->Members.IndexOf(name)));
}

DcDA* Leaf(DcDO* object, const char* name) {
    return static_cast<DcDA*>(Member(object, name));
}

// Reads the first element of xml into a new transfer set of ld.
DcTransSet* ReadTransSet(DcLD* ld, const char* xml) {
    TiXmlDocument doc;
    doc.Parse(xml);
    DcTransSet* set = new DcTransSet("", false, ld);
    set->DecodeXML(doc.RootElement());
    ld->TransSets.AddObject(set->name, set, true);
    return set;
}

// The line of a DcDA without value, template or references at indent 2.
std::string PlainDAat2(const std::string& name) {
    return "  <DcDA  name = \"" + name +
           "\" type = \"X\" desc = \"\" svalue = \"\" refDSRT = \"\" ByteCount=\"0\"  unused=\"0\" "
           "refDS = \"\"  flagAbility = \"0\" /> \r\n";
}

} // namespace

TEST_F(TransSetTest, FullConstructorMakesTheMembersWithTypesValuesAndDescriptions) {
    DcTransSet* set = AddTransSet(icc, "TrSet_1");
    EXPECT_EQ(set->ClassName().toStdString(), "DcTransSet");
    EXPECT_EQ(set->ObType, 52);
    EXPECT_TRUE(set->IsStruct());
    EXPECT_TRUE(set->Service);
    EXPECT_EQ(set->Limit0, 480);
    EXPECT_EQ(set->Limit1, 0);
    EXPECT_EQ(set->Limit2, 10000);
    EXPECT_EQ(set->RefDS, nullptr);
    EXPECT_FALSE(set->Used);
    EXPECT_EQ(set->DSConditions.BitLen, 5);
    EXPECT_EQ(set->DSConditions.ByteLen, 1);

    EXPECT_EQ(Texts(set->Members), kMemberNames);
    ASSERT_EQ(set->DataSetName, set->Members.Objects(0));
    EXPECT_EQ(set->DataSetName->Owner, set);
    EXPECT_FALSE(set->DataSetName->CanA);
    EXPECT_EQ(Texts(set->DataSetName->Members), "Scope,DomainName,Name");
    DcDA* scope = Leaf(set->DataSetName, "Scope");
    EXPECT_EQ(scope->type, "UINT8");
    EXPECT_EQ(Leaf(set->DataSetName, "Name")->type, "VISIBLE_STRING32");
    // The set owns the three parts that DataSetName lists, so their full name
    // skips both.
    EXPECT_EQ(scope->Owner, set);
    EXPECT_EQ(scope->GetFullName(), "ICC_1/Scope");
    for (int i = 0; i < set->Members.Count; ++i)
        EXPECT_FALSE(static_cast<DcICCPBase*>(set->Members.Objects(i))->CanA) << i;
    EXPECT_FALSE(scope->CanA);

    EXPECT_EQ(Leaf(set, "StartTime")->type, "INT32");
    EXPECT_EQ(Leaf(set, "TLE")->type, "INT16");
    EXPECT_EQ(Leaf(set, "RBE")->type, "BOOL");
    EXPECT_EQ(Leaf(set, "EventCodeRequested")->type, "INT32");
    DcDA* conditions = Leaf(set, "DSConditionsRequested");
    EXPECT_EQ(conditions->type, "BitString5");
    EXPECT_EQ(conditions->Value->Tostring(), "00100");
    EXPECT_EQ(conditions->BitNames.toStdString(),
              "IntervalTimeOut,IntegrityTimeOut,ObjectChange,OperatorRequest,OtherExternalEvent");
    EXPECT_EQ(Var(set, "StartTime"), "0");
    EXPECT_EQ(Var(set, "BlockData"), "false");
    // An empty text leaves a string at its template default.
    EXPECT_EQ(Var(set, "DataSetName$Name"), "Str");
    EXPECT_EQ(Var(set, "DataSetName$Scope"), "0");

    EXPECT_EQ(Leaf(set, "StartTime")->desc, "время начала  мониторинга состояния");
    EXPECT_EQ(Leaf(set, "RBE")->desc,
              "true -- в отчет включаются только измененные значения объекта\r\n"
              " \tfalse --о все значения должны быть включены в oтчет");
    EXPECT_EQ(Leaf(set, "Status")->desc, "");
    EXPECT_EQ(ListDescTransCount, 9);
    EXPECT_EQ(TabObTransSetCount, 13);
}

TEST_F(TransSetTest, BareConstructorWithoutNameMakesOnlyAnUnownedDataSetName) {
    DcTransSet bare("", true, nullptr);
    EXPECT_EQ(Texts(bare.Members), "DataSetName");
    ASSERT_NE(bare.DataSetName, nullptr);
    EXPECT_EQ(bare.DataSetName->Owner, nullptr);
    EXPECT_EQ(bare.DataSetName->Members.Count, 0);
    EXPECT_FALSE(bare.Service);
    EXPECT_EQ(bare.Limit0, 0);
    EXPECT_EQ(bare.ObType, 52);

    // InitVar completes it without a second DataSetName.
    bare.InitVar();
    EXPECT_EQ(Texts(bare.Members), kMemberNames);
    EXPECT_EQ(bare.DataSetName->Members.Count, 3);

    DcTransSet named("TrSet_2", true, nullptr);
    EXPECT_EQ(Texts(named.Members), kMemberNames);
    EXPECT_TRUE(named.Service);
    EXPECT_EQ(named.Limit2, 10000);
}

TEST_F(TransSetTest, InitVarStopsAtTheFirstTypeMissingFromTheTemplates) {
    DcDTTP* types = pDcDTTP;
    pDcDTTP = ReadTypes(kTypesWithoutBitString5);
    {
        DcTransSet set("TrSet_1", false, nullptr);
        EXPECT_EQ(Texts(set.Members),
                  "DataSetName,StartTime,Interval,TLE,BufferTime,IntegrityCheck");
        EXPECT_EQ(set.DataSetName->Members.Count, 3);
        // A member of the attribute form that can't be made reports false.
        EXPECT_FALSE(set.SetAttFromStr("DSConditionRequested", "10100"));
        EXPECT_EQ(set.DSConditionText, "10100");
        EXPECT_TRUE(set.SetAttFromStr("Interval", "4"));
    }
    delete pDcDTTP;
    pDcDTTP = types;
}

TEST_F(TransSetTest, AttributeFormTakesDSConditionsRequestedForTheEventCode) {
    DcTransSet* set = ReadTransSet(
        icc, "<DcTransSet name=\"TrSet_1\" desc=\"d\" DataSetName=\"x\" StartTime=\"12\" "
             "Interval=\"3\" TLE=\"4\" BufferTime=\"5\" IntegrityCheck=\"6\" "
             "DSConditionsRequested=\"7\" BlockData=\"true\" Critical=\"y\" "
             "RBE=\"1\" Status=\"no\"/>");
    EXPECT_EQ(set->name, "TrSet_1");
    EXPECT_EQ(set->desc, "d");
    EXPECT_EQ(set->StartTime, 12);
    EXPECT_EQ(set->Interval, 3);
    EXPECT_EQ(set->TLE, 4);
    EXPECT_EQ(set->BufferTime, 5);
    EXPECT_EQ(set->IntegrityCheck, 6);
    EXPECT_EQ(set->EventCodeRequested, 7);
    EXPECT_TRUE(set->BlockData);
    EXPECT_TRUE(set->Critical);
    EXPECT_TRUE(set->RBE);
    EXPECT_FALSE(set->Status);
    EXPECT_EQ(Var(set, "StartTime"), "12");
    EXPECT_EQ(Var(set, "EventCodeRequested"), "7");
    EXPECT_EQ(Var(set, "DSConditionsRequested"), "00100");
    EXPECT_EQ(Var(set, "BlockData"), "true");
    // A boolean member takes only "true"; its field reads "y" as true.
    EXPECT_EQ(Var(set, "Critical"), "false");
    EXPECT_EQ(Texts(set->Members), kMemberNames);

    // With the real attribute after it the event code is corrected, and the
    // name without "s" makes a member of its own.
    EXPECT_TRUE(set->SetAttFromStr("EventCodeRequested", "0"));
    EXPECT_EQ(set->EventCodeRequested, 0);
    EXPECT_TRUE(set->SetAttFromStr("DSConditionRequested", "10100"));
    EXPECT_EQ(set->DSConditionText, "10100");
    EXPECT_EQ(Texts(set->Members), std::string(kMemberNames) + ",DSConditionRequested");
    EXPECT_EQ(Var(set, "DSConditionRequested"), "10100");
    EXPECT_TRUE(set->SetAttFromStr("Unknown", "9"));
    EXPECT_EQ(set->EventCodeRequested, 9);
}

TEST_F(TransSetTest, RakeTransReadsTheDefaultTransferSet) {
    const char* const defaultSet =
        "<?xml version=\"1.0\"?>\r\n"
        "<schema xmlns=\"http://www.w3.org/2001/XMLSchema\">\r\n"
        "<DcTransSet name = \"noname\"  Scope = \"1\"  DomainName = \"domain\" Name =\"\"   "
        "StartTime = \"0\"  Interval=\"0\" TLE = \"0\" BufferTime=\"0\" IntegrityCheck=\"0\"  "
        "DSConditionRequested = \"00100\"\r\n"
        "BlockData = \"false\"   Critical= \"false\"  RBE = \"true\" Status= \"false\"  "
        "EventCodeRequested = \"0\"   /> \r\n"
        "</schema>";
    TiXmlDocument doc;
    doc.Parse(defaultSet);
    ASSERT_FALSE(doc.Error());
    RakeTrans(&doc);
    ASSERT_NE(pTrans, nullptr);
    EXPECT_EQ(pTrans->name, "noname");
    EXPECT_EQ(pTrans->Owner, nullptr);
    EXPECT_EQ(pTrans->DSScope, 1);
    EXPECT_EQ(pTrans->DSDomain, "domain");
    EXPECT_EQ(pTrans->DSName, "");
    EXPECT_EQ(pTrans->DSConditionText, "00100");
    EXPECT_TRUE(pTrans->RBE);
    EXPECT_EQ(Texts(pTrans->Members), std::string(kMemberNames) + ",DSConditionRequested");
    // The attribute form lists its own parts of the name beside those of
    // InitVar.
    EXPECT_EQ(Texts(pTrans->DataSetName->Members), "Scope,DomainName,Name,Scope,DomainName,Name");
    EXPECT_EQ(Leaf(pTrans->DataSetName, "DomainName")->Owner, pTrans);
    delete pTrans;
    pTrans = nullptr;

    // Only the first transfer set of a document is read; none leaves pTrans.
    TiXmlDocument two;
    two.Parse("<a><b/><c><DcTransSet name=\"one\"/></c><DcTransSet name=\"two\"/></a>");
    RakeTrans(&two);
    ASSERT_NE(pTrans, nullptr);
    EXPECT_EQ(pTrans->name, "one");
    delete pTrans;
    pTrans = nullptr;
    TiXmlDocument none;
    none.Parse("<a><b/></a>");
    RakeTrans(&none);
    RakeTrans(nullptr);
    EXPECT_EQ(pTrans, nullptr);
}

TEST_F(TransSetTest, ToXMLBreaksTheLineAfterMembersZeroFourAndEight) {
    DcTransSet set("", true, nullptr);
    set.name = "T";
    set.desc = "d";
    for (int i = 1; i <= 8; ++i) {
        DcDA* member = new DcDA(&set);
        member->name = "M" + std::to_string(i);
        member->type = "X";
        set.Members.AddObject(member->name, member, true);
    }
    const std::string gap = "\r\n          ";
    std::string expected = "    <DcTransSet name = \"T\" desc=\"d\" >\r\n"
                           "  <DcDO  name = \"DataSetName\" type = \"\" desc = \"\" refDSRT = \"\" "
                           "refDS = \"\" >\r\n"
                           "  </DcDO> \r\n"
                           "\r\n" +
                           gap;
    for (int i = 1; i <= 8; ++i) {
        expected += PlainDAat2("M" + std::to_string(i)) + "\r\n";
        if (i % 4 == 0)
            expected += gap;
    }
    expected += "    </DcTransSet>\r\n";
    EXPECT_EQ(set.ToXML(4).toStdString(), expected);
}

TEST_F(TransSetTest, ChildElementsTakeThePlaceOfTheMembersOfTheSameName) {
    DcTransSet* set =
        ReadTransSet(icc, "<DcTransSet name=\"TrSet_1\">"
                          "<DcDA name=\"StartTime\" type=\"INT32\" svalue=\"42\"/>"
                          "<DcDO name=\"DataSetName\" type=\"\">"
                          "<DcDA name=\"Name\" type=\"VISIBLE_STRING32\" svalue=\"DS_1\"/></DcDO>"
                          "<DcDA name=\"Extra\" type=\"INT16\" svalue=\"3\"/>"
                          "<Other name=\"Ignored\"/></DcTransSet>");
    EXPECT_EQ(Texts(set->Members), std::string(kMemberNames) + ",Extra");
    EXPECT_EQ(Var(set, "StartTime"), "42");
    EXPECT_TRUE(Leaf(set, "StartTime")->CanC);
    EXPECT_FALSE(Leaf(set, "StartTime")->CanA);
    EXPECT_EQ(Var(set, "Extra"), "3");
    ASSERT_EQ(set->DataSetName, set->Members.Objects(0));
    EXPECT_EQ(Texts(set->DataSetName->Members), "Name");
    EXPECT_EQ(Var(set, "DataSetName$Name"), "DS_1");
}

TEST_F(TransSetTest, ALeafNamedDataSetNameLeavesNoDanglingStructure) {
    DcTransSet* set = ReadTransSet(icc, "<DcTransSet name=\"TrSet_1\">"
                                        "<DcDA name=\"DataSetName\" type=\"INT16\"/></DcTransSet>");
    EXPECT_EQ(set->DataSetName, nullptr);
    EXPECT_EQ(Member(set, "DataSetName")->ClassName().toStdString(), "DcDA");
    set->ResetDataSetName();
    set->SetVar();
    set->GetVarFromDA();
    EXPECT_FALSE(set->SetRefDS());
    EXPECT_FALSE(CheckValidTrset(set, 1));
    DcTransSet* full = AddTransSet(icc, "TrSet_2");
    full->AssignSelf(set);
    set->AssignSelf(full);
    EXPECT_FALSE(set->ToXML(0).isEmpty());
    set->InitVar();
    ASSERT_NE(set->DataSetName, nullptr);
    EXPECT_EQ(set->DataSetName->Members.Count, 3);
}

TEST_F(TransSetTest, AssignSelfCopiesMemberValuesByIndex) {
    DcTransSet* source = AddTransSet(icc, "TrSet_1");
    DcTransSet* target = AddTransSet(icc, "TrSet_2");
    source->PutVar("StartTime", "9");
    source->PutVar("RBE", "true");
    source->PutVar("DataSetName$Name", "DS_2");
    Leaf(source, "Interval")->desc = "own";
    target->AssignSelf(source);
    EXPECT_EQ(Var(target, "StartTime"), "9");
    EXPECT_EQ(Var(target, "RBE"), "true");
    EXPECT_EQ(Var(target, "DataSetName$Name"), "DS_2");
    EXPECT_EQ(Leaf(target, "Interval")->desc, "own");
    EXPECT_NE(Leaf(target, "StartTime"), Leaf(source, "StartTime"));
    EXPECT_EQ(Leaf(target, "StartTime")->Owner, target);

    // A shorter source reaches only its own members.
    DcTransSet bare("", true, nullptr);
    target->AssignSelf(&bare);
    target->AssignSelf(nullptr);
    target->AssignSelf(target);
    EXPECT_EQ(Var(target, "StartTime"), "9");
    bare.AssignSelf(source);
    EXPECT_EQ(bare.Members.Count, 1);
}

TEST_F(TransSetTest, ResetDataSetNameAndSetVarWriteTheThreeParts) {
    DcTransSet* set = AddTransSet(icc, "TrSet_1");
    set->ResetDataSetName();
    EXPECT_EQ(Var(set, "DataSetName$Scope"), "0");
    EXPECT_EQ(Var(set, "DataSetName$DomainName"), "");
    EXPECT_EQ(Var(set, "DataSetName$Name"), "");
    EXPECT_EQ(Leaf(set->DataSetName, "Name")->svalue, "");
    set->SetVar();
    EXPECT_EQ(Var(set, "DataSetName$Scope"), "1");
    EXPECT_EQ(Var(set, "DataSetName$DomainName"), "H");
    EXPECT_EQ(Var(set, "DataSetName$Name"), "H");
    set->ResetDataSetName();
    EXPECT_EQ(Var(set, "DataSetName$Scope"), "0");
    EXPECT_EQ(Var(set, "DataSetName$Name"), "");
}

TEST_F(TransSetTest, GetVarFromDARefreshesTheFieldsAndFindsTheDataSet) {
    DcDataSet* dataSet = AddDataSet(icc->DataSets, icc, "DS_1");
    DcTransSet* set = AddTransSet(icc, "TrSet_1");
    set->ResetDataSetName();
    const char* const values[][2] = {{"StartTime", "100"},
                                     {"Interval", "7"},
                                     {"TLE", "8"},
                                     {"BufferTime", "9"},
                                     {"IntegrityCheck", "10"},
                                     {"EventCodeRequested", "11"},
                                     {"BlockData", "true"},
                                     {"Critical", "false"},
                                     {"RBE", "true"},
                                     {"Status", "true"},
                                     {"DataSetName$Scope", "1"},
                                     {"DataSetName$DomainName", "ICC_1"},
                                     {"DataSetName$Name", "DS_1"}};
    for (const auto& v : values)
        ASSERT_EQ(set->PutVar(v[0], v[1]), 0) << v[0];
    set->DSDomain = "old";
    set->DSConditions.SetBit(4);
    set->GetVarFromDA();
    EXPECT_EQ(set->StartTime, 100);
    EXPECT_EQ(set->Interval, 7);
    EXPECT_EQ(set->TLE, 8);
    EXPECT_EQ(set->BufferTime, 9);
    EXPECT_EQ(set->IntegrityCheck, 10);
    EXPECT_EQ(set->EventCodeRequested, 11);
    EXPECT_TRUE(set->BlockData);
    EXPECT_FALSE(set->Critical);
    EXPECT_TRUE(set->RBE);
    EXPECT_TRUE(set->Status);
    EXPECT_EQ(set->DSScope, 1);
    EXPECT_EQ(set->DSName, "DS_1");
    // The domain is read under a path that names no member.
    EXPECT_EQ(set->DSDomain, "");
    // The conditions come from the attribute form's member only.
    EXPECT_EQ(set->DSConditions.BitLen, 5);
    EXPECT_EQ(set->DSConditions.GetOneCount(), 0);
    EXPECT_EQ(set->RefDS, dataSet);

    set->SetAttFromStr("DSConditionRequested", "10100");
    set->GetVarFromDA();
    EXPECT_EQ(set->DSConditions.GetIdx(0), 1);
    EXPECT_EQ(set->DSConditions.GetIdx(1), 0);
    EXPECT_EQ(set->DSConditions.GetIdx(2), 1);
    EXPECT_EQ(set->DSConditions.GetOneCount(), 2);

    set->PutVar("DataSetName$Name", "DS_X");
    EXPECT_FALSE(set->SetRefDS());
    EXPECT_EQ(set->RefDS, nullptr);
    DcTransSet orphan("TS", false, nullptr);
    EXPECT_FALSE(orphan.SetRefDS());
}

TEST_F(TransSetTest, CheckValidTrsetTestsDomainScopeAndDataSetThenStatusAgainstMode) {
    AddDataSet(icc->DataSets, icc, "DS_1");
    DcTransSet* set = AddTransSet(icc, "TrSet_1");
    set->ResetDataSetName();
    set->PutVar("DataSetName$Scope", "1");
    set->PutVar("DataSetName$DomainName", "ICC_1");
    set->PutVar("DataSetName$Name", "DS_1");
    set->PutVar("Status", "false");
    EXPECT_TRUE(CheckValidTrset(set, 1));
    EXPECT_FALSE(CheckValidTrset(set, 0));
    set->PutVar("Status", "true");
    EXPECT_TRUE(CheckValidTrset(set, 0));
    EXPECT_FALSE(CheckValidTrset(set, 2));

    set->PutVar("DataSetName$DomainName", "ICC_2");
    EXPECT_FALSE(CheckValidTrset(set, 0));
    EXPECT_FALSE(CheckValidTrset(set, 1));
    set->PutVar("DataSetName$DomainName", "ICC_1");
    set->PutVar("DataSetName$Scope", "0");
    EXPECT_FALSE(CheckValidTrset(set, 0));
    EXPECT_FALSE(CheckValidTrset(set, 1));
    set->PutVar("DataSetName$Scope", "1");
    set->PutVar("DataSetName$Name", "DS_9");
    EXPECT_FALSE(CheckValidTrset(set, 0));
    EXPECT_FALSE(CheckValidTrset(set, 1));

    // Outside an ICC only the VCC's data sets count, and pVCC becomes the
    // enclosing VCC.
    AddDataSet(vcc->DataSets, vcc, "DS_V");
    DcTransSet* atVcc = new DcTransSet("TS", false, vcc);
    atVcc->ResetDataSetName();
    atVcc->PutVar("DataSetName$Name", "DS_V");
    pVCC = nullptr;
    EXPECT_TRUE(CheckValidTrset(atVcc, 1));
    EXPECT_EQ(pVCC, vcc);
    delete atVcc;

    DcTransSet orphan("TS", false, nullptr);
    EXPECT_FALSE(CheckValidTrset(&orphan, 1));
    EXPECT_EQ(pVCC, vcc);
    EXPECT_FALSE(CheckValidTrset(nullptr, 1));
}

TEST_F(TransSetTest, NextTransferSetTakesTheLastFreeTransferSet) {
    DcTransSet* first = AddTransSet(icc, "TrSet_1");
    DcTransSet* second = AddTransSet(icc, "TrSet_2");
    DcNextTransferSet* next = new DcNextTransferSet(icc);
    icc->NextSet = next;
    icc->NextSets.AddObject(next->name, next, true);
    next->InitVar();
    EXPECT_EQ(next->name, "Next_DSTransfer_Set");
    EXPECT_EQ(next->ObType, 53);
    EXPECT_EQ(next->ClassName().toStdString(), "DcNextTransferSet");
    EXPECT_TRUE(next->IsStruct());
    EXPECT_EQ(Texts(next->Members), "Scope,DomainName,Name");
    EXPECT_EQ(Leaf(next, "Scope")->type, "INT8");
    EXPECT_EQ(Leaf(next, "Name")->type, "VISIBLE_STRING32");
    EXPECT_EQ(next->ToXML(2).toStdString(),
              "  <DcNextTransferSet name = \"Next_DSTransfer_Set\" />\r\n");
    EXPECT_TRUE(next->SetAttFromStr("desc", "x"));
    EXPECT_EQ(next->desc, "");
    EXPECT_TRUE(next->SetAttFromStr("name", "N2"));
    EXPECT_EQ(next->name, "N2");
    next->name = "Next_DSTransfer_Set";

    second->PutVar("RBE", "false");
    second->RBE = false;
    EXPECT_TRUE(next->FindFreeTS());
    EXPECT_TRUE(second->Used);
    EXPECT_FALSE(first->Used);
    EXPECT_EQ(next->CurName, "TrSet_2");
    EXPECT_EQ(Var(next, "Scope"), "1");
    EXPECT_EQ(Var(next, "DomainName"), "ICC_1");
    EXPECT_EQ(Var(next, "Name"), "TrSet_2");
    EXPECT_TRUE(second->RBE);
    EXPECT_EQ(Var(second, "RBE"), "true");

    EXPECT_TRUE(next->FindFreeTS());
    EXPECT_TRUE(first->Used);
    EXPECT_EQ(next->CurName, "TrSet_1");

    // All taken: nothing changes.
    EXPECT_FALSE(next->FindFreeTS());
    EXPECT_EQ(next->CurName, "TrSet_1");
    EXPECT_EQ(Var(next, "Name"), "TrSet_1");

    DcNextTransferSet lone;
    lone.InitVar();
    EXPECT_FALSE(lone.FindFreeTS());
    EXPECT_EQ(lone.CurName, "");
}

TEST_F(TransSetTest, AStructureReadUnderAPartsNameIsNotListedByItself) {
    DcTransSet* set = ReadTransSet(icc, "<DcTransSet name=\"TrSet_1\">"
                                        "<DcDO name=\"Scope\" type=\"\"/></DcTransSet>");
    DcDO* read = set->DataSetName;
    ASSERT_EQ(read, Member(set, "Scope"));
    set->InitVar();
    EXPECT_EQ(set->DataSetName, read);
    EXPECT_EQ(FindIdObjByPtr(read, &read->Members), -1);
    EXPECT_EQ(Member(set, "Scope"), read);
    EXPECT_EQ(Texts(read->Members), "DomainName,Name");
}
