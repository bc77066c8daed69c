#include "common/ModelWorld.h"

namespace {

const char* const kVccText =
    "<DcVCC name = \"VCC_1\" desc = \"real\" foo = \"x\">"
    "<DcDA name=\"A\" type=\"INT16\" svalue=\"5\"/><DcDA name=\"A\" type=\"INT16\"/>"
    "<DcDO name=\"S\" type=\"Data_RealQ\"/><DcDO name=\"U\" type=\"Unknown\"/>"
    "<DcDataSet name=\"DS\"><ElemDS name=\"A\"/></DcDataSet><DcDataSet name=\"DS\"/>"
    "<DcLD name=\"ICC_1\" desc=\"first\" other=\"refused\">"
    "<DcDA name=\"B\" type=\"INT32\" svalue=\"9\"/><DcDO name=\"R\" type=\"Data_RealQTimeTag\"/>"
    "<DcDataSet name=\"L\"><ElemDS name=\"ICC_1/B\"/></DcDataSet><DcDataSet name=\"L\"/>"
    "<DcTransSet name=\"TrSet_1\"/><DcNextTransferSet name=\"Other\"/><DcNextTransferSet/>"
    "</DcLD><DcLD name=\"ICC_1\"/><Unknown/></DcVCC>";

} // namespace

TEST_F(ModelWorldTest, ReadersLogDuplicatesKeepThemAndLayOutRowsAndTree) {
    XmlText xml(kVccText);
    pVCC = vcc = new DcVCC();
    LogRecorder log;
    log.Listen(vcc);
    EXPECT_EQ(vcc->DecodeXML(xml.Root()), 0);
    EXPECT_EQ(vcc->desc, "x"); // the last attribute of no use
    EXPECT_EQ(log.texts, QStringList({"error: VCC VCC_1 duplicate variable A",
                                      "error: VCC VCC_1 type is absent in Template U",
                                      "error: VCC VCC_1 duplicate variable ICC_1"}));
    // VCC data sets: one of two kept, ICC's: both; one Next set only.
    DcLD* ld = At<DcLD>(vcc->ICCs, 0);
    EXPECT_EQ(std::vector<int>({vcc->DataSets.Count, ld->DataSets.Count, ld->NextSets.Count}),
              std::vector<int>({1, 2, 1}));
    EXPECT_FALSE(vcc->IsExistNext());
    EXPECT_FALSE(ld->SetAttFromStr("other", "x"));

    vcc->BornDO();
    DcDO* r = At<DcDO>(ld->Vars, 1);
    EXPECT_EQ(std::vector<int>({At<DcDO>(vcc->Vars, 2)->Members.Count,
                                At<DcDO>(vcc->Vars, 3)->Members.Count,
                                At<DcDO>(r->Members, 0)->Members.Count}),
              std::vector<int>({2, 0, 2}));
    EXPECT_EQ(std::vector<int>(ld->RowBase, ld->RowBase + 5), std::vector<int>({1, 1, 2, 2, 4}));
    EXPECT_EQ(std::vector<int>(vcc->RowBase, vcc->RowBase + 5), std::vector<int>({0, 0, 4, 0, 4}));
    EXPECT_EQ(ld->GetObj(3), r);
    int index = 99; // the row, offset by the list's RowBase
    EXPECT_TRUE(ld->FindInd("R", index) == &ld->Vars && index == 3);
    EXPECT_EQ(ld->FindInd("Nope", index), nullptr);

    // Duplicates get a row each, service variables and an absent Next set none.
    vcc->InitVar4DS();
    tree = new myNode(vcc->name, vcc);
    vcc->FillmyNode(tree);
    myNode* iccs = tree->FirstChild->Next->Next;
    EXPECT_EQ(ChildNames(tree->FirstChild->Next), "A,A,S,U");
    EXPECT_EQ(vcc->Vars.Count, 8);
    EXPECT_EQ(ChildNames(iccs), "ICC_1,ICC_1");
    EXPECT_EQ(ChildNames(iccs->FirstChild->GetChildById(2)), "L,L");
    EXPECT_EQ(ChildNames(iccs->GetChildById(1)),
              "Transfer_Sets,Наборы данных (DataSets),Переменные");

    XmlText ldText("<DcLD name=\"ICC_1\"><DcDA name=\"B\"/><DcDO name=\"B\"/></DcLD>");
    DcLD bare;
    log.Listen(&bare);
    log.texts.clear();
    bare.DecodeXML(ldText.Root());
    EXPECT_EQ(log.texts, QStringList({"error: LD ICC_1 duplicate variable B"}));
    EXPECT_EQ(bare.Vars.Count, 2);
}

TEST_F(ModelWorldTest, VccLookups) {
    MakeModel();
    DcDA* a = AddDA(vcc->Vars, vcc, "A");
    DcDO* s = AddDO(vcc->Vars, vcc, "S");
    DcDA* var = AddDA(icc->Vars, icc, "Var");
    DcDO* str = AddDO(icc->Vars, icc, "Str", "Data_RealQTimeTag");
    AddDataSet(vcc->DataSets, vcc, "DS");
    EXPECT_EQ(vcc->GetChildCount(), 3);
    const DcICCPBase* rows[] = {nullptr, a, s, a, nullptr};
    for (int row = -1; row <= 3; ++row)
        EXPECT_EQ(vcc->GetChildById(row), rows[row + 1]) << row;
    EXPECT_EQ(vcc->GetChildRow(a), -1);

    DcICCPBase *flags = ListOb(At<DcDO>(str->Members, 0)->Members, 1),
               *value = ListOb(s->Members, 0);
    const std::pair<const char*, DcICCPBase*> names[] = {
        {"ICC_1/Var$X", var}, {"ICC_1/Var", var},  {"ICC_1/Str$Q$Flags", flags},
        {"S$Value", value},   {"S$Nope", nullptr}, {"ICC_9/Var", nullptr}};
    for (const auto& n : names)
        EXPECT_EQ(vcc->GetDAbyLongName(n.first), n.second) << n.first;
    EXPECT_TRUE(vcc->IsDO("ICC_1/Str") && !vcc->IsDO("S"));

    DcDA* extra = AddRaw<DcDA>(vcc->Extra, vcc, "A");
    int index = -5;
    EXPECT_EQ(vcc->FindObject("A"), extra);
    EXPECT_TRUE(vcc->FindInd("A", index) == &vcc->Extra && index == 0);
}

// RakeNode1 reads the last VCC of the document; its entries are bound after.
TEST_F(ModelWorldTest, SetReletionBindsEntriesAfterLoadingAndHostileTemplatesEndWithoutCrash) {
    XmlText xml("<r><x><DcVCC name=\"First\"/></x><DcVCC name=\"V\"><DcDataSet name=\"DS\"><ElemDS "
                "name=\"A\"/><ElemDS name=\"ICC_1/B\"/></DcDataSet><DcLD name=\"ICC_1\"><DcDataSet "
                "name=\"L\"><ElemDS name=\"ICC_1/B\"/><ElemDS name=\"ICC_1/Late\"/></DcDataSet>"
                "<DcDA name=\"B\" type=\"INT32\"/></DcLD><DcDA name=\"A\"/></DcVCC></r>");
    RakeNode1(nullptr);
    RakeNode1(xml.Document());
    ASSERT_NE(vcc = pVCC, nullptr);
    EXPECT_EQ(vcc->name, "V");
    DcDataSet* ds = At<DcDataSet>(vcc->DataSets, 0);
    DcLD* ld = At<DcLD>(vcc->ICCs, 0);
    DcDataSet* l = At<DcDataSet>(ld->DataSets, 0);
    auto entry = [](DcDataSet* set, const char* key) {
        return set->Elems.Objects(set->Elems.IndexOf(key));
    };
    // Entries read before their variables stay texts until the pass.
    EXPECT_EQ(entry(ds, "A"), nullptr);
    vcc->BornDO();
    vcc->SetReletion();
    EXPECT_EQ(std::vector<void*>({entry(ds, "A"), entry(ds, "ICC_1/B"), entry(l, "ICC_1/B"),
                                  entry(l, "ICC_1/Late")}),
              std::vector<void*>(
                  {ListOb(vcc->Vars, 0), ListOb(ld->Vars, 0), ListOb(ld->Vars, 0), nullptr}));
    // A ring of structured types, each holding the next twice.
    std::string text = "<DcTemplate><DcDAType type=\"INT16\" value=\"0\" size=\"2\"/>";
    for (int i = 0; i < 20; ++i) {
        std::string next = "T" + std::to_string((i + 1) % 20);
        text += "<DcDOType type=\"T" + std::to_string(i) + "\"><DcDA name=\"v\" type=\"INT16\"/>" +
                "<DcDO name=\"a\" type=\"" + next + "\"/><DcDO name=\"b\" type=\"" + next +
                "\"/></DcDOType>";
    }
    text += "<DcDAType type=\"Huge\" size=\"2000000000\" value=\"1\"/>"
            "<DcDAType type=\"Odd\" size=\"-7\" unused=\"-9\" value=\"1\"/></DcTemplate>";
    ASSERT_TRUE(
        Load("<r>" + text + "<DcVCC name=\"V\"><DcDO name=\"R\" type=\"T0\"/>" +
             "<DcDA name=\"H\" type=\"Huge\"/><DcDA name=\"O\" type=\"Odd\"/></DcVCC></r>"));
    EXPECT_TRUE(pDcDTTP->ValidVar());
    EXPECT_FALSE(pVCC->ToXML(2).isEmpty() || pVCC->ToCSV(0).isEmpty());
    myNode desc("T0");
    qobject_cast<DcDOType*>(pDcDTTP->FindType("T0"))->GetFullContDesc(&desc);
    EXPECT_NE(desc.FirstChild, nullptr);
    desc.FirstChild->DeleteSubTree();
}

TEST_F(ModelWorldTest, InitVar4DSCorrectDSTSAndTheWritersPassOverEmptyEntries) {
    MakeModel();
    AddDA(icc->Vars, icc, "Event_Code_Detected", "INT32");
    for (int pass = 0; pass < 2; ++pass) {
        vcc->InitVar4DS();
        icc->InitVar4DS();
    }
    ASSERT_EQ(vcc->Vars.Count, 4);
    EXPECT_EQ(vcc->ServiceVars.Count, 4);
    EXPECT_EQ(icc->Vars.Count, 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(ListOb(vcc->Vars, i)->Service);
        EXPECT_EQ(vcc->ServiceVars.Objects(i), ListOb(vcc->Vars, i));
    }
    EXPECT_TRUE(!ListOb(icc->Vars, 0)->Service && At<DcDA>(icc->Vars, 0)->type == "INT32");
    EXPECT_EQ(At<DcDA>(vcc->Vars, 1)->type + "," + At<DcDA>(vcc->Vars, 0)->type, "INT16,BitString");
    // The scope of the transfer set name is typed apart for the VCC and an ICC.
    for (const auto& scope :
         {std::make_pair(&vcc->Vars, "UINT8"), std::make_pair(&icc->Vars, "INT8")}) {
        DcDO* name = At<DcDO>(*scope.first, scope.first->IndexOf("Transfer_Set_Name"));
        EXPECT_EQ(Texts(name->Members), "Scope,DomainName,Name");
        EXPECT_EQ(At<DcDA>(name->Members, 0)->type, scope.second);
    }
    DcTransSet* target = AddTransSet("TrSet_1");
    DcTransSet source("TrSet_1", false, nullptr);
    ASSERT_EQ(source.PutVar("StartTime", "77"), 0);
    StringList stored;
    vcc->CorrectDSTS(nullptr);
    vcc->CorrectDSTS(&stored);
    stored.AddObject("ICC_1/TrSet_2", &source, true);
    vcc->CorrectDSTS(&stored);
    EXPECT_EQ(Var(target, {"StartTime"}), "0");
    stored.ChString(0, "ICC_1/TrSet_1");
    vcc->CorrectDSTS(&stored);
    EXPECT_EQ(Var(target, {"StartTime"}), "77");
    // A data set made without a parent has no entries: the writers pass it over.
    vcc->Vars.AddObject("Gone", nullptr, true);
    icc->DataSets.AddObject("E", new DcDataSet("E", nullptr), true);
    AddDataSet(icc->DataSets, icc, "L");
    const QString xml = vcc->ToXML(2);
    EXPECT_FALSE(xml.contains("Gone"));
    EXPECT_FALSE(xml.contains("\"E\""));
    EXPECT_TRUE(xml.contains("<DcDataSet  name = \"L\""));
}
