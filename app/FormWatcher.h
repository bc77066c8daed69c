// Watches for the plug-in's modal form from inside its event loop: takes a
// screenshot once it is shown, runs the form's tag check when asked, and on
// a headless run closes it, answering any message box on the way.
#pragma once

#include "app/UiSteps.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

class QWidget;
class RunTimer;

class FormWatcher : public QObject {
    Q_OBJECT
public:
    // With a timer, the form is handled only after its first paint, which
    // marks it shown.
    FormWatcher(bool closeForm, const QString& screenshot, RunTimer* timer = nullptr);

    // Polls at every turn of the event loop until the form has been handled.
    void start();
    // Steps taken on the form before the picture, and the object name of the
    // widget pictured instead of the whole form.
    void setPicture(const QList<UiStep>& steps, const QString& widget);
    void stop();
    // Once the form is shown, its command "Корректность тегов" runs; the
    // list that it shows is read and cancelled, so nothing is deleted.
    void setCheck(bool check) { m_check = check; }

    bool formSeen() const { return m_formSeen; }
    // Empty, or why a step or the screenshot failed.
    const QString& error() const { return m_error; }
    // The rows that the check listed; empty when everything fits.
    const QStringList& checkRows() const { return m_checkRows; }

private slots:
    void poll();

private:
    void handleForm(QWidget* form);
    void runCheck(QWidget* form);

    QTimer m_timer;
    bool m_closeForm;
    QString m_screenshot;
    RunTimer* m_runTimer = nullptr;
    bool m_formSeen = false;
    QList<UiStep> m_steps;
    QString m_pictured;
    QString m_error;
    bool m_check = false;
    bool m_checking = false; // inside the command, its dialog awaited
    QStringList m_checkRows;
};
