// The template set: reading, duplicates, order of the file, validation,
// expansion, ordering and the writers.
#include <tinyxml.h>
#include <tuple>

#include "ModelFixture.h"
#include "support/MyBuf.h"
#include "support/myNode.h"

TEST(Templates, DuplicatesAreLoggedAndTheFirstKept) {
    XmlText xml("<DcTemplate>"
                "<DcDAType type=\"INT16\" value=\"1\"/>"
                "<DcDOType type=\"Pair\"/>"
                "<DcDAType type=\"INT16\" value=\"2\"/>"
                "<DcDOType type=\"Pair\" defname=\"second\"/>"
                "<Other/>"
                "</DcTemplate>");
    DcDTTP dttp;
    LogRecorder log;
    log.Listen(&dttp);
    EXPECT_EQ(dttp.DecodeXML(xml.Root()), 0);
    EXPECT_EQ(log.texts, QStringList({"error: DTTP duplicate variable : INT16",
                                      "error: DTTP duplicate variable : Pair"}));
    EXPECT_EQ(dttp.ErrCount, 2);
    ASSERT_EQ(dttp.Types.Count, 2);
    EXPECT_EQ(qobject_cast<DcDAType*>(dttp.FindType("INT16"))->value, "1");
    EXPECT_EQ(qobject_cast<DcDOType*>(dttp.FindType("Pair"))->defname, "");
    EXPECT_EQ(dttp.DecodeElement(xml.Root(), "Other"), 4);
}

TEST(Templates, ReaderFindsTheFirstTemplateAnywhere) {
    XmlText xml("<a><b/><c><DcTemplate><DcDAType type=\"X\"/></DcTemplate></c>"
                "<DcTemplate><DcDAType type=\"Y\"/></DcTemplate></a>");
    DcDTTP* dttp = nullptr;
    EXPECT_TRUE(FindAndRakeDTTPFromStr(xml.Document(), &dttp));
    ASSERT_NE(dttp, nullptr);
    EXPECT_EQ(dttp->Types.Strings(0), "X");
    // A set already there is kept, and the element is skipped.
    DcDTTP* before = dttp;
    FindAndRakeDTTPFromStr(xml.Document(), &dttp);
    EXPECT_EQ(dttp, before);
    EXPECT_EQ(dttp->Types.Count, 1);
    delete dttp;

    XmlText none("<a><b/></a>");
    dttp = nullptr;
    EXPECT_TRUE(FindAndRakeDTTPFromStr(none.Document(), &dttp));
    EXPECT_EQ(dttp, nullptr);
}

TEST_F(ModelTest, ValidVarStopsAtTheFirstInvalidStructure) {
    const char* text = ("<DcTemplate>"
                        "<DcDAType type=\"INT16\"/><DcDAType type=\"INT32\"/>"
                        "<DcDOType type=\"A\"><DcDA name=\"v\" type=\"INT16\"/></DcDOType>"
                        "<DcDOType type=\"B\"><DcDA name=\"w\" type=\"INT32\"/></DcDOType>"
                        "<DcDOType type=\"C\"><DcDA name=\"x\" type=\"INT16\"/>"
                        "<DcDA name=\"y\" type=\"INT16\"/></DcDOType>"
                        "</DcTemplate>");
    delete pDcDTTP;
    ASSERT_NE(ReadTypes(text), nullptr);
    EXPECT_TRUE(pDcDTTP->ValidVar());

    // Take INT16 out of the set: A and C lose their basic type.
    int i = pDcDTTP->Types.IndexOf("INT16");
    DcICCPBase* int16 = ListOb(pDcDTTP->Types, i);
    pDcDTTP->Types.Delete(i);
    auto* a = qobject_cast<DcDOType*>(pDcDTTP->FindType("A"));
    auto* c = qobject_cast<DcDOType*>(pDcDTTP->FindType("C"));
    LogRecorder log;
    for (const char* name : {"A", "B", "C"})
        log.Listen(pDcDTTP->FindType(name));
    EXPECT_FALSE(pDcDTTP->ValidVar());
    EXPECT_EQ(log.texts, QStringList({"error: DOType A(include DA )is absent in List"}));
    EXPECT_EQ(a->Valid, 0);
    EXPECT_EQ(c->Valid, 1);

    // C on its own reports every member.
    log.texts.clear();
    EXPECT_FALSE(c->GetValid());
    EXPECT_EQ(log.texts, QStringList({"error: DOType C(include DA )is absent in List",
                                      "error: DOType C(include DA )is absent in List"}));
    delete int16;

    DcDTTP empty;
    EXPECT_TRUE(empty.ValidVar());
}

TEST(Templates, WithoutATemplateSetNoDcDAMemberIsRead) {
    XmlText alone("<DcDOType type=\"T\"><DcDA name=\"V\" type=\"INT16\"/></DcDOType>");
    DcDOType type;
    EXPECT_EQ(type.DecodeElement(alone.Root()->FirstChild(), "DcDA"), 3);
    EXPECT_EQ(type.Members.Count, 0);
}

TEST_F(ModelTest, StructuredTemplateReportsAnInvalidStructureMember) {
    XmlText xml("<DcDOType type=\"Outer\">"
                "<DcDO name=\"S\" type=\"Data_RealQ\"><DcDA name=\"x\" type=\"Nope\"/></DcDO>"
                "</DcDOType>");
    DcDOType outer;
    outer.DecodeXML(xml.Root());
    ASSERT_EQ(outer.Members.Count, 1);
    DcDO* member = qobject_cast<DcDO*>(ListOb(outer.Members, 0));
    ASSERT_NE(member, nullptr);
    LogRecorder outerLog, memberLog;
    outerLog.Listen(&outer);
    memberLog.Listen(member);
    EXPECT_FALSE(outer.GetValid());
    EXPECT_EQ(outer.Valid, 0);
    EXPECT_EQ(outerLog.texts,
              QStringList({"error: DOType Data_RealQ(include DO )is absent in List"}));
    EXPECT_EQ(memberLog.texts,
              QStringList({"error: DO implementation Data_RealQ(include DA )is absent in List"}));
    // Without a template set everything is valid.
    DcDTTP* kept = pDcDTTP;
    pDcDTTP = nullptr;
    EXPECT_TRUE(outer.GetValid());
    EXPECT_EQ(outer.Valid, 1);
    pDcDTTP = kept;
}

TEST_F(ModelTest, GetFullContDescEndsAtAStructureOfAnUnknownType) {
    // A structure of an unknown type ends the expansion at that member.
    XmlText xml("<DcDOType type=\"T\"><DcDA name=\"a\" type=\"INT16\"/>"
                "<DcDO name=\"s\" type=\"Unknown\"/><DcDA name=\"b\" type=\"INT16\"/>"
                "</DcDOType>");
    DcDOType partial;
    partial.DecodeXML(xml.Root());
    ASSERT_EQ(partial.Members.Count, 3);
    myNode other("root");
    partial.GetFullContDesc(&other);
    EXPECT_EQ(ChildNames(&other), "a,s");
    if (other.FirstChild)
        other.FirstChild->DeleteSubTree();
}

TEST_F(ModelTest, SelfContainingStructureEndsExpansionAndBirth) {
    XmlText xml("<DcDOType type=\"Loop\"><DcDA name=\"a\" type=\"INT16\"/>"
                "<DcDO name=\"again\" type=\"Loop\"/></DcDOType>");
    DcDOType* loop = new DcDOType(pDcDTTP);
    loop->DecodeXML(xml.Root());
    pDcDTTP->Types.AddObject(loop->type, loop, true);
    pDcDTTP->TypeList.append(loop);

    myNode root("root");
    loop->GetFullContDesc(&root);
    EXPECT_EQ(ChildNames(&root), "a,again");
    EXPECT_EQ(ChildNames(root.FirstChild->Next), "");
    root.FirstChild->DeleteSubTree();

    DcDO structure("S", loop, nullptr);
    ASSERT_EQ(structure.Members.Count, 2);
    DcDO* again = qobject_cast<DcDO*>(ListOb(structure.Members, 1));
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->Members.Count, 0);
}

TEST_F(ModelTest, LessThenAndSortByIdtype) {
    DcDAType low;
    low.idtype = 3;
    DcDOType structured;
    structured.idtype = 4;
    DcDA other;
    // A non-template compares as less both ways.
    const std::tuple<DcICCPBase*, DcICCPBase*, bool> pairs[] = {{&low, &low, false},
                                                                {&low, &structured, true},
                                                                {&structured, &low, false},
                                                                {&other, &low, true},
                                                                {&low, &other, true}};
    for (const auto& p : pairs)
        EXPECT_EQ(lessThen(std::get<0>(p), std::get<1>(p)), std::get<2>(p));

    pDcDTTP->sortByidtype();
    QStringList order;
    for (DcICCPBase* templ : pDcDTTP->TypeList)
        order << QString::number(templ->idtype);
    EXPECT_EQ(order.join(","), "1,2,10,11,12,13,14,15,16,17,18,19,20,21");
    // The StringList keeps the order of reading.
    EXPECT_EQ(pDcDTTP->Types.Strings(0), "INT16");
}

TEST(TemplateWriters, BasicTypeIgnoresTheIndentAndWritesItsTableOnly) {
    DcDAType type;
    type.idtype = 6;
    type.type = "S";
    type.size = 32;
    type.unused = 0;
    type.desc = "a \"quoted\" & text";
    type.enums = true;
    type.senum = "x,y";
    const QString expected =
        "<DcDAType idtype=\"6\" type = \"S\"  defname = \"\" size = \"32\" unused = \"0\" "
        "desc = \"a \"quoted\" & text\"  enums = \"true\" value = \"\"  />\r\n";
    EXPECT_EQ(type.ToXML(0), expected);
    EXPECT_EQ(type.ToXML(7), expected);
}
