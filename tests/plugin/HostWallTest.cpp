// The wrappers over the host's table, against the stand-in host.
#include "plugin/HostWall.h"
#include "ScriptedHost.h"
#include "common/SmallProject.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/cfgCalls.h"

#include <gtest/gtest.h>

namespace {

class HostWall : public ::testing::Test {
protected:
    void SetUp() override { pGlobcfgInterface = HostProject::table(); }
    void TearDown() override { pGlobcfgInterface = nullptr; }
    SmallProject p;
};

} // namespace

TEST_F(HostWall, KindsAndTheirTexts) {
    EXPECT_TRUE(IsTag(p.tagPass));
    EXPECT_FALSE(IsTag(p.unit));
    EXPECT_FALSE(IsFlg(p.unit));
    EXPECT_TRUE(IsFlg(p.subFolder));
    // The tests compare signed: a failed kind of -1 counts as a tag.
    int local = 0;
    EXPECT_EQ(GetTypeObject(&local), -1);
    EXPECT_TRUE(IsTag(&local));
    EXPECT_FALSE(IsFlg(&local));

    const char* const strTypes[] = {
        "source",   "pass",   "controlsource",   "controlpass",  "", "", "", "",
        "f_source", "f_pass", "f_controlsource", "f_controlpass"};
    const char* const captions[] = {"tagSource", "tagPass", "tagContrSource", "tagContrPass"};
    for (int kind = -1; kind <= 12; ++kind) {
        const bool known = kind >= 0 && kind < 12;
        EXPECT_EQ(GetStrType(TCfgObjectType(kind)), known ? strTypes[kind] : "") << kind;
        EXPECT_EQ(GetDefCaption(TCfgObjectType(kind)), kind >= 0 && kind < 4 ? captions[kind] : "")
            << kind;
    }
}

TEST_F(HostWall, PropertyReads) {
    EXPECT_EQ(GetPropStrVal(p.tagState, "caption"), "Выключатель Q1");
    EXPECT_EQ(GetPropStrVal(p.tagReal, "using"), "true");
    EXPECT_EQ(GetPropStrVal(p.tagReal, "no such"), " ");
    // GetPropBool: the result, and `out` from false or true before.
    p.host.failParam("sclcomplete", HostProject::FailRead);
    const struct {
        const char* name;
        bool ok, fromFalse, fromTrue;
    } rows[] = {{"$CHECKED", true, true, true},
                {"maxICC", false, false, true}, // an int isn't a bool
                {"no such", false, false, true},
                {"sclcomplete", false, false, true}};
    for (const auto& r : rows)
        for (bool before : {false, true}) {
            bool out = before;
            EXPECT_EQ(GetPropBool(p.unit, r.name, out), r.ok) << r.name;
            EXPECT_EQ(out, before ? r.fromTrue : r.fromFalse) << r.name;
        }
}

TEST_F(HostWall, BlobReadResults) {
    QByteArray out("untouched");
    EXPECT_EQ(GetQByteArrfromObProb(p.unit, "$NOTHING", out), blobNoParam);
    EXPECT_EQ(GetQByteArrfromObProb(p.unit, "$DATARUN", out), blobEmpty);
    EXPECT_EQ(GetQByteArrfromObProb(p.unit, "maxDS", out), blobNotText);
    EXPECT_EQ(out, "untouched");
    p.host.failParam("$DATARUN", HostProject::FailRead);
    EXPECT_EQ(GetQByteArrfromObProb(p.unit, "$DATARUN", out), blobFailed);
    p.host.clearFaults();
    p.unit->set("$DATARUN", QByteArray("<DcVCC/>\r\n"));
    EXPECT_EQ(GetQByteArrfromObProb(p.unit, "$DATARUN", out), blobOk);
    EXPECT_EQ(out, "<DcVCC/>\r\n");
}

TEST_F(HostWall, TextWritesCountTheTerminatingZero) {
    ScriptedHost host;
    host.index = 6;
    pGlobcfgInterface = host.table();
    const QString text = "Ячейка №2";
    const QByteArray utf8 = text.toUtf8();
    EXPECT_TRUE(SetStr2PropOb(reinterpret_cast<void*>(1), "caption", text));
    EXPECT_EQ(host.writeSlot, slotPropSetAt);
    EXPECT_EQ(host.writeIndex, 6);
    EXPECT_EQ(host.written.type, cptText);
    EXPECT_EQ(host.written.length, utf8.size() + 1);
    EXPECT_EQ(host.writtenBytes, utf8 + QByteArray(1, '\0'));
    host.writeOk = false;
    EXPECT_FALSE(SetStr2PropOb(reinterpret_cast<void*>(1), "caption", text));

    host.writeOk = true;
    const QByteArray blob("<a/>\r\n");
    EXPECT_EQ(SetQByteArrToObProb(reinterpret_cast<void*>(1), "$DATARUN", blob), blobOk);
    EXPECT_EQ(host.writeSlot, slotPropSet);
    EXPECT_EQ(host.writeName, "$DATARUN");
    EXPECT_EQ(host.written.length, blob.size() + 1);
    EXPECT_EQ(host.writtenBytes, blob + QByteArray(1, '\0'));
    host.writeOk = false;
    EXPECT_EQ(SetQByteArrToObProb(reinterpret_cast<void*>(1), "$DATARUN", blob), blobFailed);
    host.index = -1;
    host.writeSlot = -1;
    EXPECT_EQ(SetQByteArrToObProb(reinterpret_cast<void*>(1), "$DATARUN", blob), blobNoParam);
    EXPECT_EQ(host.writeSlot, -1);
    pGlobcfgInterface = HostProject::table();

    // The stand-in host keeps the text without the zero.
    EXPECT_TRUE(SetStr2PropOb(p.subFolder, "caption", text));
    EXPECT_EQ(GetPropStrVal(p.subFolder, "caption"), text);
    // An unknown name reaches the host as index -1 and is refused there.
    EXPECT_FALSE(SetStr2PropOb(p.subFolder, "no such", text));
    p.host.failParam("$DATARUN", HostProject::FailWrite);
    EXPECT_EQ(SetQByteArrToObProb(p.unit, "$DATARUN", QByteArray("x")), blobFailed);
}

TEST_F(HostWall, ChildWalkAndTagListInfo) {
    p.host.resetCalls();
    EXPECT_TRUE(GetChildren(p.folder[3], cotControlPass).empty());
    EXPECT_EQ(p.host.calls(slotObChildCount), 1);
    EXPECT_EQ(p.host.calls(slotObChildList), 0); // nothing to list, no list call
    EXPECT_EQ(GetChildren(p.direct, cotUnit), (std::vector<void*>{p.unit, p.unit2}));
    EXPECT_EQ(p.host.calls(slotObChildList), 1);
    EXPECT_EQ(GetTagListInfo(p.unit), "  ");
    EXPECT_EQ(p.host.calls(slotObAllCount), 1);
    p.host.failSlot(slotObChildList);
    EXPECT_TRUE(GetChildren(p.direct, cotUnit).empty());
    p.host.clearFaults();

    // Hosts that list less than they count, or nulls among the children:
    // the walk keeps what is there.
    using List = std::vector<void*>;
    const struct {
        int (*list)(void*, int, void**, int);
        List children;
    } rows[] = {
        {[](void*, int, void**, int) { return -1; }, {}},
        {[](void* ob, int kind, void** out, int n) {
             return HostSlot<TcfgObChildList>(slotObChildList)(ob, kind, out, n) - 1;
         },
         {p.unit}},
        {[](void* ob, int kind, void** out, int n) {
             const int stored = HostSlot<TcfgObChildList>(slotObChildList)(ob, kind, out, n);
             out[0] = nullptr;
             return stored;
         },
         {p.unit2}},
        {[](void* ob, int kind, void** out, int n) {
             const int stored = HostSlot<TcfgObChildList>(slotObChildList)(ob, kind, out, n);
             out[1] = nullptr;
             return stored;
         },
         {p.unit}},
        {[](void*, int, void** out, int) {
             out[0] = out[1] = nullptr;
             return 2;
         },
         {}},
    };
    for (const auto& r : rows) {
        PatchedTable bad;
        bad.patch(slotObChildList, r.list);
        pGlobcfgInterface = bad.fns;
        EXPECT_EQ(GetChildren(p.direct, cotUnit), r.children) << &r - rows;
    }
}

TEST_F(HostWall, NoTableOrEmptySlotsGiveFailures) {
    TCfgSlotFn empty[cfgSlotCount] = {};
    for (TCfgSlotFn* table : {static_cast<TCfgSlotFn*>(nullptr), empty}) {
        pGlobcfgInterface = table;
        cfgParamValue v = {};
        cfgParamInfo info = {};
        void* list[1] = {nullptr};
        EXPECT_EQ(cfgObType(p.unit), -1);
        EXPECT_EQ(cfgObOwner(p.unit), nullptr);
        EXPECT_EQ(cfgObChildCount(p.unit, 8), 0);
        EXPECT_EQ(cfgObChild(p.unit, 8, 0), nullptr);
        EXPECT_EQ(cfgObChildList(p.unit, 8, list, 1), 0);
        EXPECT_EQ(cfgObFreeNumber(p.unit, 0), -1);
        EXPECT_EQ(cfgObClassText(p.unit, "title"), nullptr);
        EXPECT_FALSE(cfgPropInfo(p.unit, "maxICC", &info));
        EXPECT_FALSE(cfgPropInfoAt(p.unit, 0, &info));
        EXPECT_EQ(cfgPropCount(p.unit), 0);
        EXPECT_EQ(cfgPropName(p.unit, 0), nullptr);
        EXPECT_EQ(cfgPropIndex(p.unit, "maxICC"), -1);
        EXPECT_EQ(cfgObCreate(p.unit, 8, 0, "Arven"), nullptr);
        cfgObDelete(p.tagReal);
        EXPECT_FALSE(cfgPropGet(p.unit, "maxICC", &v));
        EXPECT_FALSE(cfgPropGetAt(p.unit, 0, &v));
        EXPECT_FALSE(cfgPropSet(p.unit, "maxICC", &v));
        EXPECT_FALSE(cfgPropSetAt(p.unit, 0, &v));
        EXPECT_FALSE(cfgObCheck(p.unit));
        EXPECT_EQ(cfgObAllCount(p.unit, 0), 0);
        EXPECT_EQ(GetPropStrVal(p.unit, "maxICC"), " ");
        EXPECT_FALSE(SetStr2PropOb(p.unit, "caption", "x"));
    }
    EXPECT_NE(HostObject::fromHandle(p.tagReal), nullptr);
}
