// Calls into the host's table of services, one function per slot, by the
// slot's name. Each goes through pGlobcfgInterface; with no table, or an
// empty slot, the call gives the failure result of its slot's entry in
// CFG_HOST_SLOTS.
#pragma once

#include "plugin/cfgInterface.h"

#include <vector>

// cfgObType, cfgObOwner, ...: one declaration a slot of CFG_HOST_SLOTS.
#define CFG_CALL_DECLARATION(name, result, failure, params, args) result cfg##name params;
#define CFG_UNUSED_CALL(position)
CFG_HOST_SLOTS(CFG_CALL_DECLARATION, CFG_UNUSED_CALL)
#undef CFG_CALL_DECLARATION

// The child walk: the count of children of `kind`, an array of that many
// zeroed handles, the host's list into it, the array freed. Returns the
// entries the host stored, unfiltered: callers test the kind of each.
std::vector<void*> GetChildren(void* ob, int kind);
