// Runs the real form through the plug-in's entry, on the stand-in host, in a
// current directory of its own so that the settings file lands there.
#pragma once

#include "common/MessageBoxRecorder.h"
#include "common/SmallProject.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

class CfgArvenSR;

class FormTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // CfgFormGet for the unit of the project's line. Once the form is shown,
    // `step` runs inside its modal loop, then the form is closed. Returns
    // what the entry returned; `shown` tells whether the form was visible.
    void* OpenForm(void* unit, const std::function<void(CfgArvenSR*)>& step = {});
    // The answer to the next file dialog: a path, or empty to cancel.
    void answerFile(const QString& path) { fileAnswers << path; }
    // Answers a file dialog with the next answer; false for other widgets.
    bool AnswerFileDialog(QWidget* w);

    // Takes the tags and folders off the first unit and sets its limits to
    // 1 and 1: its model is then the template's.
    void MakeFirstUnitBare();
    QByteArray Datarun(HostObject* unit) const { return unit->get("$DATARUN").toByteArray(); }
    // A file of the current directory with that content; its path.
    QString WriteFile(const QString& name, const QByteArray& content) const;
    QString IniPath() const;
    // Texts of the recorded boxes, "title|text".
    QStringList BoxTexts() const;

    SmallProject p;
    MessageBoxRecorder boxes;
    QTemporaryDir dir;
    QString oldDir;
    QStringList fileAnswers;
    // Each file dialog seen: its title, "|", its filters, "|", the name of
    // its directory.
    QStringList fileDialogs;
    bool shown = false;
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
