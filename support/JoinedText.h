// A text written in pieces: kept whole as a QString, or with its lines joined
// by LF and encoded as UTF-8 on the way in, so that a large text is never
// held as a QString.
#pragma once

#include <QByteArray>
#include <QString>

class JoinedText {
public:
    // joined: Utf8() gets the whole text's lines as SplitLines cuts them,
    // joined by LF; otherwise the pieces go to Text() unchanged.
    explicit JoinedText(bool joined = false);
    JoinedText& operator+=(const QString& piece);
    const QString& Text() const;
    QByteArray& Utf8();

private:
    bool joined;
    // A line ended since the last character written.
    bool cut = false;
    QString text;
    QByteArray bytes;
};
