#include "Campo.h"

#include "RuntimeError.h"

QByteArray codigoCampo(int numero)
{
    if (numero < 1 || numero > 36)
        throw RuntimeError::subscriptOutOfRange();
    // The letters, then the digits; a view of the table, copied only if changed.
    static const char kCodigos[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    return QByteArray::fromRawData(kCodigos + numero - 1, 1);
}

int numeroCampo(char codigo)
{
    if (codigo >= 'A' && codigo <= 'Z')
        return codigo - 64;
    if (codigo >= '0' && codigo <= '9')
        return codigo - 21;
    return 0;
}
