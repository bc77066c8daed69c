// A small host project in memory for the tests: a project with a direction,
// one line and two units. The first unit has a base folder of each of the
// four kinds, a sub-folder under the source folder, and a few tags.
#pragma once

#include "host/HostProject.h"

struct SmallProject {
    SmallProject();

    // A tag of `kind` under `parent` with its binding fields set.
    HostObject* addTag(HostObject* parent, int kind, const QByteArray& name, int type, int domain,
                       int dataSet, const QString& caption);
    // The table of services, as the host hands it to the plug-in.
    void* table() const { return HostProject::table(); }

    HostProject host;
    HostObject* project;
    HostObject* direct;
    HostObject* line;
    HostObject* unit;      // maxICC 2, maxDS 3
    HostObject* unit2;     // limits at their defaults
    HostObject* folder[4]; // base folder of each mode
    HostObject* subFolder; // "Ячейка 1" under folder[0]
    HostObject* tagReal;   // Data_Real in the VCC, under folder[0]
    HostObject* tagState;  // Data_State in ICC_1, data set 1, under subFolder
    HostObject* tagPass;   // Data_RealQ in ICC_2, under folder[1]
};
