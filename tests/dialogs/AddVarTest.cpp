// The add-variable dialog over the template's types.
#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "common/ItemTexts.h"
#include "common/MessageBoxRecorder.h"
#include "common/TestApp.h"
#include "dialogs/AddVar.h"
#include "views/PropModel.h"
#include "xml/ModelRoad.h"

namespace {

class AddVarTest : public ::testing::Test {
protected:
    void SetUp() override {
        PrepareModelTables();
        myNode* tree = nullptr;
        ASSERT_TRUE(ReadModelText(ReadWholeFile(":/Templ"), &tree));
        tree->DeleteSubTree();
        Fill(pDcDTTP);
    }
    void TearDown() override {
        myNode* none = nullptr;
        ClearModel(none);
    }
    // The type list refilled with the model off its view, as the form does.
    void Fill(DcDTTP* dttp) {
        dlg.ui.listVAD->setModel(nullptr);
        dlg.pListTypes->FillTypes(dttp);
        dlg.ui.listVAD->setModel(dlg.pListTypes);
    }
    void ClickType(const QString& type) {
        const QModelIndexList hit = dlg.pListTypes->match(
            dlg.pListTypes->index(0, 0), Qt::DisplayRole, type, 1, Qt::MatchExactly);
        ASSERT_EQ(hit.size(), 1) << type.toStdString();
        dlg.OnlistVADcliked(hit[0]);
    }

    QApplication* app = EnsureApp(); // before the dialog
    GetVarFrm dlg{nullptr};
};

} // namespace

TEST_F(AddVarTest, TypeListAndItsSecondPart) {
    ListTypesModel& list = *dlg.pListTypes;
    EXPECT_EQ(ChildTexts(list), (QStringList{"Data_DiscreteQTimeTag", "Data_RealQTimeTag"}));
    EXPECT_EQ(list.index(1, 0).data(Qt::UserRole).value<void*>(),
              pDcDTTP->FindType("Data_RealQTimeTag"));
    EXPECT_EQ(int(list.flags(list.index(0, 0))), 51);

    dlg.ui.tBut->click();
    EXPECT_EQ(dlg.ui.tBut->text(), "Свернуть");
    const QStringList all = ChildTexts(list);
    ASSERT_EQ(all.size(), 40); // three types of the text stand in a comment
    EXPECT_EQ(all[4], "Data_Real");
    EXPECT_EQ(all.last(), "TASE2Version");

    // A refill keeps the button's state; the next click takes nothing away.
    Fill(pDcDTTP);
    EXPECT_EQ(dlg.ui.tBut->text(), "Свернуть");
    dlg.ui.tBut->click();
    EXPECT_EQ(dlg.ui.tBut->text(), "Еще");
    EXPECT_EQ(list.rowCount(), 2);
}

TEST_F(AddVarTest, ClickedTypeShowsItsStructureOrComment) {
    // The members of a type read before their own types were dropped.
    ClickType("Data_RealQTimeTag");
    EXPECT_EQ(dlg.ui.lEName->text(), "RealQT");
    ASSERT_EQ(dlg.ui.tVStruct->model(), dlg.pModel4Add);
    EXPECT_EQ(dlg.pModel4Add->rowCount(), 0);

    dlg.ui.tBut->click();
    ClickType("Data_State_SupplementalQTimeTagExtended");
    EXPECT_EQ(dlg.ui.lEName->text(), "Data_State_SuppQTTagEx");
    const QAbstractItemModel* tree = dlg.ui.tVStruct->model();
    ASSERT_EQ(tree, dlg.pModel4Add);
    EXPECT_EQ(ChildTexts(*tree), (QStringList{"Value", "TimeStamp", "Flags"}));
    EXPECT_EQ(tree->index(0, 1).data().toString(), "Data_StateSupplemental");
    EXPECT_EQ(tree->index(1, 1).data().toString(), "Data_TimeStampExtended");
    EXPECT_EQ(ChildTexts(*tree, tree->index(1, 0)), (QStringList{"GMTBasedS", "Milliseconds"}));
    EXPECT_EQ(tree->index(1, 1, tree->index(1, 0)).data().toString(), "TimeIntervalL16");
    EXPECT_EQ(int(tree->flags(tree->index(0, 1))), 33);
    EXPECT_FALSE(dlg.pModel4Add->setData(tree->index(0, 1), "1"));

    ClickType("Data_Real");
    ASSERT_EQ(dlg.ui.lW->count(), 1);
    EXPECT_EQ(dlg.ui.lW->item(0)->text(), "floating-point: { format-width 32, exponent-width 8 }");
    EXPECT_EQ(dlg.ui.lEName->text(), "Real");

    GetDcDAType("INT16")->defname.clear();
    ClickType("INT16");
    EXPECT_EQ(dlg.ui.lEName->text(), "INT16_1");
    EXPECT_EQ(dlg.ui.lW->item(0)->text(), "");
}

TEST_F(AddVarTest, InputsAndWhatAcceptLeaves) {
    auto state = [](QLineEdit* edit, QString text) {
        int pos = 0;
        return edit->validator()->validate(text, pos);
    };
    EXPECT_EQ(state(dlg.ui.lEName, "a1"), QValidator::Acceptable);
    EXPECT_EQ(state(dlg.ui.lEName, "1a"), QValidator::Invalid);

    QTest::keyClicks(dlg.ui.lEName, "1a");
    EXPECT_EQ(dlg.ui.lEName->text(), "a");
    dlg.ui.buttonBox->button(QDialogButtonBox::Ok)->click();
    EXPECT_EQ(dlg.result(), QDialog::Accepted);
    EXPECT_EQ(dlg.ui.lEName->text(), "a"); // Ok doesn't ask the validator
}

TEST_F(AddVarTest, PlacesAndTheNextNumber) {
    dlg.FillWhere(pVCC);
    ASSERT_EQ(dlg.ui.lW->count(), 2);
    QListWidgetItem* icc = dlg.ui.lW->item(1);
    EXPECT_EQ(icc->text(), "ICC_1");
    EXPECT_EQ(int(icc->flags()), 35);
    DcLD* ld = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, 0));

    MessageBoxRecorder boxes;
    dlg.onlWClicked(icc);
    ASSERT_EQ(boxes.count(), 1);
    EXPECT_EQ(boxes.boxes()[0].text, "Заполните базовое имя");

    dlg.ui.lEName->setText("Var_");
    dlg.onlWClicked(icc);
    EXPECT_EQ(dlg.ui.lEStart->text(), "2");
    for (const char* name : {"Var_3", "xVar_12", "Var_", "Other_40", "Var_-9"})
        ld->Vars.AddObject(name, nullptr);
    dlg.onlWClicked(icc);
    EXPECT_EQ(dlg.ui.lEStart->text(), "13");
    dlg.onlWClicked(nullptr);
    EXPECT_EQ(dlg.pNames, nullptr);
    EXPECT_EQ(boxes.count(), 1);
    ld->Vars.Clear();
}

TEST_F(AddVarTest, TemplatesWithoutThePrimaryTypesAndTheObjectTree) {
    DcDTTP few;
    auto* bool_ = new DcDAType(&few);
    bool_->type = "BOOL";
    few.Types.AddObject("BOOL", bool_);
    Fill(&few);
    dlg.ui.tBut->click(); // no first row: nothing is shown
    EXPECT_EQ(dlg.pListTypes->rowCount(), 0);
    Fill(nullptr);

    Tase2VarModel& tree = dlg.VarModel;
    tree.setRootNode(pDcDTTP);
    EXPECT_EQ(tree.rowCount(), 40);
    EXPECT_EQ(tree.index(4, 0).data().toString(), "Data_Real");
    tree.setRootNode(pDcDTTP->FindType("Data_State_SupplementalQTimeTagExtended"));
    // A DcDA member shows its name, a DcDO member no text.
    EXPECT_EQ(ChildTexts(tree), (QStringList{"Value", "", "Flags"}));
    EXPECT_EQ(tree.parent(tree.index(0, 0)), QModelIndex());
}
