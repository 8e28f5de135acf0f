#pragma once

#include <QByteArray>
#include <QList>

// The program's text files are 8-bit lines ending in carriage return and
// line feed. A reader also takes a lone carriage return or line feed as the
// end of a line; the last line needs no end.
QList<QByteArray> splitLines(const QByteArray& contents);
// Each line followed by carriage return and line feed.
QByteArray joinLines(const QList<QByteArray>& lines);
