// Models of the add-variable dialog: the list of type templates to pick from,
// and a tree straight over model objects.
#pragma once

#include <QAbstractItemModel>
#include <QAbstractListModel>

#include "support/UStringList.h"

class DcDTTP;
class DcICCPBase;

// The type templates offered to the engineer. Every entry holds a type name
// and its template (DcICCPBase*). The view shows pShowList: the primary list
// alone, or with the second list behind it.
class ListTypesModel : public QAbstractListModel {
    Q_OBJECT
public:
    explicit ListTypesModel(QObject* parent = nullptr);
    ~ListTypesModel() override;

    int ColCount;
    StringList* pShowList; // owned; the rows of the view
    StringList PrimList;   // the types offered at first
    StringList SecondList; // every other type, behind "Еще"

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    // Refills the three lists from the template set: the primary list holds
    // those of "Data_DiscreteQTimeTag" and "Data_RealQTimeTag" that the set
    // has, the second list every other template, the shown list the primary
    // one; without a set all three stay empty. No rows are announced: the
    // caller takes the model off its view around this.
    void FillTypes(DcDTTP* dttp);
    // Adds the second list behind the shown one, if the first row exists and
    // the shown list is not longer than the primary list.
    void ShowSecond();
    // Takes the rows behind the primary list away from the shown list.
    void HideSecond();
};

// A tree straight over model objects through their child operations.
class Tase2VarModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit Tase2VarModel(QObject* parent = nullptr);

    int ColCount;
    DcICCPBase* pRoot; // not owned

    void setRootNode(DcICCPBase* root);
    DcICCPBase* nodeFromIndex(const QModelIndex& index) const;

    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
};
