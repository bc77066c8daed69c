// Variables put into a data set through the choice dialog.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"

#include "dialogs/ChoiceDS.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>

namespace {

// Makes the rows current and selected, whole rows.
void Select(CfgArvenSR* f, const QModelIndexList& rows) {
    f->tVIed->selectionModel()->clear();
    f->tVIed->selectionModel()->setCurrentIndex(rows.first(), QItemSelectionModel::NoUpdate);
    for (const QModelIndex& row : rows)
        f->tVIed->selectionModel()->select(row,
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

// Makes the row current (-1: none) and accepts; title and rows go to seen.
DialogScript<ChoiceDS>::Step Pick(int row, QStringList* seen = nullptr, bool doubleClick = false) {
    return [=](ChoiceDS* d) {
        // A focused list makes its first row current when none is.
        d->listWidget->setFocusPolicy(Qt::NoFocus);
        d->listWidget->clearFocus();
        for (int i = 0; seen && i < d->listWidget->count(); ++i)
            *seen << (i ? "" : d->windowTitle() + "|") + d->listWidget->item(i)->text();
        d->listWidget->setCurrentRow(row);
        if (doubleClick)
            emit d->listWidget->itemDoubleClicked(d->listWidget->currentItem());
        else
            d->accept();
    };
}

} // namespace

using AddToDataSet = FormTest;

TEST_F(AddToDataSet, VariableJoinsTheChosenSetAndItsTagKeepsTheNumber) {
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        DcICCPBase* q1 = VarOfTag(ICC(1)->Vars, p.tagState);
        ASSERT_NE(q1, nullptr);
        const QString refBefore = q1->refDSRT;
        DcDataSet* set = DataSetOf(ICC(1)->DataSets, 2);
        const QModelIndex row = VarRow(*f->pTreeIedModel, q1);
        f->lWInfo->setCurrentItem(f->lWInfo->findItems("ICC_1/DataSet_2", Qt::MatchExactly)[0]);
        const int shownBefore = f->lWInfo_2->count();
        const int membersBefore = set->Elems.Count;

        // An accept without a row brings the dialog back.
        {
            QStringList seen;
            DialogScript<ChoiceDS> script({Pick(-1), Pick(1, &seen)});
            Select(f, {row});
            f->OnAddOb2DS();
            EXPECT_EQ(script.shows, 2);
            EXPECT_EQ(seen, QStringList({"Перемещение в DataSet|ICC_1/DataSet_1", "ICC_1/DataSet_2",
                                         "ICC_1/DataSet_3"}));
        }
        EXPECT_EQ(p.tagState->get("isinDataSet").toInt(), 2);
        EXPECT_EQ(q1->refDSRT, refBefore + "ICC_1/DataSet_2;");
        EXPECT_TRUE(q1->refDS.endsWith("ICC_1/DataSet_2;"));
        ASSERT_EQ(set->Elems.Count, membersBefore + 1);
        EXPECT_EQ(set->Elems.Strings(0), "ICC_1/" + q1->name);
        EXPECT_EQ(set->Elems.Objects(0), q1);
        ASSERT_EQ(f->lWInfo_2->count(), shownBefore + 1);
        EXPECT_EQ(f->lWInfo_2->item(0)->data(Qt::UserRole).value<void*>(), q1);

        // The tag's own number: passed over in silence, even for another set.
        {
            DialogScript<ChoiceDS> script({Pick(1), Pick(2)});
            f->OnAddOb2DS();
            p.tagState->set("isinDataSet", 3);
            f->OnAddOb2DS();
            EXPECT_EQ(script.shows, 2);
        }
        EXPECT_EQ(set->Elems.Count, membersBefore + 1);
        EXPECT_EQ(FindIdObjByPtr(q1, &DataSetOf(ICC(1)->DataSets, 3)->Elems), -1);

        // Cancel changes nothing.
        p.tagState->set("isinDataSet", 0);
        {
            DialogScript<ChoiceDS> script;
            f->OnAddOb2DS();
            EXPECT_EQ(script.shows, 1);
        }
        EXPECT_EQ(p.tagState->get("isinDataSet").toInt(), 0);
        EXPECT_EQ(boxes.count(), 0);
    });
}

TEST_F(AddToDataSet, OnlyVariablesOfOneFolderAreTaken) {
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        DcICCPBase* q1 = VarOfTag(ICC(1)->Vars, p.tagState);
        DcICCPBase* version = Var(pVCC->Vars, "TASE2_Version");
        DialogScript<ChoiceDS> script({Pick(0)});
        const QModelIndex q1Row = VarRow(*f->pTreeIedModel, q1);

        // A folder row, an ICC row, a member row of a data set: nothing.
        IEDTreeModel* m = f->pTreeIedModel;
        const QModelIndex setRow = RowOf(*m, DataSetOf(ICC(1)->DataSets, 1));
        ASSERT_TRUE(setRow.isValid());
        const int members = m->rowCount(setRow);
        m->beginInsertRows(setRow, members, members);
        m->nodeFromIndex(setRow)->AddChild(q1->name, q1);
        m->endInsertRows();
        for (const QModelIndex& row :
             {q1Row.parent(), q1Row.parent().parent(), m->index(members, 0, setRow)}) {
            ASSERT_TRUE(row.isValid());
            Select(f, {row});
            f->OnAddOb2DS();
        }
        // Two parents: told, with no dialog.
        Select(f, {q1Row, VarRow(*f->pTreeIedModel, version)});
        f->OnAddOb2DS();
        QApplication::processEvents();
        EXPECT_EQ(script.shows, 0);
        EXPECT_EQ(BoxTexts(), QStringList("Сообщение|Выделенные элементы должны быть переменными и "
                                          "принадлежать одному родителю"));
        EXPECT_EQ(p.tagState->get("isinDataSet").toInt(), 1);
        EXPECT_TRUE(version->refDSRT.isEmpty());
    });
}

TEST_F(AddToDataSet, SeveralVariablesWithAMemberAmongThem) {
    QList<HostObject*> tags; // A_21 .. E_25 in ICC_1, B_22 in its data set 2
    for (int i = 0; i < 5; ++i)
        tags << AddTag(p.subFolder, cotSource, 21 + i, QByteArray(1, char('A' + i)), 19, 1,
                       i == 1 ? 2 : 0, 0);
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        auto rows = [&](const QList<int>& which) {
            QModelIndexList out;
            for (int i : which)
                out << VarRow(*f->pTreeIedModel, VarOfTag(ICC(1)->Vars, tags[i]));
            return out;
        };
        f->lWInfo->setCurrentItem(f->lWInfo->findItems("ICC_1/DataSet_2", Qt::MatchExactly)[0]);
        // A member holding the set's number is passed over; others go in front.
        {
            DialogScript<ChoiceDS> script({Pick(1)});
            Select(f, rows({0, 1, 2}));
            f->OnAddOb2DS();
        }
        EXPECT_EQ(boxes.count(), 0);
        // A member whose tag says another set: number written, refusal told, rest left.
        tags[1]->set("isinDataSet", 3);
        {
            DialogScript<ChoiceDS> script({Pick(1)});
            Select(f, rows({3, 1, 4}));
            f->OnAddOb2DS();
        }
        const QStringList members = {"ICC_1/D_24", "ICC_1/C_23", "ICC_1/A_21", "ICC_1/B_22"};
        StringList& elems = DataSetOf(ICC(1)->DataSets, 2)->Elems;
        QStringList keys, shown;
        for (int i = 0; i < elems.Count; ++i)
            keys << QString::fromStdString(elems.Strings(i));
        for (int i = 0; i < f->lWInfo_2->count(); ++i)
            shown << f->lWInfo_2->item(i)->text();
        EXPECT_EQ(keys.mid(0, 4), members);
        EXPECT_EQ(shown.mid(0, 4), members);
    });
    EXPECT_EQ(BoxTexts(), QStringList("Сообщение|ССылка уже существует"));
    QList<int> numbers;
    for (HostObject* tag : tags)
        numbers << tag->get("isinDataSet").toInt();
    EXPECT_EQ(numbers, QList<int>({2, 2, 2, 2, 0}));
    EXPECT_TRUE(Datarun(p.unit).contains("<DcDataSet  name = \"DataSet_2\"  desc=\"\" > \n"
                                         "         <ElemDS name=\"ICC_1/D_24\" /> \n"
                                         "         <ElemDS name=\"ICC_1/C_23\" /> \n"
                                         "         <ElemDS name=\"ICC_1/A_21\" /> \n"
                                         "         <ElemDS name=\"ICC_1/B_22\" /> \n"
                                         "      </DcDataSet>"));
}
