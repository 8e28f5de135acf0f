#pragma once

#include <cstdint>
#include <functional>
#include <QByteArray>
#include <QString>

struct ModBase;
class UserInteraction;

// The windows that Main opens, each loaded, shown modally and released.
class VentanasPrincipales {
public:
    virtual ~VentanasPrincipales() = default;
    virtual void mostrarSplash(ModBase& mb) = 0;
    virtual void mostrarBase(ModBase& mb) = 0;
};

// The whole life of the program: cfg.ini, the catalogue, a fresh label, the
// splash, the main window, and cfg.ini written again. Returns the exit code:
// 0 after a normal run, 1 when the catalogue is missing or something the
// program does not foresee ended it (shown to the person first).
int Main(ModBase& mb, UserInteraction& ui, VentanasPrincipales& ventanas);

// The two messages shown before the catalogue exists.
extern const char* const kMensajeConfiguracion; // "Error: File cfg.ini => Default configuration"
extern const char* const kMensajeBaseDatos;     // "Error: Data base"

// The program's two-part version, "1.0".
QString versionPrograma();

// The splash window: its version line, and the timer that closes the
// start-up splash after half a second (the about box has none).
struct EstadoSplash {
    QString lblVersion;
    int intervaloTimer = 0; // 0: no timer
};
EstadoSplash cargaSplash(const ModBase& mb);
void timerSplash(ModBase& mb);

// The main window's load, as far as the shared state goes: flags reset, the
// background picture of cfg.ini loaded (`cargarFondo` says whether it could
// be; one that cannot is reported and forgotten), and the label number
// brought within the model's range. Returns the lower bound of the label
// number selector (its upper bound is always 5).
int cargaBase(ModBase& mb, UserInteraction& ui,
              const std::function<bool(const QString&)>& cargarFondo);
