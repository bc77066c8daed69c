// Display titles of host objects, their formatting and the diagnostic dump
// of an object's parameters.
#include "plugin/HostTitles.h"

#include "common/SmallProject.h"
#include "plugin/CfgIecArvenlib.h"

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
    void SetUp() override { pGlobcfgInterface = HostProject::table(); }
    void TearDown() override { pGlobcfgInterface = nullptr; }

    // Runs with the host's classes answering `title` and `format`.
    void script(const char* title, const char* format) {
        memcpy(table, HostProject::table(), sizeof table);
        table[slotObClassText] = reinterpret_cast<TCfgSlotFn>(&ScriptedClassText);
        scriptedTitle = title;
        scriptedFormat = format;
        pGlobcfgInterface = table;
    }

    SmallProject p;
    TCfgSlotFn table[cfgSlotCount];
};

} // namespace

TEST_F(Titles, TagsGetTheirNumberFoldersAndUnitsDoNot) {
    // Tags are numbered over the unit: Freq 1, Q1 2, P 3.
    EXPECT_EQ(GetTitle(p.tagReal), "Частота_1");
    EXPECT_EQ(GetTitle(p.tagState), "Выключатель Q1_2");
    EXPECT_EQ(GetTitle(p.folder[0]), "Принимаемые");
    EXPECT_EQ(GetTitle(p.subFolder), "Ячейка 1");
    // The unit's class formats caption and number itself.
    EXPECT_EQ(GetTitle(p.unit2), "Сервер 2 (№ 2)");
}

TEST_F(Titles, DegradeToNullptrAndUnknow) {
    p.host.failSlot(slotObClassText);
    EXPECT_EQ(GetTitle(p.tagReal), "NULLPTR");
    EXPECT_EQ(GetTitle(p.folder[0]), "NULLPTR");
    p.host.clearFaults();

    // No parameter of the title list can be read: no number is added.
    p.host.failParam("caption", HostProject::FailRead);
    EXPECT_EQ(GetTitle(p.tagReal), "Unknow");
    EXPECT_EQ(GetTitle(p.folder[1]), "Unknow");
    p.host.clearFaults();

    // The number can't be read: a tag ends in "_0".
    p.host.failParam("number", HostProject::FailRead);
    EXPECT_EQ(GetTitle(p.tagPass), "Мощность_0");
    p.host.clearFaults();

    EXPECT_EQ(GetTitle(nullptr), "NULLPTR");
    pGlobcfgInterface = nullptr;
    EXPECT_EQ(GetTitle(p.tagReal), "NULLPTR");
}

TEST_F(Titles, TitleListsAndTemplates) {
    // Parts are trimmed, empty ones skipped, unreadable ones left out.
    script(" tag_name , ,nothing,domain,", "%s in ICC %s");
    EXPECT_EQ(GetTitle(p.tagState), "Q1 in ICC 1_2");

    // Values render as for the property tree: booleans as words.
    script("using,caption", "[%s] %s");
    EXPECT_EQ(GetTitle(p.folder[2]), "[true] Управление принимаемое");

    // Five values are the most a title takes; a sixth makes it "Unknow".
    script("caption,number,using,tag_name,domain", "%s|%s|%s|%s|%s");
    EXPECT_EQ(GetTitle(p.tagReal), "Частота|1|true|Freq|0_1");
    script("caption,number,using,tag_name,domain,isinDataSet", "%s|%s|%s|%s|%s|%s");
    EXPECT_EQ(GetTitle(p.tagReal), "Unknow_1");
    // Only three of them are a folder's: the template's other conversions take
    // empty texts.
    EXPECT_EQ(GetTitle(p.folder[0]), "Принимаемые|1|true|||");

    // No title list at all.
    script(nullptr, "%s");
    EXPECT_EQ(GetTitle(p.folder[0]), "Unknow");
    script("caption", nullptr);
    EXPECT_EQ(GetTitle(p.folder[0]), "NULLPTR");
}

TEST_F(Titles, FormatTakesOneToFiveTexts) {
    const QString args[6] = {"один", "two", "4", "три", "5", "6"};
    EXPECT_EQ(GetFormatTitle("%s-%s-%s-%s-%s", args, 5), "один-two-4-три-5");
    for (int bad : {0, 6, -1})
        EXPECT_EQ(GetFormatTitle("%s", args, bad), "Unknow") << bad;
    // Flags, width and precision of printf; "%%" is a percent sign.
    // Widths count bytes of UTF-8.
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
    pGlobcfgInterface = nullptr;
    EXPECT_EQ(GetObjInfo(p.subFolder), "");
}
