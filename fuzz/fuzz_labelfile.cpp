// A label file as anyone may have written it: the reference reader, and
// the label folded back.
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FuzzFile in(data, size);
    FuzzLabel f(in.modelo);
    try {
        f.files.leerLineasEtiqueta(in.lines);
        f.files.Actualiza();
        f.files.lineasEtiqueta(f.mb.TipoEtiqueta);
    } catch (const RuntimeError&) {
        // The program ends there, by design; anything else is a fault.
    }
    return 0;
}
