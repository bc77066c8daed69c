#include "app/TagCheck.h"

#include "host/HostObject.h"

#include <QHash>

namespace {

// The tags below ob by the titles the form may show them under: the
// caption, and the caption with "_" and the number.
void CollectTitles(HostObject* ob, QHash<QString, HostObject*>& titles) {
    for (HostObject* child : ob->children()) {
        if (child->kind() < cotUnit) {
            const QString caption = child->get("caption").toString();
            titles.insert(caption, child);
            titles.insert(caption + "_" + child->get("number").toString(), child);
        }
        CollectTitles(child, titles);
    }
}

} // namespace

QStringList DescribeCheckRows(HostObject* unit, const QStringList& rows) {
    QHash<QString, HostObject*> titles;
    CollectTitles(unit, titles);
    const QString head = unit->get("caption").toString() + ": ";
    QStringList lines;
    for (const QString& row : rows) {
        QString reason = "no tag names it";
        if (HostObject* tag = titles.value(row)) {
            const QString key = QString::fromUtf8(tag->get("tag_id").toByteArray());
            reason = key.isEmpty() ? "the tag has no key"
                                   : "the tag's key \"" + key + "\" names nothing in the model";
        }
        lines << head + row + ": " + reason;
    }
    return lines;
}
