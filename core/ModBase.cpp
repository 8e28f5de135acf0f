#include "ModBase.h"

ModBase::ModBase()
{
    for (int n = Campos.lower; n <= Campos.upper; ++n)
        Campos(n).Codigo = codigoCampo(n);
}

void InicializarCampo(ModBase& mb, int numero)
{
    Campo fresh;
    fresh.Codigo = codigoCampo(numero);
    mb.Campos(numero) = fresh;
}

void InicializarEtiqueta(ModBase& mb)
{
    mb.TipoEtiqueta = "V";
    mb.NumEtiqueta = "1";
    mb.AnchoEtiqueta = "45";
    mb.NombreEtiqueta.clear();
    for (int n = 1; n <= 36; ++n)
        InicializarCampo(mb, n);
    mb.TextoLibre.fill(QByteArray());
}
