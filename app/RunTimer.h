// Times a run of iccp-host from the host's side: the project's load, the
// form's opening (the call into the plug-in up to the form's first paint),
// its closing (the form's close event up to the return of the call), the
// project's save and teardown, and the process's peak memory. The plug-in
// knows nothing of it: the marks come from an event filter on the
// application.
#pragma once

#include <QElapsedTimer>
#include <QObject>

class QWidget;

class RunTimer : public QObject {
    Q_OBJECT
public:
    enum Mark {
        LoadStart,
        LoadEnd,
        FormGet,
        Shown,
        CloseStart,
        FormReturned,
        SaveStart,
        SaveEnd,
        TeardownStart,
        TeardownEnd,
        MarkCount
    };

    RunTimer();
    // Watches the application's events for the form's paint and close.
    void watch();
    // Records the time of m; a mark already taken stays.
    void mark(Mark m);
    // Whether the form has had its first paint.
    bool painted() const { return m_painted; }
    // One line on stderr with the spans in seconds, the total since the
    // timer was made, and the peak memory; a second line with the resident
    // memory before the call into the plug-in, once the form is shown, and
    // at the peak, so that the plug-in's share shows apart from the host's.
    void report() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    double span(Mark from, Mark to) const;

    QElapsedTimer m_clock;
    qint64 m_marks[MarkCount];
    long m_rssBefore = -1;
    long m_rssShown = -1;
    long m_rssPeak = -1;
    // The process's peak up to the form, before the kernel's mark is reset.
    long m_peakBefore = -1;
    QWidget* m_form = nullptr;
    bool m_painted = false;
};
