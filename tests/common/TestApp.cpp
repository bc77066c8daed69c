#include "TestApp.h"

#include <QApplication>

QApplication* EnsureApp() {
    if (auto app = qobject_cast<QApplication*>(QCoreApplication::instance()))
        return app;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    // Never destroyed: at exit Qt's statics may go before it, and the windows
    // still open (the plug-in's form lives on) would be torn down against them.
    static QApplication* app = new QApplication(argc, argv);
    return app;
}
