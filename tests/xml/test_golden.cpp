// The writers against hand-written golden texts: the built-in template and a
// model with ICCs, data sets, transfer sets and structures.
#include <QDir>
#include <QStringList>

#include "GoldenText.h"
#include "model/DcDO.h"
#include "model/DcLD.h"
#include "model/DcTransSet.h"

namespace {

DcDOType* StructType(int i) {
    return qobject_cast<DcDOType*>(pDcDTTP->GetChildById(i));
}

// The model's XML, the template set's XML and the CSV against three golden
// files.
void ExpectGoldenTexts(const char* vccFile, const char* dttpFile, const char* csvFile) {
    ASSERT_NE(pVCC, nullptr);
    ASSERT_NE(pDcDTTP, nullptr);
    const std::string vcc = Golden(vccFile);
    const std::string dttp = Golden(dttpFile);
    const std::string csv = Golden(csvFile);
    ASSERT_FALSE(vcc.empty() || dttp.empty() || csv.empty());
    EXPECT_TRUE(SameText(vcc, pVCC->ToXML(2)));
    EXPECT_TRUE(SameText(dttp, pDcDTTP->ToXML(2)));
    EXPECT_TRUE(SameText(csv, pVCC->ToCSV(0)));
}

} // namespace

TEST_F(ModelText, TemplateWritesItsGoldenTexts) {
    const std::string templ = ReadWholeFile(":/Templ");
    ASSERT_FALSE(templ.empty());
    ASSERT_TRUE(Load(templ));
    EXPECT_NE(tree, nullptr);
    ExpectGoldenTexts("templ_vcc.xml", "templ_dttp.xml", "templ.csv");
}

TEST_F(ModelText, TemplateTextReadsAsTheFormExpects) {
    const QString text = QString::fromStdString(ReadWholeFile(":/Templ"));
    const QStringList lines = text.split('\n');
    int vccLine = -1, templateEnd = -1;
    for (int i = 0; i < lines.size(); ++i) {
        if (vccLine < 0 && lines[i].contains("<DcVCC"))
            vccLine = i;
        else if (vccLine >= 0 && templateEnd < 0 && lines[i].contains("</DcTemplate>"))
            templateEnd = i;
    }
    EXPECT_GE(vccLine, 0);
    EXPECT_GT(templateEnd, vccLine);
    EXPECT_TRUE(text.contains("<xsd:schema"));
    EXPECT_FALSE(text.contains("<DcTree>"));

    ASSERT_TRUE(Load(text.toStdString()));
    ASSERT_NE(pDcDTTP, nullptr);
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
}

TEST_F(ModelText, RichModelWritesItsGoldenTexts) {
    const std::string input = Golden("rich_input.xml");
    ASSERT_FALSE(input.empty());
    ASSERT_TRUE(Load(input));
    ExpectGoldenTexts("rich_vcc.xml", "rich_dttp.xml", "rich.csv");
    ASSERT_TRUE(pVCC && pDcDTTP);

    // The problems met on the way were counted where they were found.
    EXPECT_EQ(pDcDTTP->DupDAType, 1);
    EXPECT_EQ(pDcDTTP->DupDOType, 1);
    EXPECT_EQ(pDcDTTP->ErrCount, 2);
    EXPECT_EQ(pVCC->ErrCount, 1);
    ASSERT_EQ(pVCC->ICCs.Count, 2);
    EXPECT_EQ(static_cast<DcLD*>(pVCC->ICCs.Objects(1))->ErrCount, 1);
}

TEST_F(ModelText, TextThatDoesNotParseReadsNothing) {
    EXPECT_FALSE(Load("<DcVCC name = \"V\" >"));
    EXPECT_EQ(pVCC, nullptr);
    EXPECT_EQ(pDcDTTP, nullptr);
    EXPECT_EQ(tree, nullptr);
}

// Texts that once led the parser past their end: a UTF-8 lead byte right
// before the terminating zero made TinyXML step over it. The text ends at its
// first zero byte, so they hold an unterminated attribute and read nothing.
TEST_F(ModelText, KeptFuzzInputsEndAtTheirFirstZeroByte) {
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
