// The limits reaching the open form; the twin row of a tag.
#include "common/FormFixture.h"
#include "common/ItemTexts.h"
#include "common/ModelLookup.h"

#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"
#include "support/myNode.h"
#include "tags/Limits.h"
#include "views/SomeModelsIED.h"

#include <memory>

using Limits = FormTest;

TEST_F(Limits, MaxICCOnlyGrowsMaxDSTakesAnyValue) {
    OpenForm(p.unit2, [this](CfgArvenSR* f) {
        EXPECT_TRUE(f->ChangemaxICC(3, 2));
        EXPECT_EQ(ICCdata.maxICC, 3);
        ASSERT_EQ(pVCC->ICCs.Count, 3);
        EXPECT_EQ(pVCC->ICCs.Strings(2), "ICC_3");
        const QModelIndex folder = f->pTreeIedModel->index(2, 0, f->pTreeIedModel->index(0, 0));
        EXPECT_EQ(f->pTreeIedModel->rowCount(folder), 3);
        EXPECT_EQ(boxes.count(), 0);

        EXPECT_FALSE(f->ChangemaxICC(2, 3));
        EXPECT_FALSE(f->ChangemaxICC(1, 0));
        EXPECT_EQ(ICCdata.maxICC, 3);
        const QString refused = "информация|Следует операцию выполить на основной форме";
        EXPECT_EQ(BoxTexts(), QStringList({refused, refused}));

        EXPECT_TRUE(f->ChangemaxDS(3, 1));
        EXPECT_EQ(ICCdata.maxDS, 3);
        const QModelIndex vccSets = f->pTreeIedModel->index(0, 0, f->pTreeIedModel->index(0, 0));
        EXPECT_EQ(ChildTexts(*f->pTreeIedModel, vccSets),
                  QStringList({"DataSet_1", "DataSet_2", "DataSet_3"}));
        EXPECT_EQ(ICC(1)->DataSets.Count, 3);
        EXPECT_EQ(ICC(1)->TransSets.Count, 3);
        EXPECT_TRUE(f->ChangemaxDS(1, 3));
        EXPECT_EQ(ICCdata.maxDS, 1);
        EXPECT_EQ(pVCC->DataSets.Count, 3);
    });
}

TEST_F(Limits, PropertyRoute) {
    OpenForm(p.unit2, [this](CfgArvenSR* f) {
        // Unparsable, or equal to what the form holds: nothing at all.
        f->UpdLimitProp(p.unit2, "maxICC", "x", "1");
        f->UpdLimitProp(p.unit2, "maxICC", "1", "5");
        EXPECT_EQ(boxes.count(), 0);
        // A refused value goes back to the unit as an int.
        p.unit2->set("maxICC", 0);
        f->UpdLimitProp(p.unit2, "maxICC", "0", "1");
        EXPECT_EQ(boxes.count(), 1);
        EXPECT_EQ(p.unit2->get("maxICC"), QVariant(1));
        f->UpdLimitProp(p.unit2, "maxICC", "2", "1");
        EXPECT_EQ(pVCC->ICCs.Count, 2);
        f->UpdLimitProp(p.unit2, "tag_name", "2", "1");
        EXPECT_EQ(pVCC->ICCs.Count, 2);
    });
}

TEST_F(Limits, TwinRowValueNeedsAnIntSBO) {
    // Read straight from the host, without opening the form first.
    pGlobcfgInterface = static_cast<TCfgSlotFn*>(p.table());
    p.tagReal->set("presentSBO", 1);
    std::unique_ptr<myNodeValue> twin(NewNode4SBO(p.tagReal, "Freq_1"));
    ASSERT_NE(twin, nullptr);
    EXPECT_EQ(twin->name, "Freq_1_SBO");
    EXPECT_EQ(twin->object, p.tagReal);
    p.tagReal->set("presentSBO", 0);
    EXPECT_EQ(NewNode4SBO(p.tagReal, "Freq_1"), nullptr);
    EXPECT_EQ(NewNode4SBO(p.tagState, "Q1_1"), nullptr);
}
