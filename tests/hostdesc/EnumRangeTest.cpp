// The "EnumQRT" enumeration text and the "low=high" range text.
#include "plugin/HostTitles.h"

#include <gtest/gtest.h>

TEST(EnumQRT, ListItemsBetweenSemicolonsAndTheTrimmedRest) {
    // Items before a ";" stand as they are; the rest is cut to 200, then trimmed.
    const QString longItem = "k=" + QString(250, 'v');
    const struct {
        QString text;
        QStringList items;
    } rows[] = {{" a = 1 ;;b=2 ;  c=3  ", {" a = 1 ", "", "b=2 ", "c=3"}},
                {"   ", {}},
                {longItem + ";" + longItem, {longItem, "k=" + QString(198, 'v')}},
                {QString(199, ' ') + "xyz", {"x"}}};
    for (const auto& r : rows) {
        QStringList out;
        EnumQRT2StringList(r.text, out);
        EXPECT_EQ(out, r.items) << qPrintable(r.text);
    }
    QStringList out = {"old"}; // the list is appended to
    EnumQRT2StringList("x=1", out);
    EXPECT_EQ(out, QStringList({"old", "x=1"}));
}

TEST(EnumQRT, MapTakesKeyValuePairsLaterKeysWin) {
    using Map = QMap<QString, QString>;
    const struct {
        QString text;
        Map map;
    } rows[] = {{"0=Нет; 2 = Дискретная ", {{"0", "Нет"}, {"2", "Дискретная"}}},
                {"a=1;noequals;=orphan;a=2;b=", {{"a", "2"}, {"b", ""}}},
                // The value of any item is cut to 200 characters.
                {"k=" + QString(300, 'v') + ";m=1", {{"k", QString(200, 'v')}, {"m", "1"}}}};
    for (const auto& r : rows) {
        Map map;
        EnumQRT2Map(r.text, &map);
        EXPECT_EQ(map, r.map) << qPrintable(r.text);
    }
    EnumQRT2Map("a=1", nullptr); // no map: nothing to fill
}

TEST(EnumQRT, FindKeyAndValueSplitsAtTheFirstEquals) {
    const struct {
        const char* item;
        bool ok;
        const char* key;
        const char* value;
    } rows[] = {{"no pair", false, "untouched", "untouched"},
                {"  ied_addr  =  a=b  ", true, "ied_addr", "a=b"},
                {"  = value", false, nullptr, nullptr}};
    for (const auto& r : rows) {
        QString key = "untouched", value = "untouched";
        EXPECT_EQ(FindKeyAndValue(r.item, key, value), r.ok) << r.item;
        if (r.key) {
            EXPECT_EQ(key, r.key) << r.item;
            EXPECT_EQ(value, r.value) << r.item;
        }
    }
}

TEST(Range, UpperBoundKeepsItsEqualsSignAndReadsAsZero) {
    const struct {
        const char* text;
        bool ok;
        int low, high;
    } ints[] = {{"10=20", true, 10, 0}, {"1020", false, 5, 5}, {nullptr, false, 5, 5}};
    for (const auto& r : ints) {
        int low = 5, high = 5;
        EXPECT_EQ(getIRange(r.text, low, high), r.ok);
        EXPECT_EQ(low, r.low);
        EXPECT_EQ(high, r.high);
    }
    double low = 7, high = 7;
    EXPECT_FALSE(getDRange("0.5", low, high));
    EXPECT_DOUBLE_EQ(low + high, 14);
    EXPECT_TRUE(getDRange("0.5=100.25", low, high));
    EXPECT_DOUBLE_EQ(low, 0.5);
    EXPECT_DOUBLE_EQ(high, 0.0);
}
