// The form opened in process on the stand-in host for the fuzz targets: one
// application, each other dialog rejected, each box answered by its escape,
// the form closed as soon as it shows, the settings file in a folder of its own.
#pragma once

#include "common/MessageBoxRecorder.h"
#include "common/SmallProject.h"
#include "common/TestApp.h"
#include "plugin/CfgIecArvenlib.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTextCodec>

// What the views left for deletion later goes, as the host's main loop
// would delete it once the form has returned: here no loop runs.
inline void HostLoopTurn() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

inline void* OpenAndClose(SmallProject& p) {
    static QTemporaryDir* dir = (EnsureApp(), new QTemporaryDir);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QDir::setCurrent(dir->path());
    MessageBoxRecorder boxes;
    boxes.setDialogHandler([](QWidget* w) {
        if (auto dialog = qobject_cast<QDialog*>(w))
            w->inherits("CfgArvenSR") ? void(w->close()) : dialog->reject();
        return true;
    });
    void* form = CfgFormGet(p.table(), p.line, p.unit, nullptr);
    HostLoopTurn();
    return form;
}
