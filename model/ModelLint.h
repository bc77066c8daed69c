// Checks a model, as the form writes it, against what a TASE.2 peer
// accepts: MMS identifiers, names repeated within a domain, names that the
// standard reserves, data sets too large for one PDU or reported by no
// transfer set, and transfer sets whose times disagree.
#pragma once

#include <QStringList>

class DcICCPBase;
class ModelFile;

// The PDU budget of a data set in bytes, unless the caller gives another.
constexpr int kDefaultPduBytes = 32000;

struct LintReport {
    // "<severity>: <object>: <rule>: <message>", the severity "error" or
    // "warning", the object by its full name.
    QStringList lines;
    int errors = 0;
};

LintReport LintModel(const ModelFile& model, int pduBytes = kDefaultPduBytes);

// Bytes of a variable in a report: its type's byte count and two bytes of
// tag and length for each value and each structure.
int EncodedSize(DcICCPBase* object);
