#include <tinyxml.h>

#include "SetsFixture.h"
#include "support/MyBuf.h"
#include "support/myNode.h"

using DataSetTest = SetsTest;

namespace {

const char* const kStdNames =
    "DSConditions_Detected,Event_Code_Detected,Transfer_Set_Time_Stamp,Transfer_Set_Name";

DcICCPBase* Entry(DcDataSet* set, int i) {
    return static_cast<DcICCPBase*>(set->Elems.Objects(i));
}

DcDA* Field(DcDataSet* set, const char* name) {
    return static_cast<DcDA*>(set->SelfList.Objects(set->SelfList.IndexOf(name)));
}

} // namespace

TEST_F(DataSetTest, NewSetHoldsTheFourStandardFieldsAndWritesNoEntry) {
    DcDataSet* set = AddDataSet(vcc->DataSets, vcc, "DataSet_1");
    EXPECT_EQ(set->ClassName().toStdString(), "DcDataSet");
    EXPECT_EQ(set->ObType, 51);
    EXPECT_FALSE(set->CanA);
    EXPECT_TRUE(set->CanB);
    EXPECT_FALSE(set->CanC);
    EXPECT_EQ(Texts(set->Elems), kStdNames);
    EXPECT_EQ(Texts(set->SelfList), kStdNames);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(set->SelfList.Objects(i), set->Elems.Objects(i));
        EXPECT_EQ(Entry(set, i)->Owner, set);
    }
    EXPECT_EQ(set->Scope, 0);
    EXPECT_EQ(set->Domain, "");
    EXPECT_EQ(set->FullName, "DataSet_1");
    EXPECT_EQ(set->GetFullName(), "DataSet_1");
    EXPECT_EQ(set->GetRefNameDS().toStdString(), "DataSet_1;");
    EXPECT_EQ(set->RtBits, nullptr);
    EXPECT_EQ(Texts(set->OwnVars), "Event_Code_Detected");

    // The three leaf fields are typed from the templates, the fourth is a
    // structure of three members.
    EXPECT_EQ(Field(set, "Event_Code_Detected")->type, "INT16");
    EXPECT_EQ(Field(set, "Event_Code_Detected")->Value->Tostring(), "0");
    EXPECT_EQ(Field(set, "Transfer_Set_Time_Stamp")->type, "INT32");
    EXPECT_EQ(Field(set, "DSConditions_Detected")->svalue, "00100");
    DcDO* setName = static_cast<DcDO*>(Entry(set, 3));
    EXPECT_EQ(setName->ClassName().toStdString(), "DcDO");
    EXPECT_EQ(Texts(setName->Members), "Scope,DomainName,Name");
    EXPECT_EQ(Var(setName, "Scope"), "0");

    EXPECT_EQ(set->ToXML(2).toStdString(), "  <DcDataSet  name = \"DataSet_1\"  desc=\"\" > \r\n"
                                           "  </DcDataSet> \r\n");
    EXPECT_EQ(set->ToXML(0).toStdString(), "<DcDataSet  name = \"DataSet_1\"  desc=\"\" > \r\n"
                                           "</DcDataSet> \r\n");
}

TEST_F(DataSetTest, ScopeFollowsTheOwner) {
    DcDataSet* inIcc = AddDataSet(icc->DataSets, icc, "DS_1");
    EXPECT_EQ(inIcc->Scope, 1);
    EXPECT_EQ(inIcc->Domain, "ICC_1");
    EXPECT_EQ(inIcc->FullName, "ICC_1/DS_1");
    EXPECT_EQ(inIcc->GetFullName(), "ICC_1/DS_1");
    EXPECT_EQ(inIcc->GetRefNameDS().toStdString(), "ICC_1/DS_1;");
    EXPECT_EQ(inIcc->GetOwnVarList(), &icc->Vars);

    // A set of an ICC's list made with the VCC as parent knows no ICC.
    DcDataSet* vccParent = AddDataSet(icc->DataSets, vcc, "DS_2");
    EXPECT_EQ(vccParent->Scope, 0);
    EXPECT_EQ(vccParent->GetRefNameDS().toStdString(), "DS_2;");
    EXPECT_EQ(vccParent->GetOwnVarList(), &vcc->Vars);

    // Without a parent nothing more than the name is set up.
    DcDataSet orphan("Lone", nullptr);
    EXPECT_EQ(orphan.name, "Lone");
    EXPECT_EQ(orphan.Elems.Count, 0);
    EXPECT_EQ(orphan.FullName, "");
    EXPECT_EQ(orphan.GetOwnVarList(), nullptr);

    // The name attribute renews the full name only in an ICC.
    EXPECT_TRUE(inIcc->SetAttFromStr("name", "DS_9"));
    EXPECT_EQ(inIcc->FullName, "ICC_1/DS_9");
    EXPECT_TRUE(vccParent->SetAttFromStr("name", "DS_8"));
    EXPECT_EQ(vccParent->FullName, "DS_2");
    EXPECT_TRUE(inIcc->SetAttFromStr("desc", "d"));
    EXPECT_EQ(inIcc->desc, "d");
    EXPECT_FALSE(inIcc->SetAttFromStr("Scope", "0"));
}

TEST_F(DataSetTest, CreationTakesTheStandardNamesAwayFromTheOwnersVariables) {
    AddVar(vcc->Vars, vcc, "Transfer_Set_Name");
    AddVar(vcc->Vars, vcc, "Event_Code_Detected");
    DcDA* kept = AddVar(vcc->Vars, vcc, "Other");
    AddDataSet(vcc->DataSets, vcc, "DataSet_1");
    EXPECT_EQ(vcc->Vars.Count, 1);
    EXPECT_EQ(vcc->Vars.Objects(0), kept);
}

TEST_F(DataSetTest, AddObRefPutsNewMembersInFrontAndRenewsKnownOnes) {
    DcDataSet* set = AddDataSet(vcc->DataSets, vcc, "DataSet_1");
    DcDA* a = AddVar(vcc->Vars, vcc, "A");
    DcDA* b = AddVar(vcc->Vars, vcc, "B");
    DcDA* c = AddVar(vcc->Vars, vcc, "C");
    EXPECT_EQ(set->AddObRef(a), 1);
    set->AddObRef(b);
    set->AddObRef(c);
    EXPECT_EQ(Texts(set->Elems), std::string("C,B,A,") + kStdNames);
    EXPECT_EQ(Entry(set, 0), c);
    EXPECT_EQ(Entry(set, 2), a);

    // A second addition under the same key keeps the place and takes the
    // new object.
    DcDA* otherB = AddVar(icc->Vars, icc, "B");
    EXPECT_EQ(set->AddObRef(otherB), 1);
    EXPECT_EQ(Texts(set->Elems), std::string("C,B,A,") + kStdNames);
    EXPECT_EQ(Entry(set, 1), otherB);
    EXPECT_EQ(set->AddObRef(nullptr), -1);

    set->RemoveRef(b);
    EXPECT_EQ(Texts(set->Elems), std::string("C,A,") + kStdNames);
    set->RemoveRef(b);
    EXPECT_EQ(set->Elems.Count, 6);
    EXPECT_EQ(set->Elems.IndexOf("A"), 1);

    // In an ICC the key carries the ICC's name.
    DcDataSet* iccSet = AddDataSet(icc->DataSets, icc, "DS_1");
    iccSet->AddObRef(otherB);
    iccSet->AddObRef(a);
    EXPECT_EQ(Texts(iccSet->Elems), std::string("ICC_1/A,ICC_1/B,") + kStdNames);
    iccSet->RemoveRef(otherB);
    EXPECT_EQ(Texts(iccSet->Elems), std::string("ICC_1/A,") + kStdNames);
}

TEST_F(DataSetTest, IdxObbyNameCutsAnUnknownNameAtItsDollar) {
    DcDataSet* set = AddDataSet(icc->DataSets, icc, "DS_1");
    set->AddObRef(AddVar(icc->Vars, icc, "A"));
    std::string known = "ICC_1/A";
    EXPECT_EQ(set->IdxObbyName(known), 0);
    std::string member = "ICC_1/X$Value$Y";
    EXPECT_EQ(set->IdxObbyName(member), -1);
    EXPECT_EQ(member, "ICC_1/X");
    std::string plain = "Z";
    EXPECT_EQ(set->IdxObbyName(plain), -1);
    EXPECT_EQ(plain, "Z");
}

TEST_F(DataSetTest, ClearRealVarKeepsOnlyTheStandardFields) {
    DcDataSet* set = AddDataSet(vcc->DataSets, vcc, "DataSet_1");
    for (const char* n : {"A", "B", "C"})
        set->AddObRef(AddVar(vcc->Vars, vcc, n));
    set->ClearRealVar();
    EXPECT_EQ(Texts(set->Elems), kStdNames);
}

TEST_F(DataSetTest, ToXMLListsTheMembersButNotTheStandardFields) {
    DcDataSet* set = AddDataSet(icc->DataSets, icc, "DS_1");
    set->desc = "Набор";
    set->AddObRef(AddVar(icc->Vars, icc, "A"));
    set->AddObRef(AddVar(icc->Vars, icc, "B"));
    EXPECT_EQ(set->ToXML(2).toStdString(), "  <DcDataSet  name = \"DS_1\"  desc=\"Набор\" > \r\n"
                                           "     <ElemDS name=\"ICC_1/B\" /> \r\n"
                                           "     <ElemDS name=\"ICC_1/A\" /> \r\n"
                                           "  </DcDataSet> \r\n");
}

TEST_F(DataSetTest, ElemDSEntriesReadInFileOrderBeforeTheStandardFields) {
    DcDataSet* set = AddDataSet(icc->DataSets, icc, "DS_1");
    TiXmlDocument doc;
    doc.Parse("<DcDataSet name=\"DS_7\" desc=\"x\" other=\"y\">"
              "<ElemDS name=\"ICC_1/B\"/><ElemDS name=\"ICC_1/A\"/>"
              "<ElemDS name=\"ICC_1/B\"/><ElemDS id=\"ICC_1/C\"/><Other name=\"D\"/>"
              "<!-- comment --></DcDataSet>");
    set->DecodeXML(doc.RootElement());
    EXPECT_EQ(set->name, "DS_7");
    EXPECT_EQ(set->desc, "x");
    EXPECT_EQ(Texts(set->Elems), std::string("ICC_1/B,ICC_1/A,") + kStdNames);
    EXPECT_EQ(Entry(set, 0), nullptr);
    EXPECT_EQ(Entry(set, 1), nullptr);

    // A set without standard fields takes the entries all the same.
    DcDataSet orphan("", nullptr);
    orphan.DecodeXML(doc.RootElement());
    EXPECT_EQ(Texts(orphan.Elems), "ICC_1/B,ICC_1/A");
}

TEST_F(DataSetTest, SetCorrespondBindsEntriesAndBindObDsWritesRunTimeReferences) {
    DcDA* a = AddVar(icc->Vars, icc, "A");
    DcDA* b = AddVar(icc->Vars, icc, "B");
    DcDA* v = AddVar(vcc->Vars, vcc, "V");
    DcDA* s = AddVar(vcc->Vars, vcc, "S");
    s->Service = true;
    DcDataSet* iccSet = AddDataSet(icc->DataSets, icc, "DS_1");
    DcDataSet* vccSet = AddDataSet(vcc->DataSets, vcc, "DS_V");
    for (const char* n : {"ICC_1/Missing", "ICC_1/A", "ICC_1/B", "ICC_2/A"})
        iccSet->Elems.InsertObject(0, n, nullptr);
    for (const char* n : {"S", "V"})
        vccSet->Elems.InsertObject(0, n, nullptr);

    vccSet->SetCorrespond();
    EXPECT_EQ(Entry(vccSet, 0), v);
    EXPECT_EQ(Entry(vccSet, 1), s);
    EXPECT_EQ(v->refDSRT.toStdString(), "");
    EXPECT_EQ(vccSet->RtBits, nullptr);

    iccSet->SetCorrespond();
    EXPECT_EQ(Texts(iccSet->Elems),
              std::string("ICC_2/A,ICC_1/B,ICC_1/A,ICC_1/Missing,") + kStdNames);
    EXPECT_EQ(Entry(iccSet, 0), nullptr);
    EXPECT_EQ(Entry(iccSet, 1), b);
    EXPECT_EQ(Entry(iccSet, 2), a);
    EXPECT_EQ(Entry(iccSet, 3), nullptr);
    EXPECT_EQ(b->refDSRT.toStdString(), "ICC_1/DS_1,1;");
    EXPECT_EQ(a->refDSRT.toStdString(), "ICC_1/DS_1,2;");
    ASSERT_NE(iccSet->RtBits, nullptr);
    EXPECT_EQ(iccSet->RtBits->BitLen, 8);

    // An ICC entry is written once; a VCC entry again on every run, and a
    // service variable never.
    qolBitSet* bits = iccSet->RtBits;
    iccSet->BindObDs();
    EXPECT_EQ(b->refDSRT.toStdString(), "ICC_1/DS_1,1;");
    EXPECT_EQ(iccSet->RtBits, bits);
    vccSet->BindObDs();
    vccSet->BindObDs();
    EXPECT_EQ(v->refDSRT.toStdString(), "DS_V,0;DS_V,0;");
    EXPECT_EQ(s->refDSRT.toStdString(), "");
    EXPECT_EQ(vccSet->RtBits->BitLen, 6);
}

TEST_F(DataSetTest, SetCorrespondNeedsAnEnclosingVCCAndShortNames) {
    DcLD looseIcc;
    looseIcc.name = "ICC_1";
    DcDataSet* loose = new DcDataSet("DS", &looseIcc);
    looseIcc.DataSets.AddObject("DS", loose, true);
    loose->Elems.InsertObject(0, "ICC_1/A", nullptr);
    loose->SetCorrespond();
    loose->BindObDs();
    EXPECT_EQ(loose->Elems.Objects(0), nullptr);
    EXPECT_EQ(loose->RtBits, nullptr);

    // The variable part of an entry is taken up to 255 bytes.
    const std::string longName(300, 'x');
    AddVar(icc->Vars, icc, longName);
    DcDataSet* set = AddDataSet(icc->DataSets, icc, "DS_1");
    set->Elems.InsertObject(0, "ICC_1/" + longName, nullptr);
    set->SetCorrespond();
    EXPECT_EQ(Entry(set, 0), nullptr);
}

TEST_F(DataSetTest, UpdRefObsRewritesKeysAndPrefixesTheStandardFieldsOfAnICCSet) {
    DcDA* a = AddVar(icc->Vars, icc, "A");
    DcDA* v = AddVar(vcc->Vars, vcc, "V");
    DcDataSet* iccSet = AddDataSet(icc->DataSets, icc, "DS_1");
    DcDataSet* vccSet = AddDataSet(vcc->DataSets, vcc, "DS_V");
    iccSet->AddObRef(a);
    vccSet->AddObRef(v);
    a->name = "A2";
    v->name = "V2";
    iccSet->UpdRefObs();
    vccSet->UpdRefObs();
    EXPECT_EQ(Texts(iccSet->Elems),
              "ICC_1/A2,ICC_1/DSConditions_Detected,ICC_1/Event_Code_Detected,"
              "ICC_1/Transfer_Set_Time_Stamp,ICC_1/Transfer_Set_Name");
    EXPECT_EQ(iccSet->Elems.IndexOf("ICC_1/A2"), 0);
    EXPECT_EQ(iccSet->Elems.IndexOf("ICC_1/A"), -1);
    // Outside an ICC a text stays as it was.
    EXPECT_EQ(Texts(vccSet->Elems), std::string("V,") + kStdNames);

    // Prefixed, the standard fields are written like any other entry.
    EXPECT_EQ(iccSet->ToXML(0).toStdString(),
              "<DcDataSet  name = \"DS_1\"  desc=\"\" > \r\n"
              "   <ElemDS name=\"ICC_1/A2\" /> \r\n"
              "   <ElemDS name=\"ICC_1/DSConditions_Detected\" /> \r\n"
              "   <ElemDS name=\"ICC_1/Event_Code_Detected\" /> \r\n"
              "   <ElemDS name=\"ICC_1/Transfer_Set_Time_Stamp\" /> \r\n"
              "   <ElemDS name=\"ICC_1/Transfer_Set_Name\" /> \r\n"
              "</DcDataSet> \r\n");

    // Entries without an object are passed over.
    iccSet->Elems.InsertObject(0, "ICC_1/Ghost", nullptr);
    iccSet->UpdRefObs();
    EXPECT_EQ(iccSet->Elems.Strings(0), "ICC_1/Ghost");
}

TEST_F(DataSetTest, OnChangeNameOwnTakesTheNewDomainForLaterKeys) {
    DcDataSet* set = AddDataSet(icc->DataSets, icc, "DS_1");
    set->AddObRef(AddVar(icc->Vars, icc, "A"));
    set->OwnVars.AddObject("ICC_1/Own", nullptr, true);
    set->OnChangeNameOwn("ICC_9");
    EXPECT_EQ(set->Domain, "ICC_9");
    EXPECT_EQ(set->FullName, "ICC_1/DS_1");
    EXPECT_EQ(Texts(set->OwnVars), "Event_Code_Detected,ICC_9/Own");
    EXPECT_EQ(Texts(set->Elems), std::string("ICC_1/A,") + kStdNames);
    set->AddObRef(AddVar(icc->Vars, icc, "B"));
    EXPECT_EQ(set->Elems.Strings(0), "ICC_9/B");
}

TEST_F(DataSetTest, AssignSelfCopiesTheLeafStandardFieldsOnly) {
    DcDataSet* source = AddDataSet(vcc->DataSets, vcc, "DS_1");
    DcDataSet* target = AddDataSet(icc->DataSets, icc, "DS_2");
    DcDA* code = Field(source, "Event_Code_Detected");
    code->Value->SetFromstring("5");
    code->svalue = "5";
    code->desc = "code";
    static_cast<DcDO*>(source->SelfList.Objects(3))->PutVar("Scope", "7");

    target->AssignSelf(source);
    DcDA* copied = Field(target, "Event_Code_Detected");
    EXPECT_NE(copied, code);
    EXPECT_EQ(copied->Value->Tostring(), "5");
    EXPECT_EQ(copied->svalue, "5");
    EXPECT_EQ(copied->desc, "code");
    EXPECT_EQ(copied->Value->Owner, copied);
    EXPECT_EQ(Var(static_cast<DcDO*>(target->SelfList.Objects(3)), "Scope"), "0");

    target->AssignSelf(nullptr);
    target->AssignSelf(target);
    DcDataSet empty("", nullptr);
    target->AssignSelf(&empty);
    empty.AssignSelf(source);
    EXPECT_EQ(Field(target, "Event_Code_Detected")->Value->Tostring(), "5");
}

TEST_F(DataSetTest, CreatemyNodeCarriesTheSet) {
    DcDataSet* set = AddDataSet(vcc->DataSets, vcc, "DataSet_1");
    myNode* node = set->CreatemyNode();
    EXPECT_EQ(node->name, "DataSet_1");
    EXPECT_EQ(node->object, set);
    EXPECT_EQ(node->FirstChild, nullptr);
    node->DeleteSubTree();
}

TEST_F(DataSetTest, LoadedEntriesBindToVariablesReadLaterAndWriteBackAsRead) {
    TiXmlDocument doc;
    doc.Parse("<DcVCC name=\"V\">"
              "<DcDataSet name=\"DataSet_1\"><ElemDS name=\"W\"/></DcDataSet>"
              "<DcDA name=\"W\" type=\"INT16\"/>"
              "<DcLD name=\"ICC_1\">"
              "<DcDataSet name=\"DataSet_1\"><ElemDS name=\"ICC_1/B\"/>"
              "<ElemDS name=\"ICC_1/A\"/></DcDataSet>"
              "<DcDA name=\"A\" type=\"INT16\"/><DcDA name=\"B\" type=\"INT16\"/>"
              "</DcLD></DcVCC>");
    RakeNode1(&doc);
    DcVCC* loaded = pVCC;
    ASSERT_NE(loaded, vcc);
    loaded->BornDO();
    loaded->SetReletion();

    DcDataSet* vccSet = static_cast<DcDataSet*>(loaded->DataSets.Objects(0));
    EXPECT_EQ(Entry(vccSet, 0), loaded->Vars.Objects(loaded->Vars.IndexOf("W")));
    DcLD* ld = static_cast<DcLD*>(loaded->ICCs.Objects(0));
    DcDataSet* iccSet = static_cast<DcDataSet*>(ld->DataSets.Objects(0));
    EXPECT_EQ(Texts(iccSet->Elems), std::string("ICC_1/B,ICC_1/A,") + kStdNames);
    DcDA* b = static_cast<DcDA*>(ld->Vars.Objects(ld->Vars.IndexOf("B")));
    DcDA* a = static_cast<DcDA*>(ld->Vars.Objects(ld->Vars.IndexOf("A")));
    EXPECT_EQ(Entry(iccSet, 0), b);
    EXPECT_EQ(Entry(iccSet, 1), a);
    EXPECT_EQ(b->refDSRT.toStdString(), "ICC_1/DataSet_1,0;");
    EXPECT_EQ(a->refDSRT.toStdString(), "ICC_1/DataSet_1,1;");

    TiXmlDocument written;
    written.Parse(iccSet->ToXML(4).toStdString().c_str());
    ASSERT_FALSE(written.Error());
    DcDataSet* reread = AddDataSet(icc->DataSets, icc, "");
    reread->DecodeXML(written.RootElement());
    EXPECT_EQ(reread->name, "DataSet_1");
    EXPECT_EQ(Texts(reread->Elems), Texts(iccSet->Elems));

    delete loaded;
    pVCC = vcc;
}
