// The project file: round trips, refusals, and the atomic save.
#include "host/ProjectFile.h"
#include "common/SmallProject.h"
#include "common/TempFiles.h"
#include "host/DemoProject.h"
#include "host/HostClasses.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(ProjectFile, RoundTripKeepsTreeValuesAndKeys) {
    SmallProject p;
    p.unit->set("$DATARUN", QByteArray("<DcVCC name=\"V\">\r\n</DcVCC>\r\n"));
    p.unit2->set("$DATARUN", QByteArray("\xff\xfe\0bin", 6));
    p.tagReal->set("procMul", 0.1);
    p.tagReal->set("procInvert", true);
    p.line->addParam(Param("extraRatio", cptDouble, 2.0, "Коэффициент"));

    const QByteArray json = ProjectToJson(p.host);
    HostProject copy;
    QString error;
    ASSERT_TRUE(ProjectFromJson(copy, json, &error)) << qPrintable(error);
    EXPECT_EQ(ProjectToJson(copy), json);

    // The same text again could hide a reader that drops what it can't take.
    HostObject* unit2 = copy.findAll(cotUnit).value(1);
    ASSERT_TRUE(unit2);
    EXPECT_EQ(unit2->get("$DATARUN").toByteArray(), QByteArray("\xff\xfe\0bin", 6));
    const HostParam* ratio = copy.findFirst(cotLine)->param("extraRatio");
    ASSERT_TRUE(ratio);
    EXPECT_EQ(ratio->type, cptDouble);
    EXPECT_EQ(copy.findFirst(cotFolderSource)->children().first()->kind(), cotFolderSource);

    HostProject demo;
    BuildDemoProject(demo);
    const QByteArray demoJson = ProjectToJson(demo);
    ASSERT_TRUE(ProjectFromJson(copy, demoJson, &error)) << qPrintable(error);
    EXPECT_EQ(ProjectToJson(copy), demoJson);
}

TEST(ProjectFile, HandWrittenFileAndRefusals) {
    const QByteArray text = R"({
      "format": "cfghost-project", "version": 1,
      "objects": [{"kind": "direct", "params": {"caption": "Н"}, "children": [
        {"kind": "line"},
        {"kind": 4, "module": "IecArven", "params": {"maxICC": 4, "ied_name": "Srv"},
         "children": [{"kind": "f_pass", "children": [
           {"kind": "pass", "params": {"domain": 2, "using": false, "note": "x",
                                       "rate": {"type": "double", "value": 3}}}]}]}]}]
    })";
    HostProject project;
    QString error;
    ASSERT_TRUE(ProjectFromJson(project, text, &error)) << qPrintable(error);
    HostObject* unit = project.findFirst(cotUnit);
    EXPECT_EQ(unit->get("maxICC").toInt(), 4);
    EXPECT_EQ(unit->get("maxDS").toInt(), 1); // default
    EXPECT_EQ(unit->get("number").toInt(), 1);
    HostObject* tag = project.findFirst(cotPass);
    EXPECT_EQ(tag->get("domain").toInt(), 2);
    EXPECT_FALSE(tag->get("using").toBool());
    EXPECT_EQ(tag->param("note")->type, cptText);
    EXPECT_EQ(tag->param("rate")->type, cptDouble);
    EXPECT_EQ(project.findFirst(cotLine)->owner(), project.roots().first());

    struct Bad {
        QByteArray json;
        QString where;
    };
    const Bad bad[] = {
        {"{", "offset"},
        {R"({"format": "other", "version": 1, "objects": []})", "not a cfghost-project"},
        {R"({"format": "cfghost-project", "version": 2, "objects": []})", "version 2"},
        {R"({"format": "cfghost-project", "version": 1, "objects": [{"kind": "galaxy"}]})",
         "objects[0]: unknown kind"},
        {R"({"format": "cfghost-project", "version": 1, "objects": [{"kind": "unit"}]})",
         "objects[0]: a unit can't stand here"},
        {R"({"format": "cfghost-project", "version": 1, "objects": [{"kind": "direct",
            "children": [{"kind": "line"}, {"kind": "line", "params": {"port": "x"}}]}]})",
         "objects[0].children[1].params.port"},
        {R"({"format": "cfghost-project", "version": 1, "objects": [{"kind": "direct",
            "params": {"t8": {"type": "complex", "value": 1}}}]})",
         "objects[0].params.t8: unknown type"},
    };
    for (const Bad& b : bad) {
        SmallProject p;
        EXPECT_FALSE(ProjectFromJson(p.host, b.json, &error)) << b.json.constData();
        EXPECT_TRUE(error.contains(b.where)) << qPrintable(error);
        EXPECT_TRUE(p.host.roots().isEmpty());
    }
}

TEST(ProjectFile, SaveReplacesTheFileAtomically) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath("project.json");
    const QByteArray old = WriteFile(path, "old content");
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

    // A save that can't be made leaves the old file alone.
    const QString blocked = dir.filePath("blocked.json");
    QDir(dir.path()).mkdir("blocked.json");
    EXPECT_FALSE(SaveProject(p.host, blocked, &error));
    EXPECT_TRUE(error.startsWith(blocked));
    EXPECT_FALSE(SaveProject(p.host, dir.filePath("missing/dir/p.json"), &error));

    WriteFile(path, old);
    const QString notJson = dir.filePath("broken.json");
    WriteFile(notJson, "{\"format\": ");
    EXPECT_FALSE(LoadProject(loaded, notJson, &error));
    EXPECT_TRUE(error.startsWith(notJson));
    EXPECT_FALSE(LoadProject(loaded, dir.filePath("none.json"), &error));
    EXPECT_TRUE(loaded.roots().isEmpty());
}

TEST(ProjectFile, WrittenInTheIndentedJsonLayout) {
    HostProject p;
    HostObject* root = p.create(nullptr, cotProject);
    // A leading byte-order mark is dropped and a sequence cut short at the
    // end becomes U+FFFD, as a UTF-8 decoding gives them.
    root->set("caption", QByteArray("\xEF\xBB\xBF"
                                    "a \"q\" \\\t\x01\xD0"));
    root->addParam(Param("ratio", cptDouble, 0.25, "К"));
    root->addParam(Param("blob", cptText, QByteArray("\xff"), "b"));
    const QByteArray expected =
        "{\n"
        "    \"format\": \"cfghost-project\",\n"
        "    \"objects\": [\n"
        "        {\n"
        "            \"kind\": \"project\",\n"
        "            \"module\": \"cfghost\",\n"
        "            \"params\": {\n"
        "                \"blob\": {\n"
        "                    \"base64\": \"/w==\",\n"
        "                    \"caption\": \"b\",\n"
        "                    \"type\": \"text\"\n"
        "                },\n"
        "                \"caption\": \"a \\\"q\\\" \\\\\\t\\u0001\xEF\xBF\xBD\",\n"
        "                \"number\": 1,\n"
        "                \"ratio\": {\n"
        "                    \"caption\": \"К\",\n"
        "                    \"type\": \"double\",\n"
        "                    \"value\": 0.25\n"
        "                }\n"
        "            }\n"
        "        }\n"
        "    ],\n"
        "    \"version\": 1\n"
        "}\n";
    EXPECT_EQ(ProjectToJson(p), expected);

    HostProject empty;
    EXPECT_EQ(ProjectToJson(empty), "{\n"
                                    "    \"format\": \"cfghost-project\",\n"
                                    "    \"objects\": [\n"
                                    "    ],\n"
                                    "    \"version\": 1\n"
                                    "}\n");

    // A whole project with numbers of every kind reads back through Qt's own
    // JSON and is written again byte for byte.
    HostProject demo;
    BuildDemoProject(demo);
    HostObject* tag = demo.findFirst(cotSource);
    tag->set("procMul", 1e20);
    tag->set("procAdd", -0.1);
    tag->set("procClear", 1e300);
    tag->set("procAperture", 1.0 / 3);
    tag->addParam(Param("Zeta", cptDouble, -2147483648.0, "К"));
    const QByteArray json = ProjectToJson(demo);
    EXPECT_EQ(QJsonDocument::fromJson(json).toJson(QJsonDocument::Indented), json);
}
