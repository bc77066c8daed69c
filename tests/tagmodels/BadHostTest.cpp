// The tag model over a host that fails its calls or answers with the wrong
// objects: fall-back texts, empty rows, searches that end, no crash.
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

// The tree that the patched slots answer with.
const TagTree* wrong = nullptr;

} // namespace

TEST_F(BadHost, FailingReadsGiveFallbackTexts) {
    p.host.failSlot(slotPropGet);
    EXPECT_EQ(model.index(0, 0).data(), QVariant("NO RESULT CAPTION"));
    EXPECT_EQ(model.index(2, 0).data(), QVariant("Unknow"));
    show();
    p.host.clearFaults();

    p.host.failSlot(slotObClassText);
    EXPECT_EQ(model.index(2, 0).data(), QVariant("NULLPTR"));
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

TEST_F(BadHost, ChildrenOfTheWrongKindOrLoopingBack) {
    // Children that are folders, s1 itself or the base; lists with a tag first and a null.
    PatchedHost patched;
    wrong = &tree;
    patched.patch(
        slotObChild, +[](void* ob, int kind, int i) -> void* {
            if (ob == wrong->base && kind == cotSource && i == 0)
                return wrong->s2;
            if (ob == wrong->s1 && kind == cotFolderSource && i == 0)
                return wrong->s1;
            if (ob == wrong->s2 && kind == cotSource && i == 0)
                return wrong->base;
            return HostSlot<TcfgObChild>(slotObChild)(ob, kind, i);
        });
    patched.patch(
        slotObChildList, +[](void* ob, int kind, void** list, int capacity) {
            const int stored = HostSlot<TcfgObChildList>(slotObChildList)(ob, kind, list, capacity);
            if (stored > 1)
                list[1] = nullptr;
            if (stored > 0)
                list[0] = wrong->t2;
            return stored;
        });
    const QModelIndex s1 = model.index(0, 0);
    const QModelIndex s2 = model.index(1, 0);
    EXPECT_EQ(RowObject(model.index(2, 0)), tree.s2);
    EXPECT_EQ(model.index(2, 0).data(), QVariant("Ячейка 2"));
    // Rows that would lead back up are left out.
    EXPECT_FALSE(model.index(0, 0, s1).isValid());
    EXPECT_EQ(RowObject(model.index(1, 0, s1)), tree.a1);
    EXPECT_FALSE(model.index(0, 0, s2).isValid());
    // s1 isn't in its owner's folder list any more.
    EXPECT_FALSE(model.parent(model.index(1, 0, s1)).isValid());

    // s2 stands in two rows and is searched once; b1 lay behind a row left out.
    EXPECT_EQ(find(tree.a1).size(), 1);
    EXPECT_EQ(find(tree.s2).size(), 2);
    EXPECT_TRUE(find(tree.b1).isEmpty());
    show();
}

TEST_F(BadHost, CountsThatDontMatchTheLists) {
    PatchedHost patched;
    patched.patch(
        slotObChildCount, +[](void* ob, int kind) {
            const int count = HostSlot<TcfgObChildCount>(slotObChildCount)(ob, kind);
            return kind == cotSource ? count + 5 : -count;
        });
    // Folders counted negative are none; five tags too many give no rows.
    EXPECT_EQ(model.rowCount(), 8);
    EXPECT_EQ(RowObject(model.index(0, 0)), tree.t1);
    EXPECT_FALSE(model.index(3, 0).isValid());
    EXPECT_FALSE(model.parent(model.index(0, 0)).isValid());
    EXPECT_EQ(find(tree.t3).size(), 1);
    show();
}
