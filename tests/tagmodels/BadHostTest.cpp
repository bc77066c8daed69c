// The tag model over a host that fails its calls: fall-back texts, no crash.
#include "TagTree.h"

#include <QTreeView>

namespace {

class BadHost : public TagModelTest {
protected:
    QModelIndexList find(void* ob) { return FindRows(model, ob); }
    // Shows the model in a view, opens every row and paints it.
    void show() {
        QTreeView view;
        view.setModel(&model);
        view.resize(300, 400);
        view.show();
        view.expandAll();
        view.grab();
    }
};

} // namespace

TEST_F(BadHost, FailingReadsGiveFallbackTexts) {
    p.host.failSlot(slotPropGet);
    EXPECT_EQ(model.index(0, 0).data(), QVariant("NO RESULT CAPTION"));
    EXPECT_EQ(model.index(2, 0).data(), QVariant("Unknow"));
    show();
    p.host.clearFaults();

    // Without kinds nothing has rows; rows still answer.
    p.host.failSlot(slotObType);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_TRUE(model.index(0, 0).isValid());
    show();
    p.host.clearFaults();

    // Without children every row is invalid.
    p.host.failSlot(slotObChild);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_FALSE(model.index(0, 0).isValid());
    EXPECT_TRUE(find(tree.t1).isEmpty());
    show();
}

TEST_F(BadHost, SearchEndsWhereParentsCantBePlaced) {
    // No parent can be placed: rows are top level, a search descends each folder once.
    p.host.failSlot(slotObChildList);
    const QModelIndex s1 = model.index(0, 0);
    const QModelIndex c1 = model.index(0, 0, model.index(0, 0, s1));
    ASSERT_EQ(RowObject(c1), tree.c1);
    EXPECT_FALSE(model.parent(c1).isValid());
    const QModelIndexList hits = find(tree.c1);
    ASSERT_EQ(hits.size(), 1);
    EXPECT_EQ(hits[0], c1);
    EXPECT_EQ(find(tree.b1).size(), 1);
    show();

    // Deleting by search still finds the row.
    model.DeleteTag(tree.b1);
    EXPECT_EQ(HostObject::fromHandle(tree.b1), nullptr);
}
