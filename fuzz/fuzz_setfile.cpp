// A set file as anyone may have written it: one label of it unfolded and
// folded back.
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FuzzFile in(data, size);
    FuzzLabel f(in.modelo);
    // The rest of the first byte picks the label: every label is read by the
    // same code from rows at other places, so one label an input is enough.
    const int etiquetas = in.modelo ? 6 : 10;
    const int p = (in.modelo ? 3 : 1) + (size > 0 ? (data[0] >> 1) % etiquetas : 0);
    try {
        f.files.leerLineasConjunto(in.lines);
        f.files.CargarEtiquetaConjunto(p);
        f.files.lineasEtiqueta(f.mb.TipoEtiqueta);
    } catch (const RuntimeError&) {
        // The program ends there, by design; anything else is a fault.
    }
    return 0;
}
