#include "ItemTexts.h"

QStringList ChildTexts(const QAbstractItemModel& model, const QModelIndex& parent) {
    QStringList texts;
    for (int r = 0; r < model.rowCount(parent); ++r)
        texts << model.index(r, 0, parent).data().toString();
    return texts;
}
