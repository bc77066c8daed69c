#include "app/Units.h"

#include <cstdio>

bool PickUnit(const HostProject& project, int index, HostObject*& unit, HostObject*& line,
              QString& error) {
    const QList<HostObject*> units = project.findAll(cotUnit);
    if (index >= units.size()) {
        error = QString("the project has %1 unit(s); there is no unit %2 (--list shows them)")
                    .arg(units.size())
                    .arg(index);
        return false;
    }
    unit = units[index];
    const QList<HostObject*>& lines = unit->owner()->children(cotLine);
    if (lines.isEmpty()) {
        error = QString("the direction of unit %1 has no line").arg(index);
        return false;
    }
    line = lines.first();
    return true;
}

void ListUnits(const HostProject& project) {
    const QList<HostObject*> units = project.findAll(cotUnit);
    for (int i = 0; i < units.size(); ++i) {
        HostObject* unit = units[i];
        printf("%d\tdirection %d, unit %d\t%s\t%s\n", i, unit->owner()->get("number").toInt(),
               unit->get("number").toInt(), unit->get("caption").toByteArray().constData(),
               unit->get("ied_name").toByteArray().constData());
    }
    fflush(stdout);
}
