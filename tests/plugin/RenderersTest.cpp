// The three renderers of a parameter value, which differ on purpose.
#include "ScriptedHost.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"

#include <gtest/gtest.h>

namespace {

cfgParamValue Value(int type, double number = 0, const char* text = nullptr, int length = 0) {
    cfgParamValue v = {};
    v.type = type;
    if (type == cptBool)
        v.boolValue = uint8_t(number);
    else if (type == cptInt)
        v.intValue = int32_t(number);
    else if (type == cptDouble)
        v.doubleValue = number;
    else if (type == cptText) {
        v.text = const_cast<char*>(text);
        v.length = length;
    }
    return v;
}

// GetPropStrVal over a host that answers `v`, or fails its read.
QString ThroughHost(const cfgParamValue& v, bool readOk = true) {
    ScriptedHost host;
    host.value = v;
    host.readOk = readOk;
    return GetPropStrVal(reinterpret_cast<void*>(1), "p");
}

} // namespace

TEST(Renderers, EachValueByTheThree) {
    const QByteArray utf8 = QString("Ток").toUtf8();
    // GetParamValAsStr, cfgParamValueToQString, GetPropStrVal; null: not asked.
    const struct {
        cfgParamValue v;
        const char *asStr, *toQString, *host;
    } rows[] = {
        {Value(cptUndef), "Undef", "Unknow", "Unknow Type"},
        {Value(5), "", "Unknow", "Unknow Type"},
        {Value(cptBool, 2), "true", "true", "true"}, // any non-zero byte
        {Value(cptInt, -2147483648.0), "-2147483648", "-2147483648", "-2147483648"},
        {Value(cptDouble, 3.14159265), "3.14159", "3.1416", "3.14159"},
        // Text: Latin-1 for the first; cut at the first zero or the length.
        {Value(cptText, 0, utf8.constData(), utf8.size()), nullptr, "Ток", "Ток"},
        {Value(cptText, 0, "ab\0cd", 5), "ab", "ab", "ab"},
        {Value(cptText, 0, "abcdef", 3), "abc", "abc", "abc"},
        {Value(cptText, 0, nullptr, 4), "", "", ""},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.v.type);
        if (r.asStr) {
            EXPECT_EQ(GetParamValAsStr(r.v), QString::fromUtf8(r.asStr));
        }
        EXPECT_EQ(cfgParamValueToQString(r.v), QString::fromUtf8(r.toQString));
        EXPECT_EQ(ThroughHost(r.v), QString::fromUtf8(r.host));
    }
    EXPECT_EQ(GetParamValAsStr(rows[5].v), QString::fromLatin1(utf8));
    // A failed read, or no table, is one blank.
    EXPECT_EQ(ThroughHost(Value(cptText, 0, "abc", 3), false), " ");
    EXPECT_EQ(GetPropStrVal(reinterpret_cast<void*>(1), "caption"), " ");
}
