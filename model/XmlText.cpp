#include "model/XmlText.h"

#include <QFile>
#include <cstring>

void ParseXmlText(TiXmlDocument& document, const char* text, TiXmlEncoding encoding) {
    QByteArray safe(text ? text : "", text ? int(std::strlen(text)) : 0);
    safe.append(4, '\0');
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
