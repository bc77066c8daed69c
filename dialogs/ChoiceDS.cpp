#include "dialogs/ChoiceDS.h"
#include "dialogs/DialogParts.h"

#include "plugin/CfgIecArvenlib.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

ChoiceDS* pChoiceDS = nullptr;

ChoiceDS* NeedChoiceDS(QWidget* parent) {
    if (!pChoiceDS)
        pChoiceDS = new ChoiceDS(parent);
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
    buttonBox = AddOkCancel(this, horizontal, Qt::Vertical);

    connect(listWidget, SIGNAL(itemDoubleClicked(QListWidgetItem*)), this,
            SLOT(OnitemDoubleClicked(QListWidgetItem*)));
}

void ChoiceDS::OnitemDoubleClicked(QListWidgetItem*) {
    accept();
}
