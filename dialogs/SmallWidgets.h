// Two widget classes ready for the form: a list that takes drops of the
// tree's variables, and a tree view that hands out its selection.
#pragma once

#include <QListWidget>
#include <QTreeView>

// Accepts the drop and adds nothing: the dragged objects stand in
// GlobVarMem for whoever handles the drop.
class DropListWidget : public QListWidget {
    Q_OBJECT
public:
    explicit DropListWidget(QWidget* parent = nullptr);

protected:
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dropEvent(QDropEvent* e) override;
};

class STreeView : public QTreeView {
    Q_OBJECT
public:
    explicit STreeView(QWidget* parent = nullptr) : QTreeView(parent) {}

    QModelIndexList GetselectedIndexes() const { return selectedIndexes(); }
};
