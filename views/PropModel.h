// The member tree of one model object, name and value, behind tVprop, and
// its read-only form with type names for the add-variable dialog.
#pragma once

#include <QAbstractItemModel>
#include <QStringList>

class DcICCPBase;
class myNode;

class PropICCPModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit PropICCPModel(QObject* parent = nullptr);
    // Frees the node tree under rootNode.
    ~PropICCPModel() override;

    int ColCount;
    // Kept invalid; nothing reads it.
    QModelIndex RootIndex;
    // The node of the object shown; its children are the top rows. A node
    // without an object is a bit of a bit string.
    myNode* rootNode;
    QStringList HeaderList;

    // Shows the tree of node, inside a model reset. The old tree is left to
    // the caller, who frees it before.
    void setRootNode(myNode* node);
    myNode* nodeFromIndex(const QModelIndex& index) const;

    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Column 1 of a DcDA takes its value as text (edit role) or, for a
    // boolean, as a check state.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

protected:
    // The object of a row: null for the root, a missing node or a bit row.
    DcICCPBase* RowObject(const QModelIndex& index) const;
};

// A structure type's members with their type names; nothing is editable.
class Model4AddFrm : public PropICCPModel {
    Q_OBJECT
public:
    explicit Model4AddFrm(QObject* parent = nullptr);

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
};
