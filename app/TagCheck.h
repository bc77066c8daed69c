// What iccp-host --check prints: one line per row of the form's list of
// what does not fit, with the unit and the reason, told from the host's own
// knowledge of the unit's tags.
#pragma once

#include <QStringList>

class HostObject;

// "<unit caption>: <row>: <reason>". A row that is the title of a tag of
// the unit stands for the tag, whose key names nothing; any other row is a
// variable that no tag names.
QStringList DescribeCheckRows(HostObject* unit, const QStringList& rows);
