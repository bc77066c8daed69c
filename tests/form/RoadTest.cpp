// The whole road of a run: the entry, the form shown and closed, the model
// written into "$DATARUN"; and a later call that reuses the form.
#include "FormFixture.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/SomeModelsIED.h"

#include <QFile>
#include <QStatusBar>

namespace {

const QByteArray HeadLines =
    "<?xml version = \"1.0\" ?>\n"
    "<!--<DcDesc  xmlns:xsi = \"http://www.w3.org/2001/XMLSchema-instance\" xmlns:xsd = "
    "\"http://www.w3.org/2001/XMLSchema\" > -->\n"
    "<xsd:schema xmlns:xsd = \"http://www.w3.org/2001/XMLSchema\">\n"
    "<DcTree>\n";

} // namespace

using FormRoad = FormTest;

TEST_F(FormRoad, UnitWithoutTagsWritesTheTemplateModel) {
    const std::string expected = Golden("datarun_templ.txt");
    ASSERT_FALSE(expected.empty());
    // The second unit has no tags, limits 1 and 1, and no row in the unit
    // list, which shows the owner's first unit only.
    QString title;
    int unitRows = -1;
    QListWidgetItem* currentUnit = nullptr;
    EXPECT_EQ(OpenForm(p.unit2,
                       [&](CfgArvenSR* f) {
                           title = f->windowTitle();
                           unitRows = f->lW_ieds->count();
                           currentUnit = f->lW_ieds->currentItem();
                       }),
              FCfgArvenSR);
    ASSERT_NE(FCfgArvenSR, nullptr);
    EXPECT_TRUE(shown);
    EXPECT_EQ(title, "Конфигуратор ICCP (сервер)");
    EXPECT_EQ(unitRows, 1);
    EXPECT_EQ(currentUnit, nullptr);
    EXPECT_EQ(FCfgArvenSR->CurUnit, p.unit2);
    EXPECT_EQ(Datarun(p.unit2).toStdString(), expected);
    EXPECT_FALSE(Datarun(p.unit2).contains('\r'));
    EXPECT_EQ(Datarun(p.unit).size(), 0);
    // The settings land in the current directory.
    EXPECT_TRUE(QFile::exists(IniPath()));
    // The model outlives the close, detached from its view.
    EXPECT_NE(pVCC, nullptr);
    EXPECT_EQ(FCfgArvenSR->tVIed->model(), nullptr);
    EXPECT_FALSE(needemit);
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormRoad, LaterCallsReuseTheForm) {
    OpenForm(p.unit2);
    CfgArvenSR* form = FCfgArvenSR;
    ASSERT_NE(form, nullptr);

    // Another unit, the owner's first: the same form, its row current.
    QString row;
    void* rowUnit = nullptr;
    bool propHidden = false;
    int setRows = 0;
    EXPECT_EQ(OpenForm(p.unit,
                       [&](CfgArvenSR* f) {
                           ASSERT_NE(f->lW_ieds->currentItem(), nullptr);
                           row = f->lW_ieds->currentItem()->text();
                           rowUnit = f->lW_ieds->currentItem()->data(Qt::UserRole).value<void*>();
                           propHidden = f->tVprop->isHidden();
                           setRows = f->lWInfo->count();
                       }),
              form);
    EXPECT_TRUE(shown);
    EXPECT_EQ(FCfgArvenSR, form);
    EXPECT_EQ(OldRecvUnit, p.unit2);
    EXPECT_EQ(form->CurUnit, p.unit);
    EXPECT_EQ(row, "Сервер 1 (№ 1)");
    EXPECT_EQ(rowUnit, p.unit);
    EXPECT_TRUE(propHidden);
    EXPECT_GE(setRows, 2);
    EXPECT_TRUE(Datarun(p.unit).startsWith(HeadLines));
    EXPECT_TRUE(Datarun(p.unit).endsWith("</DcTemplate>\n</DcTree>\n</xsd:schema>"));

    // Back to the unit without tags: nothing of the run before is left.
    p.unit2->set("$DATARUN", QByteArray());
    EXPECT_EQ(OpenForm(p.unit2), form);
    EXPECT_EQ(Datarun(p.unit2).toStdString(), Golden("datarun_templ.txt"));
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

    // With nothing read there is nothing to write, but the settings are
    // saved all the same.
    QFile::remove(IniPath());
    OpenForm(p.unit2, [](CfgArvenSR*) { Filecont.clear(); });
    EXPECT_TRUE(Datarun(p.unit2).isEmpty());
    EXPECT_TRUE(QFile::exists(IniPath()));
}

TEST_F(FormRoad, RefusedCallsLeaveTheFormAlone) {
    CfgArvenSR* before = FCfgArvenSR;
    EXPECT_EQ(CfgFormGet(p.table(), nullptr, p.unit, nullptr), nullptr);
    ASSERT_EQ(boxes.count(), 1);
    EXPECT_EQ(boxes.boxes()[0].text, "Ошибка в параметрах вызова\nНет указателя на линию");
    EXPECT_EQ(CfgFormGet(p.table(), p.line, nullptr, nullptr), nullptr);
    EXPECT_EQ(FCfgArvenSR, before);
    // A good call after the refusals opens the form.
    EXPECT_NE(OpenForm(p.unit2), nullptr);
    EXPECT_TRUE(shown);
}
