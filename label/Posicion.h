#pragma once

#include <cstdint>
#include <QByteArray>

// A position is kept twice: as whole surface units for the screen and the
// transfer, and as the text the files carry, the units times 3.6.

// The number a position text stands for: its leading digits, optionally a
// decimal point and more digits ("39." is 39, "3.6" is 3.6). A text that
// does not start with a digit counts as 0. (Not the lenient reader of the
// character tables, valorNumerico, which also takes blanks, a sign and an
// exponent.)
double valorTextoPosicion(const QByteArray& texto);

// The surface position of a stored text: its value divided by 3.6, rounded
// to the nearest whole number, halves to the even one.
int16_t posicionDeTexto(const QByteArray& texto);
