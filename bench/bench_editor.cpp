// The cost of the drag with a full surface: one drag-over event (over the
// surface and over another field's box) and one drop of a group of all 36
// fields, which is what the window runs on every mouse move and release.
#include "EditorEtiqueta.h"
#include "EtiquetaLlena.h"
#include "FileCommands.h"
#include "ModBase.h"
#include "SinVentana.h"

#include <benchmark/benchmark.h>

namespace {

struct Superficie36 {
    ModBase mb;
    SilentInteraction ui;
    SinVentana view;
    SinFondo fondo;
    FileCommands files{mb, ui, view};
    EditorEtiqueta editor{mb, ui, files, view, fondo};

    explicit Superficie36(bool seleccion)
    {
        llenarEtiqueta(mb);
        for (int i = 0; i < 15; ++i)
            mb.TextoLibre(i) = "TEXTO";
        // All selected for a group, or none.
        for (int n = 1; n <= 36; ++n)
            mb.Campos(n).Seleccionado = seleccion;
        editor.cargarSuperficie();
        editor.CargarImagen();
    }
};

void arrastreSobreCuadro(benchmark::State& state)
{
    Superficie36 s(state.range(0) != 0);
    s.editor.pulsarCampo(12, BotonRaton::Izquierdo, 113.4, 63);
    double x = 10;
    for (auto _ : state) {
        s.editor.arrastrarSobreCuadro(2, x, 20.4);
        x = x > 40 ? 10 : x + 0.37;
        benchmark::DoNotOptimize(s.editor.FueraDeLimites);
    }
}
BENCHMARK(arrastreSobreCuadro)->Arg(0)->Arg(1)->ArgName("grupo");

void arrastreSobreCampo(benchmark::State& state)
{
    Superficie36 s(state.range(0) != 0);
    s.editor.pulsarCampo(12, BotonRaton::Izquierdo, 113.4, 63);
    double x = 0;
    for (auto _ : state) {
        s.editor.arrastrarSobreCampo(13, x, 100);
        x = x > 1000 ? 0 : x + 37;
        benchmark::DoNotOptimize(s.editor.FueraDeLimites);
    }
}
BENCHMARK(arrastreSobreCampo)->Arg(0)->Arg(1)->ArgName("grupo");

// Press, one drag-over and the drop: a group drop moves every selected box
// and rewrites both texts of each record.
void soltar(benchmark::State& state)
{
    Superficie36 s(state.range(0) != 0);
    for (auto _ : state) {
        s.editor.pulsarCampo(12, BotonRaton::Izquierdo, 0, 0);
        s.editor.arrastrarSobreCuadro(2, s.editor.superficie.Imagen(12).left(), 20);
        s.editor.soltarEnCuadro(s.editor.superficie.Imagen(12).left(), 20);
        benchmark::DoNotOptimize(s.mb.Campos(36).TextoHor);
    }
}
BENCHMARK(soltar)->Arg(0)->Arg(1)->ArgName("grupo");

} // namespace

BENCHMARK_MAIN();
