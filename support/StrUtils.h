// Conversions between numbers, booleans, std::string, C strings and QString.
#pragma once

#include <QString>
#include <QStringList>
#include <string>

// The C string decoded as UTF-8.
QString GetRusQStr(const char* text);

// Model names are held in the local 8-bit encoding: the XML reader converts
// every attribute into it, and the name fields of the dialogs are read
// through it. This pair is the one way between such a name and the
// interface's QString; on a UTF-8 locale both are plain UTF-8. The model
// tree alone shows its names as UTF-8 (GetRusQStr), and its rows are
// matched that way.
QString LocalToQ(const std::string& text);
std::string QToLocal(const QString& text);
// The QString in the local 8-bit encoding copied into the array buffer, cut
// to fit and always ended by a zero; returns buffer.
template <size_t N> char* QStr2Char(const QString& text, char (&buffer)[N]) {
    qstrncpy(buffer, text.toLocal8Bit().constData(), N);
    return buffer;
}

// strtol base 10: leading blanks and a sign taken, stops at the first other
// character; 0 for an empty text.
int Str2Int(const std::string& text);
// "%d".
std::string Int2Str(int value);
// True for "true", "y" or "1" in any case; false for everything else.
bool Str2Bool(const std::string& text);
// "true" or "false".
std::string Bool2Str(bool value);

// The lines of text, each CR, LF or "|" ending one; empty lines are left
// out. The same as a split at the character class "[\r\n|]".
QStringList SplitLines(const QString& text);

// Lower/upper case per byte IN PLACE on the argument; a copy is returned too.
std::string Str2Lower(std::string& text);
std::string Str2Upper(std::string& text);
// The same on a copy: the caller's string is left alone.
std::string Str2LowerP(std::string text);
std::string Str2UpperP(std::string text);

// The tail of text from position; empty for -1 or a position at or past the
// end.
std::string MyRestStr(const std::string& text, int position);
// text without blanks (spaces and tabs) at both ends.
std::string TrimStr(const std::string& text);

// Digits of value in radix (2..36) into buffer, lower-case letters above 9;
// itoa writes a sign for negative values in radix 10 only.
void itoa(int value, char* buffer, int radix);
void xtoa(unsigned long value, char* buffer, int radix, bool negative);
