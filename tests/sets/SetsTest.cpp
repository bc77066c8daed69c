#include <array>

#include "common/ModelWorld.h"

namespace {

const std::string kStd =
    "DSConditions_Detected,Event_Code_Detected,Transfer_Set_Time_Stamp,Transfer_Set_Name";
const std::string kMembers = "DataSetName,StartTime,Interval,TLE,BufferTime,IntegrityCheck,"
                             "DSConditionsRequested,BlockData,Critical,RBE,Status,"
                             "EventCodeRequested";

class SetsTest : public ModelWorldTest {
protected:
    void SetUp() override {
        ModelWorldTest::SetUp();
        MakeModel();
    }
};

void* Entry(DcDataSet* set, int i) {
    return set->Elems.Objects(i);
}
DcDA* Leaf(DcDO* object, const char* name) {
    return static_cast<DcDA*>(object->Members.Objects(object->Members.IndexOf(name)));
}

DcTransSet* ReadInto(DcTransSet* set, const char* xml) {
    XmlText text(xml);
    set->DecodeXML(text.Root());
    return set;
}

} // namespace

TEST_F(SetsTest, NewDataSetHoldsTheStandardFieldsAndAddObRefPutsMembersInFront) {
    AddDA(vcc->Vars, vcc, "Transfer_Set_Name");
    DcDataSet* set = AddDataSet(vcc->DataSets, vcc, "DataSet_1");
    EXPECT_EQ(vcc->Vars.Count, 0);
    EXPECT_EQ(Texts(set->Elems), kStd);
    EXPECT_EQ(set->SelfList.Objects(3), Entry(set, 3));
    EXPECT_EQ(Texts(static_cast<DcDO*>(Entry(set, 3))->Members), "Scope,DomainName,Name");

    DcDataSet* inIcc = AddDataSet(icc->DataSets, icc, "DS_1");
    EXPECT_EQ(inIcc->GetRefNameDS().toStdString(), "ICC_1/DS_1;");
    EXPECT_TRUE(inIcc->SetAttFromStr("name", "DS_9") && !inIcc->SetAttFromStr("Scope", "0"));
    EXPECT_EQ(inIcc->FullName, "ICC_1/DS_9");
    EXPECT_EQ(inIcc->Scope, 1);
    // With the VCC as parent no ICC is named.
    EXPECT_EQ(AddDataSet(icc->DataSets, vcc, "DS_2")->GetRefNameDS().toStdString(), "DS_2;");
    DcDA* a = AddDA(icc->Vars, icc, "A");
    DcDA* b = AddDA(icc->Vars, icc, "B");
    EXPECT_EQ(inIcc->AddObRef(a), 1);
    inIcc->AddObRef(b);
    DcDA* otherA = AddDA(vcc->Vars, vcc, "A");
    EXPECT_EQ(inIcc->AddObRef(otherA), 1);
    EXPECT_EQ(Texts(inIcc->Elems), "ICC_1/B,ICC_1/A," + kStd);
    EXPECT_EQ(Entry(inIcc, 1), otherA);
    std::string member = "ICC_1/X$Value";
    inIcc->IdxObbyName(member);
    EXPECT_EQ(member, "ICC_1/X");
    inIcc->RemoveRef(b);
    EXPECT_EQ(Texts(inIcc->Elems), "ICC_1/A," + kStd);
    inIcc->ClearRealVar();
    EXPECT_EQ(Texts(inIcc->Elems), kStd);
    // In VCC scope the key is the bare name.
    DcDataSet* vccSet = AddDataSet(vcc->DataSets, vcc, "DS_V");
    vccSet->AddObRef(a);
    EXPECT_EQ(vccSet->Elems.Strings(0), "A");
}

TEST_F(SetsTest, ReadEntriesBindAndUpdRefObsRewritesKeys) {
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
    EXPECT_EQ(std::vector<void*>({Entry(set, 1), Entry(set, 2)}), std::vector<void*>({nullptr, a}));
    EXPECT_EQ(a->refDSRT.toStdString(), "ICC_1/DS_1,2;");
    EXPECT_EQ(set->RtBits->BitLen, 7);
    set->BindObDs();
    EXPECT_EQ(b->refDSRT.toStdString(), "ICC_1/DS_1,0;");

    // Each BindObDs appends a reference, except to a service variable.
    DcDataSet* vccSet = AddDataSet(vcc->DataSets, vcc, "DS_V");
    for (const char* n : {"S", "V"})
        vccSet->Elems.InsertObject(0, n, nullptr);
    vccSet->SetCorrespond();
    EXPECT_EQ(Entry(vccSet, 0), v);
    EXPECT_EQ(vccSet->RtBits, nullptr);
    vccSet->BindObDs();
    vccSet->BindObDs();
    EXPECT_EQ(v->refDSRT.toStdString() + "|" +
                  static_cast<DcDA*>(Entry(vccSet, 1))->refDSRT.toStdString(),
              "DS_V,0;DS_V,0;|");
    DcDataSet* renamed = AddDataSet(icc->DataSets, icc, "DS_1");
    renamed->AddObRef(a);
    a->name = "A2";
    renamed->UpdRefObs();
    EXPECT_EQ(Texts(renamed->Elems),
              "ICC_1/A2,ICC_1/DSConditions_Detected,ICC_1/Event_Code_Detected,"
              "ICC_1/Transfer_Set_Time_Stamp,ICC_1/Transfer_Set_Name");
    // Prefixed, the standard fields are written like any other entry.
    EXPECT_TRUE(renamed->ToXML(0).contains("<ElemDS name=\"ICC_1/Transfer_Set_Name\" />"));

    // Outside an ICC a text stays; an entry without object is passed over.
    DcDataSet* vccRenamed = AddDataSet(vcc->DataSets, vcc, "DS_V");
    vccRenamed->AddObRef(v);
    vccRenamed->Elems.InsertObject(0, "Ghost", nullptr);
    v->name = "V2";
    vccRenamed->UpdRefObs();
    EXPECT_EQ(Texts(vccRenamed->Elems), "Ghost,V," + kStd);

    renamed->OnChangeNameOwn("ICC_9");
    renamed->AddObRef(AddDA(icc->Vars, icc, "B"));
    EXPECT_EQ(renamed->Elems.Strings(0), "ICC_9/B");
}

TEST_F(SetsTest, DataSetAssignSelfAndTransSetConstructors) {
    DcDataSet* source = AddDataSet(vcc->DataSets, vcc, "DS_1");
    DcDataSet* target = AddDataSet(icc->DataSets, icc, "DS_2");
    DcDA* code = static_cast<DcDA*>(source->SelfList.Objects(1));
    code->Value->SetFromstring("5");
    code->desc = "code";
    static_cast<DcDO*>(source->SelfList.Objects(3))->PutVar("Scope", "7");
    target->AssignSelf(source);
    DcDA* copied = static_cast<DcDA*>(target->SelfList.Objects(1));
    EXPECT_EQ(ValueOf(copied) + "," + copied->desc, "5,code");
    EXPECT_EQ(Var(static_cast<DcDO*>(target->SelfList.Objects(3)), {"Scope"}), "0");
    DcDataSet empty("", nullptr);
    empty.AssignSelf(source);
    target->AssignSelf(&empty);
    target->AssignSelf(nullptr);
    DcTransSet* set = AddTransSet("TrSet_1");
    EXPECT_EQ(Texts(set->Members), kMembers);
    EXPECT_EQ(Texts(set->DataSetName->Members), "Scope,DomainName,Name");
    // The set owns the parts that DataSetName lists: their full name skips both.
    DcDA* scope = Leaf(set->DataSetName, "Scope");
    EXPECT_EQ(scope->type + "," + scope->GetFullName(), "UINT8,ICC_1/Scope");
    EXPECT_FALSE(Leaf(set, "Status")->CanA);
    DcDA* conditions = Leaf(set, "DSConditionsRequested");
    EXPECT_EQ(ValueOf(conditions), "00100");
    EXPECT_EQ(conditions->BitNames.toStdString(),
              "IntervalTimeOut,IntegrityTimeOut,ObjectChange,OperatorRequest,OtherExternalEvent");
    DcTransSet bare("", true, nullptr);
    EXPECT_FALSE(bare.Service);
    bare.InitVar();
    EXPECT_EQ(Texts(bare.Members), kMembers);

    // A template set without "BitString5" ends the members before BlockData.
    const int i = pDcDTTP->Types.IndexOf("BitString5");
    delete ListOb(pDcDTTP->Types, i);
    pDcDTTP->Types.Delete(i);
    DcTransSet* partial = AddTransSet("TrSet_3");
    EXPECT_EQ(Texts(partial->Members),
              "DataSetName,StartTime,Interval,TLE,BufferTime,IntegrityCheck");
    EXPECT_FALSE(partial->SetAttFromStr("DSConditionRequested", "10100"));
}

TEST_F(SetsTest, TransSetReadFromAttributesAndChildElements) {
    DcTransSet* set = ReadInto(AddTransSet(""),
                               "<DcTransSet name=\"TrSet_1\" StartTime=\"12\" TLE=\"4\" "
                               "DSConditionsRequested=\"7\" BlockData=\"true\" Critical=\"y\"/>");
    EXPECT_EQ(std::vector<int>({set->TLE, set->EventCodeRequested, set->Critical}),
              std::vector<int>({4, 7, 1})); // the field reads "y" as true, the member not
    EXPECT_EQ(Var(set, {"EventCodeRequested", "DSConditionsRequested", "BlockData", "Critical"}),
              "7,00100,true,false");

    XmlText tsBase(TSbase.c_str());
    RakeTrans(tsBase.Document());
    // The name without "s" is a member more.
    EXPECT_EQ(Texts(pTrans->Members), kMembers + ",DSConditionRequested");
    delete pTrans;
    pTrans = nullptr;
    DcTransSet* children =
        ReadInto(AddTransSet(""), "<DcTransSet><DcDA name=\"Extra\" type=\"INT16\"/></DcTransSet>");
    EXPECT_EQ(Texts(children->Members), kMembers + ",Extra");
    // A leaf DataSetName or a structure named as a part leave nothing dangling.
    DcTransSet* leaf = ReadInto(AddTransSet(""), "<DcTransSet><DcDA name=\"DataSetName\"/>"
                                                 "<DcDO name=\"Scope\"/></DcTransSet>");
    DcDO* scope = leaf->DataSetName;
    EXPECT_EQ(scope, leaf->Members.Objects(leaf->Members.IndexOf("Scope")));
    leaf->InitVar();
    EXPECT_EQ(Texts(scope->Members), "DomainName,Name");
    DcTransSet* noName =
        ReadInto(AddTransSet(""), "<DcTransSet><DcDA name=\"DataSetName\"/></DcTransSet>");
    EXPECT_EQ(noName->DataSetName, nullptr);
    noName->ResetDataSetName();
    noName->GetVarFromDA();
    children->AssignSelf(noName);
    EXPECT_FALSE(CheckValidTrset(noName, 1));
}

TEST_F(SetsTest, DataSetNamePartsReadBackAndCheckValidTrset) {
    DcDataSet* dataSet = AddDataSet(icc->DataSets, icc, "DS_1");
    DcTransSet* set = AddTransSet("TrSet_1");
    set->ResetDataSetName();
    set->SetVar();
    EXPECT_EQ(Var(set, {"DataSetName$Name"}), "H");
    set->ResetDataSetName();
    set->PutVar("DataSetName$Scope", "1");
    set->PutVar("DataSetName$DomainName", "ICC_1");
    set->PutVar("DataSetName$Name", "DS_1");
    set->PutVar("Interval", "7");
    set->PutVar("Status", "true");
    set->GetVarFromDA();
    EXPECT_TRUE(set->Interval == 7 && set->Status && set->RefDS == dataSet);
    EXPECT_TRUE(CheckValidTrset(set, 0));
    // AssignSelf copies member values by index.
    DcTransSet* copy = AddTransSet("TrSet_2");
    copy->AssignSelf(set);
    EXPECT_EQ(Var(copy, {"Interval", "DataSetName$Name"}), "7,DS_1");
    DcTransSet bare("", true, nullptr);
    bare.AssignSelf(set);
    EXPECT_EQ(Texts(bare.Members), "DataSetName");
}

TEST_F(SetsTest, NextTransferSetTakesTheLastFreeTransferSet) {
    AddTransSet("TrSet_1");
    AddTransSet("TrSet_2");
    DcNextTransferSet* next = new DcNextTransferSet(icc);
    next->InitVar();
    EXPECT_EQ(Leaf(next, "Scope")->type, "INT8");
    // Its own writer, apart from the line that the ICC writes for it.
    EXPECT_EQ(next->ToXML(2).toStdString(),
              "  <DcNextTransferSet name = \"Next_DSTransfer_Set\" />\r\n");
    EXPECT_TRUE(next->FindFreeTS() && Var(next, {"DomainName", "Name"}) == "ICC_1,TrSet_2");
}
