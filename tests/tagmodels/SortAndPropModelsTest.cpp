// The sorting proxy of the tags view and the tag property model.
#include "TagTree.h"
#include "views/ProxyModel4TagsModel.h"
#include "views/SomeTagPropModel.h"

#include <QSignalSpy>
#include <QStandardItemModel>

namespace {

struct OpenProxy : ProxyModel4TagsModel {
    using ProxyModel4TagsModel::lessThan;
};

class Sorting : public TagModelTest {
protected:
    void SetUp() override {
        TagModelTest::SetUp();
        proxy.setSourceModel(&model);
        s1 = model.index(0, 0);
        s2 = model.index(1, 0);
        t1 = model.index(2, 0);
        t3 = model.index(4, 0);
    }
    OpenProxy proxy;
    QModelIndex s1, s2, t1, t3;
};

} // namespace

TEST_F(Sorting, GreaterFirstAndTagsBeforeFolders) {
    EXPECT_EQ(proxy.sortMode, 1);
    // By number: t1 is 1, t3 is 3.
    EXPECT_TRUE(proxy.lessThan(t3, t1));
    EXPECT_FALSE(proxy.lessThan(t1, t1));
    // A tag before any folder; folders by number (s1 is 2, s2 is 3).
    tree.s1->set("number", 100);
    EXPECT_TRUE(proxy.lessThan(t1, s1));
    EXPECT_FALSE(proxy.lessThan(s1, t1));
    EXPECT_TRUE(proxy.lessThan(s1, s2));

    proxy.sortMode = 2; // by caption
    tree.t1->set("caption", QString("Б"));
    tree.t3->set("caption", QString("А"));
    EXPECT_TRUE(proxy.lessThan(t1, t3));
    EXPECT_TRUE(proxy.lessThan(t3, s2));

    proxy.sortMode = 3; // by title: "Б_1" against "А_3"
    EXPECT_TRUE(proxy.lessThan(t1, t3));
    EXPECT_TRUE(proxy.lessThan(s2, s1)); // "Ячейка 2" > "Ячейка 1"

    proxy.sortMode = 4; // no such mode
    EXPECT_FALSE(proxy.lessThan(t1, t3));
    EXPECT_FALSE(proxy.lessThan(t1, s1));
    EXPECT_TRUE(proxy.lessThan(t1, QModelIndex())); // null right row
    proxy.sortMode = 1;
    EXPECT_FALSE(proxy.lessThan(QModelIndex(), t1));

    // Rows that carry no object, and no source at all.
    QStandardItemModel plain(2, 1);
    plain.setData(plain.index(1, 0), "text", Qt::UserRole);
    proxy.setSourceModel(&plain);
    EXPECT_TRUE(proxy.lessThan(plain.index(0, 0), plain.index(1, 0)));
    proxy.setSourceModel(nullptr);
    EXPECT_FALSE(proxy.lessThan(t1, t3));
}

TEST_F(Sorting, SortedViewAndMappedIndexes) {
    // The base shows s1, s2, t1 (its tag count); sorted: the tag, then the
    // folders greatest number first.
    proxy.sort(0);
    ASSERT_EQ(proxy.rowCount(), 3);
    EXPECT_EQ(proxy.index(0, 0).data().toString(), "t1_1");
    EXPECT_EQ(proxy.index(1, 0).data().toString(), "Ячейка 2");
    EXPECT_EQ(proxy.index(2, 0).data().toString(), "Ячейка 1");

    QList<QModelIndex> list = {proxy.index(0, 0), proxy.index(2, 0)};
    proxy.ListMapToSource(list);
    EXPECT_EQ(list, QList<QModelIndex>({t1, s1}));

    QSignalSpy changed(&proxy, SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>)));
    proxy.UpdateData(s2, t1);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].value<QModelIndex>(), proxy.index(1, 0));
    EXPECT_EQ(changed[0][1].value<QModelIndex>(), proxy.index(0, 0));
}

TEST(SomeTagProp, HeadAndTwoRowsOfTheTag) {
    EnsureApp();
    SmallProject p;
    TableInUse table;
    p.tagReal->set("tag_id", QByteArray("Freq_1"));
    SomeTagPropModel model(p.tagReal);
    EXPECT_EQ(model.rowCount(), 1);
    const QModelIndex head = model.index(0, 0);
    EXPECT_EQ(head.data().toString(), "Некоторые свойства тега");
    EXPECT_EQ(model.index(0, 1).data().toString(), ""); // no key
    EXPECT_FALSE(model.parent(head).isValid());
    EXPECT_EQ(model.rowCount(head), 2);
    const QModelIndex key = model.index(0, 0, head);
    const QModelIndex caption = model.index(1, 1, head);
    EXPECT_EQ(key.data().toString(), "Ключ привязки");
    EXPECT_EQ(model.index(0, 1, head).data().toString(), "Freq_1");
    EXPECT_EQ(caption.data().toString(), "Частота");
    EXPECT_EQ(caption.data(Qt::UserRole).value<void*>(),
              static_cast<void*>(&SomeTagPropertiesOrmelsrv[2]));
    EXPECT_EQ(model.rowCount(key), 0);
    // A row's parent is found from its level: the head for the key, the
    // row of level 1 (with the head's record) for the caption.
    EXPECT_EQ(model.parent(key), head);
    const QModelIndex up = model.parent(caption);
    EXPECT_EQ(QPoint(up.row(), up.column()), QPoint(1, 1));
    EXPECT_EQ(up.internalPointer(), static_cast<void*>(SomeTagPropertiesOrmelsrv));
    // Values that can't be read are empty.
    p.host.failParam("caption", HostProject::FailRead);
    EXPECT_EQ(caption.data().toString(), "");
    SomeTagPropModel none(nullptr);
    EXPECT_EQ(none.index(0, 1, none.index(0, 0)).data().toString(), "");
}
