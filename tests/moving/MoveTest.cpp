// The bulk move of set members; a move by the property tree; the reserve viewer.
#include "common/FormFixture.h"
#include "common/ItemTexts.h"
#include "common/ModelLookup.h"

#include "dialogs/Mode4MoveOb.h"
#include "dialogs/ReserveF.h"
#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/CpropNode.h"
#include "views/SomeModelsIED.h"

#include <QAction>
#include <QComboBox>
#include <QListWidget>

namespace {

// Answers the move dialog (cancels for domain < 0); box texts go to seen.
DialogScript<Mode4MoveOb>::Step Place(int domain, int dataSet, QStringList* seen = nullptr) {
    return [=](Mode4MoveOb* d) {
        for (QComboBox* box : {d->cBDomain, d->cBDataSet})
            for (int i = 0; seen && i < box->count(); ++i)
                *seen << box->itemText(i);
        if (domain < 0)
            return d->reject();
        d->cBDomain->setCurrentIndex(domain);
        d->cBDataSet->setCurrentIndex(dataSet);
        d->accept();
    };
}

// Shows the data set afresh and moves the members of those names.
void Move(CfgArvenSR* f, const QString& set, const QStringList& names, int domain, int dataSet) {
    QListWidgetItem* row = f->lWInfo->findItems(set, Qt::MatchExactly).value(0);
    ASSERT_NE(row, nullptr);
    f->lWInfo->setCurrentItem(row);
    emit f->lWInfo->currentItemChanged(row, row);
    for (const QString& name : names)
        for (QListWidgetItem* item : f->lWInfo_2->findItems(name, Qt::MatchExactly))
            item->setSelected(true);
    DialogScript<Mode4MoveOb> script({Place(domain, dataSet)});
    f->actMoveOb->trigger();
}

QStringList Keys(const StringList& list) {
    QStringList keys;
    for (int i = 0; i < list.Count; ++i)
        keys << QString::fromStdString(list.Strings(i));
    return keys;
}

// The members of a set, without the four standard ones that every set holds.
QStringList Members(DcDataSet* set) {
    QStringList keys = Keys(set->Elems);
    return keys.mid(0, keys.size() - 4);
}

} // namespace

TEST_F(FormTest, MoveMembersOfADataSet) {
    p.tagState->set("domain", 2);
    QList<HostObject*> t;
    QStringList n;
    for (const char* name : {"A", "B", "C", "D", "E"}) {
        t << p.addTag(p.folder[0], cotSource, name, name[0] == 'C' ? 28 : 4, 1, 1, name);
        n << QString(name) + "_" + QString::number(t.last()->get("number").toInt());
    }
    auto key = [&](int i) { return "ICC_1/" + n[i]; };
    const QString set1 = "ICC_1/DataSet_1";
    const QString freq = "Freq_" + QString::number(p.tagReal->get("number").toInt());
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        IEDTreeModel* m = f->pTreeIedModel;
        auto varRows = [&](DcICCPBase* owner) {
            const QModelIndex o = RowOf(*m, owner);
            return ChildTexts(
                *m, m->match(m->index(0, 0, o), 0, "Переменные", 1, Qt::MatchRecursive).value(0));
        };
        ASSERT_EQ(varRows(ICC(1)), n);
        // Cancel, then the place the members already have: nothing moves.
        QStringList seen;
        Move(f, set1, {key(0)}, 1, 1);
        {
            DialogScript<Mode4MoveOb> script({Place(-1, 0, &seen)});
            f->actMoveOb->trigger();
        }
        EXPECT_EQ(seen, QStringList({"VCC", "ICC_1", "ICC_2", "NoDataSet", "DataSet_1", "DataSet_2",
                                     "DataSet_3"}));
        EXPECT_EQ(f->lWInfo_2->count(), 9);
        // A source without a number at its end asks nothing.
        f->lWInfo->currentItem()->setText("Odd");
        f->actMoveOb->trigger();
        f->lWInfo->currentItem()->setText(set1);

        // Into an ICC that isn't there: no variable is made, the old one goes.
        ICCdata.maxICC = 3;
        Move(f, set1, {key(4)}, 3, 1);
        ICCdata.maxICC = 2;
        EXPECT_EQ(Var(ICC(1)->Vars, n[4].toStdString()), nullptr);
        EXPECT_EQ(f->lWInfo_2->count(), 8);
        // Same owner: index 0 is "NoDataSet", the last one past the sets.
        Move(f, set1, {key(0), key(1)}, 1, 0);
        EXPECT_EQ(f->lWInfo_2->count(), 6);
        Move(f, set1, {key(3)}, 1, 3);
        Move(f, set1, {key(3)}, 1, 2);
        // Another owner and set: the structure goes to the VCC with its row.
        Move(f, set1, {key(2)}, 0, 2);
        EXPECT_TRUE(f->lWInfo_2->findItems(key(2), Qt::MatchExactly).isEmpty());
        EXPECT_EQ(varRows(ICC(1)), QStringList({n[0], n[1]}));
        // Another owner only: D has no row left, so it stays in ICC_1 too.
        Move(f, set1, {key(0), key(3)}, 2, 1);
        EXPECT_EQ(varRows(ICC(1)), QStringList());
        EXPECT_EQ(varRows(ICC(2)).mid(2), QStringList({n[0], n[3]}));
        EXPECT_EQ(varRows(pVCC).last(), n[2]);
        EXPECT_EQ(Var(pVCC->Vars, n[2].toStdString())->ClassName(), "DcDO");

        // The property tree moves a VCC variable made at load, which has no row: the VCC keeps it.
        p.tagReal->set("domain", 1);
        CpropNode node;
        node.value = "1";
        QByteArray domain("domain");
        f->UpdPropTagUnit(&node, "0", p.tagReal, domain.data());
        EXPECT_EQ(varRows(ICC(1)), QStringList(freq));

        // The reserve list's viewer, empty on this road, shows a set's XML.
        DialogScript<ReserveF> viewer({[&](ReserveF* d) {
            EXPECT_EQ(d->lW1->count(), 0);
            StringList list;
            list.AddObject("DataSet_3", DataSetOf(ICC(1)->DataSets, 3));
            d->Init(&list);
            d->onLW1Clicked(d->lW1->item(0));
            EXPECT_EQ(
                ChildTexts(*d->lW2->model()),
                QStringList({"   <DcDataSet  name = \"DataSet_3\"  desc=\"\" > ",
                             "      <ElemDS name=\"" + key(3) + "\" /> ", "   </DcDataSet> "}));
            d->reject();
        }});
        f->actReservDS->trigger();
        EXPECT_EQ(viewer.shows, 1);
        EXPECT_EQ(FReserveF->objectName(), "reservData");
    });
    EXPECT_EQ(boxes.count(), 0);
    const int tags[5][2] = {{2, 0}, {1, 0}, {0, 1}, {2, 2}, {3, 1}};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(t[i]->get("domain").toInt(), tags[i][0]) << i;
        EXPECT_EQ(t[i]->get("isinDataSet").toInt(), tags[i][1]) << i;
    }
    // The model as the close left it (its text is the whole-road tests' part).
    EXPECT_EQ(Keys(ICC(1)->Vars), QStringList({n[1], n[3], freq}));
    EXPECT_EQ(Members(DataSetOf(ICC(1)->DataSets, 1)), QStringList({key(3), key(1), key(0)}));
    EXPECT_EQ(Members(DataSetOf(ICC(1)->DataSets, 3)), QStringList(key(3)));
    EXPECT_EQ(Keys(ICC(2)->Vars).mid(2), QStringList({n[0], n[3]}));
    EXPECT_EQ(Members(DataSetOf(ICC(2)->DataSets, 2)), QStringList("ICC_2/" + n[3]));
    EXPECT_TRUE(Keys(pVCC->Vars).contains(n[2]) && Keys(pVCC->Vars).contains(freq));
    // C joined the VCC's one set by number, then left for a missing one.
    EXPECT_EQ(Members(DataSetOf(pVCC->DataSets, 1)), QStringList());
    EXPECT_EQ(pVCC->DataSets.Count, 1);
}
