#include "ConfigEnvio.h"

#include "ModBase.h"
#include "PuertoSerie.h"

QStringList entradasCOM()
{
    return {QStringLiteral("COM 1"), QStringLiteral("COM 2"), QStringLiteral("COM 3"),
            QStringLiteral("COM 4")};
}

QStringList entradasBaud()
{
    return textosVelocidades();
}

QStringList entradasParidad(const ModBase& mb)
{
    return {mb.Textos(1322), mb.Textos(1323), mb.Textos(1324)};
}

QStringList entradasStop()
{
    return {QStringLiteral("1"), QStringLiteral("2")};
}

QStringList entradasDatos()
{
    return {QStringLiteral("7"), QStringLiteral("8")};
}

AjustesConfig CargarConfig(ModBase& mb)
{
    mb.SoloTextos = false;
    AjustesConfig a;
    a.puerto = mb.Puerto;
    a.baudios = mb.Baudios;
    a.paridad = mb.Paridad;
    a.bitsParada = mb.BitsParada;
    a.bitsDatos = mb.BitsDatos;
    a.equipo = mb.NumEquipo != 0 ? QString::number(mb.NumEquipo) : QStringLiteral("1");
    return a;
}

bool teclaEquipoAdmitida(int codigo)
{
    return codigo == 8 || (codigo >= '1' && codigo <= '8');
}

QString equipoAlPerderFoco(const QString& texto)
{
    return texto.isEmpty() ? QStringLiteral("1") : texto;
}

void GuardarConfig(ModBase& mb, const AjustesConfig& ajustes, bool soloTextos)
{
    mb.Puerto = ajustes.puerto;
    mb.Baudios = ajustes.baudios;
    mb.Paridad = ajustes.paridad;
    mb.BitsParada = ajustes.bitsParada;
    mb.BitsDatos = ajustes.bitsDatos;
    // The box holds a digit 1 to 8 by its key rules; an empty one has just
    // become "1" on losing the focus to the button.
    mb.NumEquipo = static_cast<int16_t>(equipoAlPerderFoco(ajustes.equipo).toInt());
    mb.SoloTextos = soloTextos;
}
