// iccp-host as a person runs it: its options and refusals, headless runs.
#include "common/SmallProject.h"
#include "common/TempFiles.h"
#include "common/TestApp.h"
#include "host/DemoProject.h"
#include "host/ProjectFile.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct HostRun {
    int status;
    QString out, err;
};

HostRun Launch(const QStringList& args) {
    EnsureApp();
    QProcess process;
    process.start(ICCP_HOST_PATH, args);
    process.waitForFinished(120000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace

TEST(Launcher, OptionsAndRefusals) {
    QTemporaryDir dir;
    const auto at = [&](const char* name) { return dir.filePath(name); };
    HostProject empty;
    empty.create(nullptr, cotProject);
    ASSERT_TRUE(SaveProject(empty, at("noline.json")));
    SmallProject p;
    p.unit2->set("$DATARUN", QByteArray("<DcVCC name=\"Srv2\"/>\r\n"));
    ASSERT_TRUE(SaveProject(p.host, at("small.json")));
    // Tags of a type outside the list make no variable and name the VCC's own three.
    for (HostObject* folder : p.folder)
        p.host.remove(folder);
    HostObject* folder = p.host.create(p.unit, cotFolderSource, 0, "Arven");
    for (const char* key : {"TASE2_Version", "Supported_Features", "Bilateral_Table_ID", "Nothing"})
        p.addTag(folder, cotSource, "X", 999, 0, 0, "Ключ")->set("tag_id", QByteArray(key));
    ASSERT_TRUE(SaveProject(p.host, at("check.json")));
    p.host.remove(p.host.findAll(cotSource).last());
    ASSERT_TRUE(SaveProject(p.host, at("clean.json")));
    // A file whose save can't name its temporary file beside it; a text named as a picture.
    const QString unsavable = dir.filePath(QString(250, 'u') + ".json");
    ASSERT_TRUE(SaveProject(p.host, unsavable));
    WriteFile(at("text.png"), "not a picture");
    // Two model files, and the demo closed once: its stored $DATARUN is what the form writes.
    const QByteArray types = "<DcTemplate><DcDAType idtype=\"1\" type=\"INT16\" size=\"2\" "
                             "value=\"0\"/></DcTemplate>";
    const QByteArray vcc = "<DcTree><DcVCC name=\"VCC_1\"><DcDA name=\"B\" type=\"INT16\"/>";
    WriteFile(at("a.blt"), vcc + "</DcVCC>" + types + "</DcTree>");
    WriteFile(at("b.xml"), vcc + "<DcDA name=\"D\" type=\"INT16\"/></DcVCC>" + types + "</DcTree>");
    HostProject demo;
    BuildDemoProject(demo);
    ASSERT_TRUE(SaveProject(demo, at("demo.json")));
    ASSERT_EQ(Launch({at("demo.json"), "--headless"}).status, 0);
    const ino_t checked = Inode(at("check.json")), small = Inode(at("small.json")),
                demoSaved = Inode(at("demo.json"));
    const QString timing = "iccp-host: timing load \\d+\\.\\d{3} s, open \\d+\\.\\d{3} s, close "
                           "\\d+\\.\\d{3} s, save \\d+\\.\\d{3} s, teardown \\d+\\.\\d{3} s, total "
                           "\\d+\\.\\d{3} s, peak RSS [1-9]\\d* KiB\\n";
    const QString usage = "usage: iccp-host";
    // Arguments, status, patterns of the error and the standard output.
    const struct {
        QStringList args;
        int status;
        QString err, out;
    } rows[] = {
        {{"--help"}, 0, "", "^usage: iccp-host \\[PROJECT\\.json\\]"},
        {{"--unit"}, 2, usage, ""},
        {{"--unit", "-1"}, 2, usage, ""},
        {{"--frobnicate"}, 2, usage, ""},
        {{"a.json", "b.json"}, 2, usage, ""},
        {{"--click", "tVTags:"}, 2, usage, ""},
        {{at("missing.json"), "--headless"}, 1, QRegularExpression::escape(at("missing.json")), ""},
        {{at("noline.json"), "--headless"},
         1,
         "the project has 0 unit\\(s\\); there is no unit 0",
         ""},
        {{at("small.json"), "--list"},
         0,
         "",
         "^0\\tdirection 1, unit 1\\t[^\\n]*\\n1\\t[^\\n]*\\n\\z"},
        {{at("small.json"), "--headless", "--no-save"}, 0, "", ""},
        {{at("small.json"), "--headless", "--unit", "2"}, 1, "there is no unit 2", ""},
        {{at("small.json"), "--headless", "--plugin", at("none.so")},
         1,
         "^(?![\\s\\S]*No such plugin)[\\s\\S]*none\\.so",
         ""},
        {{"--headless", "--click", "tVTags:No such tag"},
         1,
         "tVTags: no row begins with \"No such tag\"",
         ""},
        {{"--headless", "--screenshot-of", "nowhere"}, 1, "nowhere: no widget of that name", ""},
        {{"--headless", "--screenshot", at("check.json")}, 2, "ending in \"\\.png\"", ""},
        {{"--headless", "--screenshot", at("text.png")}, 2, "which is not a PNG picture", ""},
        {{unsavable, "--headless"}, 1, "could not be saved, so the form was not opened", ""},
        {{"--headless", "--timing"}, 0, "^(?=[\\s\\S]*2\\.1\\.0)[\\s\\S]*" + timing, ""},
        {{"--headless"}, 0, "^(?![\\s\\S]*timing)", ""},
        {{at("check.json"), "--check"},
         1,
         "",
         "^Сервер 1: Ключ_4: the tag's key \"Nothing\" names nothing in the model\\n\\z"},
        {{at("clean.json"), "--check"}, 0, "", "^\\z"},
        {{at("clean.json"), "--check", "--unit", "1"}, 2, "no current unit", ""},
        {{"--diff", at("a.blt"), at("a.blt")}, 0, "", "^\\z"},
        {{"--diff", at("a.blt"), at("b.xml")}, 1, "", "^\\+ D: переменная INT16\\n\\z"},
        {{"--diff", at("a.blt"), at("none.blt")}, 2, "none\\.blt: Ошибка чтения файла", "^\\z"},
        {{"--diff", at("a.blt"), at("b.xml"), at("demo.json")}, 2, "takes no project", ""},
        {{"--lint", "--diff"}, 2, "one at a time", ""},
        {{"--lint", "--pdu", "0"}, 2, "--pdu takes a number", ""},
        {{"--diff"}, 2, "no stored \\$DATARUN", ""},
        {{at("demo.json"), "--diff"}, 0, "", "^\\z"},
        {{at("demo.json"), "--diff", at("a.blt")}, 1, "", "^- B: переменная INT16\\n"},
        {{at("demo.json"), "--lint"}, 0, "lint: 0 error\\(s\\), 0 warning\\(s\\)", "^\\z"},
        {{at("demo.json"), "--lint", "--pdu", "85"},
         1,
         "",
         "^error: DataSet_1: pdu-size: размер набора данных 86 байт больше PDU в 85 байт\\n"},
    };
    for (const auto& r : rows) {
        const HostRun run = Launch(r.args);
        SCOPED_TRACE(qPrintable(r.args.join(' ')));
        EXPECT_EQ(run.status, r.status) << qPrintable(run.err);
        EXPECT_TRUE(run.err.contains(QRegularExpression(r.err))) << qPrintable(run.err);
        EXPECT_TRUE(run.out.contains(QRegularExpression(r.out))) << qPrintable(run.out);
    }
    EXPECT_EQ(Inode(at("check.json")), checked); // a check leaves the file
    EXPECT_EQ(Inode(at("small.json")), small);
    EXPECT_EQ(Inode(at("demo.json")), demoSaved); // lint and diff leave the project file

    // A headless run saves the project anew and prints the blob it wrote.
    const ino_t before = Inode(at("small.json"));
    const HostRun r = Launch({at("small.json"), "--unit", "1", "--headless", "--print-datarun"});
    ASSERT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_NE(Inode(at("small.json")), before);
    HostProject saved;
    ASSERT_TRUE(LoadProject(saved, at("small.json")));
    const QByteArray blob = saved.findAll(cotUnit).value(1)->get("$DATARUN").toByteArray();
    ASSERT_FALSE(blob.isEmpty());
    EXPECT_EQ(r.out.toUtf8(), blob.endsWith('\n') ? blob : blob + '\n');

    // Steps choose rows before the picture of one pane.
    EXPECT_EQ(Launch({"--headless", "--expand", "tVIed", "--click", "tVTags:Сальдо перетоков",
                      "--screenshot", at("pane.png"), "--screenshot-of", "tVProp"})
                  .status,
              0);
    const QImage pane(at("pane.png"));
    EXPECT_FALSE(pane.isNull());
    EXPECT_LT(pane.width(), 700);
}
