// iccp-host --export against the window: the same project opened in the form
// through the stand-in host, "Сохранить BilateralTable в файл" picked from its
// "Файл" menu, gives the same files and the same "$DATARUN".
#include "common/FormFixture.h"
#include "common/TempFiles.h"
#include "host/DemoProject.h"
#include "host/ProjectFile.h"

#include <QAction>
#include <QDir>
#include <QMenu>
#include <QProcess>

namespace {

struct HostRun {
    int status;
    QString err;
};

HostRun Launch(const QStringList& args) {
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("LC_ALL", "C.UTF-8");
    process.setProcessEnvironment(env);
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

class BatchExport : public FormTest {};

TEST_F(BatchExport, WritesWhatTheWindowWrites) {
    const auto at = [&](const QString& name) { return dir.filePath(name); };
    HostProject demo;
    BuildDemoProject(demo);
    demo.findAll(cotUnit)[1]->set("sclcomplete", true);
    ASSERT_TRUE(SaveProject(demo, at("demo.json")));
    demo.findAll(cotUnit)[0]->set("ied_name", QByteArray());
    ASSERT_TRUE(SaveProject(demo, at("noname.json")));
    ASSERT_EQ(QProcess::execute("python3", {ICCP_GOLDEN_DIR "/../../scripts/gen-scale-project",
                                            "20000", at("scale.json")}),
              0);
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
        QFile::remove(batch);
        ASSERT_TRUE(QFile::copy(at(r.project), batch));
        const QStringList args{batch, "--unit", QString::number(r.unit), "--export", at("b")};
        const HostRun run = Launch(args + QStringList{"--save"});
        ASSERT_EQ(run.status, 0) << qPrintable(run.err);
        EXPECT_TRUE(run.err.contains("exported " + at("b/") + r.files[0])) << qPrintable(run.err);

        ASSERT_TRUE(LoadProject(p.host, at(r.project)));
        p.line = p.host.findFirst(cotLine);
        HostObject* unit = p.host.findAll(cotUnit)[r.unit];
        QDir().mkpath(at("w"));
        answerFile(at("w/") + r.files[0]);
        OpenForm(unit, [](CfgArvenSR*) { PickSave(QApplication::activeModalWidget()); });
        for (const QString& name : r.files) {
            const QByteArray written = ReadFile(at("w/") + name);
            EXPECT_FALSE(written.isEmpty()) << qPrintable(name);
            EXPECT_TRUE(ReadFile(at("b/") + name) == written) << qPrintable(name + " differs");
        }
        HostProject saved;
        ASSERT_TRUE(LoadProject(saved, batch));
        EXPECT_TRUE(Datarun(unit).startsWith("<?xml version = \"1.0\" ?>\n<!--<DcDesc"));
        EXPECT_TRUE(saved.findAll(cotUnit)[r.unit]->get("$DATARUN").toByteArray() == Datarun(unit))
            << "the $DATARUN differs";
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
        {{"--check", "--export", at("b")}, 2, "separate runs"},
        {{at("missing.json"), "--export", at("b")}, 1, "missing.json"},
        {{at("demo.json"), "--unit", "2", "--export", at("b")}, 1, "there is no unit 2"},
        {{at("noname.json"), "--export", at("b")}, 1, "ied_name \"\" makes no file name"},
    };
    for (const auto& c : codes) {
        const HostRun run = Launch(c.args);
        EXPECT_EQ(run.status, c.status) << qPrintable(c.args.join(' ') + "\n" + run.err);
        EXPECT_TRUE(run.err.contains(c.err)) << qPrintable(run.err);
    }
    EXPECT_EQ(ReadFile(at("demo.json")), before);
}
