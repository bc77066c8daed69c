// A table of services whose reads all answer `value` (or fail) and whose
// writes are recorded, for answers a well-behaved host never gives.
#pragma once

#include "common/SmallProject.h"

struct ScriptedHost {
    ScriptedHost() {
        current = this;
        put(
            slotObType, +[](void*) { return int(cotUnit); });
        put(
            slotPropIndex, +[](void*, const char*) { return current->index; });
        put(
            slotPropGet, +[](void*, const char*, cfgParamValue* v) {
                *v = current->value;
                return current->readOk;
            });
        put(
            slotPropSet, +[](void*, const char* name, const cfgParamValue* v) {
                return current->record(slotPropSet, -1, name, v);
            });
        put(
            slotPropSetAt, +[](void*, int i, const cfgParamValue* v) {
                return current->record(slotPropSetAt, i, nullptr, v);
            });
    }
    template <typename F> void put(int slot, F f) { fns[slot] = reinterpret_cast<TCfgSlotFn>(f); }
    bool record(int slot, int at, const char* name, const cfgParamValue* v) {
        writeSlot = slot;
        writeIndex = at;
        writeName = name;
        written = *v;
        writtenBytes =
            v->type == cptText && v->text ? QByteArray(v->text, v->length) : QByteArray();
        return writeOk;
    }

    int index = 0; // what cfgPropIndex answers for any name
    bool readOk = true, writeOk = true;
    cfgParamValue value = {}, written = {};
    int writeSlot = -1, writeIndex = -1;
    QByteArray writeName, writtenBytes;
    TCfgSlotFn fns[cfgSlotCount] = {};
    TableInUse use{fns};
    inline static ScriptedHost* current = nullptr;
};
