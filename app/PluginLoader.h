// Loads the plug-in as the host configurator does: dlopen, then the three
// exports by name. The library is never closed: its form lives to the end of
// the process.
#pragma once

#include <QString>
#include <cstdint>

class PluginLoader {
public:
    using FormGet = void* (*)(void* host, void* line, void* unit, void* tag);
    using FormPut = void (*)(...);
    using Version = void (*)(uint64_t* major, uint64_t* minor, uint64_t* build, void* reserved,
                             const char** author);

    // The plug-in installed beside the program (its plug-in folder under the
    // library path), else the one of the build tree.
    static QString defaultPath();
    // False with `error` set when the library or one of the exports is
    // missing.
    bool load(const QString& path, QString* error);

    FormGet formGet = nullptr;
    FormPut formPut = nullptr;
    Version version = nullptr;
};
