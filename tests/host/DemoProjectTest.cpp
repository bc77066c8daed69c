// The built-in demo project holds what the form needs to show all it can.
#include "host/DemoProject.h"

#include <QSet>
#include <gtest/gtest.h>

TEST(DemoProject, ShapeLimitsAndTags) {
    HostProject demo;
    BuildDemoProject(demo);
    ASSERT_EQ(demo.findAll(cotLine).size(), 1);
    const QList<HostObject*> units = demo.findFirst(cotLine)->owner()->children(cotUnit);
    ASSERT_EQ(units.size(), 2);
    HostObject* main = units.first();
    EXPECT_EQ(QString::fromUtf8(main->get("caption").toByteArray()), "Сервер ICCP основной");
    const int maxICC = main->get("maxICC").toInt();
    QSet<int> numbers;
    int tags = 0, sboPass = 0;
    for (HostObject* tag : demo.findAll(cotSource) + demo.findAll(cotPass) +
                               demo.findAll(cotControlSource) + demo.findAll(cotControlPass)) {
        EXPECT_EQ(tag->owner()->kind(), tag->kind() + 8);
        sboPass += tag->kind() == cotPass && tag->get("presentSBO").toInt() > 0;
        ++tags;
        HostObject* unit = tag->owner();
        while (unit->kind() != cotUnit)
            unit = unit->owner();
        if (unit != main)
            continue;
        const int number = tag->get("number").toInt();
        EXPECT_FALSE(numbers.contains(number)) << number;
        numbers.insert(number);
        EXPECT_LE(tag->get("domain").toInt(), maxICC);
        EXPECT_LE(tag->get("isinDataSet").toInt(), main->get("maxDS").toInt());
    }
    EXPECT_TRUE(tags >= 38 && tags <= 45) << tags;
    EXPECT_EQ(sboPass, 1); // twins asked for by one transmitted tag
    for (int mode = 0; mode < 4; ++mode) {
        ASSERT_EQ(main->children(mode + 8).size(), 1) << mode;
        EXPECT_FALSE(main->children(mode + 8).first()->children(mode + 8).isEmpty()) << mode;
    }
}
