#include "views/SomeModelsIED.h"

#include <QDataStream>
#include <QFile>
#include <QHash>
#include <QIcon>
#include <QMimeData>
#include <QPersistentModelIndex>
#include <cstdlib>
#include <cstring>

#include "model/ICCPTypes_Nat.h"
#include "plugin/cfgCalls.h"
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

} // namespace

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
}

void IEDTreeModel::forgetRows() {
    m_children.clear();
    m_rowOf.clear();
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
    const std::vector<myNode*>& rows = childrenOf(node);
    return row >= 0 && row < int(rows.size()) ? rows[size_t(row)] : nullptr;
}

int IEDTreeModel::rowOf(myNode* child) const {
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
    myNode* node = nodeFromIndex(parent);
    if (!node)
        return createIndex(row, column, rootNode);
    myNode* child = column < 0 ? nullptr : childAt(node, row);
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
    object->desc = text.toLocal8Bit().toStdString();
    // Objects other than variables carry the caption of their tag as well.
    if (object->BoundTag) {
        const QByteArray bytes = text.toUtf8();
        cfgParamValue caption;
        caption.type = cptText;
        caption.length = bytes.size();
        caption.text = static_cast<char*>(calloc(size_t(bytes.size()) + 1, 1));
        if (caption.text) {
            memcpy(caption.text, bytes.constData(), size_t(bytes.size()));
            cfgPropSet(object->BoundTag, "caption", &caption);
            free(caption.text);
        }
    }
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
