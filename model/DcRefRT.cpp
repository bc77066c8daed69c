// The run-time references of a variable ("DS,index;" and "ICC/DS,index;")
// turned into the bits of the data sets.
#include "model/DcDO.h"
#include "model/DcDataSet.h"
#include "model/DcLD.h"
#include "model/DcVCC.h"
#include "support/StrUtils.h"

// Calls f(reference, indexText, hasComma) for every entry of text up to
// its last ";"; an entry at position 0 or an empty rest ends the walk.
template <typename F> static void ForEachRefEntry(const std::string& text, F f) {
    std::string rest = text;
    while (!rest.empty()) {
        size_t end = rest.find(';');
        if (end == std::string::npos || end == 0)
            break;
        std::string entry = rest.substr(0, end);
        rest = rest.substr(end + 1);
        size_t comma = entry.find(',');
        if (comma == std::string::npos)
            f(entry, entry, false);
        else
            f(entry.substr(0, comma), entry.substr(comma + 1), true);
    }
}

namespace {

// The data set named DS or ICC/DS in vcc, or null.
DcDataSet* FindRefDataSet(DcVCC* vcc, const std::string& reference) {
    size_t slash = reference.find('/');
    if (slash == std::string::npos)
        return qobject_cast<DcDataSet*>(ListOb(vcc->DataSets, vcc->DataSets.IndexOf(reference)));
    DcLD* icc =
        qobject_cast<DcLD*>(ListOb(vcc->ICCs, vcc->ICCs.IndexOf(reference.substr(0, slash))));
    if (!icc)
        return nullptr;
    return qobject_cast<DcDataSet*>(
        ListOb(icc->DataSets, icc->DataSets.IndexOf(reference.substr(slash + 1))));
}

} // namespace

void DcICCPBase::ParseRefRT(const std::string& text) {
    if (!pVCC)
        return;
    ForEachRefEntry(text, [](const std::string& reference, const std::string& index, bool) {
        DcDataSet* dataSet = FindRefDataSet(pVCC, reference);
        if (dataSet && dataSet->RtBits)
            dataSet->RtBits->SetBit(Str2Int(index));
    });
}

void SetBitDatSet(DcICCPBase* object) {
    DcVCC* vcc = object ? qobject_cast<DcVCC*>(object->IsHostObType("DcVCC")) : nullptr;
    if (!vcc)
        return;
    ForEachRefEntry(object->refDSRT.toStdString(),
                    [vcc](const std::string& reference, const std::string& index, bool comma) {
                        if (!comma || reference.find('/') == std::string::npos)
                            return;
                        DcDataSet* dataSet = FindRefDataSet(vcc, reference);
                        if (dataSet && dataSet->RtBits)
                            dataSet->RtBits->SetBit(Str2Int(index));
                    });
}
