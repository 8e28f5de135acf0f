#pragma once

#include "BoundedArray.h"
#include "Campo.h"
#include "TextTable.h"

#include <cstdint>
#include <QByteArray>
#include <QString>

// The one block of shared state. Main makes the instance and hands it by
// reference to every window and piece of logic; tests make their own.
// Label data is held as the 8-bit codes themselves, so files and frames are
// byte-exact whatever the language; paths are held as the platform's text.
struct ModBase {
    ModBase();

    bool ArranqueInicial = false;               // the splash shown now is the start-up one
    BoundedArray<Campo, 1, 36> Campos;          // the fields of the current label, by number
    BoundedArray<QByteArray, 0, 1> TextoFijo;   // the two fixed text lines
    BoundedArray<QByteArray, 0, 14> TextoLibre; // free texts 1..15 at 0..14
    QByteArray TipoEtiqueta = "V";              // "V" packing label, "T" total label
    QByteArray NumEtiqueta = "1";               // number of the label within its kind
    QByteArray AnchoEtiqueta = "45";            // "45" or "60"
    QByteArray NombreEtiqueta;                  // at most 7 characters

    // The settings are 0 until cfg.ini has been read: a short file leaves
    // the ones it never reaches at 0.
    int16_t Idioma = 0;     // language 1..8
    int16_t Puerto = 0;     // port index 0..3
    int16_t Baudios = 0;    // speed index 0..3
    int16_t Paridad = 0;    // parity index 0..2
    int16_t BitsParada = 0; // stop bits index 0..1
    int16_t BitsDatos = 0;  // data bits index 0..1
    int16_t NumEquipo = 0;  // the scale addressed; never stored in a file
    int16_t Sombreado = 0;  // 1 the margin bands are shown

    int16_t ModeloNuevo = 0; // 1 the new scale model, 0 the old one
    int16_t CargaTXL = 1;    // 1 a new label starts from freetxl.sft
    bool PesoAproximado = false;
    bool Modificado = false;
    bool ArchivoConocido = false;
    QString ArchivoActual;
    bool SoloTextos = false;
    QString RutaFondo;
    int16_t NuevoCampoHor = 0;
    int16_t NuevoCampoVer = 0;
    BoundedArray<bool, 1, 15> TXLCambiado;
    BoundedArray<bool, 1, 10> DESPendiente;
    BoundedArray<bool, 1, 15> TXLPendiente;
    TextTable Textos;

    // The program's folder, where cfg.ini, the marker file and the other
    // files the program writes live: the executable's folder, or what a test
    // or the command line sets, or the person's own folder of an installed
    // program (CarpetaPrograma.h).
    QString programDir;
    // Where an installed program keeps lang/, res/ and the character tables,
    // read only; empty: the program's folder holds them too.
    QString dataDir;

    // How many fields and free texts the model in force has.
    int camposModelo() const { return ModeloNuevo ? 36 : 25; }
    int textosLibresModelo() const { return ModeloNuevo ? 15 : 5; }
};

// Resets one field to its defaults; this is also how a field is deleted.
void InicializarCampo(ModBase& mb, int numero);

// The default label: "V" 1, 45 wide, no name, every field off and no free
// texts. The fixed text is left alone.
void InicializarEtiqueta(ModBase& mb);
