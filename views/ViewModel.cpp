#include "views/ViewModel.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QTreeView>

namespace {

// The selection models owned by owner but no longer in use by view.
void DropUnused(QObject* owner, const QAbstractItemView* view) {
    const auto models =
        owner->findChildren<QItemSelectionModel*>(QString(), Qt::FindDirectChildrenOnly);
    for (QItemSelectionModel* model : models)
        if (model != view->selectionModel())
            model->deleteLater();
}

} // namespace

void SetViewModel(QAbstractItemView* view, QAbstractItemModel* model) {
    if (!view)
        return;
    view->setModel(model);
    // Later, not now: a signal of the old one may be what brought us here.
    DropUnused(view, view);
    // A tree's header makes one of its own, then takes the tree's.
    if (auto tree = qobject_cast<QTreeView*>(view))
        DropUnused(tree->header(), tree);
}
