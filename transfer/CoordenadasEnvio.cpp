#include "CoordenadasEnvio.h"

#include "AdaptaCaracteres.h"
#include "ModBase.h"

#include <algorithm>
#include <cmath>

namespace {

// Every step is rounded on its own, to the nearest and halves to even, and
// the next step works on the rounded value: the order of the steps shows in
// the result. No value met here falls on a half, but the rule is kept.
double R(double v)
{
    return redondeoPar(v);
}

bool entre(int x, int desde, int hasta)
{
    return x >= desde && x <= hasta;
}

// The scale prints numbers and dates from a point of its own that shifts
// with the place and size of the field. These tables are what the printed
// labels were measured against; the gaps in them are part of that and stay.
double corregirNumerico(double h, int x, int s)
{
    auto suma = [h](double d) { return R(h + d); };
    if (s < 2) {
        if (x < 6)
            return 0;
        if (entre(x, 6, 15))
            return suma(-9.0);
        if (entre(x, 16, 20))
            return suma(-7.2);
        if (entre(x, 21, 24))
            return suma(-5.4);
        if (entre(x, 25, 29))
            return suma(-2.88);
        if (entre(x, 30, 35))
            return suma(-1.08);
        if (x == 39)
            return suma(0.72);
        if (x == 40 || x == 41)
            return suma(1.8);
        if (x == 42)
            return suma(2.88);
        return h;
    }
    if (x < 9)
        return 0;
    if (entre(x, 9, 11))
        return suma(-23.4);
    if (entre(x, 12, 20))
        return suma(-21.6);
    if (entre(x, 21, 24))
        return suma(-5.4);
    if (entre(x, 25, 29))
        return suma(-2.88);
    if (entre(x, 30, 35))
        return suma(-1.08);
    if (x == 39)
        return suma(0.72);
    return h;
}

double corregirFecha(double h, int x, int s)
{
    auto suma = [h](double d) { return R(h + d); };
    if (x < 5)
        return 0;
    if (s < 2) {
        if (entre(x, 5, 10))
            return suma(-0.72);
        if (entre(x, 14, 19))
            return suma(1.8);
        if (entre(x, 20, 23))
            return suma(3.6);
        if (entre(x, 24, 28))
            return suma(5.4);
        if (entre(x, 29, 31))
            return suma(7.2);
        if (entre(x, 32, 34))
            return suma(9.0);
        if (entre(x, 35, 41))
            return suma(10.8);
        return h;
    }
    // Double height: a date near the left edge comes in by half a
    // character's step for every millimetre it stands short of 10.
    if (entre(x, 5, 9))
        return R(h - (10 - x) * 0.5 * 3.6);
    if (s == 2) {
        if (entre(x, 19, 23))
            return suma(-3.6);
        if (x == 26)
            return 82;
        if (x >= 27)
            return suma(-5.4);
        return h;
    }
    if (entre(x, 19, 23))
        return suma(-1.8);
    if (x == 26)
        return suma(-5.4);
    if (x >= 27)
        return suma(-3.6);
    return h;
}

} // namespace

int coordenadaHorEnvio(int numero, int x, int tamano)
{
    double h = 0;
    if (x > 0) {
        h = R(R(x * 3.6) - 10.8);
        // The tests go by the field's position, never by the value reached.
        if (entre(numero, 11, 14))
            h = corregirNumerico(h, x, tamano);
        else if (entre(numero, 17, 19))
            h = corregirFecha(h, x, tamano);
    }
    // No field but the lot may stand this near the edge, whatever the tables gave.
    if (x < 7 && numero != 26)
        h = 0;
    return h < 0 ? 0 : static_cast<int>(h);
}

int coordenadaVerEnvio(int y)
{
    const double v = y <= 0 ? 0 : R((y - 8) * 3.6 + 7.2);
    return v < 0 ? 0 : static_cast<int>(v);
}

QByteArray textoCoordenada(int valor)
{
    return QByteArray::number(valor).rightJustified(3, '0');
}

void CalculaCoordenadasEnvio(const ModBase& mb, CoordenadasEnvio& coordenadas)
{
    const int campos = mb.ModeloNuevo == 1 ? 36 : 25;
    for (int n = 1; n <= campos; ++n) {
        const Campo& campo = mb.Campos(n);
        // The size is one digit; anything else still compares as a number.
        const double s = std::clamp(redondeoPar(valorNumerico(campo.Tamano)), -1.0, 3.0);
        coordenadas.CoordHor(n) =
            textoCoordenada(coordenadaHorEnvio(n, campo.PosHor, static_cast<int>(s)));
        coordenadas.CoordVer(n) = textoCoordenada(coordenadaVerEnvio(campo.PosVer));
    }
}
