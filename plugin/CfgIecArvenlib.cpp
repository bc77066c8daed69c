#include "plugin/CfgIecArvenlib.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/cfgCalls.h"
#include "views/SomeModelsIED.h"
#include "views/ViewModel.h"

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
// tag is taken on trust. A value above kMaxLimit counts as unreadable: that
// many ICCs or data sets would not fit in memory.
const int32_t kMaxLimit = 10000;
int32_t ReadLimit(void* unit, const char* name) {
    cfgParamValue value = {};
    if (!cfgPropGet(unit, name, &value) || value.intValue > kMaxLimit)
        return 1;
    return value.intValue;
}
// Data sets listed without transfer sets get theirs.
void CorrectReserve() {
    if (FCfgArvenSR->ReserveList.Count > 0 && pVCC)
        pVCC->CorrectDSTS(&FCfgArvenSR->ReserveList);
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

void CfgArvenSR::ResetFrm() {
    ClearICCP();
    SetViewModel(tVProp, nullptr);
    SetViewModel(tVTags, nullptr);
    lW_ieds->clear();
    FirstShow = true;
}

// From the template model to this unit's model. The unit's tags are the
// source of the variables; the stored blob isn't read. The argument isn't
// what the walk starts from: the unit of the call is.
void CfgArvenSR::UpdAfterLoad(void*) {
    QList<void*> tags;
    Stack1.clear();
    for (int kind = cotSource; kind <= cotControlPass; ++kind) {
        Stack1.push_back(RecvUnit);
        GetElemByFolder(kind, tags);
    }
    ClearNodeByStr("Переменные");
    ClearDS();
    CheckLD();
    CorrectQuanDS();
    ResetInfoDS();
    CreateNewVar(tags);
    CreateNewNodeInTree();
    SetViewModel(tVIed, pTreeIedModel);
    if (!tVIed->isVisible())
        tVIed->setVisible(true);
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

    if (!FCfgArvenSR) {
        UnitICDfile = QString();
        // The constructor lists the units already: the owner and the unit are
        // stored by now.
        FCfgArvenSR = new CfgArvenSR(nullptr);
        FCfgArvenSR->loadFromTemplate();
        FCfgArvenSR->ConcludeConstructor();
        FCfgArvenSR->tVprop->hide();
        FCfgArvenSR->CurUnit = RecvUnit;
        FCfgArvenSR->UpdAfterLoad(unit);
        CorrectReserve();
    } else {
        // The second clearing finds nothing left to clear.
        FCfgArvenSR->ResetFrm();
        FCfgArvenSR->tVprop->hide();
        UnitICDfile = QString();
        FCfgArvenSR->ResetFrm();
        if (FCfgArvenSR->loadFromTemplate() == 0) {
            FCfgArvenSR->UpdAfterLoad(RecvUnit);
            CorrectReserve();
        }
        FCfgArvenSR->CurUnit = RecvUnit;
        FCfgArvenSR->lW_iedsInit();
    }
    // The tags by key start from the unit's own at every call, so that a
    // rename finds the tags of the variables it renames.
    FCfgArvenSR->pListTag->Clear();
    int maxNoname = 0;
    FCfgArvenSR->FillListBTag(RecvUnit, maxNoname);
    FCfgArvenSR->exec();
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
