// The "EnumQRT" enumeration text and the "low=high" range text.
#include "plugin/HostTitles.h"

#include <gtest/gtest.h>

TEST(EnumQRT, ItemsBetweenSemicolonsAndTheTrimmedRest) {
    QStringList out;
    EnumQRT2StringList("a=1;b=2;", out);
    EXPECT_EQ(out, QStringList({"a=1", "b=2"}));

    // Items before a ";" stand as they are, blanks and empty ones included;
    // only the rest is trimmed, and an empty rest adds nothing.
    out.clear();
    EnumQRT2StringList(" a = 1 ;;b=2 ;  c=3  ", out);
    EXPECT_EQ(out, QStringList({" a = 1 ", "", "b=2 ", "c=3"}));
    out.clear();
    EnumQRT2StringList("   ", out);
    EnumQRT2StringList("", out);
    EXPECT_TRUE(out.isEmpty());

    // The list is appended to.
    out = QStringList({"old"});
    EnumQRT2StringList("x=1", out);
    EXPECT_EQ(out, QStringList({"old", "x=1"}));
}

TEST(EnumQRT, LongItemsAreCutOnlyInTheLastPlace) {
    const QString longItem = "k=" + QString(250, 'v');
    QStringList out;
    EnumQRT2StringList(longItem + ";" + longItem, out);
    ASSERT_EQ(out.size(), 2);
    EXPECT_EQ(out[0], longItem);
    EXPECT_EQ(out[1], "k=" + QString(198, 'v'));

    // The cut comes before the trim: blanks past 200 characters don't count.
    out.clear();
    EnumQRT2StringList(QString(199, ' ') + "xyz", out);
    EXPECT_EQ(out, QStringList({"x"}));
}

TEST(EnumQRT, MapTakesKeyValuePairsLaterKeysWin) {
    QMap<QString, QString> map;
    EnumQRT2Map("0=Нет; 2 = Дискретная ", &map);
    EXPECT_EQ(map.size(), 2);
    EXPECT_EQ(map.value("2"), "Дискретная");

    map.clear();
    EnumQRT2Map("a=1;noequals;=orphan;a=2;b=", &map);
    EXPECT_EQ(map.size(), 2);
    EXPECT_EQ(map.value("a"), "2");
    EXPECT_TRUE(map.contains("b"));
    EXPECT_EQ(map.value("b"), "");

    // The value of any item is cut to 200 characters.
    map.clear();
    EnumQRT2Map("k=" + QString(300, 'v') + ";m=1", &map);
    EXPECT_EQ(map.value("k"), QString(200, 'v'));
    EXPECT_EQ(map.value("m"), "1");

    EnumQRT2Map("a=1", nullptr); // no map: nothing to fill
}

TEST(EnumQRT, FindKeyAndValueSplitsAtTheFirstEquals) {
    QString key = "untouched", value = "untouched";
    EXPECT_FALSE(FindKeyAndValue("no pair", key, value));
    EXPECT_EQ(key, "untouched");
    EXPECT_EQ(value, "untouched");

    EXPECT_TRUE(FindKeyAndValue("  ied_addr  =  a=b  ", key, value));
    EXPECT_EQ(key, "ied_addr");
    EXPECT_EQ(value, "a=b");

    EXPECT_FALSE(FindKeyAndValue("  = value", key, value));
    EXPECT_TRUE(FindKeyAndValue("k=", key, value));
    EXPECT_EQ(key, "k");
    EXPECT_EQ(value, "");
}

TEST(Range, UpperBoundKeepsItsEqualsSignAndReadsAsZero) {
    int low = -1, high = -1;
    EXPECT_TRUE(getIRange("10=20", low, high));
    EXPECT_EQ(low, 10);
    EXPECT_EQ(high, 0);

    low = high = 5;
    EXPECT_FALSE(getIRange("1020", low, high));
    EXPECT_FALSE(getIRange(nullptr, low, high));
    EXPECT_EQ(low, 5);
    EXPECT_EQ(high, 5);

    EXPECT_TRUE(getIRange("=9", low, high));
    EXPECT_EQ(low, 0);
    EXPECT_EQ(high, 0);

    double dlow = -1, dhigh = -1;
    EXPECT_TRUE(getDRange("0.5=100.25", dlow, dhigh));
    EXPECT_DOUBLE_EQ(dlow, 0.5);
    EXPECT_DOUBLE_EQ(dhigh, 0.0);
    dlow = dhigh = 7;
    EXPECT_FALSE(getDRange("0.5", dlow, dhigh));
    EXPECT_DOUBLE_EQ(dlow, 7);
    EXPECT_DOUBLE_EQ(dhigh, 7);
}
