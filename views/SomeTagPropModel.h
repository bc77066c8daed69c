// Two properties of one tag under a head row: its binding key and its
// caption, with their values read from the host.
#pragma once

#include "plugin/HostDescTables.h"

#include <QAbstractItemModel>

class SomeTagPropModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit SomeTagPropModel(void* tag, QObject* parent = nullptr);

    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    // A row's parent is taken from its level: the row level - 1 with the
    // head's record.
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    // Column 0 the record's caption, column 1 the tag's value of its key;
    // UserRole the record.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    // The record of a row, the root record for an index of no row.
    const tTagPropDesc* recordOf(const QModelIndex& index) const;

    int colCount = 2;
    int descCount;
    tTagPropDesc* desc;
    void* tag;
    tTagPropDesc rootRecord = {"", "", cptUndef, 0, -1}; // above the head
};
