// Steps that iccp-host takes on the shown form before its screenshot, so that
// a picture can show chosen rows: a click on the row of a named view, or a
// named tree view opened all the way down. The form's widgets are reached by
// their object names alone, as any host could.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QAction;
class QMessageBox;
class QWidget;

struct UiStep {
    enum Kind { Click, Expand };
    Kind kind = Click;
    QString view; // object name of a view below the form
    QString text; // Click: the start of the row's shown text
};

// "VIEW:TEXT" for a click; false when either side is empty.
bool ParseClickStep(const QString& arg, UiStep& step);
// Runs the steps in order; empty, or why a step could not be taken.
QString RunUiSteps(QWidget* form, const QList<UiStep>& steps);

// The action below the form that shows this text, menus included; null for
// none.
QAction* FindActionByText(QWidget* form, const QString& text);
// Tells the box on stderr and answers it with its escape button, else its
// default button, else closes it.
void AnswerMessageBox(QMessageBox* box);
// The rows of the dialog's list, after which the dialog is answered with its
// Cancel button.
QStringList CancelListDialog(QWidget* dialog);
