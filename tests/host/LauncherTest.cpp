// iccp-host as a person runs it: the command line, the refusals, and a
// headless run that saves the project back.
#include "common/SmallProject.h"
#include "common/TestApp.h"
#include "host/ProjectFile.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

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

ino_t Inode(const QString& path) {
    struct stat st;
    return stat(path.toLocal8Bit().constData(), &st) == 0 ? st.st_ino : 0;
}

} // namespace

TEST(Launcher, CommandLineRefusals) {
    HostRun r = Launch({"--help"});
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(r.out.startsWith("usage: iccp-host [PROJECT.json]"));
    for (const QStringList& bad :
         {QStringList{"--unit"}, QStringList{"--unit", "-1"}, QStringList{"--unit", "x"},
          QStringList{"--frobnicate"}, QStringList{"a.json", "b.json"}}) {
        r = Launch(bad);
        EXPECT_EQ(r.status, 2) << qPrintable(bad.join(' '));
        EXPECT_TRUE(r.err.contains("usage: iccp-host")) << qPrintable(r.err);
    }

    QTemporaryDir dir;
    const QString missing = dir.filePath("missing.json");
    r = Launch({missing, "--headless"});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(missing)) << qPrintable(r.err);

    // A project without a line, and a unit past the end.
    HostProject empty;
    empty.create(nullptr, cotProject);
    const QString noLine = dir.filePath("noline.json");
    ASSERT_TRUE(SaveProject(empty, noLine));
    r = Launch({noLine, "--headless"});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("the project has no line")) << qPrintable(r.err);
    SmallProject p;
    const QString small = dir.filePath("small.json");
    ASSERT_TRUE(SaveProject(p.host, small));
    r = Launch({small, "--headless", "--unit", "2"});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("there is no unit 2")) << qPrintable(r.err);

    r = Launch({small, "--headless", "--plugin", dir.filePath("none.so")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains("none.so")) << qPrintable(r.err);
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
    QString error;
    ASSERT_TRUE(LoadProject(saved, path, &error)) << qPrintable(error);
    const QByteArray blob = saved.findAll(cotUnit).value(1)->get("$DATARUN").toByteArray();
    ASSERT_FALSE(blob.isEmpty());
    EXPECT_EQ(r.out, blob.endsWith('\n') ? blob : blob + '\n');
}

TEST(Launcher, DemoRunsWithoutAProjectFile) {
    const HostRun r = Launch({"--headless", "--print-datarun"});
    EXPECT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_TRUE(r.err.contains("2.1.0")) << qPrintable(r.err);
}
