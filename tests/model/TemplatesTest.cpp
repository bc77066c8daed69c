#include <cstring>
#include <tuple>

#include "common/ModelWorld.h"

TEST_F(ModelWorldTest, TablesTemplatesValidationAndExpansion) {
    auto row = [](const char* name) { return FindDAType2(DATypes, 0, DATypesCount - 1, name); };
    // Alias, base type, sorted row (-1: unchecked); DATA_TIMESTAMP takes two steps.
    const std::tuple<const char*, const char*, int> aliases[] = {{"BITSTRING5", "BITSTRING5", 2},
                                                                 {"DATA_STATE", "BITSTRING", -1},
                                                                 {"DATA_TIMESTAMP", "INT32", -1}};
    for (const auto& a : aliases) {
        EXPECT_STREQ(DATypes[row(std::get<0>(a))].name, std::get<1>(a));
        EXPECT_TRUE(std::get<2>(a) < 0 || row(std::get<0>(a)) == std::get<2>(a)) << std::get<0>(a);
    }
    // Aliases are upper-cased once at start, so the mixed-case name fails.
    for (const char* missing : {"Data_Real", "", "A_NAME_LONGER_THAN_ANY_ROW_OF_THE_TABLES"})
        EXPECT_EQ(row(missing), -1) << missing;

    for (int i = 0; i < DATypesCount; ++i) {
        EXPECT_TRUE(i == 0 || strcmp(DATypes[i - 1].name, DATypes[i].name) < 0) << i;
        EXPECT_EQ(FindDAType(DATypes, 0, DATypesCount - 1, DATypes[i].name), i);
    }
    for (int i = 0; i < SecTypesCount; ++i) {
        EXPECT_TRUE(i == 0 || strcmp(SecTypesA[i - 1].alias, SecTypesA[i].alias) < 0) << i;
        char target[32] = "";
        EXPECT_EQ(FindSecond(SecTypesA[i].alias, target, 0, SecTypesCount - 1), i);
        EXPECT_STREQ(target, SecTypesA[i].target);
    }
    for (const char* missing : {"A", "BOOLEAN", "ZZZ"})
        EXPECT_EQ(FindDAType(DATypes, 0, DATypesCount - 1, missing), -1) << missing;
    char target[32] = "unchanged";
    EXPECT_TRUE(FindSecond("INT32", target, 0, SecTypesCount - 1) == -1 &&
                !strcmp(target, "unchanged"));
    EXPECT_TRUE(GetType("FLOAT32") == 4 && GetType("bool") == 0);
    EXPECT_TRUE(TabDcObCode("DcICCPBase") == 0 && TabDcObCode("DcNothing") == -1);
    DcDAType low;
    DcDA plain;
    // A non-template compares as less both ways.
    EXPECT_TRUE(lessThen(&plain, &low) && lessThen(&low, &plain));
    pDcDTTP->sortByidtype();
    std::string order;
    for (DcICCPBase* templ : pDcDTTP->TypeList)
        order += std::to_string(templ->idtype) + ",";
    EXPECT_EQ(order, "1,2,10,11,12,13,14,15,16,17,18,19,20,21,");
    XmlText xml("<DcDOType type=\"Outer\"><DcDO name=\"S\" type=\"Data_RealQ\">"
                "<DcDA name=\"x\" type=\"Nope\"/></DcDO></DcDOType>");
    DcDOType outer;
    outer.DecodeXML(xml.Root());
    DcDO* member = At<DcDO>(outer.Members, 0);
    LogRecorder outerLog, memberLog;
    outerLog.Listen(&outer);
    memberLog.Listen(member);
    EXPECT_FALSE(outer.GetValid() || outer.Valid);
    EXPECT_EQ(outerLog.texts,
              QStringList({"error: DOType Data_RealQ(include DO )is absent in List"}));
    EXPECT_EQ(memberLog.texts,
              QStringList({"error: DO implementation Data_RealQ(include DA )is absent in List"}));
    // Without a template set everything is valid.
    DcDTTP* kept = pDcDTTP;
    pDcDTTP = nullptr;
    EXPECT_TRUE(outer.GetValid() && outer.Valid == 1);
    pDcDTTP = kept;
    XmlText partialText("<DcDOType type=\"T\"><DcDA name=\"a\" type=\"INT16\"/><DcDO name=\"s\"/>"
                        "<DcDA name=\"b\" type=\"INT16\"/></DcDOType>");
    DcDOType partial;
    partial.DecodeXML(partialText.Root());
    myNode other("root");
    partial.GetFullContDesc(&other);
    EXPECT_EQ(ChildNames(&other), "a,s");
    other.FirstChild->DeleteSubTree();

    XmlText loopText("<DcDOType type=\"Loop\"><DcDA name=\"a\" type=\"INT16\"/>"
                     "<DcDO name=\"again\" type=\"Loop\"/></DcDOType>");
    DcDOType* loop = new DcDOType(pDcDTTP);
    loop->DecodeXML(loopText.Root());
    pDcDTTP->Types.AddObject(loop->type, loop, true);
    pDcDTTP->TypeList.append(loop);
    myNode root("root");
    loop->GetFullContDesc(&root);
    EXPECT_EQ(ChildNames(&root), "a,again");
    EXPECT_EQ(ChildNames(root.FirstChild->Next), "");
    root.FirstChild->DeleteSubTree();
    DcDO structure("S", loop, nullptr);
    EXPECT_EQ(At<DcDO>(structure.Members, 1)->Members.Count, 0);
    ClearModel(tree); // no template set
    XmlText dupText(
        "<DcTemplate><DcDAType type=\"INT16\" value=\"1\"/><DcDOType type=\"Pair\"/>"
        "<DcDAType type=\"INT16\" value=\"2\"/><DcDOType type=\"Pair\" defname=\"second\"/>"
        "<Other/></DcTemplate>");
    DcDTTP dttp;
    LogRecorder log;
    log.Listen(&dttp);
    EXPECT_EQ(dttp.DecodeXML(dupText.Root()), 0);
    EXPECT_EQ(log.texts, QStringList({"error: DTTP duplicate variable : INT16",
                                      "error: DTTP duplicate variable : Pair"}));
    EXPECT_EQ(Texts(dttp.Types), "INT16,Pair");
    EXPECT_EQ(qobject_cast<DcDAType*>(dttp.FindType("INT16"))->value, "1");
    EXPECT_EQ(qobject_cast<DcDOType*>(dttp.FindType("Pair"))->defname, "");
    EXPECT_EQ(dttp.DecodeElement(dupText.Root(), "Other"), 4);

    XmlText two("<a><b/><c><DcTemplate><DcDAType type=\"X\"/></DcTemplate></c>"
                "<DcTemplate><DcDAType type=\"Y\"/></DcTemplate></a>");
    DcDTTP* found = nullptr;
    EXPECT_TRUE(FindAndRakeDTTPFromStr(two.Document(), &found));
    // A set already there is kept, and the element is skipped.
    DcDTTP* before = found;
    FindAndRakeDTTPFromStr(two.Document(), &found);
    EXPECT_EQ(found, before);
    EXPECT_EQ(Texts(found->Types), "X");
    delete found;
    XmlText none("<a><b/></a>");
    found = nullptr;
    EXPECT_TRUE(FindAndRakeDTTPFromStr(none.Document(), &found) && !found);

    // Without a template set no DcDA member is read.
    XmlText alone("<DcDOType type=\"T\"><DcDA name=\"V\" type=\"INT16\"/></DcDOType>");
    DcDOType type;
    EXPECT_EQ(type.DecodeElement(alone.Root()->FirstChild(), "DcDA"), 3);
    EXPECT_EQ(type.Members.Count, 0);
    delete pDcDTTP;
    ReadTypes("<DcTemplate><DcDAType type=\"INT16\"/><DcDAType type=\"INT32\"/><DcDOType "
              "type=\"A\"><DcDA name=\"v\" type=\"INT16\"/></DcDOType><DcDOType type=\"B\"><DcDA "
              "name=\"w\" type=\"INT32\"/></DcDOType><DcDOType type=\"C\"><DcDA name=\"x\" "
              "type=\"INT16\"/><DcDA name=\"y\" type=\"INT16\"/></DcDOType></DcTemplate>");
    // Take INT16 out of the set: A and C lose their basic type.
    DcICCPBase* int16 = ListOb(pDcDTTP->Types, 0);
    pDcDTTP->Types.Delete(0);
    auto* a = qobject_cast<DcDOType*>(pDcDTTP->FindType("A"));
    auto* c = qobject_cast<DcDOType*>(pDcDTTP->FindType("C"));
    LogRecorder validLog;
    for (const char* name : {"A", "B", "C"})
        validLog.Listen(pDcDTTP->FindType(name));
    EXPECT_FALSE(pDcDTTP->ValidVar());
    EXPECT_EQ(validLog.texts, QStringList({"error: DOType A(include DA )is absent in List"}));
    EXPECT_EQ(std::vector<int>({a->Valid, c->Valid}), std::vector<int>({0, 1})); // C not reached
    // C on its own reports every member.
    validLog.texts.clear();
    EXPECT_FALSE(c->GetValid());
    EXPECT_EQ(validLog.texts, QStringList({"error: DOType C(include DA )is absent in List",
                                           "error: DOType C(include DA )is absent in List"}));
    delete int16;
    EXPECT_TRUE(DcDTTP().ValidVar());
}
