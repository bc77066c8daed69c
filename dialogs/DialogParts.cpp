#include "dialogs/DialogParts.h"

#include <QBoxLayout>
#include <QDialog>
#include <QDialogButtonBox>

QDialogButtonBox* AddOkCancel(QDialog* dialog, QBoxLayout* layout, Qt::Orientation orientation) {
    auto box = new QDialogButtonBox(dialog);
    box->setObjectName("buttonBox");
    box->setOrientation(orientation);
    box->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout->addWidget(box);
    QObject::connect(box, SIGNAL(accepted()), dialog, SLOT(accept()));
    QObject::connect(box, SIGNAL(rejected()), dialog, SLOT(reject()));
    return box;
}
