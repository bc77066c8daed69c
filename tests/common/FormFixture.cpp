#include "common/FormFixture.h"

#include "plugin/CfgIecArvenlib.h"

#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QTextCodec>
#include <QTimer>

namespace {

QStringList* testerWarnings = nullptr;
QtMessageHandler previousHandler = nullptr;

void CollectTesterWarning(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (testerWarnings && QByteArray(context.category) == "qt.modeltest") {
        if (type == QtWarningMsg)
            *testerWarnings << text;
        return;
    }
    previousHandler(type, context, text);
}

// Warnings that come from behaviour the form keeps.
bool KeptBehaviour(const QString& warning) {
    // Column 1 of the model tree answers for the same children as column 0.
    if (warning.contains("childIndex != childIndex1"))
        return true;
    // New data sets and transfer sets of an ICC are announced under the ICC's
    // row, whose own four folder rows stay.
    if (warning.contains("Actual (model->rowCount(parent)) 4\n"))
        return true;
    // New ICCs are announced one row past the rows they take.
    return warning.contains("(start - 1, 0, c.parent))) QVariant(QString,ICC_") &&
           warning.contains("Expected (c.last) QVariant()\n");
}

} // namespace

void FormTest::SetUp() {
    // The model's text is UTF-8, and so is the local 8-bit encoding.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    ASSERT_TRUE(dir.isValid());
    oldDir = QDir::currentPath();
    QDir::setCurrent(dir.path());
    p.unit2->set("maxICC", 1);
    p.unit2->set("maxDS", 1);
    boxes.setDialogHandler([this](QWidget* w) { return AnswerFileDialog(w); });
    testerWarnings = &modelWarnings;
    previousHandler = qInstallMessageHandler(CollectTesterWarning);
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
    qInstallMessageHandler(previousHandler);
    testerWarnings = nullptr;
    for (const QString& warning : modelWarnings)
        if (!KeptBehaviour(warning))
            ADD_FAILURE() << "model tester: " << warning.toStdString();
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
                // One tester for the model of the form's life.
                auto view = w->findChild<QAbstractItemView*>("tVIed");
                QAbstractItemModel* tree = view ? view->model() : nullptr;
                if (tree && !tree->findChild<QAbstractItemModelTester*>())
                    new QAbstractItemModelTester(
                        tree, QAbstractItemModelTester::FailureReportingMode::Warning, tree);
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

HostObject* FormTest::AddUnit(const char* caption, int maxICC, int maxDS) {
    HostObject* unit = p.host.create(p.direct, cotUnit, 0, "IecArven");
    unit->set("caption", QString(caption));
    unit->set("maxICC", maxICC);
    unit->set("maxDS", maxDS);
    return unit;
}

HostObject* FormTest::AddFolder(HostObject* parent, int kind, int number, const char* caption) {
    HostObject* folder = p.host.create(parent, kind, number, "Arven");
    folder->set("caption", QString(caption));
    return folder;
}

HostObject* FormTest::AddTag(HostObject* parent, int kind, int number, const QByteArray& name,
                             int type, int domain, int dataSet, int sbo, const QString& caption) {
    HostObject* tag = p.addTag(parent, kind, name, type, domain, dataSet, caption);
    tag->set("number", number);
    tag->set("presentSBO", sbo);
    return tag;
}

QModelIndex FormTest::FindTagRow(QAbstractItemModel* model, const QModelIndex& parent, void* ob) {
    for (int r = 0;; ++r) {
        const QModelIndex row = model->index(r, 0, parent);
        if (!row.isValid())
            return QModelIndex();
        if (row.internalPointer() == ob)
            return row;
        const QModelIndex below = FindTagRow(model, row, ob);
        if (below.isValid())
            return below;
    }
}

void FormTest::AnswerInput(const QString& text) {
    boxes.setDialogHandler([this, text](QWidget* w) {
        auto input = qobject_cast<QInputDialog*>(w);
        if (!input)
            return false;
        inputTitles << input->windowTitle() + "|" + input->labelText();
        if (text.isNull()) {
            input->reject();
        } else {
            input->setTextValue(text);
            input->accept();
        }
        return true;
    });
}
