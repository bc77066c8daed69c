// The three renderers of a parameter value, which differ on purpose.
#include "ScriptedHost.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"

#include <gtest/gtest.h>

namespace {

cfgParamValue Value(int type) {
    cfgParamValue v = {};
    v.type = type;
    return v;
}

cfgParamValue Text(const char* bytes, int length) {
    cfgParamValue v = Value(cptText);
    v.text = const_cast<char*>(bytes);
    v.length = length;
    return v;
}

// GetPropStrVal over a host that answers `v`.
QString ThroughHost(const cfgParamValue& v) {
    ScriptedHost host;
    host.value = v;
    pGlobcfgInterface = host.table();
    QString text = GetPropStrVal(reinterpret_cast<void*>(1), "p");
    pGlobcfgInterface = nullptr;
    return text;
}

} // namespace

TEST(Renderers, TypesOtherThanValues) {
    for (int type : {0, 5, 77, -1}) {
        const cfgParamValue v = Value(type);
        EXPECT_EQ(GetParamValAsStr(v), type == cptUndef ? "Undef" : "") << type;
        EXPECT_EQ(cfgParamValueToQString(v), "Unknow") << type;
        EXPECT_EQ(ThroughHost(v), "Unknow Type") << type;
    }
}

TEST(Renderers, BoolIntAndDouble) {
    cfgParamValue b = Value(cptBool);
    b.boolValue = 2; // any non-zero byte is true
    EXPECT_EQ(GetParamValAsStr(b), "true");
    EXPECT_EQ(cfgParamValueToQString(b), "true");
    EXPECT_EQ(ThroughHost(b), "true");

    cfgParamValue i = Value(cptInt);
    i.intValue = -2147483647 - 1;
    EXPECT_EQ(GetParamValAsStr(i), "-2147483648");
    EXPECT_EQ(cfgParamValueToQString(i), "-2147483648");
    EXPECT_EQ(ThroughHost(i), "-2147483648");

    // Six significant digits in two of them, five in the third.
    cfgParamValue d = Value(cptDouble);
    d.doubleValue = 3.14159265;
    EXPECT_EQ(GetParamValAsStr(d), "3.14159");
    EXPECT_EQ(cfgParamValueToQString(d), "3.1416");
    EXPECT_EQ(ThroughHost(d), "3.14159");
    d.doubleValue = 1234567.0;
    EXPECT_EQ(GetParamValAsStr(d), "1.23457e+06");
    EXPECT_EQ(cfgParamValueToQString(d), "1.2346e+06");
}

TEST(Renderers, TextDecodingAndEnds) {
    const QByteArray utf8 = QString("Ток").toUtf8();
    const cfgParamValue t = Text(utf8.constData(), utf8.size());
    EXPECT_EQ(cfgParamValueToQString(t), "Ток");
    EXPECT_EQ(ThroughHost(t), "Ток"); // local 8-bit is UTF-8 here
    EXPECT_EQ(GetParamValAsStr(t), QString::fromLatin1(utf8));
    EXPECT_NE(GetParamValAsStr(t), "Ток");

    // Cut at the first zero; the length counts a trailing zero or not.
    const char withZero[] = "ab\0cd";
    EXPECT_EQ(GetParamValAsStr(Text(withZero, 5)), "ab");
    EXPECT_EQ(ThroughHost(Text(withZero, 5)), "ab");
    EXPECT_EQ(cfgParamValueToQString(Text("abc", 4)), "abc");
    EXPECT_EQ(GetParamValAsStr(Text("abcdef", 3)), "abc");

    // A null pointer renders empty.
    EXPECT_EQ(GetParamValAsStr(Text(nullptr, 4)), "");
    EXPECT_EQ(cfgParamValueToQString(Text(nullptr, 4)), "");
    EXPECT_EQ(ThroughHost(Text(nullptr, 4)), "");
}

TEST(Renderers, FailedReadIsOneBlank) {
    ScriptedHost host;
    host.readOk = false;
    host.value = Text("abc", 3);
    pGlobcfgInterface = host.table();
    EXPECT_EQ(GetPropStrVal(reinterpret_cast<void*>(1), "caption"), " ");
    pGlobcfgInterface = nullptr;
    EXPECT_EQ(GetPropStrVal(reinterpret_cast<void*>(1), "caption"), " ");
}
