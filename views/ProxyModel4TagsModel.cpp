#include "views/ProxyModel4TagsModel.h"

#include "plugin/HostTitles.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"

namespace {

// The host handle of a source row; null when the row carries none.
void* RowObject(const QAbstractItemModel* model, const QModelIndex& index) {
    const QVariant v = model->data(index, Qt::UserRole);
    return v.canConvert<void*>() ? v.value<void*>() : nullptr;
}

// "number" of an object when it is an int, else 0.
int NumberOf(void* ob) {
    int number = 0;
    GetIntProp(ob, "number", number);
    return number;
}

} // namespace

ProxyModel4TagsModel::ProxyModel4TagsModel(QObject* parent) : QSortFilterProxyModel(parent) {}

bool ProxyModel4TagsModel::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const QAbstractItemModel* source = sourceModel();
    if (!source)
        return false;
    void* obL = RowObject(source, left);
    void* obR = RowObject(source, right);
    if (!obR)
        return true;
    if (!obL)
        return false;
    const int kindL = cfgObType(obL);
    const int kindR = cfgObType(obR);
    const int numL = NumberOf(obL);
    const int numR = NumberOf(obR);
    bool r = false;
    switch (sortMode) {
    case 1:
        r = numL > numR;
        break;
    case 2:
        r = GetPropStrVal(obR, "caption") < GetPropStrVal(obL, "caption");
        break;
    case 3:
        r = GetTitle(obR) < GetTitle(obL);
        break;
    default:
        return false;
    }
    // Folders (and further objects) after tags, whatever the values.
    if (kindL > cotDirect)
        return kindR > cotControlPass && r;
    if (kindR <= cotDirect)
        return r;
    return kindL <= cotControlPass || r;
}

void ProxyModel4TagsModel::ListMapToSource(QList<QModelIndex>& list) {
    for (QModelIndex& index : list)
        index = mapToSource(index);
}

void ProxyModel4TagsModel::UpdateData(const QModelIndex& topLeft, const QModelIndex& bottomRight) {
    emit dataChanged(mapFromSource(topLeft), mapFromSource(bottomRight), QVector<int>());
}
