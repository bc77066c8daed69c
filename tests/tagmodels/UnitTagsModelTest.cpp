// The tag model over the stand-in host: rows, parents, texts, and the
// creation and deletion of tags through it.
#include "views/UnitTagsModel.h"

#include "TagTree.h"
#include "model/DcDA.h"
#include "plugin/cfgCalls.h"
#include "support/MyBuf.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

class TagModel : public TagModelTest {
protected:
    // The rows a view shows, depth first, as their texts.
    QStringList shown(const QModelIndex& parent = QModelIndex()) {
        QStringList texts;
        for (int r = 0; r < model.rowCount(parent); ++r) {
            const QModelIndex i = model.index(r, 0, parent);
            texts << i.data().toString();
            texts << shown(i);
        }
        return texts;
    }
};

int hostCalls = 0;

// Complaints of the model tester.
QStringList modelTestWarnings;
void CollectModelTestWarnings(QtMsgType, const QMessageLogContext& context, const QString& text) {
    if (QByteArray(context.category) == "qt.modeltest")
        modelTestWarnings << text;
}

} // namespace

TEST_F(TagModel, FoldersFirstButOnlyTagsCounted) {
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.GlobLastRow(), 3);
    EXPECT_EQ(model.columnCount(), 1);
    const HostObject* rows[] = {tree.s1, tree.s2, tree.t1, tree.t2, tree.t3};
    for (int r = 0; r < 5; ++r) {
        const QModelIndex i = model.index(r, 0);
        ASSERT_TRUE(i.isValid()) << r;
        EXPECT_EQ(RowObject(i), rows[r]) << r;
    }
    EXPECT_FALSE(model.index(5, 0).isValid());
    EXPECT_FALSE(model.index(-1, 0).isValid());

    const QModelIndex s1 = model.index(0, 0);
    EXPECT_EQ(model.rowCount(s1), 2); // a1, a2; s11 is not counted
    EXPECT_EQ(RowObject(model.index(0, 0, s1)), tree.s11);
    EXPECT_EQ(RowObject(model.index(2, 0, s1)), tree.a2);
    EXPECT_EQ(model.rowCount(model.index(2, 0)), 0); // a tag

    // What a view shows: as many rows as tags, folders first, so the last
    // tags of a folder with subfolders stay out of view.
    EXPECT_EQ(shown(),
              QStringList({"Ячейка 1", "Отсек", "c1_7", "a1_4", "Ячейка 2", "b1_6", "t1_1"}));

    // With the unit as root, its base folder comes before its own tags.
    HostObject* loose = p.host.create(p.unit2, cotSource);
    model.setRootNode(p.unit2);
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(RowObject(model.index(0, 0)), tree.base);
    EXPECT_EQ(RowObject(model.index(1, 0)), loose);
    EXPECT_EQ(model.nodeFromIndex(QModelIndex()), p.unit2);
}

TEST_F(TagModel, ParentIsThePlaceAmongTheGrandparentsFolders) {
    // The tester walks every shown row and checks index, parent and counts
    // against each other.
    modelTestWarnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(CollectModelTestWarnings);
    {
        QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::Warning);
    }
    qInstallMessageHandler(previous);
    EXPECT_TRUE(modelTestWarnings.isEmpty()) << modelTestWarnings.join('\n').toStdString();
    const QModelIndex s1 = model.index(0, 0);
    EXPECT_FALSE(model.parent(s1).isValid());
    EXPECT_EQ(model.parent(model.index(1, 0, s1)), s1);
    const QModelIndex s11 = model.index(0, 0, s1);
    const QModelIndex c1 = model.index(0, 0, s11);
    EXPECT_EQ(RowObject(c1), tree.c1);
    EXPECT_EQ(model.parent(c1), s11);
    EXPECT_EQ(model.parent(s11), s1);

    // A search reaches every shown row, in the order of a plain walk.
    const QModelIndexList all = model.match(model.index(0, 0), Qt::DisplayRole, "", -1,
                                            Qt::MatchContains | Qt::MatchRecursive | Qt::MatchWrap);
    QStringList texts;
    for (const QModelIndex& i : all)
        texts << i.data().toString();
    EXPECT_EQ(texts, shown());
    const QModelIndexList hit =
        model.match(model.index(0, 0), Qt::UserRole, QVariant::fromValue<void*>(tree.c1), 1,
                    Qt::MatchRecursive | Qt::MatchWrap);
    ASSERT_EQ(hit.size(), 1);
    EXPECT_EQ(hit[0], c1);
}

TEST_F(TagModel, EveryModeWithItsOwnFolderKind) {
    TagTree trees[4] = {
        {p.host, p.unit, 0}, {p.host, p.unit, 1}, {p.host, p.unit, 2}, {p.host, p.unit, 3}};
    for (int mode = 0; mode < 4; ++mode) {
        SCOPED_TRACE(mode);
        model.mode = mode;
        model.setRootNode(trees[mode].base);
        EXPECT_EQ(model.rowCount(), 3);
        const QModelIndex s1 = model.index(0, 0);
        EXPECT_EQ(RowObject(s1), trees[mode].s1);
        EXPECT_EQ(RowObject(model.index(0, 0, model.index(0, 0, s1))), trees[mode].c1);
        // The unit's first folder of the mode is SmallProject's base folder.
        model.setRootNode(p.unit);
        EXPECT_EQ(RowObject(model.index(0, 0)), p.folder[mode]);
        EXPECT_EQ(RowObject(model.index(1, 0)), trees[mode].base);
    }
    // Another mode's tree shows nothing of this one.
    model.mode = 1;
    model.setRootNode(trees[0].base);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(model.index(0, 0).isValid());
}

TEST_F(TagModel, NoRootMeansNoRowsAndNoHostCall) {
    PatchedHost counting;
    counting.patch(
        slotObChildCount, +[](void* ob, int kind) {
            ++hostCalls;
            return PatchedHost::original<TcfgObChildCount>(slotObChildCount)(ob, kind);
        });
    model.setRootNode(nullptr);
    hostCalls = 0;
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.GlobLastRow(), 0);
    EXPECT_FALSE(model.index(0, 0).isValid());
    EXPECT_TRUE(model
                    .match(model.index(0, 0), Qt::UserRole, QVariant::fromValue<void*>(tree.t1), -1,
                           Qt::MatchRecursive | Qt::MatchWrap)
                    .isEmpty());
    EXPECT_EQ(hostCalls, 0);
    // With a root the same calls reach the host.
    model.setRootNode(tree.base);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_GT(hostCalls, 0);
}

TEST_F(TagModel, TextsAndFallbacks) {
    const QModelIndex s1 = model.index(0, 0);
    const QModelIndex t1 = model.index(2, 0);
    EXPECT_EQ(s1.data(), QVariant("Ячейка 1"));
    EXPECT_EQ(t1.data(), QVariant("t1_1"));
    EXPECT_EQ(t1.data(Qt::UserRole).value<void*>(), static_cast<void*>(tree.t1));
    EXPECT_FALSE(t1.data(Qt::EditRole).isValid());
    // The root itself has no texts.
    model.setRootNode(p.unit2);
    EXPECT_FALSE(model.data(QModelIndex()).isValid());
    EXPECT_TRUE(model.index(0, 0).data().isValid());
    model.setRootNode(tree.base);

    tree.s2->set("caption", QString());
    EXPECT_EQ(model.index(1, 0).data(), QVariant("Empty Caption"));
    HostParam number;
    number.name = "caption";
    number.type = cptInt;
    number.value = 12;
    tree.s11->addParam(number);
    EXPECT_EQ(model.index(0, 0, s1).data(), QVariant("Unk Type Caption"));

    EXPECT_EQ(model.headerData(0, Qt::Horizontal), QVariant("Теги устройства"));
    EXPECT_FALSE(model.headerData(1, Qt::Horizontal).isValid());
}

TEST_F(TagModel, CreateTagMakesAKeyedTagAndAnnouncesItsRow) {
    QSignalSpy before(&model, SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)));
    QSignalSpy after(&model, SIGNAL(rowsInserted(QModelIndex, int, int)));
    DcDA var;
    var.Value->bType = 8; // the host's type 3
    void* made = model.CreateTag(&var, tree.base, cotSource, "ICC_1/Var_3", QModelIndex(), 3);
    HostObject* tag = HostObject::fromHandle(made);
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(tag->owner(), tree.base);
    EXPECT_EQ(tag->moduleKey(), "IecArven");
    EXPECT_EQ(tag->get("tag_id").toByteArray(), "ICC_1/Var_3");
    EXPECT_EQ(tag->get("tag_type").toInt(), 3);
    EXPECT_EQ(tag->get("number").toInt(), 8);
    ASSERT_EQ(after.size(), 1);
    EXPECT_FALSE(after[0][0].value<QModelIndex>().isValid());
    EXPECT_EQ(after[0][1].toInt(), 3);
    EXPECT_EQ(model.rowCount(), 4);

    // Into a subfolder; a variable that is no "DcDA" gives type 0.
    DcICCPBase structure;
    const QModelIndex s1 = model.index(0, 0);
    tag = HostObject::fromHandle(
        model.CreateTag(&structure, tree.s1, cotSource, "ICC_1/S$V", s1, model.rowCount(s1)));
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(tag->owner(), tree.s1);
    EXPECT_EQ(tag->get("tag_type").toInt(), 0);
    EXPECT_EQ(after.last()[0].value<QModelIndex>(), s1);
    EXPECT_EQ(after.last()[1].toInt(), 2);

    // The host refuses: null, nothing made, the announcement closed.
    const int children = tree.base->children().size();
    EXPECT_EQ(model.CreateTag(&var, tree.t1, cotSource, "k", QModelIndex(), 0), nullptr);
    EXPECT_EQ(model.CreateTag(&var, tree.base, cotPass, "k", QModelIndex(), 0), nullptr);
    p.host.failSlot(slotObCreate);
    EXPECT_EQ(model.CreateTag(&var, tree.base, cotSource, "k", QModelIndex(), 0), nullptr);
    EXPECT_EQ(tree.base->children().size(), children);
    EXPECT_EQ(before.size(), after.size());
}

TEST_F(TagModel, DeleteTagFindsTheRowAndDeletesInTheHost) {
    QSignalSpy removed(&model, SIGNAL(rowsRemoved(QModelIndex, int, int)));
    QSignalSpy changed(&model, SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>)));
    model.DeleteTag(tree.t1);
    EXPECT_EQ(HostObject::fromHandle(tree.t1), nullptr);
    ASSERT_EQ(removed.size(), 1);
    EXPECT_FALSE(removed[0][0].value<QModelIndex>().isValid());
    EXPECT_EQ(removed[0][1].toInt(), 2);
    EXPECT_EQ(changed.size(), 1);

    // Rows are removed under the parent of the parent.
    const QModelIndex s1 = model.index(0, 0);
    model.DeleteTag(tree.c1);
    EXPECT_EQ(HostObject::fromHandle(tree.c1), nullptr);
    EXPECT_EQ(removed.last()[0].value<QModelIndex>(), s1);
    EXPECT_EQ(removed.last()[1].toInt(), 0);

    // Not among the shown rows: nothing happens.
    removed.clear();
    model.DeleteTag(tree.t3); // past the row count of the base
    model.DeleteTag(p.tagReal);
    model.DeleteTag(nullptr);
    EXPECT_NE(HostObject::fromHandle(tree.t3), nullptr);
    EXPECT_NE(HostObject::fromHandle(p.tagReal), nullptr);
    EXPECT_TRUE(removed.isEmpty());
}

TEST_F(TagModel, DeleteNodeRemovesTheRowAroundTheHostDelete) {
    QSignalSpy before(&model, SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int)));
    QSignalSpy reset(&model, SIGNAL(modelReset()));
    const QModelIndex s1 = model.index(0, 0);
    model.DeleteNode(model.index(1, 0, s1), tree.a1);
    EXPECT_EQ(HostObject::fromHandle(tree.a1), nullptr);
    ASSERT_EQ(before.size(), 1);
    EXPECT_EQ(before[0][0].value<QModelIndex>(), s1);
    EXPECT_EQ(before[0][1].toInt(), 1);

    // A folder goes with what it holds.
    model.DeleteNode(model.index(1, 0), tree.s2);
    EXPECT_EQ(HostObject::fromHandle(tree.b1), nullptr);
    EXPECT_EQ(tree.base->children(cotFolderSource).size(), 1);

    // No object: nothing; no row: deleted, and the views start again.
    model.DeleteNode(model.index(2, 0), nullptr);
    EXPECT_EQ(before.size(), 2);
    model.DeleteNode(QModelIndex(), tree.t3);
    EXPECT_EQ(HostObject::fromHandle(tree.t3), nullptr);
    EXPECT_EQ(reset.size(), 1);
    EXPECT_EQ(before.size(), 2);
}
