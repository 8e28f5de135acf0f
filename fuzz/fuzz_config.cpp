// cfg.ini as anyone may have left it: any bytes at all.
#include "Configuracion.h"
#include "ModBase.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ModBase mb;
    const QByteArray contents(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (aplicarConfiguracion(mb, contents) == LecturaConfiguracion::Completa) {
        // What was read is always within the ranges the rest of the program uses.
        if (mb.Idioma > 8 || mb.Puerto > 3 || mb.Baudios > 3 || mb.Paridad > 2 ||
            mb.BitsParada > 1 || mb.BitsDatos > 1 || mb.Sombreado > 1)
            __builtin_trap();
    }
    return 0;
}
