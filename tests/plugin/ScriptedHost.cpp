#include "ScriptedHost.h"

ScriptedHost* ScriptedHost::current = nullptr;

namespace {

void Record(int slot, int index, const char* name, const cfgParamValue* v) {
    ScriptedHost* h = ScriptedHost::current;
    h->writeSlot = slot;
    h->writeIndex = index;
    h->writeName = name ? QByteArray(name) : QByteArray();
    h->written = *v;
    h->writtenBytes = v->type == cptText && v->text ? QByteArray(v->text, v->length) : QByteArray();
}

extern "C" {
int ScriptType(void*) {
    return ScriptedHost::current->kind;
}
int ScriptIndex(void*, const char*) {
    return ScriptedHost::current->index;
}
bool ScriptGet(void*, const char*, cfgParamValue* v) {
    ++ScriptedHost::current->reads;
    *v = ScriptedHost::current->value;
    return ScriptedHost::current->readOk;
}
bool ScriptSet(void*, const char* name, const cfgParamValue* v) {
    Record(slotPropSet, -1, name, v);
    return ScriptedHost::current->writeOk;
}
bool ScriptSetAt(void*, int index, const cfgParamValue* v) {
    Record(slotPropSetAt, index, nullptr, v);
    return ScriptedHost::current->writeOk;
}
}

} // namespace

ScriptedHost::ScriptedHost() {
    current = this;
    slots[slotObType] = reinterpret_cast<TCfgSlotFn>(ScriptType);
    slots[slotPropIndex] = reinterpret_cast<TCfgSlotFn>(ScriptIndex);
    slots[slotPropGet] = reinterpret_cast<TCfgSlotFn>(ScriptGet);
    slots[slotPropSet] = reinterpret_cast<TCfgSlotFn>(ScriptSet);
    slots[slotPropSetAt] = reinterpret_cast<TCfgSlotFn>(ScriptSetAt);
}

ScriptedHost::~ScriptedHost() {
    current = nullptr;
}
