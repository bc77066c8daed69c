// Files of a test in a temporary folder.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <sys/stat.h>

// The inode of path, 0 when there is no such file: a new inode tells a
// file written anew from one rewritten in place.
inline ino_t Inode(const QString& path) {
    struct stat st;
    return stat(path.toLocal8Bit().constData(), &st) == 0 ? st.st_ino : 0;
}

inline QByteArray ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QByteArray WriteFile(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
    return bytes;
}
