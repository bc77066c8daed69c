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
    ASSERT_EQ(boxes.count(), 1);
    EXPECT_EQ(boxes.boxes()[0].title, "Message");
    EXPECT_EQ(boxes.boxes()[0].text, "Ошибка в параметрах вызова\nНет указателя на линию");
    EXPECT_EQ(boxes.boxes()[0].buttons, QMessageBox::Ok);

    uint64_t major = 0, minor = 0, build = 7;
    version(&major, &minor, &build, nullptr, nullptr);
    EXPECT_EQ(major, 2u);
    EXPECT_EQ(minor, 1u);
    EXPECT_EQ(build, 0u);
}
