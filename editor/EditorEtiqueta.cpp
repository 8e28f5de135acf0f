#include "EditorEtiqueta.h"

#include "CatalogoCampos.h"
#include "CodePage.h"
#include "FileCommands.h"
#include "ModBase.h"
#include "Posicion.h"
#include "RuntimeError.h"

#include <algorithm>

using namespace Coordenadas;

EditorEtiqueta::EditorEtiqueta(ModBase& mb, UserInteraction& ui, FileCommands& files,
                               EditorView& view, CargadorFondo& cargador)
    : fondo(mb, ui, cargador), m_mb(mb), m_ui(ui), m_files(files), m_view(view)
{
    for (int i = 0; i <= 15; ++i)
        CBDisplay(i).caption = QString::fromUtf8(botonPaleta(i).caption);
    mnuEtiquetaPesoChecked = m_mb.PesoAproximado;
}

int EditorEtiqueta::camposModelo() const
{
    // Tested as the number 1: any other value is the old model here.
    return m_mb.ModeloNuevo == 1 ? 36 : 25;
}

int EditorEtiqueta::VSVer() const
{
    return m_files.controles.VSVer;
}

int EditorEtiqueta::tamanoDe(int campo) const
{
    // Read as a number: leading digits, else 0.
    return static_cast<int>(valorTextoPosicion(m_mb.Campos(campo).Tamano));
}

void EditorEtiqueta::ajustarSuperficie()
{
    Superficie& s = superficie;
    const int valor = VSVer();
    s.TxtValorVer = QString::number(valor);
    s.altoExterior = Single(mmDeUnidadesVer(valor));
    s.anchoExterior = Single(mmDeUnidadesHor(s.VSHor));
    s.largoRegla = Single(mmDeUnidadesVer(valor) + 1.0);
    s.altoEscala = Single(valor);
    s.anchoEscala = Single(s.VSHor);
    const Single fondoLineas = factorVertical() * valor;
    const Single izquierda(2.8), arriba(7.7);
    s.Line5 = {izquierda, arriba, izquierda, fondoLineas};
    s.Line6 = {izquierda, arriba, Single(53.1), arriba};
    s.Line7 = {Single(53), arriba, Single(53), fondoLineas};
}

void EditorEtiqueta::cargarSuperficie()
{
    ajustarSuperficie();
    fondo.cargarInicial();
    bool ok = false;
    const int ancho = m_mb.AnchoEtiqueta.toInt(&ok);
    if (!ok)
        throw RuntimeError::typeMismatch();
    cambioVSVer(ancho);
    m_mb.Modificado = false;
}

void EditorEtiqueta::cargarVentana(int primera)
{
    cargarSuperficie();
    if (!m_mb.NombreEtiqueta.isEmpty())
        m_files.cambioNombre(decodeFor(m_mb.Idioma, m_mb.NombreEtiqueta));
    m_mb.Modificado = false;
    m_files.IniciaLineas();
    ControlesBase& c = m_files.controles;
    c.VSEtiqMin = primera;
    c.VSEtiq = std::max(primera, m_mb.NumEtiqueta.toInt());
    c.TxtNumEtiq = QString::number(c.VSEtiq);
}

void EditorEtiqueta::pulsarCompatibilidad()
{
    if (!m_files.pulsarCompatibilidad())
        return;
    PaintFormLoad();
    for (int n = 26; n <= 36; ++n)
        MostrarCampo(n);
}

void EditorEtiqueta::cambioVSVer(int valor)
{
    if (valor < 1 || valor > 99)
        throw RuntimeError(380, QStringLiteral("Invalid property value"));
    m_files.controles.VSVer = valor;
    ajustarSuperficie();
    m_mb.AnchoEtiqueta = superficie.TxtValorVer.toLatin1();
    // The bands keep their length until next shown, and the boxes are
    // neither moved nor checked: a field may now stand below the edge.
    m_mb.Modificado = true;
}

void EditorEtiqueta::captionsCatalogo()
{
    const TextTable& T = m_mb.Textos;
    const QString blanco = QStringLiteral(" ");
    Superficie& s = superficie;
    for (int i = 0; i <= 15; ++i)
        CBDisplay(i).caption = T(botonPaleta(i).textId);
    // Both groups of free texts count from 1 on the surface: only one of
    // them is in use in any model.
    for (int n = 1; n <= 15; ++n) {
        Caja& c = s.Imagen(campoDeTextoLibre(n));
        c.caption = QString::number(n <= 5 ? n : n - 5) + blanco + T(1307);
        c.toolTip = c.caption;
    }
    for (int i = 1; i <= 10; ++i)
        s.Imagen(i).caption = QString::number(i) + blanco + T(70);
    const std::pair<int, int> fijos[] = {{11, 130},  {12, 74}, {15, 1314}, {16, 23},  {17, 1308},
                                         {18, 1309}, {19, 73}, {20, 1310}, {26, 1040}};
    for (const auto& [campo, id] : fijos)
        s.Imagen(campo).caption = T(id);

    // Fields 13 and 14 are one record in both kinds, under two names each.
    const bool total = m_mb.TipoEtiqueta == "T";
    s.Imagen(13).caption = T(total ? 133 : 71);
    s.Imagen(14).caption = T(total ? 488 : 132);
    CBDisplay(12).visible = !total;
    CBDisplay(13).visible = !total;
    CBDisplay(4).visible = total;
    CBDisplay(5).visible = total;
    CBDisplay(11).visible = total;
}

void EditorEtiqueta::colocarBandas()
{
    Superficie& s = superficie;
    const Single alto(VSVer() + 0.3);
    s.Shape2 = {Single(0), Single(0), Single(3), alto, true};
    s.Shape3 = {Single(53.1), Single(0), Single(4.1), alto, true};
}

void EditorEtiqueta::captionTXF(int i)
{
    const QByteArray& texto = m_mb.TextoFijo(i - 1);
    EtiquetaTXF& l = superficie.lblTXF(i);
    if (!texto.isEmpty() && texto != QByteArray(25, ' ')) {
        l.caption = decodeFor(m_mb.Idioma, texto);
        l.centrado = false;
    } else {
        l.caption = QString::number(i) + QStringLiteral(" ") + m_mb.Textos(1336);
        l.centrado = true;
    }
}

void EditorEtiqueta::repintar()
{
    Superficie& s = superficie;
    captionsCatalogo();
    CargarImagen();
    // The loads set VSVer without its change running; the surface follows
    // the value here, as the window's refresh does after every load.
    ajustarSuperficie();

    if (m_mb.Sombreado != 1) {
        s.Shape2.visible = false;
        s.Shape3.visible = false;
    } else {
        colocarBandas();
    }
    for (int i = 1; i <= 2; ++i)
        captionTXF(i);
}

void EditorEtiqueta::clicMnuBandas()
{
    if (m_mb.Sombreado != 1) {
        colocarBandas();
        m_mb.Sombreado = 1;
    } else {
        superficie.Shape2.visible = false;
        superficie.Shape3.visible = false;
        m_mb.Sombreado = 0;
    }
}
