// Renames in the model tree and the copies of the name.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"

#include "form/CfgIecArven.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

#include <QAction>
#include <QApplication>
#include <QInputDialog>
#include <QTest>

namespace {

// Answers the name question (cancels for a null text), checking what it shows.
DialogScript<QInputDialog>::Step Name(const QString& text, const QString& shown) {
    return [=](QInputDialog* d) {
        EXPECT_EQ(d->windowTitle() + "|" + d->labelText() + "|" + d->textValue(),
                  "Переименование|Введите новое имя|" + shown);
        d->setTextValue(text);
        text.isNull() ? d->reject() : d->accept();
    };
}

} // namespace

using Rename = FormTest;

TEST_F(Rename, NamesReachTheirCopiesAndNoFurther) {
    // Bound tags: their keys are the variables' full names.
    for (auto [tag, icc] : {std::pair(p.tagState, "ICC_1/Q1_"), std::pair(p.tagPass, "ICC_2/P_")})
        tag->set("tag_id", icc + tag->get("number").toString());
    DialogScript<QInputDialog> names;
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        IEDTreeModel& tree = *f->pTreeIedModel;
        DcICCPBase* q1 = VarOfTag(ICC(1)->Vars, p.tagState);
        ASSERT_NE(q1, nullptr);
        const std::string old = q1->name;
        ASSERT_EQ(p.tagState->get("tag_id").toString(), QString::fromStdString("ICC_1/" + old));
        f->tVIed->setCurrentIndex(VarRow(tree, q1));
        names.steps << Name(QString(), QString::fromStdString(old));
        f->actRename->trigger();
        EXPECT_EQ(q1->name, old);

        // Set keys follow the sets named in the run-time references.
        q1->refDSRT = "ICC_1/DataSet_1;";
        names.steps << Name("Breaker", QString::fromStdString(old));
        QApplication::setActiveWindow(f);
        f->tVIed->setFocus();
        QTest::keyClick(f->tVIed, Qt::Key_F2);
        EXPECT_EQ(VarRow(tree, q1).data().toString(), "Breaker");
        StringList& members = DataSetOf(ICC(1)->DataSets, 1)->Elems;
        EXPECT_GE(members.IndexOf("ICC_1/Breaker"), 0);
        EXPECT_EQ(p.tagState->get("tag_id").toString(), "ICC_1/Breaker");
        EXPECT_EQ(Var(ICC(1)->Vars, old), q1); // the owner's key stays

        // An ICC: the keys cut at the old name's length, the set list renamed.
        f->tVIed->setCurrentIndex(RowOf(tree, ICC(1)));
        names.steps << Name("North", "ICC_1");
        f->actRename->trigger();
        EXPECT_GE(members.IndexOf("North/Breaker"), 0);
        EXPECT_EQ(p.tagState->get("tag_id").toString(), "North/Breaker");
        EXPECT_EQ(f->lWInfo->findItems("North/DataSet_1", Qt::MatchExactly).size(), 1);

        // A structure: the tag list keeps the key, so the tag follows once.
        DcICCPBase* p1 = VarOfTag(ICC(2)->Vars, p.tagPass);
        ASSERT_NE(p1, nullptr);
        f->tVIed->setCurrentIndex(VarRow(tree, p1));
        names.steps << Name("P2", QString::fromStdString(p1->name));
        f->actRename->trigger();
        EXPECT_EQ(p.tagPass->get("tag_id").toString(), "ICC_2/P2");
        names.steps << Name("P3", "P2");
        f->actRename->trigger();
        EXPECT_EQ(p1->name, "P3");
        EXPECT_EQ(p.tagPass->get("tag_id").toString(), "ICC_2/P2");

        // A data set, a transfer set, the VCC (its unit's "ied_name").
        f->tVIed->setCurrentIndex(RowOf(tree, DataSetOf(ICC(2)->DataSets, 1)));
        names.steps << Name("Fast", "DataSet_1");
        f->actRename->trigger();
        EXPECT_EQ(f->lWInfo->findItems("ICC_2/Fast", Qt::MatchExactly).size(), 1);
        EXPECT_TRUE(f->lWInfo->findItems("ICC_2/DataSet_1", Qt::MatchExactly).isEmpty());
        DcICCPBase* trSet = ListOb(ICC(2)->TransSets, 0);
        f->tVIed->setCurrentIndex(RowOf(tree, trSet));
        names.steps << Name("TS", QString::fromStdString(trSet->name));
        f->actRename->trigger();
        EXPECT_EQ(RowOf(tree, trSet).data().toString(), "TS");
        f->tVIed->setCurrentIndex(RowOf(tree, pVCC));
        names.steps << Name("Centre", QString::fromStdString(pVCC->name));
        f->actRename->trigger();
        EXPECT_EQ(p.unit->get("ied_name").toString(), "Centre");

        // A structure's members can't be renamed; a folder row is passed over.
        auto version = qobject_cast<DcDO*>(Var(pVCC->Vars, "TASE2_Version"));
        ASSERT_NE(version, nullptr);
        f->tVIed->setCurrentIndex(RowOf(tree, ListOb(version->Members, 0)));
        f->actRename->trigger();
        f->tVIed->setCurrentIndex(VarRow(tree, p1).parent());
        f->actRename->trigger();
        EXPECT_EQ(BoxTexts(),
                  QStringList("Предупреждение|Переименование переменных объекта невозможно"));
    });
    EXPECT_EQ(names.shows, 8);
}
