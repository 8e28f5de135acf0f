#pragma once

#include <QByteArray>
#include <QRandomGenerator>
#include <QString>

// A file as damage leaves it, made from a sound one: "empty", "binary" (4 KB
// of noise, the same at every run), "truncated" (cut in the middle of a
// line), "10 MB" (the file over and over) or "UTF-16" (as an editor that
// changes the encoding saves it).
inline QByteArray archivoDanado(const QByteArray& sano, const QString& dano)
{
    if (dano == QLatin1String("empty"))
        return {};
    if (dano == QLatin1String("binary")) {
        QRandomGenerator azar(13);
        QByteArray b(4096, '\0');
        for (char& c : b)
            c = static_cast<char>(azar.bounded(256));
        return b;
    }
    if (dano == QLatin1String("truncated"))
        return sano.left(sano.size() / 2 + 3);
    if (dano == QLatin1String("10 MB"))
        return sano.repeated(10 * 1024 * 1024 / sano.size() + 1);
    const QString texto = QString::fromLatin1(sano);
    return QByteArray("\xFF\xFE") +
           QByteArray(reinterpret_cast<const char*>(texto.utf16()), texto.size() * 2);
}
