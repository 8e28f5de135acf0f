// A label file as anyone may have written it: the reference reader and the check.
#include "Comprobacion.h"
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    int modelo = 1;
    const QList<QByteArray> lines = fuzzLines(data, size, modelo);
    FuzzLabel f(modelo);
    try {
        f.files.leerLineasEtiqueta(lines);
        f.files.Actualiza();
        f.files.lineasEtiqueta(f.mb.TipoEtiqueta);
    } catch (const RuntimeError&) {
        // The program ends there, by design; anything else is a fault.
    }
    comprobarArchivo(joinLines(lines), false, static_cast<int16_t>(modelo));
    return 0;
}
