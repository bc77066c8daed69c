// A project of the stand-in host with one direction, one line and one unit
// of the given limits, for the benchmarks that open the form on it.
#pragma once

#include "host/HostProject.h"

struct BenchUnit {
    HostProject host;
    HostObject* line = nullptr;
    HostObject* unit = nullptr;

    BenchUnit(int maxICC, int maxDS) {
        HostObject* direct = host.create(host.create(nullptr, cotProject), cotDirect);
        line = host.create(direct, cotLine);
        unit = host.create(direct, cotUnit, 0, "IecArven");
        unit->set("maxICC", maxICC);
        unit->set("maxDS", maxDS);
    }
};
