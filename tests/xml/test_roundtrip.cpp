// Writing a model, reading the text back and writing it again: the readers'
// rules decide what comes back.
#include "GoldenText.h"

TEST_F(ModelText, TemplateReadBackTakesTheWrittenAttributes) {
    ASSERT_TRUE(Load(ReadWholeFile(":/Templ")));
    ASSERT_NE(pVCC, nullptr);
    const std::string written = FrameModelText(pVCC->ToXML(2) + pDcDTTP->ToXML(2));

    ASSERT_TRUE(Load(written));
    ASSERT_NE(pVCC, nullptr);
    ASSERT_NE(pDcDTTP, nullptr);
    const std::string vcc = Golden("templ_roundtrip_vcc.xml");
    const std::string dttp = Golden("templ_dttp.xml");
    ASSERT_FALSE(vcc.empty() || dttp.empty());
    EXPECT_TRUE(SameText(vcc, pVCC->ToXML(2)));
    // The template set survives the trip unchanged.
    EXPECT_TRUE(SameText(dttp, pDcDTTP->ToXML(2)));
}

TEST_F(ModelText, RichModelSettlesAfterOneReadBack) {
    ASSERT_TRUE(Load(Golden("rich_input.xml")));
    ASSERT_NE(pVCC, nullptr);
    const QString first = pVCC->ToXML(2) + pDcDTTP->ToXML(2);

    ASSERT_TRUE(Load(FrameModelText(first)));
    ASSERT_NE(pVCC, nullptr);
    ASSERT_NE(pDcDTTP, nullptr);
    const QString second = pVCC->ToXML(2) + pDcDTTP->ToXML(2);
    // Every value read back is the text of the last "any other" attribute,
    // flagAbility: 0 for most, 4 for the variable that carried ByteCount.
    EXPECT_NE(first, second);
    EXPECT_TRUE(second.contains("name = \"Freq\" type = \"Data_Real\" desc = \"Частота\" "
                                "svalue = \"0.000000\" refDSRT = \"DS_1,2;\""));
    EXPECT_TRUE(second.contains("name = \"Counter\" type = \"INT16\" desc = \"\" svalue = \"4\""));
    EXPECT_TRUE(second.contains("name = \"Text\" type = \"VISIBLE_STRING32\" desc = \"\" "
                                "svalue = \"0\""));

    ASSERT_TRUE(Load(FrameModelText(second)));
    ASSERT_NE(pVCC, nullptr);
    EXPECT_TRUE(SameText(second.toStdString(), pVCC->ToXML(2) + pDcDTTP->ToXML(2)));
}
