// Watches for the plug-in's modal form from inside its event loop: takes a
// screenshot once it is shown, and on a headless run closes it, answering
// any message box on the way.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class QWidget;

class FormWatcher : public QObject {
    Q_OBJECT
public:
    FormWatcher(bool closeForm, const QString& screenshot);

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
    bool m_formSeen = false;
    QString m_screenshotError;
};
