// The "EnumQRT" enumeration text and the "low=high" range text.
#include "plugin/HostTitles.h"

#include <gtest/gtest.h>

TEST(EnumQRT, ListItemsBetweenSemicolonsAndTheTrimmedRest) {
    // Items before a ";" stand as they are; the rest is cut to 200, then trimmed.
    const QString longItem = "k=" + QString(250, 'v');
    const struct {
        QString text;
        QStringList items;
    } rows[] = {{" a = 1 ;;b=2 ;  c=3  ", {"old", " a = 1 ", "", "b=2 ", "c=3"}},
                {"   ", {"old"}},
                {longItem + ";" + longItem, {"old", longItem, "k=" + QString(198, 'v')}},
                {QString(199, ' ') + "xyz", {"old", "x"}}};
    for (const auto& r : rows) {
        QStringList out = {"old"}; // the list is appended to
        EnumQRT2StringList(r.text, out);
        EXPECT_EQ(out, r.items) << qPrintable(r.text);
    }
}

TEST(EnumQRT, MapTakesKeyValuePairsLaterKeysWin) {
    using Map = QMap<QString, QString>;
    const struct {
        QString text;
        Map map;
    } rows[] = {{"0=Нет; 2 = Дискретная ", {{"0", "Нет"}, {"2", "Дискретная"}}},
                {"a=1;noequals;=orphan;a=2;b=; c = x=y ", {{"a", "2"}, {"b", ""}, {"c", "x=y"}}},
                // The value of any item is cut to 200 characters.
                {"k=" + QString(300, 'v') + ";m=1", {{"k", QString(200, 'v')}, {"m", "1"}}}};
    for (const auto& r : rows) {
        Map map;
        EnumQRT2Map(r.text, &map);
        EXPECT_EQ(map, r.map) << qPrintable(r.text);
    }
    EnumQRT2Map("a=1", nullptr); // no map: nothing to fill
    QString key = "untouched", value = "untouched";
    EXPECT_FALSE(FindKeyAndValue("no pair", key, value));
    EXPECT_EQ(key + value, "untoucheduntouched");
}

TEST(Range, UpperBoundKeepsItsEqualsSignAndReadsAsZero) {
    const struct {
        const char* text;
        bool ok;
        int low;
        double dlow;
    } rows[] = {{"10=20", true, 10, 10},
                {"0.5=100.25", true, 0, 0.5},
                {"1020", false, 5, 5},
                {nullptr, false, 5, 5}};
    for (const auto& r : rows) {
        int low = 5, high = 5;
        double dlow = 5, dhigh = 5;
        EXPECT_EQ(getIRange(r.text, low, high), r.ok);
        EXPECT_EQ(getDRange(r.text, dlow, dhigh), r.ok);
        EXPECT_EQ(QString("%1 %2 %3 %4").arg(low).arg(high).arg(dlow).arg(dhigh),
                  QString("%1 %2 %3 %2").arg(r.low).arg(r.ok ? 0 : 5).arg(r.dlow));
    }
}
