#include "dialogs/SmallWidgets.h"

#include <QDragEnterEvent>
#include <QDropEvent>

DropListWidget::DropListWidget(QWidget* parent) : QListWidget(parent) {
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropOverwriteMode(true);
    setDragDropMode(QAbstractItemView::InternalMove);
    viewport()->setAcceptDrops(true);
}

void DropListWidget::dragEnterEvent(QDragEnterEvent* e) {
    e->acceptProposedAction();
}

void DropListWidget::dropEvent(QDropEvent* e) {
    e->setDropAction(Qt::MoveAction);
    e->accept();
}
