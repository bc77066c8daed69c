// The project file: round trips, refusals and the atomic save.
#include "host/ProjectFile.h"
#include "common/SmallProject.h"
#include "common/TempFiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
// A project file holding these objects.
QByteArray File(const char* objects) {
    return QByteArray(R"({"format": "cfghost-project", "version": 1, "objects": [)") + objects +
           "]}";
}
} // namespace

TEST(ProjectFile, HandWrittenFileAndRefusals) {
    HostProject project;
    QString error;
    ASSERT_TRUE(ProjectFromJson(project, File(R"({"kind": "direct", "children": [
        {"kind": 4, "module": "IecArven", "params": {"maxICC": 0}, "children": [{"kind":
         "f_pass", "children": [{"kind": "pass", "params": {"domain": 2, "using": false,
         "note": "x", "rate": {"type": "double", "value": 3}}}]}]}]})"),
                                &error))
        << qPrintable(error);
    HostObject* unit = project.findFirst(cotUnit);
    EXPECT_EQ(unit->get("maxICC").toInt(), 0);
    EXPECT_EQ(unit->get("maxDS").toInt(), 1); // default
    HostObject* tag = project.findFirst(cotPass);
    EXPECT_EQ(tag->get("domain").toInt(), 2);
    EXPECT_FALSE(tag->get("using").toBool());
    EXPECT_EQ(tag->param("rate")->type, cptDouble);
    // Written back with what the file named and what differs from the
    // defaults, each object's kind first.
    const QByteArray back = ProjectToJson(project).simplified();
    EXPECT_TRUE(back.contains(R"("kind": "pass", "module": "cfghost", "params": { "number": 1, )"
                              R"("using": false, "domain": 2, "note": {)"));
    EXPECT_FALSE(back.contains("maxDS") || back.contains("ied_port"));

    const std::pair<QByteArray, QString> bad[] = {
        {"{\n  \"a\": [", "line 2, column 9 (offset 10)"},
        {R"({"format": "cfghost-project", "version": 1, "objects": 1})", "objects: not a list"},
        {File(R"({"kind": "direct", "children": [{"kind": "line", "params": {"priority": 16}}]})"),
         "priority: the value 16 is outside the parameter's range 0 to 15"},
        {File(R"({"kind": "direct", "children": [{"kind": 4, "params": {"maxICC": true}}]})"),
         "maxICC: the value doesn't fit the parameter's type, int"},
        {File(R"({"kind": "direct", "children": [{"kind": 4, "params": {"maxICC": 1000}}]})"),
         "objects[0].children[0].params.maxICC: the value 1000 is outside"},
        {R"({"format": "other", "version": 1, "objects": []})", "not a cfghost-project"},
        {R"({"format": "cfghost-project", "version": 2, "objects": []})", "version 2"},
        {File(R"({"kind": "galaxy"})"), "objects[0]: unknown kind"},
        {File(R"({"kind": "unit"})"), "objects[0]: a unit can't stand here"},
        {File(R"({"kind": "direct", "children": [{"kind": "line", "params": {"port": "x"}}]})"),
         "objects[0].children[0].params.port"},
        {File(R"({"kind": "direct", "params": {"t8": {"type": "complex", "value": 1}}})"),
         "objects[0].params.t8: unknown type"},
    };
    for (const auto& b : bad) {
        SmallProject p;
        EXPECT_FALSE(ProjectFromJson(p.host, b.first, &error)) << b.first.constData();
        EXPECT_TRUE(error.contains(b.second)) << qPrintable(error);
        EXPECT_TRUE(p.host.roots().isEmpty());
    }
}

TEST(ProjectFile, SaveReplacesTheFileAtomically) {
    QTemporaryDir dir;
    const QString path = dir.filePath("project.json");
    WriteFile(path, "old content");
    const ino_t before = Inode(path);
    SmallProject p;
    QString error;
    ASSERT_TRUE(SaveProject(p.host, path, &error)) << qPrintable(error);
    // A new file was renamed over the old one, not the old one rewritten.
    EXPECT_NE(Inode(path), before);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"project.json"});
    HostProject loaded;
    ASSERT_TRUE(LoadProject(loaded, path, &error)) << qPrintable(error);
    EXPECT_EQ(ProjectToJson(loaded), ProjectToJson(p.host));

    QDir(dir.path()).mkdir("blocked.json");
    EXPECT_FALSE(SaveProject(p.host, dir.filePath("blocked.json"), &error));
    EXPECT_TRUE(error.startsWith(dir.filePath("blocked.json")));
    const QString notJson = dir.filePath("broken.json");
    WriteFile(notJson, "{\"format\": ");
    HostProject none;
    EXPECT_FALSE(LoadProject(none, notJson, &error));
    EXPECT_TRUE(error.startsWith(notJson));
    EXPECT_FALSE(LoadProject(none, dir.filePath("none.json"), &error));
    EXPECT_TRUE(none.roots().isEmpty());
}

// iccp-host killed at random moments of its run, most of them late, when it
// saves: the project is the old file or the new one, and nothing is left
// beside it.
TEST(ProjectFile, KilledRunsLeaveTheOldFileOrTheNew) {
    SmallProject p;
    HostObject* folder = p.host.create(p.unit, cotFolderSource, 0, "Arven");
    for (int i = 1; i <= 12000; ++i)
        p.host.create(folder, cotSource, 100 + i)->set("tag_name", QByteArray::number(i));
    QTemporaryDir dir;
    const QString path = dir.filePath("big.json");
    const QByteArray old = ProjectToJson(p.host);
    const auto run = [&](int killAt) {
        WriteFile(path, old);
        QProcess host;
        QElapsedTimer clock;
        clock.start();
        host.start(ICCP_HOST_PATH, {path, "--headless"});
        if (!host.waitForFinished(killAt))
            host.kill();
        host.waitForFinished();
        return int(clock.elapsed());
    };
    const int span = run(120000);
    const QByteArray made = ReadFile(path);
    const int kills = std::max(6, qEnvironmentVariableIntValue("ICCP_KILL_RUNS"));
    int found[2] = {0, 0};
    for (int k = 0; k < kills; ++k) {
        run(QRandomGenerator(k).bounded(span / 2, span + span / 8));
        const QByteArray now = ReadFile(path);
        ASSERT_TRUE(made != old && (now == old || now == made)) << k << ": " << now.size();
        ++found[now == made];
        EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"big.json"});
    }
    printf("%d kills within %d ms: %d old, %d new\n", kills, span, found[0], found[1]);
}
