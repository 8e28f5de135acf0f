#include "CatalogoCampos.h"

#include "RuntimeError.h"

#include <array>

namespace {

using G = GrupoCampo;

constexpr uint32_t kDescriptivo = 0xc0c0ff;
constexpr uint32_t kImporte = 0xc0ffc0;
constexpr uint32_t kRosa = 0xffc0ff;
constexpr uint32_t kFecha = 0xffffc0;
constexpr uint32_t kTexto = 0x00ffff;

const std::array<CampoCatalogo, 37> kCampos = {{
    {0, "PESO APROXIMADO", kRosa, G::PesoAproximado, false},
    {1, "DESCRIPTIVO 1", kDescriptivo, G::Descriptivo, false},
    {2, "DESCRIPTIVO 2", kDescriptivo, G::Descriptivo, false},
    {3, "DESCRIPTIVO 3", kDescriptivo, G::Descriptivo, false},
    {4, "DESCRIPTIVO 4", kDescriptivo, G::Descriptivo, false},
    {5, "DESCRIPTIVO 5", kDescriptivo, G::Descriptivo, false},
    {6, "DESCRIPTIVO 6", kDescriptivo, G::Descriptivo, false},
    {7, "DESCRIPTIVO 7", kDescriptivo, G::Descriptivo, false},
    {8, "DESCRIPTIVO 8", kDescriptivo, G::Descriptivo, false},
    {9, "DESCRIPTIVO 9", kDescriptivo, G::Descriptivo, false},
    {10, "DESCRIPTIVO 10", kDescriptivo, G::Descriptivo, false},
    {11, "PESO", kImporte, G::Peso, false},
    {12, "TARA", kImporte, G::Tara, false},
    {13, "PRECIO - OPER", kImporte, G::Precio, false},
    {14, "IMPORTE - TOTAL", kImporte, G::Importe, false},
    {15, "SEGUNDA MONEDA", kRosa, G::SegundaMoneda, false},
    {16, "CÓDIGO BARRAS", kRosa, G::CodigoBarras, false},
    {17, "F. ENVASADO", kFecha, G::Fecha, false},
    {18, "F. CADUCIDAD", kFecha, G::Fecha, false},
    {19, "C. PREFERENTE", kFecha, G::Fecha, false},
    {20, "ETIQUETA TOTAL", kRosa, G::EtiquetaTotal, false},
    {21, "TXL1", kTexto, G::TextoLibre, false},
    {22, "TXL2", kTexto, G::TextoLibre, false},
    {23, "TXL3", kTexto, G::TextoLibre, false},
    {24, "TXL4", kTexto, G::TextoLibre, false},
    {25, "TXL5", kTexto, G::TextoLibre, false},
    {26, "LOTE", kImporte, G::Lote, true},
    {27, "TXL6", kTexto, G::TextoLibre, true},
    {28, "TXL7", kTexto, G::TextoLibre, true},
    {29, "TXL8", kTexto, G::TextoLibre, true},
    {30, "TXL9", kTexto, G::TextoLibre, true},
    {31, "TXL10", kTexto, G::TextoLibre, true},
    {32, "TXL11", kTexto, G::TextoLibre, true},
    {33, "TXL12", kTexto, G::TextoLibre, true},
    {34, "TXL13", kTexto, G::TextoLibre, true},
    {35, "TXL14", kTexto, G::TextoLibre, true},
    {36, "TXL15", kTexto, G::TextoLibre, true},
}};

// Button 1 opens the descriptive dialog, 0 the free texts dialog, 15 deletes.
const std::array<BotonPaleta, kBotonesPaleta> kPaleta = {{
    {0, "Texto Libre", 1307, 0},
    {1, "Descriptivo", 81, 0},
    {2, "Peso", 130, 11},
    {3, "Tara", 74, 12},
    {4, "Operaciones", 133, 13},
    {5, "Total", 488, 14},
    {6, "2ª Moneda", 1314, 15},
    {7, "Código Barras", 23, 16},
    {8, "Fecha Envasado", 1308, 17},
    {9, "Fecha Caducidad", 1309, 18},
    {10, "Consumo Preferente", 73, 19},
    {11, "Etiqueta Total", 1310, 20},
    {12, "Precio", 71, 13},
    {13, "Importe", 132, 14},
    {14, "Lote", 1040, 26},
    {15, "Borrar", 38, 0},
}};

const std::array<EntradaVisual, kEntradasVisual> kVisual = {{
    {0, "Pes", 130, 11},
    {1, "Tar", 74, 12},
    {2, "Operacion", 133, 13},
    {3, "Tota", 488, 14},
    {4, "2Moneda", 1314, 15},
    {5, "CBarras", 23, 16},
    {6, "Envasad", 1308, 17},
    {7, "Caducid", 1309, 18},
    {8, "Consum", 73, 19},
    {9, "EtiTot", 1310, 20},
    {10, "Preci", 71, 13},
    {11, "Import", 132, 14},
    {12, "Lot", 1040, 26},
    {13, "TXL", 1307, 0},
}};

template <typename T, std::size_t N> const T& checked(const std::array<T, N>& table, int i)
{
    if (i < 0 || static_cast<std::size_t>(i) >= N)
        throw RuntimeError::subscriptOutOfRange();
    return table[static_cast<std::size_t>(i)];
}

} // namespace

const CampoCatalogo& campoCatalogo(int numero)
{
    return checked(kCampos, numero);
}
const BotonPaleta& botonPaleta(int indice)
{
    return checked(kPaleta, indice);
}
const EntradaVisual& entradaVisual(int indice)
{
    return checked(kVisual, indice);
}

int campoDeTextoLibre(int n)
{
    if (n < 1 || n > 15)
        throw RuntimeError::subscriptOutOfRange();
    return n <= 5 ? n + 20 : n + 21;
}

int textoLibreDeCampo(int campo)
{
    if (campo >= 21 && campo <= 25)
        return campo - 20;
    if (campo >= 27 && campo <= 36)
        return campo - 21;
    return 0;
}
