// The project file of the stand-in host: JSON, written atomically.
#pragma once

#include "host/HostProject.h"

#include <QByteArray>
#include <QString>

// The project as JSON text.
QByteArray ProjectToJson(const HostProject& project);
// Replaces the project's objects with those of the text. On an error the
// project is left empty and `error` tells where.
bool ProjectFromJson(HostProject& project, const QByteArray& json, QString* error = nullptr);

bool LoadProject(HostProject& project, const QString& path, QString* error = nullptr);
// Writes to a temporary file beside `path` and renames it over `path`, so a
// crash leaves either the old file or the new one.
bool SaveProject(const HostProject& project, const QString& path, QString* error = nullptr);
// Whether SaveProject could replace `path` now: the temporary file can be
// made beside it and the file may be replaced. Nothing is left behind.
bool CanSaveProject(const QString& path, QString* error = nullptr);
