// freetxl.sft, freetxt.txt and a label file met by the import, as anyone
// may have left them.
#include "FuzzSupport.h"
#include "TextosLibres.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FuzzFile in(data, size);
    const QList<QByteArray>& lines = in.lines;
    FuzzLabel f(in.modelo);
    try {
        leerFreetxl(f.mb, lines);
    } catch (const RuntimeError&) {
    }
    try {
        f.files.almacenaTextosExternos(lines);
    } catch (const RuntimeError&) {
    }
    try {
        f.files.almacenaLineasEtiqueta(lines, QStringLiteral("1/2/24 10:00"));
        f.files.CargarEtiquetaConjunto(3);
    } catch (const RuntimeError&) {
    }
    return 0;
}
