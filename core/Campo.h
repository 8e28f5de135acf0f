#pragma once

#include <cstdint>
#include <QByteArray>

// The record of one field of the label. The texts are the 8-bit codes that
// files and the wire carry. The numeric position serves the screen and the
// transfer, the text position the files; each load derives the numbers from
// the texts. The defaults are literals, so that a fresh field costs no
// allocation: every shared block and every new label makes 36 of them.
struct Campo {
    QByteArray Codigo;  // the field's code letter or digit, fixed by its number
    int16_t PosHor = 0; // horizontal position on the surface, whole millimetres
    int16_t PosVer = 0; // vertical position on the surface, whole millimetres
    QByteArray TextoHor = QByteArrayLiteral("000"); // PosHor x 3.6 as the files store it
    QByteArray TextoVer = QByteArrayLiteral("000"); // PosVer x 3.6 as the files store it
    QByteArray Tamano =
        QByteArrayLiteral("0"); // "0" normal, "1" double width, "2" double height, "3" both
    QByteArray Presente = QByteArrayLiteral("0"); // "1" the field is on the label
    bool Seleccionado = false;                    // in the multiple selection; never reaches a file

    bool operator==(const Campo& o) const
    {
        return Codigo == o.Codigo && PosHor == o.PosHor && PosVer == o.PosVer &&
               TextoHor == o.TextoHor && TextoVer == o.TextoVer && Tamano == o.Tamano &&
               Presente == o.Presente && Seleccionado == o.Seleccionado;
    }
};

// Fields 1..26 have the letters "A".."Z", fields 27..36 the digits "0".."9".
QByteArray codigoCampo(int numero);
// The field number of a code; 0 when the code is no field's.
int numeroCampo(char codigo);
