#include "dialogs/ChoiceObj.h"

#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"

#include <QListWidgetItem>
#include <QMessageBox>
#include <QRegExpValidator>

FChoiceOb* pFChoiceOb = nullptr;

FChoiceOb* NeedChoiceOb(QWidget* parent) {
    if (!pFChoiceOb)
        pFChoiceOb = new FChoiceOb(parent);
    return pFChoiceOb;
}

namespace {

// The first class of the table that the dialog offers.
const int32_t FirstChoiceCode = 51;

} // namespace

FChoiceOb::FChoiceOb(QWidget* parent) : QDialog(parent), pHost(nullptr) {
    setupUi(this);
    setWindowTitle("Добавление объекта");
    lEName->setValidator(
        new QRegExpValidator(QRegExp("[a-zA-Z]([a-zA-Z0-9_]+)", Qt::CaseSensitive), this));
    connect(buttonBox, SIGNAL(accepted()), this, SLOT(accept()));
    connect(buttonBox, SIGNAL(rejected()), this, SLOT(reject()));
    connect(lWObjects, SIGNAL(itemClicked(QListWidgetItem*)), this,
            SLOT(OnClicked(QListWidgetItem*)));
    connect(lWWhere, SIGNAL(currentItemChanged(QListWidgetItem*, QListWidgetItem*)), this,
            SLOT(OnWhereItemChanged(QListWidgetItem*, QListWidgetItem*)));
}

void FChoiceOb::Fill_lWObjects() {
    lWObjects->clear();
    for (int i = TabDcObCount - 1; i >= 0 && TabDcOb[i].code >= FirstChoiceCode; --i) {
        auto item = new QListWidgetItem(QString::fromLatin1(TabDcOb[i].name));
        item->setData(Qt::UserRole, TabDcOb[i].code);
        lWObjects->insertItem(0, item);
    }
}

void FChoiceOb::FillWhere(DcVCC* vcc) {
    // The rows still shown belong to an earlier fill, maybe of a model that
    // is gone: they go with it.
    lWWhere->clear();
    WhereList.Clear();
    lWWhere->setSelectionMode(QAbstractItemView::SingleSelection);
    if (!vcc)
        return;
    WhereList.AddObject(vcc->name, vcc);
    for (int i = 0; i < vcc->ICCs.Count; ++i)
        WhereList.AddObject(vcc->ICCs.Strings(i), vcc->ICCs.Objects(i));
}

void FChoiceOb::SetActiveW(DcICCPBase* object) {
    for (int row = 0; row < lWWhere->count(); ++row) {
        if (lWWhere->item(row)->data(Qt::UserRole).value<void*>() == object) {
            lWWhere->setCurrentRow(row);
            return;
        }
    }
}

void FChoiceOb::FilterOb(DcICCPBase* host) {
    pHost = host;
    if (!host)
        return;
    // Only a VCC host walks the class codes; any other compares the row
    // index with the code, which no row of the table reaches.
    const bool vccHost = host->ClassName() == "DcVCC";
    for (int i = TabDcObCount - 1; i >= 0 && (vccHost ? TabDcOb[i].code : i) > 50; --i) {
        for (int row = 0; row < lWObjects->count(); ++row) {
            QListWidgetItem* item = lWObjects->item(row);
            if (item->data(Qt::UserRole).toInt() == TabDcOb[i].code)
                item->setHidden(false);
        }
    }
}

void FChoiceOb::OnClicked(QListWidgetItem* item) {
    bool isInt = false;
    int code = item ? item->data(Qt::UserRole).toInt(&isInt) : 0;
    if (!isInt)
        code = 0;
    lWWhere->clear();
    // Transfer sets and the Next_DSTransfer_Set live only in ICCs: the VCC,
    // the first place, is offered for data sets alone.
    for (int i = code == FirstChoiceCode ? 0 : 1; i < WhereList.Count; ++i) {
        auto place = new QListWidgetItem(LocalToQ(WhereList.Strings(i)));
        place->setData(Qt::UserRole, QVariant::fromValue(WhereList.Objects(i)));
        lWWhere->addItem(place);
    }
    if (code != FirstChoiceCode || !pHost)
        return;
    const QString cls = pHost->ClassName();
    if (cls == "DcLD")
        lEName->setText("DataSet_" +
                        QString::number(static_cast<DcLD*>(pHost)->DataSets.Count + 1));
    else if (cls == "DcVCC")
        lEName->setText("VMD" + QString::number(static_cast<DcVCC*>(pHost)->DataSets.Count + 1));
}

void FChoiceOb::OnWhereItemChanged(QListWidgetItem* current, QListWidgetItem*) {
    auto place =
        current ? static_cast<DcICCPBase*>(current->data(Qt::UserRole).value<void*>()) : nullptr;
    if (!place)
        return;
    // Asked and not used.
    const QString cls = place->ClassName();
    if (cls == "DcLD")
        static_cast<DcLD*>(place)->IsExistNext();
    else if (cls == "DcVCC")
        static_cast<DcVCC*>(place)->IsExistNext();
}

void FChoiceOb::OnDblClick(QListWidgetItem*) {
    accept();
}

void FChoiceOb::accept() {
    if (lWObjects->currentItem() && lWWhere->currentItem()) {
        QDialog::accept();
        return;
    }
    QMessageBox::information(this, "Предупреждение", "Выделите объекты", QMessageBox::Ok);
}
