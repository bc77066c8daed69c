#include "support/MyBuf.h"

#include <gtest/gtest.h>
#include <vector>

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

std::vector<int> Bytes(const MyBufValue& v, size_t n) {
    return std::vector<int>(v.Buf, v.Buf + n);
}

} // namespace

TEST(MyBufValue, ValuesAndBitSets) {
    // Without a buffer or a known type no text is taken.
    MyBufValue v;
    EXPECT_EQ(v.SetFromstring("true"), -1);
    Type(v, -1, 1);
    EXPECT_EQ(v.SetFromstring("1"), -1);
    for (int t : {1, 2, 3, 8, 9, 10}) {
        MyBufValue empty;
        empty.bType = t;
        EXPECT_EQ(empty.Tostring() + std::to_string(empty.SetFromstring("1")), "-1") << t;
    }
    // Each row: a fresh value of the type takes the text and shows it back.
    struct Row {
        int bType, size, unused;
        const char* in;
        int result;
        const char* out;
        std::vector<int> bytes;
    };
    // Only the low bytes are kept; INT32 reads back signed; a bit string of the
    // wrong length is refused and leaves zero bits.
    const Row rows[] = {{0, 1, 0, "TRUE", 0, "true", {1}},
                        {0, 1, 0, "1", 0, "false", {0}},
                        {2, 2, 0, "-1", 0, "65535", {0xFF, 0xFF}},
                        {2, 2, 0, "70000", 0, "4464", {}},
                        {4, 1, 0, "300", 0, "44", {}},
                        {11, 1, 0, "", -1, " ", {}},
                        {2, 2, 0, "258", 0, "258", {2, 1}},
                        {3, 4, 0, "12abc", 0, "12", {}},
                        {6, 4, 0, "4294967295", 0, "-1", {}},
                        {7, 2, 0, "513", 0, "513", {}},
                        {8, 4, 0, "-0.1", 0, "-0.100000", {}},
                        {13, 1, 3, "00100", 0, "00100", {0x20}},
                        {13, 1, 3, "00100000", -1, "00000", {0}},
                        {13, 1, 3, "1x0a1", 0, "10001", {}},
                        {12, 1, 0, "11000001", 0, "11000001", {0xC1}},
                        {14, 2, 4, "100000000001", 0, "100000000001", {0x80, 0x10}}};
    for (const Row& r : rows) {
        SCOPED_TRACE(std::to_string(r.bType) + " " + r.in);
        MyBufValue v;
        Type(v, r.bType, r.size, r.unused);
        std::fill(v.Buf, v.Buf + r.size, 0xFF); // cleared whatever the text
        EXPECT_EQ(v.SetFromstring(r.in), r.result);
        EXPECT_EQ(v.Tostring(), r.out);
        EXPECT_TRUE(r.bytes.empty() || Bytes(v, r.bytes.size()) == r.bytes);
    }
    // TEXT (size -1) accepts no text; its buffer is cleared all the same.
    MyBufValue text;
    Type(text, 11, 1);
    text.Size = -1;
    text.Buf[0] = 0xFF;
    EXPECT_TRUE(text.SetFromstring("") == -1 && text.Buf[0] == 0);

    MyBufValue s;
    Type(s, 10, 32);
    EXPECT_EQ(s.Tostring(), "");
    // Shorter than Len: the head is overwritten, the old tail stays.
    s.SetFromstring("abc");
    EXPECT_EQ(s.SetFromstring("x"), 0);
    EXPECT_EQ(s.Tostring(), "xbc");
    // 31 characters are not below Capacity - 1.
    EXPECT_EQ(s.SetFromstring(std::string(31, 'r')), -1);
    // A text reaching Len clears the buffer first and sets Len; Len bytes are read.
    s.Len = 4;
    s.SetFromstring("hello");
    EXPECT_EQ(s.Len, 6);
    s.SetFromstring("hi");
    s.Len = 3;
    EXPECT_EQ(s.Tostring(), "hil");
    MyBufValue src;
    Type(src, 13, 1, 3);
    src.SetFromstring("10100");
    src.Names = "a,b,c";
    MyBufValue dst;
    int ownerTag = 0;
    dst.Owner = reinterpret_cast<DcDA*>(&ownerTag);
    dst.Names = "mine";
    dst.Assign(src);
    EXPECT_TRUE(dst.Owner == reinterpret_cast<DcDA*>(&ownerTag) && dst.Names == "mine");
    src.SetFromstring("00001"); // the copy has its own bytes
    EXPECT_EQ(dst.Tostring(), "10100");
    MyBufValue none;
    none.bType = 2;
    dst.Assign(none);
    EXPECT_TRUE(dst.Buf == nullptr && dst.bType == 2);

    MyBufValue raw;
    const unsigned char bytes[3] = {0x81, 0x00, 0x7F};
    raw.FromBuf(bytes, 3);
    EXPECT_EQ(raw.GetBit(17), 1);
    EXPECT_EQ(raw.SetBit(8, 1), 1);
    EXPECT_EQ(raw.SetBit(24, 1), 0);
    EXPECT_EQ(qolBitSet(17).ByteLen, 3);
    qolBitSet b(10);
    const int sets[][2] = {{9, 0}, {10, -1}, {-1, -1}};
    for (const auto& s : sets)
        EXPECT_EQ(b.SetBit(s[0]), s[1]) << s[0];
    EXPECT_EQ(b.GetIdx(9), 1);
    EXPECT_EQ(b.GetOneAfter(-1), 9);
    EXPECT_EQ(b.GetOneAfter(9), -1);
    EXPECT_EQ(b.ToUshort(), 0x0040);
    b.SetAll();
    EXPECT_EQ(b.GetOneCount(), 10);
    EXPECT_EQ(b.ResetBit(0), 0);
    EXPECT_EQ(b.BufToStr(), "0111111111");
    qolBitSet mms;
    const unsigned char mmsBytes[2] = {0xA5, 0xF0};
    mms.FromBufMMS(mmsBytes, 2, 3);
    EXPECT_EQ(mms.BufToStr(), "1010010111110");
    EXPECT_EQ(mms.ToUchar(), 0xA5);
    qolBitSet grown(8);
    grown.SetAll();
    grown.Add(3);
    EXPECT_EQ(grown.BufToStr(), "11111111000");
    grown.Delete();
    EXPECT_EQ(grown.BitLen, 10);
    EXPECT_TRUE(grown.REALLOCBUF(0) == -1 && grown.REALLOCBUF(4) == 0 && grown.Buf[0] == 0);
    qolBitSet x(4), y(4);
    y.SetBit(1);
    EXPECT_TRUE(x.OpOR(y) && x.OpXOR(y) && !x.OpOR(qolBitSet(5)));
    EXPECT_EQ(x.BufToStr(), "0000");
    qolBitSet copy(2);
    copy.Assign(y);
    EXPECT_EQ(copy.BufToStr(), "0100");
}
