#pragma once

#include "BoundedArray.h"
#include "Picture.h"

#include <cstdint>
#include <memory>
#include <QString>

struct ModBase;

// One drawn item of the preview: a picture stretched to its rectangle.
// Lengths are millimetres of the preview's frame, kept in single precision
// as the window's controls keep them, so every fraction lands where the
// sizing table puts it.
struct ItemVista {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    bool Visible = false;
    // Where the picture came from: empty for the item's own picture, else the
    // stock file's name ("12A.wmf").
    QString origen;
    std::shared_ptr<const Picture> imagen;
};

// A fixed text line of the preview, drawn as real text.
struct TextoVista {
    bool Visible = false;
    QString texto;
    float Left = 0;
    float Top = 0;
    float Height = 0;
};

// Everything the preview window shows, worked out without a screen: the
// window draws it, and so does the export.
struct EscenaVista {
    // PictVista: 57 across and the label's width down.
    float anchoMarco = 57;
    float altoMarco = 45;
    // The background picture, at its own size from the frame's top left.
    std::shared_ptr<const Picture> fondo;
    // Item i belongs to field i; item 0 is the approximate weight line.
    BoundedArray<ItemVista, 0, 36> ImagenVista;
    BoundedArray<TextoVista, 1, 2> lbTXF;
};

// What the window's load changes in the window itself: it is laid out for
// the 45 frame and grows with a 60 one.
struct GeometriaVistaPrevia {
    float altoMarco = 45;
    double crecimientoVentanaTwips = 0; // added to the window's height
    float bajadaBoton = 0;              // added to CommandCerrar's top, in millimetres
};
GeometriaVistaPrevia geometriaVistaPrevia(const ModBase& mb);

// The window's load: the frame, every item hidden but the bar code, the
// background picture, the fixed texts, and then PintarEtiqueta.
// A background or stock picture that cannot be read ends the program (it
// throws the run-time error); the main window only ever hands over a
// background it has already shown.
EscenaVista cargaVistaPrevia(const ModBase& mb);

// Places and shows the items of the fields that are on the label, walking the
// fields of the model in force.
void PintarEtiqueta(EscenaVista& escena, const ModBase& mb);

// Gives item `campo` its final rectangle, and where the table says so its
// stock picture; for the weight it also places the approximate weight line.
void TamanoCampo(EscenaVista& escena, const ModBase& mb, int16_t campo, int16_t tamano);

// The stock file of a free text of n characters, and the other two.
QString archivoTextoLibre(int n);
inline const char* kArchivoDobleAncho = "12A.wmf";
inline const char* kArchivoOperaciones = "OPER.wmf";
