#include "support/StrUtils.h"

#include <gtest/gtest.h>

TEST(StrUtils, EveryConversion) {
    const std::pair<const char*, int> ints[] = {
        {"12abc", 12}, {"abc", 0}, {"", 0}, {"  -42", -42}, {"+7 8", 7}};
    for (const auto& i : ints)
        EXPECT_EQ(Str2Int(i.first), i.second) << i.first;
    EXPECT_EQ(Int2Str(-2147483647 - 1), "-2147483648");

    for (const char* yes : {"TRUE", "true", "Y", "1"})
        EXPECT_TRUE(Str2Bool(yes)) << yes;
    for (const char* no : {"yes", "false", "0", "", " true"})
        EXPECT_FALSE(Str2Bool(no)) << no;

    const std::pair<int, const char*> rests[] = {
        {3, ""}, {1, "bc"}, {0, "abc"}, {-1, ""}, {10, ""}};
    for (const auto& r : rests)
        EXPECT_EQ(MyRestStr("abc", r.first), r.second) << r.first;
    const std::pair<const char*, const char*> trims[] = {
        {"  a b  ", "a b"}, {"\tx\t", "x"}, {"   ", ""}, {"", ""}};
    for (const auto& t : trims)
        EXPECT_EQ(TrimStr(t.first), t.second) << t.first;
    std::string s = "AbC_1";
    EXPECT_TRUE(Str2Upper(s) == "ABC_1" && s == "ABC_1"); // changed in place

    const std::string kept = "MiXeD";
    EXPECT_EQ(Str2LowerP(kept), "mixed");
    EXPECT_EQ(Str2UpperP(kept), "MIXED");
    // Bytes above ASCII are left to the C locale: untouched here.
    EXPECT_EQ(Str2UpperP("\xd0\xb0z"), "\xd0\xb0Z");
    struct Row {
        int value, radix;
        const char* text;
    };
    // No sign outside radix 10: the 32-bit pattern is written.
    const Row rows[] = {{255, 16, "ff"},
                        {0, 10, "0"},
                        {35, 36, "z"},
                        {-1, 16, "ffffffff"},
                        {-2147483647 - 1, 10, "-2147483648"}};
    char buf[80];
    for (const Row& r : rows) {
        itoa(r.value, buf, r.radix);
        EXPECT_STREQ(buf, r.text) << r.value << " radix " << r.radix;
    }
    xtoa(10, buf, 8, false);
    EXPECT_STREQ(buf, "12");
    xtoa(static_cast<unsigned long>(-10L), buf, 10, true);
    EXPECT_STREQ(buf, "-10");
    const QString message =
        GetRusQStr("\xd0\xa1\xd0\xbe\xd0\xbe\xd0\xb1\xd1\x89\xd0\xb5\xd0\xbd\xd0\xb8\xd0\xb5");
    EXPECT_EQ(message, QString::fromUtf16(u"Сообщение"));
    char chars[32];
    EXPECT_EQ(QStr2Char(QStringLiteral("abc"), chars), chars);
    EXPECT_STREQ(chars, "abc");
}
