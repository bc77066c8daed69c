#include "dialogs/ChoiceDS.h"

#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

ChoiceDS* pChoiceDS = nullptr;

ChoiceDS* NeedChoiceDS() {
    if (!pChoiceDS)
        pChoiceDS = new ChoiceDS(FCfgArvenSR);
    return pChoiceDS;
}

ChoiceDS::ChoiceDS(QWidget* parent) : QDialog(parent) {
    setObjectName("ChoiceDS");
    setWindowTitle("Dialog");
    resize(320, 240);
    auto horizontal = new QHBoxLayout(this);
    auto left = new QVBoxLayout;
    label = new QLabel("Выбор дата сет:", this);
    left->addWidget(label);
    listWidget = new QListWidget(this);
    listWidget->setObjectName("listWidget");
    left->addWidget(listWidget);
    horizontal->addLayout(left);
    buttonBox = new QDialogButtonBox(this);
    buttonBox->setObjectName("buttonBox");
    buttonBox->setOrientation(Qt::Vertical);
    buttonBox->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    horizontal->addWidget(buttonBox);

    connect(buttonBox, SIGNAL(accepted()), this, SLOT(accept()));
    connect(buttonBox, SIGNAL(rejected()), this, SLOT(reject()));
    connect(listWidget, SIGNAL(itemDoubleClicked(QListWidgetItem*)), this,
            SLOT(OnitemDoubleClicked(QListWidgetItem*)));
}

void ChoiceDS::OnitemDoubleClicked(QListWidgetItem*) {
    accept();
}
