// Free functions of deleting, shared by the form's deletes of the model tree,
// the member list and the tag view.
#pragma once

#include <QList>
#include <QPersistentModelIndex>
#include <QSignalBlocker>
#include <string>

class DcDataSet;
class QTreeView;

// Deletes the member entry `name` of the data set, if it has one; nothing for
// a null set.
void RemoveMember(DcDataSet* dataSet, const std::string& name);

// Holds a tree view still through a batch of row removals: its selection
// model tells it nothing meanwhile, so it doesn't lay out its rows again for
// each current row. At the end the view takes its current row once; with
// openRemoved it first opens the rows above each row removed, as it does
// when it is moved to a row.
class QuietView {
public:
    QuietView(QTreeView* view, bool openRemoved);
    ~QuietView();
    QuietView(const QuietView&) = delete;
    QuietView& operator=(const QuietView&) = delete;

private:
    QTreeView* m_view;
    QSignalBlocker m_blocker;
    QList<QPersistentModelIndex> m_opened;
    QMetaObject::Connection m_watch;
};
