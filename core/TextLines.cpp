#include "TextLines.h"

#include <algorithm>

QList<QByteArray> splitLines(const QByteArray& contents)
{
    // The ends are found by Qt's own search, a line at a time, rather than
    // by looking at every byte here: readers meet files of any size.
    QList<QByteArray> lines;
    const qsizetype n = contents.size();
    qsizetype cr = contents.indexOf('\r');
    qsizetype lf = contents.indexOf('\n');
    qsizetype start = 0;
    while (start < n) {
        if (cr >= 0 && cr < start)
            cr = contents.indexOf('\r', start);
        if (lf >= 0 && lf < start)
            lf = contents.indexOf('\n', start);
        const qsizetype end = cr < 0 ? lf : lf < 0 ? cr : std::min(cr, lf);
        if (end < 0) {
            lines.append(contents.mid(start));
            break;
        }
        lines.append(contents.mid(start, end - start));
        start = end + 1;
        if (end == cr && start == lf)
            ++start; // carriage return and line feed end one line
    }
    return lines;
}

QByteArray joinLines(const QList<QByteArray>& lines)
{
    QByteArray out;
    for (const QByteArray& line : lines) {
        out += line;
        out += "\r\n";
    }
    return out;
}

QByteArray columns(const QByteArray& line, int first, int count)
{
    return columnsView(line, first, count).toByteArray();
}

QByteArrayView columnsView(QByteArrayView line, int first, int count)
{
    if (first < 1 || count <= 0 || first > line.size())
        return {};
    return line.sliced(first - 1, std::min<qsizetype>(count, line.size() - (first - 1)));
}

QByteArray trimRight(const QByteArray& text)
{
    qsizetype n = text.size();
    while (n > 0 && text.at(n - 1) == ' ')
        --n;
    return text.left(n);
}

QByteArray padRight(const QByteArray& text, int width)
{
    return text.size() >= width ? text : text + QByteArray(width - text.size(), ' ');
}
