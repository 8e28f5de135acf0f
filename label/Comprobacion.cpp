#include "Comprobacion.h"

#include "TextLines.h"

namespace {

class Comprobador {
public:
    Comprobador(int16_t modeloNuevo) : m_nuevo(modeloNuevo != 0) {}

    QList<Hallazgo> hallazgos;

    void nota(int linea, int columna, const QString& texto)
    {
        hallazgos.append({linea, columna, texto});
    }

    // A field row: "99", kind, number, width, name, code, two position
    // texts of 3, size, presence: 22 columns.
    void filaCampo(const QByteArray& fila, int linea, const QByteArray& tipoEsperado,
                   int numeroEsperado)
    {
        if (!fila.startsWith("99")) {
            nota(linea, 1,
                 QStringLiteral("a field row starts with \"99\", this one with \"%1\"")
                     .arg(QString::fromLatin1(fila.left(2))));
            return;
        }
        const QByteArrayView tipo = columnsView(fila, 3, 1);
        if (tipo != "V" && tipo != "T")
            nota(linea, 3,
                 QStringLiteral("kind \"%1\" is neither V nor T").arg(QString::fromLatin1(tipo)));
        else if (!tipoEsperado.isEmpty() && tipo != tipoEsperado)
            nota(linea, 3,
                 QStringLiteral("kind %1 in the block of the %2 labels")
                     .arg(QString::fromLatin1(tipo), QString::fromLatin1(tipoEsperado)));
        const QByteArrayView numero = columnsView(fila, 4, 1);
        const int minimo = m_nuevo ? 3 : 1;
        if (numero.size() != 1 || numero.at(0) < '0' + minimo || numero.at(0) > '5')
            nota(linea, 4,
                 QStringLiteral("label number \"%1\" does not exist in the %2 model (%3 to 5)")
                     .arg(QString::fromLatin1(numero), modelo())
                     .arg(minimo));
        else if (numeroEsperado && numero.at(0) - '0' != numeroEsperado)
            nota(linea, 4,
                 QStringLiteral("label number %1 in the block of label %2")
                     .arg(QString::fromLatin1(numero))
                     .arg(numeroEsperado));
        const QByteArrayView ancho = columnsView(fila, 5, 2);
        if (ancho != "45" && ancho != "60")
            nota(linea, 5,
                 QStringLiteral("width \"%1\" is neither 45 nor 60")
                     .arg(QString::fromLatin1(ancho)));
        if (fila.size() == 22)
            return;
        // A position text of 4 characters ("39.6") pushes everything after
        // it one column on.
        const int decimal = fila.indexOf('.', 14);
        const int coma = fila.indexOf(',', 14);
        const int marca = decimal >= 0 ? decimal : coma;
        if (fila.size() > 22 && marca >= 14 && marca <= 19)
            nota(linea, marca + 1 < 18 ? 15 : 18,
                 QStringLiteral("a position text of 4 characters shifts the row: the reader takes "
                                "the columns after it one too early"));
        else
            nota(linea, std::min<int>(fila.size() + 1, 23),
                 QStringLiteral("a field row has 22 columns, this one %1").arg(fila.size()));
    }

    void filaTextoFijo(const QByteArray& fila, int linea)
    {
        if (!fila.startsWith("900"))
            nota(linea, 1, QStringLiteral("the fixed text row starts with \"900\""));
        else if (columnsView(fila, 29, 1) != "0" && fila.size() >= 29)
            nota(linea, 29, QStringLiteral("the fixed text row has \"0\" in column 29"));
    }

    void filaTextoLibre(const QByteArray& fila, int linea)
    {
        if (!fila.startsWith("9:"))
            nota(linea, 1, QStringLiteral("a free text row starts with \"9:\""));
        if (fila.size() > 29 + (m_nuevo ? 0 : -1))
            nota(linea, 30,
                 QStringLiteral("a free text is read up to column %1; the rest is lost")
                     .arg(m_nuevo ? 29 : 28));
    }

    QString modelo() const { return m_nuevo ? QStringLiteral("new") : QStringLiteral("old"); }
    bool nuevo() const { return m_nuevo; }

private:
    bool m_nuevo;
};

} // namespace

QList<Hallazgo> comprobarArchivo(const QList<QByteArray>& lines, bool conjunto, int16_t modeloNuevo)
{
    Comprobador c(modeloNuevo);
    const bool nuevo = c.nuevo();
    const auto linea = [&](int indice) {
        return indice < lines.size() ? lines.at(indice) : QByteArray();
    };

    if (!conjunto) {
        const int n = nuevo ? 15 : 5;
        const int m = nuevo ? 36 : 25;
        if (lines.size() != n + m + 1)
            c.nota(0, 0,
                   QStringLiteral("a label file of the %1 model has %2 lines, this one %3")
                       .arg(c.modelo())
                       .arg(n + m + 1)
                       .arg(lines.size()));
        for (int i = 0; i < std::min<int>(n, lines.size()); ++i)
            c.filaTextoLibre(lines.at(i), i + 1);
        for (int i = n; i < std::min<int>(n + m, lines.size()); ++i)
            c.filaCampo(lines.at(i), i + 1, {}, 0);
        if (lines.size() > n + m)
            c.filaTextoFijo(lines.at(n + m), n + m + 1);
        return c.hallazgos;
    }

    const int total = nuevo ? 240 : 278;
    if (lines.size() != total)
        c.nota(0, 0,
               QStringLiteral("a set file of the %1 model has %2 lines, this one %3")
                   .arg(c.modelo())
                   .arg(total)
                   .arg(lines.size()));
    if (linea(0) != "TXL")
        c.nota(1, 1, QStringLiteral("a set file starts with \"TXL\""));
    const int textos = nuevo ? 15 : 5;
    for (int i = 1; i <= textos; ++i)
        if (i < lines.size())
            c.filaTextoLibre(lines.at(i), i + 1);
    const int porTipo = nuevo ? 3 : 5;
    const int campos = nuevo ? 36 : 26;
    for (int k = 0; k < 2 * porTipo; ++k) {
        const QByteArray tipo = k < porTipo ? "V" : "T";
        const int numero = (nuevo ? 3 : 1) + k % porTipo;
        const int b = k * (campos + 1) + (nuevo ? 16 : 6);
        int desde = b + 1;
        // Saving any label writes 15 free text rows, in the old model too,
        // where rows 6 to 15 are the block of packing label 1: that label
        // then unfolds its header from a free text row.
        if (!nuevo && k == 0 && linea(b + 1).startsWith("9:")) {
            const QByteArray cabecera = linea(b + 1);
            c.nota(
                b + 2, 3,
                QStringLiteral("label V1 unfolds with kind \"%1\" and width \"%2\": lines %3 to 16 "
                               "hold the free text rows a save of another label wrote over "
                               "its block")
                    .arg(QString::fromLatin1(columns(cabecera, 3, 1)),
                         QString::fromLatin1(columns(cabecera, 5, 2)))
                    .arg(b + 1));
            desde = 16;
        }
        for (int j = desde; j <= b + campos && j < lines.size(); ++j)
            c.filaCampo(lines.at(j), j + 1, tipo, numero);
    }
    if (total - 1 < lines.size())
        c.filaTextoFijo(lines.at(total - 1), total);
    return c.hallazgos;
}
