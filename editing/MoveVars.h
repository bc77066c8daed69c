// A tag's "domain", "isinDataSet" or "tag_type" changed: its variable moves
// to the new owner, to the new data set, or is rebuilt with the new type.
// The tag already holds the new value when these run.
#pragma once

#include <QHash>
#include <QModelIndex>
#include <QPair>
#include <QPersistentModelIndex>
#include <QSet>
#include <QString>
#include <functional>
#include <vector>

class DcDataSet;
class DcICCPBase;
class IEDTreeModel;
class myNode;

// What a run of moves looks up again and again: the "Переменные" row of
// each owner, the variable rows under it by text, and how many member
// entries of each data set point at a variable. Each is found once and kept
// up to date by the moves of the run, so that moving many variables makes
// no search of the whole tree or of every data set per variable.
class MoveRun {
public:
    // With batch, the rows appended to a folder are announced together, when
    // the folder next loses rows or the run ends; meanwhile they count as
    // there for RowOf.
    explicit MoveRun(IEDTreeModel* model, bool batch = false) : model(model), batch(batch) {}
    ~MoveRun();
    MoveRun(const MoveRun&) = delete;
    MoveRun& operator=(const MoveRun&) = delete;

    // The owner's "Переменные" row; invalid when it has none.
    QModelIndex Folder(DcICCPBase* owner);
    // The row of the first child of folder that shows name; -1 for none.
    int RowOf(const QModelIndex& folder, const QString& name);
    // node becomes the last child of folder; inside runs between the
    // announcement and its end.
    void Append(const QModelIndex& folder, myNode* node, const std::function<void()>& inside);
    // The child at row goes, and every child after it with it.
    void RemoveFrom(const QModelIndex& folder, int row, const std::function<void()>& inside);

    // Membership changes through the run keep its counts right.
    void AddRef(DcDataSet* dataSet, DcICCPBase* var);
    void RemoveRef(DcDataSet* dataSet, DcICCPBase* var);
    // var is about to be freed: entries that point at it keep their text
    // and lose the pointer, and the run takes it for gone.
    void ForgetMember(DcICCPBase* var);
    // A variable made by the run, maybe at the address of a freed one.
    void Born(DcICCPBase* var) { born.insert(var); }
    // Whether a pointer taken before the run no longer names what it did.
    bool Gone(DcICCPBase* var) const { return freed.contains(var) || born.contains(var); }

private:
    struct Rows {
        QPersistentModelIndex folder;
        std::vector<myNode*> nodes; // the children, then the ones to come
        std::vector<QString> texts;
        QHash<QString, int> first; // text -> first row showing it
        size_t linked = 0;         // nodes in the tree
    };
    Rows& RowsOf(const QModelIndex& folder);
    // Links and announces the rows to come; inside runs before the end.
    void Flush(Rows& list, const std::function<void()>& inside = {});
    void CountMembers();

    IEDTreeModel* model;
    bool batch;
    QHash<DcICCPBase*, QPersistentModelIndex> folders;
    QHash<myNode*, Rows> rows;
    bool counted = false;
    QHash<QPair<void*, DcDataSet*>, int> members;
    QSet<DcICCPBase*> freed;
    QSet<DcICCPBase*> born;
};

// run: the moves that this one belongs to, or null for a move on its own.
void Changedomain(int newDomain, int oldDomain, void* tag, MoveRun* run = nullptr);
void Changedsnum(int newDs, int oldDs, void* tag, MoveRun* run = nullptr);
void Changedtype(int newType, int oldType, void* tag);
