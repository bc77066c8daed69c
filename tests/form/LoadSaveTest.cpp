// The file commands, the clearing steps of a load and the tag walk.
#include "common/FormFixture.h"
#include "common/TempFiles.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/SomeModelsIED.h"

#include <QStatusBar>

namespace {

QStringList Texts(const StringList& list) {
    QStringList out;
    for (int i = 0; i < list.Count; ++i)
        out << QString::fromStdString(list.Strings(i));
    return out;
}

const QStringList StandardMembers = {"DSConditions_Detected", "Event_Code_Detected",
                                     "Transfer_Set_Time_Stamp", "Transfer_Set_Name"};

} // namespace

using FormLoadSave = FormTest;

TEST_F(FormLoadSave, SaveWritesTheModelFileTheCsvAndTheBlob) {
    MakeFirstUnitBare();
    const QByteArray csvLines = SplitLines(QByteArray::fromStdString(Golden("templ.csv")));
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        answerFile(dir.filePath("model.blt"));
        f->OnSaveIed();
        // The CSV lines stay in the blob until the close writes the model.
        EXPECT_EQ(Datarun(p.unit), csvLines);
    });
    EXPECT_EQ(boxes.count(), 0);
    // The model file has the lines of the blob; ASCII passes the file's
    // encoding chain unchanged, Cyrillic goes out mangled by it.
    const QList<QByteArray> expected =
        QByteArray::fromStdString(Golden("datarun_templ.txt")).split('\n');
    const QList<QByteArray> written = ReadFile(dir.filePath("model.blt")).split('\n');
    ASSERT_EQ(written.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        if (QString::fromUtf8(expected[i]) == QString::fromLatin1(expected[i])) {
            EXPECT_EQ(written[i], expected[i]) << "line " << i + 1;
        }
    }
    // "в" (D0 B2) read as Windows-1251 is "РІ", whose UTF-8 is taken as Latin-1.
    ASSERT_TRUE(expected[21].contains("StartTime"));
    EXPECT_TRUE(written[21].contains("desc = \"\xC3\x90\xC2\xA0\xC3\x90\xC2\x86"));
    const QByteArray csv = ReadFile(dir.filePath("model.csv"));
    EXPECT_TRUE(csv.startsWith("VCC::;VCC_1\n"));
    EXPECT_EQ(csv.count('\n'), csvLines.count('\n'));
}

TEST_F(FormLoadSave, SaveNamesAndTargets) {
    MakeFirstUnitBare();
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        f->statusBar->clearMessage(); // the hint of the unit click
        // No ".blt": the model file alone; ".blt" inside the name cuts the CSV's name.
        for (const char* name : {"model.xml", "a.blt.keep"}) {
            answerFile(dir.filePath(name));
            f->OnSaveIed();
        }
        // Cancelled, or a target that can't be opened: nothing written or said.
        p.unit->set("$DATARUN", QByteArray("kept"));
        answerFile(QString());
        f->OnSaveIed();
        answerFile("/nonexistent-dir/model.blt");
        f->OnSaveIed();
        EXPECT_EQ(Datarun(p.unit), "kept");
        EXPECT_TRUE(f->statusBar->currentMessage().isEmpty());
    });
    EXPECT_TRUE(QFile::exists(dir.filePath("model.xml")));
    EXPECT_FALSE(QFile::exists(dir.filePath("model.csv")));
    EXPECT_TRUE(QFile::exists(dir.filePath("a.blt.keep")));
    EXPECT_TRUE(QFile::exists(dir.filePath("a.csv")));
    EXPECT_EQ(boxes.count(), 0);

    // With no current row of the unit list no blob is written.
    p.unit->set("$DATARUN", QByteArray());
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        answerFile(dir.filePath("other.blt"));
        f->OnSaveIed();
        EXPECT_TRUE(Datarun(p.unit2).isEmpty());
    });
    EXPECT_TRUE(QFile::exists(dir.filePath("other.csv")));
    EXPECT_TRUE(Datarun(p.unit).isEmpty());
}

TEST_F(FormLoadSave, LoadFailuresKeepTheModel) {
    const QString notXml = WriteFile("notxml.xml", "no model here\nsecond line\n");
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        DcVCC* before = pVCC;
        answerFile(notXml);
        f->OnLoadFile();
        EXPECT_EQ(f->statusBar->currentMessage(),
                  "Ошибка чтения SCL файла: failed load tinyxml:no model here\nsecond line\n");
        EXPECT_EQ(pVCC, before);
        QString error;
        EXPECT_EQ(f->LoadFile(dir.filePath("missing.xml"), error), 1);
        EXPECT_EQ(error, "Ошибка чтения файла");
    });
    EXPECT_TRUE(Datarun(p.unit2).isEmpty()); // nothing read, no blob
    // What was read last holds no model: the close writes its lines as they stand.
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        answerFile(notXml);
        f->OnLoadFile();
    });
    EXPECT_EQ(Datarun(p.unit2), "no model here\nsecond line");
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormLoadSave, TemplateReplacementRefusesWhatItCannotUse) {
    const QString notXml = WriteFile("bad.xml", "not xml");
    const QString noTemplate = WriteFile("empty.xml", "<DcTree><DcVCC name = \"V\"/></DcTree>");
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        DcDTTP* before = pDcDTTP;
        for (const QString& path : {notXml, noTemplate, QString()}) {
            answerFile(path);
            f->OnUpDTTP();
        }
        EXPECT_EQ(pDcDTTP, before);
    });
    EXPECT_EQ(BoxTexts(), QStringList({"Предупреждение|Ошибка разбора XML",
                                       "Предупреждение|По - видимому ошибка разбора DTTP"}));
}

TEST_F(FormLoadSave, ClearingStepsOfTheLoad) {
    OpenForm(p.unit2);
    ASSERT_NE(pVCC, nullptr);
    CfgArvenSR* f = FCfgArvenSR;
    auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, 0));
    auto vccSet = qobject_cast<DcDataSet*>(ListOb(pVCC->DataSets, 0));
    ASSERT_TRUE(icc && vccSet);
    auto iccSet = qobject_cast<DcDataSet*>(ListOb(icc->DataSets, 0));
    ASSERT_NE(iccSet, nullptr);

    // Standard members stay; after a deleted member the next is stepped over.
    for (const char* name : {"Var_3", "Var_2", "Var_1"})
        vccSet->Elems.InsertObject(0, name, nullptr);
    iccSet->Elems.InsertObject(0, "ICC_1/Var_1", nullptr);
    f->ClearDS();
    EXPECT_EQ(Texts(vccSet->Elems), QStringList("Var_2") + StandardMembers);
    EXPECT_EQ(Texts(iccSet->Elems), StandardMembers);

    // Variables: the VCC keeps its three, the ICCs lose all, editing or not.
    for (bool emitting : {false, true}) {
        needemit = emitting;
        for (DcICCPBase* owner : {static_cast<DcICCPBase*>(pVCC), static_cast<DcICCPBase*>(icc)}) {
            auto da = new DcDA(owner);
            da->name = "Extra";
            (owner == pVCC ? pVCC->Vars : icc->Vars).AddObject("Extra", da, true);
        }
        f->ClearNodeByStr("Переменные");
        EXPECT_EQ(Texts(pVCC->Vars),
                  QStringList({"TASE2_Version", "Supported_Features", "Bilateral_Table_ID"}));
        EXPECT_EQ(icc->Vars.Count, 0);
    }
    needemit = false;
    // No tree row is removed.
    const QModelIndex vars = f->pTreeIedModel->index(1, 0, f->pTreeIedModel->index(0, 0));
    EXPECT_EQ(vars.data().toString(), "Переменные");
    EXPECT_EQ(f->pTreeIedModel->rowCount(vars), 3);
}
