#include "views/CpropNode.h"

CpropNode::~CpropNode() {
    qDeleteAll(children);
}

namespace {

// The other side of the first item of list whose `from` side is text.
QString OtherSide(const QStringList& list, const QString& text, bool fromKey) {
    if (list.isEmpty())
        return QString();
    for (const QString& item : list) {
        const int at = item.indexOf('=');
        if (at < 0)
            continue;
        const QString left = item.left(at).trimmed();
        const QString right = item.mid(at + 1).trimmed();
        if ((fromKey ? left : right) == text)
            return fromKey ? right : left;
    }
    return text;
}

} // namespace

QString CpropNode::GetValByKey(QString key) const {
    return OtherSide(enumList, key, true);
}

QString CpropNode::GetKeyByVal(QString value) const {
    return OtherSide(enumList, value, false);
}
