// "Корректность тегов": the list, its answers, check marks and key checks.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"
#include "dialogs/Log4Tree.h"
#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/SomeModelsIED.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>

namespace {

// Answers the check's list with one button; its rows go to `rows`.
DialogScript<Log4Tree>::Step Press(QDialogButtonBox::StandardButton button, QStringList* rows) {
    return [=](Log4Tree* d) {
        for (int i = 0; i < d->listWidget->count(); ++i)
            *rows << d->listWidget->item(i)->text();
        EXPECT_EQ(d->buttonBox->button(QDialogButtonBox::Yes)->text(), "Удалить");
        d->buttonBox->button(button)->click();
    };
}

QVariant Mark(CfgArvenSR* f, void* ob) {
    return RowOf(*f->pTreeIedModel, ob).data(Qt::CheckStateRole);
}

} // namespace

using Validation = FormTest;

TEST_F(Validation, ListedVariablesGoOnlyAfterDelete) {
    // Rows only for ICC variables at load: Freq_1 and P_3$Value not found first.
    p.tagReal->set("tag_id", QByteArray("Freq_1"));
    p.tagPass->set("tag_id", QByteArray("ICC_2/P_3$Value"));
    p.addTag(p.folder[2], cotControlSource, "C", 4, 1, 1, "Уставка")
        ->set("tag_id", QByteArray("ICC_1/"));
    // An ICC past the limits is passed over: F_5 is still found.
    p.addTag(p.folder[0], cotSource, "F", 4, 1, 0, "Поток")->set("tag_id", QByteArray("ICC_9/F_5"));
    // Transmitted control is never examined.
    p.addTag(p.folder[3], cotControlPass, "T", 4, 2, 0, "Команда")
        ->set("tag_id", QByteArray("ICC_2/T_6"));
    p.addTag(p.folder[1], cotPass, "G", 4, 0, 0, "Сигнал")->set("tag_id", QByteArray("G_7x"));
    const QStringList listed{
        "Частота_1",     "Выключатель Q1_2",   "Мощность_3",         "Сигнал_7", "Уставка_4",
        "TASE2_Version", "Supported_Features", "Bilateral_Table_ID", "Freq_1",   "G_7",
        "ICC_1/Q1_2",    "ICC_1/C_4",          "ICC_2/T_6"};
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        for (auto button : {QDialogButtonBox::Cancel, QDialogButtonBox::Ignore}) {
            QStringList rows;
            DialogScript<Log4Tree> log({Press(button, &rows)});
            f->OnValTagTree();
            EXPECT_EQ(rows, listed);
            ASSERT_NE(Var(ICC(1)->Vars, "Q1_2"), nullptr);
        }
        EXPECT_TRUE(f->pTreeIedModel->FlagBindTag);
        auto p3 = static_cast<DcDO*>(Var(ICC(2)->Vars, "P_3"));
        EXPECT_EQ(Mark(f, Var(ICC(1)->Vars, "F_5")), int(Qt::Checked));
        EXPECT_EQ(Mark(f, p3), int(Qt::Checked));
        EXPECT_TRUE(ICC(1)->IsTagV && ICC(2)->IsTagV);
        EXPECT_FALSE(Mark(f, ICC(2)).isValid());
        EXPECT_FALSE(Mark(f, Var(ICC(1)->Vars, "Q1_2")).isValid());

        f->tVIed->setColumnWidth(0, 321);
        QStringList rows;
        DialogScript<Log4Tree> log({Press(QDialogButtonBox::Yes, &rows)});
        f->OnValTagTree();
        EXPECT_EQ(rows, listed);
        for (const char* name : {"TASE2_Version", "Freq_1", "G_7"})
            EXPECT_EQ(Var(pVCC->Vars, name), nullptr) << name;
        EXPECT_EQ(ICC(1)->Vars.Count, 1);
        EXPECT_EQ(Var(ICC(2)->Vars, "T_6"), nullptr);
        EXPECT_EQ(f->tVIed->columnWidth(0), 321);

        // The rebuilt tree shows the members: the key now marks all three.
        rows.clear();
        log.steps = {Press(QDialogButtonBox::Cancel, &rows)};
        f->OnValTagTree();
        EXPECT_EQ(rows, QStringList({"Частота_1", "Выключатель Q1_2", "Сигнал_7", "Уставка_4"}));
        EXPECT_EQ(Mark(f, Var(p3->Members, "Value")), int(Qt::Checked));
        EXPECT_EQ(Mark(f, Var(ICC(1)->Vars, "F_5")), int(Qt::Checked));
    });
    // The tags stay; the model keeps what the tags name; the set lost its members.
    EXPECT_EQ(p.host.findAll(cotSource).size(), 3);
    const QByteArray blob = SplitLines(Datarun(p.unit));
    EXPECT_TRUE(blob.contains("  <DcVCC name = \"VCC_1\"  desc=\"\"  >\n"
                              "    <DcDataSet  name = \"DataSet_1\"  desc=\"\" > \n"
                              "    </DcDataSet> \n"));
    for (const char* gone : {"\"ICC_1/Q1_2\"", "\"ICC_1/C_4\"", "= \"G_7\""})
        EXPECT_FALSE(blob.contains(gone)) << gone;
}

TEST_F(Validation, AllNamedShowsNoListAndKeysAreChecked) {
    MakeFirstUnitBare();
    HostObject* folder = p.host.create(p.unit, cotFolderSource, 0, "Arven");
    HostObject* flow = p.addTag(folder, cotSource, "F", 28, 1, 1, "Поток");
    flow->set("tag_id", QByteArray("ICC_1/F_1"));
    // Tags of a type outside the list make no variable, and name the VCC's own.
    for (const char* key :
         {"TASE2_Version$MinorVersionNumber", "Supported_Features", "Bilateral_Table_ID"})
        p.addTag(folder, cotSource, "X", 999, 0, 0, key)->set("tag_id", QByteArray(key));
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        DialogScript<Log4Tree> log;
        f->OnValTagTree();
        QApplication::processEvents();
        EXPECT_EQ(log.shows, 0);
        EXPECT_EQ(f->ListNoValid.Count, 0);
        auto flow1 = static_cast<DcDO*>(Var(ICC(1)->Vars, "F_1"));
        auto version = static_cast<DcDO*>(Var(pVCC->Vars, "TASE2_Version"));
        for (DcICCPBase* ob : {static_cast<DcICCPBase*>(flow1), static_cast<DcICCPBase*>(version),
                               Var(version->Members, "MinorVersionNumber")})
            EXPECT_EQ(Mark(f, ob), int(Qt::Checked)) << ob->name;
        EXPECT_FALSE(Mark(f, Var(version->Members, "MajorVersionNumber")).isValid());

        for (const char* key : {"ICC_1/F_1", "ICC_1/F_1$Value", "TASE2_Version$MajorVersionNumber",
                                "Supported_Features"})
            EXPECT_TRUE(f->IsValidTagId(pVCC, key)) << key;
        for (const char* key : {"ICC_1/F_1$Nothing", "ICC_1/Var_3", "ICC_9/F_1", "F_1",
                                "Supported_Features$Bit", "ICC_1/"})
            EXPECT_FALSE(f->IsValidTagId(pVCC, key)) << key;
        EXPECT_FALSE(f->IsValidTagId(nullptr, "F_1"));
        EXPECT_EQ(f->FunTagAndTree(p.host.create(folder, cotSource, 0, "IecArven")), -1);
        flow->set("tag_id", QByteArray("ICC_1/"));
        EXPECT_EQ(f->FunTagAndTree(flow), -2);

        // An ICC renamed in the data sets and the tag keys, then dropped.
        f->InspectADSonLD("ICC_1", "ICC_7", 1);
        EXPECT_NE(DataSetOf(ICC(1)->DataSets, 1)->Elems.IndexOf("ICC_7/F_1"), -1);
        f->InspectATagonLD("ICC_1", "ICC_7", 1);
        EXPECT_EQ(flow->get("tag_id").toByteArray(), "ICC_7/F_1");
        f->InspectATagonLD("ICC_7", "", 0);
        EXPECT_EQ(flow->get("tag_id").toByteArray(), "");
        f->FillSpecListDSansTS(pVCC);
        EXPECT_EQ(f->ReserveList.Strings(0), "ICC_1/TrSet_1");
    });
}
