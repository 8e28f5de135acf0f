// What `korvo-cli check` reads: a label or set file as anyone may have
// written it. The first byte picks the model (bit 0) and a set file (bit 1).
#include "Comprobacion.h"
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FuzzFile in(data, size);
    const bool conjunto = size > 0 && (data[0] & 2);
    for (const Hallazgo& h : comprobarArchivo(in.lines, conjunto, static_cast<int16_t>(in.modelo)))
        if (h.linea < 0 || h.linea > in.lines.size() + 1 || h.columna < 0 || h.texto.isEmpty())
            __builtin_trap(); // every finding points into the file and says something
    return 0;
}
