// The property pane of the unit and of a tag chosen in the form: the rows
// that the description tables name, with their captions, edit rights and
// editors.
#include "common/FormFixture.h"
#include "form/CfgIecArven.h"
#include "plugin/HostDescTables.h"
#include "views/CpropNode.h"

using PropPane = FormTest;

TEST_F(PropPane, RowsTakeCaptionsAndFlagsOfTheTables) {
    // "group/caption: table's editable byte, ItemIsEditable of the value
    // cell, editor (1 check box, 2 line edit, 3 list)". A described row is
    // edited as text.
    QStringList unitRows, tagRows;
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        for (auto [ob, rows] : {std::pair{p.unit, &unitRows}, {p.tagReal, &tagRows}}) {
            f->SetPropModel(ob->handle());
            const QAbstractItemModel* m = f->tVProp->model();
            ASSERT_NE(m, nullptr);
            EXPECT_EQ(m->headerData(0, Qt::Horizontal).toString() + "|" +
                          m->headerData(1, Qt::Horizontal).toString(),
                      "Свойство|Значение");
            for (int g = 0; g < m->rowCount(); ++g) {
                const QModelIndex group = m->index(g, 0);
                for (int r = 0; r < m->rowCount(group); ++r) {
                    auto node = static_cast<CpropNode*>(m->index(r, 0, group).internalPointer());
                    const bool cell = m->flags(m->index(r, 1, group)) & Qt::ItemIsEditable;
                    *rows << QString("%1/%2: %3 %4 %5")
                                 .arg(group.data().toString(), node->caption)
                                 .arg(node->editable)
                                 .arg(cell)
                                 .arg(node->getTypeDelegate());
                }
            }
        }
    });
    EXPECT_EQ(unitRows.mid(0, 4).join('\n').toStdString(),
              "Базовые свойства/Номер в конфигурации: 0 1 2\nБазовые свойства/Протокол: 0 1 2\n"
              "Базовые свойства/Наименование: 1 1 2\nБазовые свойства/Использование: 1 1 2");
    // A limit isn't described: the host's caption, and no edit in the pane.
    EXPECT_TRUE(unitRows.contains("Собственные свойства/Число ICC: 1 0 2"))
        << qPrintable(unitRows.join('\n'));
    EXPECT_EQ(tagRows.mid(0, 2).join('\n').toStdString(),
              "Базовые свойства/Номер в конфигурации: 0 1 2\n"
              "Базовые свойства/Использование: 1 1 2");
}

// The table that describes each kind, known by its last row; none, with a count of 0, for a
// project.
TEST(DescTables, OneTableForEachKind) {
    const std::pair<TCfgObjectType, QString> kinds[] = {
        {cotControlPass, "procType"}, {cotUnit, "template"},
        {cotLine, "startDelay"},      {cotDirect, "t9"},
        {cotFolderSource, "using"},   {cotProject, "0"}};
    for (const auto& [kind, last] : kinds) {
        int count = -1;
        const AddDescNode* table = GetAddDescByCIONode(kind, count);
        EXPECT_EQ(table ? QString(table[count - 1].key) : QString::number(count), last) << kind;
    }
}
