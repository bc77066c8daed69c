// A table of services that answers from a script, for values and failures
// that a well-behaved host never gives: every read returns `value` (or
// fails), every write is recorded.
#pragma once

#include "plugin/cfgInterface.h"

#include <QByteArray>

struct ScriptedHost {
    ScriptedHost();
    ~ScriptedHost();
    ScriptedHost(const ScriptedHost&) = delete;
    ScriptedHost& operator=(const ScriptedHost&) = delete;

    TCfgSlotFn* table() { return slots; }

    // What reads answer.
    int kind = cotUnit;
    int index = 0; // cfgPropIndex of any name
    bool readOk = true;
    cfgParamValue value = {};
    bool writeOk = true;

    // What the last write carried.
    int writeSlot = -1;
    int writeIndex = -1;
    QByteArray writeName;
    cfgParamValue written = {};
    QByteArray writtenBytes; // `length` bytes copied at the call
    int reads = 0;

    TCfgSlotFn slots[cfgSlotCount] = {};
    static ScriptedHost* current;
};
