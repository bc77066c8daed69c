// The host property tree of tVProp, its edits and editors.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"

#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/CpropNode.h"
#include "views/PropDelegate.h"
#include "views/PropTreeModel.h"
#include "views/UnitTagsModel.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>

namespace {

// Every row as "caption=value", a group row as "[caption]".
QStringList Rows(const PropTreeModel& m, const QModelIndex& parent = QModelIndex()) {
    QStringList rows;
    for (int r = 0; r < m.rowCount(parent); ++r) {
        const QModelIndex row = m.index(r, 0, parent);
        rows << (parent.isValid()
                     ? row.data().toString() + "=" + row.sibling(r, 1).data().toString()
                     : "[" + row.data().toString() + "]")
             << Rows(m, row);
    }
    return rows;
}

// Column 1 of the shown row of the key.
QModelIndex KeyRow(const PropTreeModel& m, const QString& key) {
    for (int g = 0; g < m.rowCount(); ++g)
        for (int r = 0; r < m.rowCount(m.index(g, 0)); ++r) {
            const QModelIndex row = m.index(r, 1, m.index(g, 0));
            if (static_cast<CpropNode*>(row.data(Qt::UserRole).value<void*>())->key == key)
                return row;
        }
    return QModelIndex();
}

QWidget* OpenEditor(QTreeView* view, const QModelIndex& index) {
    view->edit(index);
    return view->indexWidget(index);
}

void PressEnter(QWidget* editor) {
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
}

} // namespace

using PropTree = FormTest;

TEST_F(PropTree, GroupsRowsAndTheHiddenProcessingGroup) {
    pGlobcfgInterface = HostProject::table();
    PropTreeModel m;
    QAbstractItemModelTester tester(&m, QAbstractItemModelTester::FailureReportingMode::Warning);

    // A tag: described rows by group, the rest by host captions.
    const QString number = p.tagReal->get("number").toString();
    m.setRootNode(p.tagReal);
    EXPECT_EQ(Rows(m), QStringList({"[Базовые свойства]", "Номер в конфигурации=" + number,
                                    "Использование=true", "[Собственные свойства]",
                                    "Описание=Частота", "Ключ привязки=", "Имя переменной=Freq",
                                    "Тип переменной=Data_Real", "Область (ICC)=VCC",
                                    "Набор данных=Нет", "Выбор перед управлением (SBO)=0"}));
    const auto node = [&](const char* key) {
        return static_cast<CpropNode*>(KeyRow(m, key).data(Qt::UserRole).value<void*>());
    };
    EXPECT_EQ(node("using")->getTypeDelegate(), 2);
    EXPECT_EQ(node("domain")->getTypeDelegate(), 3);
    EXPECT_EQ(node("presentSBO")->getTypeDelegate(), 2);

    // The hidden processing group with the dependents of its value.
    const QList<QPair<int, QStringList>> byType = {
        {1, {"Множитель", "Смещение", "Апертура", "Обнуление"}}, {2, {"Инверсия"}}, {0, {}}};
    for (const auto& type : byType) {
        p.tagReal->set("procType", type.first);
        m.setRootNode(p.tagReal);
        ASSERT_TRUE(m.TreatGroup);
        ASSERT_EQ(m.TreatGroup->children.size(), 1);
        QStringList captions;
        for (CpropNode* dependent : m.TreatGroup->children[0]->children)
            captions << dependent->caption;
        EXPECT_EQ(captions, type.second) << type.first;
    }

    // A unit: hidden and multi-line parameters, a check state, fixed limits.
    p.unit->set("$DATARUN", QByteArray("<a/>\r\n").repeated(1000));
    m.setRootNode(p.unit);
    EXPECT_EQ(m.TreatGroup, nullptr);
    const QModelIndex blob = KeyRow(m, "$DATARUN");
    EXPECT_EQ(blob.sibling(blob.row(), 0).data().toString(), "Модель ICCP");
    EXPECT_LT(PropDelegate().sizeHint(QStyleOptionViewItem(), blob).height(), 40);
    const QModelIndex complete = KeyRow(m, "sclcomplete");
    EXPECT_FALSE(complete.data().isValid());
    EXPECT_EQ(complete.data(Qt::CheckStateRole), int(Qt::Unchecked));
    EXPECT_FALSE(m.flags(KeyRow(m, "maxICC")) & Qt::ItemIsEditable);
    EXPECT_TRUE(m.flags(KeyRow(m, "ied_name")) & Qt::ItemIsEditable);

    m.setRootNode(nullptr);
    EXPECT_EQ(m.rowCount(), 0);
}

TEST_F(PropTree, EditsReachTheHostAndRefusedOnesComeBack) {
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        PropTreeModel* m = f->pPropTree;
        ASSERT_EQ(f->tVProp->model(), m);
        // The unit's own caption renames its row in the unit list.
        EXPECT_TRUE(m->setData(KeyRow(*m, "caption"), "Сервер А"));
        EXPECT_EQ(p.unit->get("caption").toString(), "Сервер А");
        EXPECT_TRUE(f->lW_ieds->currentItem()->text().contains("Сервер А"));

        const QModelIndex maxICC = KeyRow(*m, "maxICC");
        EXPECT_TRUE(m->setData(maxICC, "5"));
        EXPECT_EQ(maxICC.data().toString(), "2");
        EXPECT_EQ(p.unit->get("maxICC").toInt(), 2);
        EXPECT_EQ(BoxTexts(), QStringList("Предупреждение|Для задания значений этого поля, "
                                          "воспользуйтесь основным конфигуратором"));

        // Out of the host's range: the old value, in the host and the row.
        f->OntVTagsClick(f->pTagsModel->index(0, 0));
        const QModelIndex sbo = KeyRow(*m, "presentSBO");
        EXPECT_TRUE(m->setData(sbo, "5"));
        EXPECT_EQ(sbo.data().toString(), "0");
        EXPECT_EQ(p.tagPass->get("presentSBO").toInt(), 0);
        EXPECT_EQ(f->statusBar->currentMessage(),
                  "Значение не принято: Выбор перед управлением (SBO)");
        EXPECT_TRUE(m->setData(sbo, "1"));
        EXPECT_EQ(p.tagPass->get("presentSBO").toInt(), 1);
    });
}

TEST_F(PropTree, TheEditorsOfTheFormMoveATagsVariable) {
    const QString name = "P_" + p.tagPass->get("number").toString();
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        // The unit's address takes an IPv4 address only.
        auto addr =
            qobject_cast<QLineEdit*>(OpenEditor(f->tVProp, KeyRow(*f->pPropTree, "ied_addr")));
        ASSERT_TRUE(addr);
        addr->setText("256.0.0.1");
        EXPECT_FALSE(addr->hasAcceptableInput());
        PressEnter(addr);
        EXPECT_EQ(p.unit->get("ied_addr").toByteArray(), "");
        addr->setText("10.0.0.1");
        PressEnter(addr);
        EXPECT_EQ(p.unit->get("ied_addr").toByteArray(), "10.0.0.1");

        // The tag clicked in the tag view, its owner chosen among the ICCs that the unit has.
        const QModelIndex tag = f->pTagsModel->index(0, 0);
        QTest::mouseClick(f->tVTags->viewport(), Qt::LeftButton, {},
                          f->tVTags->visualRect(tag).center());
        ASSERT_EQ(f->tVProp->model(), f->pPropTree);
        auto domain =
            qobject_cast<QComboBox*>(OpenEditor(f->tVProp, KeyRow(*f->pPropTree, "domain")));
        ASSERT_TRUE(domain);
        EXPECT_EQ(domain->count(), 3);
        EXPECT_EQ(domain->currentText(), "ICC_2");
        domain->setEditText("ICC_1");
        PressEnter(domain);
        EXPECT_EQ(p.tagPass->get("domain").toInt(), 1);
        EXPECT_NE(Var(ICC(1)->Vars, name.toStdString()), nullptr);
        EXPECT_EQ(f->tVProp->model(), nullptr);
    });
}
