// The host parameters of one host object (tag, folder, unit, line,
// direction) as a two-level tree, caption and value, behind tVProp. Groups
// and captions come from the description tables; a parameter that no table
// names stands under "Собственные свойства" with the host's own caption.
// Edits go straight to the host, and a value that the host refuses is put
// back.
#pragma once

#include "plugin/HostDescTables.h"

#include <QAbstractItemModel>

class CpropNode;

class PropTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit PropTreeModel(QObject* parent = nullptr);
    ~PropTreeModel() override;

    int ColCount = 2;
    QModelIndex RootIndex;            // kept invalid; nothing reads it
    CpropNode* hiddenRoot;            // its children are the top rows
    void* ob = nullptr;               // the host object shown
    keyFldmetaMap* MetaMap = nullptr; // never assigned: every row's meta stays null
    // The group "Тип обработки": built with its rows, never shown. Kept here
    // only so that it is freed with the next object.
    CpropNode* TreatGroup = nullptr;

    // Rebuilds the tree for the host object, inside a model reset; null
    // leaves it empty.
    void setRootNode(void* object);
    // After an edit of the processing type: its dependent rows, removed and
    // made anew for the new value, announced to the views.
    void CreateDependFields4setData(void* object, CpropNode* node, const QModelIndex& index);

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Column 1 writes the text (or check state) to the host; see the .cpp.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;

signals:
    void resetParent_qol();
    void UpdRoot();
    void SetExpand(const QModelIndex& index);
    void ChangeRoot(const QString& title, int kind);
    // A parameter of the object was written.
    void UpdPropData(void* object);
    // The host refused a value: the row's caption.
    void ShowError(int code, QString caption);
    void iednameChanged(QString name);

private:
    CpropNode* nodeFromIndex(const QModelIndex& index) const;
    keyFldmeta* MetaOf(const QString& caption) const;
};
