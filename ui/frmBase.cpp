#include "frmBase.h"

#include "Arranque.h"
#include "Catalogo.h"
#include "CatalogoCampos.h"
#include "Cuadro.h"
#include "Dialogos.h"
#include "FileSystem.h"
#include "frmCargaTXL.h"
#include "frmVistaPrevia.h"
#include "Iconos.h"
#include "ModBase.h"
#include "Recuperacion.h"
#include "TraduccionQt.h"

#include <algorithm>
#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QDateTime>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

using Escala::px;

namespace {

// The surface's side is placed in window millimetres: the left margin of
// the window's content, the rulers' thickness.
constexpr double kPaletaLeftMm = 240 / Escala::kTwipsPorMm;
constexpr double kReglaMm = 4.5;

// The tool bar: 25 places, the buttons at these, separators between.
struct BotonToolbar {
    int indice;
    const char* clave;
    int textId; // 0: the tip is the label's size, written on the button
};
constexpr BotonToolbar kBotones[] = {
    {1, "Nueva", 1312},         {3, "Abrir", 1311},     {4, "Guardar", 1313},
    {6, "Enviar", 43},          {8, "Salir", 7},        {12, "AjusteIzda", 1334},
    {13, "AjusteArriba", 1335}, {16, "JustIzda", 1331}, {17, "JustCentr", 1332},
    {18, "JustDcha", 1333},     {21, "Eti45", 0},       {22, "Eti60", 0},
    {25, "Convertir", 1340},
};

} // namespace

void CasillaModelo::mousePressEvent(QMouseEvent* e)
{
    if (e->button() == Qt::LeftButton && alPulsar)
        alPulsar();
    e->accept();
}

void CasillaModelo::mouseReleaseEvent(QMouseEvent* e)
{
    e->accept();
}

void CasillaModelo::mouseMoveEvent(QMouseEvent* e)
{
    e->accept();
}

void CasillaModelo::keyPressEvent(QKeyEvent* e)
{
    // The space bar is the same press as the mouse's.
    if (e->key() == Qt::Key_Space && !e->isAutoRepeat()) {
        if (alPulsar)
            alPulsar();
        e->accept();
        return;
    }
    // Past the button's own keys: the box never ticks itself.
    QWidget::keyPressEvent(e); // NOLINT(bugprone-parent-virtual-call)
}

void EtiquetaTextoFijo::mousePressEvent(QMouseEvent* e)
{
    if (alPulsar)
        alPulsar(e->button());
    e->accept();
}

frmBase::frmBase(ModBase& mb, UserInteraction& ui, QWidget* parent)
    : QMainWindow(parent), m_mb(mb), m_ui(ui), m_files(mb, ui, *this),
      m_editor(mb, ui, m_files, *this, *this), m_historial(mb, m_files, *this)
{
    setObjectName(QStringLiteral("frmBase"));
    traducirQt(m_mb, m_mb.Idioma);
    // The background is loaded once, with the surface below, which also
    // reports a picture it cannot read.
    const int minimo = cargaBase(m_mb, m_ui, [](const QString&) { return true; });
    m_editor.superficie.Imagen(0).visible = false;
    m_editor.PaintFormLoad();
    construirMenus();
    construirEmergentes();
    construirTeclado();
    if (QAction* idioma = menuIdioma(m_mb.Idioma))
        idioma->setChecked(true);
    construirToolbar();
    construirLienzo();
    m_vista = VistaVentana::leer(rutaVista());
    if (m_vista.zoom > 0)
        m_cuadro->setZoom(m_vista.zoom);
    m_mnuAjustar->setChecked(m_vista.ajustada);
    m_editor.cargarVentana(minimo);
    m_historial.reiniciar();
    refresh();
    // From here on the work in hand outlives what the program does not foresee.
    recuperacion::registrar(
        m_mb, [this] { return m_files.GuardarRecuperacion(QDateTime::currentDateTime()); });
}

frmBase::~frmBase()
{
    recuperacion::retirar();
}

QAction* frmBase::entrada(QMenu* menu, const char* nombre, int textId, bool puntos,
                          const QKeySequence& atajo)
{
    QAction* a = menu->addAction(QString());
    a->setObjectName(QString::fromLatin1(nombre));
    if (!atajo.isEmpty())
        a->setShortcut(atajo);
    m_entradas.append({a, textId, puntos});
    return a;
}

void frmBase::orden(const std::function<void()>& f)
{
    // The command refreshes the window itself where it must (every load
    // does), and the boxes keep the places it gave them. A dialog of the
    // label that stood over the window leaves it to be drawn anew, by the
    // whole repaint, once the command is over.
    // The history takes the label once it is drawn: the repaint after a
    // dialog places the fields the dialog left pending.
    m_dialogoCerrado = false;
    f();
    if (m_dialogoCerrado) {
        refresh();
        m_historial.registrar();
        mostrarEdicion();
    } else {
        m_historial.registrar();
        mostrar();
    }
    m_dialogoCerrado = false;
}

void frmBase::construirMenus()
{
    QMenuBar* bar = menuBar();
    const auto menu = [&](const char* nombre, int textId) {
        QMenu* m = bar->addMenu(QString());
        m->setObjectName(QString::fromLatin1(nombre));
        m_menus.append({m, textId});
        return m;
    };

    QMenu* archivo = menu("mnuArchivo", 1292);
    QAction* cargar =
        entrada(archivo, "mnuArchivoCargar", 1296, true, QKeySequence(Qt::CTRL | Qt::Key_O));
    connect(cargar, &QAction::triggered, this, [this] { orden([this] { m_files.Abrir_Eti(); }); });
    QAction* guardar =
        entrada(archivo, "mnuArchivoGuardar", 1297, false, QKeySequence(Qt::CTRL | Qt::Key_S));
    connect(guardar, &QAction::triggered, this, [this] { orden([this] { m_files.Guardar(); }); });
    QAction* guardarComo = entrada(archivo, "mnuArchivoGuardarComo", 1298, true);
    connect(guardarComo, &QAction::triggered, this,
            [this] { orden([this] { m_files.GuardaEtiComo(); }); });
    archivo->addSeparator();
    QAction* salir = entrada(archivo, "mnuArchivoSalir", 1299, false);
    connect(salir, &QAction::triggered, this, &QWidget::close);

    QMenu* etiqueta = menu("mnuEtiqueta", 1293);
    QAction* nueva =
        entrada(etiqueta, "mnuEtiquetaNueva", 1301, true, QKeySequence(Qt::CTRL | Qt::Key_N));
    connect(nueva, &QAction::triggered, this, [this] { orden([this] { m_files.menuNueva(); }); });
    QAction* enviar = entrada(etiqueta, "mnuEtiquetaEnviar", 1302, true);
    connect(enviar, &QAction::triggered, this,
            [this] { orden([this] { mostrarFrmConfig(m_mb, m_ui, this); }); });
    etiqueta->addSeparator();
    // Their captions say what they would bring back; set at every showing.
    m_mnuDeshacer = etiqueta->addAction(QString());
    m_mnuDeshacer->setObjectName(QStringLiteral("mnuEtiquetaDeshacer"));
    m_mnuDeshacer->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    connect(m_mnuDeshacer, &QAction::triggered, this,
            [this] { orden([this] { m_historial.deshacer(); }); });
    m_mnuRehacer = etiqueta->addAction(QString());
    m_mnuRehacer->setObjectName(QStringLiteral("mnuEtiquetaRehacer"));
    m_mnuRehacer->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    connect(m_mnuRehacer, &QAction::triggered, this,
            [this] { orden([this] { m_historial.rehacer(); }); });
    etiqueta->addSeparator();
    QAction* vista =
        entrada(etiqueta, "mnuEtiquetaVista", 450, false, QKeySequence(Qt::CTRL | Qt::Key_P));
    connect(vista, &QAction::triggered, this, [this] {
        frmVistaPrevia preview(m_mb, this);
        preview.exec();
    });
    etiqueta->addSeparator();
    m_mnuEtiquetaPeso = entrada(etiqueta, "mnuEtiquetaPeso", 1300, false);
    m_mnuEtiquetaPeso->setCheckable(true);
    connect(m_mnuEtiquetaPeso, &QAction::triggered, this,
            [this] { orden([this] { m_editor.clicMnuEtiquetaPeso(); }); });

    QMenu* ver = menu("mnuVer", 2210);
    QAction* acercar = entrada(ver, "mnuVerAcercar", 2211, false);
    acercar->setShortcuts({QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    connect(acercar, &QAction::triggered, this,
            [this] { fijarZoom(Zoom::acercar(m_cuadro->zoom())); });
    QAction* alejar = entrada(ver, "mnuVerAlejar", 2212, false);
    alejar->setShortcuts(QKeySequence::ZoomOut);
    connect(alejar, &QAction::triggered, this,
            [this] { fijarZoom(Zoom::alejar(m_cuadro->zoom())); });
    QAction* real = entrada(ver, "mnuVerReal", 2213, false, QKeySequence(Qt::CTRL | Qt::Key_0));
    connect(real, &QAction::triggered, this, [this] { fijarZoom(1); });
    m_mnuAjustar = entrada(ver, "mnuVerAjustar", 2214, false);
    m_mnuAjustar->setCheckable(true);
    connect(m_mnuAjustar, &QAction::triggered, this, [this](bool on) { fijarAjustada(on); });

    QMenu* fondo = menu("mnuFondo", 1294);
    QAction* agregar = entrada(fondo, "mnuFondoAgregar", 1303, true);
    connect(agregar, &QAction::triggered, this,
            [this] { orden([this] { m_editor.fondo.mnuFondoAgregar(); }); });
    QAction* eliminar = entrada(fondo, "mnuFondoEliminar", 1304, false);
    connect(eliminar, &QAction::triggered, this,
            [this] { orden([this] { m_editor.fondo.mnuFondoEliminar(); }); });
    fondo->addSeparator();
    m_mnuFondoParrilla = entrada(fondo, "mnuFondoParrilla", 1326, false);
    m_mnuFondoParrilla->setCheckable(true);
    connect(m_mnuFondoParrilla, &QAction::triggered, this,
            [this] { orden([this] { m_editor.fondo.mnuFondoParrilla(); }); });

    QMenu* idiomas = menu("mnuId", 1295);
    m_idiomas = new QActionGroup(this);
    m_idiomas->setExclusive(true);
    for (int i = 1; i <= 8; ++i) {
        QAction* a = idiomas->addAction(captionIdioma(i));
        a->setObjectName(QStringLiteral("mnuIdioma%1").arg(i));
        a->setCheckable(true);
        a->setData(i);
        m_idiomas->addAction(a);
        connect(a, &QAction::triggered, this, [this, i] {
            CambiarIdioma(m_mb, static_cast<int16_t>(i), *this);
            traducirQt(m_mb, m_mb.Idioma);
        });
    }

    QAction* acerca = bar->addAction(QString());
    acerca->setObjectName(QStringLiteral("mnuAcerca"));
    m_entradas.append({acerca, 296, false});
    connect(acerca, &QAction::triggered, this, [this] {
        if (m_acerca)
            m_acerca();
    });
}

void frmBase::construirEmergentes()
{
    // The pop-ups of the surface: on no menu bar, opened by the editor.
    m_mnuVisualiza = new QMenu(this);
    m_mnuVisualiza->setObjectName(QStringLiteral("mnuVisualiza"));
    m_mnuDESC = m_mnuVisualiza->addMenu(QString());
    m_mnuDESC->setObjectName(QStringLiteral("mnuDESC"));
    m_menus.append({m_mnuDESC, 81});
    for (int i = 0; i <= 9; ++i) {
        QAction* a = m_mnuDESC->addAction(QString());
        a->setObjectName(QStringLiteral("mnuDES%1").arg(i));
        a->setCheckable(true);
        connect(a, &QAction::triggered, this,
                [this, i] { orden([this, i] { m_editor.clicMnuDES(i); }); });
        m_mnuDES[i] = a;
    }
    for (int k = 0; k <= 13; ++k) {
        QAction* a = m_mnuVisualiza->addAction(QString());
        a->setObjectName(QStringLiteral("mnuVisual%1").arg(k));
        a->setCheckable(k != 13);
        m_entradas.append({a, entradaVisual(k).textId, false});
        connect(a, &QAction::triggered, this,
                [this, k] { orden([this, k] { m_editor.clicMnuVisual(k); }); });
        m_mnuVisual[k] = a;
    }

    m_mnuDerecho = new QMenu(this);
    m_mnuDerecho->setObjectName(QStringLiteral("mnuDerecho"));
    const int tamanos[5] = {1225, 1318, 1319, 1320, 38};
    for (int k = 0; k <= 4; ++k) {
        QAction* a = m_mnuDerecho->addAction(QString());
        a->setObjectName(QStringLiteral("mnuDer%1").arg(k));
        a->setCheckable(k != 4);
        m_entradas.append({a, tamanos[k], false});
        connect(a, &QAction::triggered, this,
                [this, k] { orden([this, k] { m_editor.clicMnuDer(k); }); });
        m_mnuDer[k] = a;
    }

    m_mnuDerecho2 = new QMenu(this);
    m_mnuDerecho2->setObjectName(QStringLiteral("mnuDerecho2"));
    QAction* editar = m_mnuDerecho2->addAction(QString());
    editar->setObjectName(QStringLiteral("mnuDerTXFEdit"));
    m_entradas.append({editar, 36, false});
    connect(editar, &QAction::triggered, this,
            [this] { orden([this] { m_editor.clicMnuDerTXFEdit(); }); });
    m_mnuDerTXFborrar = m_mnuDerecho2->addAction(QString());
    m_mnuDerTXFborrar->setObjectName(QStringLiteral("mnuDerTXFborrar"));
    m_entradas.append({m_mnuDerTXFborrar, 38, false});
    connect(m_mnuDerTXFborrar, &QAction::triggered, this,
            [this] { orden([this] { m_editor.clicMnuDerTXFborrar(); }); });

    m_mnuOcultar = new QMenu(this);
    m_mnuOcultar->setObjectName(QStringLiteral("mnuOcultar"));
    m_mnuBandas = m_mnuOcultar->addAction(QString());
    m_mnuBandas->setObjectName(QStringLiteral("mnuBandas"));
    connect(m_mnuBandas, &QAction::triggered, this,
            [this] { orden([this] { m_editor.clicMnuBandas(); }); });
}

void frmBase::construirToolbar()
{
    m_toolbar = addToolBar(QString());
    m_toolbar->setObjectName(QStringLiteral("Toolbar1"));
    m_toolbar->setMovable(false);
    m_toolbar->setIconSize(QSize(24, 24));
    const std::pair<const char*, std::function<void()>> ordenes[] = {
        // The button does not run Actualiza: the new label's dialog does what is needed.
        {"Nueva", [this] { m_files.NuevoConjunto(); }},
        {"Abrir", [this] { m_files.Abrir_Eti(); }},
        {"Guardar", [this] { m_files.Guardar(); }},
        {"Enviar", [this] { mostrarFrmConfig(m_mb, m_ui, this); }},
        {"Salir", [this] { close(); }},
        {"AjusteIzda", [this] { m_editor.AjustarIzda(); }},
        {"AjusteArriba", [this] { m_editor.AjustarArriba(); }},
        {"JustIzda", [this] { m_editor.Alinear(0); }},
        {"JustCentr", [this] { m_editor.Alinear(1); }},
        {"JustDcha", [this] { m_editor.Alinear(2); }},
        {"Eti45", [this] { m_editor.botonEti45(); }},
        {"Eti60", [this] { m_editor.botonEti60(); }},
        {"Convertir", [this] { m_files.Convertir(); }},
    };
    int anterior = 0;
    for (const BotonToolbar& b : kBotones) {
        if (b.indice > anterior + 1)
            m_toolbar->addSeparator();
        anterior = b.indice;
        const QString clave = QString::fromLatin1(b.clave);
        QAction* a = m_toolbar->addAction(iconoToolbar(clave), QString());
        a->setObjectName(clave);
        if (b.textId != 0)
            m_tips.append({a, b.textId});
        else
            a->setToolTip(clave.mid(3) + QStringLiteral("x57"));
        if (clave == QLatin1String("Convertir"))
            m_convertir = a;
        for (const auto& [nombre, f] : ordenes) {
            if (clave == QLatin1String(nombre)) {
                if (clave == QLatin1String("Salir"))
                    connect(a, &QAction::triggered, this, &QWidget::close);
                else
                    connect(a, &QAction::triggered, this, [this, g = f] { orden(g); });
            }
        }
    }
}

void frmBase::construirLienzo()
{
    // Everything below the tool bar scrolls, so the window fits any screen;
    // on the usual ones it is all in sight at once.
    m_area = new QScrollArea(this);
    m_area->setObjectName(QStringLiteral("areaLienzo"));
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setWidgetResizable(true);
    setCentralWidget(m_area);
    m_lienzo = new QWidget;
    m_lienzo->setObjectName(QStringLiteral("lienzo"));
    m_area->setWidget(m_lienzo);

    // Two columns: the boxes and the palette, laid out by their captions'
    // own sizes in whatever language; and the surface with its rulers, label
    // line and fixed texts, placed by the surface's size.
    auto* fila = new QHBoxLayout(m_lienzo);
    fila->setContentsMargins(px(kPaletaLeftMm), px(1), px(2), px(1));
    fila->setSpacing(px(5));
    auto* izquierda = new QVBoxLayout;
    izquierda->setSpacing(px(1));
    fila->addLayout(izquierda);
    m_zonaCuadro = new QWidget(m_lienzo);
    m_zonaCuadro->setObjectName(QStringLiteral("zonaCuadro"));
    fila->addWidget(m_zonaCuadro, 1, Qt::AlignLeft | Qt::AlignTop);

    const auto caption = [&](const char* nombre) {
        auto* l = new QLabel(m_lienzo);
        l->setObjectName(QString::fromLatin1(nombre));
        izquierda->addWidget(l);
        return l;
    };
    const auto valor = [&](const char* nombre) {
        auto* t = new QLineEdit(m_lienzo);
        t->setObjectName(QString::fromLatin1(nombre));
        t->setReadOnly(true);
        t->setAlignment(Qt::AlignCenter);
        t->setFixedWidth(px(10));
        return t;
    };
    const auto flechas = [&](const char* nombre) {
        auto* vs = new QScrollBar(Qt::Vertical, m_lienzo);
        vs->setObjectName(QString::fromLatin1(nombre));
        vs->setFixedSize(px(4), px(8));
        vs->setTracking(false);
        return vs;
    };

    m_TxtNombre = caption("TxtNombre");
    m_TxtNomEtiq = new QLineEdit(m_lienzo);
    m_TxtNomEtiq->setObjectName(QStringLiteral("TxtNomEtiq"));
    m_TxtNomEtiq->setMaxLength(7);
    m_TxtNomEtiq->setFixedWidth(px(30));
    m_TxtNombre->setBuddy(m_TxtNomEtiq);
    m_TxtNomEtiq->installEventFilter(this);
    izquierda->addWidget(m_TxtNomEtiq);
    connect(m_TxtNomEtiq, &QLineEdit::textEdited, this, [this](const QString& t) {
        m_files.cambioNombre(t);
        m_historial.registrar();
        m_lblNombre->setText(m_files.controles.lblNombre);
        mostrarEdicion();
    });
    izquierda->addSpacing(px(1.5));

    m_TxtEtiq = caption("TxtEtiq");
    m_TxtNumEtiq = valor("TxtNumEtiq");
    m_VSEtiq = flechas("VSEtiq");
    m_VSEtiq->setMaximum(5);
    m_TxtEtiq->setBuddy(m_TxtNumEtiq);
    // A thumb dragged along changes the label once, where it is let go.
    m_VSEtiq->setTracking(false);
    connect(m_VSEtiq, &QScrollBar::valueChanged, this, [this](int v) {
        // A press on an arrow is one step. The scroll bar lets go of the
        // mouse at once, and the step is taken once its change is over: a
        // question asked while it held the button would keep the release
        // from it, and its auto-repeat would step on and ask again.
        QMouseEvent suelta(QEvent::MouseButtonRelease, QPointF(), QPointF(), Qt::LeftButton,
                           Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_VSEtiq, &suelta);
        QMetaObject::invokeMethod(
            this,
            [this, v] {
                // A step overtaken by the selector being put back is void.
                if (m_VSEtiq->value() == v && m_files.controles.VSEtiq != v)
                    orden([this, v] { m_files.cambioEtiqueta(v); });
            },
            Qt::QueuedConnection);
    });
    auto* numero = new QHBoxLayout;
    numero->setSpacing(px(0.5));
    numero->addWidget(m_TxtNumEtiq);
    numero->addWidget(m_VSEtiq);
    numero->addStretch(1);
    izquierda->addLayout(numero);
    izquierda->addSpacing(px(1.5));

    // The two sizes: caption, value, arrows; the rows apart, so that the
    // arrows of one do not touch those of the other.
    auto* tamanos = new QGridLayout;
    tamanos->setHorizontalSpacing(px(1));
    tamanos->setVerticalSpacing(px(1.5));
    const auto tamano = [&](int fila, const char* nombre, const char* nombreValor,
                            const char* nombreBarra, QLabel*& lbl, QLineEdit*& txt,
                            QScrollBar*& vs) {
        lbl = new QLabel(m_lienzo);
        lbl->setObjectName(QString::fromLatin1(nombre));
        txt = valor(nombreValor);
        vs = flechas(nombreBarra);
        vs->setPageStep(20);
        lbl->setBuddy(txt);
        tamanos->addWidget(lbl, fila, 0);
        tamanos->addWidget(txt, fila, 1);
        tamanos->addWidget(vs, fila, 2);
    };
    tamano(0, "TxtHor", "TxtValorHor", "VSHor", m_TxtHor, m_TxtValorHor, m_VSHor);
    m_VSHor->setRange(25, 57);
    m_VSHor->setValue(m_editor.superficie.VSHor);
    tamano(1, "TxtVer", "TxtValorVer", "VSVer", m_TxtVer, m_TxtValorVer, m_VSVer);
    m_VSVer->setRange(1, 99);
    m_VSVer->setValue(m_files.controles.VSVer);
    connect(m_VSVer, &QScrollBar::valueChanged, this,
            [this](int v) { orden([this, v] { m_editor.cambioVSVer(v); }); });
    tamanos->setColumnStretch(3, 1);
    izquierda->addLayout(tamanos);
    izquierda->addSpacing(px(1));

    m_ChkCompatibilidad = new CasillaModelo(QStringLiteral("Sirel V: 1X-Y??"), m_lienzo);
    m_ChkCompatibilidad->setObjectName(QStringLiteral("ChkCompatibilidad"));
    m_ChkCompatibilidad->alPulsar = [this] { orden([this] { m_editor.pulsarCompatibilidad(); }); };
    izquierda->addWidget(m_ChkCompatibilidad);
    izquierda->addSpacing(px(2));

    // The palette in two columns, in the order of the buttons' places.
    m_paleta = new QGridLayout;
    m_paleta->setSpacing(px(0.5));
    izquierda->addLayout(m_paleta);
    izquierda->addStretch(1);
    for (int i = 0; i <= 15; ++i) {
        QPushButton* b = new QPushButton(m_lienzo);
        b->setObjectName(QStringLiteral("CBDisplay%1").arg(i));
        b->setFocusPolicy(Qt::NoFocus);
        b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(b, &QPushButton::clicked, this,
                [this, i] { orden([this, i] { m_editor.pulsarCBDisplay(i); }); });
        m_CBDisplay[i] = b;
    }

    m_lblNombre = new QLabel(m_zonaCuadro);
    m_lblNombre->setObjectName(QStringLiteral("lblNombre"));
    QFont negrita = m_lblNombre->font();
    negrita.setBold(true);
    negrita.setPointSizeF(negrita.pointSizeF() * 1.2);
    m_lblNombre->setFont(negrita);

    m_reglaHor = new Regla(Qt::Horizontal, m_zonaCuadro);
    m_reglaVer = new Regla(Qt::Vertical, m_zonaCuadro);
    m_cuadro = new Cuadro(m_editor, m_fondo, m_zonaCuadro);
    m_cuadro->sobreCajaTexto = [this](const QPoint& g) { return sobreCajaTexto(g); };
    m_cuadro->alZoomRueda = [this](int pasos, const QPointF& donde) {
        const double antes = m_cuadro->zoom();
        double z = antes;
        for (int i = 0; i < std::abs(pasos); ++i)
            z = pasos > 0 ? Zoom::acercar(z) : Zoom::alejar(z);
        fijarZoom(z);
        // The point under the pointer stays under it, once the scroll area
        // has taken the new size.
        const QPoint desplazamiento = (donde * (m_cuadro->zoom() / antes) - donde).toPoint();
        QMetaObject::invokeMethod(
            this,
            [this, desplazamiento] {
                QScrollBar* h = m_area->horizontalScrollBar();
                QScrollBar* v = m_area->verticalScrollBar();
                h->setValue(h->value() + desplazamiento.x());
                v->setValue(v->value() + desplazamiento.y());
            },
            Qt::QueuedConnection);
    };
    m_cuadro->trasRaton = [this] {
        m_historial.registrar();
        mostrarEdicion();
        mostrarEstado();
    };

    for (int i = 0; i < 2; ++i) {
        EtiquetaTextoFijo* l = new EtiquetaTextoFijo(m_zonaCuadro);
        l->setObjectName(QStringLiteral("lblTXF%1").arg(i + 1));
        l->setFrameShape(QFrame::Panel);
        l->setFrameShadow(QFrame::Sunken);
        l->setAutoFillBackground(true);
        l->alPulsar = [this, i](Qt::MouseButton b) {
            m_editor.pulsarTXF(i + 1, b == Qt::RightButton  ? BotonRaton::Derecho
                                      : b == Qt::LeftButton ? BotonRaton::Izquierdo
                                                            : BotonRaton::Otro);
        };
        m_lblTXF[i] = l;
    }

    // The status panels, each as wide as its text and a gap.
    m_panelTipo = new QLabel(this);
    m_panelTipo->setObjectName(QStringLiteral("StatusBar1Panel1"));
    m_panelX = new QLabel(this);
    m_panelX->setObjectName(QStringLiteral("StatusBar1Panel2"));
    m_panelY = new QLabel(this);
    m_panelY->setObjectName(QStringLiteral("StatusBar1Panel3"));
    for (QLabel* l : {m_panelTipo, m_panelX, m_panelY}) {
        l->setMinimumWidth(px(25));
        l->setContentsMargins(px(1), 0, px(2), 0);
    }
    statusBar()->addWidget(m_panelTipo);
    statusBar()->addWidget(m_panelX);
    statusBar()->addWidget(m_panelY, 1);
    situarLienzo();
}

QString frmBase::rutaVista() const
{
    return fs::inProgramDir(m_mb, VistaVentana::nombreArchivo());
}

void frmBase::fijarZoom(double factor)
{
    m_vista.ajustada = false;
    m_mnuAjustar->setChecked(false);
    m_cuadro->setZoom(factor);
    aplicarZoom();
}

void frmBase::fijarAjustada(bool ajustada)
{
    m_vista.ajustada = ajustada;
    m_mnuAjustar->setChecked(ajustada);
    aplicarZoom();
}

void frmBase::aplicarZoom()
{
    situarLienzo();
    // The scroll area takes a larger surface: a zoom does not grow the window.
    if (m_ajustado)
        m_deseado = tamanoDeseado();
    m_vista.zoom = m_cuadro->zoom();
}

void frmBase::zoomAjustado()
{
    // The room right of the boxes and below the label line, less the
    // rulers and the fixed texts.
    const QSize vista = m_area->viewport()->size();
    const double ancho = vista.width() - m_zonaCuadro->x() - px(kReglaMm + 0.5) - px(3);
    const double alto = vista.height() - px(7.5 + kReglaMm) - px(3) - px(14) - px(2);
    const Superficie& s = m_editor.superficie;
    m_cuadro->setZoom(Zoom::ajustar(ancho, alto, s.anchoExterior / 2, s.largoRegla * 0.9));
}

void frmBase::situarLienzo()
{
    if (m_vista.ajustada)
        zoomAjustado();
    // The surface's side: label line, rulers, surface, the two fixed texts,
    // in window mm from the zone's corner.
    const Superficie& s = m_editor.superficie;
    const double porMm = m_cuadro->pxPorMm();
    const int izquierda = px(kReglaMm + 0.5);
    const int arriba = px(7.5 + kReglaMm);
    const int regla = px(kReglaMm);
    m_cuadro->ajustarTamano();
    m_cuadro->move(izquierda, arriba);
    const int anchoCuadro = m_cuadro->width();
    // The label line and the fixed texts keep their reading width at any zoom.
    const int anchoTextos = std::max(anchoCuadro, px(s.anchoExterior));
    m_lblNombre->setGeometry(izquierda, 0, anchoTextos, px(7));
    m_reglaHor->setGeometry(izquierda, arriba - regla, anchoCuadro, regla);
    m_reglaHor->setPaso(m_cuadro->pxPorUnidadHor());
    const int largoRegla = qRound(s.largoRegla * porMm);
    m_reglaVer->setGeometry(0, arriba, regla, largoRegla);
    m_reglaVer->setPaso(m_cuadro->pxPorUnidadVer());
    const int bajo = arriba + std::max(m_cuadro->height(), largoRegla) + px(3);
    for (int i = 0; i < 2; ++i)
        m_lblTXF[i]->setGeometry(izquierda, bajo + i * px(7), anchoTextos, px(6));
    m_zonaCuadro->setFixedSize(izquierda + anchoTextos + px(1), bajo + px(14));
    // The scroll area sizes the content anew, and its scroll bars with it.
    m_lienzo->layout()->activate();
    m_lienzo->updateGeometry();

    // The palette's visible buttons in the order of their places, down the
    // first column and then the second.
    QList<int> visibles;
    for (int i = 0; i <= 15; ++i) {
        m_paleta->removeWidget(m_CBDisplay[i]);
        if (m_editor.CBDisplay(i).visible)
            visibles.append(i);
    }
    std::stable_sort(visibles.begin(), visibles.end(), [this](int a, int b) {
        return m_editor.CBDisplay(a).top < m_editor.CBDisplay(b).top;
    });
    // Both columns as wide as the widest caption asks.
    int ancho = 0;
    for (QPushButton* b : m_CBDisplay)
        ancho = std::max(ancho, b->sizeHint().width() + px(2));
    for (QPushButton* b : m_CBDisplay)
        b->setMinimumWidth(ancho);
    const int filas = (visibles.size() + 1) / 2;
    for (int k = 0; k < visibles.size(); ++k)
        m_paleta->addWidget(m_CBDisplay[visibles.at(k)], k % filas, k / filas);
}

QSize frmBase::tamanoDeseado() const
{
    // Menu bar, tool bar and status bar above and below the content.
    const QSize chrome(0, menuBar()->sizeHint().height() + m_toolbar->sizeHint().height() +
                              statusBar()->sizeHint().height());
    // And the scroll area's own frame, which some styles draw (Windows').
    const int marco = 2 * m_area->frameWidth();
    return m_lienzo->minimumSizeHint() + chrome + QSize(marco, marco);
}

void frmBase::situarRecordada()
{
    QScreen* pantalla = screen();
    if (!pantalla)
        return;
    const QRect libre = pantalla->availableGeometry();
    const QRect marco = frameGeometry();
    const QSize bordes = marco.size() - size();
    resize(QSize(m_vista.ancho, m_vista.alto).boundedTo(libre.size() - bordes));
    traerDentro(libre);
    if (m_vista.maximizada)
        setWindowState(windowState() | Qt::WindowMaximized);
    m_deseado = tamanoDeseado();
}

bool frmBase::eventFilter(QObject* objeto, QEvent* event)
{
    // The name box keeps no undo of its own: its typing is a step of the
    // label's history, which Ctrl+Z and Ctrl+Y reach from there too.
    if (objeto == m_TxtNomEtiq && event->type() == QEvent::ShortcutOverride) {
        const auto* tecla = static_cast<QKeyEvent*>(event);
        const QKeySequence pulsada(tecla->keyCombination());
        for (const QAction* a : {m_mnuDeshacer, m_mnuRehacer})
            if (a->shortcuts().contains(pulsada))
                return true;
    }
    return QMainWindow::eventFilter(objeto, event);
}

void frmBase::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    if (m_vista.ajustada && m_cuadro) {
        situarLienzo();
        m_deseado = tamanoDeseado();
    }
}

void frmBase::ajustarAPantalla()
{
    // As large as the content asks, within the screen's free area less the
    // window's frame; the scroll area takes what does not fit.
    QScreen* pantalla = screen();
    if (!pantalla)
        return;
    const QRect libre = pantalla->availableGeometry();
    const QMargins marco = frameGeometry().isValid() && isVisible()
                               ? QMargins(geometry().left() - frameGeometry().left(),
                                          geometry().top() - frameGeometry().top(),
                                          frameGeometry().right() - geometry().right(),
                                          frameGeometry().bottom() - geometry().bottom())
                               : QMargins(8, 32, 8, 8);
    const QSize deseado = tamanoDeseado();
    const QSize maximo = libre.size().shrunkBy(marco);
    // Later it grows only when the content has grown (new captions, a
    // taller label), and never shrinks under the person.
    if (m_ajustado && deseado == m_deseado)
        return;
    m_deseado = deseado;
    const QSize nuevo = (m_ajustado ? size().expandedTo(deseado) : deseado).boundedTo(maximo);
    if (nuevo == size())
        return;
    resize(nuevo);
    if (isVisible())
        traerDentro(libre);
}

void frmBase::traerDentro(const QRect& libre)
{
    // Kept inside the free area; where it stands is otherwise the window
    // manager's choice.
    if (libre.contains(frameGeometry()))
        return;
    QRect r = frameGeometry();
    r.moveLeft(
        std::clamp(r.left(), libre.left(), std::max(libre.left(), libre.right() - r.width() + 1)));
    r.moveTop(
        std::clamp(r.top(), libre.top(), std::max(libre.top(), libre.bottom() - r.height() + 1)));
    move(r.topLeft());
}

bool frmBase::sobreCajaTexto(const QPoint& global) const
{
    // The boxes where a dragged field may be let go to no effect.
    for (const QWidget* w :
         std::initializer_list<const QWidget*>{m_TxtEtiq, m_TxtHor, m_TxtNombre, m_TxtNumEtiq,
                                               m_TxtValorHor, m_TxtValorVer, m_TxtVer})
        if (w->rect().contains(w->mapFromGlobal(global)))
            return true;
    return false;
}

QAction* frmBase::menuIdioma(int idioma) const
{
    for (QAction* a : m_idiomas->actions())
        if (a->data().toInt() == idioma)
            return a;
    return nullptr;
}

void frmBase::refresh()
{
    const TextTable& T = m_mb.Textos;
    const bool total = m_mb.TipoEtiqueta == "T";
    setWindowTitle(QStringLiteral("Korvo v") + versionPrograma());
    m_TxtNombre->setText(T(552));
    m_TxtHor->setText(T(1305));
    m_TxtVer->setText(T(1306));
    m_TxtEtiq->setText(total ? T(1310) : T(1317));

    // Palette and box captions, the boxes from their records, guide lines,
    // bands and fixed texts.
    m_editor.repintar();

    for (const auto& [menu, id] : m_menus)
        menu->setTitle(T(id));
    for (const Entrada& e : m_entradas)
        e.accion->setText(T(e.textId) + (e.puntos ? QStringLiteral("...") : QString()));
    for (int i = 0; i <= 9; ++i)
        m_mnuDES[i]->setText(QString::number(i + 1) + QLatin1Char(' ') + T(70));
    m_mnuBandas->setText(T(m_editor.mnuBandasTextId));
    for (const auto& [accion, id] : m_tips)
        accion->setToolTip(T(id));
    m_convertir->setToolTip(total ? T(1341) : T(1340));
    m_panelTipo->setText(total ? T(1310) : T(1317));
    m_files.completarLblNombre();
    nombresAccesibles();
    mostrar();
}

void frmBase::construirTeclado()
{
    // The arrows move the red selection one unit, five with Shift; Delete
    // takes it off. Without a selection the keys go to the focused widget.
    struct Tecla {
        const char* nombre;
        QKeySequence secuencia;
        int hor, ver;
    };
    const Tecla teclas[] = {
        {"teclaIzquierda", QKeySequence(Qt::Key_Left), -1, 0},
        {"teclaDerecha", QKeySequence(Qt::Key_Right), 1, 0},
        {"teclaArriba", QKeySequence(Qt::Key_Up), 0, -1},
        {"teclaAbajo", QKeySequence(Qt::Key_Down), 0, 1},
        {"teclaIzquierda5", QKeySequence(Qt::SHIFT | Qt::Key_Left), -5, 0},
        {"teclaDerecha5", QKeySequence(Qt::SHIFT | Qt::Key_Right), 5, 0},
        {"teclaArriba5", QKeySequence(Qt::SHIFT | Qt::Key_Up), 0, -5},
        {"teclaAbajo5", QKeySequence(Qt::SHIFT | Qt::Key_Down), 0, 5},
    };
    for (const Tecla& t : teclas) {
        auto* a = new QAction(this);
        a->setObjectName(QString::fromLatin1(t.nombre));
        a->setShortcut(t.secuencia);
        connect(a, &QAction::triggered, this, [this, h = t.hor, v = t.ver] {
            orden([this, h, v] { m_editor.moverSeleccion(h, v); });
        });
        addAction(a);
        m_teclasSeleccion.append(a);
    }
    auto* borrar = new QAction(this);
    borrar->setObjectName(QStringLiteral("teclaSuprimir"));
    borrar->setShortcut(QKeySequence(Qt::Key_Delete));
    connect(borrar, &QAction::triggered, this,
            [this] { orden([this] { m_editor.borrarSeleccion(); }); });
    addAction(borrar);
    m_teclasSeleccion.append(borrar);
}

void frmBase::mostrarEdicion()
{
    const bool seleccion = m_editor.haySeleccion();
    for (QAction* a : m_teclasSeleccion)
        a->setEnabled(seleccion);
    m_mnuDeshacer->setText(m_historial.captionDeshacer());
    m_mnuDeshacer->setEnabled(m_historial.puedeDeshacer());
    m_mnuRehacer->setText(m_historial.captionRehacer());
    m_mnuRehacer->setEnabled(m_historial.puedeRehacer());
}

void frmBase::mostrar()
{
    mostrarEdicion();
    m_mnuEtiquetaPeso->setChecked(m_editor.mnuEtiquetaPesoChecked);
    m_mnuFondoParrilla->setChecked(m_editor.fondo.parrilla);
    m_lblNombre->setText(m_files.controles.lblNombre);

    // The palette's shown buttons take the letters the menu bar leaves.
    QString ocupadas;
    for (const QAction* a : menuBar()->actions())
        if (const QChar c = letraMnemonico(a->text()); !c.isNull())
            ocupadas += c;
    QStringList captions;
    QList<int> visibles;
    for (int i = 0; i <= 15; ++i) {
        const BotonCBDisplay& b = m_editor.CBDisplay(i);
        m_CBDisplay[i]->setVisible(b.visible);
        if (b.visible) {
            captions.append(b.caption);
            visibles.append(i);
        } else {
            m_CBDisplay[i]->setText(b.caption);
        }
    }
    captions = conMnemonicos(captions, ocupadas);
    for (int k = 0; k < visibles.size(); ++k)
        m_CBDisplay[visibles.at(k)]->setText(captions.at(k));
    for (int i = 0; i < 2; ++i) {
        const ::EtiquetaTXF& l = m_editor.superficie.lblTXF(i + 1);
        m_lblTXF[i]->setText(l.caption);
        m_lblTXF[i]->setAlignment((l.centrado ? Qt::AlignHCenter : Qt::AlignLeft) |
                                  Qt::AlignVCenter);
        m_lblTXF[i]->setEnabled(l.enabled);
    }

    // The controls show what the commands left; setting them here is no
    // change of the person's, so nothing fires.
    {
        const ControlesBase& c = m_files.controles;
        if (m_TxtNomEtiq->text() != c.TxtNomEtiq)
            m_TxtNomEtiq->setText(c.TxtNomEtiq);
        const QSignalBlocker b1(m_VSEtiq);
        m_VSEtiq->setRange(c.VSEtiqMin, 5);
        m_VSEtiq->setValue(c.VSEtiq);
        m_TxtNumEtiq->setText(c.TxtNumEtiq);
        const QSignalBlocker b2(m_VSVer);
        m_VSVer->setValue(c.VSVer);
        m_TxtValorVer->setText(m_editor.superficie.TxtValorVer);
        m_TxtValorHor->setText(m_editor.superficie.TxtValorHor);
    }
    m_ChkCompatibilidad->setChecked(m_mb.ModeloNuevo != 0);
    situarLienzo();
    ajustarAPantalla();
    mostrarEstado();
    update();
    m_cuadro->update();
    m_reglaVer->update();
}

void frmBase::nombresAccesibles()
{
    // What a screen reader says for each control: a tool bar button's tip,
    // the caption beside a box or its arrows.
    for (QAction* a : m_toolbar->actions())
        if (QWidget* boton = m_toolbar->widgetForAction(a); boton && !a->isSeparator())
            boton->setAccessibleName(a->toolTip());
    const auto nombrar = [](QLabel* caption, std::initializer_list<QWidget*> controles) {
        for (QWidget* c : controles)
            c->setAccessibleName(caption->text());
    };
    nombrar(m_TxtNombre, {m_TxtNomEtiq});
    nombrar(m_TxtEtiq, {m_TxtNumEtiq, m_VSEtiq});
    nombrar(m_TxtHor, {m_TxtValorHor, m_VSHor, m_area->horizontalScrollBar()});
    nombrar(m_TxtVer, {m_TxtValorVer, m_VSVer, m_area->verticalScrollBar()});
    m_cuadro->setAccessibleName(m_panelTipo->text());
}

void frmBase::mostrarEstado()
{
    const Superficie& s = m_editor.superficie;
    m_panelX->setText(s.panelX.isEmpty() ? QStringLiteral("X: ") : s.panelX);
    m_panelY->setText(s.panelY.isEmpty() ? QStringLiteral("Y: ") : s.panelY);
}

void frmBase::abrirArchivo(const QString& ruta)
{
    orden([&] { m_files.abrirArchivo(ruta); });
}

void frmBase::mostrarCargaTXL()
{
    frmCargaTXL dialog(m_mb, isVisible() ? this : nullptr);
    dialog.exec();
    m_dialogoCerrado = true;
}

void frmBase::repintarCuadro()
{
    m_cuadro->update();
    mostrarEstado();
}

void frmBase::repintarVentana()
{
    refresh();
}

void frmBase::mostrarTXL()
{
    mostrarFrmTXL(m_mb, this);
    m_dialogoCerrado = true;
}

void frmBase::mostrarDES()
{
    mostrarFrmDES(m_mb, this);
    m_dialogoCerrado = true;
}

void frmBase::mostrarBorrar()
{
    mostrarFrmBorrar(m_mb, this);
    m_dialogoCerrado = true;
}

void frmBase::mostrarTXF(int numero)
{
    mostrarFrmTXF(m_mb, numero, this);
    m_dialogoCerrado = true;
}

void frmBase::abrirMenu(MenuEmergente menu)
{
    // The editor has prepared the entries; the menu shows them at the pointer.
    const auto aplicar = [](QAction* a, const EntradaMenu& e) {
        a->setVisible(e.visible);
        a->setEnabled(e.enabled);
        if (a->isCheckable())
            a->setChecked(e.checked);
    };
    QMenu* m = nullptr;
    switch (menu) {
    case MenuEmergente::Visualiza:
        for (int i = 0; i <= 9; ++i)
            aplicar(m_mnuDES[i], m_editor.mnuDES(i));
        for (int k = 0; k <= 13; ++k)
            aplicar(m_mnuVisual[k], m_editor.mnuVisual(k));
        m = m_mnuVisualiza;
        break;
    case MenuEmergente::Ocultar:
        m_mnuBandas->setText(m_mb.Textos(m_editor.mnuBandasTextId));
        m = m_mnuOcultar;
        break;
    case MenuEmergente::Derecho:
        for (int k = 0; k <= 4; ++k)
            aplicar(m_mnuDer[k], m_editor.mnuDer(k));
        m = m_mnuDerecho;
        break;
    case MenuEmergente::Derecho2:
        aplicar(m_mnuDerTXFborrar, m_editor.mnuDerTXFborrar);
        m = m_mnuDerecho2;
        break;
    }
    m->popup(QCursor::pos());
}

bool frmBase::cargar(const QString& ruta)
{
    if (ruta.isEmpty()) {
        m_fondo = Picture();
    } else if (!tryLoadPicture(ruta, m_fondo)) {
        return false;
    }
    if (m_cuadro)
        m_cuadro->update();
    return true;
}

void frmBase::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    // Once on the screen it is shown on, with its frame known.
    if (!m_ajustado) {
        if (m_vista.ancho > 0)
            situarRecordada();
        else
            ajustarAPantalla();
        m_ajustado = true;
    }
}

void frmBase::closeEvent(QCloseEvent* event)
{
    if (!m_files.consultaCierre()) {
        event->ignore();
        return;
    }
    event->accept();
    // The size to come back to is the one before a maximising. A file that
    // cannot be written leaves the next run at the defaults.
    const QSize normal = isMaximized() ? normalGeometry().size() : size();
    m_vista.ancho = normal.width();
    m_vista.alto = normal.height();
    m_vista.maximizada = isMaximized();
    m_vista.zoom = m_cuadro->zoom();
    m_vista.guardar(rutaVista());
    emit cerrado();
}
