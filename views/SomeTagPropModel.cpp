#include "views/SomeTagPropModel.h"

#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"

SomeTagPropModel::SomeTagPropModel(void* tag, QObject* parent)
    : QAbstractItemModel(parent), descCount(SomeTagPropertiesOrmelsrvCount),
      desc(SomeTagPropertiesOrmelsrv), tag(tag) {}

const tTagPropDesc* SomeTagPropModel::recordOf(const QModelIndex& index) const {
    return index.isValid() ? static_cast<const tTagPropDesc*>(index.internalPointer())
                           : &rootRecord;
}

QModelIndex SomeTagPropModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column < 0)
        return QModelIndex();
    const tTagPropDesc* record = recordOf(parent);
    if (record->level == 0 && row + 1 < descCount)
        return createIndex(row, column, &desc[row + 1]);
    if (record->level == -1 && row == 0)
        return createIndex(row, column, desc);
    return QModelIndex();
}

QModelIndex SomeTagPropModel::parent(const QModelIndex& index) const {
    if (!index.isValid())
        return QModelIndex();
    const tTagPropDesc* record = recordOf(index);
    if (record->level > 0 && desc && record != &rootRecord)
        return createIndex(record->level - 1, index.column(), desc);
    return QModelIndex();
}

int SomeTagPropModel::rowCount(const QModelIndex& parent) const {
    switch (recordOf(parent)->level) {
    case -1:
        return 1;
    case 0:
        return descCount - 1;
    default:
        return 0;
    }
}

int SomeTagPropModel::columnCount(const QModelIndex&) const {
    return colCount;
}

QVariant SomeTagPropModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return QVariant();
    const tTagPropDesc* record = recordOf(index);
    if (role == Qt::UserRole)
        return QVariant::fromValue(static_cast<void*>(const_cast<tTagPropDesc*>(record)));
    if (role != Qt::DisplayRole || record->level < 0)
        return QVariant();
    if (index.column() == 0)
        return QString::fromUtf8(record->caption);
    if (index.column() != 1)
        return QVariant();
    cfgParamValue value = {};
    if (!cfgPropGet(tag, record->key, &value))
        return QString();
    return cfgParamValueToQString(value);
}
