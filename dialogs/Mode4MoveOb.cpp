#include "dialogs/Mode4MoveOb.h"
#include "dialogs/DialogParts.h"

#include "plugin/CfgIecArvenlib.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

Mode4MoveOb* FMode4MoveOb = nullptr;

Mode4MoveOb* NeedMode4MoveOb(QWidget* parent) {
    if (!FMode4MoveOb)
        FMode4MoveOb = new Mode4MoveOb(parent);
    return FMode4MoveOb;
}

Mode4MoveOb::Mode4MoveOb(QWidget* parent) : QDialog(parent) {
    setObjectName("Mode4Move");
    setWindowTitle("Dialog");
    auto vertical = new QVBoxLayout(this);
    auto domainRow = new QHBoxLayout;
    label = new QLabel("Куда переместить:", this);
    label->setObjectName("label");
    domainRow->addWidget(label);
    cBDomain = new QComboBox(this);
    cBDomain->setObjectName("cBDomain");
    domainRow->addWidget(cBDomain);
    vertical->addLayout(domainRow);
    auto dataSetRow = new QHBoxLayout;
    label_2 = new QLabel("Изменить вхождение в DataSet ?", this);
    label_2->setObjectName("label_2");
    dataSetRow->addWidget(label_2);
    cBDataSet = new QComboBox(this);
    cBDataSet->setObjectName("cBDataSet");
    dataSetRow->addWidget(cBDataSet);
    vertical->addLayout(dataSetRow);
    buttonBox = AddOkCancel(this, vertical, Qt::Horizontal);
}

void Mode4MoveOb::OnShow() {
    cBDomain->clear();
    cBDataSet->clear();
    cBDomain->addItem("VCC");
    for (int k = 1; k <= ICCdata.maxICC; ++k)
        cBDomain->addItem("ICC_" + QString::number(k));
    cBDataSet->addItem("NoDataSet");
    for (int k = 1; k <= ICCdata.maxDS; ++k)
        cBDataSet->addItem("DataSet_" + QString::number(k));
}
