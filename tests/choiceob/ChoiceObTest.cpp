// The object choice dialog and the form's add-object command.
#include "common/FormFixture.h"
#include "common/ItemTexts.h"
#include "common/ModelLookup.h"

#include "dialogs/ChoiceObj.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "views/SomeModelsIED.h"

namespace {

using Script = DialogScript<FChoiceOb>;

// A click on the class row, as the mouse gives it.
void ClickClass(FChoiceOb* d, int row) {
    d->lWObjects->setCurrentRow(row);
    emit d->lWObjects->itemClicked(d->lWObjects->item(row));
}

// Clicks the class, then accepts the place and name; -1 leaves them.
Script::Step Choose(int cls, int where, const char* name = nullptr) {
    return [=](FChoiceOb* d) {
        if (cls >= 0)
            ClickClass(d, cls);
        if (where >= 0)
            d->lWWhere->setCurrentRow(where);
        if (name)
            d->lEName->setText(name);
        d->accept();
    };
}

// The folder row with that text right under row.
QModelIndex FolderOf(IEDTreeModel* m, const QModelIndex& row, const QString& text) {
    for (int i = 0; i < m->rowCount(row); ++i)
        if (m->index(i, 0, row).data().toString() == text)
            return m->index(i, 0, row);
    return QModelIndex();
}

} // namespace

using ChoiceOb = FormTest;

TEST_F(ChoiceOb, ClassesNameProposalAndRefusal) {
    // The first unit: ICC_1 and ICC_2 with three data sets each, the VCC with the template's one.
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        FChoiceOb d(f);
        EXPECT_EQ(d.windowTitle(), "Добавление объекта");
        EXPECT_EQ(d.lEName->text(), "Text");
        d.Fill_lWObjects();
        ASSERT_EQ(ChildTexts(*d.lWObjects->model()),
                  QStringList({"DcDataSet", "DcTransSet", "DcNextTransferSet"}));
        for (int row = 0; row < 3; ++row)
            EXPECT_EQ(d.lWObjects->item(row)->data(Qt::UserRole).toInt(), 51 + row);

        // No places taken yet: a class gives an empty place list, and the dialog refuses to close.
        ClickClass(&d, 0);
        EXPECT_EQ(d.lWWhere->count(), 0);
        EXPECT_EQ(d.lEName->text(), "Text");
        d.accept();
        EXPECT_EQ(BoxTexts(), QStringList("Предупреждение|Выделите объекты"));
        EXPECT_NE(d.result(), QDialog::Accepted);

        // An ICC proposes its next set; transfer sets go to ICCs, keeping the name.
        d.FillWhere(pVCC);
        d.FilterOb(ICC(1));
        ClickClass(&d, 0);
        EXPECT_EQ(ChildTexts(*d.lWWhere->model()), QStringList({"VCC_1", "ICC_1", "ICC_2"}));
        EXPECT_EQ(d.lEName->text(), "DataSet_4");
        d.lEName->setText("Mine");
        ClickClass(&d, 1);
        EXPECT_EQ(ChildTexts(*d.lWWhere->model()), QStringList({"ICC_1", "ICC_2"}));
        EXPECT_EQ(d.lEName->text(), "Mine");
        d.FilterOb(pVCC);
        ClickClass(&d, 0);
        EXPECT_EQ(d.lEName->text(), "VMD2");

        d.SetActiveW(ICC(2));
        d.accept();
        EXPECT_EQ(d.result(), QDialog::Accepted);
        EXPECT_EQ(boxes.count(), 1);
    });
}

TEST_F(ChoiceOb, AddedObjectsReachModelTreeAndList) {
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        IEDTreeModel* m = f->pTreeIedModel;
        const QModelIndex icc1 = RowOf(*m, ICC(1));
        const QModelIndex icc2 = RowOf(*m, ICC(2));
        ASSERT_TRUE(icc1.isValid() && icc2.isValid());
        const int listed = f->lWInfo->count();

        // A taken name is refused and the dialog comes back; none is proposed.
        f->tVIed->setCurrentIndex(FolderOf(m, icc1, "Наборы данных (DataSets)"));
        QString proposed;
        Script script({[&](FChoiceOb* d) {
                           ClickClass(d, 0);
                           proposed = d->lEName->text();
                           Choose(-1, 1, "DataSet_2")(d);
                       },
                       Choose(-1, -1, "Extra_DS")});
        QMetaObject::invokeMethod(f, "OnAddOb");
        EXPECT_EQ(proposed, "");
        EXPECT_EQ(BoxTexts(), QStringList("Сообщение|Нарушена уникальность имен"));
        EXPECT_EQ(ChildTexts(*m, FolderOf(m, icc1, "Наборы данных (DataSets)")),
                  QStringList({"DataSet_1", "DataSet_2", "DataSet_3", "Extra_DS"}));
        ASSERT_EQ(f->lWInfo->count(), listed + 1);
        EXPECT_EQ(f->lWInfo->item(listed)->text(), "ICC_1/Extra_DS");

        // From the VCC's row, into the VCC.
        f->tVIed->setCurrentIndex(m->index(0, 0));
        script.steps = {Choose(0, 0, "VMD2")};
        f->OnAddOb();
        EXPECT_EQ(ChildTexts(*m, FolderOf(m, m->index(0, 0), "Наборы данных (DataSets)")),
                  QStringList({"DataSet_1", "VMD2"}));

        // A transfer set into ICC_2: a taken name is told otherwise.
        boxes.clear();
        f->tVIed->setCurrentIndex(icc2);
        script.steps = {Choose(1, 1, "TrSet_1"), Choose(-1, -1, "TrSet_X")};
        f->OnAddOb();
        EXPECT_EQ(BoxTexts(),
                  QStringList("Сообщение|Нарушена уникальность имен или ошибка разбора"));
        EXPECT_EQ(ChildTexts(*m, FolderOf(m, icc2, "Transfer_Sets")),
                  QStringList({"TrSet_1", "TrSet_2", "TrSet_3", "TrSet_X"}));

        // Next_DSTransfer_Set: the VCC refused; an ICC keeps its own silently.
        boxes.clear();
        DcNextTransferSet* next = ICC(2)->NextSet;
        script.steps = {[](FChoiceOb* d) {
                            ClickClass(d, 0);
                            d->lWObjects->setCurrentRow(2);
                            Choose(-1, 0)(d);
                        },
                        Choose(2, 1)};
        f->OnAddOb();
        EXPECT_EQ(script.shows, 7);
        EXPECT_EQ(BoxTexts(), QStringList("Сообщение|Недопустимый объект приемник"));
        EXPECT_EQ(ICC(2)->NextSet, next);
        EXPECT_EQ(ChildTexts(*m, icc2).count("Next_DSTransfer_Set"), 1);
    });
}
