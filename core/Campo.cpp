#include "Campo.h"

#include "RuntimeError.h"

QByteArray codigoCampo(int numero)
{
    if (numero < 1 || numero > 36)
        throw RuntimeError::subscriptOutOfRange();
    // The character value falls at the seam between 26 ("Z") and 27 ("0").
    return QByteArray(1, static_cast<char>(numero <= 26 ? 64 + numero : 21 + numero));
}

int numeroCampo(char codigo)
{
    if (codigo >= 'A' && codigo <= 'Z')
        return codigo - 64;
    if (codigo >= '0' && codigo <= '9')
        return codigo - 21;
    return 0;
}
