// iccp-host's model tools: --lint checks the unit's model as the form
// writes it, --diff compares it with a model file or with the unit's stored
// "$DATARUN", or compares two model files. Each prints one line per
// finding on stdout and gives the exit status.
#pragma once

#include <QByteArray>

struct HostOptions;

// After the headless run: `stored` is "$DATARUN" as the project held it,
// `written` as the form's close wrote it. Lint: 0 clean or warnings only,
// 1 errors. Diff: 0 the models agree, 1 they differ. 2 when a model can't
// be read.
int RunModelTool(const HostOptions& options, const QByteArray& stored, const QByteArray& written);
// --diff A B, without a project: 0, 1 or 2 as above.
int DiffModelFiles(const HostOptions& options);
