#pragma once

#include "BoundedArray.h"

#include <QByteArray>

struct ModBase;

// The coordinates the scale receives for each field, as the texts that go
// into the field frames: at least three digits, with leading zeros. Place 0
// is never used.
struct CoordenadasEnvio {
    BoundedArray<QByteArray, 0, 36> CoordHor;
    BoundedArray<QByteArray, 0, 36> CoordVer;
};

// Works the coordinates out from the numeric positions of fields 1..25, or
// 1..36 on the new model; the places beyond are left as they are.
void CalculaCoordenadasEnvio(const ModBase& mb, CoordenadasEnvio& coordenadas);

// One field's horizontal coordinate from its number, its position x in
// millimetres and its character size s; the vertical one from y.
int coordenadaHorEnvio(int numero, int x, int tamano);
int coordenadaVerEnvio(int y);
// A coordinate as the frame carries it: "0" in front up to three digits.
QByteArray textoCoordenada(int valor);
