// The units of a project as iccp-host numbers them: every unit of every
// direction, in the project's order.
#pragma once

#include "host/HostProject.h"

#include <QString>

// The unit numbered `index` and the line the form is opened with, the first
// of the unit's direction; false with `error` set when there is none.
bool PickUnit(const HostProject& project, int index, HostObject*& unit, HostObject*& line,
              QString& error);

// One line per unit: its number for --unit, its direction, its host number,
// caption and VCC name.
void ListUnits(const HostProject& project);
