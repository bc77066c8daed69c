#include "support/StrUtils.h"

#include <gtest/gtest.h>

TEST(StrUtils, EveryConversion) {
    const std::pair<const char*, int> ints[] = {{"12abc", 12}, {"abc", 0}, {"  -42", -42}};
    for (const auto& i : ints)
        EXPECT_EQ(Str2Int(i.first), i.second) << i.first;
    EXPECT_EQ(Int2Str(-2147483647 - 1), "-2147483648");
    for (const char* yes : {"TRUE", "Y", "1"})
        EXPECT_TRUE(Str2Bool(yes)) << yes;
    for (const char* no : {"yes", "0", " true"})
        EXPECT_FALSE(Str2Bool(no)) << no;
    EXPECT_EQ(MyRestStr("abc", 1) + MyRestStr("abc", 10), "bc");
    EXPECT_EQ(TrimStr("\t a b  "), "a b");
    std::string s = "AbC_1";
    EXPECT_TRUE(Str2Upper(s) == "ABC_1" && s == "ABC_1"); // changed in place
    EXPECT_EQ(Str2LowerP("MiXeD"), "mixed");
    // Bytes above ASCII are left to the C locale: untouched here.
    EXPECT_EQ(Str2UpperP("\xd0\xb0z"), "\xd0\xb0Z");
    // No sign outside radix 10: the 32-bit pattern is written.
    char buf[80];
    itoa(-1, buf, 16);
    EXPECT_STREQ(buf, "ffffffff");
    xtoa(static_cast<unsigned long>(-10L), buf, 10, true);
    EXPECT_STREQ(buf, "-10");
    const QString message =
        GetRusQStr("\xd0\xa1\xd0\xbe\xd0\xbe\xd0\xb1\xd1\x89\xd0\xb5\xd0\xbd\xd0\xb8\xd0\xb5");
    EXPECT_EQ(message, QString::fromUtf16(u"Сообщение"));
    char chars[32];
    EXPECT_TRUE(QStr2Char(QStringLiteral("abc"), chars) == chars && !strcmp(chars, "abc"));
}
