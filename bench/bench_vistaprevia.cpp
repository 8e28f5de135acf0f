// What one preview costs: the window's load (the scene, with its stock
// pictures read afresh), and drawing it at the window's size and at the
// export's 300 dots an inch.
#include "ModBase.h"
#include "RenderVista.h"
#include "VistaPrevia.h"

#include <benchmark/benchmark.h>
#include <QGuiApplication>
#include <QImage>

namespace {

// A full label of the new model: every kind of field, free texts at every
// size, the approximate weight.
ModBase etiquetaLlena()
{
    ModBase mb;
    mb.programDir = QCoreApplication::applicationDirPath();
    InicializarEtiqueta(mb);
    mb.ModeloNuevo = 1;
    mb.Idioma = 1;
    mb.PesoAproximado = true;
    mb.TextoFijo(0) = "CARNICERIA PEREZ";
    for (int n = 0; n < 15; ++n)
        mb.TextoLibre(n) = QByteArray(n + 5, 'X');
    for (int i = 1; i <= 36; ++i) {
        Campo& c = mb.Campos(i);
        c.Presente = "1";
        c.Tamano = QByteArray::number(i % 4);
        c.PosHor = static_cast<int16_t>(i % 5 * 4);
        c.PosVer = static_cast<int16_t>(i);
    }
    return mb;
}

void BM_cargaVistaPrevia(benchmark::State& state)
{
    const ModBase mb = etiquetaLlena();
    for (auto _ : state)
        benchmark::DoNotOptimize(cargaVistaPrevia(mb));
}
BENCHMARK(BM_cargaVistaPrevia)->Unit(benchmark::kMicrosecond);

void BM_dibujo(benchmark::State& state)
{
    const EscenaVista e = cargaVistaPrevia(etiquetaLlena());
    const qreal pxPorMm = state.range(0) / 25.4;
    for (auto _ : state)
        benchmark::DoNotOptimize(imagenVistaPrevia(e, pxPorMm));
}
// 96 dots an inch is the window at true size; 300 the PNG export.
BENCHMARK(BM_dibujo)->Arg(96)->Arg(300)->Unit(benchmark::kMillisecond);

void BM_vistaCompleta(benchmark::State& state)
{
    const ModBase mb = etiquetaLlena();
    for (auto _ : state)
        benchmark::DoNotOptimize(imagenVistaPrevia(cargaVistaPrevia(mb), 96 / 25.4));
}
BENCHMARK(BM_vistaCompleta)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
