#pragma once

#include <cstdint>
#include <QByteArray>

struct Campo;
struct ModBase;

// The rows that label files, set files and freetxl.sft share. They are fixed
// columns counted from 1; texts are written as they stand, unpadded unless
// the row says otherwise.

// "9:", the index in two digits (new model) or one (old), then the text.
QByteArray filaTextoLibre(int indice, const QByteArray& texto, int16_t modeloNuevo);

// A field row of 22 columns: "99", kind, number, width, the name padded to
// 7, code, the two position texts, size and presence. A position text of 4
// characters makes it one longer, and shifts what follows.
QByteArray filaCampo(const ModBase& mb, const Campo& campo, const QByteArray& tipo);

// "900", the first line padded to 25, "0", and the second line followed by
// as many blanks as the FIRST line needed: the second is not padded on its
// own, and every reader takes at most 25 characters from column 30.
QByteArray filaTextoFijo(const QByteArray& linea1, const QByteArray& linea2);

// The name as the rows carry it: 7 columns, right-padded with blanks.
QByteArray nombreSiete(const QByteArray& nombre);

// Takes a field row's position texts (columns 15-17, 18-20), size (21) and
// presence (22) into the record, with the positions worked out from the
// texts; the code (14) only when asked, since the row's place decides the
// field and a set load leaves the code alone.
void leerFilaCampo(const QByteArray& fila, Campo& campo, bool conCodigo);

// The label header from a field row: kind (3), number (4), width (5-6) and
// name (7-13, with its blanks).
void leerCabecera(const QByteArray& fila, ModBase& mb);
