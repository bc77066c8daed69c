#include "dialogs/ReserveF.h"
#include "dialogs/DialogParts.h"

#include "model/DcICCPBase.h"
#include "support/UStringList.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QRegularExpression>
#include <QVBoxLayout>

ReserveF* FReserveF = nullptr;

ReserveF* NeedReserveF(QWidget* parent) {
    if (!FReserveF)
        FReserveF = new ReserveF(parent);
    return FReserveF;
}

ReserveF::ReserveF(QWidget* parent) : QDialog(parent) {
    setObjectName("reservData");
    auto vertical = new QVBoxLayout(this);
    auto lists = new QHBoxLayout;
    lW1 = new QListWidget(this);
    lW1->setObjectName("lW1");
    lists->addWidget(lW1);
    lW2 = new QListWidget(this);
    lW2->setObjectName("lW2");
    lists->addWidget(lW2);
    vertical->addLayout(lists);
    buttonBox = AddOkCancel(this, vertical, Qt::Horizontal);

    connect(lW1, SIGNAL(itemClicked(QListWidgetItem*)), this, SLOT(onLW1Clicked(QListWidgetItem*)));
}

void ReserveF::Init(StringList* list) {
    lW1->clear();
    for (int i = 0; list && i < list->Count; ++i) {
        auto item = new QListWidgetItem(LocalToQ(list->Strings(i)), lW1);
        item->setData(Qt::UserRole, QVariant::fromValue(list->Objects(i)));
    }
}

void ReserveF::onLW1Clicked(QListWidgetItem* item) {
    auto object =
        item ? static_cast<DcICCPBase*>(item->data(Qt::UserRole).value<void*>()) : nullptr;
    lW2->clear();
    // The base class writes nothing, so only the classes with an XML of
    // their own give lines.
    if (object)
        lW2->addItems(
            object->ToXML(3).split(QRegularExpression("[\r\n|\r|\n]"), Qt::SkipEmptyParts));
}
