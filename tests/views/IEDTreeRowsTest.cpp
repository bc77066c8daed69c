// Rows of a long folder stay right out of order, across a removal and a new tree.
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

    model.index(4, 0, folder);
    model.beginRemoveRows(folder, 2, 2);
    myNode* c = folderNode->GetChildById(2);
    c->DeleteNode();
    delete c;
    model.endRemoveRows();
    EXPECT_EQ(model.rowCount(folder), 4);
    EXPECT_EQ(Text(model.index(3, 0, folder)), "E");

    // A new tree: nothing of the old rows is remembered.
    model.setRootNode(Tree({"X", "Y"}));
    folder = Folder(model);
    EXPECT_EQ(model.rowCount(folder), 2);
    EXPECT_EQ(Text(model.index(1, 0, folder)), "Y");
    EXPECT_FALSE(model.index(4, 0, folder).isValid());
}
