#include "dialogs/DComm.h"

#include "plugin/CfgIecArvenlib.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

DComm* FDComm = nullptr;

DComm* NeedDComm(QWidget* parent) {
    if (!FDComm)
        FDComm = new DComm(parent);
    return FDComm;
}

DComm::DComm(QWidget* parent) : QDialog(parent) {
    setObjectName("DCommand");
    setWindowTitle("Задание команды");
    auto layout = new QFormLayout(this);
    comboBox = new QComboBox(this);
    comboBox->setObjectName("comboBox");
    comboBox->setMinimumWidth(150);
    comboBox->addItems({"ControlCommand", "DiscreteSetPoint", "RealSetPoint"});
    layout->addRow("Тип объекта", comboBox);
    spinBox = new QSpinBox(this);
    spinBox->setObjectName("spinBox");
    layout->addRow("Экземпляр", spinBox);
    checkBox = new QCheckBox(this);
    checkBox->setObjectName("checkBox");
    checkBox->setChecked(true);
    layout->addRow("SBO", checkBox);
    buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttonBox->setObjectName("buttonBox");
    layout->addRow(buttonBox);
    connect(buttonBox, SIGNAL(accepted()), this, SLOT(accept()));
    connect(buttonBox, SIGNAL(rejected()), this, SLOT(reject()));
}
