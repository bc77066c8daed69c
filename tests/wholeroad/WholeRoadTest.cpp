// Whole runs: the written blob and every host parameter the run changed.
#include "common/FormFixture.h"

#include "host/HostClasses.h"

#include <QMap>

namespace {

// Every parameter of every object, by the object's path.
using Snapshot = QMap<QString, QMap<QByteArray, QVariant>>;

// A unit by its caption, anything below it by its kind and number.
QString PathOf(const HostObject* ob) {
    if (ob->kind() == cotUnit)
        return ob->get("caption").toString();
    const QString own =
        QString::fromLatin1(KindName(ob->kind())) + "#" + ob->get("number").toString();
    return ob->owner() && ob->owner()->kind() != cotDirect ? PathOf(ob->owner()) + "/" + own : own;
}

void Take(const HostObject* ob, Snapshot& out) {
    QMap<QByteArray, QVariant>& params = out[PathOf(ob)];
    for (const HostParam& p : ob->params())
        params[p.name] = p.value;
    for (const HostObject* child : ob->children())
        Take(child, out);
}

Snapshot Take(const HostProject& host) {
    Snapshot out;
    for (const HostObject* root : host.roots())
        Take(root, out);
    return out;
}

// "path key=value" for each changed parameter, sorted; the blob only named.
QStringList Written(const Snapshot& before, const Snapshot& after) {
    QStringList out;
    for (auto ob = after.begin(); ob != after.end(); ++ob) {
        if (!before.contains(ob.key())) {
            out << ob.key() + " (new)";
            continue;
        }
        for (auto p = ob->begin(); p != ob->end(); ++p) {
            if (before[ob.key()].value(p.key()) == p.value())
                continue;
            const QString value = p.key() == "$DATARUN" ? QString("(model text)") : p->toString();
            out << ob.key() + " " + QString::fromUtf8(p.key()) + "=" + value;
        }
    }
    for (auto ob = before.begin(); ob != before.end(); ++ob)
        if (!after.contains(ob.key()))
            out << ob.key() + " (gone)";
    out.sort();
    return out;
}

QStringList GoldenLines(const char* name) {
    QStringList out = QString::fromStdString(Golden(name)).split('\n', Qt::SkipEmptyParts);
    out.sort();
    return out;
}

} // namespace

class WholeRoad : public FormTest {
protected:
    // Limits 2 and 2; tags of four kinds, nested, nameless, structures, twins.
    HostObject* NestedUnit() {
        HostObject* unit = AddUnit("Сервер A", 2, 2);
        HostObject* source = AddFolder(unit, cotFolderSource, 1, "Принимаемые");
        HostObject* cell = AddFolder(source, cotFolderSource, 2, "Ячейка");
        HostObject* cell2 = AddFolder(source, cotFolderSource, 7, "Ячейка 2");
        HostObject* pass = AddFolder(unit, cotFolderPass, 3, "Передаваемые");
        HostObject* ctrl = AddFolder(unit, cotFolderControlSource, 4, "Управление принимаемое");
        HostObject* ctrlPass = AddFolder(unit, cotFolderControlPass, 5, "Управление передаваемое");
        HostObject* setPoints = AddFolder(ctrlPass, cotFolderControlPass, 6, "Уставки");
        AddTag(source, cotSource, 1, "Freq", 4, 0, 1, 1, "Частота");
        AddTag(cell, cotSource, 2, "", 19, 1, 2, 1, "Выключатель");
        AddTag(cell, cotSource, 3, "Pos", 26, 2, 1, 1, "Положение");
        AddTag(cell2, cotSource, 4, "", 37, 1, 1, 0, "");
        AddTag(pass, cotPass, 5, "P", 17, 1, 1, 1, "Мощность");
        AddTag(pass, cotPass, 6, "", 28, 0, 2, 0, "Напряжение");
        AddTag(ctrl, cotControlSource, 7, "Cmd", 23, 2, 0, 1, "Команда");
        AddTag(setPoints, cotControlPass, 8, "", 22, 2, 2, 1, "Уставка");
        AddTag(unit, cotControlSource, 9, "Sel", 5, 1, 2, 1, "Выбор");
        return unit;
    }
};

TEST_F(WholeRoad, TagsOfAllKindsInNestedFolders) {
    HostObject* unit = NestedUnit();
    const Snapshot before = Take(p.host);
    OpenForm(unit);
    EXPECT_EQ(Datarun(unit).toStdString(), Golden("road_nested.txt"));
    EXPECT_EQ(Written(before, Take(p.host)), GoldenLines("road_nested_params.txt"));
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(WholeRoad, BadValuesGetTheirMessageOrSilence) {
    HostObject* unit = AddUnit("Сервер B", 1, 2);
    HostObject* folder = AddFolder(unit, cotFolderSource, 1, "Принимаемые");
    AddTag(folder, cotSource, 1, "Far", 4, 2, 0, 0, "За пределом");
    AddTag(folder, cotSource, 2, "", 17, -1, 0, 0, "Отрицательный");
    AddTag(folder, cotSource, 3, "", 40, 0, 0, 0, "");
    AddTag(folder, cotSource, 4, "T41", 41, 0, 0, 0, "");
    AddTag(folder, cotSource, 5, "", -1, 1, 0, 0, "");
    AddTag(folder, cotSource, 6, "Over", 19, 1, 3, 1, "Вне набора");
    AddTag(folder, cotSource, 7, "Neg", 17, 1, -1, 0, "Без набора");
    AddTag(folder, cotSource, 8, "Vset", 18, 0, 5, 1, "Флаг");
    AddTag(folder, cotSource, 9, "Ok", 14, 1, 2, 0, "Годный");
    const Snapshot before = Take(p.host);
    OpenForm(unit);
    EXPECT_EQ(Datarun(unit).toStdString(), Golden("road_bad.txt"));
    EXPECT_EQ(Written(before, Take(p.host)), GoldenLines("road_bad_params.txt"));
    // One box for each domain out of range, none for the rest.
    ASSERT_EQ(boxes.count(), 2);
    for (const RecordedBox& box : boxes.boxes()) {
        EXPECT_EQ(box.title, "");
        EXPECT_EQ(box.text, "Недопустимое значение ICC");
        EXPECT_EQ(box.icon, QMessageBox::Information);
    }
}
