// The built-in demo project holds what the form needs to show all it can.
#include "host/DemoProject.h"

#include <QSet>
#include <QString>
#include <gtest/gtest.h>

namespace {

void TagsBelow(const HostObject* ob, QList<const HostObject*>& out) {
    for (const HostObject* child : ob->children()) {
        if (child->kind() <= cotControlPass)
            out.append(child);
        TagsBelow(child, out);
    }
}

int FolderDepth(const HostObject* ob) {
    int depth = 0;
    for (const HostObject* child : ob->children())
        if (child->kind() >= cotFolderSource)
            depth = std::max(depth, 1 + FolderDepth(child));
    return depth;
}

} // namespace

TEST(DemoProject, ShapeLimitsAndTags) {
    HostProject demo;
    BuildDemoProject(demo);
    ASSERT_EQ(demo.findAll(cotLine).size(), 1);
    HostObject* direct = demo.findFirst(cotLine)->owner();
    ASSERT_EQ(direct->kind(), cotDirect);
    const QList<HostObject*> units = direct->children(cotUnit);
    ASSERT_EQ(units.size(), 2);

    int total = 0;
    for (HostObject* unit : units) {
        const int maxICC = unit->get("maxICC").toInt();
        const int maxDS = unit->get("maxDS").toInt();
        EXPECT_GE(maxICC, 1);
        EXPECT_GE(maxDS, 1);
        QList<const HostObject*> tags;
        TagsBelow(unit, tags);
        total += tags.size();
        QSet<int> numbers;
        for (const HostObject* tag : tags) {
            const int number = tag->get("number").toInt();
            EXPECT_FALSE(numbers.contains(number)) << number;
            numbers.insert(number);
            const int domain = tag->get("domain").toInt();
            EXPECT_GE(domain, 0);
            EXPECT_LE(domain, maxICC);
            EXPECT_GE(tag->get("isinDataSet").toInt(), 0);
            EXPECT_LE(tag->get("isinDataSet").toInt(), maxDS);
            EXPECT_EQ(tag->owner()->kind(), tag->kind() + 8);
            EXPECT_FALSE(tag->get("caption").toByteArray().isEmpty());
            // A bound tag carries the full name of its variable; a
            // placeholder key marks a free one.
            const QByteArray key = tag->get("tag_id").toByteArray();
            const QByteArray lower = key.toLower();
            if (!key.isEmpty() && !lower.contains("noname") && !lower.contains("empty")) {
                QByteArray name =
                    tag->get("tag_name").toByteArray() + "_" + QByteArray::number(number);
                if (domain)
                    name = "ICC_" + QByteArray::number(domain) + "/" + name;
                EXPECT_EQ(key, name);
            }
        }
    }
    EXPECT_GE(total, 38);
    EXPECT_LE(total, 45);

    HostObject* main = units.first();
    for (int mode = 0; mode < 4; ++mode) {
        const QList<HostObject*> base = main->children(mode + 8);
        ASSERT_EQ(base.size(), 1) << mode;
        EXPECT_EQ(base.first()->moduleKey(), "Arven");
        EXPECT_GE(FolderDepth(base.first()), 1) << mode;
    }
    EXPECT_EQ(FolderDepth(main->children(cotFolderSource).first()), 2);

    // Twins are asked for by received tags and by one transmitted tag.
    int sboSource = 0, sboPass = 0, nameless = 0;
    for (HostObject* tag : demo.findAll(cotSource) + demo.findAll(cotControlSource))
        sboSource += tag->get("presentSBO").toInt() > 0;
    for (HostObject* tag : demo.findAll(cotPass))
        sboPass += tag->get("presentSBO").toInt() > 0;
    for (HostObject* tag : demo.findAll(cotSource))
        nameless += tag->get("tag_name").toByteArray().isEmpty();
    EXPECT_GE(sboSource, 3);
    EXPECT_EQ(sboPass, 1);
    EXPECT_GE(nameless, 1);
    EXPECT_EQ(QString::fromUtf8(main->get("caption").toByteArray()), "Сервер ICCP основной");
}
