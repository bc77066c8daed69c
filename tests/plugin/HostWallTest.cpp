// The wrappers over the host's table, against the stand-in host.
#include "plugin/HostWall.h"
#include "ScriptedHost.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/cfgCalls.h"

#include <gtest/gtest.h>

namespace {

class HostWall : public ::testing::Test {
protected:
    SmallProject p;
    TableInUse table;
};

} // namespace

TEST_F(HostWall, KindsAndTheirTexts) {
    EXPECT_TRUE(IsTag(p.tagPass));
    EXPECT_FALSE(IsTag(p.unit) || IsFlg(p.unit));
    EXPECT_TRUE(IsFlg(p.subFolder));
    // The tests compare signed: a failed kind of -1 counts as a tag.
    int local = 0;
    EXPECT_TRUE(IsTag(&local));
    EXPECT_FALSE(IsFlg(&local));
    const char* const strTypes[] = {
        "source",   "pass",   "controlsource",   "controlpass",  "", "", "", "",
        "f_source", "f_pass", "f_controlsource", "f_controlpass"};
    const char* const captions[] = {"tagSource", "tagPass", "tagContrSource", "tagContrPass"};
    for (int kind = -1; kind <= 12; ++kind) {
        EXPECT_EQ(GetStrType(TCfgObjectType(kind)), kind >= 0 && kind < 12 ? strTypes[kind] : "");
        EXPECT_EQ(GetDefCaption(TCfgObjectType(kind)), kind >= 0 && kind < 4 ? captions[kind] : "");
    }
}

TEST_F(HostWall, PropertyReads) {
    EXPECT_EQ(GetPropStrVal(p.tagState, "caption"), "Выключатель Q1");
    EXPECT_EQ(GetPropStrVal(p.tagReal, "no such"), " ");
    // GetPropBool: the result, and `out` from false or true before.
    p.host.failParam("sclcomplete", HostProject::FailRead);
    const struct {
        const char* name;
        bool ok, fromFalse;
    } rows[] = {{"$CHECKED", true, true}, {"maxICC", false, false}, {"sclcomplete", false, false}};
    for (const auto& r : rows)
        for (bool before : {false, true}) {
            bool out = before;
            EXPECT_EQ(GetPropBool(p.unit, r.name, out), r.ok) << r.name;
            EXPECT_EQ(out, before || r.fromFalse) << r.name;
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
    void* ob = p.unit;
    {
        ScriptedHost host;
        host.index = 6;
        const QString text = "Ячейка №2";
        EXPECT_TRUE(SetStr2PropOb(ob, "caption", text));
        EXPECT_EQ(host.writeSlot, slotPropSetAt);
        EXPECT_EQ(host.writeIndex, 6);
        EXPECT_EQ(host.writtenBytes, text.toUtf8() + QByteArray(1, '\0'));
        host.writeOk = false;
        EXPECT_FALSE(SetStr2PropOb(ob, "caption", text));

        host.writeOk = true;
        const QByteArray blob("<a/>\r\n");
        EXPECT_EQ(SetQByteArrToObProb(ob, "$DATARUN", blob), blobOk);
        EXPECT_EQ(host.writeSlot, slotPropSet);
        EXPECT_EQ(host.writeName, "$DATARUN");
        EXPECT_EQ(int(host.written.type), int(cptText)); // a copy: the record is packed
        EXPECT_EQ(host.writtenBytes, blob + QByteArray(1, '\0'));
        host.writeOk = false;
        EXPECT_EQ(SetQByteArrToObProb(ob, "$DATARUN", blob), blobFailed);
        host.index = -1;
        host.writeSlot = -1;
        EXPECT_EQ(SetQByteArrToObProb(ob, "$DATARUN", blob), blobNoParam);
        EXPECT_EQ(host.writeSlot, -1);
    }
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

    // Hosts that list less than they count, or nulls among children: what is there.
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
    };
    for (const auto& r : rows) {
        PatchedTable bad;
        bad.patch(slotObChildList, r.list);
        TableInUse use(bad.fns);
        EXPECT_EQ(GetChildren(p.direct, cotUnit), r.children) << &r - rows;
    }
}

TEST_F(HostWall, EmptySlotsGiveFailures) {
    TCfgSlotFn empty[cfgSlotCount] = {};
    TableInUse use(empty);
    void* u = p.unit;
    cfgParamValue v = {};
    cfgParamInfo info = {};
    void* list[1] = {nullptr};
    EXPECT_EQ(cfgObType(u) + cfgObFreeNumber(u, 0) + cfgPropIndex(u, "maxICC"), -3);
    EXPECT_EQ(cfgObChildCount(u, 8) + cfgObChildList(u, 8, list, 1) + cfgPropCount(u) +
                  cfgObAllCount(u, 0),
              0);
    EXPECT_FALSE(cfgObOwner(u) || cfgObChild(u, 8, 0) || cfgObClassText(u, "title") ||
                 cfgPropName(u, 0) || cfgObCreate(u, 8, 0, "Arven"));
    EXPECT_FALSE(cfgPropInfo(u, "maxICC", &info) || cfgPropInfoAt(u, 0, &info) ||
                 cfgPropGet(u, "maxICC", &v) || cfgPropGetAt(u, 0, &v) ||
                 cfgPropSet(u, "maxICC", &v) || cfgPropSetAt(u, 0, &v) || cfgObCheck(u));
    cfgObDelete(p.tagReal);
    EXPECT_NE(HostObject::fromHandle(p.tagReal), nullptr);
}
