// Command variables added by hand to an ICC through the command dialog.
#include "common/FormFixture.h"
#include "common/ItemTexts.h"
#include "common/ModelLookup.h"

#include "dialogs/DComm.h"
#include "form/CfgIecArven.h"
#include "views/SomeModelsIED.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>

namespace {

QModelIndex VarsRow(IEDTreeModel* m, void* icc) {
    return m->match(RowOf(*m, icc), Qt::DisplayRole, "Переменные", 1, Qt::MatchRecursive).value(0);
}

} // namespace

using Command = FormTest;

TEST_F(Command, CommandsWithAndWithoutTwinJoinTheIcc) {
    // Type index, instance and SBO; the third dialog is cancelled.
    auto answer = [](int type, int number, bool sbo) {
        return [=](DComm* d) {
            d->comboBox->setCurrentIndex(type);
            d->spinBox->setValue(number);
            d->checkBox->setChecked(sbo);
            d->accept();
        };
    };
    DialogScript<DComm> script({answer(0, 5, true), answer(2, 1, false)});
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        IEDTreeModel* m = f->pTreeIedModel;
        // No row, then the VCC's row: no ICC to put it in.
        f->tVIed->setCurrentIndex(QModelIndex());
        f->OnAcmd();
        f->tVIed->setCurrentIndex(m->index(0, 0));
        f->OnAcmd();
        EXPECT_EQ(FDComm, nullptr);

        f->tVIed->setCurrentIndex(RowOf(*m, ICC(1)));
        f->OnAcmd();
        ASSERT_NE(FDComm, nullptr);
        EXPECT_EQ(FDComm->windowTitle(), "Задание команды");
        EXPECT_EQ(ChildTexts(*m, VarsRow(m, ICC(1))).mid(ICC(1)->Vars.Count - 2),
                  QStringList({"ControlCommand5", "ControlCommand5_SBO"}));

        // From the folder row of the second ICC; then a cancel adds nothing.
        f->tVIed->setCurrentIndex(VarsRow(m, ICC(2)));
        f->OnAcmd();
        const int count = ICC(2)->Vars.Count;
        f->OnAcmd();
        EXPECT_EQ(ICC(2)->Vars.Count, count);
        EXPECT_EQ(ChildTexts(*m, VarsRow(m, ICC(2))).last(), "RealSetPoint1");
    });
    EXPECT_EQ(script.shows, 3);
    EXPECT_EQ(BoxTexts(), QStringList("Информация|Не могу найти  ICC для вставки"));

    // The byte counts are the types' sizes; the blob's lines end in LF.
    const QByteArray blob = Datarun(p.unit);
    const char* const lines[] = {
        "      <DcDA  name = \"ControlCommand5\" type = \"INT16\" desc = \"\" svalue = \"0\" "
        "refDSRT = \"\" ByteCount=\"2\"  unused=\"0\" refDS = \"\"  flagAbility = \"3\" /> \n",
        "      <DcDA  name = \"RealSetPoint1\" type = \"FLOAT32\" desc = \"\" svalue = "
        "\"0.000000\" refDSRT = \"\" ByteCount=\"4\"  unused=\"0\" refDS = \"\"  flagAbility = "
        "\"0\" /> \n"};
    const int icc2 = blob.indexOf("<DcLD  name = \"ICC_2\"");
    for (const char* line : lines)
        EXPECT_GE(blob.indexOf(line), 0) << line;
    EXPECT_LT(blob.indexOf(lines[0]), icc2);
    EXPECT_GT(blob.indexOf(lines[1]), icc2);
}
