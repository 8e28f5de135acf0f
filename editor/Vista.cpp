#include "Vista.h"

#include "FileSystem.h"
#include "RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <QByteArray>
#include <QList>

namespace {

constexpr double kEscalones[] = {0.5, 0.67, 0.75, 1, 1.25, 1.5, 2, 2.5, 3, 4, 5, 6, 8};

} // namespace

double Zoom::acercar(double factor)
{
    for (double e : kEscalones)
        if (e > factor + 1e-6)
            return e;
    return kMaximo;
}

double Zoom::alejar(double factor)
{
    for (auto it = std::rbegin(kEscalones); it != std::rend(kEscalones); ++it)
        if (*it < factor - 1e-6)
            return *it;
    return kMinimo;
}

double Zoom::ajustar(double anchoPx, double altoPx, double unidadesHor, double unidadesVer)
{
    if (unidadesHor <= 0 || unidadesVer <= 0)
        return 1;
    const double f = std::min(anchoPx / (unidadesHor * kPxPorUnidadHorReal),
                              altoPx / (unidadesVer * kPxPorUnidadVerReal));
    return std::clamp(std::floor(f * 100) / 100, kMinimo, kMaximo);
}

QStringList conMnemonicos(const QStringList& captions, QString ocupadas)
{
    QStringList salida;
    for (const QString& caption : captions) {
        QString texto = caption;
        texto.replace(QLatin1Char('&'), QStringLiteral("&&"));
        for (int i = 0; i < texto.size(); ++i) {
            const QChar c = texto.at(i);
            // A letter with a case: one a keyboard types (not an ordinal sign).
            if (!c.isLetter() || c.toLower() == c.toUpper() || ocupadas.contains(c.toLower()))
                continue;
            ocupadas += c.toLower();
            texto.insert(i, QLatin1Char('&'));
            break;
        }
        salida.append(texto);
    }
    return salida;
}

QChar letraMnemonico(const QString& caption)
{
    for (int i = 0; i + 1 < caption.size(); ++i) {
        if (caption.at(i) != QLatin1Char('&'))
            continue;
        if (caption.at(i + 1) != QLatin1Char('&'))
            return caption.at(i + 1).toLower();
        ++i;
    }
    return {};
}

QByteArray VistaVentana::texto() const
{
    return "ancho=" + QByteArray::number(ancho) + "\nalto=" + QByteArray::number(alto) +
           "\nmaximizada=" + QByteArray::number(maximizada ? 1 : 0) +
           "\nzoom=" + QByteArray::number(zoom, 'g', 6) +
           "\najustada=" + QByteArray::number(ajustada ? 1 : 0) + "\n";
}

VistaVentana VistaVentana::deTexto(const QByteArray& texto)
{
    VistaVentana v;
    for (const QByteArray& linea : texto.split('\n')) {
        const int igual = linea.indexOf('=');
        if (igual < 0)
            continue;
        const QByteArray clave = linea.left(igual).trimmed();
        bool ok = false;
        const double valor = linea.mid(igual + 1).trimmed().toDouble(&ok);
        // "inf", "nan" and 1e300 are numbers to toDouble, and no size.
        if (!ok || !std::isfinite(valor))
            continue;
        // Clamped while still a double: a value past the range of int has
        // no conversion.
        const auto medida = [](double x) { return static_cast<int>(std::clamp(x, 0.0, 100000.0)); };
        if (clave == "ancho")
            v.ancho = medida(valor);
        else if (clave == "alto")
            v.alto = medida(valor);
        else if (clave == "maximizada")
            v.maximizada = valor != 0;
        else if (clave == "zoom" && valor >= Zoom::kMinimo && valor <= Zoom::kMaximo)
            v.zoom = valor;
        else if (clave == "ajustada")
            v.ajustada = valor != 0;
    }
    return v;
}

VistaVentana VistaVentana::leer(const QString& ruta)
{
    if (!fs::fileExists(ruta))
        return {};
    try {
        return deTexto(fs::readAll(ruta));
    } catch (const RuntimeError&) {
        return {};
    }
}

bool VistaVentana::guardar(const QString& ruta) const
{
    try {
        fs::writeAll(ruta, texto());
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}
