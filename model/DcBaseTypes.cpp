#include "model/DcBaseTypes.h"

#include <cctype>
#include <cstdlib>
#include <cstring>

DcBaseDATypes DATypes[DATypesCount] = {
    {0, "BOOL", 1},
    {1, "INT8", 1},
    {2, "INT16", 2},
    {3, "INT32", 4},
    {4, "UINT8", 1},
    {5, "UINT16", 2},
    {6, "UINT32", 4},
    {7, "ENUM", 2},
    {8, "FLOAT32", 4},
    {9, "BITSTRING", 1},
    {10, "VISIBLE_STRING32", 32},
    {11, "TEXT", -1},
    {12, "QUALITY", 1},
    {13, "BITSTRING5", 1},
    {14, "BITSTRING12", 2},
};

DcSecTypes SecTypesA[SecTypesCount] = {
    {0, "Data_Real", "FLOAT32"},      {1, "Data_State", "BITSTRING"},
    {2, "Data_Discrete", "INT32"},    {3, "Data_StateSupplemental", "BITSTRING"},
    {4, "Data_Flags", "BITSTRING"},   {5, "Data_TimeStamp", "GMTBasedS"},
    {6, "GMTBasedS", "INT32"},        {7, "GMTBasedM", "INT32"},
    {8, "GMTBasedH", "INT32"},        {9, "GMTBasedD", "INT32"},
    {11, "TimeIntervalD", "INT16"},   {12, "TimeIntervalH", "INT16"},
    {13, "TimeIntervalM", "INT16"},   {14, "TimeIntervalS", "INT32"},
    {15, "TimeIntervalL16", "INT16"}, {16, "TimeIntervalL32", "INT32"},
    {17, "COV_Counter", "UINT16"},    {18, "DiscreteSetPoint", "INT32"},
    {19, "RealSetPoint", "FLOAT32"},  {20, "ControlCommand", "INT16"},
};

int ComDATypes(const void* a, const void* b) {
    return strcmp(static_cast<const DcBaseDATypes*>(a)->name,
                  static_cast<const DcBaseDATypes*>(b)->name);
}

int ComSecondaryTypes(const void* a, const void* b) {
    return strcmp(static_cast<const DcSecTypes*>(a)->alias,
                  static_cast<const DcSecTypes*>(b)->alias);
}

void SortDATypes() {
    qsort(DATypes, DATypesCount, sizeof(DcBaseDATypes), ComDATypes);
}

namespace {

void UpperInPlace(char* text) {
    for (; *text; ++text)
        *text = char(toupper(static_cast<unsigned char>(*text)));
}

} // namespace

void SecTypesAToUp() {
    for (DcSecTypes& row : SecTypesA) {
        UpperInPlace(row.alias);
        UpperInPlace(row.target);
    }
}

void SortSecondaryTypes() {
    qsort(SecTypesA, SecTypesCount, sizeof(DcSecTypes), ComSecondaryTypes);
}

// The recursive bisection shared by both tables: key(i) is the text of row i.
template <typename Key> static int Bisect(int lo, int hi, const char* name, Key key) {
    while (true) {
        if (hi - lo < 2) {
            int c = strcmp(name, key(hi));
            if (c > 0)
                return -1;
            if (c == 0)
                return hi;
            return strcmp(name, key(lo)) == 0 ? lo : -1;
        }
        int mid = (lo + hi) / 2;
        int c = strcmp(name, key(mid));
        if (c == 0)
            return mid;
        if (c < 0)
            hi = mid;
        else
            lo = mid;
    }
}

int FindDAType(DcBaseDATypes* table, int lo, int hi, const char* name) {
    if (!table || !name || lo < 0 || hi < lo)
        return -1;
    return Bisect(lo, hi, name, [table](int i) { return table[i].name; });
}

int FindSecond(const char* name, char* target, int lo, int hi) {
    if (!name || lo < 0 || hi < lo || hi >= SecTypesCount)
        return -1;
    int row = Bisect(lo, hi, name, [](int i) { return SecTypesA[i].alias; });
    if (row >= 0 && target) {
        const size_t size = sizeof(SecTypesA[row].target);
        memcpy(target, SecTypesA[row].target, size);
        target[size - 1] = 0;
    }
    return row;
}

int FindDAType2(DcBaseDATypes* table, int lo, int hi, const char* name) {
    if (!name)
        return -1;
    char current[sizeof(SecTypesA[0].target)];
    if (strlen(name) >= sizeof(current))
        return -1; // longer than any name of the tables
    strcpy(current, name);
    // Each step follows one alias; more steps than rows would be a cycle.
    for (int step = 0; step <= SecTypesCount; ++step) {
        char target[sizeof(SecTypesA[0].target)];
        if (FindSecond(current, target, 0, SecTypesCount - 1) < 0)
            return FindDAType(table, lo, hi, current);
        memcpy(current, target, sizeof(current));
    }
    return -1;
}
