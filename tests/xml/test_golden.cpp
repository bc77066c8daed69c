#include <QDir>

#include "common/ModelWorld.h"

namespace {

QString Written() {
    return pVCC->ToXML(2) + pDcDTTP->ToXML(2);
}

void ExpectGoldenTexts(const char* vccFile, const char* dttpFile, const char* csvFile = nullptr) {
    EXPECT_EQ(GoldenFile(vccFile), pVCC->ToXML(2).toStdString());
    EXPECT_EQ(GoldenFile(dttpFile), pDcDTTP->ToXML(2).toStdString());
    EXPECT_TRUE(!csvFile || GoldenFile(csvFile) == pVCC->ToCSV(0).toStdString()) << csvFile;
}

} // namespace

TEST_F(ModelWorldTest, TemplateWritesItsGoldenTexts) {
    const QString text = QString::fromStdString(ReadWholeFile(":/Templ"));
    // The form finds the DcVCC line before the end of the template set.
    const int vccAt = text.indexOf("<DcVCC");
    EXPECT_GT(text.indexOf("</DcTemplate>", vccAt), vccAt);
    EXPECT_TRUE(text.contains("<xsd:schema") && !text.contains("<DcTree>"));

    ASSERT_TRUE(Load(text.toStdString()));
    EXPECT_NE(tree, nullptr);
    ExpectGoldenTexts("templ_vcc.xml", "templ_dttp.xml", "templ.csv");
    EXPECT_EQ(pDcDTTP->GetChildById(39)->idtype, 39);
    EXPECT_TRUE(pDcDTTP->ValidVar());
    EXPECT_NE(pDcDTTP->FindType("Data_ StateSupplementalQTimeTag"), nullptr);
    EXPECT_EQ(pDcDTTP->FindType("Data_StateSupplementalQTimeTag"), nullptr);

    // Read back, the model takes the written attributes.
    ASSERT_TRUE(Load(FrameModelText(Written())));
    ExpectGoldenTexts("templ_roundtrip_vcc.xml", "templ_dttp.xml");
}

TEST_F(ModelWorldTest, RichModelWritesItsGoldenTextsAndSettlesAfterOneReadBack) {
    ASSERT_TRUE(Load(GoldenFile("rich_input.xml")));
    ExpectGoldenTexts("rich_vcc.xml", "rich_dttp.xml", "rich.csv");
    // The problems met on the way were counted where they were found.
    const int iccErrors = static_cast<DcLD*>(pVCC->ICCs.Objects(1))->ErrCount;
    EXPECT_EQ(std::vector<int>({pDcDTTP->DupDAType, pDcDTTP->DupDOType, pDcDTTP->ErrCount,
                                pVCC->ErrCount, iccErrors}),
              std::vector<int>({1, 1, 2, 1, 1}));

    const QString first = Written();
    ASSERT_TRUE(Load(FrameModelText(first)) && pVCC && pDcDTTP);
    const QString second = Written();
    // svalue read back is the last unknown attribute: flagAbility 0, or 4 after ByteCount.
    for (const char* line :
         {"name = \"Freq\" type = \"Data_Real\" desc = \"Частота\" svalue = "
          "\"0.000000\" refDSRT = \"DS_1,2;\"",
          "name = \"Counter\" type = \"INT16\" desc = \"\" svalue = \"4\"",
          "name = \"Text\" type = \"VISIBLE_STRING32\" desc = \"\" svalue = \"0\""})
        EXPECT_TRUE(second.contains(line)) << line;
    ASSERT_TRUE(Load(FrameModelText(second)) && pVCC);
    EXPECT_EQ(second.toStdString(), Written().toStdString());
}

// The kept fuzz inputs once led the parser past their end.
TEST_F(ModelWorldTest, TextThatDoesNotParseReadsNothing) {
    EXPECT_FALSE(Load("<DcVCC name = \"V\" >"));
    EXPECT_TRUE(!pVCC && !pDcDTTP && !tree);
    const QDir dir(ICCP_GOLDEN_DIR "/../../fuzz/regressions");
    const QStringList files = dir.entryList(QDir::Files);
    ASSERT_GE(files.size(), 2);
    for (const QString& file : files) {
        const std::string text = ReadWholeFile(dir.filePath(file));
        EXPECT_FALSE(text.empty() || Load(text) || pVCC) << file.toStdString();
    }
}
