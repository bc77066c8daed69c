// The rows of a tree model in the order in which a recursive, wrapping
// search by shown text meets them, so that the tag check finds each key's
// rows without walking the tree once per tag.
#pragma once

#include <QHash>
#include <QModelIndex>
#include <QString>
#include <vector>

class QAbstractItemModel;

class TagRowIndex {
public:
    // Reads every row of column 0 of the model; a null model has no rows.
    explicit TagRowIndex(QAbstractItemModel* model);

    // The place of the model's first row, -1 for an empty model.
    int Top() const { return m_rows.empty() ? -1 : 0; }
    // The place of the row that match() from the row at `start`, on the
    // display role, MatchRecursive | MatchWrap, one hit, gives for `text`:
    // the rows from `start` to the end of its parent, their children
    // included, then those of the parent before it. -1 for no hit.
    int Find(int start, const QString& text) const;
    QModelIndex Row(int place) const { return m_rows[size_t(place)].index; }

private:
    struct RowPlace {
        QModelIndex index;
        int parent; // place of the parent row, -1 at the top
        int end;    // one past the last place of the row's children
    };
    void Read(QAbstractItemModel* model, const QModelIndex& parent, int parentPlace);

    std::vector<RowPlace> m_rows;              // in search order
    QHash<QString, std::vector<int>> m_byText; // places of each text, rising
};
