// The set store's round: load a set file, unfold a label, fold it back and
// save (set file and freetxl.sft); and the check over many set files.
#include "Catalogo.h"
#include "Comprobacion.h"
#include "FileCommands.h"
#include "FileSystem.h"
#include "ModBase.h"
#include "RuntimeError.h"
#include "TextLines.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <sys/resource.h>

namespace {

struct Program {
    QTemporaryDir dir;
    ModBase mb;
    SilentInteraction ui;
    HeadlessView view;
    FileCommands files{mb, ui, view};

    Program()
    {
        QDir(dir.path()).mkpath("lang");
        QFile::copy(QCoreApplication::applicationDirPath() + "/lang/lang.db",
                    dir.filePath("lang/lang.db"));
        mb.programDir = dir.path();
        mb.Idioma = 1;
        mb.ModeloNuevo = 1;
        CargarTextos(mb, 1);
        files.IniciaLineas();
        // A set whose six labels all have fields on.
        mb.ArchivoActual = dir.filePath("set.pse");
        for (const char* tipo : {"V", "T"})
            for (const char* numero : {"3", "4", "5"}) {
                mb.TipoEtiqueta = tipo;
                mb.NumEtiqueta = numero;
                mb.NombreEtiqueta = "QUESO";
                for (int n = 1; n <= 36; n += 2) {
                    mb.Campos(n).Presente = "1";
                    mb.Campos(n).TextoHor = "036";
                }
                files.GuardarEtiquetaConjunto();
            }
    }
};

void BM_SetRound(benchmark::State& state)
{
    Program program;
    for (auto _ : state) {
        program.files.CargarConjunto();
        program.files.CargarEtiquetaConjunto(7);
        program.mb.Campos(11).TextoHor = "072";
        program.files.GuardarEtiquetaConjunto();
    }
}
BENCHMARK(BM_SetRound)->Unit(benchmark::kMicrosecond);

void BM_Check10000SetFiles(benchmark::State& state)
{
    Program program;
    const QByteArray set = fs::readAll(program.mb.ArchivoActual);
    QTemporaryDir many;
    QStringList paths;
    for (int i = 0; i < 10000; ++i) {
        paths.append(many.filePath(QStringLiteral("s%1.pse").arg(i)));
        fs::writeAll(paths.last(), set);
    }
    for (auto _ : state) {
        int found = 0;
        for (const QString& path : paths)
            found += comprobarArchivo(splitLines(fs::readAll(path)), true, 1).size();
        benchmark::DoNotOptimize(found);
    }
    state.SetItemsProcessed(state.iterations() * paths.size());
}
BENCHMARK(BM_Check10000SetFiles)->Unit(benchmark::kMillisecond)->Iterations(3);

// A set file of 81 MB, a valid set over and over, opened as the window
// opens it: it ends on "Subscript out of range" at the first line past the
// store. The counter is how much the process's peak memory grew.
void BM_OpenHugeSet(benchmark::State& state)
{
    Program program;
    const QByteArray set = fs::readAll(program.mb.ArchivoActual);
    QTemporaryDir dir;
    const QString huge = dir.filePath(QStringLiteral("huge.pse"));
    {
        QFile f(huge);
        f.open(QIODevice::WriteOnly);
        for (qint64 written = 0; written < 81LL * 1024 * 1024; written += set.size())
            f.write(set);
    }
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    int errores = 0;
    for (auto _ : state) {
        program.mb.ArchivoActual = huge;
        try {
            program.files.CargarConjunto();
        } catch (const RuntimeError&) {
            ++errores;
        }
    }
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    if (errores != state.iterations())
        state.SkipWithError("the huge set did not end on a run-time error");
    state.counters["peakGrowthKB"] = static_cast<double>(after.ru_maxrss - before.ru_maxrss);
}
BENCHMARK(BM_OpenHugeSet)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
