#include "Arranque.h"

#include "Catalogo.h"
#include "Configuracion.h"
#include "ModBase.h"
#include "Recuperacion.h"
#include "RuntimeError.h"
#include "UserInteraction.h"

#include <QByteArray>

#ifndef KORVO_VERSION_MAJOR
#define KORVO_VERSION_MAJOR 1
#define KORVO_VERSION_MINOR 0
#endif

const char* const kMensajeConfiguracion = "Error: File cfg.ini => Default configuration";
const char* const kMensajeBaseDatos = "Error: Data base";

QString versionPrograma()
{
    return QStringLiteral("%1.%2").arg(KORVO_VERSION_MAJOR).arg(KORVO_VERSION_MINOR);
}

int Main(ModBase& mb, UserInteraction& ui, VentanasPrincipales& ventanas)
{
    try {
        if (LeerConfiguracion(mb) != 0)
            ui.message(QString::fromLatin1(kMensajeConfiguracion));
        if (CargarTextos(mb, mb.Idioma) != 0) {
            // Nothing opens, and cfg.ini stays as it was.
            ui.message(QString::fromLatin1(kMensajeBaseDatos));
            return 1;
        }
        InicializarEtiqueta(mb);
        mb.ArranqueInicial = true;
        ventanas.mostrarSplash(mb);
        ventanas.mostrarBase(mb);
        GuardarConfiguracion(mb);
        return 0;
    } catch (const RuntimeError& e) {
        ui.message(recuperacion::mensajeFinal(e));
        return 1;
    }
}

EstadoSplash cargaSplash(const ModBase& mb)
{
    EstadoSplash s;
    s.lblVersion = QStringLiteral("v ") + versionPrograma();
    s.intervaloTimer = mb.ArranqueInicial ? 500 : 0;
    return s;
}

void timerSplash(ModBase& mb)
{
    mb.ArranqueInicial = false;
}

int cargaBase(ModBase& mb, UserInteraction& ui,
              const std::function<bool(const QString&)>& cargarFondo)
{
    mb.CargaTXL = 1;
    mb.PesoAproximado = false;
    if (!mb.RutaFondo.isEmpty() && !cargarFondo(mb.RutaFondo)) {
        // Start-up goes on without it, and cfg.ini will record no background.
        ui.message(mb.Textos(1343) + QStringLiteral(" : ") + mb.Textos(222));
        mb.RutaFondo.clear();
    }
    mb.ArchivoConocido = false;
    mb.Modificado = false;
    if (mb.ModeloNuevo) {
        // Compared as text, as the selector's value is: "1" and "2" cannot stay.
        if (mb.NumEtiqueta < QByteArray("3"))
            mb.NumEtiqueta = "3";
        return 3;
    }
    return 1;
}
