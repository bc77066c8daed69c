// The built library, loaded by path and reached by the exports' names alone,
// as the host configurator reaches it.
#include "common/MessageBoxRecorder.h"
#include "common/SmallProject.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

TEST(LoadedPlugin, RefusesACallWithoutALine) {
    MessageBoxRecorder boxes;
    void* lib = dlopen(ICCP_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(lib, nullptr) << dlerror();
    using FormGet = void* (*)(void*, void*, void*, void*);
    using Version = void (*)(uint64_t*, uint64_t*, uint64_t*, void*, const char**);
    auto formGet = reinterpret_cast<FormGet>(dlsym(lib, "CfgFormGet"));
    auto version = reinterpret_cast<Version>(dlsym(lib, "CfgVersion"));
    ASSERT_NE(formGet, nullptr);
    ASSERT_NE(dlsym(lib, "CfgFormPut"), nullptr);
    ASSERT_NE(version, nullptr);
    // Nothing else of the module is exported.
    EXPECT_EQ(dlsym(lib, "_Z15InspectRecvDatav"), nullptr);
    EXPECT_EQ(dlsym(lib, "pGlobcfgInterface"), nullptr);

    SmallProject p;
    EXPECT_EQ(formGet(p.table(), nullptr, p.unit, nullptr), nullptr);
    EXPECT_EQ(boxes.count(), 1);
    uint64_t major = 0;
    version(&major, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(major, 2u);
}
