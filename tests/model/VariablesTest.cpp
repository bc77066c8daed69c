// Variables: construction, full names, paths, birth from templates,
// validation, destruction, reading and writing.
#include <QMetaObject>
#include <tinyxml.h>
#include <tuple>
#include <vector>

#include "ModelFixture.h"
#include "support/MyBuf.h"

TEST_F(ModelTest, ConstructorsTakeTheTemplate) {
    DcDA withValue("A", GetDcDAType("INT16"), nullptr);
    EXPECT_EQ(withValue.svalue, "0");
    EXPECT_EQ(withValue.ByteCount, 1);

    DcDA noValue("T", GetDcDAType("Data_TimeStamp"), nullptr);
    EXPECT_EQ(noValue.Value->Buf, nullptr);
    EXPECT_EQ(noValue.ByteCount, 0);

    DcDA bits("B", GetDcDAType("BitString12"), nullptr);
    EXPECT_TRUE(bits.IsBitStr());
    EXPECT_EQ(ValueOf(&bits), "110000000000");
    EXPECT_EQ(bits.Value->Names, "a,b");
    bits.BitNames = "x,y,z";
    EXPECT_EQ(bits.GetEnumList(), QStringList({"x", "y", "z"}));
}

TEST_F(ModelTest, FullNamesUseSlashAndDollar) {
    MakeModel();
    DcDO* outer = AddDO(icc->Vars, icc, "Var", "Data_RealQTimeTag");
    DcDO* q = qobject_cast<DcDO*>(ListOb(outer->Members, 0));
    ASSERT_NE(q, nullptr);
    EXPECT_EQ(ListOb(q->Members, 0)->GetFullName(), "ICC_1/Var$Q$Value");
    EXPECT_EQ(outer->GetFullName2(), "VCC_1|ICC_1/Var");
    DcDO* vccStruct = AddDO(vcc->Vars, vcc, "S");
    EXPECT_EQ(ListOb(vccStruct->Members, 1)->GetFullName(), "S$Flags");
}

TEST_F(ModelTest, GetVarAndPutVarFollowPaths) {
    MakeModel();
    DcDO* r = AddDO(icc->Vars, icc, "R", "Data_RealQTimeTag");
    std::string out = "unchanged";
    EXPECT_EQ(r->PutVar("Q$Value", "2.5"), 0);
    EXPECT_EQ(r->GetVar("Q$Value", out), 0);
    EXPECT_EQ(out, "2.500000");
    for (const char* bad : {"Q", "Q$Value$X", "TimeStamp$X", "Nope", "", "Q$Nope"}) {
        out = "unchanged";
        EXPECT_EQ(r->GetVar(bad, out), -1) << bad;
        EXPECT_EQ(out, "unchanged");
        EXPECT_EQ(r->PutVar(bad, "1"), -1) << bad;
    }

    EXPECT_EQ(icc->PutVar("R$Q$Flags", "10000001"), 0);
    EXPECT_EQ(r->GetVar("Q$Flags", out), 0);
    EXPECT_EQ(out, "10000001");
    EXPECT_EQ(icc->GetVar("Missing", out), -1);

    EXPECT_TRUE(r->IsValidFName("Q$Value"));
    for (const char* bad : {"Q$Nope", "TimeStamp$X", "Nope$Value"})
        EXPECT_FALSE(r->IsValidFName(bad)) << bad;
}

TEST_F(ModelTest, FindDOwZeroGivesEmptyStructuresTheirMembers) {
    MakeModel();
    XmlText xml("<DcDO name=\"R\" type=\"Data_RealQTimeTag\"/>");
    DcDO* r = new DcDO(vcc);
    r->DecodeXML(xml.Root());
    vcc->Vars.AddObject(r->name, r, true);
    EXPECT_EQ(r->Members.Count, 0);
    FindDOwZero(r);
    ASSERT_EQ(r->Members.Count, 2);
    DcDO* q = qobject_cast<DcDO*>(ListOb(r->Members, 0));
    ASSERT_NE(q, nullptr);
    EXPECT_FALSE(q->Top);
    EXPECT_TRUE(r->Top);
    DcDA* value = qobject_cast<DcDA*>(ListOb(q->Members, 0));
    ASSERT_NE(value, nullptr);
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
    EXPECT_EQ(mixed->Members.Count, 3);
    EXPECT_EQ(empty->Members.Count, 2);
    EXPECT_EQ(unknown->Members.Count, 0);
    EXPECT_EQ(r->Members.Count, 2);
}

TEST_F(ModelTest, CreateDcDAFindsOrMakesAMember) {
    DcDO structure;
    EXPECT_EQ(structure.CreateDcDA("INT16", "A", "5"), 0);
    EXPECT_EQ(structure.CreateDcDA("INT16", "B", "6"), 1);
    std::string out;
    EXPECT_EQ(structure.CreateDcDA("INT16", "A", "9"), 0);
    EXPECT_EQ(structure.Members.Count, 2);
    structure.GetVar("A", out);
    EXPECT_EQ(out, "9");
    EXPECT_EQ(structure.CreateDcDA("Nope", "C", "1"), -1);
    EXPECT_EQ(structure.CreateDcDA("Data_RealQ", "C", "1"), -1);
    EXPECT_EQ(structure.Members.Count, 2);
    // An empty text leaves a string at its default.
    EXPECT_EQ(structure.CreateDcDA("VISIBLE_STRING32", "S", ""), 2);
    structure.GetVar("S", out);
    EXPECT_EQ(out, "Str");

    StringList other;
    other.AddObject("x", nullptr, true);
    EXPECT_EQ(structure.CreateDcDA("INT16", "A", "3", &other), 1);
    EXPECT_EQ(structure.Members.Count, 3);
    DcDA* made = qobject_cast<DcDA*>(ListOb(other, 1));
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(ValueOf(made), "3");
    EXPECT_EQ(structure.CreateDcDA("INT16", "A", "3", nullptr), -1);
    delete made;

    EXPECT_EQ(structure.CreateDcDO("Data_RealQ", "Q"), 3);
    EXPECT_EQ(qobject_cast<DcDO*>(ListOb(structure.Members, 3))->Members.Count, 2);
    EXPECT_EQ(structure.CreateDcDO("INT16", "Bad"), -1);
}

TEST_F(ModelTest, GetValidReportsMembersWithoutTemplates) {
    MakeModel();
    DcDO* structure = AddDO(vcc->Vars, vcc, "S", "Data_RealQTimeTag");
    LogRecorder log;
    log.Listen(structure);
    EXPECT_TRUE(structure->GetValid());

    AddRaw<DcDA>(structure->Members, structure, "Stray", "Nope");
    DcDO* q = qobject_cast<DcDO*>(ListOb(structure->Members, 0));
    AddRaw<DcDA>(q->Members, q, "Inner", "Nope");
    AddRaw<DcDO>(structure->Members, structure, "U", "Unknown");
    q->Template = nullptr;

    EXPECT_FALSE(structure->GetValid());
    EXPECT_EQ(log.texts,
              QStringList({"error: DO implementation Data_RealQ(include DO )is absent in List",
                           "error: DO implementation Data_RealQTimeTag(include DA )is absent in "
                           "List"}));
    EXPECT_EQ(q->Template, pDcDTTP->FindType("Data_RealQ"));
}

TEST_F(ModelTest, DestroyingVariablesWithAndWithoutNeedemit) {
    MakeModel();
    std::vector<std::tuple<void*, std::string, void*>> removed;
    QObject::connect(vcc, &DcVCC::RemoveObFromDS,
                     [&removed](void* ld, std::string fullName, void* tag) {
                         removed.emplace_back(ld, fullName, tag);
                     });
    // The form connects by the signal's text.
    EXPECT_GE(vcc->metaObject()->indexOfSignal("RemoveObFromDS(void*,std::string,void*)"), 0);

    // Without needemit the owner's list is left alone.
    DcDO* quiet = AddDO(icc->Vars, icc, "Quiet");
    delete quiet;
    EXPECT_EQ(icc->Vars.Count, 1);
    icc->Vars.Delete(0);
    EXPECT_TRUE(removed.empty());

    needemit = true;
    AddDA(icc->Vars, icc, "A");
    delete AddDA(icc->Vars, icc, "B");
    EXPECT_EQ(Texts(icc->Vars), "A");
    EXPECT_TRUE(removed.empty());

    void* tag = reinterpret_cast<void*>(0x1234);
    DcDO* s = AddDO(icc->Vars, icc, "S");
    s->BoundTag = tag;
    delete s;
    EXPECT_EQ(icc->Vars.IndexOf("S"), -1);
    ASSERT_EQ(removed.size(), 1u);
    EXPECT_EQ(removed[0], std::make_tuple(static_cast<void*>(icc), std::string("ICC_1/S"), tag));

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
    DcDA* second = AddDA(vcc->Vars, vcc, "Twin");
    delete second;
    ASSERT_EQ(vcc->Vars.IndexOf("Twin"), 0);
    EXPECT_EQ(vcc->Vars.Objects(0), first);
    needemit = false;
}

TEST_F(ModelTest, AttributesOfADcDA) {
    MakeModel();
    XmlText attrs("<DcDA name = \"A\" svalue = \"5\" ByteCount=\"4\"/>");
    DcDA a(vcc);
    a.DecodeXML(attrs.Root());
    EXPECT_EQ(a.svalue, "4");
    EXPECT_EQ(a.flagAbility, 4);
    EXPECT_EQ(a.ByteCount, 0);

    // A hand-written element without those attributes keeps its svalue.
    XmlText hand("<DcDA name = \"Supported_Features\" type = \"BitString12\" "
                 "svalue = \"110000000000\" />");
    vcc->DecodeElement(hand.Root(), "DcDA");
    DcDA* features = qobject_cast<DcDA*>(ListOb(vcc->Vars, 0));
    ASSERT_NE(features, nullptr);
    EXPECT_EQ(ValueOf(features), "110000000000");
    EXPECT_EQ(features->unused, 4);

    DcDA da;
    LogRecorder log;
    log.Listen(&da);
    EXPECT_TRUE(da.SetAttFromStr("type", "Unknown"));
    EXPECT_EQ(da.Template, nullptr);
    EXPECT_FALSE(da.SetAttFromStr("type", "Data_RealQ"));
    EXPECT_EQ(da.Template, nullptr);
    EXPECT_EQ(log.texts, QStringList({"error: Problem with DcDAType"}));
    EXPECT_TRUE(da.SetAttFromStr("type", "INT32"));
    EXPECT_EQ(da.Template, GetDcDAType("INT32"));

    DcDO dobject;
    EXPECT_FALSE(dobject.SetAttFromStr("refDSRT", "1"));
}

TEST_F(ModelTest, VariableWritersByteForByte) {
    MakeModel();
    DcDA* da = AddDA(icc->Vars, icc, "Var_1");
    da->desc = "a \"quoted\" & <text>";
    da->Value->SetFromstring("-1");
    da->refDSRT = "ICC_1/DS_1,0;";
    da->refDS = "ICC_1/DS_1;";
    da->ByteCount = 2;
    da->flagAbility = 3;
    EXPECT_EQ(da->ToXML(4),
              "    <DcDA  name = \"Var_1\" type = \"INT16\" desc = \"a \"quoted\" & <text>\" "
              "svalue = \"65535\" refDSRT = \"ICC_1/DS_1,0;\" ByteCount=\"2\"  unused=\"0\" "
              "refDS = \"ICC_1/DS_1;\"  flagAbility = \"3\" /> \r\n");
    EXPECT_EQ(da->svalue, "65535");

    // Without bytes in the value the text stays as it is.
    DcDA bare(icc);
    bare.name = "B";
    bare.svalue = "kept";
    bare.unused = -2;
    EXPECT_EQ(bare.ToXML(0), "<DcDA  name = \"B\" type = \"\" desc = \"\" svalue = \"kept\" "
                             "refDSRT = \"\" ByteCount=\"0\"  unused=\"-2\" refDS = \"\"  "
                             "flagAbility = \"0\" /> \r\n");

    EXPECT_EQ(da->ToCSV(3), ";;;Var_1;INT16;ICC_1;a \"quoted\" & <text>\r\n");
}

TEST_F(ModelTest, SetbTypeListTypesEveryLeaf) {
    MakeModel();
    DcDA* a = AddDA(vcc->Vars, vcc, "A", "INT32");
    DcDO* s = AddDO(vcc->Vars, vcc, "S");
    DcDA* value = qobject_cast<DcDA*>(ListOb(s->Members, 0));
    a->Value->bType = -1;
    value->Value->bType = -1;
    SetbTypeList(&vcc->Vars);
    EXPECT_EQ(a->Value->bType, 3);
    EXPECT_EQ(value->Value->bType, 8);
    SetbTypeList(nullptr);
}

TEST_F(ModelTest, RunTimeReferencesSetTheBitsOfDataSets) {
    MakeModel();
    DcDataSet* vccSet = new DcDataSet("DS", vcc);
    vcc->DataSets.AddObject("DS", vccSet, true);
    DcDataSet* iccSet = new DcDataSet("DS2", icc);
    icc->DataSets.AddObject("DS2", iccSet, true);
    vccSet->RtBits = new qolBitSet(8);
    iccSet->RtBits = new qolBitSet(8);

    DcDA da(vcc);
    da.ParseRefRT("");
    da.ParseRefRT("DS,2;ICC_1/DS2,1;Nope,3;ICC_9/DS2,5;ICC_1/Nope,6;");
    EXPECT_EQ(vccSet->RtBits->BufToStr(), "00100000");
    EXPECT_EQ(iccSet->RtBits->BufToStr(), "01000000");
    // The walk ends at an empty entry.
    da.ParseRefRT(";DS,5;");
    EXPECT_EQ(vccSet->RtBits->BufToStr(), "00100000");

    da.refDSRT = "DS,3;ICC_1/DS2,4;ICC_1/DS2;";
    SetBitDatSet(&da);
    EXPECT_EQ(iccSet->RtBits->BufToStr(), "01001000");
    DcDA outside;
    outside.refDSRT = "ICC_1/DS2,7;";
    SetBitDatSet(&outside);
    SetBitDatSet(nullptr);
    EXPECT_EQ(iccSet->RtBits->BufToStr(), "01001000");
}
