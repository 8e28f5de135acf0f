#include "Configuracion.h"

#include "CodePage.h"
#include "FileSystem.h"
#include "ModBase.h"
#include "RuntimeError.h"
#include "TextLines.h"

namespace {

const char* const kArchivo = "cfg.ini";
const char* const kMarcaModeloNuevo = "sirel.new";
const char* const kSobrante = "Lastfreetext.txt";

// A setting is the line's last character, which must be a digit.
bool ultimoDigito(const QByteArray& line, int16_t& value)
{
    const char c = line.back();
    if (c < '0' || c > '9')
        return false;
    value = static_cast<int16_t>(c - '0');
    return true;
}

// Out-of-range values are replaced; note that the replacements for speed and
// data bits are 0 although their defaults are 2 and 1.
void aplicarValor(ModBase& mb, int numeroLinea, int16_t v)
{
    switch (numeroLinea) {
    case 1:
        mb.Idioma = (v == 0 || v > 8) ? 1 : v;
        break;
    case 2:
        mb.Puerto = v > 3 ? 0 : v;
        break;
    case 3:
        mb.Baudios = v > 3 ? 0 : v;
        break;
    case 4:
        mb.Paridad = v > 2 ? 0 : v;
        break;
    case 5:
        mb.BitsParada = v > 1 ? 0 : v;
        break;
    case 6:
        mb.BitsDatos = v > 1 ? 0 : v;
        break;
    case 7:
        mb.Sombreado = v > 1 ? 1 : v;
        break;
    }
}

// Line 8 is scanned for its first "="; the path is what follows "= ". A
// line whose scan reaches its last character has no path.
QByteArray rutaDeLinea(const QByteArray& line)
{
    const qsizetype last = line.size() - 1;
    qsizetype i = 0;
    while (i < last && line.at(i) != '=')
        ++i;
    if (i == last)
        return {};
    return line.mid(i + 2);
}

} // namespace

void configuracionPorDefecto(ModBase& mb)
{
    mb.Idioma = 1;
    mb.Puerto = 0;
    mb.Baudios = 2;
    mb.Paridad = 0;
    mb.BitsParada = 0;
    mb.BitsDatos = 1;
    mb.Sombreado = 1;
    mb.RutaFondo.clear();
}

LecturaConfiguracion aplicarConfiguracion(ModBase& mb, const QByteArray& contents)
{
    const QList<QByteArray> lines = splitLines(contents);
    for (int i = 0; i < lines.size(); ++i) {
        const int numero = i + 1;
        const QByteArray& line = lines.at(i);
        // The row of minus signs on line 9, or a blank line, ends the reading.
        if (line.isEmpty() || numero == 9)
            break;
        if (numero <= 7) {
            int16_t value = 0;
            if (!ultimoDigito(line, value)) {
                configuracionPorDefecto(mb);
                return LecturaConfiguracion::TipoIncorrecto;
            }
            aplicarValor(mb, numero, value);
        } else {
            mb.RutaFondo = decodeFor(mb.Idioma, rutaDeLinea(line));
        }
    }
    return LecturaConfiguracion::Completa;
}

QByteArray formaCorta(const ModBase& mb)
{
    const QList<QString> lines = {
        QStringLiteral("Idioma = %1").arg(mb.Idioma),
        QStringLiteral("Puerto de comunicación = %1").arg(mb.Puerto),
        QStringLiteral("Baudios = %1").arg(mb.Baudios),
        QStringLiteral("Paridad = %1").arg(mb.Paridad),
        QStringLiteral("Bits de parada = %1").arg(mb.BitsParada),
        QStringLiteral("Bits de datos = %1").arg(mb.BitsDatos),
        QStringLiteral("Sombreado = %1").arg(mb.Sombreado),
        QStringLiteral("No Fondo"),
    };
    QList<QByteArray> bytes;
    for (const QString& line : lines)
        bytes.append(encodeFor(mb.Idioma, line));
    return joinLines(bytes);
}

QByteArray formaLarga(const ModBase& mb)
{
    const TextTable& T = mb.Textos;
    const auto ajuste = [&](int id, int16_t value) {
        return T(id) + QStringLiteral(" = ") + QString::number(value);
    };
    const QList<QString> lines = {
        ajuste(293, mb.Idioma),
        ajuste(260, mb.Puerto),
        ajuste(261, mb.Baudios),
        ajuste(262, mb.Paridad),
        ajuste(1321, mb.BitsParada),
        ajuste(263, mb.BitsDatos),
        ajuste(1342, mb.Sombreado),
        mb.RutaFondo.isEmpty() ? T(286) + QLatin1Char(' ') + T(1343)
                               : T(1343) + QStringLiteral(" = ") + mb.RutaFondo,
        QString(128, QLatin1Char('-')),
        T(293) + QStringLiteral(": Español = 1; English = 2; Português = 3; Dutch = 4; "
                                "Français = 5; Italiano = 6; Greek = 7; Polska = 8;"),
        T(260) + QStringLiteral(": COM1 = 0; COM2 = 1; COM3 = 2; COM4 = 3;"),
        T(261) + QStringLiteral(": 2400 = 0; 4800 = 1; 9600 = 2; 19200 = 3;"),
        T(262) + QStringLiteral(": NONE = 0; EVEN = 1; ODD = 2;"),
        T(1321) + QStringLiteral(": 1 = 0; 2 = 1; "),
        T(263) + QStringLiteral(": 7 = 0; 8 = 1;"),
        T(1342) + QStringLiteral(": ") + T(286) + QStringLiteral(" = 0; ") + T(285) +
            QStringLiteral(" = 1;"),
    };
    QList<QByteArray> bytes;
    for (const QString& line : lines)
        bytes.append(encodeFor(mb.Idioma, line));
    return joinLines(bytes);
}

OrigenAjustes leerAjustes(ModBase& mb)
{
    const QString path = fs::inProgramDir(mb, kArchivo);
    OrigenAjustes origen = OrigenAjustes::Archivo;
    if (!fs::fileExists(path)) {
        configuracionPorDefecto(mb);
        origen = OrigenAjustes::Falta;
    } else {
        QByteArray contents;
        try {
            contents = fs::readAll(path);
        } catch (const RuntimeError&) {
            // A file that cannot be read keeps the settings as they are, and
            // the model is not looked at.
            return OrigenAjustes::Ilegible;
        }
        // A damaged file restores the defaults without a word, and the model
        // is not looked at: the marker file is ignored for this run.
        if (aplicarConfiguracion(mb, contents) == LecturaConfiguracion::TipoIncorrecto)
            return OrigenAjustes::Danado;
    }
    mb.ModeloNuevo = fs::fileExists(fs::inProgramDir(mb, kMarcaModeloNuevo)) ? 1 : 0;
    return origen;
}

int16_t LeerConfiguracion(ModBase& mb)
{
    const OrigenAjustes origen = leerAjustes(mb);
    if (origen == OrigenAjustes::Danado || origen == OrigenAjustes::Ilegible)
        return 0;
    int16_t result = 0;
    if (origen == OrigenAjustes::Falta) {
        // The short form's line 8 says "No Fondo"; the path itself stays empty.
        fs::writeAll(fs::inProgramDir(mb, kArchivo), formaCorta(mb));
        result = 1;
    }

    // Nothing writes this file any more; it is only cleared away.
    const QString sobrante = fs::inProgramDir(mb, kSobrante);
    if (fs::fileExists(sobrante)) {
        try {
            fs::deleteFile(sobrante);
        } catch (const RuntimeError&) {
        }
    }
    return result;
}

void GuardarConfiguracion(const ModBase& mb)
{
    fs::writeAll(fs::inProgramDir(mb, kArchivo), formaLarga(mb));
}
