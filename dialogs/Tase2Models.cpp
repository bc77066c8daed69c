#include "dialogs/Tase2Models.h"

#include "model/ICCPTypes_Nat.h"

ListTypesModel::ListTypesModel(QObject* parent)
    : QAbstractListModel(parent), ColCount(1), pShowList(new StringList) {}

ListTypesModel::~ListTypesModel() {
    delete pShowList;
}

int ListTypesModel::rowCount(const QModelIndex&) const {
    return pShowList->Count;
}

int ListTypesModel::columnCount(const QModelIndex&) const {
    return ColCount;
}

Qt::ItemFlags ListTypesModel::flags(const QModelIndex& index) const {
    if (index.row() < 0 || index.column() < 0 || !index.model())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsUserCheckable | Qt::ItemIsEnabled;
}

QVariant ListTypesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return QVariant();
    if (role == Qt::DisplayRole)
        return LocalToQ(pShowList->Strings(index.row()));
    if (role == Qt::UserRole)
        return QVariant::fromValue(pShowList->Objects(index.row()));
    return QVariant();
}

void ListTypesModel::FillTypes(DcDTTP* dttp) {
    pShowList->Clear();
    PrimList.Clear();
    SecondList.Clear();
    if (!dttp)
        return;
    PrimList.AddObject("Data_DiscreteQTimeTag", nullptr);
    PrimList.AddObject("Data_RealQTimeTag", nullptr);
    for (int i = PrimList.Count - 1; i >= 0; --i) {
        const int at = dttp->Types.IndexOf(PrimList.Strings(i));
        if (at < 0)
            PrimList.Delete(i);
        else
            PrimList.AddObjToString(dttp->Types.Objects(at), i);
    }
    for (int i = 0; i < dttp->Types.Count; ++i)
        if (PrimList.IndexOf(dttp->Types.Strings(i)) < 0)
            SecondList.AddObject(dttp->Types.Strings(i), dttp->Types.Objects(i), true);
    for (int i = 0; i < PrimList.Count; ++i)
        pShowList->AddObject(PrimList.Strings(i), PrimList.Objects(i), true);
}

void ListTypesModel::ShowSecond() {
    // The rows are announced under the first row, as the dialog always did;
    // a list view lays itself out again whatever the parent.
    const QModelIndex first = index(0, 0);
    if (!first.isValid() || pShowList->Count < PrimList.Count || SecondList.Count == 0)
        return;
    const int from = pShowList->Count;
    beginInsertRows(first, from, from + SecondList.Count - 1);
    for (int i = 0; i < SecondList.Count; ++i)
        pShowList->AddObject(SecondList.Strings(i), SecondList.Objects(i), true);
    endInsertRows();
}

void ListTypesModel::HideSecond() {
    if (pShowList->Count <= PrimList.Count)
        return;
    beginRemoveRows(QModelIndex(), PrimList.Count, pShowList->Count - 1);
    for (int i = pShowList->Count - 1; i >= PrimList.Count; --i)
        pShowList->Delete(i);
    endRemoveRows();
}

Tase2VarModel::Tase2VarModel(QObject* parent)
    : QAbstractItemModel(parent), ColCount(1), pRoot(nullptr) {}

void Tase2VarModel::setRootNode(DcICCPBase* root) {
    beginResetModel();
    pRoot = root;
    endResetModel();
}

DcICCPBase* Tase2VarModel::nodeFromIndex(const QModelIndex& index) const {
    if (!index.isValid())
        return pRoot;
    return static_cast<DcICCPBase*>(index.internalPointer());
}

QModelIndex Tase2VarModel::index(int row, int column, const QModelIndex& parent) const {
    DcICCPBase* up = nodeFromIndex(parent);
    if (!up || row < 0 || column < 0 || column >= ColCount || row >= up->GetChildCount())
        return QModelIndex();
    DcICCPBase* child = up->GetChildById(row);
    return child ? createIndex(row, column, child) : QModelIndex();
}

QModelIndex Tase2VarModel::parent(const QModelIndex& index) const {
    DcICCPBase* node = index.isValid() ? nodeFromIndex(index) : nullptr;
    DcICCPBase* up = node ? node->OwnerOb() : nullptr;
    if (!up || up == pRoot)
        return QModelIndex();
    DcICCPBase* grand = up->OwnerOb();
    const int row = grand ? grand->GetChildRow(up) : -1;
    return row < 0 ? QModelIndex() : createIndex(row, 0, up);
}

int Tase2VarModel::rowCount(const QModelIndex& parent) const {
    if (parent.column() > 0)
        return 0;
    DcICCPBase* node = nodeFromIndex(parent);
    return node ? node->GetChildCount() : 0;
}

int Tase2VarModel::columnCount(const QModelIndex&) const {
    return ColCount;
}

QVariant Tase2VarModel::data(const QModelIndex& index, int role) const {
    DcICCPBase* node = index.isValid() ? nodeFromIndex(index) : nullptr;
    if (!node)
        return QVariant();
    if (role == Qt::UserRole)
        return QVariant::fromValue(static_cast<void*>(node));
    if (index.column() != 0 || role != Qt::DisplayRole)
        return QVariant();
    switch (node->ObType) {
    case 1:
        if (auto* type = qobject_cast<DcDAType*>(node))
            return LocalToQ(type->type);
        return QString();
    case 3:
        if (auto* type = qobject_cast<DcDOType*>(node))
            return LocalToQ(type->type);
        return QString();
    case 2:
        return LocalToQ(node->name);
    case 10:
        return QString("DTTP");
    default:
        return QString();
    }
}
