// Bit arrays and the binary value of a variable.
#pragma once

#include <string>

class DcDA;

// A plain bit array. Bit i lives in byte i >> 3 under mask 0x80 >> (i % 8):
// bit 0 is the top bit of the first byte, as in an MMS bit string.
class qolBitSet {
public:
    // 0 bits: one zero byte; otherwise enough zeroed bytes for `bits`.
    explicit qolBitSet(int bits = 0);
    ~qolBitSet();
    qolBitSet(const qolBitSet&) = delete;
    qolBitSet& operator=(const qolBitSet&) = delete;

    unsigned char* Buf;
    int ByteLen;
    int BitLen;

    // Resizes to `bits` and zeroes; -1 for 0 (or fewer) bits, else 0.
    int REALLOCBUF(int bits);
    // Copy of other; no effect when other has no bits.
    void Assign(const qolBitSet& other);
    // this |= other, this ^= other; false unless both lengths are equal.
    bool OpOR(const qolBitSet& other);
    bool OpXOR(const qolBitSet& other);
    // 0 or 1, -1 out of range.
    int GetIdx(int i) const;
    // 0, or -1 out of range.
    int SetBit(int i);
    int ResetBit(int i);
    // All BitLen bits set.
    void SetAll();
    // n more bits, zeroed.
    void Add(int n);
    // One bit fewer.
    void Delete();
    int GetOneCount() const;
    // Next set bit after i, or -1.
    int GetOneAfter(int i) const;
    // No bit set.
    bool IsEmpty() const;
    // The first byte; the first two bytes, bit 0 on top.
    unsigned char ToUchar() const;
    unsigned short ToUshort() const;
    // Takes an MMS bit string: BitLen = bytes * 8 - unusedBits.
    void FromBufMMS(const unsigned char* buf, int bytes, int unusedBits);
    // "0"/"1" per bit, bit 0 first.
    std::string BufToStr() const;
};

// One variable's value in the binary form of its type. A plain record: the
// type setup (SetbType, belonging to the model, which reads the variable's
// template) fills the fields directly.
class MyBufValue {
public:
    MyBufValue() = default;
    // A zeroed buffer of `size` bytes.
    explicit MyBufValue(int size);
    // Typed for the variable: runs SetbType. Defined with DcDA in the model.
    explicit MyBufValue(DcDA* da);
    ~MyBufValue();
    MyBufValue(const MyBufValue&) = delete;
    MyBufValue& operator=(const MyBufValue&) = delete;

    unsigned char* Buf = nullptr; // the value (malloc'ed, owned); null until typed
    int Len = 0;                  // bytes in use
    DcDA* Owner = nullptr;        // the variable
    int bType = 0;                // id in DATypes, -1 to 14
    unsigned char Flags = 0;      // bit 0: buffer allocated, bit 2: size known
    int Capacity = 0;             // bytes allocated
    unsigned char UnusedBits = 0; // unused bits at the end of a bit string
    int Size = 0;                 // size of the type
    std::string Names;            // bit names

    // Types the value from the variable's template; bType, or -1. Defined
    // with DcDA in the model.
    int SetbType(DcDA* da);
    // The value as text, by bType.
    std::string Tostring() const;
    // Sets the value from text, by bType; -1 if refused, 0 on success.
    int SetFromstring(const std::string& text);
    // Copies Buf, Len, Flags, Capacity, UnusedBits, Size and bType; Owner and
    // Names stay.
    void Assign(const MyBufValue& other);
    // Resizes to `size` bytes and copies them; nothing for size < 1.
    void FromBuf(const unsigned char* bytes, int size);
    // Bit i (mask as in qolBitSet) set or cleared; 1, or 0 past the end.
    int SetBit(int i, int value);
    // 0 or 1; 0 past the end.
    int GetBit(int i) const;
    // The host's tag type for bType.
    int bTypeToRdx() const;

    // (Re)allocates Buf to `size` zeroed bytes: Capacity = size, Flags bit 0.
    // Len is left to the caller. Nothing for size < 1.
    void ReallocBuf(int size);
};
