#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

struct ModBase;

// The few file-system operations the program uses, with the failures a
// classic runtime reports for them.
namespace fs {

// A file of that path exists (a folder does not count).
bool fileExists(const QString& path);
bool dirExists(const QString& path);
// Fails with "Path/File access error" when the folder exists or cannot be made.
void makeDir(const QString& path);
// A rename. "File not found" without the source, "File already exists" when
// the target is there, "Path/File access error" otherwise.
void moveFile(const QString& from, const QString& to);
// "File not found" without the file, "Permission denied" when it stays.
void deleteFile(const QString& path);
// The last-modified time in the short date and time form of the system locale.
QString lastModifiedText(const QString& path);

// The whole file; "File not found" or "Path/File access error" when it cannot be read.
QByteArray readAll(const QString& path);
// The file's first `maximo` lines, as splitLines divides them, read a piece
// at a time: what lies past them is never read. The same failures as readAll.
QList<QByteArray> readLines(const QString& path, qsizetype maximo);
// Replaces the file with the bytes, whole or not at all: on any failure the
// earlier file stays as it was and "Path/File access error" is raised.
void writeAll(const QString& path, const QByteArray& bytes);
// Makes the disk behind writeAll take only so many more bytes, as a full one
// would (-1: no limit). For the tests of a full disk where none can be mounted.
void limitarEspacioLibre(qint64 bytes);

// A path below the program's folder: inProgramDir(mb, "cfg.ini").
QString inProgramDir(const ModBase& mb, const QString& relative);
// A file of the program's data (lang/lang.db, res/, the character tables):
// the program folder's own when it has one, so that a file put beside the
// program counts, else the installation's.
QString inDataDir(const ModBase& mb, const QString& relative);

} // namespace fs
