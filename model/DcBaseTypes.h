// The built-in base types and the aliases of the ICCP standard types, with
// their sorting and binary searches.
#pragma once

#include <cstdint>

// A row of DATypes: the bType id, the upper-case name and the size in bytes.
struct DcBaseDATypes {
    int32_t id;
    char name[32];
    int32_t size;
};

// A row of SecTypesA: an alias and its target, which may be an alias again.
struct DcSecTypes {
    int32_t id;
    char alias[32];
    char target[32];
};

const int DATypesCount = 15;
const int SecTypesCount = 20;
extern DcBaseDATypes DATypes[DATypesCount];
extern DcSecTypes SecTypesA[SecTypesCount];

int ComDATypes(const void* a, const void* b);
int ComSecondaryTypes(const void* a, const void* b);
void SortDATypes();
void SecTypesAToUp();
void SortSecondaryTypes();

// Binary search of name in table rows lo..hi (both inclusive); row or -1.
int FindDAType(DcBaseDATypes* table, int lo, int hi, const char* name);
// Binary search of an alias in SecTypesA rows lo..hi; copies the target
// (32 bytes at most) into target. Row or -1.
int FindSecond(const char* name, char* target, int lo, int hi);
// Follows aliases to a base type; row of table or -1.
int FindDAType2(DcBaseDATypes* table, int lo, int hi, const char* name);
