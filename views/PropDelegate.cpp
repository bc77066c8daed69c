#include "views/PropDelegate.h"

#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostTitles.h"
#include "views/CpropNode.h"

#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QLineEdit>
#include <QRegExpValidator>
#include <QRegularExpression>

namespace {

CpropNode* RowNode(const QModelIndex& index) {
    return static_cast<CpropNode*>(index.data(Qt::UserRole).value<void*>());
}

constexpr int shortText = 256;

// The text to show for a long or multi-line value, or null for one that is
// shown as it stands.
QString ShortForm(const QModelIndex& index) {
    static const QRegularExpression lineEnd("[\\r\\n]");
    const QString text = index.data().toString();
    const int end = text.indexOf(lineEnd);
    if (end < 0 && text.size() <= shortText)
        return QString();
    const QString line = text.left(qMin(end < 0 ? text.size() : end, shortText));
    return line + QChar(0x2026);
}

} // namespace

PropDelegate::PropDelegate(QObject* parent)
    : QItemDelegate(parent), IntValidator(new QIntValidator(this)),
      DoubleValidator(new QDoubleValidator(this)),
      AddrValidator(new QRegExpValidator(QRegExp("((25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?)\\.){3}"
                                                 "(25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?)"),
                                         this)) {}

QWidget* PropDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
    CpropNode* node = index.isValid() ? RowNode(index) : nullptr;
    if (!node)
        return nullptr;
    switch (node->getTypeDelegate()) {
    case 1:
        return new QCheckBox(parent);
    case 2: {
        auto edit = new QLineEdit(parent);
        // The range is taken as the host gives it (its upper bound reads as 0).
        const char* range = node->info.rangeText;
        const bool ranged = range && qstrlen(range) > 2;
        if (node->type == cptInt) {
            int low = 0, high = 0;
            if (ranged && getIRange(range, low, high))
                IntValidator->setRange(low, high);
            else
                IntValidator->setRange(-1000000000, 1000000000);
            edit->setValidator(IntValidator);
        } else if (node->type == cptDouble) {
            double low = 0, high = 0;
            if (ranged && getDRange(range, low, high))
                DoubleValidator->setRange(low, high, 4);
            else
                DoubleValidator->setRange(-1e8, 1e8, 0);
            edit->setValidator(DoubleValidator);
        } else if (node->type == cptText && node->key == "ied_addr") {
            edit->setValidator(AddrValidator);
        }
        return edit;
    }
    case 3: {
        auto combo = new QComboBox(parent);
        int count = node->enumList.size();
        if (node->key == "domain")
            count = qMin(count, ICCdata.maxICC + 1);
        else if (node->key == "isinDataSet")
            count = qMin(count, ICCdata.maxDS + 1);
        QString key, value;
        for (int i = 0; i < count; ++i)
            if (FindKeyAndValue(node->enumList[i], key, value))
                combo->addItem(value, key);
        combo->setStyleSheet(
            QString("QComboBox{ background-color: %1 }").arg(QColor(230, 250, 255).name()));
        combo->setEditable(true);
        return combo;
    }
    }
    return nullptr;
}

void PropDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    CpropNode* node = RowNode(index);
    if (!node)
        return;
    if (auto edit = qobject_cast<QLineEdit*>(editor))
        edit->setText(node->value);
    else if (auto combo = qobject_cast<QComboBox*>(editor))
        combo->setEditText(node->value);
    else if (auto check = qobject_cast<QCheckBox*>(editor))
        check->setChecked(node->value.toLower() == "true");
}

void PropDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                const QModelIndex& index) const {
    QVariant value;
    if (auto edit = qobject_cast<QLineEdit*>(editor)) {
        if (!edit->validator() || edit->hasAcceptableInput())
            value = edit->text();
    } else if (auto combo = qobject_cast<QComboBox*>(editor)) {
        value = combo->lineEdit()->text();
    } else if (auto check = qobject_cast<QCheckBox*>(editor)) {
        value = int(check->checkState());
    } else {
        return;
    }
    model->setData(index, value, Qt::EditRole);
}

void PropDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const QString shown = ShortForm(index);
    if (shown.isNull()) {
        QItemDelegate::paint(painter, option, index);
        return;
    }
    const QStyleOptionViewItem opt = setOptions(index, option);
    drawBackground(painter, opt, index);
    drawDisplay(painter, opt, opt.rect, shown);
    drawFocus(painter, opt, opt.rect);
}

QSize PropDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QString shown = ShortForm(index);
    if (shown.isNull())
        return QItemDelegate::sizeHint(option, index);
    const QFontMetrics metrics(option.font);
    return QSize(metrics.horizontalAdvance(shown) + 6, metrics.height() + 2);
}
