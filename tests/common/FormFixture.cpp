#include "common/FormFixture.h"

#include "plugin/CfgIecArvenlib.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTextCodec>
#include <QTimer>

void FormTest::SetUp() {
    // The model's text is UTF-8, and so is the local 8-bit encoding.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    ASSERT_TRUE(dir.isValid());
    oldDir = QDir::currentPath();
    QDir::setCurrent(dir.path());
    p.unit2->set("maxICC", 1);
    p.unit2->set("maxDS", 1);
    boxes.setDialogHandler([this](QWidget* w) { return AnswerFileDialog(w); });
}

bool FormTest::AnswerFileDialog(QWidget* w) {
    auto dialog = qobject_cast<QFileDialog*>(w);
    if (!dialog)
        return false;
    fileDialogs << dialog->windowTitle() + "|" + dialog->nameFilters().join(";;") + "|" +
                       dialog->directory().dirName();
    const QString answer = fileAnswers.isEmpty() ? QString() : fileAnswers.takeFirst();
    if (answer.isEmpty()) {
        dialog->reject();
    } else {
        dialog->selectFile(answer);
        static_cast<QDialog*>(dialog)->accept();
    }
    return true;
}

void FormTest::TearDown() {
    QDir::setCurrent(oldDir);
}

void* FormTest::OpenForm(void* unit, const std::function<void(CfgArvenSR*)>& step) {
    shown = false;
    bool started = false;
    // The step runs from a timer of its own: a dialog that it opens needs
    // the recorder's timer free to answer it.
    boxes.setDialogHandler([&](QWidget* w) {
        // The form is known by its class: this helper sees it as a widget only.
        if (!FCfgArvenSR || !w->inherits("CfgArvenSR"))
            return AnswerFileDialog(w);
        if (!started) {
            started = true;
            QTimer::singleShot(0, [&, w] {
                shown = w->isVisible();
                if (step)
                    step(FCfgArvenSR);
                w->close();
            });
        }
        return true;
    });
    void* result = CfgFormGet(p.table(), p.line, unit, nullptr);
    boxes.setDialogHandler([this](QWidget* w) { return AnswerFileDialog(w); });
    return result;
}

void FormTest::MakeFirstUnitBare() {
    for (HostObject* folder : p.folder)
        p.host.remove(folder);
    p.unit->set("maxICC", 1);
    p.unit->set("maxDS", 1);
}

QString FormTest::WriteFile(const QString& name, const QByteArray& content) const {
    const QString path = dir.filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
    return path;
}

QString FormTest::IniPath() const {
    return dir.filePath("CfgTarn.ini");
}

std::string Golden(const char* name) {
    QFile file(QString(ICCP_GOLDEN_DIR "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        return std::string();
    return file.readAll().toStdString();
}

QByteArray SplitLines(const QByteArray& text) {
    QList<QByteArray> lines;
    for (QByteArray line : text.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        if (!line.isEmpty())
            lines << line;
    }
    return lines.join('\n');
}

QStringList FormTest::BoxTexts() const {
    QStringList texts;
    for (const RecordedBox& box : boxes.boxes())
        texts << box.title + "|" + box.text;
    return texts;
}
