// A small host project in memory for the tests: a project with a direction,
// one line and two units. The first unit has a base folder of each of the
// four kinds, a sub-folder under the source folder, and a few tags.
#pragma once

#include "host/HostProject.h"

#include <cstring>

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

// A parameter to add to an object.
inline HostParam Param(const char* name, TCfgPropType type, const QVariant& value,
                       const char* caption = "") {
    HostParam param;
    param.name = name;
    param.type = type;
    param.value = value;
    param.caption = caption;
    return param;
}

// A slot of the stand-in host's table, typed, as the plug-in calls it.
template <typename F> F HostSlot(int slot) {
    return reinterpret_cast<F>(HostProject::table()[slot]);
}

// A copy of the stand-in host's table in which a test replaces fns, for
// answers that a well-behaved host never gives; replacements reach the
// stand-in's own fns through HostSlot.
struct PatchedTable {
    PatchedTable() { memcpy(fns, HostProject::table(), sizeof fns); }
    template <typename F> void patch(int slot, F f) { fns[slot] = reinterpret_cast<TCfgSlotFn>(f); }
    TCfgSlotFn fns[cfgSlotCount];
};

extern TCfgSlotFn* pGlobcfgInterface; // the plug-in's, where a test links it

// The plug-in's table of services while the object lives (the stand-in's
// unless given); the one before comes back after.
struct TableInUse {
    explicit TableInUse(TCfgSlotFn* table = HostProject::table()) : old(pGlobcfgInterface) {
        pGlobcfgInterface = table;
    }
    ~TableInUse() { pGlobcfgInterface = old; }
    TableInUse(const TableInUse&) = delete;
    TableInUse& operator=(const TableInUse&) = delete;
    TCfgSlotFn* old;
};
