// The file commands, the clearing steps of a load and the tag walk.
#include "FormFixture.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/SomeModelsIED.h"

#include <QFile>
#include <QStatusBar>

namespace {

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool IsAscii(const QByteArray& line) {
    for (char c : line)
        if (static_cast<unsigned char>(c) > 0x7f)
            return false;
    return true;
}

} // namespace

using FormLoadSave = FormTest;

TEST_F(FormLoadSave, SaveWritesTheModelFileTheCsvAndTheBlob) {
    MakeFirstUnitBare();
    const QString blt = dir.filePath("model.blt");
    const QString csv = dir.filePath("model.csv");
    QByteArray blobAfterSave;
    QString status = "unset";
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        answerFile(blt);
        f->OnSaveIed();
        blobAfterSave = Datarun(p.unit);
        status = f->statusBar->currentMessage();
    });
    EXPECT_TRUE(status.isEmpty());
    EXPECT_EQ(boxes.count(), 0);

    // The model file: the lines of the blob at close. ASCII passes the
    // file's encoding chain unchanged; Cyrillic goes out mangled by it.
    const QList<QByteArray> expected =
        QByteArray::fromStdString(Golden("datarun_templ.txt")).split('\n');
    const QList<QByteArray> written = ReadFile(blt).split('\n');
    ASSERT_EQ(written.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        if (IsAscii(expected[i])) {
            EXPECT_EQ(written[i], expected[i]) << "line " << i + 1;
        }
    }
    // "в" is D0 B2 in UTF-8; read as Windows-1251 that is "РІ", whose UTF-8
    // bytes D0 A0 D0 86 are taken as Latin-1 and written as UTF-8 again.
    const int startTime = 21;
    ASSERT_TRUE(expected[startTime].contains("StartTime"));
    EXPECT_TRUE(written[startTime].contains("desc = \"\xC3\x90\xC2\xA0\xC3\x90\xC2\x86"));

    // The CSV beside it; its lines stayed in the blob until the close wrote
    // the model again.
    const QByteArray csvLines = SplitLines(QByteArray::fromStdString(Golden("templ.csv")));
    ASSERT_TRUE(QFile::exists(csv));
    EXPECT_EQ(ReadFile(csv).split('\n').size(), csvLines.split('\n').size());
    EXPECT_TRUE(ReadFile(csv).startsWith("VCC::;VCC_1\n"));
    EXPECT_EQ(blobAfterSave, csvLines);
    EXPECT_EQ(Datarun(p.unit).toStdString(), Golden("datarun_templ.txt"));
}

TEST_F(FormLoadSave, SaveNamesAndTargets) {
    MakeFirstUnitBare();
    const QString plain = dir.filePath("model.xml");
    const QString middle = dir.filePath("a.blt.keep");
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        // No ".blt": the model file alone.
        answerFile(plain);
        f->OnSaveIed();
        // ".blt" inside the name cuts the CSV's name there.
        answerFile(middle);
        f->OnSaveIed();
        // A cancelled dialog does nothing.
        p.unit->set("$DATARUN", QByteArray("kept"));
        answerFile(QString());
        f->OnSaveIed();
        EXPECT_EQ(Datarun(p.unit), "kept");
        // A target that can't be opened: nothing written, nothing said,
        // and no blob.
        answerFile("/nonexistent-dir/model.blt");
        f->OnSaveIed();
        EXPECT_EQ(Datarun(p.unit), "kept");
        EXPECT_TRUE(f->statusBar->currentMessage().isEmpty());
    });
    EXPECT_TRUE(QFile::exists(plain));
    EXPECT_FALSE(QFile::exists(dir.filePath("model.csv")));
    EXPECT_TRUE(QFile::exists(middle));
    EXPECT_TRUE(QFile::exists(dir.filePath("a.csv")));
    EXPECT_EQ(boxes.count(), 0);

    // With no current row of the unit list the files are written and no
    // blob is.
    const QString other = dir.filePath("other.blt");
    p.unit->set("$DATARUN", QByteArray());
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        answerFile(other);
        f->OnSaveIed();
        EXPECT_TRUE(Datarun(p.unit2).isEmpty());
    });
    EXPECT_TRUE(QFile::exists(other));
    EXPECT_TRUE(QFile::exists(dir.filePath("other.csv")));
    EXPECT_TRUE(Datarun(p.unit).isEmpty());
}

TEST_F(FormLoadSave, LoadFailuresKeepTheModel) {
    const QString notXml = WriteFile("notxml.xml", "no model here\nsecond line\n");
    const QString missing = dir.filePath("missing.xml");
    QString status, missingError;
    int missingResult = 0;
    DcVCC* before = nullptr;
    DcVCC* after = nullptr;
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        before = pVCC;
        answerFile(notXml);
        f->OnLoadFile();
        status = f->statusBar->currentMessage();
        after = pVCC;
        missingResult = f->LoadFile(missing, missingError);
    });
    EXPECT_EQ(status, "Ошибка чтения SCL файла: failed load tinyxml:no model here\nsecond line\n");
    EXPECT_EQ(after, before);
    EXPECT_EQ(missingResult, 1);
    EXPECT_EQ(missingError, "Ошибка чтения файла");
    // The missing file left nothing read: the close writes no blob.
    EXPECT_TRUE(Datarun(p.unit2).isEmpty());

    // What was read last holds no model: the close writes its lines as they
    // stand.
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        answerFile(notXml);
        f->OnLoadFile();
    });
    EXPECT_EQ(Datarun(p.unit2), "no model here\nsecond line");
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormLoadSave, LoadedFileReplacesTheModelOnScreen) {
    const QString path = QString(ICCP_GOLDEN_DIR "/rich_input.xml");
    QString error;
    int result = -1;
    DcVCC* old = nullptr;
    QString root;
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        old = pVCC;
        result = f->LoadFile(path, error);
        QAbstractItemModel* model = f->tVIed->model();
        root = model ? model->index(0, 0).data().toString() : QString();
    });
    EXPECT_EQ(result, 0);
    EXPECT_TRUE(error.isEmpty());
    ASSERT_NE(pVCC, nullptr);
    EXPECT_NE(pVCC, old);
    EXPECT_EQ(root, QString::fromStdString(pVCC->name));
    EXPECT_NE(root, "VCC_1");
    // The replaced model isn't freed by the load; the test frees it.
    const bool emitting = needemit;
    needemit = false;
    delete old;
    needemit = emitting;
}

TEST_F(FormLoadSave, TemplateReplacementRefusesWhatItCannotUse) {
    const QString notXml = WriteFile("bad.xml", "not xml");
    const QString noTemplate = WriteFile("empty.xml", "<DcTree><DcVCC name = \"V\"/></DcTree>");
    DcDTTP* before = nullptr;
    DcDTTP* after = nullptr;
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        before = pDcDTTP;
        answerFile(notXml);
        f->OnUpDTTP();
        answerFile(noTemplate);
        f->OnUpDTTP();
        answerFile(QString());
        f->OnUpDTTP();
        after = pDcDTTP;
    });
    EXPECT_EQ(after, before);
    ASSERT_EQ(boxes.count(), 2);
    EXPECT_EQ(boxes.boxes()[0].title, "Предупреждение");
    EXPECT_EQ(boxes.boxes()[0].text, "Ошибка разбора XML");
    EXPECT_EQ(boxes.boxes()[0].buttons, QMessageBox::Ok);
    EXPECT_EQ(boxes.boxes()[1].title, "Предупреждение");
    EXPECT_EQ(boxes.boxes()[1].text, "По - видимому ошибка разбора DTTP");
}

TEST_F(FormLoadSave, ClearingStepsOfTheLoad) {
    OpenForm(p.unit2);
    ASSERT_NE(pVCC, nullptr);
    CfgArvenSR* f = FCfgArvenSR;
    auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, 0));
    ASSERT_NE(icc, nullptr);

    // Data set members: the four standard names stay; after a deleted
    // member the next one is stepped over.
    auto vccSet = qobject_cast<DcDataSet*>(ListOb(pVCC->DataSets, 0));
    auto iccSet = qobject_cast<DcDataSet*>(ListOb(icc->DataSets, 0));
    ASSERT_TRUE(vccSet && iccSet);
    vccSet->Elems.InsertObject(0, "Var_3", nullptr);
    vccSet->Elems.InsertObject(0, "Var_2", nullptr);
    vccSet->Elems.InsertObject(0, "Var_1", nullptr);
    iccSet->Elems.InsertObject(0, "ICC_1/Var_1", nullptr);
    f->ClearDS();
    QStringList vccMembers, iccMembers;
    for (int i = 0; i < vccSet->Elems.Count; ++i)
        vccMembers << QString::fromStdString(vccSet->Elems.Strings(i));
    for (int i = 0; i < iccSet->Elems.Count; ++i)
        iccMembers << QString::fromStdString(iccSet->Elems.Strings(i));
    EXPECT_EQ(vccMembers, QStringList({"Var_2", "DSConditions_Detected", "Event_Code_Detected",
                                       "Transfer_Set_Time_Stamp", "Transfer_Set_Name"}));
    EXPECT_EQ(iccMembers, QStringList({"DSConditions_Detected", "Event_Code_Detected",
                                       "Transfer_Set_Time_Stamp", "Transfer_Set_Name"}));

    // Variables: the VCC keeps its three, the ICCs lose all, whether or not
    // deleting is an editing act.
    for (bool emitting : {false, true}) {
        needemit = emitting;
        for (const char* name : {"Extra_1", "Extra_2"}) {
            auto da = new DcDA(pVCC);
            da->name = name;
            pVCC->Vars.AddObject(name, da, true);
        }
        auto da = new DcDA(icc);
        da->name = "Local";
        icc->Vars.AddObject("Local", da, true);
        f->ClearNodeByStr("Переменные");
        QStringList names;
        for (int i = 0; i < pVCC->Vars.Count; ++i)
            names << QString::fromStdString(pVCC->Vars.Strings(i));
        EXPECT_EQ(names,
                  QStringList({"TASE2_Version", "Supported_Features", "Bilateral_Table_ID"}));
        EXPECT_EQ(icc->Vars.Count, 0);
    }
    needemit = false;
    // No tree row is removed.
    IEDTreeModel* tree = f->pTreeIedModel;
    ASSERT_NE(tree, nullptr);
    const QModelIndex vars = tree->index(1, 0, tree->index(0, 0));
    EXPECT_EQ(vars.data().toString(), "Переменные");
    EXPECT_EQ(tree->rowCount(vars), 3);
}

TEST_F(FormLoadSave, TagWalkGoesThroughAllFolders) {
    OpenForm(p.unit2);
    CfgArvenSR* f = FCfgArvenSR;
    HostObject* second = p.host.create(p.folder[0], cotFolderSource);
    HostObject* tagB = p.addTag(second, cotSource, "B", 4, 0, 0, "B");

    // Folders are walked last-found first, tags in host order; a tag met
    // again isn't added twice.
    QList<void*> list;
    Stack1.clear();
    Stack1.push_back(p.unit);
    f->GetElemByFolder(cotSource, list);
    Stack1.push_back(p.unit);
    f->GetElemByFolder(cotSource, list);
    EXPECT_EQ(list, QList<void*>({p.tagReal, tagB, p.tagState}));
    EXPECT_TRUE(Stack1.empty());
    Stack1.push_back(p.unit);
    f->GetElemByFolder(cotPass, list);
    EXPECT_EQ(list, QList<void*>({p.tagReal, tagB, p.tagState, p.tagPass}));
}
