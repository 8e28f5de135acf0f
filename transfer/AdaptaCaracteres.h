#pragma once

#include "BoundedArray.h"

#include <cstdint>
#include <QByteArray>
#include <QByteArrayView>

struct ModBase;

// The scale's font for Greek and Polish has its letters at codes of its own.
// A small table file beside the program says which code goes where; the
// table lives as long as one transfer and keeps what the last read put in it.
struct TablaCaracteres {
    BoundedArray<int16_t, 0, 12> CodigoOrigen;  // codes to look for
    BoundedArray<int16_t, 0, 12> CodigoDestino; // codes to put in their place
};

// The table file of a language and how many of its lines are read:
// greek.cht 10 for language 7, polish.cht 13 for language 8, none otherwise.
const char* archivoTablaCaracteres(int16_t idioma);
int lineasTablaCaracteres(int16_t idioma);

// Fills places 0..lineas-1 from the lines of a table file, first line to
// place 0. Columns 14 to 18 hold the source code and 28 to 32 the target
// code; the other columns are free for the reader's notes. A file with fewer
// lines is "Input past end of file"; a number beyond a 16-bit integer is
// "Overflow".
void leerTablaCaracteres(const QByteArray& contenido, int lineas, TablaCaracteres& tabla);

// Greek capitals that look like Latin ones become the Latin letter (language
// 7); language 8 keeps the text. Codes, never decoded characters.
QByteArray AdapTaCharGR1(int16_t idioma, const QByteArray& texto);
// The whole adaptation of a free or fixed text for languages 7 and 8: the
// Latin look-alikes, then the table file, read again on every call, then the
// accented capitals of the Western code page without their accent. Each
// character is replaced once at most; the length stays.
QByteArray AdapTaCharGR(const ModBase& mb, TablaCaracteres& tabla, const QByteArray& texto);
// The last two steps on their own: the table, first place first, then the
// accents. A target that is no byte is "Invalid procedure call or argument"
// when a character meets it.
QByteArray aplicarTablaCaracteres(const TablaCaracteres& tabla, const QByteArray& texto);

// A number read leniently from text: leading blanks skipped, a sign, an
// exponent; reading stops at the first character that cannot belong to a
// number, nothing readable is 0. (Not the reader of position texts,
// valorTextoPosicion.)
double valorNumerico(QByteArrayView texto);
// To the nearest whole number, halves to the even one.
double redondeoPar(double v);
// redondeoPar into a 16-bit integer; beyond it is "Overflow".
int16_t enteroRedondeado(double v);
