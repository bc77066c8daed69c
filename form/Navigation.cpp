// How the panes follow one another: the data set list and what showing the
// form brings into it.
#include "form/CfgIecArven.h"

#include "model/ICCPTypes_Nat.h"

void CfgArvenSR::showEvent(QShowEvent* e) {
    LoadSettings();
    QDialog::showEvent(e);
}

void ForEachDataSetList(const std::function<void(StringList&)>& f) {
    if (!pVCC)
        return;
    f(pVCC->DataSets);
    for (int i = 0; i < pVCC->ICCs.Count; ++i)
        if (auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, i)))
            f(icc->DataSets);
}

void CfgArvenSR::FillDSList() {
    ForEachDataSetList([this](StringList& dataSets) {
        for (int i = 0; i < dataSets.Count; ++i) {
            DcICCPBase* dataSet = ListOb(dataSets, i);
            if (!dataSet)
                continue;
            // A set of an ICC shows as "ICC/set", one of the VCC by its name.
            auto item = new QListWidgetItem(QString::fromStdString(dataSet->GetFullName()), lWInfo);
            item->setData(Qt::UserRole, QVariant::fromValue(static_cast<void*>(dataSet)));
        }
    });
}

void CfgArvenSR::UpDateFullDSList() {
    if (!pVCC)
        return;
    // Refilling mustn't run the member list's handler row by row.
    const char* const changed = SIGNAL(currentItemChanged(QListWidgetItem*, QListWidgetItem*));
    const char* const handler = SLOT(OncurrentItemChangedDS(QListWidgetItem*, QListWidgetItem*));
    disconnect(lWInfo, changed, this, handler);
    lWInfo_2->clear();
    for (int row = lWInfo->count() - 1; row >= 0; --row)
        delete lWInfo->takeItem(row);
    lWInfo->clear();
    FillDSList();
    connect(lWInfo, changed, this, handler);
}
