// The stand-in host's table of services, called through raw slot pointers
// as the plug-in calls it.
#include "common/SmallProject.h"
#include "host/HostClasses.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

template <typename F> F Slot(int slot) {
    return reinterpret_cast<F>(HostProject::table()[slot]);
}

bool Get(void* ob, const char* name, cfgParamValue& v) {
    return Slot<TcfgPropGet>(slotPropGet)(ob, name, &v);
}

bool SetText(void* ob, const char* name, const char* bytes, int length) {
    cfgParamValue v = {};
    v.type = cptText;
    v.length = length;
    v.text = const_cast<char*>(bytes);
    return Slot<TcfgPropSet>(slotPropSet)(ob, name, &v);
}

bool SetInt(void* ob, const char* name, int value) {
    cfgParamValue v = {};
    v.type = cptInt;
    v.intValue = value;
    return Slot<TcfgPropSet>(slotPropSet)(ob, name, &v);
}

// A field of a packed record.
template <typename T> T At(const unsigned char* raw, int offset) {
    T value;
    memcpy(&value, raw + offset, sizeof value);
    return value;
}

} // namespace

// The records are read at the byte offsets of the host's packed layout.
TEST(HostTable, RecordsLieAtTheirOffsets) {
    SmallProject p;
    p.tagReal->set("procMul", 2.5);
    unsigned char raw[16];
    ASSERT_TRUE(Get(p.tagReal, "procMul", *reinterpret_cast<cfgParamValue*>(raw)));
    EXPECT_EQ(At<int32_t>(raw, 0), 3);
    EXPECT_EQ(At<double>(raw, 4), 2.5);
    ASSERT_TRUE(Get(p.tagReal, "tag_name", *reinterpret_cast<cfgParamValue*>(raw)));
    EXPECT_EQ(At<int32_t>(raw, 4), 4);
    EXPECT_STREQ(At<const char*>(raw, 8), "Freq");

    unsigned char info[55];
    auto propInfo = Slot<TcfgPropInfo>(slotPropInfo);
    ASSERT_TRUE(propInfo(p.unit, "maxICC", reinterpret_cast<cfgParamInfo*>(info)));
    EXPECT_STREQ(At<const char*>(info, 16), "Число ICC");
    EXPECT_EQ(At<int32_t>(info, 24), 2);
    EXPECT_EQ(info[28], 1); // editable
    EXPECT_EQ(info[29], 1); // visible
    EXPECT_EQ(At<int32_t>(info, 31), 0);
    EXPECT_EQ(At<const char*>(info, 35), nullptr);
    EXPECT_STREQ(At<const char*>(info, 47), "1=16");
    ASSERT_TRUE(propInfo(p.tagReal, "domain", reinterpret_cast<cfgParamInfo*>(info)));
    EXPECT_EQ(At<int32_t>(info, 31), hostMaxICC + 1);
    EXPECT_EQ(QByteArray(At<const char*>(info, 35)).left(18), "0=VCC;1=ICC_1;2=IC");
    EXPECT_EQ(info[30], 1); // a fixed list
    ASSERT_TRUE(propInfo(p.unit, "$DATARUN", reinterpret_cast<cfgParamInfo*>(info)));
    EXPECT_EQ(info[28] + info[29], 0);
}

TEST(HostTable, TreeSlots) {
    SmallProject p;
    EXPECT_EQ(Slot<TcfgObType>(slotObType)(p.unit), cotUnit);
    EXPECT_EQ(Slot<TcfgObOwner>(slotObOwner)(p.line), p.direct);
    EXPECT_EQ(Slot<TcfgObOwner>(slotObOwner)(p.project), nullptr);

    auto count = Slot<TcfgObChildCount>(slotObChildCount);
    auto child = Slot<TcfgObChild>(slotObChild);
    EXPECT_EQ(count(p.direct, cotUnit), 2);
    EXPECT_EQ(count(p.folder[0], cotPass), 0);
    EXPECT_EQ(child(p.direct, cotUnit, 1), p.unit2);
    EXPECT_EQ(child(p.direct, cotUnit, 2), nullptr);
    EXPECT_EQ(child(p.direct, cotUnit, -1), nullptr);

    auto list = Slot<TcfgObChildList>(slotObChildList);
    void* handles[3] = {nullptr, nullptr, nullptr};
    EXPECT_EQ(list(p.direct, cotUnit, handles, 3), 2);
    EXPECT_EQ(handles[0], p.unit);
    EXPECT_EQ(handles[1], p.unit2);
    handles[0] = handles[1] = nullptr;
    EXPECT_EQ(list(p.direct, cotUnit, handles, 1), 1); // capacity holds
    EXPECT_EQ(handles[1], nullptr);
    EXPECT_EQ(list(p.direct, cotUnit, nullptr, 5), 0);
    EXPECT_EQ(Slot<TcfgObAllCount>(slotObAllCount)(p.direct, cotUnit), 3);

    EXPECT_STREQ(Slot<TcfgObClassText>(slotObClassText)(p.tagReal, "title"), "caption");
    EXPECT_STREQ(Slot<TcfgObClassText>(slotObClassText)(p.unit, "format"), "%s (№ %s)");
    EXPECT_EQ(Slot<TcfgObClassText>(slotObClassText)(p.unit, nullptr), nullptr);
}

TEST(HostTable, CreateNumbersAndDelete) {
    SmallProject p;
    auto create = Slot<TcfgObCreate>(slotObCreate);
    auto freeNumber = Slot<TcfgObFreeNumber>(slotObFreeNumber);
    // Tags are numbered across the whole unit and all four kinds.
    EXPECT_EQ(freeNumber(p.subFolder, cotSource), 4);
    EXPECT_EQ(freeNumber(p.unit2, cotSource), 1);
    EXPECT_EQ(freeNumber(p.direct, cotUnit), 3);

    void* tag = create(p.folder[2], cotControlSource, 4, "IecArven");
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(HostObject::fromHandle(tag)->get("number").toInt(), 4);
    EXPECT_EQ(freeNumber(p.unit, cotPass), 5);
    // Folders are made with number 0 and get the next free one.
    void* folder = create(p.folder[2], cotFolderControlSource, 0, "IecOrmelcli");
    ASSERT_NE(folder, nullptr);
    EXPECT_EQ(HostObject::fromHandle(folder)->get("number").toInt(), 6);
    EXPECT_EQ(HostObject::fromHandle(folder)->get("type").toByteArray(), "f_controlsource");

    // Kinds that may not stand there are refused.
    EXPECT_EQ(create(p.folder[2], cotSource, 0, "IecArven"), nullptr);
    EXPECT_EQ(create(p.folder[0], cotFolderPass, 0, "IecOrmelcli"), nullptr);
    EXPECT_EQ(create(p.tagReal, cotSource, 0, "IecArven"), nullptr);
    EXPECT_EQ(create(p.unit, 12, 0, "x"), nullptr);

    // A deleted folder takes its contents along; their handles go dead.
    void* sub = p.subFolder;
    void* inside = p.tagState;
    Slot<TcfgObDelete>(slotObDelete)(p.folder[0]);
    EXPECT_EQ(HostObject::fromHandle(sub), nullptr);
    EXPECT_EQ(Slot<TcfgObType>(slotObType)(inside), -1);
    EXPECT_EQ(Slot<TcfgObChildCount>(slotObChildCount)(p.unit, cotFolderSource), 0);
    Slot<TcfgObDelete>(slotObDelete)(inside); // a second delete is harmless
}

TEST(HostTable, ParametersByNameAndIndex) {
    SmallProject p;
    auto count = Slot<TcfgPropCount>(slotPropCount);
    auto name = Slot<TcfgPropName>(slotPropName);
    auto index = Slot<TcfgPropIndex>(slotPropIndex);
    const int n = count(p.tagReal);
    ASSERT_GT(n, 10);
    for (int i = 0; i < n; ++i)
        EXPECT_EQ(index(p.tagReal, name(p.tagReal, i)), i);
    EXPECT_EQ(name(p.tagReal, n), nullptr);
    EXPECT_EQ(index(p.tagReal, "nothing"), -1);
    EXPECT_EQ(index(p.tagReal, nullptr), -1);

    const int at = index(p.unit, "maxDS");
    cfgParamValue v = {};
    ASSERT_TRUE(Slot<TcfgPropGetAt>(slotPropGetAt)(p.unit, at, &v));
    EXPECT_EQ(v.type, cptInt);
    EXPECT_EQ(v.intValue, 3);
    v.intValue = 7;
    ASSERT_TRUE(Slot<TcfgPropSetAt>(slotPropSetAt)(p.unit, at, &v));
    EXPECT_EQ(p.unit->get("maxDS").toInt(), 7);
    EXPECT_FALSE(Slot<TcfgPropSetAt>(slotPropSetAt)(p.unit, -1, &v));
    EXPECT_FALSE(Slot<TcfgPropGetAt>(slotPropGetAt)(p.unit, 1000, &v));
    cfgParamInfo info;
    EXPECT_TRUE(Slot<TcfgPropInfoAt>(slotPropInfoAt)(p.unit, at, &info));
    EXPECT_STREQ(info.rangeText, "1=32");
    EXPECT_FALSE(Slot<TcfgPropInfoAt>(slotPropInfoAt)(p.unit, -3, &info));
}

TEST(HostTable, TextWritesTakeBothLengthConventions) {
    SmallProject p;
    cfgParamValue v = {};
    // The count of bytes, with no zero behind them.
    const char unterminated[] = {'a', 'b', 'c', 'X'};
    ASSERT_TRUE(SetText(p.tagReal, "tag_id", unterminated, 3));
    EXPECT_EQ(p.tagReal->get("tag_id").toByteArray(), "abc");
    // The count plus the terminating zero, which isn't kept.
    ASSERT_TRUE(SetText(p.tagReal, "tag_id", "ICC_1/Var_7", 12));
    EXPECT_EQ(p.tagReal->get("tag_id").toByteArray(), "ICC_1/Var_7");
    ASSERT_TRUE(Get(p.tagReal, "tag_id", v));
    EXPECT_EQ(v.length, 11);
    EXPECT_EQ(v.text[11], '\0');
    // A blob keeps inner zeros; only one trailing zero goes.
    const char blob[] = {'x', '\0', 'y', '\0', '\0'};
    ASSERT_TRUE(SetText(p.unit, "$DATARUN", blob, 5));
    EXPECT_EQ(p.unit->get("$DATARUN").toByteArray(), QByteArray("x\0y\0", 4));
    ASSERT_TRUE(SetText(p.unit, "$DATARUN", nullptr, 0));
    EXPECT_EQ(p.unit->get("$DATARUN").toByteArray(), QByteArray());
    EXPECT_FALSE(SetText(p.unit, "$DATARUN", nullptr, 4));
    EXPECT_FALSE(SetText(p.unit, "$DATARUN", "abc", -1));
}

TEST(HostTable, WritesConvertToTheParameterTypeOrFail) {
    SmallProject p;
    EXPECT_TRUE(SetText(p.unit, "maxICC", "5", 1));
    EXPECT_EQ(p.unit->get("maxICC").toInt(), 5);
    EXPECT_FALSE(SetText(p.unit, "maxICC", "five", 4));
    EXPECT_EQ(p.unit->get("maxICC").toInt(), 5);
    EXPECT_TRUE(SetInt(p.tagReal, "procMul", 3));
    EXPECT_EQ(p.tagReal->get("procMul").toDouble(), 3.0);
    EXPECT_TRUE(SetInt(p.tagReal, "tag_name", 12));
    EXPECT_EQ(p.tagReal->get("tag_name").toByteArray(), "12");

    cfgParamValue v = {};
    v.type = cptDouble;
    v.doubleValue = 2.5;
    EXPECT_FALSE(Slot<TcfgPropSet>(slotPropSet)(p.unit, "maxDS", &v)); // would lose the half
    v.type = 9;
    EXPECT_FALSE(Slot<TcfgPropSet>(slotPropSet)(p.unit, "maxDS", &v));
    EXPECT_FALSE(SetInt(p.unit, "no such parameter", 1));
    EXPECT_EQ(p.unit->get("maxDS").toInt(), 3);
}

TEST(HostTable, CheckFindsValuesOutOfRange) {
    SmallProject p;
    auto check = Slot<TcfgObCheck>(slotObCheck);
    EXPECT_FALSE(check(p.unit));
    const struct {
        HostObject* ob;
        const char* name;
        QVariant value;
        bool bad;
    } rows[] = {{p.unit, "maxICC", 0, true},
                {p.unit, "maxICC", 16, false},
                {p.unit, "maxDS", 33, true},
                {p.line, "port", 70000, true},
                {p.tagReal, "procAperture", 100.5, true},
                {p.tagReal, "procAperture", 0.25, false}};
    for (const auto& r : rows) {
        r.ob->set(r.name, r.value);
        EXPECT_EQ(check(r.ob), r.bad) << r.name << " " << qPrintable(r.value.toString());
    }
}

TEST(HostTable, BadCallsFailWithoutHarm) {
    SmallProject p;
    int local = 0;
    void* foreign = &local;
    for (void* bad : {static_cast<void*>(nullptr), foreign}) {
        cfgParamValue v = {};
        cfgParamInfo info = {};
        void* list[2] = {nullptr, nullptr};
        EXPECT_EQ(Slot<TcfgObType>(slotObType)(bad), -1);
        EXPECT_EQ(Slot<TcfgObOwner>(slotObOwner)(bad), nullptr);
        EXPECT_EQ(Slot<TcfgObChildCount>(slotObChildCount)(bad, 0), 0);
        EXPECT_EQ(Slot<TcfgObChild>(slotObChild)(bad, 0, 0), nullptr);
        EXPECT_EQ(Slot<TcfgObChildList>(slotObChildList)(bad, 0, list, 2), 0);
        EXPECT_EQ(Slot<TcfgObFreeNumber>(slotObFreeNumber)(bad, 0), -1);
        EXPECT_EQ(Slot<TcfgObClassText>(slotObClassText)(bad, "title"), nullptr);
        EXPECT_FALSE(Slot<TcfgPropInfo>(slotPropInfo)(bad, "caption", &info));
        EXPECT_FALSE(Slot<TcfgPropInfoAt>(slotPropInfoAt)(bad, 0, &info));
        EXPECT_EQ(Slot<TcfgPropCount>(slotPropCount)(bad), 0);
        EXPECT_EQ(Slot<TcfgPropName>(slotPropName)(bad, 0), nullptr);
        EXPECT_EQ(Slot<TcfgPropIndex>(slotPropIndex)(bad, "caption"), -1);
        EXPECT_EQ(Slot<TcfgObCreate>(slotObCreate)(bad, cotSource, 1, "IecArven"), nullptr);
        Slot<TcfgObDelete>(slotObDelete)(bad);
        EXPECT_FALSE(Get(bad, "caption", v));
        EXPECT_FALSE(Slot<TcfgPropGetAt>(slotPropGetAt)(bad, 0, &v));
        EXPECT_FALSE(SetInt(bad, "number", 1));
        EXPECT_FALSE(Slot<TcfgPropSetAt>(slotPropSetAt)(bad, 0, &v));
        EXPECT_TRUE(Slot<TcfgObCheck>(slotObCheck)(bad));
        EXPECT_EQ(Slot<TcfgObAllCount>(slotObAllCount)(bad, 0), 0);
    }
    cfgParamValue v = {};
    EXPECT_FALSE(Get(p.unit, nullptr, v));
    EXPECT_FALSE(Slot<TcfgPropGet>(slotPropGet)(p.unit, "caption", nullptr));
    EXPECT_FALSE(Slot<TcfgPropSet>(slotPropSet)(p.unit, "caption", nullptr));
    EXPECT_FALSE(Slot<TcfgPropInfo>(slotPropInfo)(p.unit, "caption", nullptr));
    EXPECT_FALSE(Slot<TcfgPropInfo>(slotPropInfo)(p.unit, nullptr, nullptr));
    EXPECT_NE(Slot<TcfgObCreate>(slotObCreate)(p.unit, cotFolderPass, 0, nullptr), nullptr);
    // The slots this host leaves empty answer zero.
    for (int slot : {6, 13, 21, 22, 23, 24, 25, 26})
        EXPECT_EQ(reinterpret_cast<long (*)()>(HostProject::table()[slot])(), 0) << slot;
}
