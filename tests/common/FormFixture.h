// Runs the real form through the plug-in's entry, on the stand-in host, in a
// current directory of its own so that the settings file lands there.
#pragma once

#include "common/MessageBoxRecorder.h"
#include "common/SmallProject.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QByteArray>
#include <QItemSelectionModel>
#include <QModelIndex>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

class CfgArvenSR;
class CpropNode;

class FormTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // CfgFormGet for the unit; once the form shows, `step` runs in its modal
    // loop and the form closes. `shown`: whether the form was visible.
    void* OpenForm(void* unit, const std::function<void(CfgArvenSR*)>& step = {});
    // The answer to the next file dialog: a path, or empty to cancel.
    void answerFile(const QString& path) { fileAnswers << path; }
    // Answers a file dialog with the next answer; false for other widgets.
    bool AnswerFileDialog(QWidget* w);

    // The first unit without tags and folders, limits 1 and 1: the template's model.
    void MakeFirstUnitBare();
    QByteArray Datarun(HostObject* unit) const { return unit->get("$DATARUN").toByteArray(); }
    // A file of the current directory with that content; its path.
    QString WriteFile(const QString& name, const QByteArray& content) const;
    QString IniPath() const;
    // Texts of the recorded boxes, "title|text".
    QStringList BoxTexts() const;

    // A unit of the line, a folder and a tag with a fixed number and twin flag.
    HostObject* AddUnit(const char* caption, int maxICC, int maxDS);
    HostObject* AddFolder(HostObject* parent, int kind, int number, const char* caption);
    HostObject* AddTag(HostObject* parent, int kind, int number, const QByteArray& name, int type,
                       int domain, int dataSet, int sbo, const QString& caption = QString());

    // Templates, so that only the tests that call them need the form's class.
    // The tag view shows `mode` with `root` at its top, as a unit's click leaves it.
    template <class Form> void ShowTags(Form* form, int mode, HostObject* root) {
        form->TagMode = mode;
        form->tVTags->setModel(nullptr);
        form->pTagsModel->mode = mode;
        form->pTagsModel->setRootNode(root);
        form->tVTags->setModel(form->pTagsModel);
    }
    // The row of the tag view that shows the object.
    template <class Form> QModelIndex TagRow(Form* form, HostObject* ob) const {
        return FindTagRow(form->pTagsModel, QModelIndex(), ob->handle());
    }
    // The first row of the model tree that shows the text, or invalid.
    template <class Form> QModelIndex NamedRow(Form* form, const QString& name) const {
        QAbstractItemModel* model = form->pTreeIedModel;
        return model->match(model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchRecursive)
            .value(0);
    }
    // Selects these rows of the tag view, the first one current.
    template <class Form> void SelectTags(Form* form, const QList<HostObject*>& obs) {
        QItemSelectionModel* selection = form->tVTags->selectionModel();
        selection->clear();
        for (HostObject* ob : obs)
            selection->select(TagRow(form, ob), QItemSelectionModel::Select);
        if (!obs.isEmpty())
            selection->setCurrentIndex(TagRow(form, obs.first()), QItemSelectionModel::NoUpdate);
    }
    // Gives tVTags the keyboard focus.
    template <class Form> void FocusTags(Form* form) {
        QApplication::setActiveWindow(form);
        form->tVTags->setFocus();
    }
    // The property tree's edit of a parameter of ob from old to value.
    template <class Form, class Node = CpropNode>
    void EditProp(Form* form, HostObject* ob, const char* key, const QString& value,
                  const QString& old) {
        ob->set(key, value);
        Node node;
        node.key = key;
        node.value = value;
        QByteArray name(key);
        form->UpdPropTagUnit(&node, old, ob, name.data());
    }
    // Answers the next text inputs (a null text cancels); "title|label" to inputTitles.
    void AnswerInput(const QString& text);
    // Walks rows by index() alone: the tag model's row count counts tags only,
    // so a folder's tags that follow its sub-folders lie beyond it.
    static QModelIndex FindTagRow(QAbstractItemModel* model, const QModelIndex& parent, void* ob);

    SmallProject p;
    MessageBoxRecorder boxes;
    QTemporaryDir dir;
    QString oldDir;
    QStringList fileAnswers;
    // Each file dialog seen: "title|filters|directory name".
    QStringList fileDialogs;
    bool shown = false;
    QStringList inputTitles;
    // Qt's model tester's warnings on the form's tree; TearDown fails on each one
    // left that no kept behaviour explains (a test that expects one takes it out).
    QStringList modelWarnings;
};

// While it lives: each time a dialog of class D is the active modal widget,
// the next step runs on it, past the steps it is rejected; `shows` counts.
template <class D> struct DialogScript {
    using Step = std::function<void(D*)>;
    explicit DialogScript(QList<Step> list = {}) : steps(std::move(list)) {
        QObject::connect(&timer, &QTimer::timeout, [this] {
            auto d = qobject_cast<D*>(QApplication::activeModalWidget());
            if (!d || !d->isVisible())
                return;
            ++shows;
            steps.isEmpty() ? d->reject() : steps.takeFirst()(d);
        });
        timer.start(10);
    }
    QList<Step> steps;
    int shows = 0;
    QTimer timer;
};

// Readable texts in failure messages.
inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}

// Bytes of a file of the golden texts.
std::string Golden(const char* name);
// The expected text's lines, LF between them, the CR of CR LF gone and empty
// lines dropped, as the form's split leaves a writer's text.
QByteArray SplitLines(const QByteArray& text);
