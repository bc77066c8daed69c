// The built library, reached by the exports' names alone, as the host reaches it.
#include "common/MessageBoxRecorder.h"
#include "common/SmallProject.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

TEST(LoadedPlugin, RefusesACallWithoutALine) {
    MessageBoxRecorder boxes;
    void* lib = dlopen(ICCP_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(lib, nullptr) << dlerror();
    auto formGet =
        reinterpret_cast<void* (*)(void*, void*, void*, void*)>(dlsym(lib, "CfgFormGet"));
    ASSERT_NE(formGet, nullptr);
    EXPECT_NE(dlsym(lib, "CfgFormPut"), nullptr);
    EXPECT_NE(dlsym(lib, "CfgVersion"), nullptr);
    // Nothing else of the module is exported.
    EXPECT_EQ(dlsym(lib, "_Z15InspectRecvDatav"), nullptr);
    EXPECT_EQ(dlsym(lib, "pGlobcfgInterface"), nullptr);
    SmallProject p;
    EXPECT_EQ(formGet(p.table(), nullptr, p.unit, nullptr), nullptr);
    EXPECT_EQ(boxes.count(), 1);
}
