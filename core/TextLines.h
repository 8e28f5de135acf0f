#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

// The program's text files are 8-bit lines ending in carriage return and
// line feed. A reader also takes a lone carriage return or line feed as the
// end of a line; the last line needs no end.
QList<QByteArray> splitLines(const QByteArray& contents);
// Each line followed by carriage return and line feed.
QByteArray joinLines(const QList<QByteArray>& lines);

// Columns of a fixed-column line, counted from 1: as many of `count` as the
// line has from column `first` on, none when it ends before.
QByteArray columns(const QByteArray& line, int first, int count);
// The same columns seen in place, for a reader that only looks at them.
QByteArrayView columnsView(QByteArrayView line, int first, int count);
// The text with the blanks at its end removed.
QByteArray trimRight(const QByteArray& text);
// The text right-padded with blanks to at least `width` characters.
QByteArray padRight(const QByteArray& text, int width);
