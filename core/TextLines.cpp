#include "TextLines.h"

QList<QByteArray> splitLines(const QByteArray& contents)
{
    QList<QByteArray> lines;
    qsizetype start = 0;
    const qsizetype n = contents.size();
    for (qsizetype i = 0; i < n; ++i) {
        const char c = contents.at(i);
        if (c != '\r' && c != '\n')
            continue;
        lines.append(contents.mid(start, i - start));
        if (c == '\r' && i + 1 < n && contents.at(i + 1) == '\n')
            ++i;
        start = i + 1;
    }
    if (start < n)
        lines.append(contents.mid(start));
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
    if (first < 1 || count <= 0 || first > line.size())
        return {};
    return line.mid(first - 1, count);
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
