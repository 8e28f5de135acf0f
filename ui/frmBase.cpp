#include "frmBase.h"

#include "Arranque.h"
#include "Catalogo.h"
#include "ModBase.h"
#include "frmCargaTXL.h"
#include "frmVistaPrevia.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QStatusBar>

namespace {

// The design surface as it stands until the editor draws on it: the label's
// 57 units across and its width down, with the margin bands.
class SuperficieProvisional : public QWidget {
public:
    SuperficieProvisional(const ModBase& mb, const Picture& fondo, QWidget* parent)
        : QWidget(parent), m_mb(mb), m_fondo(fondo)
    {
        setMinimumSize(640, 520);
        setObjectName(QStringLiteral("Cuadro"));
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        p.fillRect(rect(), palette().window());
        const qreal alto = m_mb.AnchoEtiqueta.toInt() > 0 ? m_mb.AnchoEtiqueta.toInt() : 45;
        const qreal escala = std::min((width() - 40) / 57.2, (height() - 40) / (alto + 0.3));
        p.translate(20, 20);
        p.scale(escala, escala);
        p.fillRect(QRectF(0, 0, 57.2, alto + 0.3), Qt::white);
        if (!m_fondo.isNull() && !m_mb.RutaFondo.isEmpty()) {
            // The picture stands at its own size from the surface's top left.
            p.save();
            p.setClipRect(QRectF(0, 0, 57.2, alto + 0.3));
            m_fondo.drawAtOwnSize(p, QPointF(0, 0), 1.0);
            p.restore();
        }
        if (m_mb.Sombreado == 1) {
            p.fillRect(QRectF(0, 0, 3, alto + 0.3), QColor(255, 192, 192));
            p.fillRect(QRectF(53.1, 0, 4.1, alto + 0.3), QColor(255, 192, 192));
        }
    }

private:
    const ModBase& m_mb;
    const Picture& m_fondo;
};

} // namespace

frmBase::frmBase(ModBase& mb, UserInteraction& ui, QWidget* parent)
    : QMainWindow(parent), m_mb(mb), m_ui(ui), m_files(mb, ui, *this)
{
    setObjectName(QStringLiteral("frmBase"));
    const int minimo = cargaBase(m_mb, m_ui, [this](const QString& ruta) { return tryLoadPicture(ruta, m_fondo); });
    m_files.IniciaLineas();
    m_files.controles.VSEtiqMin = minimo;
    m_files.controles.VSEtiq = std::max(minimo, m_mb.NumEtiqueta.toInt());
    m_files.controles.TxtNumEtiq = QString::number(m_files.controles.VSEtiq);
    construirMenus();
    setCentralWidget(new SuperficieProvisional(m_mb, m_fondo, this));
    m_panelTipo = new QLabel(this);
    m_panelTipo->setObjectName(QStringLiteral("StatusBar1Panel1"));
    statusBar()->addWidget(m_panelTipo);
    m_panelNombre = new QLabel(this);
    m_panelNombre->setObjectName(QStringLiteral("lblNombre"));
    statusBar()->addWidget(m_panelNombre, 1);
    if (QAction* idioma = menuIdioma(m_mb.Idioma))
        idioma->setChecked(true);
    refresh();
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

void frmBase::construirMenus()
{
    QMenuBar* bar = menuBar();
    const auto menu = [&](const char* nombre, int textId) {
        QMenu* m = bar->addMenu(QString());
        m->setObjectName(QString::fromLatin1(nombre));
        m_menus.append({m, textId});
        return m;
    };

    // The file and label commands are wired by the windows that hold them;
    // the entries stand here, in their order, from the start.
    QMenu* archivo = menu("mnuArchivo", 1292);
    QAction* cargar = entrada(archivo, "mnuArchivoCargar", 1296, true, QKeySequence(Qt::CTRL | Qt::Key_O));
    connect(cargar, &QAction::triggered, this, [this] { m_files.Abrir_Eti(); });
    QAction* guardar = entrada(archivo, "mnuArchivoGuardar", 1297, false, QKeySequence(Qt::CTRL | Qt::Key_S));
    connect(guardar, &QAction::triggered, this, [this] { m_files.Guardar(); });
    QAction* guardarComo = entrada(archivo, "mnuArchivoGuardarComo", 1298, true);
    connect(guardarComo, &QAction::triggered, this, [this] { m_files.GuardaEtiComo(); });
    archivo->addSeparator();
    QAction* salir = entrada(archivo, "mnuArchivoSalir", 1299, false);
    connect(salir, &QAction::triggered, this, &QWidget::close);

    QMenu* etiqueta = menu("mnuEtiqueta", 1293);
    QAction* nueva = entrada(etiqueta, "mnuEtiquetaNueva", 1301, true, QKeySequence(Qt::CTRL | Qt::Key_N));
    connect(nueva, &QAction::triggered, this, [this] {
        m_files.NuevoConjunto();
        m_files.Actualiza();
    });
    entrada(etiqueta, "mnuEtiquetaEnviar", 1302, true);
    etiqueta->addSeparator();
    QAction* vista = entrada(etiqueta, "mnuEtiquetaVista", 450, false, QKeySequence(Qt::CTRL | Qt::Key_P));
    connect(vista, &QAction::triggered, this, [this] {
        frmVistaPrevia preview(m_mb, this);
        preview.exec();
    });
    etiqueta->addSeparator();
    entrada(etiqueta, "mnuEtiquetaPeso", 1300, false);

    QMenu* fondo = menu("mnuFondo", 1294);
    entrada(fondo, "mnuFondoAgregar", 1303, true);
    entrada(fondo, "mnuFondoEliminar", 1304, false);
    fondo->addSeparator();
    entrada(fondo, "mnuFondoParrilla", 1326, false);

    QMenu* idiomas = menu("mnuId", 1295);
    m_idiomas = new QActionGroup(this);
    m_idiomas->setExclusive(true);
    for (int i = 1; i <= 8; ++i) {
        QAction* a = idiomas->addAction(captionIdioma(i));
        a->setObjectName(QStringLiteral("mnuIdioma%1").arg(i));
        a->setCheckable(true);
        a->setData(i);
        m_idiomas->addAction(a);
        connect(a, &QAction::triggered, this,
                [this, i] { CambiarIdioma(m_mb, static_cast<int16_t>(i), *this); });
    }

    QAction* acerca = bar->addAction(QString());
    acerca->setObjectName(QStringLiteral("mnuAcerca"));
    m_entradas.append({acerca, 296, true});
    connect(acerca, &QAction::triggered, this, [this] {
        if (m_acerca)
            m_acerca();
    });
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
    setWindowTitle(QStringLiteral("Korvo v") + versionPrograma());
    for (const auto& [menu, id] : m_menus)
        menu->setTitle(T(id));
    for (const Entrada& e : m_entradas)
        e.accion->setText(T(e.textId) + (e.puntos ? QStringLiteral("...") : QString()));
    m_panelTipo->setText(m_mb.TipoEtiqueta == "T" ? T(1310) : T(1317));
    // The label line is left as it is while the label has no name.
    if (!m_files.controles.TxtNomEtiq.isEmpty())
        m_files.controles.lblNombre = m_files.textoLblNombre(m_files.controles.TxtNomEtiq);
    m_panelNombre->setText(m_files.controles.lblNombre);
    update();
    if (centralWidget())
        centralWidget()->update();
}

void frmBase::mostrarCargaTXL()
{
    frmCargaTXL dialog(m_mb, isVisible() ? this : nullptr);
    dialog.exec();
}

void frmBase::closeEvent(QCloseEvent* event)
{
    if (!m_files.consultaCierre()) {
        event->ignore();
        return;
    }
    event->accept();
    emit cerrado();
}
