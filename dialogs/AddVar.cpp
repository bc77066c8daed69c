#include "dialogs/AddVar.h"

#include <QListWidgetItem>
#include <QMainWindow>
#include <QMessageBox>
#include <QRegExpValidator>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>
#include <climits>
#include <cstdlib>

#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "support/myNode.h"
#include "views/PropModel.h"
#include "views/ViewModel.h"

GetVarFrm* FGetVarFrm = nullptr;

GetVarFrm* NeedGetVarFrm(QWidget* parent) {
    if (!FGetVarFrm)
        FGetVarFrm = new GetVarFrm(parent);
    return FGetVarFrm;
}

GetVarFrm::GetVarFrm(QWidget* parent)
    : QDialog(parent), pListTypes(new ListTypesModel(this)), wMain(new QMainWindow),
      statusBar(nullptr), pModel4Add(new Model4AddFrm(this)), SelType(nullptr), pNames(nullptr) {
    ui.setupUi(this);
    wMain->setCentralWidget(ui.centralWidget);
    statusBar = wMain->statusBar();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(wMain);

    ui.lEName->setValidator(
        new QRegExpValidator(QRegExp("[a-zA-Z]([a-zA-Z0-9_]+)", Qt::CaseSensitive), this));
    ui.lEStart->setValidator(new QRegExpValidator(QRegExp("[0-9]+", Qt::CaseSensitive), this));
    SetViewModel(ui.listVAD, pListTypes);

    connect(ui.listVAD, SIGNAL(clicked(QModelIndex)), this, SLOT(OnlistVADcliked(QModelIndex)));
    connect(ui.tBut, SIGNAL(clicked()), this, SLOT(ontButClicked()));
    connect(ui.buttonBox, SIGNAL(clicked(QAbstractButton*)), this,
            SLOT(onButtClick(QAbstractButton*)));
}

void GetVarFrm::onButtClick(QAbstractButton* button) {
    switch (ui.buttonBox->standardButton(button)) {
    case QDialogButtonBox::Ok:
        accept();
        break;
    case QDialogButtonBox::Cancel:
        reject();
        break;
    default:
        break;
    }
}

void GetVarFrm::OnlistVADcliked(const QModelIndex& index) {
    SelType = static_cast<DcICCPBase*>(index.data(Qt::UserRole).value<void*>());
    ui.lW->clear();
    if (!SelType)
        return;
    const QString cls = SelType->ClassName();
    std::string type, defname;
    if (auto* da = cls == "DcDAType" ? qobject_cast<DcDAType*>(SelType) : nullptr) {
        ui.lW->addItem(LocalToQ(da->desc));
        SetViewModel(ui.tVStruct, nullptr);
        type = da->type;
        defname = da->defname;
    } else if (auto* dO = cls == "DcDOType" ? qobject_cast<DcDOType*>(SelType) : nullptr) {
        SetViewModel(ui.tVStruct, nullptr);
        auto* root = new myNode(dO->type, dO);
        dO->GetFullContDesc(root);
        // The old tree goes once the model no longer points at it; the
        // model's reset also resets its internal data.
        myNode* old = pModel4Add->rootNode;
        pModel4Add->setRootNode(root);
        if (old)
            old->DeleteSubTree();
        SetViewModel(ui.tVStruct, pModel4Add);
        type = dO->type;
        defname = dO->defname;
    } else {
        return;
    }
    ui.lEName->setText(LocalToQ(defname.empty() ? type + "_1" : defname));
}

void GetVarFrm::ontButClicked() {
    if (ui.tBut->isChecked()) {
        ui.tBut->setText("Свернуть");
        ui.tBut->setArrowType(Qt::UpArrow);
        pListTypes->ShowSecond();
    } else {
        ui.tBut->setText("Еще");
        ui.tBut->setArrowType(Qt::DownArrow);
        pListTypes->HideSecond();
    }
}

void GetVarFrm::onlWClicked(QListWidgetItem* item) {
    auto* ob = item ? static_cast<DcICCPBase*>(item->data(Qt::UserRole).value<void*>()) : nullptr;
    const QString cls = ob ? ob->ClassName() : QString();
    if (auto* vcc = cls == "DcVCC" ? qobject_cast<DcVCC*>(ob) : nullptr)
        pNames = &vcc->Vars;
    else if (auto* icc = cls == "DcLD" ? qobject_cast<DcLD*>(ob) : nullptr)
        pNames = &icc->Vars;
    else {
        pNames = nullptr;
        return;
    }
    const std::string base = QToLocal(ui.lEName->text());
    if (base.empty()) {
        QMessageBox::information(this, "Предупреждение", "Заполните базовое имя");
        return;
    }
    // The number behind the base in each name that holds it; bounded so
    // that the next one still fits an int.
    long top = 1;
    for (int i = 0; i < pNames->Count; ++i) {
        const std::string name = pNames->Strings(i);
        const size_t at = name.find(base);
        if (at == std::string::npos || at + base.size() == name.size())
            continue;
        top = std::max(top, std::min(std::strtol(name.c_str() + at + base.size(), nullptr, 10),
                                     long(INT_MAX - 1)));
    }
    ui.lEStart->setText(QString::number(top + 1));
}

void GetVarFrm::FillWhere(DcVCC* vcc) {
    if (!vcc)
        return;
    auto* item = new QListWidgetItem(LocalToQ(vcc->name), ui.lW);
    item->setData(Qt::UserRole, QVariant::fromValue(static_cast<void*>(vcc)));
    for (int i = 0; i < vcc->ICCs.Count; ++i) {
        DcICCPBase* icc = ListOb(vcc->ICCs, i);
        if (!icc)
            continue;
        item = new QListWidgetItem(LocalToQ(icc->name), ui.lW);
        item->setData(Qt::UserRole, QVariant::fromValue(static_cast<void*>(icc)));
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled);
    }
}

void GetVarFrm::SetActiveW(DcICCPBase*) {}
