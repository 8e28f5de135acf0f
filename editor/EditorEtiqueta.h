#pragma once

#include "BoundedArray.h"
#include "FondoSuperficie.h"
#include "Superficie.h"

#include <cstdint>
#include <QString>

struct ModBase;
struct BloquePreset;
class FileCommands;
class UserInteraction;

// The pop-up menus that the editor opens; the window shows them at the
// pointer and calls back the entry that was chosen.
enum class MenuEmergente {
    Visualiza, // mnuVisualiza, on a right press on the surface
    Ocultar,   // mnuOcultar, on a right press on the left band
    Derecho,   // mnuDerecho, the size menu of a field
    Derecho2,  // mnuDerecho2, the menu of a fixed text label
};

enum class BotonRaton { Izquierdo, Derecho, Otro };

// What the editor needs of the main window beyond the refresh of the file
// commands: the surface's repaint, the dialogs that the palette and the
// menus open (modal: when the call returns the dialog has closed and left
// its choice in the shared block), and the pop-up menus.
class EditorView {
public:
    virtual ~EditorView() = default;
    // The surface is drawn again from its model.
    virtual void repintarCuadro() = 0;
    // The window's whole repaint routine, at once: it runs `repintar`, which
    // puts every box where its record says.
    virtual void repintarVentana() = 0;
    virtual void mostrarTXL() = 0;           // frmTXL
    virtual void mostrarDES() = 0;           // frmDES
    virtual void mostrarBorrar() = 0;        // frmBorrar
    virtual void mostrarTXF(int numero) = 0; // frmTXF for fixed text line 1 or 2
    virtual void abrirMenu(MenuEmergente menu) = 0;
};

// A menu entry as it is prepared when its menu opens.
struct EntradaMenu {
    bool checked = false;
    bool enabled = true;
    bool visible = true;
};

// A palette button: its caption, whether it shows, and its top in window mm
// (the left and size are the same for all, kLeftTwips etc.).
struct BotonCBDisplay {
    QString caption;
    bool visible = true;
    double top = 0;
};

// The label editor without a screen: the surface model, the geometry of the
// boxes, the drag, alignment, presets, palette and pop-up menus. The window
// feeds it the mouse and draws `superficie`; every question goes through
// UserInteraction, the refresh through the file commands' Actualiza, and
// dialogs and menus through EditorView.
class EditorEtiqueta {
public:
    EditorEtiqueta(ModBase& mb, UserInteraction& ui, FileCommands& files, EditorView& view,
                   CargadorFondo& cargador);

    Superficie superficie;
    FondoSuperficie fondo;

    // --- the private state of the main window that the mouse works on
    int16_t CampoActivo = 1;
    int16_t AgarreHor = 0, AgarreVer = 0;
    int16_t PunteroHor = 0, PunteroVer = 0;
    bool FueraDeLimites = false;
    bool ArrastreGrupo = false;
    int16_t GrupoIzquierda = 0, GrupoArriba = 0, GrupoDerecha = 0, GrupoAbajo = 0;
    int16_t TXFActivo = 0;
    // A box is being dragged: between a left press on a field and its drop.
    bool arrastrando = false;
    // What the dragged box is over, and the pointer in surface units, which
    // the outline of the dragged box follows.
    enum class Bajo { Fuera, Superficie, Caja };
    Bajo arrastreSobre = Bajo::Fuera;
    double arrastreHor = 0, arrastreVer = 0;

    // --- menus and palette, as prepared when they open
    BoundedArray<EntradaMenu, 0, 9> mnuDES;
    BoundedArray<EntradaMenu, 0, 13> mnuVisual;
    BoundedArray<EntradaMenu, 0, 4> mnuDer;
    EntradaMenu mnuDerTXFborrar;
    bool mnuEtiquetaPesoChecked = false;
    int mnuBandasTextId = 1311;
    BoundedArray<BotonCBDisplay, 0, 15> CBDisplay;
    static constexpr double kPaletaLeftTwips = 240;
    static constexpr double kPaletaAnchoTwips = 2535;
    static constexpr double kPaletaAltoTwips = 307;

    // --- the window's load, once its controls stand: the surface, the name
    // box from the label, the empty set, the selector at the label's number
    // from `primera` on; the label counts as unchanged.
    void cargarVentana(int primera);
    // The mouse went down on the model check box: the switch, then the
    // palette laid out for the model and the fields the old model lacks
    // taken off the surface.
    void pulsarCompatibilidad();

    // --- surface (set-up, spin control, repaint)
    // The surface's part of the window's load, after the tool bar: size
    // from the spin controls, the background of cfg.ini, then VSVer takes
    // AnchoEtiqueta and the label counts as unchanged.
    void cargarSuperficie();
    // VSVer changed to `valor` (1..99).
    void cambioVSVer(int valor);
    // The surface's part of the window's repaint: the captions of the boxes
    // and of the palette from the catalogue, the palette by label kind, the
    // boxes from the records, guide lines, bands and fixed text labels. It
    // asks nothing and changes no label data.
    void repintar();
    void captionsCatalogo();
    // The value of the spin control that sets the surface's height.
    int VSVer() const;

    // --- geometry
    void TamanoImagen(int campo, int tamano);
    void MostrarCampo(int campo);
    void CargarImagen();

    // --- the mouse on the surface, at (x, y) in surface units, over box k
    // (k < 0: the bare surface). A left press on a box begins its drag.
    void pulsar(int k, BotonRaton boton, double x, double y);
    // The held box is moved over box k (k < 0: the bare surface), or off the
    // surface when `dentro` is false.
    void arrastrarA(bool dentro, int k, double x, double y);
    // The held box is let go there; off the surface, `sobreCajaTexto` says
    // whether it was over one of the window's text boxes.
    void soltarEn(bool dentro, int k, double x, double y, bool sobreCajaTexto);

    // --- placement and drag
    void pulsarCampo(int n, BotonRaton boton, double xTwips, double yTwips);
    void moverSobreCampo(); // the pointer moves over a field
    // estado 0 entering, 1 leaving, 2 moving; X and Y in surface units.
    void arrastrarSobreCuadro(int estado, double x, double y);
    // Over field box k, X and Y in twips relative to that box.
    void arrastrarSobreCampo(int k, double xTwips, double yTwips);
    void soltarEnCuadro(double x, double y);
    void soltarEnCampo(int k, double xTwips, double yTwips);
    void soltarEnCajaTexto();
    void dobleClicCampo(int n);
    void PosicionarCampo(int campo);
    void InicializarSituacion(int campo, int hor, int ver);

    // --- the keyboard, on the red selection
    bool haySeleccion() const;
    // The selected fields move together by (hor, ver) units, as far as a
    // drag could take them; a step the limits cut short is taken in part.
    void moverSeleccion(int hor, int ver);
    // The selected fields are taken off, as the size menu's delete does.
    void borrarSeleccion();

    // --- alignment
    void AjustarIzda();
    void AjustarArriba();
    void Alinear(int modo);

    // --- presets, and the tool bar's keys that ask first
    void Cargar45();
    void Cargar60();
    void botonEti45();
    void botonEti60();

    // --- palette and menus
    void PaintFormLoad();
    void pulsarCBDisplay(int indice);
    void ColocaDES();
    void ColocaTXL();
    // The caption of fixed text label i (1 or 2) from its text.
    void captionTXF(int i);
    void pulsarCuadro(BotonRaton boton, double x, double y);
    void prepararVisualiza();
    void prepararDerecho();
    void clicMnuDES(int i);
    void clicMnuVisual(int k);
    void clicMnuDer(int k);
    void pulsarTXF(int n, BotonRaton boton);
    void clicMnuDerTXFEdit();
    void clicMnuDerTXFborrar();
    void clicMnuEtiquetaPeso();
    void clicMnuBandas();

private:
    struct Rect {
        int16_t L, T, R, B;
    };
    // Whole surface units: the box may stand here while dragging.
    bool dentroDeLimites(const Rect& r, double limiteVertical) const;
    // Where the box would stand: the dragged field alone or the selection's
    // box, measured with box `w` (the dragged one over the surface, the one
    // under the pointer over a field).
    Rect cajaCandidata(const Caja& w) const;
    // The pointer over box k, as twips from its top left.
    double twipsHorEn(int k, double x) const;
    double twipsVerEn(int k, double y) const;
    // The surface's outer size, scale, ruler and guide lines follow VSVer.
    void ajustarSuperficie();
    // Places the fields that a dialog left pending, stacked at the left.
    struct Pendientes;
    void colocarPendientes(const Pendientes& p);
    void fijarLimites(bool permitido);
    void sigueCompanero();        // Imagen 0 under Imagen 11
    void soltar(int ultimoCampo); // what both drops share, on PunteroHor/Ver
    void colocarBandas();
    void ajustar(bool horizontal);
    void cargarPreset(const char* ancho, const BloquePreset* bloques, int n);
    int tamanoDe(int campo) const;
    int camposModelo() const;

    ModBase& m_mb;
    UserInteraction& m_ui;
    FileCommands& m_files;
    EditorView& m_view;
};
