#include "Recuperacion.h"

#include "ModBase.h"
#include "RuntimeError.h"

#include <QDir>

namespace recuperacion {

namespace {
const ModBase* g_mb = nullptr;
Guardar g_guardar;
} // namespace

void registrar(const ModBase& mb, Guardar guardar)
{
    g_mb = &mb;
    g_guardar = std::move(guardar);
}

void retirar()
{
    g_mb = nullptr;
    g_guardar = {};
}

QString mensajeFinal(const RuntimeError& error)
{
    QString texto = error.text();
    if (!g_guardar)
        return texto;
    // Whatever fails now must not hide the error that ends the program.
    QString ruta;
    try {
        ruta = g_guardar();
    } catch (...) {
        return texto;
    }
    if (ruta.isEmpty())
        return texto;
    QString leyenda = QStringLiteral("The work in hand was kept in:");
    try {
        if (g_mb)
            leyenda = g_mb->Textos(2090);
    } catch (...) {
    }
    return texto + QStringLiteral("\n\n") + leyenda + QLatin1Char('\n') +
           QDir::toNativeSeparators(ruta);
}

} // namespace recuperacion
