// The catalogue is loaded whole at start and at every language change: what
// that costs with the program's own catalogue and with a large one.
#include "Catalogo.h"
#include "Configuracion.h"
#include "ModBase.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

QString g_builtCatalogue;

void BM_CargarTextos_programa(benchmark::State& state)
{
    QTemporaryDir dir;
    QDir(dir.path()).mkpath("lang");
    QFile::copy(g_builtCatalogue, dir.filePath("lang/lang.db"));
    ModBase mb;
    mb.programDir = dir.path();
    int16_t idioma = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(CargarTextos(mb, idioma));
        idioma = static_cast<int16_t>(idioma % 8 + 1);
    }
}
BENCHMARK(BM_CargarTextos_programa)->Unit(benchmark::kMillisecond);

void BM_CargarTextos_grande(benchmark::State& state)
{
    QTemporaryDir dir;
    QDir(dir.path()).mkpath("lang");
    QList<CatalogueRow> rows;
    for (int id = 1; id <= state.range(0); ++id) {
        CatalogueRow r;
        r.id = id;
        for (int c = 1; c <= 8; ++c)
            r.texts.append(
                QStringLiteral("Texto de prueba número %1 en la lengua %2").arg(id).arg(c));
        rows.append(r);
    }
    writeCatalogueDatabase(dir.filePath("lang/lang.db"), rows);
    ModBase mb;
    mb.programDir = dir.path();
    for (auto _ : state)
        benchmark::DoNotOptimize(CargarTextos(mb, 2));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_CargarTextos_grande)->Arg(5000)->Unit(benchmark::kMillisecond);

void BM_LeerConfiguracion(benchmark::State& state)
{
    const QByteArray larga =
        "Idioma = 3\r\nPuerto = 2\r\nBaudios = 1\r\nParidad = 2\r\nBits de parada = 1\r\n"
        "Bits de datos = 0\r\nSombreado = 0\r\nFondo = C:\\fotos\\logo.bmp\r\n" +
        QByteArray(128, '-') + "\r\n";
    for (auto _ : state) {
        ModBase mb;
        benchmark::DoNotOptimize(aplicarConfiguracion(mb, larga));
    }
}
BENCHMARK(BM_LeerConfiguracion);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    g_builtCatalogue = QCoreApplication::applicationDirPath() + "/lang/lang.db";
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
