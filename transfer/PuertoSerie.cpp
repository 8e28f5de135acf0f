#include "PuertoSerie.h"

#include "ModBase.h"

QByteArray AjustesLinea::texto() const
{
    return QByteArray::number(baudios) + ',' + paridad + ',' + QByteArray::number(bitsDatos) + ',' +
           QByteArray::number(bitsParada);
}

AjustesLinea ajustesLinea(const ModBase& mb)
{
    static const int velocidades[] = {2400, 4800, 9600, 19200};
    AjustesLinea a;
    // cfg.ini keeps the index in range; an index from elsewhere falls back
    // to the speed of a fresh configuration rather than off the table.
    a.baudios = mb.Baudios >= 0 && mb.Baudios <= 3 ? velocidades[mb.Baudios] : 9600;
    a.paridad = mb.Paridad == 1 ? 'E' : mb.Paridad == 2 ? 'O' : 'N';
    a.bitsDatos = mb.BitsDatos == 0 ? 7 : 8;
    a.bitsParada = mb.BitsParada == 0 ? 1 : 2;
    return a;
}
