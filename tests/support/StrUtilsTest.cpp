#include "support/StrUtils.h"

#include <gtest/gtest.h>

TEST(StrUtils, NumbersAndBooleans) {
    EXPECT_EQ(Str2Int("12abc"), 12);
    EXPECT_EQ(Str2Int("abc"), 0);
    EXPECT_EQ(Str2Int(""), 0);
    EXPECT_EQ(Str2Int("  -42"), -42);
    EXPECT_EQ(Str2Int("+7 8"), 7);
    EXPECT_EQ(Int2Str(0), "0");
    EXPECT_EQ(Int2Str(-2147483647 - 1), "-2147483648");
    EXPECT_EQ(Int2Str(305), "305");

    EXPECT_TRUE(Str2Bool("TRUE"));
    EXPECT_TRUE(Str2Bool("true"));
    EXPECT_TRUE(Str2Bool("Y"));
    EXPECT_TRUE(Str2Bool("1"));
    EXPECT_FALSE(Str2Bool("yes"));
    EXPECT_FALSE(Str2Bool("false"));
    EXPECT_FALSE(Str2Bool("no"));
    EXPECT_FALSE(Str2Bool("0"));
    EXPECT_FALSE(Str2Bool(""));
    EXPECT_FALSE(Str2Bool(" true"));
    EXPECT_EQ(Bool2Str(true), "true");
    EXPECT_EQ(Bool2Str(false), "false");
}

TEST(StrUtils, CaseInPlaceAndOnCopy) {
    std::string s = "AbC_1";
    EXPECT_EQ(Str2Lower(s), "abc_1");
    EXPECT_EQ(s, "abc_1"); // changed in place
    EXPECT_EQ(Str2Upper(s), "ABC_1");
    EXPECT_EQ(s, "ABC_1");

    std::string kept = "MiXeD";
    EXPECT_EQ(Str2LowerP(kept), "mixed");
    EXPECT_EQ(Str2UpperP(kept), "MIXED");
    EXPECT_EQ(kept, "MiXeD");
    // Bytes above ASCII are left to the C locale: untouched here.
    EXPECT_EQ(Str2UpperP("\xd0\xb0z"), "\xd0\xb0Z");
}

TEST(StrUtils, TailsAndTrim) {
    EXPECT_EQ(MyRestStr("abc", 3), "");
    EXPECT_EQ(MyRestStr("abc", 1), "bc");
    EXPECT_EQ(MyRestStr("abc", 0), "abc");
    EXPECT_EQ(MyRestStr("abc", -1), "");
    EXPECT_EQ(MyRestStr("abc", 10), "");

    EXPECT_EQ(TrimStr("  a b  "), "a b");
    EXPECT_EQ(TrimStr("\tx\t"), "x");
    EXPECT_EQ(TrimStr("   "), "");
    EXPECT_EQ(TrimStr(""), "");
    EXPECT_EQ(TrimStr("ab"), "ab");
}

TEST(StrUtils, RadixConversion) {
    char buf[80];
    itoa(255, buf, 16);
    EXPECT_STREQ(buf, "ff");
    itoa(-255, buf, 10);
    EXPECT_STREQ(buf, "-255");
    itoa(0, buf, 10);
    EXPECT_STREQ(buf, "0");
    itoa(5, buf, 2);
    EXPECT_STREQ(buf, "101");
    itoa(35, buf, 36);
    EXPECT_STREQ(buf, "z");
    // No sign outside radix 10: the 32-bit pattern is written.
    itoa(-1, buf, 16);
    EXPECT_STREQ(buf, "ffffffff");
    itoa(-2147483647 - 1, buf, 10);
    EXPECT_STREQ(buf, "-2147483648");
    xtoa(10, buf, 8, false);
    EXPECT_STREQ(buf, "12");
    xtoa(static_cast<unsigned long>(-10L), buf, 10, true);
    EXPECT_STREQ(buf, "-10");
}

TEST(StrUtils, QStringConversions) {
    EXPECT_EQ(
        GetRusQStr("\xd0\xa1\xd0\xbe\xd0\xbe\xd0\xb1\xd1\x89\xd0\xb5\xd0\xbd\xd0\xb8\xd0\xb5"),
        QString(QChar(0x421)) + QString::fromUtf16(u"ообщение"));
    const QString message =
        GetRusQStr("\xd0\xa1\xd0\xbe\xd0\xbe\xd0\xb1\xd1\x89\xd0\xb5\xd0\xbd\xd0\xb8\xd0\xb5");
    EXPECT_EQ(message.size(), 9);
    EXPECT_EQ(message, QString::fromUtf16(u"Сообщение"));
    EXPECT_EQ(GetRusQStr("").size(), 0);
    char buf[32];
    EXPECT_EQ(QStr2Char(QStringLiteral("abc"), buf), buf);
    EXPECT_STREQ(buf, "abc");
    QStr2Char(QString(), buf);
    EXPECT_STREQ(buf, "");
}
