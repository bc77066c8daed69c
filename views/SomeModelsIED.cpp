#include "views/SomeModelsIED.h"

#include <QDataStream>
#include <QFile>
#include <QHash>
#include <QIcon>
#include <QMimeData>
#include <QPersistentModelIndex>
#include <algorithm>

#include "model/ICCPTypes_Nat.h"
#include "plugin/HostWall.h"
#include "support/StrUtils.h"
#include "support/myNode.h"

StringList GlobVarMem;

namespace {

DcICCPBase* NodeObject(const myNode* node) {
    return node ? static_cast<DcICCPBase*>(node->object) : nullptr;
}

bool IsVariable(DcICCPBase* object) {
    return qobject_cast<DcDA*>(object) || qobject_cast<DcDO*>(object);
}

void CollectSubtree(const myNode* node, QSet<const myNode*>& out) {
    out.insert(node);
    for (const myNode* child = node->FirstChild; child; child = child->Next)
        CollectSubtree(child, out);
}

} // namespace

// The tree as it stood when a search batch began: each node's rank in a walk
// of the whole tree and the rank after its subtree, its row then, the
// children of each node with a Fenwick tree that counts the live ones, and
// the nodes by display text and by object in the order of the walk.
struct IEDTreeModel::SearchIndex {
    struct Place {
        int rank, end, row;
        bool removed;
    };
    struct Kids {
        QVector<myNode*> list;
        QVector<int> live; // Fenwick tree over list, from 1
    };
    QHash<const myNode*, Place> places;
    QHash<const myNode*, Kids> kids; // of the nodes that have children
    QVector<myNode*> order;          // by rank
    // Made at the first search, from the nodes not removed by then.
    QHash<QString, QVector<myNode*>> byText;
    QHash<const void*, QVector<myNode*>> byObject;
    bool searchable = false;

    void Add(myNode* node, int row) {
        const int rank = order.size();
        order << node;
        Kids k;
        for (myNode* child = node->FirstChild; child; child = child->Next)
            k.list << child;
        for (int r = 0; r < k.list.size(); ++r)
            Add(k.list[r], r);
        if (!k.list.isEmpty()) {
            k.live.resize(k.list.size() + 1);
            for (int i = 1; i < k.live.size(); ++i)
                k.live[i] = i & -i;
            kids.insert(node, k);
        }
        places.insert(node, {rank, int(order.size()), row, false});
    }
    void MakeSearchable() {
        searchable = true;
        // Rank 0 is the hidden root, which no search meets.
        for (int rank = 1; rank < order.size(); ++rank) {
            myNode* node = order[rank];
            if (!places[node].removed) {
                byText[QString::fromUtf8(node->name.c_str())] << node;
                byObject[node->object] << node;
            }
        }
    }
    // Live children of k before its child number `row` of the start.
    static int Live(const Kids& k, int row) {
        int n = 0;
        for (int i = row; i > 0; i -= i & -i)
            n += k.live[i];
        return n;
    }
    static myNode* At(const Kids& k, int row) {
        int pos = 0, rest = row + 1;
        for (int step = 1 << 30; step; step >>= 1)
            if (pos + step < k.live.size() && k.live[pos + step] < rest)
                rest -= k.live[pos += step];
        return row >= 0 && pos < k.list.size() ? k.list[pos] : nullptr;
    }
    // The live row of a node of the index, -1 for one removed or unknown.
    int Row(const myNode* node) const {
        const auto place = places.constFind(node);
        if (place == places.constEnd() || place->removed)
            return -1;
        const auto k = kids.constFind(node->Parent);
        return k == kids.constEnd() ? -1 : Live(*k, place->row);
    }
    void Remove(const myNode* node, const QSet<const myNode*>& gone) {
        QVector<int>& live = kids[node->Parent].live;
        for (int i = places[node].row + 1; i < live.size(); i += i & -i)
            --live[i];
        for (const myNode* n : gone)
            places[n].removed = true;
    }
};

IEDTreeModel::SearchBatch::SearchBatch(IEDTreeModel* model) : m_model(model) {
    if (m_model && m_model->m_batches++ == 0 && m_model->hiddenRoot) {
        m_model->m_index.reset(new SearchIndex);
        m_model->m_index->Add(m_model->hiddenRoot, 0);
    }
}

IEDTreeModel::SearchBatch::~SearchBatch() {
    if (m_model && --m_model->m_batches == 0)
        m_model->m_index.reset();
}

IEDTreeModel::IEDTreeModel(QObject* parent)
    : QAbstractItemModel(parent), ColCount(2),
      rootNode(nullptr), HeaderList{"Сервер ICCP", "Описание переменных"}, FlagBindTag(false),
      hiddenRoot(nullptr) {
    const char* const changes[] = {
        SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)),
        SIGNAL(rowsInserted(QModelIndex, int, int)),
        SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int)),
        SIGNAL(rowsRemoved(QModelIndex, int, int)),
        SIGNAL(rowsAboutToBeMoved(QModelIndex, int, int, QModelIndex, int)),
        SIGNAL(rowsMoved(QModelIndex, int, int, QModelIndex, int)),
        SIGNAL(modelAboutToBeReset()),
        SIGNAL(modelReset()),
        SIGNAL(layoutAboutToBeChanged()),
        SIGNAL(layoutChanged())};
    for (const char* change : changes)
        connect(this, change, this, SLOT(forgetRows()));
    connect(this, SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>)), this,
            SLOT(dropIndex()));
}

void IEDTreeModel::dropIndex() {
    m_index.reset();
}

void IEDTreeModel::forgetRows() {
    m_children.clear();
    m_rowOf.clear();
    if (!m_removing)
        m_index.reset();
}

void IEDTreeModel::endInsertRows() {
    forgetRows();
    QAbstractItemModel::endInsertRows();
}

void IEDTreeModel::endRemoveRows() {
    forgetRows();
    QAbstractItemModel::endRemoveRows();
}

void IEDTreeModel::endResetModel() {
    forgetRows();
    QAbstractItemModel::endResetModel();
}

const std::vector<myNode*>& IEDTreeModel::childrenOf(myNode* node) const {
    auto found = m_children.find(node);
    if (found != m_children.end())
        return found->second;
    std::vector<myNode*> rows;
    for (myNode* child = node->FirstChild; child; child = child->Next) {
        m_rowOf[child] = int(rows.size());
        rows.push_back(child);
    }
    return m_children.emplace(node, std::move(rows)).first->second;
}

myNode* IEDTreeModel::childAt(myNode* node, int row) const {
    if (m_index) {
        const auto kids = m_index->kids.constFind(node);
        if (kids != m_index->kids.constEnd())
            return SearchIndex::At(*kids, row);
    }
    const std::vector<myNode*>& rows = childrenOf(node);
    return row >= 0 && row < int(rows.size()) ? rows[size_t(row)] : nullptr;
}

int IEDTreeModel::rowOf(myNode* child) const {
    if (m_index && m_index->places.contains(child))
        return m_index->Row(child);
    childrenOf(child->Parent);
    const auto found = m_rowOf.find(child);
    return found == m_rowOf.end() ? -1 : found->second;
}

IEDTreeModel::~IEDTreeModel() {
    if (hiddenRoot)
        hiddenRoot->DeleteSubTree();
}

void IEDTreeModel::setRootNode(myNode* node) {
    beginResetModel();
    if (hiddenRoot)
        hiddenRoot->DeleteSubTree();
    hiddenRoot = new myNode("", nullptr);
    rootNode = node;
    hiddenRoot->AddChild(node);
    endResetModel();
}

myNode* IEDTreeModel::nodeFromIndex(const QModelIndex& index) const {
    if (index.row() < 0 || index.column() < 0 || !index.model())
        return hiddenRoot;
    return static_cast<myNode*>(index.internalPointer());
}

QModelIndex IEDTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    myNode* child = childAt(nodeFromIndex(parent), row);
    return child ? createIndex(row, column, child) : QModelIndex();
}

QModelIndex IEDTreeModel::parent(const QModelIndex& index) const {
    myNode* node = nodeFromIndex(index);
    myNode* up = node ? node->Parent : nullptr;
    if (!up || up == hiddenRoot)
        return QModelIndex();
    if (!up->Parent)
        return createIndex(0, 0, rootNode);
    const int row = rowOf(up);
    return row < 0 ? QModelIndex() : createIndex(row, 0, up);
}

int IEDTreeModel::rowCount(const QModelIndex& parent) const {
    myNode* node = nodeFromIndex(parent);
    if (!node)
        return 0;
    if (m_index) {
        const auto kids = m_index->kids.constFind(node);
        if (kids != m_index->kids.constEnd())
            return SearchIndex::Live(*kids, kids->list.size());
    }
    return int(childrenOf(node).size());
}

int IEDTreeModel::columnCount(const QModelIndex&) const {
    return ColCount;
}

bool IEDTreeModel::hasChildren(const QModelIndex& parent) const {
    myNode* node = nodeFromIndex(parent);
    return node && node->FirstChild;
}

QVariant IEDTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= HeaderList.size())
        return QVariant();
    return HeaderList.at(section);
}

QVariant IEDTreeModel::data(const QModelIndex& index, int role) const {
    myNode* node = nodeFromIndex(index);
    if (!node || node == hiddenRoot)
        return QVariant();
    DcICCPBase* object = NodeObject(node);
    if (index.column() == 1) {
        if (role != Qt::DisplayRole || !object)
            return QVariant();
        if (IsVariable(object))
            return QString::fromUtf8(object->desc.data(), int(object->desc.size()));
        return GetRusQStr(object->desc.c_str());
    }
    if (index.column() != 0)
        return QVariant();

    switch (role) {
    case Qt::DisplayRole:
        return GetRusQStr(node->name.c_str());
    case Qt::UserRole:
        return QVariant::fromValue(static_cast<void*>(object));
    case Qt::CheckStateRole:
        if (FlagBindTag && IsVariable(object) && object->IsTagV)
            return int(Qt::Checked);
        return QVariant();
    case Qt::DecorationRole: {
        if (!object)
            return QVariant();
        // A variable shows its icon only under a row with an object that is
        // not a data set: rows under a folder stay without one.
        DcICCPBase* parentObject = NodeObject(node->Parent);
        const bool iconParent = parentObject && !qobject_cast<DcDataSet*>(parentObject);
        if (qobject_cast<DcVCC*>(object))
            return ImageByKey("VCC_10");
        if (qobject_cast<DcDO*>(object) && iconParent)
            return ImageByKey("DO_10");
        if (qobject_cast<DcDA*>(object) && iconParent)
            return ImageByKey("DA_10");
        if (qobject_cast<DcLD*>(object))
            return ImageByKey("LDico");
        // No class is named "DcDS" (a data set is "DcDataSet"), so data sets
        // stay without an icon, as the tree has always shown them; naming
        // "DcDataSet" here would change the tree.
        if (object->ClassName() == "DcDS")
            return ImageByKey("DS_10");
        return QVariant();
    }
    default:
        return QVariant();
    }
}

bool IEDTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid())
        return false;
    if (index.column() != 1 ||
        (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::CheckStateRole))
        return true;
    DcICCPBase* object = NodeObject(nodeFromIndex(index));
    if (!object)
        return true;
    const QString text = value.toString();
    if (object->ObType == 2 || object->ObType == 4) {
        object->desc = text.toUtf8().toStdString();
        return true;
    }
    object->desc = QToLocal(text);
    // Objects other than variables carry the caption of their tag as well.
    if (object->BoundTag)
        SetTextProp(object->BoundTag, "caption", text.toUtf8());
    return true;
}

Qt::ItemFlags IEDTreeModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags result = QAbstractItemModel::flags(index);
    // Both columns of a row carry the same node.
    DcICCPBase* object = NodeObject(nodeFromIndex(index));
    if (!object)
        return result;
    result.setFlag(Qt::ItemIsEditable, index.column() == 1);
    if (object->IsTagV)
        result |= Qt::ItemIsUserCheckable;
    return result;
}

QMimeData* IEDTreeModel::mimeData(const QModelIndexList& indexes) const {
    QMimeData* mime = new QMimeData();
    emit sigShowStat("Selected Count=" + QString::number(indexes.size()));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    GlobVarMem.Clear();
    for (const QModelIndex& index : indexes) {
        const QString text = data(index, Qt::DisplayRole).toString();
        if (index.column() > 0)
            continue;
        DcICCPBase* object = static_cast<DcICCPBase*>(data(index, Qt::UserRole).value<void*>());
        if (!object)
            continue;
        const QString className = object->ClassName();
        if (className != "DcDO" && className != "DcDA")
            continue;
        std::string key = object->name;
        if (DcICCPBase* icc = object->IsHostObType("DcLD"))
            key = icc->name + "/" + object->name;
        GlobVarMem.AddObject(key, object, true);
        stream << text;
    }
    mime->setData("text/plain", bytes);
    return mime;
}

void IEDTreeModel::DelFromDS(std::string name) {
    const QModelIndexList hits = match(index(0, 0), Qt::DisplayRole, GetRusQStr(name.c_str()), -1,
                                       Qt::MatchWrap | Qt::MatchRecursive);
    // Each removal moves the rows behind it; persistent indexes follow.
    const QList<QPersistentModelIndex> rows(hits.begin(), hits.end());
    for (const QPersistentModelIndex& row : rows) {
        if (!row.isValid())
            continue;
        const QModelIndex parentIndex = row.parent();
        DcICCPBase* parentObject = NodeObject(nodeFromIndex(parentIndex));
        if (!parentObject || parentObject->ClassName() != "DcDataSet")
            continue;
        myNode* node = nodeFromIndex(row);
        beginRemoveRows(parentIndex, row.row(), row.row());
        node->DeleteNode();
        delete node;
        endRemoveRows();
    }
}

QModelIndexList IEDTreeModel::match(const QModelIndex& start, int role, const QVariant& value,
                                    int hits, Qt::MatchFlags flags) const {
    const bool text = role == Qt::DisplayRole && value.userType() == QMetaType::QString;
    const bool object = role == Qt::UserRole && value.userType() == QMetaType::VoidStar;
    myNode* first = start.column() == 0 ? nodeFromIndex(start) : nullptr;
    // The base's order is that of the walk: the start row, the rows after
    // it under its parent, each with its subtree; with wrap, then the rows
    // before it.
    if (!m_index || !start.isValid() || !(text || object) || !(flags & Qt::MatchRecursive) ||
        (flags & 0x0F) != Qt::MatchExactly || m_index->Row(first) != start.row())
        return QAbstractItemModel::match(start, role, value, hits, flags);
    if (!m_index->searchable)
        m_index->MakeSearchable();
    const SearchIndex::Place& up = m_index->places[first->Parent];
    const int from = m_index->places[first].rank;
    const QVector<myNode*> found = text ? m_index->byText.value(value.toString())
                                        : m_index->byObject.value(value.value<void*>());
    QModelIndexList result;
    auto take = [&](int low, int high) {
        auto n = std::lower_bound(found.begin(), found.end(), low, [this](myNode* a, int rank) {
            return m_index->places[a].rank < rank;
        });
        for (; n != found.end() && m_index->places[*n].rank < high; ++n) {
            if (hits != -1 && result.size() >= hits)
                return;
            if (!m_index->places[*n].removed)
                result << createIndex(m_index->Row(*n), 0, *n);
        }
    };
    take(from, up.end);
    if (flags & Qt::MatchWrap)
        take(up.rank + 1, from);
    return result;
}

void IEDTreeModel::RemoveNode(const QModelIndex& parent, int row, myNode* node,
                              QSet<const myNode*>* removed) {
    myNode* parentNode = nodeFromIndex(parent);
    const int own = parentNode && node && node->Parent == parentNode ? rowOf(node) : -1;
    if (own < 0)
        return;
    if (row < 0 || row >= rowCount(parent))
        row = own;
    QSet<const myNode*> gone;
    CollectSubtree(node, gone);
    m_removing = true;
    beginRemoveRows(parent, row, row);
    node->DeleteNode();
    if (m_index)
        m_index->Remove(node, gone);
    endRemoveRows();
    m_removing = false;
    // The views dropped row `row` and kept the rows above it: the removed
    // node's own among them, and those between that have moved up by one.
    if (row != own) {
        for (const QModelIndex& kept : persistentIndexList()) {
            auto at = static_cast<const myNode*>(kept.internalPointer());
            if (gone.contains(at))
                changePersistentIndex(kept, QModelIndex());
            else if (at && at->Parent == parentNode && kept.row() > own && kept.row() < row)
                changePersistentIndex(
                    kept, createIndex(kept.row() - 1, kept.column(), const_cast<myNode*>(at)));
        }
    }
    delete node;
    if (removed)
        removed->unite(gone);
}

void IEDTreeModel::AddVarmNode(const QModelIndex& parent, int row, StringList* batch,
                               StringList* out) {
    myNode* parentNode = nodeFromIndex(parent);
    if (!parentNode || !batch || batch->Count == 0)
        return;
    beginInsertRows(parent, row, row + batch->Count - 1);
    // From the last entry to the first, each in front of the others: the
    // batch keeps its order ahead of the children that were there.
    for (int i = batch->Count - 1; i >= 0; --i) {
        myNode* node = static_cast<myNode*>(batch->Objects(i));
        if (!node)
            continue;
        if (parentNode->FirstChild)
            parentNode->AddChildAsFirst(node);
        else
            parentNode->AddChild(node);
        if (out)
            out->AddObject(node->name, node->object, true);
    }
    endInsertRows();
}

QModelIndex FindHost(IEDTreeModel* model, const QModelIndex& index) {
    if (!model)
        return QModelIndex();
    for (QModelIndex row = index; row.isValid(); row = model->parent(row)) {
        DcICCPBase* object = NodeObject(model->nodeFromIndex(row));
        if (object && (object->ClassName() == "DcVCC" || object->ClassName() == "DcLD"))
            return row;
    }
    return QModelIndex();
}

DcICCPBase* GetLDByNode(myNode* node) {
    if (!node)
        return nullptr;
    if (!node->object) {
        for (myNode* up = node->Parent; up; up = up->Parent) {
            DcICCPBase* object = NodeObject(up);
            if (!object)
                return nullptr;
            if (object->ClassName() == "DcLD")
                return object;
        }
        return nullptr;
    }
    for (myNode* up = node; up; up = up->Parent) {
        DcICCPBase* object = NodeObject(up);
        if (object && object->ClassName() == "DcLD")
            return object;
    }
    return nullptr;
}

bool IsOwn(myNode* node, const std::string& className) {
    const QString name = QString::fromStdString(className);
    for (myNode* up = node; up; up = up->Parent) {
        DcICCPBase* object = NodeObject(up);
        if (!object)
            return false;
        if (object->ClassName() == name)
            return true;
    }
    return false;
}

QVariant ImageByKey(const QString& key) {
    // Loaded once per key: data() asks for the icons at every repaint.
    static QHash<QString, QVariant> images;
    auto found = images.constFind(key);
    if (found != images.constEnd())
        return found.value();
    const QString path = ":/" + key;
    QVariant image;
    if (QFile::exists(path))
        image = QIcon(path);
    images.insert(key, image);
    return image;
}
