#pragma once

#include <cstdint>
#include <QByteArray>

struct ModBase;

// cfg.ini in the program's folder holds all the program remembers between
// runs. It is line-numbered: what a line means is its position, and only the
// last character of lines 1 to 7 is read. The words are for a person.

// What the settings of a run were taken from.
enum class OrigenAjustes {
    Falta,    // no cfg.ini: the defaults, and the model by the marker file
    Archivo,  // read whole, and the model by the marker file
    Danado,   // a setting that is no digit: the defaults, and the model is not looked at
    Ilegible, // the file cannot be read: the settings stay as they were
};

// The one reader of the settings and the model, for the designer and the
// command line alike: applies cfg.ini and the marker file sirel.new to the
// block and writes nothing. A damaged file silently brings back the defaults
// and leaves the model as it was (the old model, in a new block), whatever
// the marker file says.
OrigenAjustes leerAjustes(ModBase& mb);

// The designer's start: reads the settings as above, makes cfg.ini in its
// short form when it is missing (result 1, else 0), and removes a left-over
// Lastfreetext.txt unless the file was damaged or unreadable.
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
