// The batch export of iccp-host: inside the form's modal loop it runs the
// form's own command "Сохранить BilateralTable в файл" into a folder, answers
// the file dialog by code and closes the form, whose close then writes the
// unit's "$DATARUN" as after any session.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

class HostObject;
class QFileDialog;
class QWidget;

// Whether DIR can take the export: made when missing, and free of ".blt",
// since the form names the CSV after the first ".blt" of the path.
bool ExportFolderFits(const QString& dir, QString& error);
// The file that the export of `unit` writes into `dir`: the unit's "ied_name"
// with ".blt", or with ".xml" when its "sclcomplete" is set. Empty with
// `error` set when the name makes no file of that folder.
QString ExportTarget(HostObject* unit, const QString& dir, QString* error);

class BatchExport : public QObject {
    Q_OBJECT
public:
    explicit BatchExport(const QString& target);

    // Polls at every turn of the event loop while the form runs.
    void start() { m_timer.start(); }
    void stop() { m_timer.stop(); }

    // Empty, or why the export was not made.
    const QString& error() const { return m_error; }
    // The files written: the model, and the CSV beside a ".blt".
    QStringList written() const;

private slots:
    void poll();
    // Runs from a timer of its own, so that the polling goes on inside the
    // command's file dialog.
    void runExport();

private:
    void answer(QFileDialog* dialog);

    QTimer m_timer;
    QString m_target;
    QString m_csv; // empty for a target without ".blt"
    QPointer<QWidget> m_form;
    bool m_answered = false;
    QString m_error = "no form was shown, so nothing was exported";
};
