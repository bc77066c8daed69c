// The key and focus filter of the form's views, and the menu classes kept
// beside it.
#pragma once

#include <QMenu>
#include <QMenuBar>
#include <QObject>

// Installed on every tree view of the form and on the member list of a data
// set. Delete, or Ctrl+X, deletes in the view that has it; taking the focus
// tells the form which list or tree the engineer works in.
class qolMouseFilter : public QObject {
    Q_OBJECT
public:
    explicit qolMouseFilter(QObject* parent = nullptr);

    bool eventFilter(QObject* ob, QEvent* e) override;

signals:
    // A list or tree took the focus.
    void SigActOb(QObject* ob);
    // One of the four named trees took the focus: tVTags 0, tVProp 1,
    // tVIed 2, tVprop 3.
    void CapOb(QObject* ob, int n);
};

// A menu class of the design; the form makes plain menus.
class QMenuQol : public QMenu {
    Q_OBJECT
public:
    explicit QMenuQol(QWidget* parent = nullptr);
};

// A menu bar that reports the mouse over it before handling it; the form
// uses the bar of its main window instead.
class QMenuBarQol : public QMenuBar {
    Q_OBJECT
public:
    explicit QMenuBarQol(QWidget* parent = nullptr);

signals:
    void qolBarMouse();

protected:
    void mouseMoveEvent(QMouseEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
};
