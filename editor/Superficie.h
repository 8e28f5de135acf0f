#pragma once

#include "BoundedArray.h"

#include <cstdint>
#include <QString>
#include <type_traits>

// The coordinates of the surface. Four systems are in use: window
// millimetres (the layout of the main window), twips (pointer positions over
// a field's box), surface units (one unit is one millimetre of the label:
// PosHor, PosVer, box positions, pointer positions over the surface) and the
// stored text (units x 3.6). A horizontal unit is drawn 2.0 window mm wide and
// a vertical unit 10/9 mm tall: the surface is deliberately not isotropic.
namespace Coordenadas {

constexpr double kTwipsPorMm = 56.7;
// Where a field may stand, in surface units: from kIzquierda to kDerecha
// across (the margin bands lie outside) and from kArriba down to the label's
// length.
constexpr double kIzquierda = 3;
constexpr double kArriba = 8;
constexpr double kDerecha = 53;
constexpr double kMmPorUnidadHor = 2.0;

// A pointer position over a field's box, in twips from its top left, as
// surface units. The operations go in this order, in double precision.
inline double unidadesHorDeTwips(double x)
{
    return x / kTwipsPorMm / 2.0;
}
inline double unidadesVerDeTwips(double y)
{
    return y / kTwipsPorMm / 10 * 9;
}

// Window millimetres of a length in surface units, and twips of window mm.
inline double mmDeUnidadesHor(double u)
{
    return kMmPorUnidadHor * u;
}
inline double mmDeUnidadesVer(double u)
{
    return (10.0 / 9.0) * u;
}
inline double twipsDeMm(double mm)
{
    return mm * kTwipsPorMm;
}

// Every fractional value that becomes a whole number rounds to the nearest,
// halves to the even number (12.5 gives 12, 13.5 gives 14). Beyond the range
// of an i16 it is the program's overflow.
int16_t redondear(double v);

// A pointer position, in pixels from the surface's top left, as surface
// units, the surface being drawn at `pixelesPorUnidad` pixels a unit on that
// axis. The pointer stands at the centre of the pixel under it; when that
// centre is exactly a half unit it stands a quarter pixel before it. So no
// pointer sits on a half unit, and a position and the same position moved
// by whole units round alike: the grip in a box at a whole left and the
// pointer on the surface agree, and a click never moves the box, at any
// scale.
double unidadesDePixel(double pixel, double pixelesPorUnidad);

} // namespace Coordenadas

// A number held in single precision, as the surface's sizes and positions
// are: the result of every operation among such numbers and whole numbers is
// brought to single precision at once, so 66.666664 x 9 / 10 is 60. With a
// double the operation is made in double precision, and a double becomes a
// Single only when it is stored in one.
class Single {
public:
    constexpr Single() = default;
    explicit Single(double v) : m_v(static_cast<float>(v)) {}
    operator double() const { return m_v; }

    friend Single operator+(Single a, Single b) { return Single(double(a.m_v) + b.m_v); }
    friend Single operator-(Single a, Single b) { return Single(double(a.m_v) - b.m_v); }
    friend Single operator*(Single a, Single b) { return Single(double(a.m_v) * b.m_v); }
    friend Single operator/(Single a, Single b) { return Single(double(a.m_v) / b.m_v); }
    template <typename I, typename = std::enable_if_t<std::is_integral_v<I>>>
    friend Single operator+(Single a, I b)
    {
        return a + Single(b);
    }
    template <typename I, typename = std::enable_if_t<std::is_integral_v<I>>>
    friend Single operator+(I a, Single b)
    {
        return Single(a) + b;
    }
    template <typename I, typename = std::enable_if_t<std::is_integral_v<I>>>
    friend Single operator-(Single a, I b)
    {
        return a - Single(b);
    }
    template <typename I, typename = std::enable_if_t<std::is_integral_v<I>>>
    friend Single operator-(I a, Single b)
    {
        return Single(a) - b;
    }
    template <typename I, typename = std::enable_if_t<std::is_integral_v<I>>>
    friend Single operator*(Single a, I b)
    {
        return a * Single(b);
    }
    template <typename I, typename = std::enable_if_t<std::is_integral_v<I>>>
    friend Single operator/(Single a, I b)
    {
        return a / Single(b);
    }

private:
    float m_v = 0;
};

namespace Coordenadas {

// The factor of the vertical axis, 10/9 worked out in double precision and
// held in single.
inline Single factorVertical()
{
    return Single(10.0 / 9.0);
}

} // namespace Coordenadas

// The text forms of a position coordinate v, padded on the left with "0" to
// at least 3 characters. The whole form (drags, Alinear) is v x 3.6 rounded;
// the exact form (PosicionarCampo, AjustarIzda, AjustarArriba) is the double
// product in its general number text with the system's decimal mark, and is
// not cut when it is longer: 11 gives "39.6".
QByteArray textoPosicionEntero(int v);
QByteArray textoPosicionExacto(int v);

// One box of the surface, `Imagen` 0..36. Positions and sizes are surface
// units and are held, as the surface's own controls hold them, in single
// precision; the left may be fractional (the centring makes it so).
class Caja {
public:
    Single left() const { return m_left; }
    Single top() const { return m_top; }
    Single width() const { return m_width; }
    Single height() const { return m_height; }
    void setLeft(double v) { m_left = Single(v); }
    void setTop(double v) { m_top = Single(v); }
    void setWidth(double v) { m_width = Single(v); }
    void setHeight(double v) { m_height = Single(v); }
    void move(double left, double top)
    {
        setLeft(left);
        setTop(top);
    }

    QString caption;
    QString toolTip;    // the free texts show their caption as a tip too
    uint32_t color = 0; // 0xRRGGBB
    bool visible = false;
    bool rojo = false; // red text: the field is in the multiple selection

private:
    Single m_left;
    Single m_top;
    Single m_width;
    Single m_height;
};

// A filled rectangle or a line, in surface units.
struct Banda {
    Single left, top, width, height;
    bool visible = false;
};
struct Linea {
    Single x1, y1, x2, y2;
};

// The pointer the drag asks for: the arrow, or the sign that the box may
// not be let go here.
enum class Puntero { Flecha, NoSoltar };

// One of the two labels that show the fixed text under the surface.
struct EtiquetaTXF {
    QString caption;
    bool centrado = true;
    bool enabled = true;
};

// The drawn label `Cuadro` as the window shows it: its size, the 37 boxes,
// the bands, guide lines, status read-outs and fixed text labels. It holds
// state only; the editor writes it and the window draws it.
struct Superficie {
    Superficie();

    static constexpr uint32_t kColorBandas = 0xffc0c0;
    static constexpr uint32_t kColorGuias = 0xff8080;
    // As the window is designed, before the load sets the surface up.
    static constexpr double kTwipsLeftInicial = 3600;
    static constexpr double kTwipsTopInicial = 1560;
    static constexpr double kTwipsAnchoInicial = 6435;
    static constexpr double kTwipsAltoInicial = 6255;

    // The spin controls beside the surface: VSHor 25..57, VSVer 1..99.
    int VSHor = 57;
    QString TxtValorHor = QStringLiteral("57");
    QString TxtValorVer = QStringLiteral("45");

    // Outer size in window mm, the scale in surface units, the length of
    // the vertical ruler in window mm.
    Single anchoExterior{kTwipsAnchoInicial / Coordenadas::kTwipsPorMm};
    Single altoExterior{kTwipsAltoInicial / Coordenadas::kTwipsPorMm};
    Single anchoEscala;
    Single altoEscala;
    Single largoRegla;

    BoundedArray<Caja, 0, 36> Imagen;
    Banda Shape2; // the left band
    Banda Shape3; // the right band
    Linea Line5, Line6, Line7;
    BoundedArray<EtiquetaTXF, 1, 2> lblTXF;

    // The second and third panels of the status bar.
    QString panelX;
    QString panelY;
    Puntero puntero = Puntero::Flecha;

    // The outer height drawn in twips, as the window lays it out.
    double altoExteriorTwips() const { return Coordenadas::twipsDeMm(altoExterior); }
    double anchoExteriorTwips() const { return Coordenadas::twipsDeMm(anchoExterior); }
};
