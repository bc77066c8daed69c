// Parsing of model texts with TinyXML, safe at the end of the text.
//
// TinyXML's UTF-8 reader steps over a whole multibyte character at once, so a
// lead byte just before the end of the text carries it past a single
// terminating zero into whatever memory follows. Every model text is
// therefore cut at its first zero byte and followed by zero bytes enough for
// the longest step before it is parsed.
#pragma once

#include <QByteArray>
#include <QString>
#include <tinyxml.h>

// The deepest nesting of elements that a model text may have; a model
// needs fewer than twenty levels.
constexpr int kMaxXmlDepth = 256;

// Parses text up to its first zero byte. A text nested deeper than
// kMaxXmlDepth is not parsed and leaves `document` in error.
void ParseXmlText(TiXmlDocument& document, const char* text, TiXmlEncoding encoding);
// Reads a file and parses it as TiXmlDocument::LoadFile does (line ends
// folded to LF, the default encoding). False when the file can't be read,
// is empty or doesn't parse.
bool LoadXmlFile(TiXmlDocument& document, const QString& path);
