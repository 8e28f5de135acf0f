// greek.cht and polish.cht as anyone may have left them: any bytes at all.
// The reading either fills the table or ends with the run-time error of a
// short file or a number too large; applying the table keeps the length.
#include "AdaptaCaracteres.h"
#include "RuntimeError.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray contenido(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (const int lineas : {10, 13}) {
        TablaCaracteres tabla;
        try {
            leerTablaCaracteres(contenido, lineas, tabla);
        } catch (const RuntimeError& e) {
            if (e.number() != 62 && e.number() != 6)
                __builtin_trap();
            continue;
        }
        QByteArray todos;
        for (int c = 0; c < 256; ++c)
            todos.append(static_cast<char>(c));
        try {
            if (aplicarTablaCaracteres(tabla, todos).size() != todos.size())
                __builtin_trap();
        } catch (const RuntimeError& e) {
            if (e.number() != 5)
                __builtin_trap();
        }
    }
    return 0;
}
