#pragma once

#include "EditorEtiqueta.h"
#include "FileCommands.h"
#include "Historial.h"
#include "UserInteraction.h"
#include "Vista.h"

#include "Picture.h"

#include <functional>
#include <QCheckBox>
#include <QLabel>
#include <QMainWindow>

struct ModBase;
class Cuadro;
class QAction;
class QActionGroup;
class QGridLayout;
class QLineEdit;
class QMenu;
class QPushButton;
class QScrollArea;
class QScrollBar;
class QToolBar;
class Regla;

// The model check box: one press, one switch. The press asks and switches
// through the file commands, which then set the box from ModeloNuevo; the
// platform's own toggle on release would flip it a second time, so the box
// never toggles itself.
class CasillaModelo : public QCheckBox {
    Q_OBJECT
public:
    using QCheckBox::QCheckBox;
    std::function<void()> alPulsar;

protected:
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
};

// A fixed text label under the surface; a right press opens its menu.
class EtiquetaTextoFijo : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;
    std::function<void(Qt::MouseButton)> alPulsar;

protected:
    void mousePressEvent(QMouseEvent* e) override;
};

// The main window. It holds no caption of its own: every text is rewritten
// from the catalogue each time it is repainted, so a new language needs only
// a new load of the catalogue and a repaint. It holds no rule either: the
// file commands and the editor decide, the window shows their model and
// hands them the person's actions.
class frmBase : public QMainWindow, public BaseView, public EditorView, public CargadorFondo {
    Q_OBJECT
public:
    frmBase(ModBase& mb, UserInteraction& ui, QWidget* parent = nullptr);
    ~frmBase() override;

    // The repaint routine: captions, the editor's surface, then every
    // widget from the model. It asks nothing and changes no label data.
    void refresh() override;
    void mostrarCargaTXL() override;
    // Opens a set or label file by its path, as the Open command does.
    void abrirArchivo(const QString& ruta);

    void repintarCuadro() override;
    void repintarVentana() override;
    void mostrarTXL() override;
    void mostrarDES() override;
    void mostrarBorrar() override;
    void mostrarTXF(int numero) override;
    void abrirMenu(MenuEmergente menu) override;

    bool cargar(const QString& ruta) override;

    FileCommands& archivos() { return m_files; }
    EditorEtiqueta& editor() { return m_editor; }
    Historial& historial() { return m_historial; }
    Cuadro* cuadro() const { return m_cuadro; }
    const Picture& fondo() const { return m_fondo; }
    // Opens the about box (the splash without its timer).
    void setAcercaDe(std::function<void()> acerca) { m_acerca = std::move(acerca); }

    QAction* menuIdioma(int idioma) const;

    // The surface's zoom, a factor of its true size; `ajustada` makes it
    // follow the window's room.
    void fijarZoom(double factor);
    void fijarAjustada(bool ajustada);
    const VistaVentana& vista() const { return m_vista; }
    // Where the window's size and zoom are kept between runs.
    QString rutaVista() const;

signals:
    void cerrado();

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* objeto, QEvent* event) override;

private:
    struct Entrada {
        QAction* accion;
        int textId;
        bool puntos;
    };

    void construirMenus();
    void construirEmergentes();
    void construirToolbar();
    void construirLienzo();
    void situarLienzo();
    // The widgets show the model as the commands left it: no caption is
    // rewritten and no box is moved to its record.
    void mostrar();
    void mostrarEstado();
    // The undo and redo entries (what they would bring back, and whether)
    // and the keys that work on the selection.
    void mostrarEdicion();
    void construirTeclado();
    // The window's size: its content's, within the screen's free area.
    void ajustarAPantalla();
    QSize tamanoDeseado() const;
    // The remembered size, within the screen's free area and inside it.
    void situarRecordada();
    void traerDentro(const QRect& libre);
    // The zoom at which the surface fills the room the window gives it.
    void zoomAjustado();
    void aplicarZoom();
    void nombresAccesibles();
    // Runs a command, then shows what it left.
    void orden(const std::function<void()>& f);
    bool sobreCajaTexto(const QPoint& global) const;
    QAction* entrada(QMenu* menu, const char* nombre, int textId, bool puntos,
                     const QKeySequence& atajo = {});

    ModBase& m_mb;
    UserInteraction& m_ui;
    Picture m_fondo;
    FileCommands m_files;
    EditorEtiqueta m_editor;
    Historial m_historial;
    std::function<void()> m_acerca;
    // A dialog of the label was shown during the command that runs.
    bool m_dialogoCerrado = false;

    QList<Entrada> m_entradas;
    QList<QPair<QMenu*, int>> m_menus;
    QActionGroup* m_idiomas = nullptr;
    QAction* m_mnuEtiquetaPeso = nullptr;
    QAction* m_mnuFondoParrilla = nullptr;
    QAction* m_mnuDeshacer = nullptr;
    QAction* m_mnuRehacer = nullptr;
    QList<QAction*> m_teclasSeleccion;
    QAction* m_mnuAjustar = nullptr;
    VistaVentana m_vista;

    QMenu* m_mnuVisualiza = nullptr;
    QMenu* m_mnuDESC = nullptr;
    QAction* m_mnuDES[10] = {};
    QAction* m_mnuVisual[14] = {};
    QMenu* m_mnuDerecho = nullptr;
    QAction* m_mnuDer[5] = {};
    QMenu* m_mnuDerecho2 = nullptr;
    QAction* m_mnuDerTXFborrar = nullptr;
    QMenu* m_mnuOcultar = nullptr;
    QAction* m_mnuBandas = nullptr;

    QToolBar* m_toolbar = nullptr;
    QList<QPair<QAction*, int>> m_tips; // tool bar buttons and their text ids
    QAction* m_convertir = nullptr;

    QScrollArea* m_area = nullptr;
    QWidget* m_lienzo = nullptr;
    QWidget* m_zonaCuadro = nullptr;
    QGridLayout* m_paleta = nullptr;
    bool m_ajustado = false;
    QSize m_deseado; // the content's size at the last fitting
    Cuadro* m_cuadro = nullptr;
    Regla* m_reglaHor = nullptr;
    Regla* m_reglaVer = nullptr;
    QPushButton* m_CBDisplay[16] = {};
    QLabel* m_TxtNombre = nullptr;
    QLabel* m_TxtEtiq = nullptr;
    QLabel* m_TxtHor = nullptr;
    QLabel* m_TxtVer = nullptr;
    QLineEdit* m_TxtNomEtiq = nullptr;
    QScrollBar* m_VSEtiq = nullptr;
    QLineEdit* m_TxtNumEtiq = nullptr;
    QScrollBar* m_VSHor = nullptr;
    QLineEdit* m_TxtValorHor = nullptr;
    QScrollBar* m_VSVer = nullptr;
    QLineEdit* m_TxtValorVer = nullptr;
    CasillaModelo* m_ChkCompatibilidad = nullptr;
    QLabel* m_lblNombre = nullptr;
    EtiquetaTextoFijo* m_lblTXF[2] = {};
    QLabel* m_panelTipo = nullptr;
    QLabel* m_panelX = nullptr;
    QLabel* m_panelY = nullptr;
};
