#include <tuple>

#include "common/ModelWorld.h"

TEST_F(ModelWorldTest, VariablesTakeTheTemplateAndAnswerByFullNameAndPath) {
    DcDA int16("A", GetDcDAType("INT16"), nullptr);
    EXPECT_EQ(ValueOf(&int16) + "," + std::to_string(int16.ByteCount), "0,1");
    DcDA noValue("T", GetDcDAType("Data_TimeStamp"), nullptr);
    EXPECT_TRUE(noValue.Value->Buf == nullptr && noValue.ByteCount == 0);
    DcDA bits("B", GetDcDAType("BitString12"), nullptr);
    EXPECT_EQ(ValueOf(&bits), "110000000000");
    EXPECT_TRUE(bits.IsBitStr() && bits.Value->Names == "a,b");
    bits.BitNames = "x,y,z";
    EXPECT_EQ(bits.GetEnumList(), QStringList({"x", "y", "z"}));

    MakeModel();
    DcDO* outer = AddDO(icc->Vars, icc, "Var", "Data_RealQTimeTag");
    DcDO* q = At<DcDO>(outer->Members, 0);
    DcICCPBase* value = ListOb(q->Members, 0);
    EXPECT_EQ(value->GetFullName(), "ICC_1/Var$Q$Value");
    EXPECT_EQ(outer->GetFullName2(), "VCC_1|ICC_1/Var");
    EXPECT_EQ(ListOb(AddDO(vcc->Vars, vcc, "S")->Members, 1)->GetFullName(), "S$Flags");
    const std::pair<const char*, DcICCPBase*> hosts[] = {
        {"DcDA", value}, {"DcDO", q}, {"DcVCC", vcc}, {"DcDataSet", nullptr}};
    for (const auto& h : hosts)
        EXPECT_EQ(value->IsHostObType(h.first), h.second) << h.first;
    DcDO* r = AddDO(icc->Vars, icc, "R", "Data_RealQTimeTag");
    std::string out = "unchanged";
    EXPECT_EQ(r->PutVar("Q$Value", "2.5"), 0);
    EXPECT_EQ(icc->PutVar("R$Q$Flags", "10000001"), 0);
    EXPECT_EQ(Var(r, {"Q$Value", "Q$Flags"}), "2.500000,10000001");
    for (const char* bad : {"Q", "Q$Value$X", "TimeStamp$X", "Nope", "", "Q$Nope"}) {
        EXPECT_EQ(r->GetVar(bad, out), -1) << bad;
        EXPECT_EQ(r->PutVar(bad, "1"), -1) << bad;
    }
    EXPECT_TRUE(icc->GetVar("Missing", out) == -1 && out == "unchanged");
    EXPECT_TRUE(r->IsValidFName("Q$Value"));
    for (const char* bad : {"Q$Nope", "TimeStamp$X", "Nope$Value"})
        EXPECT_FALSE(r->IsValidFName(bad)) << bad;
}

TEST_F(ModelWorldTest, FindDOwZeroAndCreateDcDAMakeMembers) {
    MakeModel();
    DcDO* r = AddRaw<DcDO>(vcc->Vars, vcc, "R", "Data_RealQTimeTag");
    FindDOwZero(r);
    DcDO* q = At<DcDO>(r->Members, 0);
    EXPECT_TRUE(r->Top && !q->Top);
    DcDA* value = At<DcDA>(q->Members, 0);
    EXPECT_EQ(ValueOf(value), "-10.000000");
    // The member owns a copy of the prototype's value.
    value->Value->SetFromstring("1");
    auto* proto = qobject_cast<DcDA*>(
        ListOb(qobject_cast<DcDOType*>(pDcDTTP->FindType("Data_RealQ"))->Members, 0));
    EXPECT_EQ(ValueOf(proto), "-10.000000");

    // A structure with members is not born again, its empty members are.
    DcDO* mixed = AddRaw<DcDO>(vcc->Vars, vcc, "M");
    AddDA(mixed->Members, mixed, "Only");
    DcDO* empty = AddRaw<DcDO>(mixed->Members, mixed, "E", "Data_RealQ");
    DcDO* unknown = AddRaw<DcDO>(mixed->Members, mixed, "U", "Unknown");
    FindDOwZero(mixed);
    FindDOwZero(r);
    FindDOwZero(nullptr);
    EXPECT_EQ(std::vector<int>({mixed->Members.Count, empty->Members.Count, unknown->Members.Count,
                                r->Members.Count}),
              std::vector<int>({3, 2, 0, 2}));
    DcDO structure;
    // An empty text leaves the default.
    const std::tuple<const char*, const char*, const char*, int> rows[] = {
        {"INT16", "A", "5", 0}, {"INT16", "B", "6", 1},       {"INT16", "A", "9", 0},
        {"Nope", "C", "1", -1}, {"Data_RealQ", "C", "1", -1}, {"VISIBLE_STRING32", "S", "", 2}};
    for (const auto& r : rows)
        EXPECT_EQ(structure.CreateDcDA(std::get<0>(r), std::get<1>(r), std::get<2>(r)),
                  std::get<3>(r))
            << std::get<1>(r);
    EXPECT_EQ(Texts(structure.Members), "A,B,S");
    EXPECT_EQ(Var(&structure, {"A", "S"}), "9,Str");

    StringList other;
    other.AddObject("x", nullptr, true);
    EXPECT_EQ(structure.CreateDcDA("INT16", "A", "3", &other), 1);
    DcDA* made = At<DcDA>(other, 1);
    EXPECT_EQ(ValueOf(made), "3");
    EXPECT_EQ(structure.CreateDcDA("INT16", "A", "3", nullptr), -1);
    delete made;
    EXPECT_EQ(structure.CreateDcDO("Data_RealQ", "Q"), 3);
    EXPECT_EQ(Texts(At<DcDO>(structure.Members, 3)->Members), "Value,Flags");
}

TEST_F(ModelWorldTest, GetValidAndDestroyingVariablesWithAndWithoutNeedemit) {
    MakeModel();
    DcDO* structure = AddDO(vcc->Vars, vcc, "S", "Data_RealQTimeTag");
    LogRecorder log;
    log.Listen(structure);
    EXPECT_TRUE(structure->GetValid());
    AddRaw<DcDA>(structure->Members, structure, "Stray", "Nope");
    DcDO* q = At<DcDO>(structure->Members, 0);
    AddRaw<DcDA>(q->Members, q, "Inner", "Nope");
    AddRaw<DcDO>(structure->Members, structure, "U", "Unknown");
    q->Template = nullptr;
    EXPECT_FALSE(structure->GetValid());
    EXPECT_EQ(log.texts,
              QStringList({"error: DO implementation Data_RealQ(include DO )is absent in List",
                           "error: DO implementation Data_RealQTimeTag(include DA )is absent in "
                           "List"}));
    EXPECT_EQ(q->Template, pDcDTTP->FindType("Data_RealQ"));
    std::vector<std::tuple<void*, std::string, void*>> removed;
    QObject::connect(vcc, &DcVCC::RemoveObFromDS,
                     [&removed](void* ld, std::string fullName, void* tag) {
                         removed.emplace_back(ld, fullName, tag);
                     });
    // The form connects by the signal's text.
    EXPECT_GE(vcc->metaObject()->indexOfSignal("RemoveObFromDS(void*,std::string,void*)"), 0);
    // Without needemit the owner's list is left alone.
    delete AddDO(icc->Vars, icc, "Quiet");
    EXPECT_EQ(icc->Vars.Count, 1);
    icc->Vars.Delete(0);

    needemit = true;
    AddDA(icc->Vars, icc, "A");
    delete AddDA(icc->Vars, icc, "B");
    EXPECT_EQ(Texts(icc->Vars), "A");
    EXPECT_TRUE(removed.empty()); // no signal without a bound tag
    void* tag = reinterpret_cast<void*>(0x1234);
    DcDO* s = AddDO(icc->Vars, icc, "S");
    s->BoundTag = tag;
    delete s;
    EXPECT_EQ(icc->Vars.IndexOf("S"), -1);
    EXPECT_EQ(removed, decltype(removed)({{icc, "ICC_1/S", tag}}));

    // Members report first; a VCC variable has no ICC to name.
    removed.clear();
    DcDO* outer = AddDO(vcc->Vars, vcc, "Outer", "Data_RealQTimeTag");
    outer->BoundTag = tag;
    delete outer;
    ASSERT_EQ(removed.size(), 2u);
    EXPECT_EQ(std::get<1>(removed[0]), "Outer$Q");
    EXPECT_EQ(removed[1], std::make_tuple(static_cast<void*>(nullptr), std::string("Outer"), tag));

    // A duplicate name: the entry of the deleted object goes, the other stays.
    DcDA* first = AddDA(vcc->Vars, vcc, "Twin");
    delete AddDA(vcc->Vars, vcc, "Twin");
    ASSERT_EQ(vcc->Vars.IndexOf("Twin"), 1); // after S
    EXPECT_EQ(vcc->Vars.Objects(1), first);
    needemit = false;
}

TEST_F(ModelWorldTest, AttributesSetbTypeListAndRunTimeReferencesOfADcDA) {
    MakeModel();
    // A hand-written element without those attributes keeps its svalue.
    XmlText hand("<DcDA name = \"Supported_Features\" type = \"BitString12\" "
                 "svalue = \"110000000000\" />");
    vcc->DecodeElement(hand.Root(), "DcDA");
    DcDA* features = At<DcDA>(vcc->Vars, 0);
    EXPECT_EQ(ValueOf(features) + "," + std::to_string(features->unused), "110000000000,4");

    DcDA da;
    LogRecorder log;
    log.Listen(&da);
    EXPECT_TRUE(da.SetAttFromStr("type", "Unknown"));
    EXPECT_FALSE(da.SetAttFromStr("type", "Data_RealQ"));
    EXPECT_EQ(da.Template, nullptr);
    EXPECT_EQ(log.texts, QStringList({"error: Problem with DcDAType"}));
    EXPECT_TRUE(da.SetAttFromStr("type", "INT32"));
    EXPECT_EQ(da.Template, GetDcDAType("INT32"));
    DcDO dobject;
    EXPECT_FALSE(dobject.SetAttFromStr("refDSRT", "1"));

    // The writer takes svalue from the value and puts desc in unescaped.
    DcDA* m = AddDA(vcc->Vars, vcc, "M");
    m->desc = "a \"q\" & <t>";
    m->Value->SetFromstring("-1");
    EXPECT_TRUE(m->ToXML(0).contains("desc = \"a \"q\" & <t>\" svalue = \"65535\""));
    EXPECT_EQ(m->svalue, "65535");
    DcDA* wide = AddDA(vcc->Vars, vcc, "A", "INT32");
    DcDA* value = At<DcDA>(AddDO(vcc->Vars, vcc, "S")->Members, 0);
    wide->Value->bType = -1;
    value->Value->bType = -1;
    SetbTypeList(&vcc->Vars);
    EXPECT_EQ(wide->Value->bType, 3);
    EXPECT_EQ(value->Value->bType, 8);
    SetbTypeList(nullptr);
    DcDataSet* iccSet = AddDataSet(icc->DataSets, icc, "DS2");
    iccSet->RtBits = new qolBitSet(8);
    DcDA reader(vcc);
    reader.ParseRefRT("ICC_1/DS2,1;Nope,3;ICC_9/DS2,5;");
    EXPECT_EQ(iccSet->RtBits->BufToStr(), "01000000");
    reader.refDSRT = "ICC_1/DS2,4;";
    SetBitDatSet(&reader);
    EXPECT_EQ(iccSet->RtBits->BufToStr(), "01001000");
}
