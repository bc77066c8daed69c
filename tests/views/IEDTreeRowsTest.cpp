// The IED tree model reaching rows of a long folder: every row, in order and
// out of order, stays right across announced insertions, removals and a new
// tree.
#include <gtest/gtest.h>

#include "support/myNode.h"
#include "views/SomeModelsIED.h"

namespace {

// A VCC row holding one folder of the named rows.
myNode* Tree(const std::vector<std::string>& names) {
    auto vcc = new myNode("VCC", nullptr);
    myNode* folder = vcc->AddChild("Переменные", nullptr);
    for (const std::string& name : names)
        folder->AddChild(name, nullptr);
    return vcc;
}

QModelIndex Folder(IEDTreeModel& model) {
    return model.index(0, 0, model.index(0, 0));
}

std::string Text(const QModelIndex& index) {
    return index.data().toString().toStdString();
}

} // namespace

TEST(IEDTreeRows, RowsStayRightAcrossAnnouncedChanges) {
    IEDTreeModel model(nullptr);
    model.setRootNode(Tree({"A", "B", "C", "D", "E"}));
    QModelIndex folder = Folder(model);
    myNode* folderNode = model.nodeFromIndex(folder);

    // Forward, then back, with a parent asked for between rows.
    for (int r : {0, 1, 2, 4, 3, 1, 4}) {
        const QModelIndex row = model.index(r, 1, folder);
        EXPECT_EQ(Text(row.siblingAtColumn(0)), std::string(1, char('A' + r)));
        EXPECT_EQ(model.parent(row), folder);
    }
    EXPECT_FALSE(model.index(5, 0, folder).isValid());
    EXPECT_FALSE(model.index(-1, 0, folder).isValid());
    EXPECT_EQ(model.rowCount(folder), 5);

    // C goes, as the editing code removes a row.
    model.index(4, 0, folder);
    model.beginRemoveRows(folder, 2, 2);
    myNode* c = folderNode->GetChildById(2);
    c->DeleteNode();
    delete c;
    model.endRemoveRows();
    EXPECT_EQ(model.rowCount(folder), 4);
    EXPECT_EQ(Text(model.index(2, 0, folder)), "D");
    EXPECT_EQ(Text(model.index(3, 0, folder)), "E");

    // A new first row, then a member under E whose parent row is asked for.
    model.beginInsertRows(folder, 0, 0);
    folderNode->AddChildAsFirst(new myNode("N", nullptr));
    model.endInsertRows();
    const QModelIndex e = model.index(4, 0, folder);
    EXPECT_EQ(Text(e), "E");
    EXPECT_EQ(Text(model.index(0, 0, folder)), "N");
    model.beginInsertRows(e, 0, 0);
    model.nodeFromIndex(e)->AddChild("Member", nullptr);
    model.endInsertRows();
    const QModelIndex member = model.index(0, 0, e);
    EXPECT_EQ(Text(member), "Member");
    EXPECT_EQ(model.parent(member).row(), 4);
    EXPECT_EQ(model.rowCount(folder), 5);
    EXPECT_EQ(model.rowCount(e), 1);

    // A new tree: nothing of the old rows is remembered.
    model.setRootNode(Tree({"X", "Y"}));
    folder = Folder(model);
    EXPECT_EQ(model.rowCount(folder), 2);
    EXPECT_EQ(Text(model.index(1, 0, folder)), "Y");
    EXPECT_FALSE(model.index(4, 0, folder).isValid());
}
