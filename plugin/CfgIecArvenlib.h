// The plug-in's entries and the run state that the host hands over at each
// call. All of it is process-wide: one form per process, reused by every call.
#pragma once

#include "plugin/cfgInterface.h"

#include <QByteArray>
#include <QString>
#include <cstdint>

#define ICCP_EXPORT __attribute__((visibility("default")))

class CfgArvenSR;

// The unit's limits: number of ICCs, number of data sets of each.
struct tICCdata {
    int32_t maxICC;
    int32_t maxDS;
};

extern TCfgSlotFn* pGlobcfgInterface; // the host's table of services
extern void* RecvLine;                // the line of the call
extern void* RecvUnit;                // the unit being configured
extern void* OldRecvUnit;             // the previous non-null unit
extern void* RecvTag;                 // the tag argument, kept only
extern void* ObPrj;                   // owner of the line
extern void* pCfgDirect;              // owner of the line, whose units the form lists
extern tICCdata ICCdata;
extern QString UnitICDfile;
extern CfgArvenSR* FCfgArvenSR; // the single form, created on the first good call
extern QByteArray Filecont;     // text of the last template or file read

// Checks the stored arguments of the call; tells the user when the line is
// missing.
bool InspectRecvData();
// Reads the limits "maxICC" and "maxDS" of the unit into ICCdata.
void FillProtICCPData(void*& unit);

extern "C" {
// One editing run for the unit; returns the form, or null when the call was
// refused.
ICCP_EXPORT void* CfgFormGet(void* host, void* line, void* unit, void* tag);
// Asked for by the host's loader; does nothing.
ICCP_EXPORT void CfgFormPut(...);
// Version 2.1.0 and the author text; every pointer may be null.
ICCP_EXPORT void CfgVersion(uint64_t* major, uint64_t* minor, uint64_t* build, void* reserved,
                            const char** author);
}
