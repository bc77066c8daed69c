// The plug-in's entries and the run state they keep.
#include "ScriptedHost.h"
#include "common/MessageBoxRecorder.h"
#include "common/SmallProject.h"
#include "plugin/CfgIecArvenlib.h"

#include <QWidget>
#include <gtest/gtest.h>

namespace {

const char* const noLineText = "Ошибка в параметрах вызова\nНет указателя на линию";

class Entry : public ::testing::Test {
protected:
    void SetUp() override {
        pGlobcfgInterface = HostProject::table();
        RecvLine = RecvUnit = OldRecvUnit = RecvTag = ObPrj = pCfgDirect = nullptr;
        ICCdata = {0, 0};
        // A form that opens is closed again at once.
        boxes.setDialogHandler([](QWidget* w) { return w->close(); });
    }
    void TearDown() override { pGlobcfgInterface = nullptr; }

    SmallProject p;
    MessageBoxRecorder boxes;
};

} // namespace

TEST_F(Entry, InspectRecvDataRoads) {
    // No line: the box, and nothing asked of the host.
    p.host.resetCalls();
    RecvUnit = p.unit;
    EXPECT_FALSE(InspectRecvData());
    ASSERT_EQ(boxes.count(), 1);
    EXPECT_EQ(boxes.boxes()[0].title, "Message");
    EXPECT_EQ(boxes.boxes()[0].text, noLineText);
    EXPECT_EQ(boxes.boxes()[0].buttons, QMessageBox::Ok);
    EXPECT_EQ(boxes.boxes()[0].icon, QMessageBox::Information);
    EXPECT_EQ(p.host.calls(slotObOwner), 0);
    EXPECT_EQ(ObPrj, nullptr);

    // A line without an owner: refused in silence.
    RecvLine = p.project;
    EXPECT_FALSE(InspectRecvData());
    EXPECT_EQ(ObPrj, nullptr);
    EXPECT_EQ(pCfgDirect, nullptr);

    // No unit: refused in silence, but the owner is kept.
    RecvLine = p.line;
    RecvUnit = nullptr;
    EXPECT_FALSE(InspectRecvData());
    EXPECT_EQ(ObPrj, p.direct);
    EXPECT_EQ(pCfgDirect, p.direct);

    RecvUnit = p.unit;
    EXPECT_TRUE(InspectRecvData());
    EXPECT_EQ(pCfgDirect, p.direct);
    EXPECT_EQ(boxes.count(), 1);
}

TEST_F(Entry, LimitsOfTheUnit) {
    void* unit = p.unit;
    // Each unreadable limit falls back to 1 on its own.
    p.host.failParam("maxICC", HostProject::FailRead);
    FillProtICCPData(unit);
    EXPECT_EQ(ICCdata.maxICC, 1);
    EXPECT_EQ(ICCdata.maxDS, 3);
    p.host.failSlot(slotPropGet);
    FillProtICCPData(unit);
    EXPECT_EQ(ICCdata.maxICC, 1);
    EXPECT_EQ(ICCdata.maxDS, 1);
    p.host.clearFaults();

    // Anything but a unit gives 1 and 1 without a read.
    p.host.resetCalls();
    for (void* other :
         {static_cast<void*>(p.line), static_cast<void*>(p.tagReal), static_cast<void*>(nullptr)}) {
        ICCdata = {7, 7};
        FillProtICCPData(other);
        EXPECT_EQ(ICCdata.maxICC, 1);
        EXPECT_EQ(ICCdata.maxDS, 1);
    }
    EXPECT_EQ(p.host.calls(slotPropGet), 0);

    // The tag of the value read isn't examined.
    ScriptedHost host;
    host.value.type = cptText;
    host.value.intValue = 5;
    pGlobcfgInterface = host.table();
    void* any = &host;
    FillProtICCPData(any);
    EXPECT_EQ(ICCdata.maxICC, 5);
    EXPECT_EQ(ICCdata.maxDS, 5);
    EXPECT_EQ(host.reads, 2);
}

TEST_F(Entry, CfgFormGetStoresArgumentsAndRefuses) {
    int tag = 0;
    // No line: the box, null, the arguments stored all the same.
    EXPECT_EQ(CfgFormGet(p.table(), nullptr, p.unit, &tag), nullptr);
    ASSERT_EQ(boxes.count(), 1);
    EXPECT_EQ(boxes.boxes()[0].text, noLineText);
    EXPECT_EQ(RecvUnit, p.unit);
    EXPECT_EQ(RecvTag, &tag);
    EXPECT_EQ(OldRecvUnit, nullptr);
    EXPECT_EQ(ICCdata.maxICC, 0); // the limits aren't read on a refusal

    // No unit: null in silence; the earlier unit is remembered.
    EXPECT_EQ(CfgFormGet(p.table(), p.line, nullptr, nullptr), nullptr);
    EXPECT_EQ(OldRecvUnit, p.unit);
    EXPECT_EQ(ICCdata.maxICC, 0);
    // A null unit isn't copied over the remembered one; an accepted call
    // reads the limits of its unit.
    EXPECT_EQ(CfgFormGet(p.table(), p.line, p.unit2, nullptr), FCfgArvenSR);
    EXPECT_EQ(OldRecvUnit, p.unit);
    EXPECT_EQ(ICCdata.maxICC, 1);
    EXPECT_EQ(CfgFormGet(p.table(), p.line, p.unit, nullptr), FCfgArvenSR);
    EXPECT_EQ(ICCdata.maxICC, 2);
    EXPECT_EQ(ICCdata.maxDS, 3);
    EXPECT_EQ(boxes.count(), 1);
}

TEST(EntryExports, VersionAndPut) {
    CfgVersion(nullptr, nullptr, nullptr, nullptr, nullptr);
    uint64_t major = 9, minor = 9, build = 9;
    const char* author = nullptr;
    int untouched = 42;
    CfgVersion(&major, &minor, &build, &untouched, &author);
    EXPECT_EQ(major, 2u);
    EXPECT_EQ(minor, 1u);
    EXPECT_EQ(build, 0u);
    EXPECT_EQ(untouched, 42);
    ASSERT_NE(author, nullptr);

    SmallProject p;
    RecvUnit = p.unit;
    ICCdata = {3, 4};
    CfgFormPut(p.table(), p.line, p.unit, nullptr);
    EXPECT_EQ(RecvUnit, p.unit);
    EXPECT_EQ(ICCdata.maxICC, 3);
    EXPECT_EQ(ICCdata.maxDS, 4);
    RecvUnit = nullptr;
}
