// How a field gets its position: the drag of a box alone or with the
// selection, the placement at the point last clicked, and the stacking that
// the palette uses. None of these marks the label modified: a label only
// rearranged by dragging counts as unchanged.
#include "EditorEtiqueta.h"
#include "ModBase.h"
#include "Posicion.h"

#include <algorithm>
#include <cmath>
#include <QStringLiteral>

using namespace Coordenadas;

namespace {

QString textoPanel(const char* eje, int valor)
{
    return QString::fromLatin1(eje) + QStringLiteral(": ") + QString::number(valor);
}

} // namespace

bool EditorEtiqueta::dentroDeLimites(const Rect& r, double limiteVertical) const
{
    using namespace Coordenadas;
    return r.L >= kIzquierda && r.T >= kArriba && r.R <= kDerecha && r.B <= limiteVertical;
}

void EditorEtiqueta::fijarLimites(bool permitido)
{
    superficie.puntero = permitido ? Puntero::Flecha : Puntero::NoSoltar;
    FueraDeLimites = !permitido;
}

void EditorEtiqueta::pulsarCampo(int n, BotonRaton boton, double xTwips, double yTwips)
{
    AgarreHor = 0;
    AgarreVer = 0;
    // The weight's companion line can be neither dragged nor given a menu.
    if (n == 0)
        return;
    superficie.Imagen(n); // a box that does not exist is the program's error
    CampoActivo = static_cast<int16_t>(n);
    if (boton == BotonRaton::Derecho) {
        prepararDerecho();
        m_view.abrirMenu(MenuEmergente::Derecho);
        return;
    }
    if (boton != BotonRaton::Izquierdo)
        return;
    AgarreHor = redondear(unidadesHorDeTwips(xTwips));
    AgarreVer = redondear(unidadesVerDeTwips(yTwips));
    arrastrando = true;
    if (n == 11)
        sigueCompanero();
    if (!m_mb.Campos(n).Seleccionado) {
        ArrastreGrupo = false;
        return;
    }
    ArrastreGrupo = true;
    const Caja& c = superficie.Imagen(n);
    GrupoArriba = redondear(c.top());
    GrupoAbajo = redondear(c.top() + c.height());
    GrupoIzquierda = redondear(c.left());
    GrupoDerecha = redondear(c.left() + c.width());
    for (int i = 1; i <= camposModelo(); ++i) {
        if (!m_mb.Campos(i).Seleccionado)
            continue;
        const Caja& s = superficie.Imagen(i);
        if (s.top() < GrupoArriba)
            GrupoArriba = redondear(s.top());
        if (s.top() + s.height() > GrupoAbajo)
            GrupoAbajo = redondear(s.top() + s.height());
        if (s.left() < GrupoIzquierda)
            GrupoIzquierda = redondear(s.left());
        // Compared with the bottom, not the right: a wide selection near the
        // top can leave the right edge at the pressed field's own. The
        // program has always done so and the layouts made with it rely on it.
        if (s.left() + s.width() > GrupoAbajo)
            GrupoDerecha = redondear(s.left() + s.width());
    }
}

void EditorEtiqueta::moverSobreCampo()
{
    superficie.puntero = Puntero::Flecha;
}

EditorEtiqueta::Rect EditorEtiqueta::cajaCandidata(const Caja& w) const
{
    Rect r;
    const int16_t dx = redondear(PunteroHor - AgarreHor);
    const int16_t dy = redondear(PunteroVer - AgarreVer);
    if (!ArrastreGrupo) {
        r.L = dx;
        r.T = dy;
        r.R = redondear(w.width() + PunteroHor - AgarreHor);
        r.B = redondear(w.height() + PunteroVer - AgarreVer);
    } else {
        r.L = redondear(dx - (w.left() - GrupoIzquierda));
        r.T = redondear(dy - (w.top() - GrupoArriba));
        r.R =
            redondear(GrupoDerecha - (w.width() + w.left()) + (PunteroHor + w.width() - AgarreHor));
        r.B =
            redondear(GrupoAbajo - (w.height() + w.top()) + (PunteroVer + w.height() - AgarreVer));
    }
    return r;
}

void EditorEtiqueta::arrastrarSobreCuadro(int estado, double x, double y)
{
    PunteroHor = redondear(x);
    PunteroVer = redondear(y);
    superficie.panelX = textoPanel("X", PunteroHor);
    superficie.panelY = textoPanel("Y", PunteroVer);
    const Rect r = cajaCandidata(superficie.Imagen(CampoActivo));
    if (estado == 1) {
        superficie.puntero = Puntero::NoSoltar;
        FueraDeLimites = true;
    } else {
        FueraDeLimites = false;
        if (estado == 0)
            superficie.puntero = Puntero::Flecha;
    }
    // The limits decide in every state, also on leaving. The outer height
    // is held in single precision, and so is its ninth part by ten: the
    // value of VSVer.
    fijarLimites(dentroDeLimites(r, superficie.altoExterior * 9 / 10));
}

void EditorEtiqueta::arrastrarSobreCampo(int k, double xTwips, double yTwips)
{
    const Caja& w = superficie.Imagen(k);
    if (arrastrando) {
        // Relative to box k, but the left and top added are the dragged
        // field's: the read-out jumps when the pointer crosses a neighbour.
        const Caja& a = superficie.Imagen(CampoActivo);
        PunteroHor = redondear(unidadesHorDeTwips(xTwips) + a.left());
        PunteroVer = redondear(unidadesVerDeTwips(yTwips) + a.top());
        superficie.panelX = textoPanel("X", PunteroHor);
        superficie.panelY = textoPanel("Y", PunteroVer);
    }
    fijarLimites(dentroDeLimites(cajaCandidata(w), VSVer()));
}

void EditorEtiqueta::soltar(int ultimoCampo)
{
    superficie.panelX = textoPanel("X", PunteroHor - AgarreHor);
    superficie.panelY = textoPanel("Y", PunteroVer - AgarreVer);
    if (!FueraDeLimites) {
        if (ArrastreGrupo) {
            const Caja& a = superficie.Imagen(CampoActivo);
            const int16_t dx = redondear((PunteroHor - AgarreHor) - a.left());
            const int16_t dy = redondear((PunteroVer - AgarreVer) - a.top());
            for (int i = 1; i <= ultimoCampo; ++i) {
                Campo& c = m_mb.Campos(i);
                if (!c.Seleccionado)
                    continue;
                Caja& caja = superficie.Imagen(i);
                caja.move(caja.left() + dx, caja.top() + dy);
                // The record takes the delta a second time, from the box as it
                // now stands; the next CargarImagen puts the boxes where the
                // records say. Layouts saved this way depend on it.
                c.PosHor = redondear(caja.left() + dx);
                c.PosVer = redondear(caja.top() + dy);
                c.TextoHor = textoPosicionEntero(c.PosHor);
                c.TextoVer = textoPosicionEntero(c.PosVer);
            }
        } else {
            Campo& c = m_mb.Campos(CampoActivo);
            c.PosHor = redondear(PunteroHor - AgarreHor);
            c.PosVer = redondear(PunteroVer - AgarreVer);
            superficie.Imagen(CampoActivo).move(c.PosHor, c.PosVer);
            c.TextoHor = textoPosicionEntero(c.PosHor);
            c.TextoVer = textoPosicionEntero(c.PosVer);
        }
    }
    if (CampoActivo == 11)
        sigueCompanero();
    FueraDeLimites = false;
    arrastrando = false;
    m_view.repintarCuadro();
}

void EditorEtiqueta::soltarEnCuadro(double x, double y)
{
    PunteroHor = redondear(x);
    PunteroVer = redondear(y);
    soltar(36);
}

void EditorEtiqueta::soltarEnCampo(int k, double, double)
{
    superficie.Imagen(k);
    if (!arrastrando) {
        FueraDeLimites = false;
        m_view.repintarCuadro();
        return;
    }
    // The pointer is relative to the box under it, so the position is the
    // one of the last drag-over: a field can be let go over another one.
    soltar(camposModelo());
}

void EditorEtiqueta::soltarEnCajaTexto()
{
    // A drag let go on one of the window's text boxes moves nothing.
    arrastrando = false;
    m_view.repintarCuadro();
}

void EditorEtiqueta::dobleClicCampo(int n)
{
    // Box 0 is no field: the access fails as it always has.
    Campo& c = m_mb.Campos(n);
    c.Seleccionado = !c.Seleccionado;
    superficie.Imagen(n).rojo = c.Seleccionado;
    m_view.repintarCuadro();
}

void EditorEtiqueta::PosicionarCampo(int campo)
{
    Campo& c = m_mb.Campos(campo);
    Caja& caja = superficie.Imagen(campo);
    TamanoImagen(campo, tamanoDe(campo));
    if (m_mb.NuevoCampoHor + caja.width() > Coordenadas::kDerecha)
        m_mb.NuevoCampoHor = redondear(Coordenadas::kDerecha - caja.width());
    const double alto = valorTextoPosicion(m_mb.AnchoEtiqueta);
    if (m_mb.NuevoCampoVer + caja.height() > alto)
        m_mb.NuevoCampoVer = redondear(alto - caja.height());
    // No lower bound: the surface's click keeps a point above 3 and 8, and
    // after a command it is (0, 0), the corner over the band.
    caja.move(m_mb.NuevoCampoHor, m_mb.NuevoCampoVer);
    c.Presente = "1";
    caja.visible = true;
    c.PosHor = m_mb.NuevoCampoHor;
    c.PosVer = m_mb.NuevoCampoVer;
    c.TextoHor = textoPosicionExacto(c.PosHor);
    c.TextoVer = textoPosicionExacto(c.PosVer);
}

void EditorEtiqueta::InicializarSituacion(int campo, int hor, int ver)
{
    int cur = ver;
    TamanoImagen(campo, 0);
    const int h = redondear(superficie.Imagen(campo).height());
    const auto enColumna = [&](int k) {
        const Campo& c = m_mb.Campos(k);
        return k != campo && c.Presente == "1" && c.PosHor == hor;
    };
    int n = 0;
    for (int k = 1; k <= camposModelo(); ++k)
        n += enColumna(k) ? 1 : 0;
    // As many passes as fields in the column, so that every shift is
    // tested again against every field. Only this very column counts.
    for (int pasada = 0; pasada < n; ++pasada)
        for (int k = 1; k <= camposModelo(); ++k) {
            if (!enColumna(k))
                continue;
            const Caja& w = superficie.Imagen(k);
            const int t = redondear(w.top());
            const int b = t + redondear(w.height());
            if (t < cur + h && b > cur)
                cur = b;
        }
    // Neither the text nor the box: the following Actualiza moves the box,
    // and the text stays "000" until the field is dragged.
    Campo& c = m_mb.Campos(campo);
    if (cur > c.PosVer)
        c.PosVer = static_cast<int16_t>(cur);
}

double EditorEtiqueta::twipsHorEn(int k, double x) const
{
    return twipsDeMm(mmDeUnidadesHor(x - superficie.Imagen(k).left()));
}

double EditorEtiqueta::twipsVerEn(int k, double y) const
{
    return twipsDeMm(mmDeUnidadesVer(y - superficie.Imagen(k).top()));
}

void EditorEtiqueta::pulsar(int k, BotonRaton boton, double x, double y)
{
    if (k < 0) {
        pulsarCuadro(boton, x, y);
        return;
    }
    pulsarCampo(k, boton, twipsHorEn(k, x), twipsVerEn(k, y));
    if (arrastrando) {
        // The drag begins over the pressed box itself.
        arrastreSobre = Bajo::Fuera;
        arrastrarA(true, k, x, y);
    }
}

void EditorEtiqueta::arrastrarA(bool dentro, int k, double x, double y)
{
    const Bajo bajo = !dentro ? Bajo::Fuera : k >= 0 ? Bajo::Caja : Bajo::Superficie;
    // The bare surface hears the pointer come in (0), move (2) and go out (1).
    if (arrastreSobre == Bajo::Superficie && bajo != Bajo::Superficie)
        arrastrarSobreCuadro(1, x, y);
    if (bajo == Bajo::Superficie)
        arrastrarSobreCuadro(arrastreSobre == Bajo::Superficie ? 2 : 0, x, y);
    else if (bajo == Bajo::Caja)
        arrastrarSobreCampo(k, twipsHorEn(k, x), twipsVerEn(k, y));
    arrastreSobre = bajo;
    arrastreHor = x;
    arrastreVer = y;
}

void EditorEtiqueta::soltarEn(bool dentro, int k, double x, double y, bool sobreCajaTexto)
{
    // The pointer reached the release point before being let go.
    arrastrarA(dentro, k, x, y);
    const Bajo bajo = arrastreSobre;
    arrastreSobre = Bajo::Fuera;
    if (bajo == Bajo::Caja) {
        soltarEnCampo(k, twipsHorEn(k, x), twipsVerEn(k, y));
    } else if (bajo == Bajo::Superficie) {
        soltarEnCuadro(x, y);
    } else if (sobreCajaTexto) {
        soltarEnCajaTexto();
    } else {
        // Let go where nothing takes a drop: the drag is over, nothing moves.
        arrastrando = false;
        m_view.repintarCuadro();
    }
}

bool EditorEtiqueta::haySeleccion() const
{
    for (int i = 1; i <= camposModelo(); ++i)
        if (m_mb.Campos(i).Seleccionado && m_mb.Campos(i).Presente == "1")
            return true;
    return false;
}

void EditorEtiqueta::moverSeleccion(int hor, int ver)
{
    if (!haySeleccion())
        return;
    double L = 1e9, T = 1e9, R = -1e9, B = -1e9;
    for (int i = 1; i <= camposModelo(); ++i) {
        if (!m_mb.Campos(i).Seleccionado || m_mb.Campos(i).Presente != "1")
            continue;
        const Caja& c = superficie.Imagen(i);
        L = std::min(L, double(c.left()));
        T = std::min(T, double(c.top()));
        R = std::max(R, double(c.left() + c.width()));
        B = std::max(B, double(c.top() + c.height()));
    }
    const double fondo = superficie.altoExterior * 9 / 10;
    // As far as the limits let the step go. A box that stands outside them
    // (the palette puts new fields at the top left corner) moves towards
    // them freely, never further out.
    const auto paso = [](int d, double bajo, double alto) {
        if (d < 0)
            return std::min(0, std::max(d, static_cast<int>(std::ceil(bajo))));
        return std::max(0, std::min(d, static_cast<int>(std::floor(alto))));
    };
    const int dx = paso(hor, Coordenadas::kIzquierda - L, Coordenadas::kDerecha - R);
    const int dy = paso(ver, Coordenadas::kArriba - T, fondo - B);
    if (dx == 0 && dy == 0)
        return;
    const Rect antes{redondear(L), redondear(T), redondear(R), redondear(B)};
    const Rect r{redondear(L + dx), redondear(T + dy), redondear(R + dx), redondear(B + dy)};
    if (dentroDeLimites(antes, fondo) && !dentroDeLimites(r, fondo))
        return;
    for (int i = 1; i <= camposModelo(); ++i) {
        Campo& c = m_mb.Campos(i);
        if (!c.Seleccionado || c.Presente != "1")
            continue;
        c.PosHor = static_cast<int16_t>(c.PosHor + dx);
        c.PosVer = static_cast<int16_t>(c.PosVer + dy);
        c.TextoHor = textoPosicionEntero(c.PosHor);
        c.TextoVer = textoPosicionEntero(c.PosVer);
        superficie.Imagen(i).move(c.PosHor, c.PosVer);
        if (i == 11)
            sigueCompanero();
    }
    m_view.repintarCuadro();
}

void EditorEtiqueta::borrarSeleccion()
{
    const int16_t activo = CampoActivo;
    for (int i = 1; i <= camposModelo(); ++i) {
        if (!m_mb.Campos(i).Seleccionado || m_mb.Campos(i).Presente != "1")
            continue;
        CampoActivo = static_cast<int16_t>(i);
        clicMnuDer(4);
    }
    CampoActivo = activo;
}
