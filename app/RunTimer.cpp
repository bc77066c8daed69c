#include "app/RunTimer.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMessageBox>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <sys/resource.h>

RunTimer::RunTimer() {
    std::fill(std::begin(m_marks), std::end(m_marks), -1);
    m_clock.start();
}

void RunTimer::watch() {
    qApp->installEventFilter(this);
}

namespace {

// A "VmRSS:"-like line of /proc/self/status in KiB, -1 when unreadable.
long StatusKiB(const char* key) {
    FILE* file = fopen("/proc/self/status", "r");
    if (!file)
        return -1;
    char line[256];
    long kib = -1;
    const size_t length = strlen(key);
    while (kib < 0 && fgets(line, sizeof line, file))
        if (strncmp(line, key, length) == 0)
            kib = strtol(line + length, nullptr, 10);
    fclose(file);
    return kib;
}

} // namespace

void RunTimer::mark(Mark m) {
    if (m_marks[m] >= 0)
        return;
    m_marks[m] = m_clock.nsecsElapsed();
    if (m == FormGet) {
        m_rssBefore = StatusKiB("VmRSS:");
        m_peakBefore = StatusKiB("VmHWM:");
        // From here the peak is the form's: the project's load may have
        // peaked higher.
        if (FILE* file = fopen("/proc/self/clear_refs", "w")) {
            fputs("5", file);
            fclose(file);
        }
    } else if (m == Shown) {
        m_rssShown = StatusKiB("VmRSS:");
    } else if (m == FormReturned) {
        m_rssPeak = StatusKiB("VmHWM:");
    }
}

bool RunTimer::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType())
        return false;
    auto widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::Show:
        // The first top-level dialog that isn't a message box is the form.
        if (!m_form && widget->isWindow() && qobject_cast<QDialog*>(widget) &&
            !qobject_cast<QMessageBox*>(widget))
            m_form = widget;
        break;
    case QEvent::Paint:
        if (m_form && widget->window() == m_form)
            m_painted = true;
        break;
    case QEvent::Close:
        if (widget == m_form)
            mark(CloseStart);
        break;
    default:
        break;
    }
    return false;
}

double RunTimer::span(Mark from, Mark to) const {
    if (m_marks[from] < 0 || m_marks[to] < 0)
        return -1;
    return double(m_marks[to] - m_marks[from]) / 1e9;
}

void RunTimer::report() const {
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    fprintf(stderr,
            "iccp-host: timing load %.3f s, open %.3f s, close %.3f s, save %.3f s, "
            "teardown %.3f s, total %.3f s, peak RSS %ld KiB\n",
            span(LoadStart, LoadEnd), span(FormGet, Shown), span(CloseStart, FormReturned),
            span(SaveStart, SaveEnd), span(TeardownStart, TeardownEnd),
            double(m_clock.nsecsElapsed()) / 1e9, std::max(usage.ru_maxrss, m_peakBefore));
    // The peak is taken from the call into the plug-in to its return.
    fprintf(stderr, "iccp-host: memory before the form %ld KiB, form shown %ld KiB, peak %ld KiB\n",
            m_rssBefore, m_rssShown, m_rssPeak);
}
