#include "support/MyBuf.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

// A value typed by hand as the type setup of the model would do it.
void Type(MyBufValue& v, int bType, int size, int unused = 0) {
    v.bType = bType;
    v.Size = size;
    v.UnusedBits = static_cast<unsigned char>(unused);
    v.Flags |= 4;
    v.ReallocBuf(size);
    v.Len = size;
}

} // namespace

TEST(MyBufValue, UntypedAndUnknownTypes) {
    MyBufValue v;
    EXPECT_EQ(v.Buf, nullptr);
    EXPECT_EQ(v.bType, 0);
    EXPECT_EQ(v.Tostring(), ""); // BOOL without a buffer
    EXPECT_EQ(v.SetFromstring("true"), -1);
    v.bType = 11;
    EXPECT_EQ(v.Tostring(), " ");
    v.bType = 20;
    EXPECT_EQ(v.Tostring(), " ");
    v.bType = -1;
    EXPECT_EQ(v.Tostring(), "");
    Type(v, -1, 1);
    EXPECT_EQ(v.SetFromstring("1"), -1);
    for (int t : {1, 2, 3, 8, 9, 10}) {
        MyBufValue empty;
        empty.bType = t;
        EXPECT_EQ(empty.Tostring(), "") << t;
        EXPECT_EQ(empty.SetFromstring("1"), -1) << t;
    }
}

TEST(MyBufValue, BoolAndIntegers) {
    MyBufValue b;
    Type(b, 0, 1);
    EXPECT_EQ(b.Tostring(), "false");
    EXPECT_EQ(b.SetFromstring("TRUE"), 0);
    EXPECT_EQ(b.Buf[0], 1);
    EXPECT_EQ(b.Tostring(), "true");
    b.SetFromstring("1");
    EXPECT_EQ(b.Tostring(), "false");

    MyBufValue i16;
    Type(i16, 2, 2);
    i16.SetFromstring("-1");
    EXPECT_EQ(i16.Buf[0], 0xFF);
    EXPECT_EQ(i16.Buf[1], 0xFF);
    EXPECT_EQ(i16.Tostring(), "65535");
    i16.SetFromstring("258");
    EXPECT_EQ(i16.Buf[0], 2);
    EXPECT_EQ(i16.Buf[1], 1);
    EXPECT_EQ(i16.Tostring(), "258");
    i16.SetFromstring("70000"); // only the low two bytes are kept
    EXPECT_EQ(i16.Tostring(), "4464");
    i16.SetFromstring("junk");
    EXPECT_EQ(i16.Tostring(), "0");

    MyBufValue i8;
    Type(i8, 1, 1);
    i8.SetFromstring("-1");
    EXPECT_EQ(i8.Tostring(), "255");
    MyBufValue u8;
    Type(u8, 4, 1);
    u8.SetFromstring("300");
    EXPECT_EQ(u8.Tostring(), "44");

    MyBufValue i32;
    Type(i32, 3, 4);
    i32.SetFromstring("-123456");
    EXPECT_EQ(i32.Tostring(), "-123456");
    i32.SetFromstring("12abc");
    EXPECT_EQ(i32.Tostring(), "12");
    MyBufValue u32;
    Type(u32, 6, 4);
    u32.SetFromstring("4294967295"); // four bytes read back signed
    EXPECT_EQ(u32.Tostring(), "-1");
    MyBufValue en;
    Type(en, 7, 2);
    en.SetFromstring("513");
    EXPECT_EQ(en.Tostring(), "513");
}

TEST(MyBufValue, Float) {
    MyBufValue f;
    Type(f, 8, 4);
    f.SetFromstring("1.5");
    EXPECT_EQ(f.Tostring(), "1.500000");
    f.SetFromstring("-0.1");
    EXPECT_EQ(f.Tostring(), "-0.100000");
    f.SetFromstring("x");
    EXPECT_EQ(f.Tostring(), "0.000000");
}

TEST(MyBufValue, BitStrings) {
    MyBufValue bs5;
    Type(bs5, 13, 1, 3);
    EXPECT_EQ(bs5.Tostring(), "00000");
    EXPECT_EQ(bs5.SetFromstring("00100"), 0);
    EXPECT_EQ(bs5.Buf[0], 0x20);
    EXPECT_EQ(bs5.Tostring(), "00100");
    // A text of the wrong length is refused and leaves zero bits.
    EXPECT_EQ(bs5.SetFromstring("00100000"), -1);
    EXPECT_EQ(bs5.Buf[0], 0);
    EXPECT_EQ(bs5.Tostring(), "00000");
    EXPECT_EQ(bs5.SetFromstring("1001"), -1);
    // Characters other than "1" are zero bits.
    EXPECT_EQ(bs5.SetFromstring("1x0a1"), 0);
    EXPECT_EQ(bs5.Tostring(), "10001");

    MyBufValue bs12;
    Type(bs12, 14, 2, 4);
    EXPECT_EQ(bs12.SetFromstring("100000000001"), 0);
    EXPECT_EQ(bs12.Buf[0], 0x80);
    EXPECT_EQ(bs12.Buf[1], 0x10);
    EXPECT_EQ(bs12.Tostring(), "100000000001");

    MyBufValue q;
    Type(q, 12, 1);
    EXPECT_EQ(q.SetFromstring("11000001"), 0);
    EXPECT_EQ(q.Buf[0], 0xC1);
    EXPECT_EQ(q.Tostring(), "11000001");

    // TEXT (size -1) accepts no text; its buffer is cleared all the same.
    MyBufValue text;
    Type(text, 11, 1);
    text.Size = -1;
    text.Buf[0] = 0xFF;
    EXPECT_EQ(text.SetFromstring(""), -1);
    EXPECT_EQ(text.Buf[0], 0);
}

TEST(MyBufValue, VisibleString) {
    MyBufValue s;
    Type(s, 10, 32);
    EXPECT_EQ(s.Capacity, 32);
    EXPECT_EQ(s.Tostring(), "");
    EXPECT_EQ(s.SetFromstring("abc"), 0);
    EXPECT_EQ(s.Tostring(), "abc");
    // Shorter than Len: the head is overwritten, the old tail stays.
    EXPECT_EQ(s.SetFromstring("x"), 0);
    EXPECT_EQ(s.Tostring(), "xbc");
    EXPECT_EQ(s.SetFromstring(""), 0);
    EXPECT_EQ(s.Tostring(), "xbc");
    EXPECT_EQ(s.SetFromstring(std::string(30, 'q')), 0);
    EXPECT_EQ(s.Tostring(), std::string(30, 'q'));
    // 31 characters are not below Capacity - 1.
    EXPECT_EQ(s.SetFromstring(std::string(31, 'r')), -1);
    EXPECT_EQ(s.Tostring(), std::string(30, 'q'));

    // A text reaching Len starts from a cleared buffer and sets Len.
    MyBufValue t;
    Type(t, 10, 32);
    t.Len = 4;
    t.SetFromstring("ab");
    EXPECT_EQ(t.Tostring(), "ab");
    EXPECT_EQ(t.Len, 4);
    t.SetFromstring("hello");
    EXPECT_EQ(t.Len, 6);
    EXPECT_EQ(t.Tostring(), "hello");
    t.SetFromstring("hi");
    EXPECT_EQ(t.Tostring(), "hillo");
    // Only Len bytes are read.
    t.Len = 3;
    EXPECT_EQ(t.Tostring(), "hil");
}

TEST(MyBufValue, AssignFromBufAndBits) {
    MyBufValue src;
    Type(src, 13, 1, 3);
    src.SetFromstring("10100");
    src.Names = "a,b,c";
    MyBufValue dst;
    int ownerTag = 0;
    dst.Owner = reinterpret_cast<DcDA*>(&ownerTag);
    dst.Names = "mine";
    dst.Assign(src);
    EXPECT_EQ(dst.bType, 13);
    EXPECT_EQ(dst.Size, 1);
    EXPECT_EQ(dst.UnusedBits, 3);
    EXPECT_EQ(dst.Len, 1);
    EXPECT_EQ(dst.Capacity, 1);
    EXPECT_EQ(dst.Flags, 5);
    EXPECT_EQ(dst.Tostring(), "10100");
    EXPECT_EQ(dst.Owner, reinterpret_cast<DcDA*>(&ownerTag));
    EXPECT_EQ(dst.Names, "mine");
    src.SetFromstring("00001"); // the copy has its own bytes
    EXPECT_EQ(dst.Tostring(), "10100");
    MyBufValue none;
    none.bType = 2;
    dst.Assign(none);
    EXPECT_EQ(dst.Buf, nullptr);
    EXPECT_EQ(dst.bType, 2);

    MyBufValue v;
    const unsigned char bytes[3] = {0x81, 0x00, 0x7F};
    v.FromBuf(bytes, 0);
    EXPECT_EQ(v.Buf, nullptr);
    v.FromBuf(bytes, 3);
    ASSERT_NE(v.Buf, nullptr);
    EXPECT_EQ(v.Len, 3);
    EXPECT_EQ(std::memcmp(v.Buf, bytes, 3), 0);
    EXPECT_EQ(v.GetBit(0), 1);
    EXPECT_EQ(v.GetBit(7), 1);
    EXPECT_EQ(v.GetBit(8), 0);
    EXPECT_EQ(v.GetBit(17), 1);
    EXPECT_EQ(v.GetBit(24), 0);
    EXPECT_EQ(v.GetBit(-1), 0);
    EXPECT_EQ(v.SetBit(8, 1), 1);
    EXPECT_EQ(v.Buf[1], 0x80);
    EXPECT_EQ(v.SetBit(0, 0), 1);
    EXPECT_EQ(v.Buf[0], 0x01);
    EXPECT_EQ(v.SetBit(24, 1), 0);

    MyBufValue sized(5);
    EXPECT_EQ(sized.Len, 5);
    EXPECT_EQ(sized.Capacity, 5);
    EXPECT_EQ(sized.Flags & 1, 1);
    EXPECT_EQ(sized.Buf[4], 0);
}

TEST(MyBufValue, bTypeToRdxTable) {
    const int expected[26] = {1, 2, 2, 2, 2, 2, 2, 2, 3, 2, 4, 0, 2,
                              2, 2, 0, 0, 4, 4, 4, 0, 0, 0, 4, 0, 0};
    MyBufValue v;
    for (int t = 0; t < 26; ++t) {
        v.bType = t;
        EXPECT_EQ(v.bTypeToRdx(), expected[t]) << t;
    }
    v.bType = 100;
    EXPECT_EQ(v.bTypeToRdx(), 0);
    v.bType = -1;
    EXPECT_EQ(v.bTypeToRdx(), 0);
}

TEST(qolBitSet, ConstructAndSetBits) {
    qolBitSet empty(0);
    EXPECT_EQ(empty.BitLen, 0);
    EXPECT_EQ(empty.ByteLen, 1);
    EXPECT_EQ(empty.Buf[0], 0);
    EXPECT_EQ(empty.SetBit(0), -1);
    EXPECT_EQ(empty.GetIdx(0), -1);
    EXPECT_TRUE(empty.IsEmpty());

    qolBitSet b(10);
    EXPECT_EQ(b.ByteLen, 2);
    EXPECT_EQ(b.BitLen, 10);
    EXPECT_EQ(qolBitSet(16).ByteLen, 2);
    EXPECT_EQ(qolBitSet(17).ByteLen, 3);
    EXPECT_EQ(b.SetBit(0), 0);
    EXPECT_EQ(b.SetBit(9), 0);
    EXPECT_EQ(b.SetBit(10), -1);
    EXPECT_EQ(b.SetBit(-1), -1);
    EXPECT_EQ(b.Buf[0], 0x80);
    EXPECT_EQ(b.Buf[1], 0x40);
    EXPECT_EQ(b.GetIdx(0), 1);
    EXPECT_EQ(b.GetIdx(1), 0);
    EXPECT_EQ(b.GetIdx(10), -1);
    EXPECT_EQ(b.GetOneAfter(-1), 0);
    EXPECT_EQ(b.GetOneAfter(0), 9);
    EXPECT_EQ(b.GetOneAfter(9), -1);
    EXPECT_EQ(b.GetOneCount(), 2);
    EXPECT_FALSE(b.IsEmpty());
    EXPECT_EQ(b.BufToStr(), "1000000001");
    EXPECT_EQ(b.ToUchar(), 0x80);
    EXPECT_EQ(b.ToUshort(), 0x8040);
    EXPECT_EQ(b.ResetBit(0), 0);
    EXPECT_EQ(b.ResetBit(10), -1);
    EXPECT_EQ(b.GetOneAfter(-1), 9);

    b.SetAll();
    EXPECT_EQ(b.Buf[0], 0xFF);
    EXPECT_EQ(b.Buf[1], 0xC0);
    EXPECT_EQ(b.GetOneCount(), 10);
}

TEST(qolBitSet, ResizeAndCombine) {
    qolBitSet b(8);
    b.SetAll();
    b.Add(3);
    EXPECT_EQ(b.BitLen, 11);
    EXPECT_EQ(b.ByteLen, 2);
    EXPECT_EQ(b.BufToStr(), "11111111000");
    b.Add(0);
    EXPECT_EQ(b.BitLen, 11);
    b.Delete();
    b.Delete();
    EXPECT_EQ(b.BitLen, 9);
    EXPECT_EQ(b.ByteLen, 2);
    b.SetBit(8);
    b.Delete(); // back to a multiple of 8: the last byte goes
    EXPECT_EQ(b.BitLen, 8);
    EXPECT_EQ(b.ByteLen, 1);
    b.Add(1); // the bit comes back cleared
    EXPECT_EQ(b.GetIdx(8), 0);

    EXPECT_EQ(b.REALLOCBUF(0), -1);
    EXPECT_EQ(b.BitLen, 9);
    EXPECT_EQ(b.REALLOCBUF(4), 0);
    EXPECT_EQ(b.BitLen, 4);
    EXPECT_EQ(b.ByteLen, 1);
    EXPECT_EQ(b.Buf[0], 0);

    qolBitSet x(4), y(4), z(5);
    x.SetBit(0);
    x.SetBit(1);
    y.SetBit(1);
    y.SetBit(3);
    EXPECT_TRUE(x.OpOR(y));
    EXPECT_EQ(x.BufToStr(), "1101");
    EXPECT_TRUE(x.OpXOR(y));
    EXPECT_EQ(x.BufToStr(), "1000");
    EXPECT_FALSE(x.OpOR(z));
    EXPECT_FALSE(x.OpXOR(z));
    EXPECT_EQ(x.BufToStr(), "1000");

    qolBitSet copy(2);
    copy.Assign(qolBitSet(0)); // empty source: no effect
    EXPECT_EQ(copy.BitLen, 2);
    copy.Assign(y);
    EXPECT_EQ(copy.BitLen, 4);
    EXPECT_EQ(copy.BufToStr(), "0101");

    qolBitSet mms;
    const unsigned char raw[2] = {0xA5, 0xF0};
    mms.FromBufMMS(raw, 2, 3);
    EXPECT_EQ(mms.BitLen, 13);
    EXPECT_EQ(mms.ByteLen, 2);
    EXPECT_EQ(mms.BufToStr(), "1010010111110");
    EXPECT_EQ(mms.ToUshort(), 0xA5F0);
}
