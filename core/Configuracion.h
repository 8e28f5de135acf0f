#pragma once

#include <QByteArray>
#include <cstdint>

struct ModBase;

// cfg.ini in the program's folder holds all the program remembers between
// runs. It is line-numbered: what a line means is its position, and only the
// last character of lines 1 to 7 is read. The words are for a person.

// Reads cfg.ini, or makes it in its short form when it is missing (result 1,
// else 0); then settles the model by the marker file sirel.new and removes a
// left-over Lastfreetext.txt. A damaged file silently brings back the
// defaults and skips those two steps.
int16_t LeerConfiguracion(ModBase& mb);

// Writes the long form of cfg.ini in the language in force.
void GuardarConfiguracion(const ModBase& mb);

// The pieces of the two routines that touch no file.
enum class LecturaConfiguracion { Completa, TipoIncorrecto };
// Applies the lines of a cfg.ini to the settings and the background path.
LecturaConfiguracion aplicarConfiguracion(ModBase& mb, const QByteArray& contents);
void configuracionPorDefecto(ModBase& mb);
QByteArray formaCorta(const ModBase& mb);
QByteArray formaLarga(const ModBase& mb);
