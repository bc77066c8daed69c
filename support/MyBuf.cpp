#include "support/MyBuf.h"

#include "support/StrUtils.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

int BytesFor(int bits) {
    return bits / 8 + (bits % 8 ? 1 : 0);
}

unsigned char Mask(int i) {
    return static_cast<unsigned char>(0x80 >> (i % 8));
}

unsigned char* ZeroedBytes(int bytes) {
    return static_cast<unsigned char*>(std::calloc(bytes > 0 ? bytes : 1, 1));
}

} // namespace

// ---------------------------------------------------------------- qolBitSet

qolBitSet::qolBitSet(int bits) {
    if (bits <= 0) {
        ByteLen = 1;
        BitLen = 0;
    } else {
        ByteLen = BytesFor(bits);
        BitLen = bits;
    }
    Buf = ZeroedBytes(ByteLen);
}

qolBitSet::~qolBitSet() {
    std::free(Buf);
}

int qolBitSet::REALLOCBUF(int bits) {
    if (bits <= 0)
        return -1;
    std::free(Buf);
    ByteLen = BytesFor(bits);
    BitLen = bits;
    Buf = ZeroedBytes(ByteLen);
    return 0;
}

void qolBitSet::Assign(const qolBitSet& other) {
    if (other.BitLen == 0 || &other == this)
        return;
    std::free(Buf);
    ByteLen = other.ByteLen;
    BitLen = other.BitLen;
    Buf = ZeroedBytes(ByteLen);
    std::memcpy(Buf, other.Buf, ByteLen);
}

bool qolBitSet::OpOR(const qolBitSet& other) {
    if (BitLen != other.BitLen || ByteLen != other.ByteLen)
        return false;
    for (int k = 0; k < ByteLen; ++k)
        Buf[k] |= other.Buf[k];
    return true;
}

bool qolBitSet::OpXOR(const qolBitSet& other) {
    if (BitLen != other.BitLen || ByteLen != other.ByteLen)
        return false;
    for (int k = 0; k < ByteLen; ++k)
        Buf[k] ^= other.Buf[k];
    return true;
}

int qolBitSet::GetIdx(int i) const {
    if (i < 0 || i >= BitLen)
        return -1;
    return (Buf[i >> 3] & Mask(i)) ? 1 : 0;
}

int qolBitSet::SetBit(int i) {
    if (i < 0 || i >= BitLen)
        return -1;
    Buf[i >> 3] |= Mask(i);
    return 0;
}

int qolBitSet::ResetBit(int i) {
    if (i < 0 || i >= BitLen)
        return -1;
    Buf[i >> 3] &= static_cast<unsigned char>(~Mask(i));
    return 0;
}

void qolBitSet::SetAll() {
    std::memset(Buf, 0xFF, ByteLen);
    for (int i = BitLen; i < ByteLen * 8; ++i)
        Buf[i >> 3] &= static_cast<unsigned char>(~Mask(i));
}

void qolBitSet::Add(int n) {
    if (n <= 0)
        return;
    int bytes = BytesFor(BitLen + n);
    if (bytes > ByteLen) {
        unsigned char* grown = ZeroedBytes(bytes);
        std::memcpy(grown, Buf, ByteLen);
        std::free(Buf);
        Buf = grown;
        ByteLen = bytes;
    }
    BitLen += n;
}

void qolBitSet::Delete() {
    if (BitLen == 0)
        return;
    // The bit that goes is cleared, so that a later Add brings a zero back.
    ResetBit(BitLen - 1);
    --BitLen;
    if (BitLen % 8 == 0 && ByteLen > 1)
        --ByteLen;
}

int qolBitSet::GetOneCount() const {
    int count = 0;
    for (int i = 0; i < BitLen; ++i)
        count += GetIdx(i);
    return count;
}

int qolBitSet::GetOneAfter(int i) const {
    for (int j = i < 0 ? 0 : i + 1; j < BitLen; ++j)
        if (GetIdx(j) == 1)
            return j;
    return -1;
}

bool qolBitSet::IsEmpty() const {
    return GetOneAfter(-1) < 0;
}

unsigned char qolBitSet::ToUchar() const {
    return Buf[0];
}

unsigned short qolBitSet::ToUshort() const {
    unsigned short low = ByteLen > 1 ? Buf[1] : 0;
    return static_cast<unsigned short>((Buf[0] << 8) | low);
}

void qolBitSet::FromBufMMS(const unsigned char* buf, int bytes, int unusedBits) {
    if (!buf || bytes <= 0)
        return;
    std::free(Buf);
    ByteLen = bytes;
    Buf = ZeroedBytes(bytes);
    std::memcpy(Buf, buf, bytes);
    BitLen = bytes * 8 - unusedBits;
    if (BitLen < 0)
        BitLen = 0;
}

std::string qolBitSet::BufToStr() const {
    std::string text;
    for (int i = 0; i < BitLen; ++i)
        text += GetIdx(i) == 1 ? '1' : '0';
    return text;
}

// ---------------------------------------------------------------- MyBufValue

MyBufValue::MyBufValue(int size) {
    ReallocBuf(size);
    if (Buf)
        Len = size;
}

MyBufValue::~MyBufValue() {
    std::free(Buf);
}

void MyBufValue::ReallocBuf(int size) {
    if (size < 1)
        return;
    void* p = std::realloc(Buf, size);
    if (!p)
        return;
    Buf = static_cast<unsigned char*>(p);
    std::memset(Buf, 0, size);
    Capacity = size;
    Flags |= 1;
}

namespace {

// Little-endian integer from the first `bytes` bytes of buf (at most len).
unsigned long ReadUnsigned(const unsigned char* buf, int len, int bytes) {
    unsigned long value = 0;
    for (int k = 0; k < bytes && k < len; ++k)
        value |= static_cast<unsigned long>(buf[k]) << (8 * k);
    return value;
}

} // namespace

std::string MyBufValue::Tostring() const {
    if (bType < 0)
        return std::string();
    switch (bType) {
    case 0:
        if (!Buf)
            return std::string();
        return Buf[0] ? "true" : "false";
    case 1:
    case 4:
    case 2:
    case 5: {
        if (!Buf)
            return std::string();
        int bytes = (bType == 1 || bType == 4) ? 1 : 2;
        return std::to_string(ReadUnsigned(Buf, Len, bytes));
    }
    case 3:
    case 6:
    case 7:
        if (!Buf)
            return std::string();
        return Int2Str(static_cast<int>(static_cast<unsigned int>(ReadUnsigned(Buf, Len, 4))));
    case 8: {
        if (!Buf)
            return std::string();
        float f = 0;
        std::memcpy(&f, Buf, Len < 4 ? (Len > 0 ? Len : 0) : 4);
        char text[64];
        std::snprintf(text, sizeof text, "%f", f);
        return text;
    }
    case 9:
    case 12:
    case 13:
    case 14: {
        if (!Buf)
            return std::string();
        std::string text;
        for (int i = 0; i < Size * 8 - UnusedBits; ++i)
            text += GetBit(i) ? '1' : '0';
        return text;
    }
    case 10: {
        if (!Buf)
            return std::string();
        int n = 0;
        while (n < Len && n < Capacity && Buf[n] != 0)
            ++n;
        return std::string(reinterpret_cast<const char*>(Buf), n);
    }
    default:
        return " ";
    }
}

int MyBufValue::SetFromstring(const std::string& text) {
    if (bType < 0 || !Buf)
        return -1;
    switch (bType) {
    case 0:
        Buf[0] = Str2LowerP(text) == "true" ? 1 : 0;
        return 0;
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
    case 7: {
        std::memset(Buf, 0, Capacity);
        unsigned long value = static_cast<unsigned long>(std::strtol(text.c_str(), nullptr, 10));
        for (int k = 0; k < Size && k < Capacity && k < 8; ++k)
            Buf[k] = static_cast<unsigned char>(value >> (8 * k));
        return 0;
    }
    case 8: {
        std::memset(Buf, 0, Capacity);
        float f = static_cast<float>(std::strtod(text.c_str(), nullptr));
        std::memcpy(Buf, &f, Capacity < 4 ? Capacity : 4);
        return 0;
    }
    case 9:
    case 11:
    case 12:
    case 13:
    case 14: {
        std::memset(Buf, 0, Capacity);
        if (static_cast<long>(text.size()) != static_cast<long>(Size) * 8 - UnusedBits)
            return -1;
        for (size_t i = 0; i < text.size(); ++i)
            if (text[i] == '1')
                SetBit(static_cast<int>(i), 1);
        return 0;
    }
    case 10: {
        long len = static_cast<long>(text.size());
        if (len >= Capacity - 1)
            return -1;
        // A text reaching Len starts from a zeroed buffer of len + 1 bytes in
        // use; the allocation of Capacity bytes already holds them. A shorter
        // text overwrites the head and leaves the old tail.
        if (len >= Len) {
            std::memset(Buf, 0, Capacity);
            Len = static_cast<int>(len) + 1;
        }
        std::memcpy(Buf, text.data(), len);
        return 0;
    }
    default:
        return -1;
    }
}

void MyBufValue::Assign(const MyBufValue& other) {
    if (&other == this)
        return;
    if (other.Buf && other.Capacity > 0) {
        ReallocBuf(other.Capacity);
        std::memcpy(Buf, other.Buf, other.Capacity);
    } else {
        std::free(Buf);
        Buf = nullptr;
    }
    Len = other.Len;
    Flags = other.Flags;
    Capacity = other.Capacity;
    UnusedBits = other.UnusedBits;
    Size = other.Size;
    bType = other.bType;
}

void MyBufValue::FromBuf(const unsigned char* bytes, int size) {
    if (!bytes || size < 1)
        return;
    ReallocBuf(size);
    std::memcpy(Buf, bytes, size);
    Len = size;
}

int MyBufValue::SetBit(int i, int value) {
    if (!Buf || i < 0 || i >= Len * 8)
        return 0;
    if (value)
        Buf[i >> 3] |= Mask(i);
    else
        Buf[i >> 3] &= static_cast<unsigned char>(~Mask(i));
    return 1;
}

int MyBufValue::GetBit(int i) const {
    if (!Buf || i < 0 || i >= Len * 8)
        return 0;
    return (Buf[i >> 3] & Mask(i)) ? 1 : 0;
}

int MyBufValue::bTypeToRdx() const {
    static const int rdx[24] = {1, 2, 2, 2, 2, 2, 2, 2, 3, 2, 4, 0,
                                2, 2, 2, 0, 0, 4, 4, 4, 0, 0, 0, 4};
    if (bType < 0 || bType > 23)
        return 0;
    return rdx[bType];
}
