#include "plugin/CfgIecArvenlib.h"

#include "plugin/cfgCalls.h"

#include <QMessageBox>

TCfgSlotFn* pGlobcfgInterface = nullptr;
void* RecvLine = nullptr;
void* RecvUnit = nullptr;
void* OldRecvUnit = nullptr;
void* RecvTag = nullptr;
void* ObPrj = nullptr;
void* pCfgDirect = nullptr;
tICCdata ICCdata = {0, 0};
QString UnitICDfile;
CfgArvenSR* FCfgArvenSR = nullptr;
QByteArray Filecont;

bool InspectRecvData() {
    if (!RecvLine) {
        QMessageBox::information(nullptr, "Message",
                                 QString("Ошибка в параметрах вызова\n") + "Нет указателя на линию",
                                 QMessageBox::Ok);
        return false;
    }
    ObPrj = cfgObOwner(RecvLine);
    pCfgDirect = ObPrj;
    if (!ObPrj)
        return false;
    return RecvUnit != nullptr;
}

namespace {
// An integer parameter of the unit; 1 when it can't be read. The value's
// tag is taken on trust.
int32_t ReadLimit(void* unit, const char* name) {
    cfgParamValue value = {};
    if (!cfgPropGet(unit, name, &value))
        return 1;
    return value.intValue;
}
} // namespace

void FillProtICCPData(void*& unit) {
    if (cfgObType(unit) != cotUnit) {
        ICCdata = {1, 1};
        return;
    }
    ICCdata.maxICC = ReadLimit(unit, "maxICC");
    ICCdata.maxDS = ReadLimit(unit, "maxDS");
}

extern "C" {

void* CfgFormGet(void* host, void* line, void* unit, void* tag) {
    pGlobcfgInterface = static_cast<TCfgSlotFn*>(host);
    RecvLine = line;
    if (RecvUnit)
        OldRecvUnit = RecvUnit;
    RecvUnit = unit;
    RecvTag = tag;

    if (!InspectRecvData())
        return nullptr;
    FillProtICCPData(unit);
    return FCfgArvenSR;
}

void CfgFormPut(...) {}

void CfgVersion(uint64_t* major, uint64_t* minor, uint64_t* build, void*, const char** author) {
    if (major)
        *major = 2;
    if (minor)
        *minor = 1;
    if (build)
        *build = 0;
    if (author)
        *author = "CfgIecArven: ICCP (TASE.2) server configuration form";
}
}
