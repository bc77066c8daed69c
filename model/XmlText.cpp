#include "model/XmlText.h"

#include <QFile>
#include <algorithm>
#include <cctype>
#include <cstring>

namespace {

// What TinyXML takes for the start of an element name after "<".
bool NameStart(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 127 || std::isalpha(byte) || c == '_';
}

// The end of the first `end` at or after p, past it; the end of the text
// when there is none.
const char* Past(const char* p, const char* end) {
    const char* found = std::strstr(p, end);
    return found ? found + std::strlen(end) : p + std::strlen(p);
}

// The deepest nesting of elements in a zero-terminated text, read by the
// lexical rules TinyXML follows: comments, CDATA, declarations and unknown
// tags hold no elements, a ">" in a quoted attribute value ends no tag, and
// "/>" closes the element it ends. A text TinyXML rejects may be counted
// deeper than it is read, never shallower.
int NestingDepth(const char* p) {
    int depth = 0, deepest = 0;
    while ((p = std::strchr(p, '<'))) {
        if (!std::strncmp(p, "<!--", 4)) {
            p = Past(p + 4, "-->");
        } else if (!std::strncmp(p, "<![CDATA[", 9)) {
            p = Past(p + 9, "]]>");
        } else if (p[1] == '/') {
            depth = depth > 0 ? depth - 1 : 0;
            p = Past(p + 2, ">");
        } else if (!NameStart(p[1])) {
            p = Past(p + 1, ">");
        } else {
            // A start tag: attribute values are quoted after "=".
            char quote = 0;
            bool afterEquals = false;
            for (++p; *p && (quote || *p != '>'); ++p) {
                if (quote) {
                    quote = *p == quote ? 0 : quote;
                } else if ((*p == '"' || *p == '\'') && afterEquals) {
                    quote = *p;
                } else if (!std::isspace(static_cast<unsigned char>(*p))) {
                    afterEquals = *p == '=';
                }
            }
            if (!*p)
                break;
            if (p[-1] != '/')
                deepest = std::max(deepest, ++depth);
            ++p;
        }
    }
    return deepest;
}

} // namespace

void ParseXmlText(TiXmlDocument& document, const char* text, TiXmlEncoding encoding) {
    QByteArray safe(text ? text : "", text ? int(std::strlen(text)) : 0);
    safe.append(4, '\0');
    // TinyXML parses and frees elements by recursion: a text nested past
    // what a model holds is refused as a broken text before it can run out
    // of stack.
    if (NestingDepth(safe.constData()) > kMaxXmlDepth) {
        document.SetError(TiXmlBase::TIXML_ERROR_PARSING_ELEMENT, nullptr, nullptr, encoding);
        return;
    }
    document.Parse(safe.constData(), nullptr, encoding);
}

bool LoadXmlFile(TiXmlDocument& document, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray bytes = file.readAll();
    if (bytes.isEmpty())
        return false;
    // CR LF and a lone CR both become LF, as TinyXML's own file loader does.
    bytes.replace("\r\n", "\n");
    bytes.replace('\r', '\n');
    document.ClearError();
    ParseXmlText(document, bytes.constData(), TIXML_DEFAULT_ENCODING);
    return !document.Error();
}
