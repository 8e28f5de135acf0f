#include "AdaptaCaracteres.h"

#include "FileSystem.h"
#include "ModBase.h"
#include "RuntimeError.h"
#include "TextLines.h"

#include <cmath>
#include <cstdlib>
#include <string>

namespace {

RuntimeError desbordamiento()
{
    return {6, QStringLiteral("Overflow")};
}

RuntimeError llamadaNoValida()
{
    return {5, QStringLiteral("Invalid procedure call or argument")};
}

RuntimeError finDeArchivo()
{
    return {62, QStringLiteral("Input past end of file")};
}

struct Par {
    unsigned char codigo;
    char letra;
};

// The Greek capitals (windows-1253) that have a Latin twin in the font.
constexpr Par kGemelas[] = {
    {193, 'A'}, {194, 'B'}, {197, 'E'}, {198, 'Z'}, {199, 'H'}, {201, 'I'}, {202, 'K'},
    {204, 'M'}, {205, 'N'}, {207, 'O'}, {209, 'P'}, {212, 'T'}, {213, 'Y'}, {215, 'X'},
};

// The accented capitals of windows-1252 and their plain letter: Á É Í Ó Ú,
// À È Ì Ò Ù, Ä Ë Ï Ö Ü, and ¥. These are codes, whatever the language: in
// Greek and Polish the same codes are other letters, and the table file,
// which comes first, is where those are caught.
constexpr Par kAcentos[] = {
    {193, 'A'}, {201, 'E'}, {205, 'I'}, {211, 'O'}, {218, 'U'}, {192, 'A'}, {200, 'E'}, {204, 'I'},
    {210, 'O'}, {217, 'U'}, {196, 'A'}, {203, 'E'}, {207, 'I'}, {214, 'O'}, {220, 'U'}, {165, '@'},
};

template <std::size_t N> char buscar(const Par (&tabla)[N], unsigned char codigo)
{
    for (const Par& p : tabla) {
        if (p.codigo == codigo)
            return p.letra;
    }
    return 0;
}

// The five columns of a number, counted from 1; a line too short gives "".
QByteArrayView columnas(const QByteArray& linea, int desde, int ancho)
{
    const qsizetype inicio = desde - 1;
    if (inicio >= linea.size())
        return {};
    return QByteArrayView(linea).sliced(inicio, std::min<qsizetype>(ancho, linea.size() - inicio));
}

} // namespace

double redondeoPar(double v)
{
    return std::nearbyint(v); // the default rounding mode: to nearest, ties to even
}

int16_t enteroRedondeado(double v)
{
    const double r = redondeoPar(v);
    if (!(r >= -32768.0 && r <= 32767.0))
        throw desbordamiento();
    return static_cast<int16_t>(r);
}

double valorNumerico(QByteArrayView texto)
{
    qsizetype i = 0;
    const qsizetype n = texto.size();
    while (i < n && (texto[i] == ' ' || texto[i] == '\t'))
        ++i;
    std::string numero;
    if (i < n && (texto[i] == '+' || texto[i] == '-'))
        numero += texto[i++];
    bool cifras = false;
    while (i < n && texto[i] >= '0' && texto[i] <= '9') {
        numero += texto[i++];
        cifras = true;
    }
    if (i < n && texto[i] == '.') {
        numero += texto[i++];
        while (i < n && texto[i] >= '0' && texto[i] <= '9') {
            numero += texto[i++];
            cifras = true;
        }
    }
    if (!cifras)
        return 0;
    // An exponent counts only when a digit follows it.
    if (i + 1 < n && (texto[i] == 'e' || texto[i] == 'E' || texto[i] == 'd' || texto[i] == 'D')) {
        qsizetype j = i + 1;
        std::string exponente = "e";
        if (j < n && (texto[j] == '+' || texto[j] == '-'))
            exponente += texto[j++];
        bool cifrasExp = false;
        while (j < n && texto[j] >= '0' && texto[j] <= '9') {
            exponente += texto[j++];
            cifrasExp = true;
        }
        if (cifrasExp)
            numero += exponente;
    }
    return std::strtod(numero.c_str(), nullptr);
}

const char* archivoTablaCaracteres(int16_t idioma)
{
    return idioma == 7 ? "greek.cht" : idioma == 8 ? "polish.cht" : nullptr;
}

int lineasTablaCaracteres(int16_t idioma)
{
    return idioma == 7 ? 10 : idioma == 8 ? 13 : 0;
}

void leerTablaCaracteres(const QByteArray& contenido, int lineas, TablaCaracteres& tabla)
{
    const QList<QByteArray> texto = splitLines(contenido);
    for (int k = 0; k < lineas; ++k) {
        if (k >= texto.size())
            throw finDeArchivo();
        const QByteArray& linea = texto.at(k);
        tabla.CodigoOrigen(k) = enteroRedondeado(valorNumerico(columnas(linea, 14, 5)));
        tabla.CodigoDestino(k) = enteroRedondeado(valorNumerico(columnas(linea, 28, 5)));
    }
}

QByteArray AdapTaCharGR1(int16_t idioma, const QByteArray& texto)
{
    QByteArray resultado;
    if (idioma == 8)
        return texto;
    if (idioma != 7)
        return resultado; // never called for another language
    resultado.reserve(texto.size());
    for (const char c : texto) {
        const char latina = buscar(kGemelas, static_cast<unsigned char>(c));
        resultado.append(latina ? latina : c);
    }
    return resultado;
}

QByteArray AdapTaCharGR(const ModBase& mb, TablaCaracteres& tabla, const QByteArray& texto)
{
    const char* archivo = archivoTablaCaracteres(mb.Idioma);
    const QByteArray entrada = AdapTaCharGR1(mb.Idioma, texto);
    // Read anew on every call, so a table corrected beside the program takes
    // effect at once. Without the file the table keeps what it had.
    if (archivo) {
        const QString ruta = fs::inDataDir(mb, QString::fromLatin1(archivo));
        if (fs::fileExists(ruta))
            leerTablaCaracteres(fs::readAll(ruta), lineasTablaCaracteres(mb.Idioma), tabla);
    }

    return aplicarTablaCaracteres(tabla, entrada);
}

QByteArray aplicarTablaCaracteres(const TablaCaracteres& tabla, const QByteArray& texto)
{
    QByteArray resultado;
    resultado.reserve(texto.size());
    for (const char c : texto) {
        const auto codigo = static_cast<unsigned char>(c);
        bool hecho = false;
        for (int k = 0; k <= 12 && !hecho; ++k) {
            if (tabla.CodigoOrigen(k) != codigo)
                continue;
            const int16_t destino = tabla.CodigoDestino(k);
            // A target that is no byte cannot become a character.
            if (destino < 0 || destino > 255)
                throw llamadaNoValida();
            resultado.append(static_cast<char>(destino));
            hecho = true;
        }
        if (hecho)
            continue;
        const char llana = buscar(kAcentos, codigo);
        resultado.append(llana ? llana : c);
    }
    return resultado;
}
