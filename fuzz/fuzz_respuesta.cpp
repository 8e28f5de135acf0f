// The scale's replies as any line may bring them: any bytes, cut into any
// pieces.
#include "Tramas.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    // The first byte tells where the pieces are cut: every (n + 1) bytes.
    const size_t paso = static_cast<size_t>(data[0] % 8) + 1;
    const char* resto = reinterpret_cast<const char*>(data + 1);
    const size_t largo = size - 1;

    LectorRespuesta r;
    bool acabada = false;
    for (size_t i = 0; i < largo && !acabada; i += paso) {
        const size_t n = std::min(paso, largo - i);
        r.agregar(QByteArray(resto + i, static_cast<qsizetype>(n)));
        // The wait stops at the first piece that leaves a 0x0D last.
        acabada = r.completa();
        if (acabada != (r.texto().back() == '\r'))
            __builtin_trap();
    }
    const QByteArray& t = r.texto();
    const int16_t resultado = r.resultado();
    if (resultado != 0 && resultado != 1)
        __builtin_trap();
    if (resultado == 0 && (t.size() < 4 || t.at(2) != '0' || t.at(3) != '0'))
        __builtin_trap();
    if (r.rechazaApertura() && (t.size() < 2 || t.at(1) != 0x15))
        __builtin_trap();
    return 0;
}
