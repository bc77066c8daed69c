// Watches for the plug-in's modal form from inside its event loop: takes a
// screenshot once it is shown, and on a headless run closes it, answering
// any message box on the way.
#pragma once

#include <QObject>
#include <QString>
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
    void stop();

    bool formSeen() const { return m_formSeen; }
    // Empty, or why the screenshot couldn't be written.
    const QString& screenshotError() const { return m_screenshotError; }

private slots:
    void poll();

private:
    void handleForm(QWidget* form);

    QTimer m_timer;
    bool m_closeForm;
    QString m_screenshot;
    RunTimer* m_runTimer = nullptr;
    bool m_formSeen = false;
    QString m_screenshotError;
};
