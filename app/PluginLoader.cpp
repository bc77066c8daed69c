#include "app/PluginLoader.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <dlfcn.h>

QString PluginLoader::defaultPath() {
    const QString installed = QCoreApplication::applicationDirPath() + "/../" ICCP_PLUGIN_DIR "/" +
                              QFileInfo(ICCP_DEFAULT_PLUGIN).fileName();
    return QFileInfo::exists(installed) ? QFileInfo(installed).canonicalFilePath()
                                        : QString(ICCP_DEFAULT_PLUGIN);
}

bool PluginLoader::load(const QString& path, QString* error) {
    void* handle = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        *error = QString::fromLocal8Bit(dlerror());
        return false;
    }
    formGet = reinterpret_cast<FormGet>(dlsym(handle, "CfgFormGet"));
    formPut = reinterpret_cast<FormPut>(dlsym(handle, "CfgFormPut"));
    version = reinterpret_cast<Version>(dlsym(handle, "CfgVersion"));
    if (formGet && formPut && version)
        return true;
    *error = path + ": the exports CfgFormGet, CfgFormPut and CfgVersion are not all there";
    return false;
}
