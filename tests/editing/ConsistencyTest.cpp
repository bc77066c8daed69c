// The model grown to the limits and the guarded additions.
#include "common/FormFixture.h"
#include "common/ItemTexts.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "views/SomeModelsIED.h"

namespace {

// The row of ICC number n under the ICC folder of the VCC.
QModelIndex ICCRow(const QAbstractItemModel* tree, int n) {
    return tree->index(n - 1, 0, tree->index(2, 0, tree->index(0, 0)));
}

} // namespace

using ConsistencyPass = FormTest;

TEST_F(ConsistencyPass, ThreeICCsOfTwoDataSets) {
    p.unit2->set("maxICC", 3);
    p.unit2->set("maxDS", 2);
    OpenForm(p.unit2, [](CfgArvenSR* f) {
        QAbstractItemModel* tree = f->tVIed->model();
        ASSERT_EQ(tree, f->pTreeIedModel);
        const QModelIndex icc1 = ICCRow(tree, 1);
        EXPECT_EQ(ChildTexts(*tree, tree->index(1, 0, icc1)), QStringList({"TrSet_1", "TrSet_2"}));
        EXPECT_EQ(ChildTexts(*tree, tree->index(2, 0, icc1)),
                  QStringList({"DataSet_1", "DataSet_2"}));
        const QModelIndex icc3 = ICCRow(tree, 3);
        EXPECT_EQ(icc3.data().toString(), "ICC_3");
        EXPECT_EQ(ChildTexts(*tree, icc3), QStringList({"Next_DSTransfer_Set", "Transfer_Sets",
                                                        "Наборы данных (DataSet)", "Переменные"}));
        EXPECT_EQ(ChildTexts(*tree, tree->index(2, 0, icc3)),
                  QStringList({"DataSet_1", "DataSet_2"}));
        ASSERT_EQ(f->lWInfo->count(), 7);
        EXPECT_EQ(f->lWInfo->item(6)->text(), "ICC_3/DataSet_2");

        // A new name gets its row; a taken one or an ICC of the pass is refused.
        auto icc1Ob = static_cast<DcLD*>(pVCC->ICCs.Objects(0));
        EXPECT_EQ(f->CheckAndSetDataSet(icc1Ob, "Extra"), 0);
        EXPECT_EQ(tree->rowCount(tree->index(2, 0, icc1)), 3);
        EXPECT_EQ(f->lWInfo->item(7)->text(), "ICC_1/Extra");
        EXPECT_EQ(f->CheckAndSetDataSet(icc1Ob, "Extra"), -1);
        EXPECT_EQ(f->CheckAndSetDataSet(pVCC->ICCs.Objects(1), "Extra"), -2);
        EXPECT_EQ(static_cast<DcLD*>(pVCC->ICCs.Objects(1))->DataSets.Count, 3);
        EXPECT_EQ(f->CheckAndSetDataSet(icc1Ob->DataSets.Objects(0), "X"), 0);
        EXPECT_EQ(f->CheckAndSetTrans(pVCC, "TrSet_9"), -2);
        EXPECT_EQ(f->CheckAndSetTrans(icc1Ob, "TrSet_1"), -1);
        EXPECT_EQ(f->CheckAndSetTrans(icc1Ob, "TrSet_9"), 0);
        EXPECT_EQ(ChildTexts(*tree, tree->index(1, 0, icc1)).last(), "TrSet_9");
        EXPECT_EQ(f->CheckAndSetNextTrans(pVCC), -2);
        EXPECT_EQ(f->CheckAndSetNextTrans(icc1Ob), 0);
        EXPECT_EQ(icc1Ob->NextSets.Count, 1);
        // The additions leave the lists so that the text is the golden one.
        auto icc2Ob = static_cast<DcLD*>(pVCC->ICCs.Objects(1));
        icc1Ob->DataSets.Delete(icc1Ob->DataSets.IndexOf("Extra"));
        icc2Ob->DataSets.Delete(icc2Ob->DataSets.IndexOf("Extra"));
        icc1Ob->TransSets.Delete(icc1Ob->TransSets.IndexOf("TrSet_9"));
    });
    EXPECT_EQ(Datarun(p.unit2).toStdString(), Golden("datarun_icc3_ds2.txt"));
}
