#include "app/UiSteps.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeView>
#include <cstdio>

bool ParseClickStep(const QString& arg, UiStep& step) {
    const int colon = arg.indexOf(':');
    if (colon <= 0 || colon + 1 == arg.size())
        return false;
    step.kind = UiStep::Click;
    step.view = arg.left(colon);
    step.text = arg.mid(colon + 1);
    return true;
}

namespace {

// A real press and release in the middle of the row, so that the view's own
// signals run as they do under the engineer's mouse.
void ClickRow(QAbstractItemView* view, const QModelIndex& row) {
    if (auto tree = qobject_cast<QTreeView*>(view))
        for (QModelIndex up = row.parent(); up.isValid(); up = up.parent())
            tree->expand(up);
    view->scrollTo(row);
    const QPoint at = view->visualRect(row).center();
    QWidget* target = view->viewport();
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, target->mapToGlobal(at), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(target, &event);
    }
}

} // namespace

QString RunUiSteps(QWidget* form, const QList<UiStep>& steps) {
    for (const UiStep& step : steps) {
        auto view = form->findChild<QAbstractItemView*>(step.view);
        if (!view || !view->model())
            return step.view + ": no view of that name shows rows";
        if (step.kind == UiStep::Expand) {
            if (auto tree = qobject_cast<QTreeView*>(view))
                tree->expandAll();
            continue;
        }
        QAbstractItemModel* model = view->model();
        const QModelIndexList hits =
            model->match(model->index(0, 0, view->rootIndex()), Qt::DisplayRole, step.text, 1,
                         Qt::MatchStartsWith | Qt::MatchRecursive | Qt::MatchWrap);
        if (hits.isEmpty())
            return step.view + ": no row begins with \"" + step.text + "\"";
        ClickRow(view, hits.first());
        QApplication::processEvents();
    }
    return QString();
}

QAction* FindActionByText(QWidget* form, const QString& text) {
    for (QAction* action : form->findChildren<QAction*>())
        if (action->text() == text)
            return action;
    return nullptr;
}

void AnswerMessageBox(QMessageBox* box) {
    fprintf(stderr, "iccp-host: message \"%s\": %s\n", qPrintable(box->windowTitle()),
            qPrintable(box->text()));
    QAbstractButton* answer = box->escapeButton();
    if (!answer)
        answer = box->defaultButton();
    if (answer)
        answer->click();
    else
        box->close();
}

QStringList CancelListDialog(QWidget* dialog) {
    QStringList rows;
    if (auto list = dialog->findChild<QListWidget*>())
        for (int i = 0; i < list->count(); ++i)
            rows << list->item(i)->text();
    auto buttons = dialog->findChild<QDialogButtonBox*>();
    QPushButton* cancel = buttons ? buttons->button(QDialogButtonBox::Cancel) : nullptr;
    if (cancel)
        cancel->click();
    else
        dialog->close();
    return rows;
}
