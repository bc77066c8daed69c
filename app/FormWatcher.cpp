#include "app/FormWatcher.h"

#include "app/RunTimer.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>

namespace {

// The form's tag check and the object name of the list it shows.
const char* const CheckAction = "Корректность тегов";
const char* const CheckDialog = "DMessTreeDev";

} // namespace

FormWatcher::FormWatcher(bool closeForm, const QString& screenshot, RunTimer* timer)
    : m_closeForm(closeForm), m_screenshot(screenshot), m_runTimer(timer) {
    m_timer.setInterval(0);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(poll()));
}

void FormWatcher::start() {
    m_timer.start();
}

void FormWatcher::setPicture(const QList<UiStep>& steps, const QString& widget) {
    m_steps = steps;
    m_pictured = widget;
}

void FormWatcher::stop() {
    m_timer.stop();
}

void FormWatcher::poll() {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible())
        return;
    auto box = qobject_cast<QMessageBox*>(modal);
    if (!box) {
        // While the check runs the form is still the modal widget under its
        // dialog.
        if (!m_checking)
            handleForm(modal);
        else if (modal->objectName() == CheckDialog)
            m_checkRows = CancelListDialog(modal);
        return;
    }
    if (!m_closeForm)
        return;
    AnswerMessageBox(box);
}

void FormWatcher::handleForm(QWidget* form) {
    if (m_runTimer) {
        if (!m_runTimer->painted())
            return;
        m_runTimer->mark(RunTimer::Shown);
    }
    m_formSeen = true;
    stop();
    m_error = RunUiSteps(form, m_steps);
    QWidget* pictured = form;
    if (m_error.isEmpty() && !m_pictured.isEmpty()) {
        pictured = form->findChild<QWidget*>(m_pictured);
        if (!pictured)
            m_error = m_pictured + ": no widget of that name";
    }
    if (m_error.isEmpty() && !m_screenshot.isEmpty() && !pictured->grab().save(m_screenshot, "PNG"))
        m_error = m_screenshot + ": the picture could not be written";
    if (m_error.isEmpty() && m_check)
        runCheck(form);
    if (m_closeForm)
        form->close();
}

void FormWatcher::runCheck(QWidget* form) {
    // The command checks the unit that is current in the form's unit list.
    auto units = form->findChild<QListWidget*>("lW_ieds");
    if (units && !units->currentItem()) {
        m_error = "the form shows no current unit, so nothing was checked";
        return;
    }
    QAction* action = FindActionByText(form, CheckAction);
    if (!action || !action->isEnabled()) {
        m_error = QString("the form has no command \"%1\" to run").arg(CheckAction);
        return;
    }
    m_checking = true;
    m_timer.start();
    action->trigger();
    m_timer.stop();
    m_checking = false;
}
