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

// The table of services, one entry a slot in the order of the table: name,
// result, failure result, parameters and argument names. An unused slot
// holds its place. The list makes the slot positions, the signatures and
// the plug-in's wrappers (plugin/cfgCalls.h); the failure result is what a
// wrapper gives when the table or the slot is empty.
#define CFG_HOST_SLOTS(SLOT, UNUSED)                                                               \
    SLOT(ObType, int, -1, (void* ob), (ob))                                                        \
    SLOT(ObOwner, void*, nullptr, (void* ob), (ob))                                                \
    SLOT(ObChildCount, int, 0, (void* ob, int kind), (ob, kind))                                   \
    SLOT(ObChild, void*, nullptr, (void* ob, int kind, int index), (ob, kind, index))              \
    SLOT(ObChildList, int, 0, (void* ob, int kind, void** list, int capacity),                     \
         (ob, kind, list, capacity))                                                               \
    SLOT(ObFreeNumber, int, -1, (void* parent, int kind), (parent, kind))                          \
    UNUSED(6)                                                                                      \
    SLOT(ObClassText, const char*, nullptr, (void* ob, const char* key), (ob, key))                \
    SLOT(PropInfo, bool, false, (void* ob, const char* name, cfgParamInfo* info),                  \
         (ob, name, info))                                                                         \
    SLOT(PropInfoAt, bool, false, (void* ob, int index, cfgParamInfo* info), (ob, index, info))    \
    SLOT(PropCount, int, 0, (void* ob), (ob))                                                      \
    SLOT(PropName, const char*, nullptr, (void* ob, int index), (ob, index))                       \
    SLOT(PropIndex, int, -1, (void* ob, const char* name), (ob, name))                             \
    UNUSED(13)                                                                                     \
    SLOT(ObCreate, void*, nullptr, (void* parent, int kind, int number, const char* moduleKey),    \
         (parent, kind, number, moduleKey))                                                        \
    SLOT(ObDelete, void, void(), (void* ob), (ob))                                                 \
    SLOT(PropGet, bool, false, (void* ob, const char* name, cfgParamValue* value),                 \
         (ob, name, value))                                                                        \
    SLOT(PropGetAt, bool, false, (void* ob, int index, cfgParamValue* value), (ob, index, value))  \
    SLOT(PropSet, bool, false, (void* ob, const char* name, const cfgParamValue* value),           \
         (ob, name, value))                                                                        \
    SLOT(PropSetAt, bool, false, (void* ob, int index, const cfgParamValue* value),                \
         (ob, index, value))                                                                       \
    SLOT(ObCheck, bool, false, (void* ob), (ob))                                                   \
    UNUSED(21)                                                                                     \
    UNUSED(22)                                                                                     \
    UNUSED(23)                                                                                     \
    UNUSED(24)                                                                                     \
    UNUSED(25)                                                                                     \
    UNUSED(26)                                                                                     \
    SLOT(ObAllCount, int, 0, (void* ob, int kind), (ob, kind))

// Positions in the table: slotObType, slotObOwner, ...
#define CFG_SLOT_POSITION(name, result, failure, params, args) slot##name,
#define CFG_UNUSED_POSITION(position) slotUnused##position,
enum TCfgSlot : int { CFG_HOST_SLOTS(CFG_SLOT_POSITION, CFG_UNUSED_POSITION) cfgSlotCount };
#undef CFG_SLOT_POSITION
#undef CFG_UNUSED_POSITION

// One entry of the table, to be cast to the signature of its slot.
using TCfgSlotFn = void (*)();

// The signatures of the slots, C calling convention: TcfgObType, ...
#define CFG_SLOT_SIGNATURE(name, result, failure, params, args) typedef result(*Tcfg##name) params;
#define CFG_UNUSED_SIGNATURE(position)
extern "C" {
CFG_HOST_SLOTS(CFG_SLOT_SIGNATURE, CFG_UNUSED_SIGNATURE)
}
#undef CFG_SLOT_SIGNATURE
#undef CFG_UNUSED_SIGNATURE

// The host's layout: every slot's byte offset in the table.
static_assert(sizeof(TCfgSlotFn) == 8 && cfgSlotCount == 28, "28 slots of 8 bytes");
static_assert(slotObType * 8 == 0 && slotObOwner * 8 == 8 && slotObChildCount * 8 == 16, "slots");
static_assert(slotObChild * 8 == 24 && slotObChildList * 8 == 32, "slots");
static_assert(slotObFreeNumber * 8 == 40 && slotObClassText * 8 == 56, "slots");
static_assert(slotPropInfo * 8 == 64 && slotPropInfoAt * 8 == 72, "slots");
static_assert(slotPropCount * 8 == 80 && slotPropName * 8 == 88 && slotPropIndex * 8 == 96,
              "slots");
static_assert(slotObCreate * 8 == 112 && slotObDelete * 8 == 120, "slots");
static_assert(slotPropGet * 8 == 128 && slotPropGetAt * 8 == 136, "slots");
static_assert(slotPropSet * 8 == 144 && slotPropSetAt * 8 == 152, "slots");
static_assert(slotObCheck * 8 == 160 && slotObAllCount * 8 == 216, "slots");
