// How fields come on and off the label: the palette, the Visualizar menu at
// a point of the surface, the size menu of a field, the fixed text menu and
// the weight's companion line.
#include "CatalogoCampos.h"
#include "EditorEtiqueta.h"
#include "FileCommands.h"
#include "ModBase.h"

using namespace Coordenadas;

namespace {

// Tops of the palette buttons in window mm, old model and new model; the
// lot has no place in the old one.
constexpr double kTopViejo[16] = {54.8, 60.0,  65.6,  70.9,  76.2,  81.7,  87.0, 92.4,
                                  97.9, 103.2, 108.7, 114.0, 119.3, 124.9, 0,    130.2};
constexpr double kTopNuevo[16] = {52.6, 58.0,  63.3,  68.6,  73.9,  79.0,  84.3,  89.8,
                                  94.9, 100.2, 105.6, 110.8, 116.1, 121.5, 126.7, 132.0};

} // namespace

void EditorEtiqueta::PaintFormLoad()
{
    const bool nuevo = m_mb.ModeloNuevo == 1;
    for (int i = 0; i <= 15; ++i)
        if (nuevo || i != 14)
            CBDisplay(i).top = (nuevo ? kTopNuevo : kTopViejo)[i];
    CBDisplay(14).visible = nuevo;
}

void EditorEtiqueta::pulsarCBDisplay(int indice)
{
    const BotonPaleta& boton = botonPaleta(indice);
    if (indice == 0) {
        m_view.mostrarTXL();
        for (int i = 1; i <= 15; ++i) {
            const bool vacio = m_mb.TextoLibre(i - 1).isEmpty();
            if (m_mb.ModeloNuevo == 1) {
                if (vacio) {
                    InicializarCampo(m_mb, campoDeTextoLibre(i));
                    m_mb.TXLPendiente(i) = false;
                }
            } else {
                // The old model has five free texts: the fields of the
                // others are reset whatever their text, and nothing is left
                // pending.
                if ((vacio && i < 6) || i > 5)
                    InicializarCampo(m_mb, campoDeTextoLibre(i));
                m_mb.TXLPendiente(i) = false;
            }
        }
        ColocaTXL();
    } else if (indice == 1) {
        m_view.mostrarDES();
        ColocaDES();
    } else if (indice == 15) {
        m_view.mostrarBorrar();
    } else {
        const int f = boton.campo;
        Campo& c = m_mb.Campos(f);
        // A field is never placed twice; the press still counts as a change.
        if (c.Presente == "0") {
            c.Presente = "1";
            c.Tamano = "0";
            InicializarSituacion(f, 0, 0);
            // At PosHor 0, in the left band, outside the limits of a drag:
            // the person drags it into place and it is checked then.
            superficie.Imagen(f).visible = true;
            if (f == 11) {
                if (m_mb.PesoAproximado)
                    sigueCompanero();
                superficie.Imagen(0).visible = m_mb.PesoAproximado;
            }
        }
    }
    if (indice != 15)
        m_mb.Modificado = true;
    m_files.Actualiza();
}

// A group of fields that a dialog marks as pending: descriptive lines or
// free texts, numbered 1 to `cuantos`.
struct EditorEtiqueta::Pendientes {
    int cuantos;
    int (*campo)(int numero); // the field of number n
    int (*numero)(int campo); // the number of a field, 0 if not of the group
    bool& (*marca)(ModBase& mb, int numero);
    // A field waiting at the point last pressed on the surface counts too,
    // and the stacking starts from the field's own position, not the corner.
    bool desdeElPunto;
};

void EditorEtiqueta::colocarPendientes(const Pendientes& g)
{
    // One field already waiting may keep its place, unless some other field
    // waits there too: then every pending one is stacked.
    bool bloqueado = false;
    int primero = 0;
    for (int i = 1; i <= camposModelo(); ++i) {
        const Campo& c = m_mb.Campos(i);
        const bool enOrigen = c.PosHor == 0 && c.PosVer == 0;
        const bool enPunto =
            g.desdeElPunto && c.PosHor == m_mb.NuevoCampoHor && c.PosVer == m_mb.NuevoCampoVer;
        if (c.Presente != "1" || !(enOrigen || enPunto))
            continue;
        const int n = g.numero(i);
        if (n == 0 || n > g.cuantos || !g.marca(m_mb, n))
            bloqueado = true;
        else if (primero == 0)
            primero = n;
    }
    for (int n = bloqueado ? 1 : primero + 1; n <= g.cuantos; ++n) {
        if (!g.marca(m_mb, n))
            continue;
        const int f = g.campo(n);
        MostrarCampo(f);
        // The repaint puts the fields stacked so far where their records
        // say, so that the next one is stacked against them.
        m_view.repintarVentana();
        const Campo& c = m_mb.Campos(f);
        InicializarSituacion(f, g.desdeElPunto ? c.PosHor : 0, g.desdeElPunto ? c.PosVer : 0);
        g.marca(m_mb, n) = false;
    }
    if (!bloqueado && primero != 0)
        g.marca(m_mb, primero) = false;
}

void EditorEtiqueta::ColocaDES()
{
    colocarPendientes({10, [](int n) { return n; }, [](int f) { return f <= 10 ? f : 0; },
                       [](ModBase& mb, int n) -> bool& { return mb.DESPendiente(n); }, false});
}

void EditorEtiqueta::ColocaTXL()
{
    colocarPendientes({m_mb.ModeloNuevo == 1 ? 15 : 5, campoDeTextoLibre, textoLibreDeCampo,
                       [](ModBase& mb, int n) -> bool& { return mb.TXLPendiente(n); }, true});
    m_view.repintarVentana();
}

void EditorEtiqueta::pulsarCuadro(BotonRaton boton, double x, double y)
{
    if (boton != BotonRaton::Derecho)
        return;
    if (x > 3 && y > 8) {
        m_mb.NuevoCampoHor = redondear(x);
        m_mb.NuevoCampoVer = redondear(y);
        prepararVisualiza();
        m_view.abrirMenu(MenuEmergente::Visualiza);
    } else if (x < 3) {
        // Only the left band has this menu; the right one falls under the
        // Visualizar menu.
        mnuBandasTextId = m_mb.Sombreado != 1 ? 1311 : 495;
        m_view.abrirMenu(MenuEmergente::Ocultar);
    }
}

void EditorEtiqueta::prepararVisualiza()
{
    for (int i = 0; i <= 9; ++i)
        mnuDES(i).checked = m_mb.Campos(i + 1).Presente == "1";
    const bool total = m_mb.TipoEtiqueta == "T";
    for (int k = 0; k <= 13; ++k) {
        EntradaMenu& e = mnuVisual(k);
        const int f = entradaVisual(k).campo;
        e.checked = f != 0 && m_mb.Campos(f).Presente == "1";
        if (k == 2 || k == 3 || k == 9)
            e.enabled = total;
        else if (k == 10 || k == 11)
            e.enabled = !total;
        else
            e.enabled = true;
        if (!e.enabled)
            e.checked = false;
    }
    mnuVisual(12).visible = m_mb.ModeloNuevo != 0;
}

void EditorEtiqueta::prepararDerecho()
{
    const int tamano = tamanoDe(CampoActivo);
    for (int k = 0; k <= 3; ++k) {
        mnuDer(k).checked = tamano == k;
        mnuDer(k).enabled =
            !((CampoActivo == 16 && k > 0) || ((CampoActivo == 15 || CampoActivo == 20) && k >= 2));
    }
    mnuDer(4).checked = false;
    mnuDer(4).enabled = true;
}

void EditorEtiqueta::clicMnuDES(int i)
{
    if (!mnuDES(i).checked) {
        PosicionarCampo(i + 1);
    } else {
        InicializarCampo(m_mb, i + 1);
        superficie.Imagen(i + 1).visible = false;
    }
    m_mb.Modificado = true;
    // The next placement starts from the corner until the next right press.
    m_mb.NuevoCampoHor = 0;
    m_mb.NuevoCampoVer = 0;
}

void EditorEtiqueta::clicMnuVisual(int k)
{
    if (k == 13) {
        m_mb.TXLCambiado.fill(false);
        m_view.mostrarTXL();
        for (int i = 1; i <= 15; ++i) {
            const int f = campoDeTextoLibre(i);
            if (m_mb.TextoLibre(i - 1).isEmpty()) {
                InicializarCampo(m_mb, f);
                m_mb.TXLPendiente(i) = false;
                m_mb.TXLCambiado(i) = false;
            }
            // All go to the same point unless the limits push them apart.
            if (m_mb.TXLCambiado(i))
                PosicionarCampo(f);
        }
    } else {
        const int f = entradaVisual(k).campo;
        if (mnuVisual(k).checked) {
            InicializarCampo(m_mb, f);
            superficie.Imagen(f).visible = false;
            if (f == 11 && m_mb.PesoAproximado)
                superficie.Imagen(0).visible = false;
        } else if (m_mb.Campos(f).Presente == "0") {
            m_mb.Campos(f).Presente = "1";
            m_mb.Campos(f).Tamano = "0";
            PosicionarCampo(f);
            if (f == 11) {
                if (m_mb.PesoAproximado)
                    sigueCompanero();
                superficie.Imagen(0).visible = m_mb.PesoAproximado;
            }
        }
    }
    m_mb.Modificado = true;
    m_mb.NuevoCampoHor = 0;
    m_mb.NuevoCampoVer = 0;
}

void EditorEtiqueta::clicMnuDer(int k)
{
    if (k == 4) {
        InicializarCampo(m_mb, CampoActivo);
        if (CampoActivo == 11 && m_mb.PesoAproximado)
            superficie.Imagen(0).visible = false;
        m_mb.Modificado = true;
        CargarImagen();
        return;
    }
    if (k != tamanoDe(CampoActivo))
        m_mb.Modificado = true;
    TamanoImagen(CampoActivo, k);
}

void EditorEtiqueta::pulsarTXF(int n, BotonRaton boton)
{
    if (boton != BotonRaton::Derecho)
        return;
    // Disabled and enabled again, to drop the press.
    superficie.lblTXF(n).enabled = true;
    TXFActivo = static_cast<int16_t>(n);
    mnuDerTXFborrar.enabled = !m_mb.TextoFijo(n - 1).isEmpty();
    m_view.abrirMenu(MenuEmergente::Derecho2);
}

void EditorEtiqueta::clicMnuDerTXFEdit()
{
    m_view.mostrarTXF(TXFActivo);
    // The labels show the lines the dialog left.
    for (int i = 1; i <= 2; ++i)
        captionTXF(i);
}

void EditorEtiqueta::clicMnuDerTXFborrar()
{
    m_mb.TextoFijo(TXFActivo - 1).clear();
    captionTXF(TXFActivo);
}

void EditorEtiqueta::clicMnuEtiquetaPeso()
{
    Caja& companero = superficie.Imagen(0);
    if (m_mb.PesoAproximado) {
        mnuEtiquetaPesoChecked = false;
        m_mb.PesoAproximado = false;
        companero.visible = false;
    } else {
        mnuEtiquetaPesoChecked = true;
        m_mb.PesoAproximado = true;
        if (superficie.Imagen(11).visible) {
            sigueCompanero();
            companero.visible = true;
        } else {
            companero.visible = false;
        }
    }
}
