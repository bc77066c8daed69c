#include "views/PropDelegates.h"

#include <QLineEdit>

#include "model/ICCPTypes_Nat.h"
#include "support/MyBuf.h"

namespace {

// Value types edited as text: the integers, ENUM, FLOAT32,
// VISIBLE_STRING32 and TEXT (1 to 8, 10, 11).
const unsigned TextValueTypes = 0xDFE;

// The object of the row of index, read from column 0.
DcICCPBase* RowObject(const QModelIndex& index) {
    if (!index.isValid())
        return nullptr;
    return static_cast<DcICCPBase*>(
        index.sibling(index.row(), 0).data(Qt::UserRole).value<void*>());
}

// The variable of the row when its value has a text form, else null.
DcDA* TextValueDA(const QModelIndex& index) {
    DcICCPBase* object = RowObject(index);
    if (!object || object->ClassName() != "DcDA")
        return nullptr;
    DcDA* da = qobject_cast<DcDA*>(object);
    if (!da || !da->Value)
        return nullptr;
    const int type = da->Value->bType;
    return type >= 0 && type < 12 && (TextValueTypes >> type) & 1 ? da : nullptr;
}

} // namespace

PropDelegateDcDA::PropDelegateDcDA(QObject* parent) : QItemDelegate(parent) {}

QWidget* PropDelegateDcDA::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                        const QModelIndex& index) const {
    return TextValueDA(index) ? new QLineEdit(parent) : nullptr;
}

void PropDelegateDcDA::setEditorData(QWidget* editor, const QModelIndex& index) const {
    QLineEdit* line = qobject_cast<QLineEdit*>(editor);
    DcDA* da = TextValueDA(index);
    if (line && da)
        line->setText(QString::fromUtf8(da->Value->Tostring().c_str()));
}

void PropDelegateDcDA::setModelData(QWidget* editor, QAbstractItemModel* model,
                                    const QModelIndex& index) const {
    QLineEdit* line = qobject_cast<QLineEdit*>(editor);
    if (line && model && TextValueDA(index))
        model->setData(index, line->text(), Qt::EditRole);
}

void PropDelegateDcDA::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                            const QModelIndex&) const {
    editor->setGeometry(option.rect);
}

PropDelegate4Desc::PropDelegate4Desc(QObject* parent) : QItemDelegate(parent) {}

QWidget* PropDelegate4Desc::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                         const QModelIndex& index) const {
    if (index.column() != 1 || !RowObject(index))
        return nullptr;
    return new QLineEdit(parent);
}

void PropDelegate4Desc::setEditorData(QWidget* editor, const QModelIndex& index) const {
    QLineEdit* line = qobject_cast<QLineEdit*>(editor);
    DcICCPBase* object = RowObject(index);
    if (!line || !object)
        return;
    const QString className = object->ClassName();
    if (className == "DcDA" || className == "DcDO")
        line->setText(QString::fromUtf8(object->desc.c_str()));
}

void PropDelegate4Desc::setModelData(QWidget* editor, QAbstractItemModel* model,
                                     const QModelIndex& index) const {
    QLineEdit* line = qobject_cast<QLineEdit*>(editor);
    if (line && model)
        model->setData(index, line->text(), Qt::EditRole);
}

void PropDelegate4Desc::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                             const QModelIndex&) const {
    editor->setGeometry(option.rect);
}
