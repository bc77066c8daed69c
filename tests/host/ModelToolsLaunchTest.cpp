// iccp-host --lint and --diff as a person runs them: exit status and lines.
#include "common/TempFiles.h"
#include "common/TestApp.h"
#include "host/DemoProject.h"
#include "host/ProjectFile.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(ModelToolsLaunch, LintAndDiffStatusAndLines) {
    EnsureApp();
    QTemporaryDir dir;
    const auto at = [&](const char* name) { return dir.filePath(name); };
    const QByteArray types = "<DcTemplate><DcDAType idtype=\"1\" type=\"INT16\" size=\"2\" "
                             "value=\"0\"/></DcTemplate>";
    const QByteArray vcc = "<DcVCC name=\"VCC_1\"><DcDA name=\"B\" type=\"INT16\"/>";
    WriteFile(at("a.blt"), "<DcTree>" + vcc + "</DcVCC>" + types + "</DcTree>");
    WriteFile(at("b.xml"),
              "<DcTree>" + vcc + "<DcDA name=\"D\" type=\"INT16\"/></DcVCC>" + types + "</DcTree>");
    HostProject demo;
    BuildDemoProject(demo);
    ASSERT_TRUE(SaveProject(demo, at("demo.json")));
    QProcess host;
    // The demo as it was closed once: its stored $DATARUN is what the form writes.
    host.start(ICCP_HOST_PATH, {at("demo.json"), "--headless"});
    ASSERT_TRUE(host.waitForFinished(120000) && host.exitCode() == 0);
    const ino_t saved = Inode(at("demo.json"));
    const struct {
        QStringList args;
        int status;
        QString out, err;
    } rows[] = {
        {{"--diff", at("a.blt"), at("a.blt")}, 0, "^\\z", ""},
        {{"--diff", at("a.blt"), at("b.xml")}, 1, "^\\+ D: переменная INT16\\n\\z", ""},
        {{"--diff", at("a.blt"), at("none.blt")}, 2, "^\\z", "none\\.blt: Ошибка чтения файла"},
        {{"--diff", at("a.blt"), at("b.xml"), at("demo.json")}, 2, "", "takes no project"},
        {{"--lint", "--diff"}, 2, "", "one at a time"},
        {{"--lint", "--pdu", "0"}, 2, "", "--pdu takes a number"},
        {{"--diff"}, 2, "", "no stored \\$DATARUN"},
        {{at("demo.json"), "--diff"}, 0, "^\\z", ""},
        {{at("demo.json"), "--diff", at("a.blt")}, 1, "^- B: переменная INT16\\n", ""},
        {{at("demo.json"), "--lint"}, 0, "^\\z", "lint: 0 error\\(s\\), 0 warning\\(s\\)"},
        {{at("demo.json"), "--lint", "--pdu", "85"},
         1,
         "^error: DataSet_1: pdu-size: размер набора данных 86 байт больше PDU в 85 байт\\n",
         ""},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(qPrintable(r.args.join(' ')));
        host.start(ICCP_HOST_PATH, r.args);
        ASSERT_TRUE(host.waitForFinished(120000));
        const QString out = QString::fromUtf8(host.readAllStandardOutput());
        const QString err = QString::fromUtf8(host.readAllStandardError());
        EXPECT_EQ(host.exitCode(), r.status) << qPrintable(err);
        EXPECT_TRUE(out.contains(QRegularExpression(r.out))) << qPrintable(out);
        EXPECT_TRUE(err.contains(QRegularExpression(r.err))) << qPrintable(err);
    }
    EXPECT_EQ(Inode(at("demo.json")), saved); // lint and diff leave the project file
}
