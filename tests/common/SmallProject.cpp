#include "SmallProject.h"

#include <QString>

SmallProject::SmallProject() {
    project = host.create(nullptr, cotProject);
    project->set("caption", QString("Проект"));
    direct = host.create(project, cotDirect);
    direct->set("caption", QString("Направление"));
    line = host.create(direct, cotLine);
    line->set("caption", QString("Линия"));
    unit = host.create(direct, cotUnit, 0, "IecArven");
    unit->set("caption", QString("Сервер 1"));
    unit->set("maxICC", 2);
    unit->set("maxDS", 3);
    unit2 = host.create(direct, cotUnit, 0, "IecArven");
    unit2->set("caption", QString("Сервер 2"));
    const char* const folderNames[] = {"Принимаемые", "Передаваемые", "Управление принимаемое",
                                       "Управление передаваемое"};
    for (int mode = 0; mode < 4; ++mode) {
        folder[mode] = host.create(unit, mode + 8, 0, "Arven");
        folder[mode]->set("caption", QString(folderNames[mode]));
    }
    subFolder = host.create(folder[0], cotFolderSource, 0, "IecOrmelcli");
    subFolder->set("caption", QString("Ячейка 1"));
    tagReal = addTag(folder[0], cotSource, "Freq", 4, 0, 0, "Частота");
    tagState = addTag(subFolder, cotSource, "Q1", 19, 1, 1, "Выключатель Q1");
    tagPass = addTag(folder[1], cotPass, "P", 28, 2, 0, "Мощность");
}

HostObject* SmallProject::addTag(HostObject* parent, int kind, const QByteArray& name, int type,
                                 int domain, int dataSet, const QString& caption) {
    HostObject* tag = host.create(parent, kind, 0, "IecArven");
    tag->set("tag_name", name);
    tag->set("tag_type", type);
    tag->set("domain", domain);
    tag->set("isinDataSet", dataSet);
    tag->set("caption", caption);
    return tag;
}
