// The whole road of a run: the entry, the form shown and closed, the model
// written into "$DATARUN"; and later calls that reuse the form.
#include "common/FormFixture.h"
#include "common/ItemTexts.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "support/myNode.h"
#include "views/PropModel.h"
#include "views/SomeModelsIED.h"

#include <QFile>
#include <QStatusBar>

using FormRoad = FormTest;

TEST_F(FormRoad, UnitWithoutTagsWritesTheTemplateModel) {
    const std::string expected = Golden("datarun_templ.txt");
    ASSERT_FALSE(expected.empty());
    // The second unit: no tags, limits 1 and 1, no row in the list of the first unit only.
    EXPECT_EQ(OpenForm(p.unit2,
                       [](CfgArvenSR* f) {
                           EXPECT_EQ(f->windowTitle(), "Конфигуратор ICCP (сервер)");
                           EXPECT_EQ(f->lW_ieds->count(), 1);
                           EXPECT_EQ(f->lW_ieds->currentItem(), nullptr);
                       }),
              FCfgArvenSR);
    ASSERT_NE(FCfgArvenSR, nullptr);
    EXPECT_TRUE(shown);
    EXPECT_EQ(FCfgArvenSR->CurUnit, p.unit2);
    EXPECT_EQ(Datarun(p.unit2).toStdString(), expected);
    EXPECT_TRUE(Datarun(p.unit).isEmpty());
    EXPECT_TRUE(QFile::exists(IniPath()));
    // The model outlives the close, detached from its view.
    EXPECT_NE(pVCC, nullptr);
    EXPECT_EQ(FCfgArvenSR->tVIed->model(), nullptr);
    EXPECT_FALSE(needemit);
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormRoad, TheViewsShowTheModel) {
    OpenForm(p.unit2, [](CfgArvenSR* f) {
        QAbstractItemModel* tree = f->tVIed->model();
        ASSERT_NE(tree, nullptr);
        const QModelIndex vcc = tree->index(0, 0);
        EXPECT_EQ(ChildTexts(*tree), QStringList("VCC_1"));
        EXPECT_FALSE(vcc.data(Qt::DecorationRole).value<QIcon>().isNull());
        // The data sets, the VCC's first; no set chosen, no members.
        ASSERT_EQ(f->lWInfo->count(), 2);
        EXPECT_EQ(ChildTexts(*f->lWInfo->model()), QStringList({"DataSet_1", "ICC_1/DataSet_1"}));
        EXPECT_EQ(f->lWInfo->item(0)->data(Qt::UserRole).value<void*>(), ListOb(pVCC->DataSets, 0));
        EXPECT_EQ(f->lWInfo_2->count(), 0);
    });
}

TEST_F(FormRoad, LaterCallsReuseTheForm) {
    OpenForm(p.unit2);
    CfgArvenSR* form = FCfgArvenSR;
    ASSERT_NE(form, nullptr);
    form->pPropIccp->setRootNode(new myNode("shown", nullptr));
    // The owner's first unit: the same form, the unit's row current.
    EXPECT_EQ(OpenForm(p.unit,
                       [&](CfgArvenSR* f) {
                           ASSERT_NE(f->lW_ieds->currentItem(), nullptr);
                           EXPECT_EQ(f->lW_ieds->currentItem()->text(), "Сервер 1 (№ 1)");
                           EXPECT_EQ(f->lW_ieds->currentItem()->data(Qt::UserRole).value<void*>(),
                                     p.unit);
                           EXPECT_TRUE(f->tVprop->isHidden());
                           EXPECT_EQ(f->tVIed->model(), f->pTreeIedModel);
                       }),
              form);
    EXPECT_TRUE(shown);
    EXPECT_EQ(OldRecvUnit, p.unit2);
    EXPECT_EQ(form->CurUnit, p.unit);
    EXPECT_EQ(form->pPropIccp->rootNode, nullptr);
    EXPECT_TRUE(Datarun(p.unit).startsWith("<?xml version = \"1.0\" ?>\n"));
    EXPECT_TRUE(Datarun(p.unit).endsWith("</DcTemplate>\n</DcTree>\n</xsd:schema>"));
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormRoad, RefusedBlobWriteIsReportedAndTheModelStays) {
    p.host.failParam("$DATARUN", HostProject::FailWrite);
    OpenForm(p.unit2);
    ASSERT_NE(FCfgArvenSR, nullptr);
    EXPECT_EQ(FCfgArvenSR->statusBar->currentMessage(), "Неудачная запись в блоб-поле");
    EXPECT_TRUE(Datarun(p.unit2).isEmpty());
    EXPECT_NE(pVCC, nullptr);
    EXPECT_EQ(boxes.count(), 0);
    p.host.clearFaults();

    // Nothing read, nothing written; the settings are saved all the same.
    QFile::remove(IniPath());
    OpenForm(p.unit2, [](CfgArvenSR*) { Filecont.clear(); });
    EXPECT_TRUE(Datarun(p.unit2).isEmpty());
    EXPECT_TRUE(QFile::exists(IniPath()));
}
