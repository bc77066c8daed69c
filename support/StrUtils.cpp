#include "support/StrUtils.h"

#include <QByteArray>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>

QString GetRusQStr(const char* text) {
    return QString::fromUtf8(text);
}

QString LocalToQ(const std::string& text) {
    return QString::fromLocal8Bit(text.data(), int(text.size()));
}

std::string QToLocal(const QString& text) {
    return text.toLocal8Bit().toStdString();
}

int Str2Int(const std::string& text) {
    return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}

std::string Int2Str(int value) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%d", value);
    return buffer;
}

bool Str2Bool(const std::string& text) {
    const std::string lower = Str2LowerP(text);
    return lower == "true" || lower == "y" || lower == "1";
}

std::string Bool2Str(bool value) {
    return value ? "true" : "false";
}

std::string Str2Lower(std::string& text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string Str2Upper(std::string& text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

std::string Str2LowerP(std::string text) {
    return Str2Lower(text);
}

std::string Str2UpperP(std::string text) {
    return Str2Upper(text);
}

std::string MyRestStr(const std::string& text, int position) {
    if (position < 0 || static_cast<size_t>(position) >= text.size())
        return std::string();
    return text.substr(position);
}

std::string TrimStr(const std::string& text) {
    const char* blanks = " \t";
    size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return std::string();
    size_t last = text.find_last_not_of(blanks);
    return text.substr(first, last - first + 1);
}

void xtoa(unsigned long value, char* buffer, int radix, bool negative) {
    if (!buffer)
        return;
    if (radix < 2 || radix > 36) {
        *buffer = '\0';
        return;
    }
    char* p = buffer;
    if (negative) {
        *p++ = '-';
        value = 0UL - value;
    }
    char* first = p;
    do {
        unsigned digit = static_cast<unsigned>(value % radix);
        value /= radix;
        *p++ = static_cast<char>(digit < 10 ? '0' + digit : 'a' + digit - 10);
    } while (value > 0);
    *p-- = '\0';
    // The digits came out lowest first.
    while (first < p) {
        char t = *p;
        *p-- = *first;
        *first++ = t;
    }
}

void itoa(int value, char* buffer, int radix) {
    if (radix == 10 && value < 0)
        xtoa(static_cast<unsigned long>(static_cast<long>(value)), buffer, radix, true);
    else
        xtoa(static_cast<unsigned long>(static_cast<unsigned int>(value)), buffer, radix, false);
}

QStringList SplitLines(const QString& text) {
    QStringList lines;
    const QChar* data = text.constData();
    const int size = text.size();
    int from = 0;
    for (int i = 0; i <= size; ++i) {
        const ushort c = i < size ? data[i].unicode() : '\n';
        if (c != '\r' && c != '\n' && c != '|')
            continue;
        if (i > from)
            lines.append(QString(data + from, i - from));
        from = i + 1;
    }
    return lines;
}
