// The tag model over the stand-in host: rows, parents, texts, and the
// creation and deletion of tags through it.
#include "TagTree.h"
#include "model/DcDA.h"
#include "support/MyBuf.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace {

class TagModel : public TagModelTest {
protected:
    // The row reached by a path of row numbers from the top.
    QModelIndex at(std::initializer_list<int> path) {
        QModelIndex i;
        for (int row : path)
            i = model.index(row, 0, i);
        return i;
    }
    QModelIndexList find(void* ob) { return FindRows(model, ob); }
};

QStringList modelTestWarnings;

} // namespace

TEST_F(TagModel, RowsParentsAndTexts) {
    EXPECT_EQ(model.GlobLastRow(), 3);
    // Folders first, but only tags counted: the last rows of a folder with
    // subfolders stay out of view.
    const QStringList view = {"Ячейка 1", "Отсек", "c1_7", "a1_4", "Ячейка 2", "b1_6", "t1_1"};
    const struct {
        std::initializer_list<int> path;
        const HostObject* ob; // null: no valid row
        int rows;
        std::initializer_list<int> parent; // {-1}: none
        const char* text;
    } rows[] = {{{}, nullptr, 3, {-1}, nullptr},    {{0}, tree.s1, 2, {-1}, "Ячейка 1"},
                {{4}, tree.t3, 0, {-1}, "t3_3"},    {{5}, nullptr, -1, {-1}, nullptr},
                {{-1}, nullptr, -1, {-1}, nullptr}, {{0, 0}, tree.s11, 1, {0}, "Отсек"},
                {{0, 2}, tree.a2, 0, {0}, "a2_5"},  {{0, 0, 0}, tree.c1, 0, {0, 0}, "c1_7"}};
    for (const auto& r : rows) {
        const QModelIndex i = at(r.path);
        SCOPED_TRACE(r.text ? r.text : "-");
        EXPECT_EQ(i.isValid(), r.ob != nullptr);
        if (r.rows >= 0) {
            EXPECT_EQ(model.rowCount(i), r.rows);
        }
        if (!r.ob)
            continue;
        EXPECT_EQ(RowObject(i), r.ob);
        EXPECT_EQ(model.parent(i), *r.parent.begin() < 0 ? QModelIndex() : at(r.parent));
        EXPECT_EQ(i.data(), QVariant(r.text));
        EXPECT_EQ(i.data(Qt::UserRole).value<void*>(), static_cast<const void*>(r.ob));
        EXPECT_FALSE(i.data(Qt::EditRole).isValid());
        if (view.contains(r.text)) {
            EXPECT_EQ(find(const_cast<HostObject*>(r.ob)), QModelIndexList{i});
        }
    }
    // A search walks the rows a view shows, in the same order.
    QStringList walked;
    for (const QModelIndex& i : model.match(model.index(0, 0), Qt::DisplayRole, "", -1,
                                            Qt::MatchContains | Qt::MatchRecursive | Qt::MatchWrap))
        walked << i.data().toString();
    EXPECT_EQ(walked, view);
    EXPECT_EQ(model.headerData(0, Qt::Horizontal), QVariant("Теги устройства"));
    EXPECT_FALSE(model.headerData(1, Qt::Horizontal).isValid());

    // The tester checks index, parent and counts of every row against each other.
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            modelTestWarnings << text;
        });
    QAbstractItemModelTester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    qInstallMessageHandler(previous);
    EXPECT_TRUE(modelTestWarnings.isEmpty()) << qPrintable(modelTestWarnings.join('\n'));

    // Captions: empty, or of a type that isn't text.
    tree.s2->set("caption", QString());
    EXPECT_EQ(at({1}).data(), QVariant("Empty Caption"));
    tree.s11->addParam(Param("caption", cptInt, 12));
    EXPECT_EQ(at({0, 0}).data(), QVariant("Unk Type Caption"));

    // With the unit as root, its base folder comes before its own tags.
    HostObject* loose = p.host.create(p.unit2, cotSource);
    model.setRootNode(p.unit2);
    EXPECT_EQ(RowObject(at({0})), tree.base);
    EXPECT_EQ(RowObject(at({1})), loose);
    EXPECT_EQ(model.nodeFromIndex(QModelIndex()), p.unit2);
    EXPECT_FALSE(model.data(QModelIndex()).isValid());
}

TEST_F(TagModel, CreateTagMakesAKeyedTagAndAnnouncesItsRow) {
    QSignalSpy before(&model, SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)));
    QSignalSpy after(&model, SIGNAL(rowsInserted(QModelIndex, int, int)));
    DcDA var;
    var.Value->bType = 8; // the host's type 3
    DcICCPBase structure; // no "DcDA": type 0
    const struct {
        DcICCPBase* var;
        HostObject* folder;
        const char* key;
        std::initializer_list<int> parent;
        int row, type, number;
    } made[] = {{&var, tree.base, "ICC_1/Var_3", {}, 3, 3, 8},
                {&structure, tree.s1, "ICC_1/S$V", {0}, 2, 0, 9}};
    for (const auto& m : made) {
        HostObject* tag = HostObject::fromHandle(
            model.CreateTag(m.var, m.folder, cotSource, m.key, at(m.parent), m.row));
        ASSERT_NE(tag, nullptr) << m.key;
        EXPECT_EQ(tag->owner(), m.folder);
        EXPECT_EQ(tag->moduleKey(), "IecArven");
        EXPECT_EQ(tag->get("tag_id").toByteArray(), m.key);
        EXPECT_EQ(tag->get("tag_type").toInt(), m.type);
        EXPECT_EQ(tag->get("number").toInt(), m.number);
        EXPECT_EQ(after.last()[0].value<QModelIndex>(), at(m.parent));
        EXPECT_EQ(after.last()[1].toInt(), m.row);
    }
    EXPECT_EQ(after.size(), 2);
    EXPECT_EQ(model.rowCount(), 4);

    // The host refuses: null, nothing made, the announcement closed.
    const int children = tree.base->children().size();
    EXPECT_EQ(model.CreateTag(&var, tree.t1, cotSource, "k", QModelIndex(), 0), nullptr);
    p.host.failSlot(slotObCreate);
    EXPECT_EQ(model.CreateTag(&var, tree.base, cotSource, "k", QModelIndex(), 0), nullptr);
    EXPECT_EQ(tree.base->children().size(), children);
    EXPECT_EQ(before.size(), after.size());
}

TEST_F(TagModel, DeleteTagAndDeleteNode) {
    // Each removal as the row path of its parent when it was told, and its first row.
    QList<std::pair<QList<int>, int>> removed;
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved,
                     [&](const QModelIndex& parent, int first, int) {
                         QList<int> path;
                         for (QModelIndex i = parent; i.isValid(); i = i.parent())
                             path.prepend(i.row());
                         removed.append({path, first});
                     });
    QSignalSpy changed(&model, SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>)));
    QSignalSpy reset(&model, SIGNAL(modelReset()));
    // DeleteTag finds the row, removed under the parent of the parent.
    model.DeleteTag(tree.t1);
    EXPECT_EQ(changed.size(), 1);
    model.DeleteTag(tree.c1);
    // DeleteNode removes the given row around the host's delete; a folder
    // goes with what it holds; no row: deleted, and the views start again.
    model.DeleteNode(at({0, 1}), tree.a1);
    model.DeleteNode(at({1}), tree.s2);
    model.DeleteNode(QModelIndex(), tree.t2);
    const QList<std::pair<QList<int>, int>> rows = {{{}, 2}, {{0}, 0}, {{0}, 1}, {{}, 1}};
    EXPECT_EQ(removed, rows);
    for (HostObject* gone : {tree.t1, tree.c1, tree.a1, tree.s2, tree.b1, tree.t2})
        EXPECT_EQ(HostObject::fromHandle(gone), nullptr);
    EXPECT_EQ(reset.size(), 1);

    // Not among the shown rows, or no object: nothing happens.
    model.DeleteTag(tree.t3); // past the row count of the base
    model.DeleteTag(p.tagReal);
    model.DeleteTag(nullptr);
    model.DeleteNode(at({0}), nullptr);
    EXPECT_NE(HostObject::fromHandle(tree.t3), nullptr);
    EXPECT_NE(HostObject::fromHandle(p.tagReal), nullptr);
    EXPECT_EQ(removed.size(), 4);
    EXPECT_EQ(reset.size(), 1);
}
