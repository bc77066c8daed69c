// The host's small text conventions: display titles of objects built from
// their class's "title" and "format" texts, a diagnostic dump of an object's
// parameters, the "EnumQRT" enumeration text ("key=value;key=value") and the
// "low=high" range text.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

// Display name of a host object: the parameters named by the class's
// "title" list put into its "format"; a tag gets "_" and its number.
// "NULLPTR" when the class has no format, "Unknow" when no parameter of the
// list can be read.
QString GetTitle(void* ob);
// Formats the template with the first n texts as its "%s" arguments, UTF-8;
// "Unknow" unless n is 1 to 5.
QString GetFormatTitle(const char* format, const QString* args, int n);
// Count and values of every parameter of the object, one per line; empty
// for a null object or with no host table.
QString GetObjInfo(void* ob);

// Appends the items of an enumeration text: the items before each ";" as
// they stand, then the rest, cut to 200 characters and trimmed, unless it is
// empty.
void EnumQRT2StringList(const QString& text, QStringList& out);
// Puts the "key=value" items of an enumeration text into the map, a later
// key over an earlier one; items without a key are skipped.
void EnumQRT2Map(const QString& text, QMap<QString, QString>* map);
// Splits an item at its first "=": both sides trimmed, the value cut to 200
// characters. False without "=" or with an empty key.
bool FindKeyAndValue(const QString& item, QString& key, QString& value);

// Reads a "low=high" range. The upper bound is converted from the text that
// starts at the "=", which never converts: `high` is always 0, and callers
// must not rely on it. False without "=".
bool getIRange(const char* text, int& low, int& high);
bool getDRange(const char* text, double& low, double& high);
