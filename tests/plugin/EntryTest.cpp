// The plug-in's entries and the run state they keep.
#include "ScriptedHost.h"
#include "common/MessageBoxRecorder.h"
#include "plugin/CfgIecArvenlib.h"

#include <QWidget>
#include <gtest/gtest.h>

namespace {

const char* const noLineText = "Ошибка в параметрах вызова\nНет указателя на линию";

class Entry : public ::testing::Test {
protected:
    void SetUp() override {
        RecvLine = RecvUnit = OldRecvUnit = RecvTag = ObPrj = pCfgDirect = nullptr;
        ICCdata = {0, 0};
        boxes.setDialogHandler([](QWidget* w) { return w->close(); }); // the form closes at once
    }
    SmallProject p;
    TableInUse table;
    MessageBoxRecorder boxes;
};

} // namespace

TEST_F(Entry, InspectRecvDataRoads) {
    // No line: the box, and nothing asked of the host.
    p.host.resetCalls();
    RecvUnit = p.unit;
    EXPECT_FALSE(InspectRecvData());
    ASSERT_EQ(boxes.count(), 1);
    const RecordedBox& box = boxes.boxes()[0];
    EXPECT_EQ(box.title + "|" + box.text, QString("Message|") + noLineText);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
    EXPECT_EQ(box.icon, QMessageBox::Information);
    EXPECT_EQ(p.host.calls(slotObOwner), 0);

    RecvLine = p.project; // no owner: refused in silence
    EXPECT_FALSE(InspectRecvData());
    EXPECT_EQ(pCfgDirect, nullptr);
    RecvLine = p.line;
    RecvUnit = nullptr; // no unit: refused, the owner kept
    EXPECT_FALSE(InspectRecvData());
    EXPECT_EQ(ObPrj, p.direct);
    EXPECT_EQ(pCfgDirect, p.direct);
    RecvUnit = p.unit;
    EXPECT_TRUE(InspectRecvData());
    EXPECT_EQ(boxes.count(), 1);
}

TEST_F(Entry, LimitsOfTheUnit) {
    void* unit = p.unit;
    // Each unreadable limit falls back to 1 on its own.
    p.host.failParam("maxICC", HostProject::FailRead);
    FillProtICCPData(unit);
    EXPECT_EQ(ICCdata.maxICC, 1);
    EXPECT_EQ(ICCdata.maxDS, 3);
    p.host.clearFaults();

    // Anything but a unit gives 1 and 1 without a read.
    p.host.resetCalls();
    void* line = p.line;
    ICCdata = {7, 7};
    FillProtICCPData(line);
    EXPECT_EQ(ICCdata.maxICC + ICCdata.maxDS, 2);
    EXPECT_EQ(p.host.calls(slotPropGet), 0);

    // The tag of the value read isn't examined.
    ScriptedHost host;
    host.value.type = cptText;
    host.value.intValue = 5;
    FillProtICCPData(unit);
    EXPECT_EQ(ICCdata.maxICC, 5);
    EXPECT_EQ(ICCdata.maxDS, 5);
}

TEST_F(Entry, CfgFormGetStoresArgumentsAndRefuses) {
    int tag = 0;
    // No line: the box, null, the arguments stored all the same, no limits read.
    EXPECT_EQ(CfgFormGet(p.table(), nullptr, p.unit, &tag), nullptr);
    EXPECT_EQ(boxes.count(), 1);
    EXPECT_EQ(RecvUnit, p.unit);
    EXPECT_EQ(RecvTag, &tag);
    EXPECT_EQ(ICCdata.maxICC, 0);
    // No unit: null in silence; the earlier unit is remembered.
    EXPECT_EQ(CfgFormGet(p.table(), p.line, nullptr, nullptr), nullptr);
    EXPECT_EQ(OldRecvUnit, p.unit);
    EXPECT_EQ(ICCdata.maxICC, 0);
    // A null unit isn't copied over the remembered one.
    EXPECT_EQ(CfgFormGet(p.table(), p.line, p.unit2, nullptr), FCfgArvenSR);
    EXPECT_EQ(OldRecvUnit, p.unit);
    EXPECT_EQ(ICCdata.maxICC, 1);
    EXPECT_EQ(CfgFormGet(p.table(), p.line, p.unit, nullptr), FCfgArvenSR);
    EXPECT_EQ(ICCdata.maxDS, 3);
}
