// A whole transfer against the virtual scale: what the program itself adds
// to each frame beyond the time the bytes need on the line, and what it
// costs the processor while it waits for the scale; over TCP against the
// line's own time, and a fleet of scales at once.
#include "Catalogo.h"
#include "Envio.h"
#include "Flota.h"
#include "ModBase.h"
#include "PuertoSerieQt.h"
#include "PuertoTcp.h"
#include "UserInteraction.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <ctime>

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
    // On TCP the scale listens on a free loopback port, its address in
    // direccion(); else it is COM1 of the program folder.
    explicit Banco(const QStringList& opciones, bool tcp = false)
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
        const QStringList red = tcp ? QStringList{"--tcp", "127.0.0.1:0"} : QStringList{};
        m_escala.start(g_bin + "/korvo-scale", red + QStringList{"--link", enlace} + opciones);
        m_escala.waitForStarted();
        for (int i = 0; i < 500 && !QFileInfo(enlace).isSymLink(); ++i)
            QThread::msleep(10);
        if (tcp)
            m_direccion = nombreDeCom(m_dir.path(), 1);
    }
    ~Banco()
    {
        m_escala.terminate();
        m_escala.waitForFinished(3000);
    }

    ModBase& mb() { return m_mb; }
    const QString& direccion() const { return m_direccion; }

private:
    QString m_direccion;
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

// The time the label's frames and the scale's replies take on a line at
// that speed, ten bits a byte.
double tiempoLineaMs(const ModBase& mb, int baudios)
{
    qint64 bytes = 0;
    for (const QByteArray& t : TramasEtiqueta(mb, mb.NumEquipo, false))
        bytes += t.size() + 7;
    return static_cast<double>(bytes) * 10.0 / baudios * 1e3;
}

double procesoMs()
{
    timespec ts{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
    return static_cast<double>(ts.tv_sec) * 1e3 + static_cast<double>(ts.tv_nsec) / 1e6;
}

// One transfer over TCP to a scale that takes the line's own time at 19200
// baud: the ratio of the wall time to that line time is what the program
// and the network add.
void BM_TransferenciaTcp_linea19200(benchmark::State& state)
{
    Banco banco({"--line-speed", "19200"}, true);
    ModBase& mb = banco.mb();
    QElapsedTimer reloj;
    qint64 ns = 0;
    for (auto _ : state) {
        Callada persona;
        SinProgreso progreso;
        PuertoTcp puerto(banco.direccion());
        reloj.start();
        if (EnviarEtiqueta(mb, puerto, persona, progreso) != 0) {
            state.SkipWithError("the transfer failed");
            break;
        }
        ns += reloj.nsecsElapsed();
    }
    const double linea = tiempoLineaMs(mb, 19200);
    state.counters["line_ms"] = linea;
    state.counters["ratio_to_line"] =
        static_cast<double>(ns) / 1e6 / static_cast<double>(state.iterations()) / linea;
}
BENCHMARK(BM_TransferenciaTcp_linea19200)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime()
    ->Iterations(5);

// A fleet of N scales on loopback (every connection to the virtual scale is
// a scale of its own, each taking the line's time at 19200 baud), all at
// once on this thread: its wall time against one transfer's, and the
// processor time of this process as a share of the wall time.
void BM_Flota_linea19200(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    Banco banco({"--line-speed", "19200"}, true);
    ModBase& mb = banco.mb();
    const QList<EtiquetaEnvio> etiquetas{{QStringLiteral("V3"), &mb}};
    QList<BalanzaLista> una, todas;
    for (int i = 0; i < n; ++i) {
        BalanzaLista b;
        b.nombre = QStringLiteral("s%1").arg(i);
        b.puerto = banco.direccion();
        b.equipo = 1;
        todas.append(b);
    }
    una.append(todas.first());
    QElapsedTimer reloj;
    double unaMs = 0, flotaMs = 0, cpuMs = 0;
    for (auto _ : state) {
        {
            Flota sola(etiquetas, una, mb.programDir);
            reloj.start();
            sola.ejecutar();
            unaMs += static_cast<double>(reloj.nsecsElapsed()) / 1e6;
        }
        Flota flota(etiquetas, todas, mb.programDir);
        const double cpu0 = procesoMs();
        reloj.start();
        flota.ejecutar();
        flotaMs += static_cast<double>(reloj.nsecsElapsed()) / 1e6;
        cpuMs += procesoMs() - cpu0;
        for (int i = 0; i < flota.cuantas(); ++i)
            if (!flota.resultado(i).ok) {
                state.SkipWithError("a scale failed");
                return;
            }
    }
    const double it = static_cast<double>(state.iterations());
    state.counters["one_ms"] = unaMs / it;
    state.counters["fleet_ms"] = flotaMs / it;
    state.counters["ratio_to_one"] = flotaMs / unaMs;
    state.counters["cpu_share"] = cpuMs / flotaMs;
}
BENCHMARK(BM_Flota_linea19200)
    ->Arg(100)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime()
    ->Iterations(3);

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
