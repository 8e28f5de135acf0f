// ventana.ini as anyone may have left it: any bytes at all.
#include "Vista.h"

#include <cstddef>
#include <cstdint>
#include <QByteArray>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray contents(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const VistaVentana v = VistaVentana::deTexto(contents);
    // What was read is a size the window can take and a zoom of the ladder's range.
    if (v.ancho < 0 || v.ancho > 100000 || v.alto < 0 || v.alto > 100000)
        __builtin_trap();
    if (v.zoom != 0 && !(v.zoom >= Zoom::kMinimo && v.zoom <= Zoom::kMaximo))
        __builtin_trap();
    // What it writes, it reads back the same.
    const VistaVentana w = VistaVentana::deTexto(v.texto());
    if (w.ancho != v.ancho || w.alto != v.alto || w.maximizada != v.maximizada ||
        w.ajustada != v.ajustada)
        __builtin_trap();
    return 0;
}
