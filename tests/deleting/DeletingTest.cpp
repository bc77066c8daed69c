// The form's deletes: tree rows with tags, set members, a unit.
#include "common/FormFixture.h"
#include "common/ItemTexts.h"
#include "common/ModelLookup.h"

#include "form/CfgIecArven.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"

#include <QAction>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

namespace {

// The tree row of a path of display texts from the VCC's row down.
QModelIndex Row(CfgArvenSR* f, const QStringList& path) {
    QModelIndex row = f->pTreeIedModel->index(0, 0);
    for (const QString& text : path)
        row = f->pTreeIedModel->match(f->pTreeIedModel->index(0, 0, row), 0, text, 1, {}).value(0);
    return row;
}

// Selects whole rows of tVIed in this order and presses key there.
void Press(CfgArvenSR* f, const QList<QStringList>& rows, Qt::Key key = Qt::Key_Delete,
           Qt::KeyboardModifiers mods = Qt::NoModifier) {
    f->tVIed->selectionModel()->clear();
    for (const QStringList& row : rows)
        f->tVIed->selectionModel()->select(Row(f, row),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QTest::keyClick(f->tVIed, key, mods);
}

// Shows the set in lWInfo_2 and selects the rows of these keys.
void ShowSet(CfgArvenSR* f, const QString& set, const QStringList& keys = {}) {
    f->lWInfo->setCurrentItem(f->lWInfo->findItems(set, Qt::MatchExactly).value(0));
    for (const QString& key : keys)
        f->lWInfo_2->findItems(key, Qt::MatchExactly).value(0)->setSelected(true);
}

// The delete command with the keyboard focus on w.
void DeleteIn(CfgArvenSR* f, QWidget* w) {
    QApplication::setActiveWindow(f);
    w->setFocus();
    f->OnDelOb();
}

// The tag view shows mode 0, the tags of Q1, A, B and C under "Ячейка 1".
void ShowReceived(CfgArvenSR* f) {
    f->TagMode = 0;
    f->ViewTags(f->CurUnit);
}

const QStringList kIcc1 = {"Inter Control Center's (ICC)", "ICC_1", "Переменные"};
const QStringList kIcc2 = {"Inter Control Center's (ICC)", "ICC_2", "Переменные"};

} // namespace

class Deleting : public FormTest {
protected:
    void SetUp() override {
        FormTest::SetUp();
        a = p.addTag(p.subFolder, cotSource, "A", 19, 1, 1, "A");
        b = p.addTag(p.subFolder, cotSource, "B", 19, 1, 2, "B");
        c = p.addTag(p.subFolder, cotSource, "C", 19, 1, 0, "C");
    }
    HostObject *a, *b, *c;
};

TEST_F(Deleting, TreeRowsGoWithTheirTags) {
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        ShowSet(f, "ICC_1/DataSet_1");
        // Refused: a folder row, a data set row, a member of a structure.
        Press(f, {kIcc1});
        Press(f, {kIcc1.mid(0, 2) + QStringList{"Наборы данных (DataSets)", "DataSet_1"}});
        Press(f, {{"Переменные", "TASE2_Version", "MajorVersionNumber"}}, Qt::Key_X,
              Qt::ControlModifier);
        // Tags of mode 0 aren't shown: the memberships go, rows and tags stay.
        Press(f, {kIcc1 + QStringList("Q1_2"), kIcc1 + QStringList("A_4")});
        EXPECT_EQ(ChildTexts(*f->pTreeIedModel, Row(f, kIcc1)),
                  QStringList({"Q1_2", "A_4", "B_5", "C_6"}));
        EXPECT_EQ(DataSetOf(ICC(1)->DataSets, 1)->Elems.Count, 4);
        // The list isn't filled again: it shows the keys that went.
        EXPECT_EQ(f->lWInfo_2->item(0)->text(), "ICC_1/A_4");

        ShowReceived(f);
        QSignalSpy removing(f->pTreeIedModel, &QAbstractItemModel::rowsAboutToBeRemoved);
        p.host.failParam("isinDataSet", HostProject::FailRead);
        Press(f, {kIcc1 + QStringList("C_6")}, Qt::Key_X, Qt::ControlModifier);
        p.host.clearFaults();
        // B is told at its row before Q1 went; an ICC row has no tag and stays.
        f->tVIed->setCurrentIndex(Row(f, kIcc1 + QStringList("C_6")));
        Press(f, {kIcc1 + QStringList("Q1_2"),
                  kIcc1 + QStringList("B_5"),
                  {"Inter Control Center's (ICC)", "ICC_2"}});
        EXPECT_EQ(ChildTexts(*f->pTreeIedModel, Row(f, kIcc1)), QStringList({"A_4", "C_6"}));
        ASSERT_EQ(removing.size(), 2);
        EXPECT_EQ(removing[1].mid(1), QVariantList({2, 2}));
        EXPECT_NE(f->tVIed->currentIndex().data(), "B_5");
        EXPECT_EQ(f->tVIed->selectionModel()->selectedRows().value(0).data(), "ICC_2");
        // The stale row is past the end: the row of the variable is told.
        Press(f, {kIcc1 + QStringList("A_4"), kIcc1 + QStringList("C_6")});
        EXPECT_EQ(removing[3].mid(1), QVariantList({0, 0}));
        EXPECT_GE(ICC(1)->Vars.IndexOf("B_5"), 0);
        EXPECT_EQ(f->pTagsModel->rowCount(f->pTagsModel->index(0, 0)), 0);
    });
    EXPECT_EQ(BoxTexts(), QStringList({"|Объект нельзя удалить", "|Объект нельзя удалить",
                                       "|Объект нельзя удалить"}));
    for (HostObject* gone : {p.tagState, a, b, c})
        EXPECT_EQ(HostObject::fromHandle(gone), nullptr);
    // The tester sees the stale row: the row told gone still shows B_5.
    const QStringList stale = modelWarnings.filter("(c.last) QVariant(QString,B_5)");
    EXPECT_EQ(stale.size(), 1);
    for (const QString& warning : stale)
        modelWarnings.removeAll(warning);
    EXPECT_FALSE(Datarun(p.unit).contains("<ElemDS name=\"ICC_1/"));
}

TEST_F(Deleting, MembersLeaveTheirSetByTheContentList) {
    p.tagReal->set("isinDataSet", 1);
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        ShowSet(f, "ICC_1/DataSet_1", {"ICC_1/Q1_2"});
        QTest::keyClick(f->lWInfo_2, Qt::Key_Delete);
        // A refused write takes the member out all the same.
        p.host.failParam("isinDataSet", HostProject::FailWrite);
        ShowSet(f, "ICC_1/DataSet_1", {"ICC_1/A_4"});
        f->actDelFromDS->trigger();
        p.host.clearFaults();
        EXPECT_EQ(p.tagState->get("isinDataSet").toInt() * 10 + a->get("isinDataSet").toInt(), 1);
        EXPECT_EQ(f->lWInfo_2->count() + DataSetOf(ICC(1)->DataSets, 1)->Elems.Count, 8);
        ShowSet(f, "DataSet_1", {"Freq_1"});
        QTest::keyClick(f->lWInfo_2, Qt::Key_X, Qt::ControlModifier);
        // The command without a control cuts the set out of the references.
        DcICCPBase* cVar = Var(ICC(1)->Vars, "C_6");
        cVar->refDS = "DataSet_1;ICC_1/DataSet_3;x;";
        DataSetOf(ICC(1)->DataSets, 3)->AddObRef(cVar);
        ShowSet(f, "ICC_1/DataSet_3", {"ICC_1/C_6"});
        f->OnDelObFromDS();
        EXPECT_EQ(cVar->refDS, "DataSet_1;x;");
        EXPECT_EQ(DataSetOf(ICC(1)->DataSets, 3)->Elems.Count, 4);

        IEDTreeModel* m = f->pTreeIedModel;
        // The tags' folder goes with its variables; B_5's row goes without a write.
        ShowSet(f, "ICC_1/DataSet_2", {"ICC_1/B_5"});
        ShowReceived(f);
        f->tVTags->setCurrentIndex(RowOf(*f->pTagsModel, p.subFolder));
        boxes.answerNext(QMessageBox::Ok);
        f->DelFromtVTags();
        EXPECT_EQ(ChildTexts(*m, Row(f, kIcc1)), QStringList());
        EXPECT_EQ(ICC(1)->Vars.Count, 0);
        EXPECT_TRUE(f->tVIed->isExpanded(Row(f, kIcc1)));
        QTest::keyClick(f->lWInfo_2, Qt::Key_Delete);
        EXPECT_EQ(f->lWInfo_2->count(), 4);
    });
    EXPECT_EQ(BoxTexts(), QStringList("Предупреждение|Удаление  1 элементов "));
    EXPECT_EQ(p.tagReal->get("isinDataSet"), 0);
    for (HostObject* gone : {p.tagState, a, b, c})
        EXPECT_EQ(HostObject::fromHandle(gone), nullptr);
    const QByteArray datarun = Datarun(p.unit);
    EXPECT_FALSE(datarun.contains("<ElemDS name=\"ICC_1/") ||
                 datarun.contains("<ElemDS name=\"Freq") || datarun.contains("\"C_6\""));
    EXPECT_TRUE(datarun.contains("<DcDA  name = \"Freq_1\""));
}

TEST_F(Deleting, UnitsAndStructuresLeaveByTheirLists) {
    p.tagPass->set("isinDataSet", 1);
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        // A structure's delete leaves its set and, by its signal, the next one.
        DcICCPBase* power = Var(ICC(2)->Vars, "P_3");
        DataSetOf(ICC(2)->DataSets, 2)->AddObRef(power);
        ShowSet(f, "ICC_2/DataSet_3");
        f->tVTags->setCurrentIndex(RowOf(*f->pTagsModel, p.tagPass));
        boxes.answerNext(QMessageBox::Ok);
        DeleteIn(f, f->tVTags);
        EXPECT_EQ(DataSetOf(ICC(2)->DataSets, 1)->Elems.Count +
                      DataSetOf(ICC(2)->DataSets, 2)->Elems.Count,
                  8);
        EXPECT_EQ(f->lWInfo_2->count(), 0);
        EXPECT_EQ(ICC(2)->Vars.Count + f->pTreeIedModel->rowCount(Row(f, kIcc2)), 0);

        // Tag keys cleared by the command without a control, for tags only.
        ShowReceived(f);
        a->set("tag_id", "ICC_1/A_4");
        QSignalSpy changed(f->pTagsModel, &QAbstractItemModel::dataChanged);
        f->tVTags->selectionModel()->select(RowOf(*f->pTagsModel, p.subFolder),
                                            QItemSelectionModel::Select);
        f->tVTags->selectionModel()->select(RowOf(*f->pTagsModel, a), QItemSelectionModel::Select);
        f->OnDelTaseFld();
        EXPECT_EQ(a->get("tag_id").toByteArray() + a->get("tag_type").toByteArray(), "0");
        EXPECT_EQ(changed.size(), 1);

        // The unit list: its only unit is refused; a second one goes after Ok.
        DeleteIn(f, f->lW_ieds);
        auto second = new QListWidgetItem("Сервер 2", f->lW_ieds);
        second->setData(Qt::UserRole, QVariant::fromValue<void*>(p.unit2));
        f->lW_ieds->setCurrentItem(second);
        boxes.answerNext(QMessageBox::Cancel);
        DeleteIn(f, f->lW_ieds);
        boxes.answerNext(QMessageBox::Ok);
        DeleteIn(f, f->lW_ieds);
        EXPECT_EQ(f->lW_ieds->count(), 1);
        EXPECT_EQ(f->tVIed->model(), nullptr);
    });
    EXPECT_EQ(BoxTexts(), QStringList({"Предупреждение|Удаление  1 элементов ",
                                       "Предупреждение|Устройство последнее, его можно удалять "
                                       "вместе \n с направлением в основной программе",
                                       "Предупреждение|Удалить устройство Сервер 2 (№ 2)",
                                       "Предупреждение|Удалить устройство Сервер 2 (№ 2)"}));
    EXPECT_EQ(HostObject::fromHandle(p.unit2), nullptr);
    EXPECT_EQ(HostObject::fromHandle(p.tagPass), nullptr);
    EXPECT_FALSE(Datarun(p.unit).contains("P_3"));
}
