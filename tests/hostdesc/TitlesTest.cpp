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
    if (!strcmp(key, "title"))
        return scriptedTitle;
    if (!strcmp(key, "format"))
        return scriptedFormat;
    return nullptr;
}

class Titles : public ::testing::Test {
protected:
    SmallProject p;
    TableInUse use;
};

} // namespace

TEST_F(Titles, TitlesOfTheHostsClassesAndTheirFallbacks) {
    // Tags are numbered over the unit; the unit's class formats caption and number.
    const std::pair<HostObject*, const char*> plain[] = {{p.tagState, "Выключатель Q1_2"},
                                                         {p.folder[0], "Принимаемые"},
                                                         {p.unit2, "Сервер 2 (№ 2)"},
                                                         {nullptr, "NULLPTR"}};
    for (const auto& r : plain)
        EXPECT_EQ(GetTitle(r.first), r.second);
    // No class texts; no title parameter readable; the number unreadable.
    const struct {
        int slot;
        const char* param;
        HostObject* ob;
        const char* title;
    } faults[] = {{slotObClassText, nullptr, p.tagReal, "NULLPTR"},
                  {-1, "caption", p.tagReal, "Unknow"},
                  {-1, "caption", p.folder[1], "Unknow"},
                  {-1, "number", p.tagPass, "Мощность_0"}};
    for (const auto& r : faults) {
        if (r.param)
            p.host.failParam(r.param, HostProject::FailRead);
        else
            p.host.failSlot(r.slot);
        EXPECT_EQ(GetTitle(r.ob), r.title);
        p.host.clearFaults();
    }
    TableInUse none(nullptr);
    EXPECT_EQ(GetTitle(p.tagReal), "NULLPTR");
}

TEST_F(Titles, TitleListsAndTemplates) {
    const struct {
        const char *title, *format;
        HostObject* ob;
        const char* text;
    } rows[] = {// Parts are trimmed, empty ones skipped, unreadable ones left out.
                {" tag_name , ,nothing,domain,", "%s in ICC %s", p.tagState, "Q1 in ICC 1_2"},
                // Values render as for the property tree: booleans as words.
                {"using,caption", "[%s] %s", p.folder[2], "[true] Управление принимаемое"},
                // Five values are the most a title takes; a sixth makes it "Unknow".
                {"caption,number,using,tag_name,domain", "%s|%s|%s|%s|%s", p.tagReal,
                 "Частота|1|true|Freq|0_1"},
                {"caption,number,using,tag_name,domain,isinDataSet", "%s|%s|%s|%s|%s|%s", p.tagReal,
                 "Unknow_1"},
                // Only three are a folder's: the other conversions take empty texts.
                {"caption,number,using,tag_name,domain,isinDataSet", "%s|%s|%s|%s|%s|%s",
                 p.folder[0], "Принимаемые|1|true|||"},
                {nullptr, "%s", p.folder[0], "Unknow"}, // no title list at all
                {"caption", nullptr, p.folder[0], "NULLPTR"}};
    PatchedTable scripted;
    scripted.patch(slotObClassText, &ScriptedClassText);
    TableInUse use(scripted.fns);
    for (const auto& r : rows) {
        scriptedTitle = r.title;
        scriptedFormat = r.format;
        EXPECT_EQ(GetTitle(r.ob), r.text);
    }
}

TEST_F(Titles, FormatTakesOneToFiveTexts) {
    const QString args[6] = {"один", "two", "4", "три", "5", "6"};
    EXPECT_EQ(GetFormatTitle("%s-%s-%s-%s-%s", args, 5), "один-two-4-три-5");
    for (int bad : {0, 6, -1})
        EXPECT_EQ(GetFormatTitle("%s", args, bad), "Unknow") << bad;
    // Flags, width and precision of printf, widths in bytes of UTF-8; "%%" is "%".
    EXPECT_EQ(GetFormatTitle("<%-5s|%5s|%7s|%.1s> 100%%", args + 1, 4),
              "<two  |    4| три|5> 100%");
    // More conversions than texts take empty ones; other conversions stay.
    EXPECT_EQ(GetFormatTitle("%s/%s/%s", args + 1, 1), "two//");
    EXPECT_EQ(GetFormatTitle("%d %s %n", args + 1, 1), "%d two %n");
    EXPECT_EQ(GetFormatTitle("end %", args, 1), "end %");
}

TEST_F(Titles, ObjectInfoListsEveryParameter) {
    p.subFolder->set("caption", QByteArray("Bay 1"));
    p.host.failParam("using", HostProject::FailRead);
    EXPECT_EQ(GetObjInfo(p.subFolder), "    К-во свойств =4\r\n"
                                       "    number = 5\r\n"
                                       "    type = f_source\r\n"
                                       "    caption = Bay 1\r\n"
                                       "    using = Unk\r\n");
    // Texts are read as Latin-1 here.
    p.host.clearFaults();
    EXPECT_EQ(GetObjInfo(p.folder[1]).section("\r\n", 3, 3),
              "    caption = " + QString::fromLatin1(QByteArray("Передаваемые")));

    EXPECT_EQ(GetObjInfo(nullptr), "");
    TableInUse none(nullptr);
    EXPECT_EQ(GetObjInfo(p.subFolder), "");
}
