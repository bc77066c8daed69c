// Compares two models domain by domain (the VCC, then each ICC): variables
// on one side only, variables whose type changed, data set members added
// or removed, transfer set attributes that differ.
#pragma once

#include <QStringList>

class ModelFile;

// One line per difference, in the order of domains and then of names, so
// that the lines themselves compare well: "- <object>: <what>" for what
// only before has, "+ <object>: <what>" for what only after has, and
// "~ <object>: <what> <before> -> <after>" for a change. Empty when the two
// agree.
QStringList DiffModels(const ModelFile& before, const ModelFile& after);
