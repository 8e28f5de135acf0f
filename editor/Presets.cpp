// The two ready-made layouts of the tool bar, for labels 45 and 60 long.
#include "CambiosPendientes.h"
#include "EditorEtiqueta.h"
#include "FileCommands.h"
#include "ModBase.h"

struct FilaPreset {
    int campo;
    int16_t PosVer;
    const char* TextoVer;
    const char* Tamano;
};

// A block is made present, selected and given its heights, then shown, then
// justified together. The vertical texts are the ones the scales have
// always been sent, not derived from PosVer: they are kept as they are.
struct BloquePreset {
    int modo;
    FilaPreset filas[5];
    int n;
};

namespace {

const BloquePreset kBloques60[] = {
    {1,
     {{1, 18, "072", "0"},
      {2, 22, "088", "0"},
      {3, 26, "104", "0"},
      {4, 30, "120", "0"},
      {13, 36, "130", "0"}},
     5},
    {2, {{17, 46, "166", "0"}, {18, 52, "187", "0"}, {14, 36, "130", "1"}}, 3},
    {0, {{11, 36, "130", "0"}, {16, 45, "162", "0"}}, 2},
};

const BloquePreset kBloques45[] = {
    {0, {{11, 27, "076", "0"}, {16, 34, "101", "0"}}, 2},
    {2, {{14, 27, "076", "1"}, {17, 36, "130", "0"}, {18, 42, "108", "0"}}, 3},
    {1, {{1, 14, "029", "1"}, {2, 20, "050", "0"}, {13, 27, "076", "0"}}, 3},
};

} // namespace

void EditorEtiqueta::cargarPreset(const char* ancho, const BloquePreset* bloques, int n)
{
    for (int campo = 1; campo <= camposModelo(); ++campo)
        InicializarCampo(m_mb, campo);
    m_mb.AnchoEtiqueta = ancho;
    m_mb.NombreEtiqueta.clear();
    m_files.Actualiza();
    for (int b = 0; b < n; ++b) {
        const BloquePreset& bloque = bloques[b];
        for (int f = 0; f < bloque.n; ++f) {
            const FilaPreset& fila = bloque.filas[f];
            Campo& c = m_mb.Campos(fila.campo);
            c.Presente = "1";
            c.Tamano = fila.Tamano;
            c.PosVer = fila.PosVer;
            c.TextoVer = fila.TextoVer;
            c.Seleccionado = true;
        }
        CargarImagen();
        Alinear(bloque.modo);
    }
    m_mb.Modificado = true;
}

void EditorEtiqueta::Cargar60()
{
    cargarPreset("60", kBloques60, 3);
}

void EditorEtiqueta::Cargar45()
{
    cargarPreset("45", kBloques45, 3);
}

void EditorEtiqueta::botonEti45()
{
    if (preguntarCambios(m_mb, m_ui, [this] { m_files.Guardar(); }).continuar())
        Cargar45();
}

void EditorEtiqueta::botonEti60()
{
    if (preguntarCambios(m_mb, m_ui, [this] { m_files.Guardar(); }).continuar())
        Cargar60();
}
