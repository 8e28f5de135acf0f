#pragma once

#include <cstdint>
#include <QString>
#include <QStringList>

struct ModBase;

// The transfer settings dialog without its widgets: what it shows when it
// loads, which keys its boxes take, and what its buttons store. The five
// lists are positions counting from 0, the very values of cfg.ini.
struct AjustesConfig {
    int16_t puerto = 0;
    int16_t baudios = 0;
    int16_t paridad = 0;
    int16_t bitsParada = 0;
    int16_t bitsDatos = 0;
    QString equipo; // the scale's number as its box holds it
};

// The entries of the five lists, in the order of their positions.
QStringList entradasCOM();
QStringList entradasBaud();
QStringList entradasParidad(const ModBase& mb); // none, even, odd from the catalogue
QStringList entradasStop();
QStringList entradasDatos();

// The load of the dialog: every transfer starts as a whole one until a
// button says otherwise, so SoloTextos is cleared here. The scale's number
// is 0 until someone chose one, which the box shows as "1".
AjustesConfig CargarConfig(ModBase& mb);

// The scale's box takes the digits 1 to 8 and backspace (8); every other
// character typed is swallowed, so the box can only ever hold 1 to 8.
bool teclaEquipoAdmitida(int codigo);
// A box left empty means the first scale.
QString equipoAlPerderFoco(const QString& texto);

// OKButton (soloTextos false) and CommandTXL (true): the settings are kept
// before the transfer starts, whatever becomes of it.
void GuardarConfig(ModBase& mb, const AjustesConfig& ajustes, bool soloTextos);
