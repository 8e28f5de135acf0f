#include "TextLines.h"

#include <algorithm>

QList<QByteArray> splitLines(const QByteArray& contents)
{
    DivisorLineas divisor;
    divisor.alimentar(contents);
    divisor.terminar();
    return std::move(divisor).lineas();
}

void DivisorLineas::alimentar(QByteArrayView trozo)
{
    // The ends are found by Qt's own search, and each found end is kept
    // until a line passes it, so that a file without one kind of end is
    // not searched through again for every line: readers meet files of any size.
    const qsizetype n = trozo.size();
    qsizetype start = 0;
    if (m_trasRetorno && n > 0) {
        m_trasRetorno = false;
        if (trozo.at(0) == '\n')
            start = 1; // carriage return and line feed end one line, across two pieces
    }
    qsizetype cr = trozo.indexOf('\r', start);
    qsizetype lf = trozo.indexOf('\n', start);
    while (start < n && !lleno()) {
        if (cr >= 0 && cr < start)
            cr = trozo.indexOf('\r', start);
        if (lf >= 0 && lf < start)
            lf = trozo.indexOf('\n', start);
        const qsizetype end = cr < 0 ? lf : lf < 0 ? cr : std::min(cr, lf);
        if (end < 0) {
            m_pendiente.append(trozo.sliced(start));
            return;
        }
        m_pendiente.append(trozo.sliced(start, end - start));
        m_lineas.append(std::move(m_pendiente));
        m_pendiente = QByteArray();
        start = end + 1;
        if (end == cr) {
            if (start == n)
                m_trasRetorno = true;
            else if (start == lf)
                ++start;
        }
    }
}

void DivisorLineas::terminar()
{
    if (!m_pendiente.isEmpty() && !lleno())
        m_lineas.append(std::move(m_pendiente));
    m_pendiente = QByteArray();
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
