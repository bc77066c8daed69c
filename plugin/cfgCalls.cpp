#include "plugin/cfgCalls.h"

#include "plugin/CfgIecArvenlib.h"

#include <cstdlib>

namespace {
template <typename F> F Slot(TCfgSlot slot) {
    return pGlobcfgInterface ? reinterpret_cast<F>(pGlobcfgInterface[slot]) : nullptr;
}
} // namespace

#define CFG_CALL_DEFINITION(name, result, failure, params, args)                                   \
    result cfg##name params {                                                                      \
        auto f = Slot<Tcfg##name>(slot##name);                                                     \
        return f ? f args : failure;                                                               \
    }
CFG_HOST_SLOTS(CFG_CALL_DEFINITION, CFG_UNUSED_CALL)
#undef CFG_CALL_DEFINITION

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
