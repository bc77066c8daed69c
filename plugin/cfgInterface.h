// The binary interface of the host configurator: the object and value
// vocabulary, the two records that cross the table, and the table of
// services itself. The host is closed, so every number and layout here is
// fixed; the static_asserts below hold the layouts in place.
#pragma once

#include <cstddef>
#include <cstdint>

// Kind of a host object.
enum TCfgObjectType : int32_t {
    cotSource = 0,
    cotPass = 1,
    cotControlSource = 2,
    cotControlPass = 3,
    cotUnit = 4,
    cotLine = 5,
    cotDirect = 6,
    cotProject = 7,
    cotFolderSource = 8,
    cotFolderPass = 9,
    cotFolderControlSource = 10,
    cotFolderControlPass = 11
};

// Type code of a parameter and tag of a value.
enum TCfgPropType : int32_t { cptUndef = 0, cptBool = 1, cptInt = 2, cptDouble = 3, cptText = 4 };

#pragma pack(push, 1)

// A parameter value. The payload starts right after the tag, so the double
// of type 3 lies unaligned at offset 4.
struct cfgParamValue {
    int32_t type; // TCfgPropType
    union {
        uint8_t boolValue;  // type 1: zero or not
        int32_t intValue;   // type 2
        double doubleValue; // type 3
        struct {
            int32_t length; // type 4: count of bytes
            char* text;     // type 4: the bytes
        };
    };
};

// The host's description of one parameter.
struct cfgParamInfo {
    uint8_t reserved0[16];
    const char* caption;
    int32_t type; // TCfgPropType
    uint8_t editable;
    uint8_t visible;
    uint8_t fixedList;
    int32_t enumSize; // 1 to 1099: the parameter has an enumeration
    const char* enumText;
    uint8_t reserved1[4];
    const char* rangeText;
};

#pragma pack(pop)

static_assert(sizeof(TCfgObjectType) == 4 && sizeof(TCfgPropType) == 4, "32-bit enumerations");
static_assert(sizeof(cfgParamValue) == 16, "cfgParamValue is 16 bytes");
static_assert(offsetof(cfgParamValue, type) == 0, "cfgParamValue layout");
static_assert(offsetof(cfgParamValue, boolValue) == 4, "cfgParamValue layout");
static_assert(offsetof(cfgParamValue, intValue) == 4, "cfgParamValue layout");
static_assert(offsetof(cfgParamValue, doubleValue) == 4, "cfgParamValue layout");
static_assert(offsetof(cfgParamValue, length) == 4, "cfgParamValue layout");
static_assert(offsetof(cfgParamValue, text) == 8, "cfgParamValue layout");
static_assert(offsetof(cfgParamInfo, caption) == 16, "cfgParamInfo layout");
static_assert(offsetof(cfgParamInfo, type) == 24, "cfgParamInfo layout");
static_assert(offsetof(cfgParamInfo, editable) == 28, "cfgParamInfo layout");
static_assert(offsetof(cfgParamInfo, visible) == 29, "cfgParamInfo layout");
static_assert(offsetof(cfgParamInfo, fixedList) == 30, "cfgParamInfo layout");
static_assert(offsetof(cfgParamInfo, enumSize) == 31, "cfgParamInfo layout");
static_assert(offsetof(cfgParamInfo, enumText) == 35, "cfgParamInfo layout");
static_assert(offsetof(cfgParamInfo, rangeText) == 47, "cfgParamInfo layout");
static_assert(sizeof(cfgParamInfo) == 55, "cfgParamInfo is 55 bytes");

// Positions in the table. Slots 6, 13 and 21 to 26 exist but are not used.
enum TCfgSlot : int {
    slotObType = 0,
    slotObOwner = 1,
    slotObChildCount = 2,
    slotObChild = 3,
    slotObChildList = 4,
    slotObFreeNumber = 5,
    slotObClassText = 7,
    slotPropInfo = 8,
    slotPropInfoAt = 9,
    slotPropCount = 10,
    slotPropName = 11,
    slotPropIndex = 12,
    slotObCreate = 14,
    slotObDelete = 15,
    slotPropGet = 16,
    slotPropGetAt = 17,
    slotPropSet = 18,
    slotPropSetAt = 19,
    slotObCheck = 20,
    slotObAllCount = 27,
    cfgSlotCount = 28
};

// One entry of the table, to be cast to the signature of its slot.
using TCfgSlotFn = void (*)();

// The signatures of the slots, C calling convention.
extern "C" {
typedef int (*TcfgObType)(void* ob);
typedef void* (*TcfgObOwner)(void* ob);
typedef int (*TcfgObChildCount)(void* ob, int kind);
typedef void* (*TcfgObChild)(void* ob, int kind, int index);
typedef int (*TcfgObChildList)(void* ob, int kind, void** list, int capacity);
typedef int (*TcfgObFreeNumber)(void* parent, int kind);
typedef const char* (*TcfgObClassText)(void* ob, const char* key);
typedef bool (*TcfgPropInfo)(void* ob, const char* name, cfgParamInfo* info);
typedef bool (*TcfgPropInfoAt)(void* ob, int index, cfgParamInfo* info);
typedef int (*TcfgPropCount)(void* ob);
typedef const char* (*TcfgPropName)(void* ob, int index);
typedef int (*TcfgPropIndex)(void* ob, const char* name);
typedef void* (*TcfgObCreate)(void* parent, int kind, int number, const char* moduleKey);
typedef void (*TcfgObDelete)(void* ob);
typedef bool (*TcfgPropGet)(void* ob, const char* name, cfgParamValue* value);
typedef bool (*TcfgPropGetAt)(void* ob, int index, cfgParamValue* value);
typedef bool (*TcfgPropSet)(void* ob, const char* name, const cfgParamValue* value);
typedef bool (*TcfgPropSetAt)(void* ob, int index, const cfgParamValue* value);
typedef bool (*TcfgObCheck)(void* ob);
typedef int (*TcfgObAllCount)(void* ob, int kind);
}
