#include "SetsFixture.h"
#include "support/MyBuf.h"

using DataSetTest = SetsTest;

namespace {

const std::string kStd =
    "DSConditions_Detected,Event_Code_Detected,Transfer_Set_Time_Stamp,Transfer_Set_Name";

void* Entry(DcDataSet* set, int i) {
    return set->Elems.Objects(i);
}

} // namespace

TEST_F(DataSetTest, NewSetHoldsTheStandardFieldsAndTakesItsScopeFromTheOwner) {
    AddDA(vcc->Vars, vcc, "Transfer_Set_Name");
    DcDataSet* set = AddDataSet(vcc->DataSets, vcc, "DataSet_1");
    EXPECT_EQ(vcc->Vars.Count, 0);
    EXPECT_EQ(Texts(set->Elems), kStd);
    EXPECT_EQ(set->SelfList.Objects(3), Entry(set, 3));
    EXPECT_EQ(Texts(static_cast<DcDO*>(Entry(set, 3))->Members), "Scope,DomainName,Name");

    DcDataSet* inIcc = AddDataSet(icc->DataSets, icc, "DS_1");
    EXPECT_EQ(inIcc->Scope, 1);
    EXPECT_EQ(inIcc->GetRefNameDS().toStdString(), "ICC_1/DS_1;");
    EXPECT_TRUE(inIcc->SetAttFromStr("name", "DS_9"));
    EXPECT_EQ(inIcc->FullName, "ICC_1/DS_9");
    EXPECT_FALSE(inIcc->SetAttFromStr("Scope", "0"));

    // An ICC's set made with the VCC as parent knows no ICC; one without a
    // parent has no fields at all.
    EXPECT_EQ(AddDataSet(icc->DataSets, vcc, "DS_2")->GetRefNameDS().toStdString(), "DS_2;");
    DcDataSet orphan("Lone", nullptr);
    EXPECT_EQ(orphan.Elems.Count, 0);
}

TEST_F(DataSetTest, AddObRefPutsNewMembersInFrontAndRenewsKnownOnes) {
    DcDataSet* set = AddDataSet(icc->DataSets, icc, "DS_1");
    DcDA* a = AddDA(icc->Vars, icc, "A");
    DcDA* b = AddDA(icc->Vars, icc, "B");
    EXPECT_EQ(set->AddObRef(a), 1);
    set->AddObRef(b);
    DcDA* otherA = AddDA(vcc->Vars, vcc, "A");
    EXPECT_EQ(set->AddObRef(otherA), 1);
    EXPECT_EQ(Texts(set->Elems), "ICC_1/B,ICC_1/A," + kStd);
    EXPECT_EQ(Entry(set, 1), otherA);
    EXPECT_EQ(set->ToXML(2).toStdString(), "  <DcDataSet  name = \"DS_1\"  desc=\"\" > \r\n"
                                           "     <ElemDS name=\"ICC_1/B\" /> \r\n"
                                           "     <ElemDS name=\"ICC_1/A\" /> \r\n"
                                           "  </DcDataSet> \r\n");

    std::string member = "ICC_1/X$Value";
    EXPECT_EQ(set->IdxObbyName(member), -1);
    EXPECT_EQ(member, "ICC_1/X");
    set->RemoveRef(b);
    EXPECT_EQ(Texts(set->Elems), "ICC_1/A," + kStd);
    set->ClearRealVar();
    EXPECT_EQ(Texts(set->Elems), kStd);

    // In VCC scope the key is the bare name.
    DcDataSet* vccSet = AddDataSet(vcc->DataSets, vcc, "DS_V");
    vccSet->AddObRef(a);
    EXPECT_EQ(vccSet->Elems.Strings(0), "A");
}

TEST_F(DataSetTest, ReadEntriesBindToVariablesAndLeaveRunTimeReferences) {
    DcDA* a = AddDA(icc->Vars, icc, "A");
    DcDA* b = AddDA(icc->Vars, icc, "B");
    DcDA* v = AddDA(vcc->Vars, vcc, "V");
    AddDA(vcc->Vars, vcc, "S")->Service = true;
    DcDataSet* set = AddDataSet(icc->DataSets, icc, "DS_1");
    XmlText xml("<DcDataSet name=\"DS_1\"><ElemDS name=\"ICC_1/B\"/><ElemDS name=\"ICC_2/A\"/>"
                "<ElemDS name=\"ICC_1/A\"/><ElemDS name=\"ICC_1/B\"/><Other name=\"C\"/>"
                "</DcDataSet>");
    set->DecodeXML(xml.Root());
    EXPECT_EQ(Texts(set->Elems), "ICC_1/B,ICC_2/A,ICC_1/A," + kStd);
    EXPECT_EQ(Entry(set, 0), nullptr);

    set->SetCorrespond();
    EXPECT_EQ(Entry(set, 1), nullptr);
    EXPECT_EQ(Entry(set, 2), a);
    EXPECT_EQ(a->refDSRT.toStdString(), "ICC_1/DS_1,2;");
    ASSERT_NE(set->RtBits, nullptr);
    EXPECT_EQ(set->RtBits->BitLen, 7);
    set->BindObDs();
    EXPECT_EQ(b->refDSRT.toStdString(), "ICC_1/DS_1,0;");

    // A VCC set binds without references; each BindObDs appends one, except
    // to a service variable.
    DcDataSet* vccSet = AddDataSet(vcc->DataSets, vcc, "DS_V");
    for (const char* n : {"S", "V"})
        vccSet->Elems.InsertObject(0, n, nullptr);
    vccSet->SetCorrespond();
    EXPECT_EQ(Entry(vccSet, 0), v);
    EXPECT_EQ(vccSet->RtBits, nullptr);
    vccSet->BindObDs();
    vccSet->BindObDs();
    EXPECT_EQ(v->refDSRT.toStdString(), "DS_V,0;DS_V,0;");
    EXPECT_EQ(static_cast<DcDA*>(Entry(vccSet, 1))->refDSRT.toStdString(), "");
}

TEST_F(DataSetTest, UpdRefObsRewritesKeysAndPrefixesTheStandardFieldsOfAnICCSet) {
    DcDA* a = AddDA(icc->Vars, icc, "A");
    DcDataSet* set = AddDataSet(icc->DataSets, icc, "DS_1");
    set->AddObRef(a);
    a->name = "A2";
    set->UpdRefObs();
    // Prefixed, the standard fields are written like any other entry.
    EXPECT_EQ(set->ToXML(0).toStdString(),
              "<DcDataSet  name = \"DS_1\"  desc=\"\" > \r\n"
              "   <ElemDS name=\"ICC_1/A2\" /> \r\n"
              "   <ElemDS name=\"ICC_1/DSConditions_Detected\" /> \r\n"
              "   <ElemDS name=\"ICC_1/Event_Code_Detected\" /> \r\n"
              "   <ElemDS name=\"ICC_1/Transfer_Set_Time_Stamp\" /> \r\n"
              "   <ElemDS name=\"ICC_1/Transfer_Set_Name\" /> \r\n"
              "</DcDataSet> \r\n");

    // Outside an ICC a text stays; an entry without object is passed over.
    DcDataSet* vccSet = AddDataSet(vcc->DataSets, vcc, "DS_V");
    DcDA* v = AddDA(vcc->Vars, vcc, "V");
    vccSet->AddObRef(v);
    vccSet->Elems.InsertObject(0, "Ghost", nullptr);
    v->name = "V2";
    vccSet->UpdRefObs();
    EXPECT_EQ(Texts(vccSet->Elems), "Ghost,V," + kStd);

    set->OnChangeNameOwn("ICC_9");
    EXPECT_EQ(set->FullName, "ICC_1/DS_1");
    EXPECT_EQ(set->Elems.Strings(0), "ICC_1/A2");
    set->AddObRef(AddDA(icc->Vars, icc, "B"));
    EXPECT_EQ(set->Elems.Strings(0), "ICC_9/B");
}

TEST_F(DataSetTest, AssignSelfCopiesTheLeafStandardFieldsOnly) {
    DcDataSet* source = AddDataSet(vcc->DataSets, vcc, "DS_1");
    DcDataSet* target = AddDataSet(icc->DataSets, icc, "DS_2");
    DcDA* code = static_cast<DcDA*>(source->SelfList.Objects(1));
    code->Value->SetFromstring("5");
    code->desc = "code";
    static_cast<DcDO*>(source->SelfList.Objects(3))->PutVar("Scope", "7");
    target->AssignSelf(source);
    DcDA* copied = static_cast<DcDA*>(target->SelfList.Objects(1));
    EXPECT_EQ(copied->Value->Tostring(), "5");
    EXPECT_EQ(copied->desc, "code");
    EXPECT_EQ(Var(static_cast<DcDO*>(target->SelfList.Objects(3)), "Scope"), "0");
    DcDataSet empty("", nullptr);
    empty.AssignSelf(source);
    target->AssignSelf(&empty);
    target->AssignSelf(nullptr);
}
