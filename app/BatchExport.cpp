#include "app/BatchExport.h"

#include "app/UiSteps.h"
#include "host/HostObject.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace {

const char* const SaveAction = "Сохранить BilateralTable в файл";

} // namespace

bool ExportFolderFits(const QString& dir, QString& error) {
    const QString path = QDir(dir).absolutePath();
    if (path.contains(".blt")) {
        error = "--export takes a folder whose path holds no \".blt\", or the CSV would be "
                "named after it: " +
                path;
        return false;
    }
    if (!QDir().mkpath(path) || !QFileInfo(path).isWritable()) {
        error = "--export: no folder to write in at " + path;
        return false;
    }
    return true;
}

QString ExportTarget(HostObject* unit, const QString& dir, QString* error) {
    const QString name = QString::fromUtf8(unit->get("ied_name").toByteArray());
    if (name.isEmpty() || name == "." || name == ".." || name.contains('/') ||
        name.contains(".blt")) {
        *error = QString("the unit's ied_name \"%1\" makes no file name to export to").arg(name);
        return QString();
    }
    const char* extension = unit->get("sclcomplete").toBool() ? ".xml" : ".blt";
    return QDir(dir).absoluteFilePath(name + extension);
}

BatchExport::BatchExport(const QString& target) : m_target(target) {
    if (target.endsWith(".blt"))
        m_csv = target.left(target.size() - 4) + ".csv";
    m_timer.setInterval(0);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(poll()));
}

QStringList BatchExport::written() const {
    QStringList files{m_target};
    if (!m_csv.isEmpty())
        files << m_csv;
    return files;
}

void BatchExport::poll() {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible())
        return;
    if (auto box = qobject_cast<QMessageBox*>(modal))
        AnswerMessageBox(box);
    else if (auto dialog = qobject_cast<QFileDialog*>(modal))
        answer(dialog);
    else if (!m_form) {
        m_form = modal;
        QTimer::singleShot(0, this, SLOT(runExport()));
    } else if (modal != m_form)
        modal->close(); // no other dialog belongs to the export
}

void BatchExport::runExport() {
    if (!m_form)
        return;
    QAction* action = FindActionByText(m_form, SaveAction);
    if (!action || !action->isEnabled()) {
        m_error = QString("the form has no command \"%1\" to run").arg(SaveAction);
    } else {
        // Files of an earlier export would hide a save that wrote nothing.
        for (const QString& file : written())
            QFile::remove(file);
        action->trigger();
        m_error.clear();
        if (!m_answered)
            m_error = "the form asked for no file name, so nothing was exported";
        for (const QString& file : written())
            if (m_error.isEmpty() && !QFileInfo::exists(file))
                m_error = "the form did not write " + file;
    }
    m_form->close();
}

void BatchExport::answer(QFileDialog* dialog) {
    if (m_answered || dialog->acceptMode() != QFileDialog::AcceptSave) {
        dialog->reject();
        return;
    }
    m_answered = true;
    // The files are replaced without a question, as a script expects.
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    dialog->selectFile(m_target);
    static_cast<QDialog*>(dialog)->accept();
}
