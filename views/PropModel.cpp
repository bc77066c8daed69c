#include "views/PropModel.h"

#include "model/ICCPTypes_Nat.h"
#include "support/MyBuf.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

namespace {

// The image list key of a class; null for a class without a picture. No
// class calls itself "DcDS", so data set rows stay without one.
const char* ClassImageKey(const QString& className) {
    if (className == "DcVCC")
        return "VCC_10";
    if (className == "DcDO")
        return "DO_10";
    if (className == "DcDA")
        return "DA_10";
    if (className == "DcLD")
        return "LDico";
    if (className == "DcDS")
        return "DS_10";
    return nullptr;
}

// The DcDA of a row by its class name, null for anything else.
DcDA* RowDA(DcICCPBase* object) {
    return object && object->ClassName() == "DcDA" ? qobject_cast<DcDA*>(object) : nullptr;
}

bool HasValue(DcDA* da) {
    return da && da->Value;
}

void SetFirstByte(DcDA* da, bool on) {
    if (HasValue(da) && da->Value->Buf && da->Value->Capacity > 0)
        da->Value->Buf[0] = on ? 1 : 0;
}

} // namespace

PropICCPModel::PropICCPModel(QObject* parent)
    : QAbstractItemModel(parent), ColCount(2),
      rootNode(nullptr), HeaderList{"Переменные", "Значения"} {}

PropICCPModel::~PropICCPModel() {
    if (rootNode)
        rootNode->DeleteSubTree();
}

void PropICCPModel::setRootNode(myNode* node) {
    beginResetModel();
    rootNode = node;
    endResetModel();
}

myNode* PropICCPModel::nodeFromIndex(const QModelIndex& index) const {
    if (index.row() < 0 || index.column() < 0 || !index.model())
        return rootNode;
    return static_cast<myNode*>(index.internalPointer());
}

DcICCPBase* PropICCPModel::RowObject(const QModelIndex& index) const {
    myNode* node = nodeFromIndex(index);
    if (!node || node == rootNode)
        return nullptr;
    return static_cast<DcICCPBase*>(node->object);
}

QModelIndex PropICCPModel::index(int row, int column, const QModelIndex& parent) const {
    myNode* node = rootNode ? nodeFromIndex(parent) : nullptr;
    myNode* child = node && column >= 0 ? node->GetChildById(row) : nullptr;
    return child ? createIndex(row, column, child) : QModelIndex();
}

QModelIndex PropICCPModel::parent(const QModelIndex& index) const {
    myNode* node = nodeFromIndex(index);
    if (!node || node == rootNode)
        return QModelIndex();
    myNode* up = node->Parent;
    // The root's children are the top rows, whatever hangs above the root.
    if (!up || up == rootNode || !up->Parent)
        return QModelIndex();
    const int row = up->Parent->GetChildRow(up);
    return row < 0 ? QModelIndex() : createIndex(row, 0, up);
}

int PropICCPModel::rowCount(const QModelIndex& parent) const {
    myNode* node = nodeFromIndex(parent);
    return node ? node->GetChildCount() : 0;
}

int PropICCPModel::columnCount(const QModelIndex&) const {
    return ColCount;
}

QVariant PropICCPModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= HeaderList.size())
        return QVariant();
    return HeaderList.at(section);
}

QVariant PropICCPModel::data(const QModelIndex& index, int role) const {
    myNode* node = nodeFromIndex(index);
    if (!node || node == rootNode)
        return QVariant();
    DcICCPBase* object = static_cast<DcICCPBase*>(node->object);
    DcDA* da = RowDA(object);
    if (index.column() == 0) {
        switch (role) {
        case Qt::DisplayRole:
            return QString::fromLocal8Bit(node->name.c_str());
        case Qt::DecorationRole: {
            const char* key = object ? ClassImageKey(object->ClassName()) : nullptr;
            return key ? ImageByKey(key) : QVariant();
        }
        case Qt::ToolTipRole:
            if (da && !da->desc.empty())
                return QString::fromLocal8Bit(da->desc.c_str());
            return QVariant();
        case Qt::UserRole:
            return QVariant::fromValue(static_cast<void*>(object));
        default:
            return QVariant();
        }
    }
    if (index.column() != 1 || !HasValue(da))
        return QVariant();
    const MyBufValue* value = da->Value;
    if (role == Qt::DisplayRole && value->bType != 0)
        return QString::fromLocal8Bit(value->Tostring().c_str());
    if (role == Qt::CheckStateRole && value->bType == 0)
        return value->Buf && value->Capacity > 0 && value->Buf[0] ? 2 : 0;
    return QVariant();
}

Qt::ItemFlags PropICCPModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags result = QAbstractItemModel::flags(index);
    myNode* node = nodeFromIndex(index);
    if (!rootNode || !index.isValid() || !node)
        return result;
    const Qt::ItemFlags editCheck = Qt::ItemIsEditable | Qt::ItemIsUserCheckable;
    DcICCPBase* object = static_cast<DcICCPBase*>(node->object);
    if (!object) {
        // A bit of a bit string: its value column.
        DcDA* owner =
            RowDA(static_cast<DcICCPBase*>(node->Parent ? node->Parent->object : nullptr));
        if (index.column() == 1 && owner && owner->IsBitStr())
            result |= editCheck;
        return result;
    }
    const QString className = object->ClassName();
    if (className != "DcDA" && className != "DcDO")
        return result;
    // A variable straight in an ICC or the VCC: its name may be edited.
    DcICCPBase* owner = object->OwnerOb();
    if (owner && index.column() == 0 &&
        (owner->ClassName() == "DcLD" || owner->ClassName() == "DcVCC"))
        result |= editCheck;
    DcDA* da = RowDA(object);
    if (!da || da->IsBitStr())
        return result;
    if (index.column() == 1)
        result |= editCheck;
    return result;
}

bool PropICCPModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!rootNode)
        return false;
    DcDA* da = RowDA(RowObject(index));
    if (role == Qt::EditRole && index.column() != 0) {
        if (!da)
            return false;
        const std::string text = QToLocal(value.toString());
        // Text the value refuses leaves the stored text as it was.
        if (HasValue(da) && da->Value->SetFromstring(text) == 0)
            da->svalue = text;
        return true;
    }
    if (role != Qt::CheckStateRole)
        return true;
    if (!da)
        return false;
    bool converted = false;
    int state = value.toInt(&converted);
    if (!converted)
        state = Qt::Unchecked;
    SetFirstByte(da, state == Qt::Checked);
    if (index.column() != 0)
        da->svalue = state == Qt::Checked ? "true" : "false";
    emit dataChanged(index.sibling(index.row(), 0), index.sibling(index.row(), 1));
    return true;
}

Model4AddFrm::Model4AddFrm(QObject* parent) : PropICCPModel(parent) {}

QVariant Model4AddFrm::data(const QModelIndex& index, int role) const {
    myNode* node = nodeFromIndex(index);
    if (!node || node == rootNode)
        return QVariant();
    DcICCPBase* object = static_cast<DcICCPBase*>(node->object);
    if (index.column() == 0 && role == Qt::DisplayRole)
        return QString::fromLocal8Bit(node->name.c_str());
    if (index.column() == 0 && role == Qt::UserRole)
        return QVariant::fromValue(static_cast<void*>(object));
    if (index.column() != 1 || role != Qt::DisplayRole || !object)
        return QVariant();
    if (DcDA* da = RowDA(object))
        return QString::fromLocal8Bit(da->type.c_str());
    DcDO* structure = object->ClassName() == "DcDO" ? qobject_cast<DcDO*>(object) : nullptr;
    return structure ? QString::fromLocal8Bit(structure->type.c_str()) : QVariant();
}

bool Model4AddFrm::setData(const QModelIndex&, const QVariant&, int) {
    return false;
}

Qt::ItemFlags Model4AddFrm::flags(const QModelIndex& index) const {
    // PropICCPModel::flags is skipped on purpose: its names and values are
    // editable, the members of a type to choose are not.
    return QAbstractItemModel::flags(index);
}
