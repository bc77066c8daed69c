// The stand-in host's table of services, called through raw slot pointers
// as the plug-in calls it.
#include "common/SmallProject.h"
#include "host/HostClasses.h"

#include <gtest/gtest.h>

namespace {

bool Get(void* ob, const char* name, cfgParamValue& v) {
    return HostSlot<TcfgPropGet>(slotPropGet)(ob, name, &v);
}

bool Set(void* ob, const char* name, int type, int number, const char* bytes = nullptr) {
    cfgParamValue v = {};
    v.type = type;
    if (type == cptText) {
        v.length = number;
        v.text = const_cast<char*>(bytes);
    } else
        v.intValue = number;
    return HostSlot<TcfgPropSet>(slotPropSet)(ob, name, &v);
}

} // namespace

TEST(HostTable, ValuesAndDescriptions) {
    SmallProject p;
    p.tagReal->set("procMul", 2.5);
    cfgParamValue v;
    ASSERT_TRUE(Get(p.tagReal, "procMul", v));
    EXPECT_EQ(v.type, cptDouble);
    EXPECT_EQ(v.doubleValue, 2.5);
    ASSERT_TRUE(Get(p.tagReal, "tag_name", v));
    EXPECT_EQ(QByteArray(v.text, v.length), "Freq");

    auto propInfo = HostSlot<TcfgPropInfo>(slotPropInfo);
    cfgParamInfo info;
    ASSERT_TRUE(propInfo(p.unit, "maxICC", &info));
    EXPECT_STREQ(info.caption, "Число ICC");
    EXPECT_EQ(info.type, cptInt);
    EXPECT_TRUE(info.editable && info.visible);
    EXPECT_EQ(info.enumText, nullptr);
    EXPECT_STREQ(info.rangeText, "1=16");
    ASSERT_TRUE(propInfo(p.tagReal, "domain", &info));
    EXPECT_EQ(info.enumSize, hostMaxICC + 1);
    EXPECT_EQ(QByteArray(info.enumText).left(18), "0=VCC;1=ICC_1;2=IC");
    EXPECT_EQ(info.fixedList, 1);
    ASSERT_TRUE(propInfo(p.unit, "$DATARUN", &info));
    EXPECT_EQ(info.editable + info.visible, 0);
}

TEST(HostTable, TreeSlots) {
    SmallProject p;
    EXPECT_EQ(HostSlot<TcfgObType>(slotObType)(p.unit), cotUnit);
    EXPECT_EQ(HostSlot<TcfgObOwner>(slotObOwner)(p.line), p.direct);
    EXPECT_EQ(HostSlot<TcfgObOwner>(slotObOwner)(p.project), nullptr);

    auto count = HostSlot<TcfgObChildCount>(slotObChildCount);
    auto child = HostSlot<TcfgObChild>(slotObChild);
    EXPECT_EQ(count(p.direct, cotUnit), 2);
    EXPECT_EQ(count(p.folder[0], cotPass), 0);
    EXPECT_EQ(child(p.direct, cotUnit, 1), p.unit2);
    EXPECT_EQ(child(p.direct, cotUnit, 2), nullptr);

    auto list = HostSlot<TcfgObChildList>(slotObChildList);
    void* handles[3] = {nullptr, nullptr, nullptr};
    EXPECT_EQ(list(p.direct, cotUnit, handles, 3), 2);
    EXPECT_EQ(handles[0], p.unit);
    EXPECT_EQ(handles[1], p.unit2);
    handles[0] = handles[1] = nullptr;
    EXPECT_EQ(list(p.direct, cotUnit, handles, 1), 1); // capacity holds
    EXPECT_EQ(handles[1], nullptr);
    EXPECT_EQ(list(p.direct, cotUnit, nullptr, 5), 0);
    EXPECT_EQ(HostSlot<TcfgObAllCount>(slotObAllCount)(p.direct, cotUnit), 3);

    EXPECT_STREQ(HostSlot<TcfgObClassText>(slotObClassText)(p.tagReal, "title"), "caption");
    EXPECT_STREQ(HostSlot<TcfgObClassText>(slotObClassText)(p.unit, "format"), "%s (№ %s)");
    EXPECT_EQ(HostSlot<TcfgObClassText>(slotObClassText)(p.unit, nullptr), nullptr);
}

TEST(HostTable, CreateNumbersAndDelete) {
    SmallProject p;
    auto create = HostSlot<TcfgObCreate>(slotObCreate);
    auto freeNumber = HostSlot<TcfgObFreeNumber>(slotObFreeNumber);
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
    EXPECT_EQ(create(p.tagReal, cotSource, 0, "IecArven"), nullptr);

    // A deleted folder takes its contents along; their handles go dead.
    void* sub = p.subFolder;
    void* inside = p.tagState;
    HostSlot<TcfgObDelete>(slotObDelete)(p.folder[0]);
    EXPECT_EQ(HostObject::fromHandle(sub), nullptr);
    EXPECT_EQ(HostSlot<TcfgObType>(slotObType)(inside), -1);
    EXPECT_EQ(HostSlot<TcfgObChildCount>(slotObChildCount)(p.unit, cotFolderSource), 0);
    HostSlot<TcfgObDelete>(slotObDelete)(inside); // a second delete is harmless
}

TEST(HostTable, ParametersByNameAndIndex) {
    SmallProject p;
    auto count = HostSlot<TcfgPropCount>(slotPropCount);
    auto name = HostSlot<TcfgPropName>(slotPropName);
    auto index = HostSlot<TcfgPropIndex>(slotPropIndex);
    const int n = count(p.tagReal);
    ASSERT_GT(n, 10);
    for (int i = 0; i < n; ++i)
        EXPECT_EQ(index(p.tagReal, name(p.tagReal, i)), i);
    EXPECT_EQ(name(p.tagReal, n), nullptr);
    EXPECT_EQ(index(p.tagReal, "nothing") + index(p.tagReal, nullptr), -2);

    const int at = index(p.unit, "maxDS");
    cfgParamValue v = {};
    ASSERT_TRUE(HostSlot<TcfgPropGetAt>(slotPropGetAt)(p.unit, at, &v));
    EXPECT_EQ(v.type, cptInt);
    EXPECT_EQ(v.intValue, 3);
    v.intValue = 7;
    ASSERT_TRUE(HostSlot<TcfgPropSetAt>(slotPropSetAt)(p.unit, at, &v));
    EXPECT_EQ(p.unit->get("maxDS").toInt(), 7);
    EXPECT_FALSE(HostSlot<TcfgPropGetAt>(slotPropGetAt)(p.unit, 1000, &v));
    cfgParamInfo info;
    EXPECT_TRUE(HostSlot<TcfgPropInfoAt>(slotPropInfoAt)(p.unit, at, &info));
    EXPECT_STREQ(info.rangeText, "1=32");
    EXPECT_FALSE(HostSlot<TcfgPropInfoAt>(slotPropInfoAt)(p.unit, -3, &info));
}

TEST(HostTable, TextWritesTakeBothLengthConventions) {
    SmallProject p;
    cfgParamValue v = {};
    // The count of bytes, with no zero behind them.
    const char unterminated[] = {'a', 'b', 'c', 'X'};
    ASSERT_TRUE(Set(p.tagReal, "tag_id", cptText, 3, unterminated));
    EXPECT_EQ(p.tagReal->get("tag_id").toByteArray(), "abc");
    // The count plus the terminating zero, which isn't kept.
    ASSERT_TRUE(Set(p.tagReal, "tag_id", cptText, 12, "ICC_1/Var_7"));
    EXPECT_EQ(p.tagReal->get("tag_id").toByteArray(), "ICC_1/Var_7");
    ASSERT_TRUE(Get(p.tagReal, "tag_id", v));
    EXPECT_EQ(v.length, 11);
    EXPECT_EQ(v.text[11], '\0');
    // A blob keeps inner zeros; only one trailing zero goes.
    const char blob[] = {'x', '\0', 'y', '\0', '\0'};
    ASSERT_TRUE(Set(p.unit, "$DATARUN", cptText, 5, blob));
    EXPECT_EQ(p.unit->get("$DATARUN").toByteArray(), QByteArray("x\0y\0", 4));
    ASSERT_TRUE(Set(p.unit, "$DATARUN", cptText, 0, nullptr));
    EXPECT_EQ(p.unit->get("$DATARUN").toByteArray(), QByteArray());
    EXPECT_FALSE(Set(p.unit, "$DATARUN", cptText, 4, nullptr));
    EXPECT_FALSE(Set(p.unit, "$DATARUN", cptText, -1, "abc"));
}

TEST(HostTable, WritesConvertToTheParameterTypeOrFail) {
    SmallProject p;
    EXPECT_TRUE(Set(p.unit, "maxICC", cptText, 1, "5"));
    EXPECT_EQ(p.unit->get("maxICC").toInt(), 5);
    EXPECT_FALSE(Set(p.unit, "maxICC", cptText, 4, "five"));
    EXPECT_EQ(p.unit->get("maxICC").toInt(), 5);
    EXPECT_TRUE(Set(p.tagReal, "procMul", cptInt, 3));
    EXPECT_EQ(p.tagReal->get("procMul").toDouble(), 3.0);
    EXPECT_TRUE(Set(p.tagReal, "tag_name", cptInt, 12));
    EXPECT_EQ(p.tagReal->get("tag_name").toByteArray(), "12");

    cfgParamValue v = {};
    v.type = cptDouble;
    v.doubleValue = 2.5;
    EXPECT_FALSE(HostSlot<TcfgPropSet>(slotPropSet)(p.unit, "maxDS", &v)); // would lose the half
    v.type = 9;
    EXPECT_FALSE(HostSlot<TcfgPropSet>(slotPropSet)(p.unit, "maxDS", &v));
    EXPECT_FALSE(Set(p.unit, "no such parameter", cptInt, 1));
    EXPECT_EQ(p.unit->get("maxDS").toInt(), 3);
}

TEST(HostTable, CheckFindsValuesOutOfRange) {
    SmallProject p;
    auto check = HostSlot<TcfgObCheck>(slotObCheck);
    EXPECT_FALSE(check(p.unit));
    const struct {
        HostObject* ob;
        const char* name;
        QVariant value;
        bool bad;
    } rows[] = {{p.unit, "maxICC", 0, true},
                {p.unit, "maxICC", 16, false},
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
    void* bad = &local; // a handle the host never gave
    cfgParamValue v = {};
    cfgParamInfo info = {};
    void* list[2] = {nullptr, nullptr};
    EXPECT_EQ(HostSlot<TcfgObType>(slotObType)(bad) +
                  HostSlot<TcfgObFreeNumber>(slotObFreeNumber)(bad, 0) +
                  HostSlot<TcfgPropIndex>(slotPropIndex)(bad, "caption"),
              -3);
    EXPECT_EQ(HostSlot<TcfgObChildCount>(slotObChildCount)(bad, 0) +
                  HostSlot<TcfgObChildList>(slotObChildList)(bad, 0, list, 2) +
                  HostSlot<TcfgPropCount>(slotPropCount)(bad) +
                  HostSlot<TcfgObAllCount>(slotObAllCount)(bad, 0),
              0);
    EXPECT_FALSE(HostSlot<TcfgObOwner>(slotObOwner)(bad) ||
                 HostSlot<TcfgObChild>(slotObChild)(bad, 0, 0) ||
                 HostSlot<TcfgObClassText>(slotObClassText)(bad, "title") ||
                 HostSlot<TcfgPropName>(slotPropName)(bad, 0) ||
                 HostSlot<TcfgObCreate>(slotObCreate)(bad, cotSource, 1, "IecArven"));
    EXPECT_FALSE(HostSlot<TcfgPropInfo>(slotPropInfo)(bad, "caption", &info) ||
                 HostSlot<TcfgPropInfoAt>(slotPropInfoAt)(bad, 0, &info) ||
                 Get(bad, "caption", v) || HostSlot<TcfgPropGetAt>(slotPropGetAt)(bad, 0, &v) ||
                 Set(bad, "number", cptInt, 1) ||
                 HostSlot<TcfgPropSetAt>(slotPropSetAt)(bad, 0, &v));
    EXPECT_TRUE(HostSlot<TcfgObCheck>(slotObCheck)(bad));
    HostSlot<TcfgObDelete>(slotObDelete)(bad);
    // Null arguments beside a good handle.
    EXPECT_FALSE(Get(p.unit, nullptr, v) ||
                 HostSlot<TcfgPropGet>(slotPropGet)(p.unit, "caption", nullptr) ||
                 HostSlot<TcfgPropSet>(slotPropSet)(p.unit, "caption", nullptr) ||
                 HostSlot<TcfgPropInfo>(slotPropInfo)(p.unit, "caption", nullptr));
    EXPECT_NE(HostSlot<TcfgObCreate>(slotObCreate)(p.unit, cotFolderPass, 0, nullptr), nullptr);
    // The slots this host leaves empty answer zero.
    for (int slot : {6, 13, 21, 22, 23, 24, 25, 26})
        EXPECT_EQ(reinterpret_cast<long (*)()>(HostProject::table()[slot])(), 0) << slot;
}
