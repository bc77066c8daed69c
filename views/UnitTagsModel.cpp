#include "views/UnitTagsModel.h"

#include "model/DcDA.h"
#include "plugin/HostTitles.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"
#include "support/MyBuf.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace {

// Whether a row's value matches, by the match type of the flags, as the
// base's search decides it.
bool Matches(const QVariant& v, const QVariant& value, Qt::MatchFlags flags) {
    const int type = int(flags & 0x0F);
    if (type == Qt::MatchExactly)
        return value == v;
    const Qt::CaseSensitivity cs =
        flags & Qt::MatchCaseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const auto options = cs == Qt::CaseInsensitive ? QRegularExpression::CaseInsensitiveOption
                                                   : QRegularExpression::NoPatternOption;
    const QString text = value.toString();
    const QString t = v.toString();
    switch (type) {
    case Qt::MatchRegularExpression:
        return (value.userType() == QMetaType::QRegularExpression
                    ? value.toRegularExpression()
                    : QRegularExpression(text, options))
            .match(t)
            .hasMatch();
    case Qt::MatchWildcard:
        return QRegularExpression(QRegularExpression::wildcardToRegularExpression(text), options)
            .match(t)
            .hasMatch();
    case Qt::MatchStartsWith:
        return t.startsWith(text, cs);
    case Qt::MatchEndsWith:
        return t.endsWith(text, cs);
    case Qt::MatchFixedString:
        return t.compare(text, cs) == 0;
    default:
        return t.contains(text, cs);
    }
}

// A recursive search that remembers the host objects it has searched.
struct TagSearch {
    const UnitTagsModel* model;
    int role;
    QVariant value;
    int hits;
    Qt::MatchFlags flags;
    QSet<void*> searched;
    QModelIndexList result;

    bool full() const { return hits != -1 && result.size() >= hits; }

    void rows(const QModelIndex& parent, int column, int from, int to) {
        for (int r = from; r < to && !full(); ++r) {
            const QModelIndex idx = model->index(r, column, parent);
            if (!idx.isValid())
                continue;
            if (Matches(model->data(idx, role), value, flags))
                result.append(idx);
            if (!(flags & Qt::MatchRecursive))
                continue;
            const QModelIndex below = column ? model->index(r, 0, parent) : idx;
            if (!model->hasChildren(below) || searched.contains(model->nodeFromIndex(below)))
                continue;
            searched.insert(model->nodeFromIndex(below));
            rows(below, column, 0, model->rowCount(below));
        }
    }
};

} // namespace

int TagTypeOf(DcICCPBase* var) {
    if (!var || var->ClassName() != "DcDA")
        return 0;
    const MyBufValue* value = static_cast<DcDA*>(var)->Value;
    return value ? value->bTypeToRdx() : 0;
}

UnitTagsModel::UnitTagsModel(QObject* parent) : QAbstractItemModel(parent) {}

void UnitTagsModel::setRootNode(void* node) {
    root = node;
    resetInternalData();
}

void* UnitTagsModel::nodeFromIndex(const QModelIndex& index) const {
    if (index.row() < 0 || index.column() < 0 || !index.model())
        return root;
    return index.internalPointer();
}

QModelIndex UnitTagsModel::index(int row, int column, const QModelIndex& parent) const {
    if (!root || row < 0 || column < 0)
        return QModelIndex();
    void* node = nodeFromIndex(parent);
    const int tags = std::max(0, cfgObChildCount(node, mode));
    const int folders = std::max(0, cfgObChildCount(node, mode + 8));
    void* child = nullptr;
    if (row < folders)
        child = cfgObChild(node, mode + 8, row);
    else if (row - folders < tags)
        child = cfgObChild(node, mode, row - folders);
    // A child that the host places under another owner would let a view
    // descend in a loop; such a row is left out.
    if (!child)
        return QModelIndex();
    void* owner = cfgObOwner(child);
    if (owner && owner != node)
        return QModelIndex();
    return createIndex(row, column, child);
}

QModelIndex UnitTagsModel::parent(const QModelIndex& index) const {
    void* node = index.isValid() ? index.internalPointer() : nullptr;
    if (!node)
        return QModelIndex();
    void* owner = cfgObOwner(node);
    if (!owner || owner == root)
        return QModelIndex();
    void* grand = cfgObOwner(owner);
    if (!grand)
        return QModelIndex();
    // The owner's row is its place among the folders, where index takes it
    // from.
    const std::vector<void*> folders = GetChildren(grand, mode + 8);
    const auto it = std::find(folders.begin(), folders.end(), owner);
    if (it == folders.end())
        return QModelIndex();
    return createIndex(int(it - folders.begin()), 0, owner);
}

int UnitTagsModel::rowCount(const QModelIndex& parent) const {
    void* node = nodeFromIndex(parent);
    if (!node || cfgObType(node) < cotUnit)
        return 0;
    return std::max(0, cfgObChildCount(node, mode));
}

int UnitTagsModel::columnCount(const QModelIndex&) const {
    return colCount;
}

int UnitTagsModel::GlobLastRow() const {
    return rowCount(QModelIndex());
}

QVariant UnitTagsModel::data(const QModelIndex& index, int role) const {
    void* node = nodeFromIndex(index);
    if (!node || node == root)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole: {
        if (cfgObType(node) < cotUnit)
            return GetTitle(node);
        cfgParamValue caption = {};
        if (!cfgPropGet(node, "caption", &caption))
            return "NO RESULT CAPTION";
        if (caption.type != cptText)
            return "Unk Type Caption";
        const QString text = cfgParamValueToQString(caption);
        return text.isEmpty() ? "Empty Caption" : text;
    }
    case Qt::UserRole:
        return QVariant::fromValue(node);
    case Qt::DecorationRole:
        // Asked of the host on every paint; no icon is shown.
        cfgObType(node);
        return QVariant();
    case Qt::BackgroundRole:
        // Likewise: the key is read, no colour is given.
        GetPropStrVal(node, "tag_id");
        return QVariant();
    default:
        return QVariant();
    }
}

QVariant UnitTagsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return "Теги устройства";
    return QVariant();
}

QModelIndexList UnitTagsModel::match(const QModelIndex& start, int role, const QVariant& value,
                                     int hits, Qt::MatchFlags flags) const {
    TagSearch search{this, role, value, hits, flags, {}, {}};
    const QModelIndex top = parent(start);
    search.searched.insert(nodeFromIndex(top));
    search.rows(top, start.column(), start.row(), rowCount(top));
    if (flags & Qt::MatchWrap)
        search.rows(top, start.column(), 0, start.row());
    return search.result;
}

void* UnitTagsModel::CreateTag(DcICCPBase* var, void* parent, int kind, const QString& key,
                               const QModelIndex& parentIndex, int row) {
    row = std::max(0, row);
    beginInsertRows(parentIndex, row, row);
    const int number = cfgObFreeNumber(parent, kind);
    void* tag = cfgObCreate(parent, kind, number, "IecArven");
    if (tag) {
        SetStr2PropOb(tag, "tag_id", key);
        SetIntProp(tag, "tag_type", TagTypeOf(var));
    }
    endInsertRows();
    return tag;
}

void UnitTagsModel::DeleteTag(void* tag) {
    const QModelIndexList hits = match(index(0, 0), Qt::UserRole, QVariant::fromValue(tag), -1,
                                       Qt::MatchRecursive | Qt::MatchWrap);
    // Every hit names the one object: the first deletes it, and the host
    // handle of the others is gone with it.
    if (hits.isEmpty() || !tag)
        return;
    const QModelIndex hit = hits.first();
    const QModelIndex grand = hit.parent().parent();
    beginRemoveRows(grand, hit.row(), hit.row());
    cfgObDelete(tag);
    endRemoveRows();
    const int rows = rowCount(grand);
    if (rows > 0)
        emit dataChanged(index(0, 0, grand), index(rows - 1, 0, grand));
}

void UnitTagsModel::DeleteNode(const QModelIndex& index, void* ob) {
    if (!ob)
        return;
    if (!index.isValid() || index.model() != this) {
        // No row to remove: the views drop whatever they hold of the object.
        beginResetModel();
        cfgObDelete(ob);
        endResetModel();
        return;
    }
    beginRemoveRows(index.parent(), index.row(), index.row());
    cfgObDelete(ob);
    endRemoveRows();
}
