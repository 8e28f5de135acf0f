#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <initializer_list>

// Bytes by their codes, as the code pages and the scale's font number them.
inline QByteArray bytes(std::initializer_list<int> codigos)
{
    QByteArray b;
    for (int c : codigos)
        b.append(static_cast<char>(c));
    return b;
}

// A file that comes with the program, as the sources hold it.
inline QByteArray fuente(const QString& nombre)
{
    QFile f(QStringLiteral(KORVO_SOURCE_DIR "/res/") + nombre);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
