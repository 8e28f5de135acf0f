#include "Superficie.h"

#include "CatalogoCampos.h"
#include "RuntimeError.h"

#include <cmath>
#include <QLocale>

int16_t Coordenadas::redondear(double v)
{
    // The default rounding mode takes halves to the even number.
    const double r = std::nearbyint(v);
    if (!(r >= -32768 && r <= 32767))
        throw RuntimeError::overflow();
    return static_cast<int16_t>(r);
}

namespace {

QByteArray rellenar(QByteArray texto)
{
    while (texto.size() < 3)
        texto.prepend('0');
    return texto;
}

} // namespace

QByteArray textoPosicionEntero(int v)
{
    return rellenar(QByteArray::number(Coordenadas::redondear(v * 3.6)));
}

QByteArray textoPosicionExacto(int v)
{
    // The general number text: up to 15 significant digits, no group
    // separator, the decimal mark of the system's settings.
    QLocale sistema = QLocale::system();
    sistema.setNumberOptions(QLocale::OmitGroupSeparator);
    return rellenar(sistema.toString(v * 3.6, 'g', 15).toLatin1());
}

Superficie::Superficie()
{
    for (int n = 0; n <= 36; ++n) {
        const CampoCatalogo& c = campoCatalogo(n);
        Imagen(n).caption = QString::fromUtf8(c.imagen);
        Imagen(n).color = c.color;
    }
    for (int i = 1; i <= 2; ++i)
        lblTXF(i).caption = QString::number(i);
}

double Coordenadas::unidadesDePixel(double pixel, double pixelesPorUnidad)
{
    const double centro = (std::floor(pixel) + 0.5) / pixelesPorUnidad;
    const double mitad = std::floor(centro) + 0.5;
    if (std::abs(centro - mitad) < 1e-9)
        return (std::floor(pixel) + 0.25) / pixelesPorUnidad;
    return centro;
}
