// Display titles of host objects, their formatting and the dump of an object.
#include "plugin/HostTitles.h"

#include "common/SmallProject.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

// Class texts that a test puts in place of the stand-in host's.
const char* scriptedTitle = nullptr;
const char* scriptedFormat = nullptr;

const char* ScriptedClassText(void*, const char* key) {
    return !strcmp(key, "title")    ? scriptedTitle
           : !strcmp(key, "format") ? scriptedFormat
                                    : nullptr;
}

} // namespace

TEST(Titles, TitleListsTemplatesAndTheNumber) {
    SmallProject p;
    const struct {
        const char *title, *format;
        HostObject* ob;
        const char* text;
        const char* unreadable = nullptr;
    } rows[] = {// Parts are trimmed, empty ones skipped, unreadable ones left out; tags numbered.
                {" tag_name , ,nothing,domain,", "%s in ICC %s", p.tagState, "Q1 in ICC 1_2"},
                // Values render as for the property tree; a folder takes no number.
                {"using,caption", "[%s] %s", p.folder[2], "[true] Управление принимаемое"},
                // Five values are the most a title takes; a sixth makes it "Unknow".
                {"caption,number,using,tag_name,domain", "%s|%s|%s|%s|%s", p.tagReal,
                 "Частота|1|true|Freq|0_1"},
                {"caption,number,using,tag_name,domain,isinDataSet", "%s|%s|%s|%s|%s|%s", p.tagReal,
                 "Unknow_1"},
                {"caption,number", "%s (№ %s)", p.unit2, "Сервер 2 (№ 2)"}, // no number added
                {nullptr, "%s", p.folder[0], "Unknow"},                     // no title list at all
                {"caption", nullptr, p.folder[0], "NULLPTR"},
                {"caption", "%s", p.tagPass, "Мощность_0", "number"}};
    PatchedTable scripted;
    scripted.patch(slotObClassText, &ScriptedClassText);
    TableInUse use(scripted.fns);
    for (const auto& r : rows) {
        scriptedTitle = r.title;
        scriptedFormat = r.format;
        if (r.unreadable)
            p.host.failParam(r.unreadable, HostProject::FailRead);
        EXPECT_EQ(GetTitle(r.ob), r.text);
    }
}

TEST(Titles, FormatTakesOneToFiveTexts) {
    const QString args[6] = {"two", "4", "три", "5", "один", "6"};
    const struct {
        const char* format;
        int n;
        const char* text;
    } rows[] = {{"%s-%s-%s-%s-%s", 5, "two-4-три-5-один"},
                {"%s", 0, "Unknow"},
                {"%s", 6, "Unknow"},
                {nullptr, 1, "Unknow"},
                // Flags, width and precision of printf, widths in bytes of UTF-8; "%%" is "%".
                {"<%-5s|%5s|%7s|%.1s> 100%%", 4, "<two  |    4| три|5> 100%"},
                // More conversions than texts take empty ones; other conversions stay.
                {"%s/%s/%s", 1, "two//"},
                {"%d %s %n", 1, "%d two %n"},
                {"end %", 1, "end %"}};
    for (const auto& r : rows)
        EXPECT_EQ(GetFormatTitle(r.format, args, r.n), r.text) << (r.format ? r.format : "null");
}

TEST(Titles, ObjectInfoListsEveryParameter) {
    SmallProject p;
    TableInUse use;
    p.subFolder->set("caption", QByteArray("Bay 1"));
    p.host.failParam("using", HostProject::FailRead);
    EXPECT_EQ(GetObjInfo(p.subFolder), "    К-во свойств =4\r\n"
                                       "    number = 5\r\n"
                                       "    type = f_source\r\n"
                                       "    caption = Bay 1\r\n"
                                       "    using = Unk\r\n");
    // Texts are read as Latin-1 here.
    EXPECT_EQ(GetObjInfo(p.folder[1]).section("\r\n", 3, 3),
              "    caption = " + QString::fromLatin1(QByteArray("Передаваемые")));
    EXPECT_EQ(GetObjInfo(nullptr), "");
    TableInUse none(nullptr);
    EXPECT_EQ(GetObjInfo(p.subFolder), "");
}
