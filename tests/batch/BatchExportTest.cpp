// iccp-host --export against the window, where an engineer picks "Сохранить
// BilateralTable в файл" from the menu "Файл": the same files, the same "$DATARUN".
#include "common/FormFixture.h"
#include "common/TempFiles.h"
#include "host/DemoProject.h"
#include "host/ProjectFile.h"

#include <QDir>
#include <QMenu>
#include <QProcess>

namespace {

// The exit status and the standard error of a run of iccp-host.
QPair<int, QString> Launch(const QStringList& args) {
    QProcess process;
    process.start(ICCP_HOST_PATH, args);
    process.waitForFinished(600000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardError())};
}

void PickSave(QWidget* form) {
    for (QMenu* menu : form->findChildren<QMenu*>())
        for (QAction* action : menu->actions())
            if (menu->title() == "Файл" && action->text() == "Сохранить BilateralTable в файл")
                return action->trigger();
    ADD_FAILURE() << "no save command in the menu \"Файл\"";
}

} // namespace

TEST_F(FormTest, BatchExportWritesWhatTheWindowWrites) {
    const auto at = [&](const QString& name) { return dir.filePath(name); };
    qputenv("LC_ALL", "C.UTF-8"); // the local encoding of the files, as in this process
    HostProject demo;
    BuildDemoProject(demo);
    demo.findAll(cotUnit)[1]->set("sclcomplete", true);
    ASSERT_TRUE(SaveProject(demo, at("demo.json")));
    demo.findAll(cotUnit)[0]->set("ied_name", QByteArray());
    ASSERT_TRUE(SaveProject(demo, at("noname.json")));
    const char* generator = ICCP_GOLDEN_DIR "/../../scripts/gen-scale-project";
    ASSERT_EQ(QProcess::execute("python3", {generator, "20000", at("scale.json")}), 0);
    const struct {
        const char* project;
        int unit;
        QStringList files;
    } rows[] = {{"demo.json", 0, {"DC_North.blt", "DC_North.csv"}},
                {"demo.json", 1, {"DC_North_R.xml"}},
                {"scale.json", 0, {"VCC_Scale.blt", "VCC_Scale.csv"}}};
    for (const auto& r : rows) {
        SCOPED_TRACE(r.project + QString(" unit %1").arg(r.unit).toStdString());
        const QString batch = at(QString("batch%1").arg(r.unit) + r.project);
        ASSERT_TRUE(QFile::copy(at(r.project), batch));
        const auto run =
            Launch({batch, "--unit", QString::number(r.unit), "--export", at("b"), "--save"});
        ASSERT_TRUE(run.first == 0 && run.second.contains("exported " + at("b/") + r.files[0]))
            << qPrintable(run.second);
        ASSERT_TRUE(LoadProject(p.host, at(r.project)));
        p.line = p.host.findFirst(cotLine);
        HostObject* unit = p.host.findAll(cotUnit)[r.unit];
        answerFile(at(r.files[0]));
        OpenForm(unit, [](CfgArvenSR*) { PickSave(QApplication::activeModalWidget()); });
        for (const QString& name : r.files)
            EXPECT_TRUE(ReadFile(at(name)).size() > 0 &&
                        ReadFile(at("b/") + name) == ReadFile(at(name)))
                << qPrintable(name);
        HostProject saved;
        ASSERT_TRUE(LoadProject(saved, batch));
        const QByteArray datarun = saved.findAll(cotUnit)[r.unit]->get("$DATARUN").toByteArray();
        EXPECT_TRUE(datarun == Datarun(unit) && datarun.startsWith("<?xml version = \"1.0\" ?>\n"));
        EXPECT_EQ(QDir(at("b")).entryList(QDir::Files), r.files);
        QDir(at("b")).removeRecursively();
    }

    // Exit codes; an export without --save leaves the project file as it was.
    const QByteArray before = ReadFile(at("demo.json"));
    const struct {
        QStringList args;
        int status;
        const char* err;
    } codes[] = {
        {{at("demo.json"), "--export", at("b")}, 0, "exported"},
        {{"--export"}, 2, "--export needs a value"},
        {{"--save"}, 2, "--save goes with --export"},
        {{"--export", at("x.blt/out")}, 2, "holds no \".blt\""},
        {{"--check", "--export", at("b")}, 2, "--export runs alone"},
        {{at("missing.json"), "--export", at("b")}, 1, "missing.json"},
        {{at("demo.json"), "--unit", "2", "--export", at("b")}, 1, "there is no unit 2"},
        {{at("noname.json"), "--export", at("b")}, 1, "ied_name \"\" makes no file name"},
    };
    for (const auto& c : codes) {
        const auto run = Launch(c.args);
        EXPECT_EQ(run.first, c.status) << qPrintable(c.args.join(' ') + "\n" + run.second);
        EXPECT_TRUE(run.second.contains(c.err)) << qPrintable(run.second);
    }
    EXPECT_EQ(ReadFile(at("demo.json")), before);
}
