// The member tree of an object in tVprop and its line editor.
#include <QLineEdit>
#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <memory>

#include "ViewsFixture.h"
#include "support/MyBuf.h"
#include "views/PropDelegates.h"
#include "views/PropModel.h"

namespace {

const Qt::ItemFlags kBase = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
const Qt::ItemFlags kEdit = kBase | Qt::ItemIsEditable | Qt::ItemIsUserCheckable;

class PropModelTest : public TemplTreeTest {
protected:
    // The object over its members, as the value pane gets them; bits as rows.
    void Show(DcICCPBase* object, StringList& members, int bitsOfFlags = 0) {
        myNode* root = new myNode(object->name, object);
        AddVarNodes(members, root, true);
        for (myNode* row = root->FirstChild; row; row = row->Next)
            for (myNode* member = row->FirstChild; member; member = member->Next)
                for (int k = 0; member->name == "Flags" && k < bitsOfFlags; ++k)
                    member->AddChild("h" + std::to_string(k), nullptr);
        myNode* old = prop.rootNode;
        prop.setRootNode(root);
        if (old)
            old->DeleteSubTree();
    }
    QModelIndex At(const QStringList& path, int column = 0) const {
        return FindRow(prop, path, column);
    }
    DcTransSet* TransferSet() const { return qobject_cast<DcTransSet*>(ListOb(icc->TransSets, 0)); }

    PropICCPModel prop;
};

} // namespace

TEST_F(PropModelTest, RowsValuesAndEditableCells) {
    ListOb(realQ->Members, 0)->desc = "Измерение";
    Show(icc, icc->Vars, 2);
    EXPECT_EQ(ChildTexts(prop, QModelIndex()), (QStringList{"RealQ_1", "Bool_1", "Count_1"}));
    EXPECT_EQ(ChildTexts(prop, At({"RealQ_1", "Flags"})), (QStringList{"h0", "h1"}));
    EXPECT_EQ(prop.parent(At({"RealQ_1", "Flags", "h1"}, 1)), At({"RealQ_1", "Flags"}));

    // The members' prototypes in the template hold the value 0.
    EXPECT_EQ(At({"RealQ_1", "Value"}, 1).data().toString(), "0.000000");
    EXPECT_EQ(At({"RealQ_1", "Flags"}, 1).data().toString(), "00000000");
    EXPECT_EQ(At({"RealQ_1", "Value"}).data(Qt::ToolTipRole).toString(), "Измерение");
    EXPECT_TRUE(SameImage(At({"RealQ_1"}).data(Qt::DecorationRole), ":/DO_10"));
    EXPECT_FALSE(At({"RealQ_1", "Flags", "h0"}).data(Qt::DecorationRole).isValid());
    EXPECT_FALSE(At({"RealQ_1", "Flags", "h0"}, 1).data().isValid());

    // Names of the ICC's own variables; values but of bit strings.
    const std::pair<QModelIndex, Qt::ItemFlags> cells[] = {
        {At({"RealQ_1"}), kEdit},
        {At({"RealQ_1"}, 1), kBase},
        {At({"RealQ_1", "Value"}), kBase},
        {At({"RealQ_1", "Value"}, 1), kEdit},
        {At({"RealQ_1", "Flags"}, 1), kBase},
        {At({"RealQ_1", "Flags", "h1"}, 1), kEdit}};
    for (const auto& cell : cells)
        EXPECT_EQ(prop.flags(cell.first), cell.second)
            << cell.first.data().toString().toStdString();

    // A data set row is neither editable nor pictured.
    StringList sets;
    sets.AddObject("DataSet_1", ListOb(icc->DataSets, 0), true);
    Show(icc, sets);
    EXPECT_EQ(prop.flags(At({"DataSet_1"})), kBase);
    EXPECT_FALSE(At({"DataSet_1"}).data(Qt::DecorationRole).isValid());
}

TEST_F(PropModelTest, ValuesAreEditedInPlace) {
    Show(icc, icc->Vars);
    EXPECT_TRUE(prop.setData(At({"Count_1"}, 1), "42"));
    EXPECT_EQ(count->svalue, "42");
    EXPECT_TRUE(prop.setData(At({"RealQ_1", "Value"}, 1), QVariant(12.5)));
    EXPECT_EQ(At({"RealQ_1", "Value"}, 1).data().toString(), "12.500000");
    // The name column and other roles change nothing; structures refuse.
    EXPECT_TRUE(prop.setData(At({"Count_1"}), "43"));
    EXPECT_EQ(count->svalue, "42");
    EXPECT_FALSE(prop.setData(At({"RealQ_1"}, 1), "1"));
    EXPECT_FALSE(prop.setData(At({"RealQ_1"}, 1), 2, Qt::CheckStateRole));

    // A boolean is a check box; the value column stores the text too.
    QSignalSpy changed(&prop, &QAbstractItemModel::dataChanged);
    const QModelIndex boolValue = At({"Bool_1"}, 1);
    flag->Value->Buf[0] = 0;
    EXPECT_FALSE(boolValue.data().isValid());
    EXPECT_EQ(boolValue.data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    EXPECT_TRUE(prop.setData(boolValue, Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(flag->svalue, "true");
    EXPECT_EQ(boolValue.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    // dataChanged covers the row from column 0 to column 1.
    EXPECT_EQ(changed.value(0).mid(0, 2),
              (QVariantList{QVariant::fromValue(At({"Bool_1"})), QVariant::fromValue(boolValue)}));
    EXPECT_TRUE(prop.setData(boolValue, "нет", Qt::CheckStateRole));
    EXPECT_EQ(flag->svalue, "false");
    EXPECT_EQ(flag->Value->Buf[0], 0);
    EXPECT_TRUE(prop.setData(At({"Bool_1"}), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(flag->Value->Buf[0], 1);
    EXPECT_EQ(flag->svalue, "false");
    EXPECT_EQ(changed.count(), 3);
}

TEST_F(PropModelTest, TransferSetMembersAndTheirValues) {
    DcTransSet* ts = TransferSet();
    ASSERT_NE(ts, nullptr);
    Show(ts, ts->Members);
    EXPECT_EQ(At({"DSConditionsRequested"}, 1).data().toString().size(), 5);
    EXPECT_EQ(prop.flags(At({"DSConditionsRequested"}, 1)), kBase);
    EXPECT_EQ(prop.flags(At({"StartTime"}, 1)), kEdit);
    EXPECT_EQ(prop.flags(At({"StartTime"})), kBase);

    // A text too long for a VISIBLE_STRING32 leaves the stored one.
    const QModelIndex domain = At({"DataSetName", "DomainName"}, 1);
    EXPECT_TRUE(prop.setData(domain, "ICC_1"));
    EXPECT_TRUE(prop.setData(domain, QString(40, 'x')));
    EXPECT_EQ(domain.data().toString(), "ICC_1");
    EXPECT_EQ(static_cast<DcDA*>(ObjectOf(At({"DataSetName", "DomainName"})))->svalue, "ICC_1");
}

TEST_F(PropModelTest, LineEditorsOfBothViews) {
    Show(icc, icc->Vars, 2);
    PropDelegateDcDA values;
    QWidget host;
    QStyleOptionViewItem option;
    option.rect = QRect(3, 4, 120, 20);
    const QModelIndex countValue = At({"Count_1"}, 1);
    const int kept = count->Value->bType;
    QList<int> edited;
    for (int type = -1; type <= 14; ++type) {
        count->Value->bType = type;
        if (std::unique_ptr<QWidget>(values.createEditor(&host, option, countValue)))
            edited << type;
    }
    count->Value->bType = kept;
    EXPECT_EQ(edited, (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 10, 11}));
    for (const QModelIndex& cell : {At({"Bool_1"}, 1), At({"RealQ_1"}, 1)})
        EXPECT_EQ(std::unique_ptr<QWidget>(values.createEditor(&host, option, cell)), nullptr);

    std::unique_ptr<QWidget> editor(values.createEditor(&host, option, countValue));
    auto* line = qobject_cast<QLineEdit*>(editor.get());
    ASSERT_NE(line, nullptr);
    count->Value->SetFromstring("5");
    values.setEditorData(line, countValue);
    EXPECT_EQ(line->text(), "5");
    line->setText("17");
    values.setModelData(line, &prop, countValue);
    EXPECT_EQ(count->svalue, "17");

    // Descriptions in the tree: column 1 of variable rows only.
    PropDelegate4Desc descriptions;
    count->desc = "Счётчик";
    const QModelIndex countDesc = Row(kIccVars + QStringList{"Count_1"}, 1);
    EXPECT_EQ(std::unique_ptr<QWidget>(descriptions.createEditor(&host, option, Row(kIccVars))),
              nullptr);
    for (const QModelIndex& cell : {countDesc, Row(kIcc, 1)}) {
        editor.reset(descriptions.createEditor(&host, option, cell));
        line = qobject_cast<QLineEdit*>(editor.get());
        ASSERT_NE(line, nullptr);
        descriptions.setEditorData(line, cell);
        EXPECT_EQ(line->text(), cell == countDesc ? "Счётчик" : "");
    }
    descriptions.setModelData(line, model, countDesc);
    EXPECT_EQ(count->desc, "");
}
