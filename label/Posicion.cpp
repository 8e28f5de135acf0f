#include "Posicion.h"

#include "RuntimeError.h"

#include <cmath>

double valorTextoPosicion(const QByteArray& texto)
{
    const auto digit = [&](qsizetype at) {
        return at < texto.size() && texto.at(at) >= '0' && texto.at(at) <= '9';
    };
    qsizetype end = 0;
    while (digit(end))
        ++end;
    if (end == 0)
        return 0;
    if (end < texto.size() && texto.at(end) == '.')
        for (++end; digit(end); ++end) {
        }
    // Parsed whole, as the platform parses a number, so that "3.6" is the
    // same double as the literal 3.6.
    return QByteArrayView(texto).first(end).toDouble();
}

int16_t posicionDeTexto(const QByteArray& texto)
{
    // The default rounding mode rounds halves to the even number.
    const double units = std::nearbyint(valorTextoPosicion(texto) / 3.6);
    if (units > 32767)
        throw RuntimeError::overflow();
    return static_cast<int16_t>(units);
}
