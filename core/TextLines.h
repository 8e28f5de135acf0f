#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

// The program's text files are 8-bit lines ending in carriage return and
// line feed. A reader also takes a lone carriage return or line feed as the
// end of a line; the last line needs no end.
QList<QByteArray> splitLines(const QByteArray& contents);

// The same division fed a piece at a time, for a reader that stops after so
// many lines and so never holds more of a file than it uses.
class DivisorLineas {
public:
    explicit DivisorLineas(qsizetype maximo = -1) : m_maximo(maximo) {}
    // Adds the lines the piece completes, up to the maximum.
    void alimentar(QByteArrayView trozo);
    // Adds the last line when it had no end.
    void terminar();
    bool lleno() const { return m_maximo >= 0 && m_lineas.size() >= m_maximo; }
    QList<QByteArray> lineas() && { return std::move(m_lineas); }

private:
    qsizetype m_maximo;
    QList<QByteArray> m_lineas;
    QByteArray m_pendiente;     // the start of a line whose end has not come
    bool m_trasRetorno = false; // the last piece ended in a carriage return
};
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
