// A set file as anyone may have written it: every label of it unfolded,
// folded back, and the check.
#include "Comprobacion.h"
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    int modelo = 1;
    const QList<QByteArray> lines = fuzzLines(data, size, modelo);
    FuzzLabel f(modelo);
    try {
        f.files.leerLineasConjunto(lines);
        for (int p = modelo ? 3 : 1; p <= (modelo ? 8 : 10); ++p) {
            try {
                f.files.CargarEtiquetaConjunto(p);
                f.files.lineasEtiqueta(f.mb.TipoEtiqueta);
            } catch (const RuntimeError&) {
            }
        }
    } catch (const RuntimeError&) {
    }
    comprobarArchivo(joinLines(lines), true, static_cast<int16_t>(modelo));
    return 0;
}
