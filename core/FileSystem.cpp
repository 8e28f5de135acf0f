#include "FileSystem.h"

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

QByteArray readAll(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        throw RuntimeError::fileNotFound();
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError::pathFileAccess();
    return file.readAll();
}

void writeAll(const QString& path, const QByteArray& bytes)
{
    // Written aside and renamed into place, so a failure never leaves half a
    // file; where the folder forbids that, the file is written in place.
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw RuntimeError::pathFileAccess();
}

QString inProgramDir(const ModBase& mb, const QString& relative)
{
    return QDir(mb.programDir).filePath(relative);
}

} // namespace fs
