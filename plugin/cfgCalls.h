// Calls into the host's table of services, one function per slot, by the
// slot's name. Each goes through pGlobcfgInterface; with no table, or an
// empty slot, the call gives the failure result written beside it.
#pragma once

#include "plugin/cfgInterface.h"

#include <vector>

int cfgObType(void* ob);                                                      // -1
void* cfgObOwner(void* ob);                                                   // null
int cfgObChildCount(void* ob, int kind);                                      // 0
void* cfgObChild(void* ob, int kind, int index);                              // null
int cfgObChildList(void* ob, int kind, void** list, int capacity);            // 0
int cfgObFreeNumber(void* parent, int kind);                                  // -1
const char* cfgObClassText(void* ob, const char* key);                        // null
bool cfgPropInfo(void* ob, const char* name, cfgParamInfo* info);             // false
bool cfgPropInfoAt(void* ob, int index, cfgParamInfo* info);                  // false
int cfgPropCount(void* ob);                                                   // 0
const char* cfgPropName(void* ob, int index);                                 // null
int cfgPropIndex(void* ob, const char* name);                                 // -1
void* cfgObCreate(void* parent, int kind, int number, const char* moduleKey); // null
void cfgObDelete(void* ob);
bool cfgPropGet(void* ob, const char* name, cfgParamValue* value);       // false
bool cfgPropGetAt(void* ob, int index, cfgParamValue* value);            // false
bool cfgPropSet(void* ob, const char* name, const cfgParamValue* value); // false
bool cfgPropSetAt(void* ob, int index, const cfgParamValue* value);      // false
bool cfgObCheck(void* ob);                                               // false
int cfgObAllCount(void* ob, int kind);                                   // 0

// The child walk: the count of children of `kind`, an array of that many
// zeroed handles, the host's list into it, the array freed. Returns the
// entries the host stored, unfiltered: callers test the kind of each.
std::vector<void*> GetChildren(void* ob, int kind);
