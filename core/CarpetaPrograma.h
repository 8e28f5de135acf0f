#pragma once

#include <QProcessEnvironment>
#include <QString>

// Where the program keeps what it writes, and where it reads its data.
//
// Unpacked (the build folder, a zip): both are the folder of the executable,
// as the program has always had it. Installed (the Debian package, the
// Windows installer), the executable's folder cannot be written to: the
// installation lays down a marker beside its data, and every person gets a
// program folder of their own, filled from the installation's defaults at
// the first start.
struct CarpetasPrograma {
    QString programa; // cfg.ini, sirel.new, ventana.ini, scales.csv, recovery/
    QString datos;    // lang/, res/, the character tables
    bool instalada = false;

    // The marker an installation puts beside its data.
    static QString marca() { return QStringLiteral("korvo-installed"); }
    // What a fresh program folder of a person starts with, below the data.
    static QString defectos() { return QStringLiteral("defaults"); }
};

// The one rule, for the designer and the command line alike (whose
// --program-dir stands above it). The data of an installation is the
// executable's folder when the marker is there (Windows), or ../share/korvo
// beside it when the marker is there (Debian). The person's folder is
// %LOCALAPPDATA%\Korvo on Windows, $XDG_DATA_HOME/korvo elsewhere
// (~/.local/share/korvo when that is unset or not absolute).
CarpetasPrograma
carpetasPrograma(const QString& dirEjecutable,
                 const QProcessEnvironment& entorno = QProcessEnvironment::systemEnvironment());

// The person's program folder of an installed program, made and filled
// from the installation's defaults when it is missing (the first start);
// one that exists is the person's and is left as it is. Returns what went
// wrong, naming the folder, or nothing when the folder is ready.
QString prepararCarpetaPrograma(const CarpetasPrograma& carpetas);

struct ModBase;
// Both steps for a run of the program whose executable is in that folder:
// the block's program and data folders set, the person's folder readied.
// When it cannot be, the program folder is the installation's defaults,
// read only, and the text says so.
QString fijarCarpetas(ModBase& mb, const QString& dirEjecutable);
