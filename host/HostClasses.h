// The host's classes of objects: the name of each kind in project files, the
// parameters that an object of each kind carries with their descriptions and
// defaults, and the class texts "title" and "format".
#pragma once

#include "host/HostObject.h"

#include <QByteArray>
#include <QList>

// Highest values of the unit's limits, and so the sizes of the
// enumerations of "domain" and "isinDataSet".
constexpr int hostMaxICC = 16;
constexpr int hostMaxDS = 32;

// "source", "unit", "f_pass", ...; empty for an unknown kind.
QByteArray KindName(int kind);
// The kind of a name or of a decimal number; -1 when unknown.
int KindFromName(const QByteArray& name);
bool IsKnownKind(int kind);

// The parameters of a new object of the kind, in the order the host lists
// them.
QList<HostParam> DefaultParams(TCfgObjectType kind);

// "title" (comma list of parameter names) or "format" (printf template) of
// the kind's class; null for other keys and unknown kinds.
const char* ClassText(int kind, const char* key);
