// Line editors of the two model views: the value of a variable in tVprop, the
// description column of tVIed.
#pragma once

#include <QItemDelegate>

// Edits a variable's value as text, for the value types that have a text
// form; booleans go through their check box, bit strings through their bits.
class PropDelegateDcDA : public QItemDelegate {
    Q_OBJECT
public:
    explicit PropDelegateDcDA(QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
};

// Edits the description of any object row in column 1 of tVIed.
class PropDelegate4Desc : public QItemDelegate {
    Q_OBJECT
public:
    explicit PropDelegate4Desc(QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
};
