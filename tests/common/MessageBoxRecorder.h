// Records each QMessageBox shown while it lives and answers it with the next
// queued button, or its escape button; other modal dialogs go to a handler.
#pragma once

#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QTimer>
#include <functional>

struct RecordedBox {
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QMessageBox::Icon icon;
    QMessageBox::StandardButton answer; // NoButton: closed by its escape button
};

class MessageBoxRecorder : public QObject {
    Q_OBJECT
public:
    MessageBoxRecorder();

    // The answer to the next box that has this button.
    void answerNext(QMessageBox::StandardButton button) { m_answers.append(button); }
    // Given each modal widget that isn't a message box; true when it dealt with it.
    void setDialogHandler(std::function<bool(QWidget*)> handler) { m_handler = std::move(handler); }

    const QList<RecordedBox>& boxes() const { return m_boxes; }
    int count() const { return m_boxes.size(); }
    void clear() { m_boxes.clear(); }

private slots:
    void poll();

private:
    void answer(QMessageBox* box);

    QTimer m_timer;
    QList<QMessageBox::StandardButton> m_answers;
    QList<RecordedBox> m_boxes;
    std::function<bool(QWidget*)> m_handler;
};
