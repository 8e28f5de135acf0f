#include "KorvoApplication.h"

#include "Fuentes.h"

#include "QtInteraction.h"
#include "Recuperacion.h"
#include "RuntimeError.h"

#include <cstdio>
#include <cstdlib>
#include <new>

KorvoApplication::KorvoApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("Korvo"));
    asegurarFuentes();
}

bool KorvoApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& error) {
        terminarConError(error);
    } catch (const std::bad_alloc&) {
        terminarConError(RuntimeError::outOfMemory());
    }
}

void terminarConError(const RuntimeError& error)
{
    const QString texto = recuperacion::mensajeFinal(error);
    std::fprintf(stderr, "%s\n", qPrintable(texto));
    QtInteraction().message(texto);
    std::fflush(nullptr);
    std::_Exit(1);
}
