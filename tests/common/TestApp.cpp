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
    static QApplication app(argc, argv);
    return &app;
}
