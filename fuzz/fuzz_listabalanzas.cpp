// A list of scales as a person may write it: any bytes. Either every line
// that is wrong is told and no scale comes back, or every scale comes back
// whole: a name, once; a port the transfer can open; settings of the table.
#include "Flota.h"
#include "PuertoTcp.h"

#include <cstddef>
#include <cstdint>
#include <QSet>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray texto(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QStringList errores;
    const QList<BalanzaLista> lista = leerListaBalanzas(texto, AjustesLinea{}, errores);
    if (!errores.isEmpty() && !lista.isEmpty())
        __builtin_trap();
    if (errores.isEmpty() && lista.isEmpty())
        __builtin_trap();
    for (const QString& e : errores)
        if (!e.startsWith(QLatin1String("line ")))
            __builtin_trap();
    QSet<QString> nombres;
    for (const BalanzaLista& b : lista) {
        if (b.nombre.isEmpty() || nombres.contains(b.nombre.toLower()) || b.linea < 2)
            __builtin_trap();
        nombres.insert(b.nombre.toLower());
        if (!nombrePuertoValido(b.puerto))
            __builtin_trap();
        const AjustesLinea& a = b.ajustes;
        if ((a.baudios != 2400 && a.baudios != 4800 && a.baudios != 9600 && a.baudios != 19200) ||
            (a.paridad != 'N' && a.paridad != 'E' && a.paridad != 'O') ||
            (a.bitsDatos != 7 && a.bitsDatos != 8) || (a.bitsParada != 1 && a.bitsParada != 2) ||
            b.equipo < 0 || b.equipo > 99)
            __builtin_trap();
    }
    return 0;
}
