// iccp-host as a person runs it: the command line, refusals, headless runs.
#include "common/SmallProject.h"
#include "common/TempFiles.h"
#include "common/TestApp.h"
#include "host/ProjectFile.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct HostRun {
    int status;
    QByteArray out;
    QString err;
};

HostRun Launch(const QStringList& args) {
    EnsureApp();
    QProcess process;
    process.start(ICCP_HOST_PATH, args);
    process.waitForFinished(120000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), QString::fromUtf8(process.readAllStandardError())};
}

// A run that ends with status and says text on its error output.
void ExpectRun(const QStringList& args, int status, const QString& text) {
    const HostRun r = Launch(args);
    EXPECT_EQ(r.status, status) << qPrintable(args.join(' '));
    EXPECT_TRUE(r.err.contains(text)) << qPrintable(r.err);
}

} // namespace

TEST(Launcher, CommandLineRefusals) {
    const HostRun r = Launch({"--help"});
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(r.out.startsWith("usage: iccp-host [PROJECT.json]"));
    for (const QStringList& bad :
         {QStringList{"--unit"}, QStringList{"--unit", "-1"}, QStringList{"--unit", "x"},
          QStringList{"--frobnicate"}, QStringList{"a.json", "b.json"},
          QStringList{"--click", "tVTags"}, QStringList{"--click", "tVTags:"}})
        ExpectRun(bad, 2, "usage: iccp-host");

    QTemporaryDir dir;
    const QString missing = dir.filePath("missing.json");
    ExpectRun({missing, "--headless"}, 1, missing);

    HostProject empty;
    empty.create(nullptr, cotProject);
    const QString noLine = dir.filePath("noline.json");
    ASSERT_TRUE(SaveProject(empty, noLine));
    ExpectRun({noLine, "--headless"}, 1, "the project has no line");
    SmallProject p;
    const QString small = dir.filePath("small.json");
    ASSERT_TRUE(SaveProject(p.host, small));
    ExpectRun({small, "--headless", "--unit", "2"}, 1, "there is no unit 2");
    ExpectRun({small, "--headless", "--plugin", dir.filePath("none.so")}, 1, "none.so");
}

TEST(Launcher, HeadlessRunSavesTheProjectAndPrintsTheBlob) {
    QTemporaryDir dir;
    const QString path = dir.filePath("small.json");
    SmallProject p;
    p.unit2->set("$DATARUN", QByteArray("<DcVCC name=\"Srv2\"/>\r\n"));
    ASSERT_TRUE(SaveProject(p.host, path));
    const ino_t before = Inode(path);

    const HostRun r = Launch({path, "--unit", "1", "--headless", "--print-datarun"});
    ASSERT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_NE(Inode(path), before); // written anew and renamed over
    HostProject saved;
    ASSERT_TRUE(LoadProject(saved, path));
    const QByteArray blob = saved.findAll(cotUnit).value(1)->get("$DATARUN").toByteArray();
    ASSERT_FALSE(blob.isEmpty());
    EXPECT_EQ(r.out, blob.endsWith('\n') ? blob : blob + '\n');
}

TEST(Launcher, DemoRunsWithoutAProjectFileAndTimesItsSpans) {
    const HostRun r = Launch({"--headless", "--timing"});
    ASSERT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_TRUE(r.err.contains("2.1.0")) << qPrintable(r.err);
    const QRegularExpression line(
        "iccp-host: timing load \\d+\\.\\d{3} s, open \\d+\\.\\d{3} s, close \\d+\\.\\d{3} s, "
        "save \\d+\\.\\d{3} s, teardown \\d+\\.\\d{3} s, total \\d+\\.\\d{3} s, peak RSS [1-9]\\d* "
        "KiB\\n");
    EXPECT_TRUE(line.match(r.err).hasMatch()) << qPrintable(r.err);
    EXPECT_FALSE(Launch({"--headless"}).err.contains("timing"));
}

TEST(Launcher, StepsChooseRowsBeforeThePictureOfOnePane) {
    QTemporaryDir dir;
    const QString shot = dir.filePath("pane.png");
    const HostRun r =
        Launch({"--headless", "--expand", "tVIed", "--click", "tVTags:Сальдо перетоков",
                "--screenshot", shot, "--screenshot-of", "tVProp"});
    ASSERT_EQ(r.status, 0) << qPrintable(r.err);
    const QImage pane(shot);
    EXPECT_FALSE(pane.isNull());
    EXPECT_LT(pane.width(), 700);
    ExpectRun({"--headless", "--click", "tVTags:No such tag"}, 1,
              "tVTags: no row begins with \"No such tag\"");
    ExpectRun({"--headless", "--screenshot-of", "nowhere"}, 1, "nowhere: no widget of that name");
}

TEST(Launcher, CheckPrintsWhatNoTagNamesAndLeavesTheFile) {
    // Tags of a type outside the list make no variable and name the VCC's own three.
    QTemporaryDir dir;
    const QString path = dir.filePath("small.json");
    SmallProject p;
    for (HostObject* folder : p.folder)
        p.host.remove(folder);
    HostObject* folder = p.host.create(p.unit, cotFolderSource, 0, "Arven");
    for (const char* key : {"TASE2_Version", "Supported_Features", "Bilateral_Table_ID", "Nothing"})
        p.addTag(folder, cotSource, "X", 999, 0, 0, "Ключ")->set("tag_id", QByteArray(key));
    ASSERT_TRUE(SaveProject(p.host, path));
    const ino_t before = Inode(path);
    HostRun r = Launch({path, "--check"});
    EXPECT_EQ(r.status, 1) << qPrintable(r.err);
    EXPECT_EQ(r.out, "Сервер 1: Ключ_4: the tag's key \"Nothing\" names nothing in the model\n");
    EXPECT_EQ(Inode(path), before);

    p.host.remove(p.host.findAll(cotSource).last());
    ASSERT_TRUE(SaveProject(p.host, path));
    r = Launch({path, "--check"});
    EXPECT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, "");
    ExpectRun({path, "--check", "--unit", "1"}, 2, "no current unit");
}
