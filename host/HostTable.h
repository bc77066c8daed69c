// The stand-in host's table of services: 28 slots with the C calling
// convention, over the live objects of every project.
#pragma once

#include "plugin/cfgInterface.h"

#include <QByteArray>

#include <functional>

// The table. A handle is a pointer to a HostObject; a handle that names no
// live object, a null array or a null name gives the slot's failure result.
TCfgSlotFn* CfgHostTable();

// Faults that one call of the table can be made to give, on top of its real
// work (a write or a delete made to fail is not done).
enum THostFault {
    hfRefuse,        // the slot's failure result: -1, 0, false, or in error
    hfNullHandle,    // a null handle or a null text
    hfWrongKind,     // another kind, a handle of another kind, a value of another type
    hfCountTooLarge, // a count past the list or the text, an integer of INT_MAX
    hfNegativeCount, // a count or a byte count of -1, an integer of INT_MIN
    hfNullArray,     // a text or description whose pointers are null
    hfFaultKinds
};

// The faults that fit a slot's signature, as bits 1 << THostFault.
int CfgHostSlotFaults(int slot);
// Counts the calls of the table from zero again; the nth call counted (from
// 1) gives `fault` when it fits its slot. An `nth` of 0 makes no call fail.
void CfgHostInjectFault(long nth = 0, THostFault fault = hfRefuse);
// Reads of the text parameter `name` report `length` as its byte count, until
// a call with an empty name.
void CfgHostMisreportLength(const QByteArray& name, int length = 0);
// The calls counted since CfgHostInjectFault.
long CfgHostCalls();
// Runs `road` once with no fault, then once for each call it made from the
// call numbered by its result on, and each fault that fits that call's
// slot. Returns the runs in which the fault was given: calls made by paint
// events may shift the numbers from one run to the next.
long CfgHostWalkFaults(const std::function<long()>& road);
