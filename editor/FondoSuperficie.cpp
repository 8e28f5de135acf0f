#include "FondoSuperficie.h"

#include "FileSystem.h"
#include "ModBase.h"
#include "UserInteraction.h"

#include <QDir>

const QString FondoSuperficie::kFiltro = QStringLiteral(
    "All (*.bmp,*.ico,*.emf,*.wmf,*.jpg,*.jpeg)|*.bmp;*.ico;*.emf;*.wmf;*.jpg;*.jpeg|"
    "Bitmaps (*.bmp)|*.bmp|Icons (*.ico)|*.ico|Metafiles (*.emf, *.wmf)|*.emf;*.wmf|"
    "JPEG(*.jpg, *.jpeg)|*.jpg;*.jpeg");

FondoSuperficie::FondoSuperficie(ModBase& mb, UserInteraction& ui, CargadorFondo& cargador)
    : m_mb(mb), m_ui(ui), m_cargador(cargador)
{}

QString FondoSuperficie::rutaParrilla() const
{
    return fs::inDataDir(m_mb, QStringLiteral("res/parrilla.bmp"));
}

void FondoSuperficie::cargarRuta()
{
    if (m_cargador.cargar(m_mb.RutaFondo))
        return;
    m_ui.message(m_mb.Textos(1343) + QStringLiteral(" : ") + m_mb.Textos(222));
    // Forgotten, so that cfg.ini is not written with a picture that is not there.
    m_mb.RutaFondo.clear();
}

void FondoSuperficie::cargarInicial()
{
    // The mark is not restored: a grid kept in cfg.ini shows with its mark
    // off, and mnuFondoEliminar takes it away like any picture.
    if (!m_mb.RutaFondo.isEmpty())
        cargarRuta();
}

void FondoSuperficie::mnuFondoAgregar()
{
    FileDialogRequest dialogo;
    dialogo.filter = kFiltro;
    dialogo.filterIndex = 1;
    // A cancelled dialog gives an empty path, and loading it clears the
    // picture: cancelling removes what was shown.
    m_mb.RutaFondo = m_ui.openFile(dialogo);
    cargarRuta();
    parrilla = false;
}

void FondoSuperficie::mnuFondoEliminar()
{
    // The grid goes only by its own entry.
    if (parrilla)
        return;
    m_cargador.cargar(QString());
    m_mb.RutaFondo.clear();
}

void FondoSuperficie::mnuFondoParrilla()
{
    if (!parrilla) {
        // The mark stays on even when the grid cannot be read, so that the
        // next click takes it off.
        parrilla = true;
        m_mb.RutaFondo = rutaParrilla();
        cargarRuta();
    } else {
        parrilla = false;
        m_cargador.cargar(QString());
        m_mb.RutaFondo.clear();
    }
}
