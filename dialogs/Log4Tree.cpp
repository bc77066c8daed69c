#include "dialogs/Log4Tree.h"

#include "support/UStringList.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

Log4Tree* FLog4Tree = nullptr;

Log4Tree* NeedLog4Tree(QWidget* parent) {
    if (!FLog4Tree)
        FLog4Tree = new Log4Tree(parent);
    return FLog4Tree;
}

Log4Tree::Log4Tree(QWidget* parent) : QDialog(parent) {
    setObjectName("DMessTreeDev");
    setWindowTitle("Dialog");
    resize(400, 300);
    auto vertical = new QVBoxLayout(this);
    listWidget = new QListWidget(this);
    listWidget->setObjectName("listWidget");
    vertical->addWidget(listWidget);
    buttonBox = new QDialogButtonBox(this);
    buttonBox->setObjectName("buttonBox");
    buttonBox->setOrientation(Qt::Horizontal);
    buttonBox->setStandardButtons(QDialogButtonBox::Yes | QDialogButtonBox::Ignore |
                                  QDialogButtonBox::Cancel);
    vertical->addWidget(buttonBox);

    connect(buttonBox, SIGNAL(accepted()), this, SLOT(accept()));
    connect(buttonBox, SIGNAL(rejected()), this, SLOT(reject()));
    connect(buttonBox, SIGNAL(clicked(QAbstractButton*)), this, SLOT(onClicked(QAbstractButton*)));
}

void Log4Tree::Init() {
    buttonBox->button(QDialogButtonBox::Yes)->setText("Удалить");
}

void Log4Tree::FillLW(StringList& list) {
    listWidget->clear();
    for (int i = 0; i < list.Count; ++i) {
        const std::string text = list.Strings(i);
        listWidget->addItem(QString::fromLocal8Bit(text.data(), int(text.size())));
    }
}

void Log4Tree::onClicked(QAbstractButton* button) {
    switch (buttonBox->standardButton(button)) {
    case QDialogButtonBox::Yes:
        Answer = 2;
        break;
    case QDialogButtonBox::Ignore:
        Answer = 1;
        break;
    default:
        Answer = 0;
        break;
    }
}
