// A whole transfer against the virtual scale: what the program itself adds
// to each frame beyond the time the bytes need on the line, and what it
// costs the processor while it waits for the scale.
#include "Catalogo.h"
#include "Envio.h"
#include "ModBase.h"
#include "PuertoSerieQt.h"
#include "UserInteraction.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

namespace {

QString g_bin;

class Callada : public UserInteraction {
public:
    QStringList mensajes;
    void message(const QString& text) override { mensajes.append(text); }
    Answer question(const QString&) override { return Answer::Cancel; }
    QString openFile(const FileDialogRequest&) override { return {}; }
    QString saveFile(const FileDialogRequest&) override { return {}; }
};

class SinProgreso : public ProgresoEnvio {
public:
    void setMaximo(int) override {}
    void setValor(int) override {}
    void setTexto(const QString&) override {}
};

// A program folder with the catalogue and the virtual scale as its COM1.
class Banco {
public:
    explicit Banco(const QStringList& opciones)
    {
        QDir(m_dir.path()).mkpath("lang");
        QDir(m_dir.path()).mkpath("dosdevices");
        QFile::copy(g_bin + "/lang/lang.db", m_dir.filePath("lang/lang.db"));
        m_mb.programDir = m_dir.path();
        CargarTextos(m_mb, 2);
        m_mb.Idioma = 2;
        m_mb.ModeloNuevo = 1;
        m_mb.Puerto = 0;
        m_mb.Baudios = 3; // 19200
        m_mb.Paridad = 0;
        m_mb.BitsDatos = 1;
        m_mb.NumEquipo = 1;
        for (int n = 1; n <= 36; n += 3) {
            m_mb.Campos(n).Presente = "1";
            m_mb.Campos(n).PosHor = static_cast<int16_t>(n + 5);
            m_mb.Campos(n).PosVer = static_cast<int16_t>(n + 8);
        }
        m_mb.TextoLibre(0) = "CARNE DE TERNERA";
        const QString enlace = m_dir.filePath("dosdevices/com1");
        m_escala.setStandardOutputFile(QProcess::nullDevice());
        m_escala.start(g_bin + "/korvo-scale", QStringList{"--link", enlace} + opciones);
        m_escala.waitForStarted();
        for (int i = 0; i < 500 && !QFileInfo(enlace).isSymLink(); ++i)
            QThread::msleep(10);
    }
    ~Banco()
    {
        m_escala.terminate();
        m_escala.waitForFinished(3000);
    }

    ModBase& mb() { return m_mb; }

private:
    QTemporaryDir m_dir;
    ModBase m_mb;
    QProcess m_escala;
};

void transferir(benchmark::State& state, const QStringList& opciones)
{
    Banco banco(opciones);
    ModBase& mb = banco.mb();
    const QList<QByteArray> tramas = TramasEtiqueta(mb, mb.NumEquipo, false);
    qint64 bytes = 0;
    for (const QByteArray& t : tramas)
        bytes += t.size() + 7; // the frame and the scale's reply
    for (auto _ : state) {
        Callada persona;
        SinProgreso progreso;
        PuertoSerieQt puerto(mb.programDir);
        if (EnviarEtiqueta(mb, puerto, persona, progreso) != 0) {
            state.SkipWithError("the transfer failed");
            break;
        }
    }
    const double n = static_cast<double>(tramas.size());
    // Ten bits a byte at 19200 baud: what a real line would add.
    const double lineaUs = static_cast<double>(bytes) * 10.0 / 19200.0 * 1e6 / n;
    state.counters["frames"] = n;
    state.counters["per_frame"] = benchmark::Counter(
        n, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["line_us_per_frame_19200"] = lineaUs;
}

// The scale answers at once: wall time is the program's own work per frame
// (opening the port again for each field, the frame, the wait's wake-up).
void BM_Transferencia_nuevo(benchmark::State& state)
{
    transferir(state, {});
}
BENCHMARK(BM_Transferencia_nuevo)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime()
    ->Iterations(20);

// The scale takes 20 ms for every reply: the wall time grows by a second,
// the processor time should not grow at all.
void BM_Transferencia_escalaLenta(benchmark::State& state)
{
    transferir(state, {"--delay", "20"});
}
BENCHMARK(BM_Transferencia_escalaLenta)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime()
    ->Iterations(5);

// The frames alone, as the command line lists them.
void BM_TramasEtiqueta(benchmark::State& state)
{
    ModBase mb;
    mb.Idioma = 2;
    mb.ModeloNuevo = 1;
    for (auto _ : state)
        benchmark::DoNotOptimize(TramasEtiqueta(mb, 1, false));
}
BENCHMARK(BM_TramasEtiqueta)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    g_bin = QCoreApplication::applicationDirPath();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
