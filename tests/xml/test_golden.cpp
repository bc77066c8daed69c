// The writers against hand-written golden texts (the built-in template and a
// model with ICCs, data sets, transfer sets and structures), and the texts
// written, read back and written again.
#include <QDir>

#include "common/ModelWorld.h"

namespace {

DcDOType* StructType(int i) {
    return qobject_cast<DcDOType*>(pDcDTTP->GetChildById(i));
}

QString Written() {
    return pVCC->ToXML(2) + pDcDTTP->ToXML(2);
}

// The model's XML, the template set's XML and the CSV against golden files.
void ExpectGoldenTexts(const char* vccFile, const char* dttpFile, const char* csvFile) {
    ASSERT_TRUE(pVCC && pDcDTTP);
    const std::string vcc = GoldenFile(vccFile), dttp = GoldenFile(dttpFile),
                      csv = GoldenFile(csvFile);
    ASSERT_FALSE(vcc.empty() || dttp.empty() || csv.empty());
    EXPECT_EQ(vcc, pVCC->ToXML(2).toStdString());
    EXPECT_EQ(dttp, pDcDTTP->ToXML(2).toStdString());
    EXPECT_EQ(csv, pVCC->ToCSV(0).toStdString());
}

} // namespace

TEST_F(ModelWorldTest, TemplateWritesItsGoldenTexts) {
    const QString text = QString::fromStdString(ReadWholeFile(":/Templ"));
    // The form finds the DcVCC line before the end of the template set.
    const int vccAt = text.indexOf("<DcVCC");
    EXPECT_GE(vccAt, 0);
    EXPECT_GT(text.indexOf("</DcTemplate>", vccAt), vccAt);
    EXPECT_TRUE(text.contains("<xsd:schema"));
    EXPECT_FALSE(text.contains("<DcTree>"));

    ASSERT_TRUE(Load(text.toStdString()));
    EXPECT_NE(tree, nullptr);
    ExpectGoldenTexts("templ_vcc.xml", "templ_dttp.xml", "templ.csv");
    ASSERT_EQ(pDcDTTP->GetChildCount(), 40);
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(pDcDTTP->GetChildById(i)->idtype, i);
    EXPECT_TRUE(pDcDTTP->ValidVar());
    // The structured types ahead of the basic ones keep only their DcDO members.
    EXPECT_EQ(StructType(0)->GetChildCount(), 0);
    EXPECT_EQ(StructType(1)->GetChildCount(), 0);
    for (int i : {2, 3}) {
        ASSERT_EQ(StructType(i)->GetChildCount(), 1);
        EXPECT_EQ(StructType(i)->GetChildById(0)->ClassName(), "DcDO");
    }
    EXPECT_NE(pDcDTTP->FindType("Data_ StateSupplementalQTimeTag"), nullptr);
    EXPECT_EQ(pDcDTTP->FindType("Data_StateSupplementalQTimeTag"), nullptr);
    ASSERT_EQ(pVCC->ICCs.Count, 1);
    DcLD* icc = static_cast<DcLD*>(pVCC->ICCs.Objects(0));
    ASSERT_NE(icc->NextSet, nullptr);
    ASSERT_EQ(icc->TransSets.Count, 1);
    DcTransSet* transSet = static_cast<DcTransSet*>(icc->TransSets.Objects(0));
    EXPECT_EQ(transSet->Members.Count, 12);
    EXPECT_EQ(transSet->Members.Strings(0), "DataSetName");
    EXPECT_LT(transSet->Members.IndexOf("DSConditionRequested"), 0);

    // Read back, the model takes the written attributes; the template set
    // survives the trip unchanged.
    ASSERT_TRUE(Load(FrameModelText(Written())));
    ASSERT_TRUE(pVCC && pDcDTTP);
    EXPECT_EQ(GoldenFile("templ_roundtrip_vcc.xml"), pVCC->ToXML(2).toStdString());
    EXPECT_EQ(GoldenFile("templ_dttp.xml"), pDcDTTP->ToXML(2).toStdString());
}

TEST_F(ModelWorldTest, RichModelWritesItsGoldenTextsAndSettlesAfterOneReadBack) {
    ASSERT_TRUE(Load(GoldenFile("rich_input.xml")));
    ExpectGoldenTexts("rich_vcc.xml", "rich_dttp.xml", "rich.csv");
    ASSERT_TRUE(pVCC && pDcDTTP);
    // The problems met on the way were counted where they were found.
    EXPECT_EQ(pDcDTTP->DupDAType, 1);
    EXPECT_EQ(pDcDTTP->DupDOType, 1);
    EXPECT_EQ(pDcDTTP->ErrCount, 2);
    EXPECT_EQ(pVCC->ErrCount, 1);
    ASSERT_EQ(pVCC->ICCs.Count, 2);
    EXPECT_EQ(static_cast<DcLD*>(pVCC->ICCs.Objects(1))->ErrCount, 1);

    const QString first = Written();
    ASSERT_TRUE(Load(FrameModelText(first)));
    ASSERT_TRUE(pVCC && pDcDTTP);
    const QString second = Written();
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
    EXPECT_EQ(second.toStdString(), Written().toStdString());
}

// A text that doesn't parse reads nothing. The kept fuzz inputs once led the
// parser past their end (a UTF-8 lead byte before the terminating zero); the
// text ends at its first zero byte, so they hold an unterminated attribute.
TEST_F(ModelWorldTest, TextThatDoesNotParseReadsNothing) {
    EXPECT_FALSE(Load("<DcVCC name = \"V\" >"));
    EXPECT_EQ(pVCC, nullptr);
    EXPECT_EQ(pDcDTTP, nullptr);
    EXPECT_EQ(tree, nullptr);

    const QDir dir(ICCP_GOLDEN_DIR "/../../fuzz/regressions");
    const QStringList files = dir.entryList(QDir::Files);
    ASSERT_GE(files.size(), 2);
    for (const QString& file : files) {
        const std::string text = ReadWholeFile(dir.filePath(file));
        ASSERT_FALSE(text.empty()) << file.toStdString();
        EXPECT_FALSE(Load(text)) << file.toStdString();
        EXPECT_EQ(pVCC, nullptr) << file.toStdString();
    }
}
