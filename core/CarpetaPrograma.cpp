#include "CarpetaPrograma.h"

#include "ModBase.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

CarpetasPrograma carpetasPrograma(const QString& dirEjecutable, const QProcessEnvironment& entorno)
{
    CarpetasPrograma c;
    c.programa = c.datos = QDir::cleanPath(dirEjecutable);
    const QString compartida = QDir::cleanPath(dirEjecutable + QStringLiteral("/../share/korvo"));
    // The marker beside the executable (Windows) keeps the data there.
    if (!QFileInfo::exists(QDir(dirEjecutable).filePath(CarpetasPrograma::marca()))) {
        if (!QFileInfo::exists(QDir(compartida).filePath(CarpetasPrograma::marca())))
            return c; // unpacked: both are the executable's folder
        c.datos = compartida;
    }
    c.instalada = true;
#ifdef Q_OS_WIN
    const QString base = entorno.value(QStringLiteral("LOCALAPPDATA"));
    c.programa = QDir::cleanPath(base + QStringLiteral("/Korvo"));
#else
    QString base = entorno.value(QStringLiteral("XDG_DATA_HOME"));
    if (!QDir::isAbsolutePath(base))
        base = entorno.value(QStringLiteral("HOME")) + QStringLiteral("/.local/share");
    c.programa = QDir::cleanPath(base + QStringLiteral("/korvo"));
#endif
    return c;
}

QString prepararCarpetaPrograma(const CarpetasPrograma& carpetas)
{
    if (!carpetas.instalada)
        return {};
    const QString destino = carpetas.programa;
    const auto fallo = [&] {
        return QStringLiteral("The program folder %1 cannot be made or filled: the program "
                              "runs on its defaults, and keeps no settings.")
            .arg(QDir::toNativeSeparators(destino));
    };
    // Filled once, at the first start: after it the folder is the person's,
    // and a marker they removed (the old model chosen) stays removed.
    if (QFileInfo::exists(destino))
        return {};
    // Made aside and renamed into place, so that a start cut short leaves
    // no half-filled folder to be taken as the person's.
    const QString aparte = destino + QStringLiteral(".part");
    QDir(aparte).removeRecursively();
    if (!QDir().mkpath(aparte))
        return fallo();
    const QDir origen(QDir(carpetas.datos).filePath(CarpetasPrograma::defectos()));
    QDirIterator it(origen.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString archivo = it.next();
        const QString copia = QDir(aparte).filePath(origen.relativeFilePath(archivo));
        if (!QDir().mkpath(QFileInfo(copia).path()) || !QFile::copy(archivo, copia)) {
            QDir(aparte).removeRecursively();
            return fallo();
        }
    }
    if (!QDir().rename(aparte, destino)) {
        QDir(aparte).removeRecursively();
        return fallo();
    }
    return {};
}

QString fijarCarpetas(ModBase& mb, const QString& dirEjecutable)
{
    const CarpetasPrograma c = carpetasPrograma(dirEjecutable);
    mb.programDir = c.programa;
    mb.dataDir = c.instalada ? c.datos : QString();
    const QString aviso = prepararCarpetaPrograma(c);
    if (!aviso.isEmpty())
        mb.programDir = QDir(c.datos).filePath(CarpetasPrograma::defectos());
    return aviso;
}
