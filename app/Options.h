// The command line of iccp-host.
#pragma once

#include "app/UiSteps.h"
#include "model/ModelLint.h"

#include <QList>
#include <QString>
#include <QStringList>

struct HostOptions {
    QString project;   // empty: the built-in demo project
    int unit = 0;      // position among all units of the project
    bool list = false; // print the units and stop
    bool noSave = false;
    bool headless = false;
    bool printDatarun = false;
    bool timing = false;
    bool check = false; // run "Корректность тегов" headless and report
    QString screenshot;
    QString screenshotOf; // object name of the widget pictured; empty: the form
    QList<UiStep> steps;  // taken on the shown form, in order
    QString plugin;
    QString exportDir; // the form's save into this folder, then its close
    bool save = false; // an export writes the project file back
    bool help = false;
    bool lint = false;          // headless; checks the model the form writes
    int pdu = kDefaultPduBytes; // the data set budget of --lint
    bool diff = false;          // headless; compares models
    QStringList diffFiles;      // none, the other model, or two without a project
};

extern const char* const hostUsage;

// Reads the arguments after the program name; false with `error` set on a
// bad line.
bool ParseOptions(const QStringList& args, HostOptions& options, QString& error);
