#include "support/JoinedText.h"

JoinedText::JoinedText(bool joined) : joined(joined) {}

JoinedText& JoinedText::operator+=(const QString& piece) {
    if (!joined) {
        text += piece;
        return *this;
    }
    // Line ends are ASCII and never part of a longer UTF-8 sequence, so the
    // piece can be encoded first and cut after.
    const QByteArray utf8 = piece.toUtf8();
    const char* data = utf8.constData();
    const int size = utf8.size();
    int from = 0;
    for (int i = 0; i <= size; ++i) {
        const bool end = i == size;
        if (!end && data[i] != '\r' && data[i] != '\n' && data[i] != '|')
            continue;
        if (i > from) {
            if (cut)
                bytes += '\n';
            bytes.append(data + from, i - from);
            cut = false;
        }
        if (!end)
            cut = cut || !bytes.isEmpty();
        from = i + 1;
    }
    return *this;
}

const QString& JoinedText::Text() const {
    return text;
}

QByteArray& JoinedText::Utf8() {
    return bytes;
}
