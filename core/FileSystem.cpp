#include "FileSystem.h"

#include "TextLines.h"

#include "ModBase.h"
#include "RuntimeError.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>

namespace fs {

bool fileExists(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

bool dirExists(const QString& path)
{
    return QFileInfo(path).isDir();
}

void makeDir(const QString& path)
{
    if (QFileInfo::exists(path) || !QDir().mkdir(path))
        throw RuntimeError::pathFileAccess();
}

void moveFile(const QString& from, const QString& to)
{
    if (!QFileInfo::exists(from))
        throw RuntimeError::fileNotFound();
    if (QFileInfo::exists(to))
        throw RuntimeError::fileAlreadyExists();
    if (!QDir().rename(from, to))
        throw RuntimeError::pathFileAccess();
}

void deleteFile(const QString& path)
{
    if (!fileExists(path))
        throw RuntimeError::fileNotFound();
    if (!QFile::remove(path))
        throw RuntimeError::permissionDenied();
}

QString lastModifiedText(const QString& path)
{
    if (!QFileInfo::exists(path))
        throw RuntimeError::fileNotFound();
    return QLocale::system().toString(QFileInfo(path).lastModified(), QLocale::ShortFormat);
}

namespace {
// Opened for reading, or the failure a classic runtime reports.
void abrirParaLeer(QFile& file)
{
    if (!file.exists())
        throw RuntimeError::fileNotFound();
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError::pathFileAccess();
}
} // namespace

QByteArray readAll(const QString& path)
{
    QFile file(path);
    abrirParaLeer(file);
    return file.readAll();
}

QList<QByteArray> readLines(const QString& path, qsizetype maximo)
{
    QFile file(path);
    abrirParaLeer(file);
    DivisorLineas divisor(maximo);
    QByteArray trozo(64 * 1024, Qt::Uninitialized);
    while (!divisor.lleno()) {
        const qint64 n = file.read(trozo.data(), trozo.size());
        if (n < 0)
            throw RuntimeError::pathFileAccess();
        if (n == 0)
            break;
        divisor.alimentar(QByteArrayView(trozo.constData(), n));
    }
    divisor.terminar();
    return std::move(divisor).lineas();
}

namespace {
qint64 g_espacioLibre = -1; // bytes the disk still takes; -1 = as many as it has
}

void writeAll(const QString& path, const QByteArray& bytes)
{
    // Written aside and renamed over the earlier file in one step, so that a
    // failure part way (a full disk, a removed stick, a killed process)
    // leaves the earlier file whole. Unbuffered, so that every write reports
    // its own failure: a buffered one may only fail at the flush inside the
    // commit, where Qt loses the error and the rename still happens.
    QSaveFile file(path);
    bool ok = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    if (ok) {
        QByteArray resto = bytes;
        if (g_espacioLibre >= 0 && resto.size() > g_espacioLibre) {
            resto.truncate(g_espacioLibre);
            ok = false;
        }
        ok = file.write(resto) == resto.size() && ok;
        if (g_espacioLibre >= 0)
            g_espacioLibre -= resto.size();
        ok = ok && file.flush() && file.error() == QFileDevice::NoError;
    }
    // Left uncommitted, the aside copy goes with the object.
    if (!ok || !file.commit())
        throw RuntimeError::pathFileAccess();
}

void limitarEspacioLibre(qint64 bytes)
{
    g_espacioLibre = bytes;
}

QString inProgramDir(const ModBase& mb, const QString& relative)
{
    return QDir(mb.programDir).filePath(relative);
}

QString inDataDir(const ModBase& mb, const QString& relative)
{
    const QString propia = inProgramDir(mb, relative);
    if (mb.dataDir.isEmpty() || QFileInfo::exists(propia))
        return propia;
    return QDir(mb.dataDir).filePath(relative);
}

} // namespace fs
