#include "plugin/HostTitles.h"

#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"

#include <cctype>
#include <cstdio>
#include <cstring>

namespace {

// The argument array of a title.
constexpr int titleArgCount = 5;
// Longest value of an enumeration item, and of its last item.
constexpr int enumItemMax = 200;

// One "%s" conversion, flags, width and precision included, applied to one
// text.
QByteArray FormatOne(const QByteArray& conversion, const QByteArray& arg) {
    const int size = snprintf(nullptr, 0, conversion.constData(), arg.constData());
    if (size <= 0)
        return QByteArray();
    QByteArray piece(size, '\0');
    snprintf(piece.data(), size_t(size) + 1, conversion.constData(), arg.constData());
    return piece;
}

// printf over texts: the "%s" conversions take the arguments in turn and
// "%%" gives "%". Other conversions stay as written, and a "%s" beyond the
// arguments takes an empty text: a class template of the host can't make
// the formatting read past what it was given.
QByteArray FormatTexts(const char* format, const QByteArray* args, int n) {
    QByteArray out;
    int next = 0;
    const char* p = format;
    while (*p) {
        if (*p != '%') {
            out += *p++;
            continue;
        }
        const char* start = p++;
        if (*p == '%') {
            out += '%';
            ++p;
            continue;
        }
        while (*p && strchr("-+ #0", *p))
            ++p;
        while (isdigit(static_cast<unsigned char>(*p)))
            ++p;
        if (*p == '.') {
            ++p;
            while (isdigit(static_cast<unsigned char>(*p)))
                ++p;
        }
        if (*p != 's') {
            out.append(start, int(p - start));
            continue;
        }
        ++p;
        out += FormatOne(QByteArray(start, int(p - start)), next < n ? args[next] : QByteArray());
        ++next;
    }
    return out;
}

// Splits "low=high" at the "="; the upper text keeps the "=".
bool SplitRange(const char* text, QString& lowText, QString& highText) {
    if (!text)
        return false;
    const QString range = QString::fromUtf8(text);
    const int eq = range.indexOf('=');
    if (eq < 0)
        return false;
    lowText = range.left(eq);
    highText = range.mid(eq);
    return true;
}

} // namespace

QString GetTitle(void* ob) {
    const QByteArray title = cfgObClassText(ob, "title");
    const char* formatText = cfgObClassText(ob, "format");
    if (!formatText)
        return "NULLPTR";
    const QByteArray format = formatText;

    // Values beyond the array are counted but not kept, so that such a list
    // ends in "Unknow" like any count GetFormatTitle refuses.
    QString args[titleArgCount];
    int n = 0;
    for (const QByteArray& item : title.split(',')) {
        const QByteArray name = item.trimmed();
        if (name.isEmpty())
            continue;
        cfgParamValue value = {};
        if (!cfgPropGet(ob, name.constData(), &value))
            continue;
        if (n < titleArgCount)
            args[n] = cfgParamValueToQString(value);
        ++n;
    }

    cfgParamValue number = {};
    const bool hasNumber = cfgPropGet(ob, "number", &number) && number.type == cptInt;
    if (n == 0)
        return "Unknow";
    QString text = GetFormatTitle(format.constData(), args, n);
    if (cfgObType(ob) < cotUnit)
        text += "_" + QString::number(hasNumber ? number.intValue : 0);
    return text;
}

QString GetFormatTitle(const char* format, const QString* args, int n) {
    if (n < 1 || n > titleArgCount || !format || !args)
        return "Unknow";
    QByteArray texts[titleArgCount];
    for (int i = 0; i < n; ++i)
        texts[i] = args[i].toUtf8();
    return QString::fromUtf8(FormatTexts(format, texts, n));
}

QString GetObjInfo(void* ob) {
    if (!ob || !pGlobcfgInterface)
        return QString();
    const int count = cfgPropCount(ob);
    QString info = "    К-во свойств =" + QString::number(count) + "\r\n";
    for (int i = 0; i < count; ++i) {
        const QString name = QString::fromUtf8(cfgPropName(ob, i));
        cfgParamValue value = {};
        const QString text = cfgPropGetAt(ob, i, &value) ? GetParamValAsStr(value) : "Unk";
        info += "    " + name + " = " + text + "\r\n";
    }
    return info;
}

void EnumQRT2StringList(const QString& text, QStringList& out) {
    int pos = 0;
    for (int semi; (semi = text.indexOf(';', pos)) >= 0; pos = semi + 1)
        out.append(text.mid(pos, semi - pos));
    const QString rest = text.mid(pos, enumItemMax).trimmed();
    if (!rest.isEmpty())
        out.append(rest);
}

void EnumQRT2Map(const QString& text, QMap<QString, QString>* map) {
    if (!map)
        return;
    QStringList items;
    EnumQRT2StringList(text, items);
    QString key, value;
    for (const QString& item : items)
        if (FindKeyAndValue(item, key, value))
            map->insert(key, value);
}

bool FindKeyAndValue(const QString& item, QString& key, QString& value) {
    const int eq = item.indexOf('=');
    if (eq < 0)
        return false;
    key = item.left(eq).trimmed();
    value = item.mid(eq + 1).trimmed().left(enumItemMax);
    return !key.isEmpty();
}

bool getIRange(const char* text, int& low, int& high) {
    QString lowText, highText;
    if (!SplitRange(text, lowText, highText))
        return false;
    low = lowText.toInt();
    high = highText.toInt();
    return true;
}

bool getDRange(const char* text, double& low, double& high) {
    QString lowText, highText;
    if (!SplitRange(text, lowText, highText))
        return false;
    low = lowText.toDouble();
    high = highText.toDouble();
    return true;
}
