// The editors of the host property tree (tVProp), by the row's type: a check
// box, a line edit with a validator of the row's range, or a combo box of
// the enumeration's values.
#pragma once

#include <QItemDelegate>

class QDoubleValidator;
class QIntValidator;
class QRegExpValidator;

class PropDelegate : public QItemDelegate {
    Q_OBJECT
public:
    explicit PropDelegate(QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    // The editor's value goes to the model with the edit role; a line edit
    // whose text its validator doesn't accept gives an invalid value.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    // A value of several lines or of some length (the unit's model text,
    // megabytes) shows its first line, cut: laying out all of it would take
    // seconds at every paint, and its row would be as tall as the text.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // Shared by the editors: one is open at a time.
    QIntValidator* IntValidator;
    QDoubleValidator* DoubleValidator;
    QRegExpValidator* AddrValidator; // an IPv4 address, for "ied_addr"
};
