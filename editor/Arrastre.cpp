// How a field gets its position: the drag of a box alone or with the
// selection, the placement at the point last clicked, and the stacking that
// the palette uses. None of these marks the label modified: a label only
// rearranged by dragging counts as unchanged.
#include "EditorEtiqueta.h"
#include "ModBase.h"
#include "Posicion.h"

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
    return r.L >= 3 && r.T >= 8 && r.R <= 53 && r.B <= limiteVertical;
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
    GrupoAbajo = redondearSimple(c.top() + c.height());
    GrupoIzquierda = redondear(c.left());
    GrupoDerecha = redondearSimple(c.left() + c.width());
    for (int i = 1; i <= camposModelo(); ++i) {
        if (!m_mb.Campos(i).Seleccionado)
            continue;
        const Caja& s = superficie.Imagen(i);
        if (s.top() < GrupoArriba)
            GrupoArriba = redondear(s.top());
        if (simple(s.top() + s.height()) > GrupoAbajo)
            GrupoAbajo = redondearSimple(s.top() + s.height());
        if (s.left() < GrupoIzquierda)
            GrupoIzquierda = redondear(s.left());
        // Compared with the bottom, not the right: a wide selection near the
        // top can leave the right edge at the pressed field's own. The
        // program has always done so and the layouts made with it rely on it.
        if (simple(s.left() + s.width()) > GrupoAbajo)
            GrupoDerecha = redondearSimple(s.left() + s.width());
    }
}

void EditorEtiqueta::moverSobreCampo() { superficie.puntero = Puntero::Flecha; }

void EditorEtiqueta::arrastrarSobreCuadro(int estado, double x, double y)
{
    PunteroHor = redondear(x);
    PunteroVer = redondear(y);
    superficie.panelX = textoPanel("X", PunteroHor);
    superficie.panelY = textoPanel("Y", PunteroVer);

    const Caja& a = superficie.Imagen(CampoActivo);
    Rect r;
    if (!ArrastreGrupo) {
        r.L = redondear(PunteroHor - AgarreHor);
        r.T = redondear(PunteroVer - AgarreVer);
        r.R = redondearSimple(a.width() + PunteroHor - AgarreHor);
        r.B = redondearSimple(a.height() + PunteroVer - AgarreVer);
    } else {
        r.L = redondearSimple((PunteroHor - AgarreHor) - simple(a.left() - GrupoIzquierda));
        r.T = redondearSimple((PunteroVer - AgarreVer) - simple(a.top() - GrupoArriba));
        r.R = redondearSimple(GrupoDerecha - simple(a.width() + a.left()) +
                              simple(PunteroHor + a.width() - AgarreHor));
        r.B = redondearSimple(GrupoAbajo - simple(a.height() + a.top()) +
                              simple(PunteroVer + a.height() - AgarreVer));
    }
    if (estado == 1) {
        superficie.puntero = Puntero::NoSoltar;
        FueraDeLimites = true;
    } else {
        FueraDeLimites = false;
        if (estado == 0)
            superficie.puntero = Puntero::Flecha;
    }
    // The limits decide in every state, also on leaving.
    fijarLimites(dentroDeLimites(r, simple(superficie.altoExterior * 9 / 10)));
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
    Rect r;
    if (!ArrastreGrupo) {
        r.L = redondear(PunteroHor - AgarreHor);
        r.T = redondear(PunteroVer - AgarreVer);
        r.R = redondearSimple(w.width() + PunteroHor - AgarreHor);
        r.B = redondearSimple(w.height() + PunteroVer - AgarreVer);
    } else {
        r.L = redondearSimple((PunteroHor - AgarreHor) - simple(w.left() - GrupoIzquierda));
        r.T = redondearSimple((PunteroVer - AgarreVer) - simple(w.top() - GrupoArriba));
        r.R = redondearSimple(GrupoDerecha - simple(w.width() + w.left()) +
                              simple(PunteroHor + w.width() - AgarreHor));
        r.B = redondearSimple(GrupoAbajo - simple(w.height() + w.top()) +
                              simple(PunteroVer + w.height() - AgarreVer));
    }
    fijarLimites(dentroDeLimites(r, VSVer()));
}

void EditorEtiqueta::soltar(int ultimoCampo)
{
    superficie.panelX = textoPanel("X", PunteroHor - AgarreHor);
    superficie.panelY = textoPanel("Y", PunteroVer - AgarreVer);
    if (!FueraDeLimites) {
        if (ArrastreGrupo) {
            const Caja& a = superficie.Imagen(CampoActivo);
            const int16_t dx = redondearSimple((PunteroHor - AgarreHor) - a.left());
            const int16_t dy = redondearSimple((PunteroVer - AgarreVer) - a.top());
            for (int i = 1; i <= ultimoCampo; ++i) {
                Campo& c = m_mb.Campos(i);
                if (!c.Seleccionado)
                    continue;
                Caja& caja = superficie.Imagen(i);
                caja.move(simple(caja.left() + dx), simple(caja.top() + dy));
                // The record takes the delta a second time, from the box as it
                // now stands; the next CargarImagen puts the boxes where the
                // records say. Layouts saved this way depend on it.
                c.PosHor = redondearSimple(caja.left() + dx);
                c.PosVer = redondearSimple(caja.top() + dy);
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
    if (simple(m_mb.NuevoCampoHor + caja.width()) > 53.0)
        m_mb.NuevoCampoHor = redondearSimple(53 - caja.width());
    const double alto = valorTexto(m_mb.AnchoEtiqueta);
    if (simple(m_mb.NuevoCampoVer + caja.height()) > alto)
        m_mb.NuevoCampoVer = redondearSimple(alto - caja.height());
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
