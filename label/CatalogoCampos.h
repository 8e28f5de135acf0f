#pragma once

#include <cstdint>

// The fixed catalogue of the label's fields, as data for the editor and the
// windows: what each field's box shows before the catalogue recaptions it,
// its colour, and which palette button and menu entry place it.

enum class GrupoCampo {
    PesoAproximado, // box 0: no field of its own, it follows the weight
    Descriptivo,
    Peso,
    Tara,
    Precio,  // price, or operations on a total label
    Importe, // amount, or total on a total label
    SegundaMoneda,
    CodigoBarras,
    Fecha,
    EtiquetaTotal,
    TextoLibre,
    Lote,
};

struct CampoCatalogo {
    int numero;         // 0 is the approximate weight box, 1..36 the fields
    const char* imagen; // the box's design caption (UTF-8)
    uint32_t color;     // 0xRRGGBB
    GrupoCampo grupo;
    bool soloModeloNuevo;
};

// Box 0..36.
const CampoCatalogo& campoCatalogo(int numero);

// The palette `CBDisplay`: index, design caption, text id, and the field it
// switches on (0 where a dialog or the delete command stands behind it).
struct BotonPaleta {
    int indice;
    const char* caption;
    int textId;
    int campo;
};
constexpr int kBotonesPaleta = 16;
const BotonPaleta& botonPaleta(int indice);

// The field pop-up `mnuVisual`: index, design caption, text id, and the field
// it places (0 for the free texts, which go through their dialog).
struct EntradaVisual {
    int indice;
    const char* caption;
    int textId;
    int campo;
};
constexpr int kEntradasVisual = 14;
const EntradaVisual& entradaVisual(int indice);

// Free text n (1..15) is field n + 20 up to 5 and n + 21 from 6: the lot
// stands at 26 between the two groups.
int campoDeTextoLibre(int n);
// The free text of a field; 0 when the field is no free text.
int textoLibreDeCampo(int campo);
