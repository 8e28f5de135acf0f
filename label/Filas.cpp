#include "Filas.h"

#include "ModBase.h"
#include "Posicion.h"
#include "TextLines.h"

QByteArray filaTextoLibre(int indice, const QByteArray& texto, int16_t modeloNuevo)
{
    QByteArray numero = QByteArray::number(indice);
    if (modeloNuevo && numero.size() < 2)
        numero.prepend('0');
    return "9:" + numero + texto;
}

QByteArray nombreSiete(const QByteArray& nombre)
{
    return padRight(nombre, 7).left(7);
}

QByteArray filaCampo(const ModBase& mb, const Campo& campo, const QByteArray& tipo)
{
    // Put together in one buffer: every save makes 36 of these a label.
    QByteArray fila;
    fila.reserve(22);
    fila.append("99").append(tipo).append(mb.NumEtiqueta).append(mb.AnchoEtiqueta);
    fila.append(nombreSiete(mb.NombreEtiqueta)).append(campo.Codigo).append(campo.TextoHor);
    fila.append(campo.TextoVer).append(campo.Tamano).append(campo.Presente);
    return fila;
}

QByteArray filaTextoFijo(const QByteArray& linea1, const QByteArray& linea2)
{
    const QByteArray relleno(std::max<qsizetype>(0, 25 - linea1.size()), ' ');
    return "900" + linea1 + relleno + "0" + linea2 + relleno;
}

void leerFilaCampo(const QByteArray& fila, Campo& campo, bool conCodigo)
{
    if (conCodigo)
        campo.Codigo = columns(fila, 14, 1);
    campo.TextoHor = columns(fila, 15, 3);
    campo.PosHor = posicionDeTexto(campo.TextoHor);
    campo.TextoVer = columns(fila, 18, 3);
    campo.PosVer = posicionDeTexto(campo.TextoVer);
    campo.Tamano = columns(fila, 21, 1);
    campo.Presente = columns(fila, 22, 1);
}

void leerCabecera(const QByteArray& fila, ModBase& mb)
{
    mb.TipoEtiqueta = columns(fila, 3, 1);
    mb.NumEtiqueta = columns(fila, 4, 1);
    mb.AnchoEtiqueta = columns(fila, 5, 2);
    mb.NombreEtiqueta = columns(fila, 7, 7);
}
