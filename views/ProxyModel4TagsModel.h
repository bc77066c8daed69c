// The sorting proxy designed for the tags view. It sorts by sortMode: 1 by
// number, 2 by caption, 3 by title, each deliberately greater-than, so that
// an ascending sort puts the largest first; a tag always sorts before a
// folder.
#pragma once

#include <QList>
#include <QModelIndex>
#include <QSortFilterProxyModel>

class ProxyModel4TagsModel : public QSortFilterProxyModel {
    Q_OBJECT
public:
    explicit ProxyModel4TagsModel(QObject* parent = nullptr);

    int sortMode = 1;

    // Replaces each proxy index of the list by its source index.
    void ListMapToSource(QList<QModelIndex>& list);

public slots:
    // Passes a change of source rows on as a change of the proxy's rows.
    void UpdateData(const QModelIndex& topLeft, const QModelIndex& bottomRight);

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};
