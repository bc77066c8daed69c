#include "MessageBoxRecorder.h"

#include "TestApp.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>

MessageBoxRecorder::MessageBoxRecorder() {
    EnsureApp();
    m_timer.setInterval(0);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(poll()));
    m_timer.start();
}

void MessageBoxRecorder::poll() {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (!w->isVisible())
            continue;
        if (auto box = qobject_cast<QMessageBox*>(w)) {
            answer(box);
            return;
        }
    }
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && modal->isVisible() && m_handler)
        m_handler(modal);
}

void MessageBoxRecorder::answer(QMessageBox* box) {
    RecordedBox r{box->windowTitle(), box->text(), box->standardButtons(), box->icon(),
                  QMessageBox::NoButton};
    QAbstractButton* button = nullptr;
    if (!m_answers.isEmpty() && box->button(m_answers.first())) {
        r.answer = m_answers.takeFirst();
        button = box->button(r.answer);
    } else {
        button = box->escapeButton();
    }
    m_boxes.append(r);
    QPointer<QMessageBox> guard(box);
    if (button)
        button->click();
    if (guard && guard->isVisible())
        guard->close();
}
