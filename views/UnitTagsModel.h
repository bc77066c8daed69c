// The tags and folders of one mode of a unit, read straight from the host:
// an index carries the host handle, and nothing is cached. Folders come
// first among an object's rows, yet the row count is the count of its tags
// alone, so a folder that holds subfolders shows as many rows as it has
// tags.
#pragma once

#include <QAbstractItemModel>

class DcICCPBase;

// The host's tag type of a variable: that of its value for a "DcDA", else 0.
int TagTypeOf(DcICCPBase* var);

class UnitTagsModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit UnitTagsModel(QObject* parent = nullptr);

    // The tag mode 0 to 3; the folders of the mode have kind mode + 8. Set
    // by the form before each change of root.
    int mode = 0;

    // Rows below `parent`: its folders, then its tags. A row whose object
    // names another owner is invalid.
    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    // A row's parent is its owner, placed among the folders of its owner's
    // owner; rows of the root itself have none.
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    // The base's search, except that a recursive one descends into each host
    // object once: where the parent of a row can't be placed, the base's
    // search would start over at the top and never end.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits = 1,
                          Qt::MatchFlags flags = Qt::MatchFlags(Qt::MatchStartsWith |
                                                                Qt::MatchWrap)) const override;

    // Stores the root without a model reset: the form takes the model off
    // its view around the change.
    void setRootNode(void* node);
    void* rootNode() const { return root; }
    // The handle of a row; the root for an index of no row.
    void* nodeFromIndex(const QModelIndex& index) const;
    // Rows of the root: the count of its tags.
    int GlobLastRow() const;

    // Creates a tag of `kind` under `parent` for the variable, announced as
    // row `row` of `parentIndex`; its key is `key`, its type the variable's.
    // The new handle, or null when the host refused.
    void* CreateTag(DcICCPBase* var, void* parent, int kind, const QString& key,
                    const QModelIndex& parentIndex, int row);
    // Finds the tag among the rows and deletes it in the host.
    void DeleteTag(void* tag);
    // Deletes the object of a row in the host, removing the row around it.
    void DeleteNode(const QModelIndex& index, void* ob);

    // The form's tag commands change the host and announce it here.
    using QAbstractItemModel::beginInsertRows;
    using QAbstractItemModel::beginRemoveRows;
    using QAbstractItemModel::endInsertRows;
    using QAbstractItemModel::beginResetModel;
    using QAbstractItemModel::endRemoveRows;
    using QAbstractItemModel::endResetModel;

private:
    int colCount = 1;
    void* root = nullptr; // unit or folder at the top
};
