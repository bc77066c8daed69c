#include "views/PropTreeModel.h"

#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostTitles.h"
#include "plugin/cfgCalls.h"
#include "views/CpropNode.h"

#include <QColor>
#include <QFont>
#include <QMessageBox>
#include <vector>

namespace {

// Counters of the host's processing that no group shows.
bool PassedOver(const QByteArray& key) {
    return key == "procRate" || key == "procCount";
}

bool IsLimit(const QString& key) {
    return key == "maxICC" || key == "maxDS";
}

CpropNode* NewGroup(CpropNode* root, const char* caption) {
    auto group = new CpropNode;
    group->parent = root;
    group->caption = caption;
    group->fromHost = 0;
    return group;
}

} // namespace

PropTreeModel::PropTreeModel(QObject* parent)
    : QAbstractItemModel(parent), hiddenRoot(new CpropNode) {
    hiddenRoot->fromHost = 0;
}

PropTreeModel::~PropTreeModel() {
    delete hiddenRoot;
    delete TreatGroup;
}

keyFldmeta* PropTreeModel::MetaOf(const QString& caption) const {
    if (!MetaMap)
        return nullptr;
    auto it = MetaMap->find(caption);
    return it == MetaMap->end() ? nullptr : &*it;
}

void PropTreeModel::setRootNode(void* object) {
    beginResetModel();
    delete hiddenRoot;
    hiddenRoot = new CpropNode;
    hiddenRoot->fromHost = 0;
    delete TreatGroup;
    TreatGroup = nullptr;
    ob = object;
    if (!ob) {
        emit ChangeRoot(QString(), -1);
        endResetModel();
        return;
    }
    const int kind = cfgObType(ob);
    hiddenRoot->caption = GetTitle(ob);
    emit ChangeRoot(hiddenRoot->caption, kind);

    CpropNode* base = NewGroup(hiddenRoot, "Базовые свойства");
    CpropNode* self = NewGroup(hiddenRoot, "Собственные свойства");
    if (kind < cotUnit)
        TreatGroup = NewGroup(hiddenRoot, "Тип обработки");
    const int count = cfgPropCount(ob);
    std::vector<int> seen(std::max(count, 0));

    // The described parameters, in table order, each under its group.
    int described = 0;
    const AddDescNode* table = GetAddDescByCIONode(TCfgObjectType(kind), described);
    CpropNode* group = base;
    for (int i = 0; i < described; ++i) {
        const AddDescNode& record = table[i];
        const QByteArray groupName(record.group);
        if (groupName == "Base")
            group = base;
        else if (groupName == "Self")
            group = self;
        else if (groupName == "Treat" && TreatGroup)
            group = TreatGroup;
        if (PassedOver(record.key))
            continue;
        const int index = cfgPropIndex(ob, record.key);
        if (index < 0 || index >= count || seen[index])
            continue;
        seen[index] = 1;
        auto node = new CpropNode;
        node->parent = group;
        node->key = QString::fromUtf8(record.key);
        node->InspectDepend();
        node->caption = QString::fromUtf8(record.caption);
        if (!FillCpropNode2Idx(node, index, ob, &record)) {
            delete node;
            continue;
        }
        node->meta = MetaOf(node->caption);
        if (node->hasDepend)
            node->CreateDependFields(ob, node, seen.data(), node->value);
        group->children.append(node);
    }

    // The rest of the host's parameters, by their own captions.
    if (kind != cotDirect && kind != cotProject) {
        for (int index = 0; index < count; ++index) {
            if (seen[index])
                continue;
            const QByteArray name(cfgPropName(ob, index));
            if (PassedOver(name))
                continue;
            auto node = new CpropNode;
            node->parent = self;
            node->key = QString::fromUtf8(name);
            if (!FillCpropNode1(node, name.constData(), ob, nullptr)) {
                delete node;
                continue;
            }
            node->meta = MetaOf(node->caption);
            self->children.append(node);
        }
    }

    // The processing group stays out of the tree, with all its rows.
    for (CpropNode* shown : {base, self}) {
        if (shown->children.isEmpty())
            delete shown;
        else
            hiddenRoot->children.append(shown);
    }
    endResetModel();
}

void PropTreeModel::CreateDependFields4setData(void* object, CpropNode* node,
                                               const QModelIndex& index) {
    if (!node || (node->key != "procType" && node->caption != "Тип обработки"))
        return;
    node->InspectDepend();
    const QModelIndex row = index.sibling(index.row(), 0);
    if (!node->children.isEmpty()) {
        beginRemoveRows(row, 0, node->children.size() - 1);
        qDeleteAll(node->children);
        node->children.clear();
        endRemoveRows();
    }
    QList<CpropNode*> made;
    for (int i = 0; i < node->dependCount; ++i)
        if (QString::fromUtf8(node->depend[i].group) == node->value)
            if (CpropNode* child = MakeDependRow(object, node, node->depend[i]))
                made.append(child);
    if (made.isEmpty())
        return;
    beginInsertRows(row, 0, made.size() - 1);
    node->children = made;
    endInsertRows();
}

CpropNode* PropTreeModel::nodeFromIndex(const QModelIndex& index) const {
    return index.isValid() ? static_cast<CpropNode*>(index.internalPointer()) : hiddenRoot;
}

QVariant PropTreeModel::data(const QModelIndex& index, int role) const {
    CpropNode* node = index.isValid() ? nodeFromIndex(index) : nullptr;
    if (!node)
        return QVariant();
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        if (column == 0)
            return node->caption;
        [[fallthrough]];
    case Qt::EditRole:
        if (column == 1 && node->type != cptBool)
            return node->value;
        break;
    case Qt::FontRole:
        if (column == 0 && node->bold)
            return QFont("Helvetica", 8, 75);
        break;
    case Qt::CheckStateRole:
        if (column == 1 && node->type == cptBool)
            return node->value.toLower() == "true" ? Qt::Checked : Qt::Unchecked;
        break;
    case Qt::UserRole:
        return QVariant::fromValue(static_cast<void*>(node));
    }
    return QVariant();
}

QVariant PropTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal) {
        if (role == Qt::DisplayRole && section >= 0 && section < 2)
            return section == 0 ? "Свойство" : "Значение";
        return QVariant();
    }
    if (role == Qt::DisplayRole)
        return section;
    if (role == Qt::BackgroundRole)
        return QColor(Qt::GlobalColor(7));
    return QVariant();
}

Qt::ItemFlags PropTreeModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags base = QAbstractItemModel::flags(index);
    if (index.column() != 1)
        return base;
    CpropNode* node = nodeFromIndex(index);
    // The limits belong to the host's main configurator.
    if (node && IsLimit(node->key))
        return base & ~Qt::ItemIsEditable;
    return base | Qt::ItemIsEditable;
}

// Writes column 1 to the host: the text, or "true"/"false" from a check
// state. The limits are refused with a box; a value that the host refuses
// goes back, in the host and in the row, and the caption is reported. The
// form then applies the change to the model by the row's key.
bool PropTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid())
        return false;
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::CheckStateRole)
        return true;
    CpropNode* node = nodeFromIndex(index);
    if (!node)
        return false;
    if (index.column() != 1)
        return false;
    const QString old = node->value;
    if (node->type == cptBool)
        node->value = value.toInt() == Qt::Checked ? "true" : "false";
    else
        node->value = value.toString();
    if (IsLimit(node->key)) {
        // The limit can't change here, whatever the value.
        node->value = old;
        QMessageBox::warning(
            FCfgArvenSR, "Предупреждение",
            "Для задания значений этого поля, воспользуйтесь основным конфигуратором");
    } else if (!SetPropFromQString(ob, node->keyText, node, node->type)) {
        node->value = old;
        SetPropFromQString(ob, node->keyText, node, node->type);
        emit ShowError(1, node->caption);
    }
    CreateDependFields4setData(ob, node, index);
    emit dataChanged(index, index);
    if (node->hasDepend)
        emit UpdRoot();
    emit UpdPropData(ob);
    if (node->key == "ied_name")
        emit iednameChanged(node->value);
    // The last step: the form may take the tree away under it.
    if (node->value != old && FCfgArvenSR)
        FCfgArvenSR->UpdPropTagUnit(node, old, ob, node->keyText);
    return true;
}

QModelIndex PropTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column < 0 || column >= ColCount || parent.column() > 0)
        return QModelIndex();
    CpropNode* node = nodeFromIndex(parent);
    if (!node || row >= node->children.size())
        return QModelIndex();
    return createIndex(row, column, node->children[row]);
}

QModelIndex PropTreeModel::parent(const QModelIndex& index) const {
    CpropNode* node = index.isValid() ? nodeFromIndex(index) : nullptr;
    CpropNode* up = node ? node->parent : nullptr;
    if (!up || up == hiddenRoot || !up->parent)
        return QModelIndex();
    return createIndex(up->parent->children.indexOf(up), 0, up);
}

int PropTreeModel::rowCount(const QModelIndex& parent) const {
    if (parent.column() > 0)
        return 0;
    CpropNode* node = nodeFromIndex(parent);
    return node ? node->children.size() : 0;
}

int PropTreeModel::columnCount(const QModelIndex&) const {
    return ColCount;
}
