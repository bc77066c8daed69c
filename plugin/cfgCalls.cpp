#include "plugin/cfgCalls.h"

#include "plugin/CfgIecArvenlib.h"

#include <cstdlib>

namespace {
template <typename F> F Slot(TCfgSlot slot) {
    return pGlobcfgInterface ? reinterpret_cast<F>(pGlobcfgInterface[slot]) : nullptr;
}
} // namespace

int cfgObType(void* ob) {
    auto f = Slot<TcfgObType>(slotObType);
    return f ? f(ob) : -1;
}

void* cfgObOwner(void* ob) {
    auto f = Slot<TcfgObOwner>(slotObOwner);
    return f ? f(ob) : nullptr;
}

int cfgObChildCount(void* ob, int kind) {
    auto f = Slot<TcfgObChildCount>(slotObChildCount);
    return f ? f(ob, kind) : 0;
}

void* cfgObChild(void* ob, int kind, int index) {
    auto f = Slot<TcfgObChild>(slotObChild);
    return f ? f(ob, kind, index) : nullptr;
}

int cfgObChildList(void* ob, int kind, void** list, int capacity) {
    auto f = Slot<TcfgObChildList>(slotObChildList);
    return f ? f(ob, kind, list, capacity) : 0;
}

int cfgObFreeNumber(void* parent, int kind) {
    auto f = Slot<TcfgObFreeNumber>(slotObFreeNumber);
    return f ? f(parent, kind) : -1;
}

const char* cfgObClassText(void* ob, const char* key) {
    auto f = Slot<TcfgObClassText>(slotObClassText);
    return f ? f(ob, key) : nullptr;
}

bool cfgPropInfo(void* ob, const char* name, cfgParamInfo* info) {
    auto f = Slot<TcfgPropInfo>(slotPropInfo);
    return f && f(ob, name, info);
}

bool cfgPropInfoAt(void* ob, int index, cfgParamInfo* info) {
    auto f = Slot<TcfgPropInfoAt>(slotPropInfoAt);
    return f && f(ob, index, info);
}

int cfgPropCount(void* ob) {
    auto f = Slot<TcfgPropCount>(slotPropCount);
    return f ? f(ob) : 0;
}

const char* cfgPropName(void* ob, int index) {
    auto f = Slot<TcfgPropName>(slotPropName);
    return f ? f(ob, index) : nullptr;
}

int cfgPropIndex(void* ob, const char* name) {
    auto f = Slot<TcfgPropIndex>(slotPropIndex);
    return f ? f(ob, name) : -1;
}

void* cfgObCreate(void* parent, int kind, int number, const char* moduleKey) {
    auto f = Slot<TcfgObCreate>(slotObCreate);
    return f ? f(parent, kind, number, moduleKey) : nullptr;
}

void cfgObDelete(void* ob) {
    if (auto f = Slot<TcfgObDelete>(slotObDelete))
        f(ob);
}

bool cfgPropGet(void* ob, const char* name, cfgParamValue* value) {
    auto f = Slot<TcfgPropGet>(slotPropGet);
    return f && f(ob, name, value);
}

bool cfgPropGetAt(void* ob, int index, cfgParamValue* value) {
    auto f = Slot<TcfgPropGetAt>(slotPropGetAt);
    return f && f(ob, index, value);
}

bool cfgPropSet(void* ob, const char* name, const cfgParamValue* value) {
    auto f = Slot<TcfgPropSet>(slotPropSet);
    return f && f(ob, name, value);
}

bool cfgPropSetAt(void* ob, int index, const cfgParamValue* value) {
    auto f = Slot<TcfgPropSetAt>(slotPropSetAt);
    return f && f(ob, index, value);
}

bool cfgObCheck(void* ob) {
    auto f = Slot<TcfgObCheck>(slotObCheck);
    return f && f(ob);
}

int cfgObAllCount(void* ob, int kind) {
    auto f = Slot<TcfgObAllCount>(slotObAllCount);
    return f ? f(ob, kind) : 0;
}

std::vector<void*> GetChildren(void* ob, int kind) {
    std::vector<void*> children;
    const int count = cfgObChildCount(ob, kind);
    if (count <= 0)
        return children;
    auto list = static_cast<void**>(calloc(size_t(count), sizeof(void*)));
    if (!list)
        return children;
    const int stored = cfgObChildList(ob, kind, list, count);
    for (int i = 0; i < stored && i < count; ++i)
        if (list[i])
            children.push_back(list[i]);
    free(list);
    return children;
}
