// The model behind tVIed: the whole ICCP configuration as a tree of myNode
// rows, each pointing at a model object or, for a folder row, at nothing.
#pragma once

#include <QAbstractItemModel>
#include <QSet>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "support/UStringList.h"

class DcICCPBase;
class myNode;

// The objects of the last drag from tVIed, keyed by their name, or by the
// ICC's name, "/" and their name inside an ICC. The drag's bytes only
// announce them.
extern StringList GlobVarMem;

class IEDTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit IEDTreeModel(QObject* parent);
    // Frees the node tree under hiddenRoot; the objects are not touched.
    ~IEDTreeModel() override;

    int ColCount;
    // Kept invalid; nothing reads it.
    QModelIndex RootIndex;
    // The VCC's node, the only child of hiddenRoot.
    myNode* rootNode;
    QStringList HeaderList;
    // Set by the tag check: from then on column 0 shows the IsTagV marks.
    bool FlagBindTag;
    // The node behind the invalid index; owns the whole node tree.
    myNode* hiddenRoot;

    // Frees the old tree, then hangs node under a new hidden root, inside a
    // model reset.
    void setRootNode(myNode* node);
    myNode* nodeFromIndex(const QModelIndex& index) const;

    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    // Rows and children are those of the node, in either column.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    // Column 1 takes the description; the result is true for every valid index.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Fills GlobVarMem with the selected variables; the bytes under
    // "text/plain" are their display texts serialised by QDataStream.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

    // Removes every row with that display text whose parent row is a data set.
    void DelFromDS(std::string name);
    // Puts the nodes of batch (objects of the entries) in front of the
    // children of parent, in the batch's order, and adds each node's name and
    // object to out.
    void AddVarmNode(const QModelIndex& parent, int row, StringList* batch, StringList* out);

    // While a batch lives, exact searches of a display text or an object
    // with MatchRecursive, and the steps to a row, are answered from an index
    // of the tree taken when the batch began, instead of by walks through
    // the rows. RemoveNode keeps the index; any other change to the tree
    // drops it, and the model walks its rows again. Batches nest.
    class SearchBatch {
    public:
        explicit SearchBatch(IEDTreeModel* model);
        ~SearchBatch();
        SearchBatch(const SearchBatch&) = delete;
        SearchBatch& operator=(const SearchBatch&) = delete;

    private:
        IEDTreeModel* m_model;
    };
    // The base's search, answered from the batch's index where it has one.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits = 1,
                          Qt::MatchFlags flags = Qt::MatchFlags(Qt::MatchStartsWith |
                                                                Qt::MatchWrap)) const override;

    // Removes node, a child of the row parent, told to the views as row
    // `row`: the row that an index held when it was taken, which removals
    // since may have left behind. A row past the end is told as the node's
    // own. After a row that wasn't the node's, the persistent indexes are set
    // right: none keeps the removed rows, and those that moved up without
    // word move too. The node and its subtree are freed; their addresses go
    // to `removed` when it is given.
    void RemoveNode(const QModelIndex& parent, int row, myNode* node,
                    QSet<const myNode*>* removed = nullptr);

    // The editing code changes the node tree itself and announces it here.
    using QAbstractItemModel::beginInsertRows;
    using QAbstractItemModel::beginRemoveRows;
    using QAbstractItemModel::beginResetModel;
    // The ends drop the remembered rows before Qt moves its persistent
    // indexes, which asks for rows of the changed tree.
    void endInsertRows();
    void endRemoveRows();
    void endResetModel();

signals:
    // "Selected Count=N" at each drag; the form passes it on to its status bar.
    void sigShowStat(QString text) const;

private slots:
    // Drops the remembered positions; every announced change of the rows
    // comes through here before and after it is made. Any change but a
    // RemoveNode drops the search index too.
    void forgetRows();
    void dropIndex();

private:
    // Rows are a linked list; a view reaches them by position in any order,
    // and marking rows one by one sends it to rows far apart. So the
    // children of each node asked about are read once into an array, with
    // each child's row, until the rows change.
    const std::vector<myNode*>& childrenOf(myNode* node) const;
    myNode* childAt(myNode* node, int row) const;
    int rowOf(myNode* child) const;

    mutable std::unordered_map<const myNode*, std::vector<myNode*>> m_children;
    mutable std::unordered_map<const myNode*, int> m_rowOf;

    struct SearchIndex;
    std::unique_ptr<SearchIndex> m_index; // while a batch lives
    int m_batches = 0;
    bool m_removing = false; // inside RemoveNode
};

// The nearest row from index upwards whose object is a DcVCC or a DcLD;
// folder rows are passed over. Invalid when there is none.
QModelIndex FindHost(IEDTreeModel* model, const QModelIndex& index);
// The ICC that holds node. A node with an object: that object and every
// ancestor with one are tested. A folder node: its parents are tested up to
// the first one without an object.
DcICCPBase* GetLDByNode(myNode* node);
// True when the object of node, or of an ancestor up to the first folder
// row, has the class className.
bool IsOwn(myNode* node, const std::string& className);

// The picture of a key of the form's image list, whose resource has the
// key's name; an invalid QVariant when there is no such picture.
QVariant ImageByKey(const QString& key);
