#include "Cli.h"

#include "CarpetaPrograma.h"
#include "Catalogo.h"
#include "CodePage.h"
#include "Comprobacion.h"
#include "Configuracion.h"
#include "Envio.h"
#include "FileSystem.h"
#include "Flota.h"
#include "PuertoTcp.h"
#include "RenderVista.h"
#include "TextLines.h"

#include <cstdio>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {
// A progress bar is being drawn on the current line of stderr.
bool g_barraActiva = false;
} // namespace

void ConsoleInteraction::message(const QString& text)
{
    std::fprintf(stderr, "%s%s\n", g_barraActiva ? "\n" : "", qPrintable(text));
    g_barraActiva = false;
}

Answer ConsoleInteraction::question(const QString& text)
{
    std::fprintf(stderr, "%s [no one to answer: Cancel]\n", qPrintable(text));
    return Answer::Cancel;
}

QString takeOption(QStringList& args, const QString& name)
{
    const int at = args.indexOf(name);
    if (at < 0)
        return {};
    if (at + 1 >= args.size())
        throw UsageError(qPrintable(name + QStringLiteral(" needs a value")));
    const QString value = args.at(at + 1);
    args.remove(at, 2);
    return value;
}

bool takeFlag(QStringList& args, const QString& name)
{
    return args.removeAll(name) > 0;
}

void CliContext::configure(QStringList& args)
{
    const QString dir = takeOption(args, QStringLiteral("--program-dir"));
    if (dir.isEmpty()) {
        // The designer's folder: the person's own, for an installed program.
        const QString aviso = fijarCarpetas(mb, QCoreApplication::applicationDirPath());
        if (!aviso.isEmpty())
            std::fprintf(stderr, "korvo-cli: %s\n", qPrintable(aviso));
    } else {
        mb.programDir = dir;
    }
    if (!fs::dirExists(mb.programDir))
        throw UsageError(qPrintable(QStringLiteral("no program folder %1").arg(mb.programDir)));

    // The settings and the model as the designer would start with them;
    // cfg.ini is only read.
    leerAjustes(mb);

    const QString model = takeOption(args, QStringLiteral("--model"));
    if (model == QLatin1String("new"))
        mb.ModeloNuevo = 1;
    else if (model == QLatin1String("old"))
        mb.ModeloNuevo = 0;
    else if (!model.isEmpty())
        throw UsageError("--model takes new or old");

    const QString language = takeOption(args, QStringLiteral("--language"));
    if (!language.isEmpty()) {
        bool ok = false;
        const int n = language.toInt(&ok);
        if (!ok || n < 1 || n > 8)
            throw UsageError("--language takes 1 to 8");
        mb.Idioma = static_cast<int16_t>(n);
    }
    if (mb.Idioma < 1 || mb.Idioma > 8)
        mb.Idioma = 1;
    if (CargarTextos(mb, mb.Idioma) != 0)
        throw UsageError(qPrintable(QStringLiteral("no catalogue in %1/lang").arg(mb.programDir)));
    files.controles.VSEtiqMin = mb.ModeloNuevo ? 3 : 1;
    files.IniciaLineas();
}

void CliContext::load(const QString& path, const QString& label)
{
    if (!fs::fileExists(path))
        throw UsageError(qPrintable(QStringLiteral("no file %1").arg(path)));
    mb.ArchivoActual = path;
    if (esArchivoEtiqueta(path)) {
        if (!label.isEmpty())
            throw UsageError("a label file holds one label: --label is for set files");
        files.leerLineasEtiqueta(splitLines(fs::readAll(path)));
        mb.ArchivoConocido = true;
        files.Actualiza();
        mb.Modificado = false;
        return;
    }
    int p = 3;
    if (!label.isEmpty()) {
        const QRegularExpression kn(QStringLiteral("^([VT])([1-5])$"),
                                    QRegularExpression::CaseInsensitiveOption);
        const auto m = kn.match(label);
        const int minimo = mb.ModeloNuevo ? 3 : 1;
        if (!m.hasMatch() || m.captured(2).toInt() < minimo)
            throw UsageError(qPrintable(
                QStringLiteral(
                    "--label takes a kind and a number, V%1..V5 or T%1..T5 in the %2 model")
                    .arg(minimo)
                    .arg(mb.ModeloNuevo ? "new" : "old")));
        const int numero = m.captured(2).toInt();
        p = m.captured(1).toUpper() == QLatin1String("V") ? numero
                                                          : numero + (mb.ModeloNuevo ? 3 : 5);
    }
    files.ArchivoConjunto = path;
    files.leerArchivoConjunto(path);
    files.CargarEtiquetaConjunto(p);
}

namespace {

QString texto(const CliContext& ctx, const QByteArray& bytes)
{
    return decodeFor(ctx.mb.Idioma, bytes);
}

QJsonObject labelJson(const CliContext& ctx)
{
    const ModBase& mb = ctx.mb;
    QJsonObject o;
    o.insert(QStringLiteral("TipoEtiqueta"), texto(ctx, mb.TipoEtiqueta));
    o.insert(QStringLiteral("NumEtiqueta"), texto(ctx, mb.NumEtiqueta));
    o.insert(QStringLiteral("AnchoEtiqueta"), texto(ctx, mb.AnchoEtiqueta));
    o.insert(QStringLiteral("NombreEtiqueta"), texto(ctx, mb.NombreEtiqueta));
    QJsonArray libres;
    for (int i = 0; i < mb.textosLibresModelo(); ++i)
        libres.append(texto(ctx, mb.TextoLibre(i)));
    o.insert(QStringLiteral("TextoLibre"), libres);
    o.insert(QStringLiteral("TextoFijo"),
             QJsonArray{texto(ctx, mb.TextoFijo(0)), texto(ctx, mb.TextoFijo(1))});
    QJsonArray campos;
    for (int n = 1; n <= 36; ++n) {
        const Campo& c = mb.Campos(n);
        campos.append(QJsonObject{
            {QStringLiteral("numero"), n},
            {QStringLiteral("Codigo"), texto(ctx, c.Codigo)},
            {QStringLiteral("PosHor"), c.PosHor},
            {QStringLiteral("PosVer"), c.PosVer},
            {QStringLiteral("TextoHor"), texto(ctx, c.TextoHor)},
            {QStringLiteral("TextoVer"), texto(ctx, c.TextoVer)},
            {QStringLiteral("Tamano"), texto(ctx, c.Tamano)},
            {QStringLiteral("Presente"), texto(ctx, c.Presente)},
        });
    }
    o.insert(QStringLiteral("Campos"), campos);
    return o;
}

void print(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stdout);
}

QString needFile(QStringList& args, const char* usage)
{
    if (args.size() != 1)
        throw UsageError(usage);
    return args.takeFirst();
}

} // namespace

int cmdShow(CliContext& ctx, QStringList args)
{
    const QString label = takeOption(args, QStringLiteral("--label"));
    const bool json = takeFlag(args, QStringLiteral("--json"));
    const QString file = needFile(args, "usage: korvo-cli show FILE [--label KN] [--json]");
    ctx.load(file, label);
    const ModBase& mb = ctx.mb;
    if (json) {
        print(QString::fromUtf8(QJsonDocument(labelJson(ctx)).toJson(QJsonDocument::Indented)));
        return 0;
    }
    QString out;
    out += QStringLiteral(
               "TipoEtiqueta   %1\nNumEtiqueta    %2\nAnchoEtiqueta  %3\nNombreEtiqueta \"%4\"\n")
               .arg(texto(ctx, mb.TipoEtiqueta), texto(ctx, mb.NumEtiqueta),
                    texto(ctx, mb.AnchoEtiqueta), texto(ctx, mb.NombreEtiqueta));
    for (int i = 0; i < mb.textosLibresModelo(); ++i)
        out += QStringLiteral("TextoLibre %1%2 \"%3\"\n")
                   .arg(i + 1)
                   .arg(i + 1 < 10 ? QStringLiteral(" ") : QString())
                   .arg(texto(ctx, mb.TextoLibre(i)));
    for (int i = 0; i < 2; ++i)
        out +=
            QStringLiteral("TextoFijo %1    \"%2\"\n").arg(i + 1).arg(texto(ctx, mb.TextoFijo(i)));
    out += QStringLiteral("Campos  Codigo PosHor PosVer TextoHor TextoVer Tamano Presente\n");
    for (int n = 1; n <= mb.camposModelo(); ++n) {
        const Campo& c = mb.Campos(n);
        out += QStringLiteral("%1  %2 %3 %4 %5 %6 %7 %8\n")
                   .arg(n, 6)
                   .arg(texto(ctx, c.Codigo), 6)
                   .arg(c.PosHor, 6)
                   .arg(c.PosVer, 6)
                   .arg(texto(ctx, c.TextoHor), 8)
                   .arg(texto(ctx, c.TextoVer), 8)
                   .arg(texto(ctx, c.Tamano), 6)
                   .arg(texto(ctx, c.Presente), 8);
    }
    print(out);
    return 0;
}

int cmdExport(CliContext& ctx, QStringList args)
{
    const QString label = takeOption(args, QStringLiteral("--label"));
    const QString out = takeOption(args, QStringLiteral("-o"));
    if (out.isEmpty())
        throw UsageError("usage: korvo-cli export FILE [--label KN] -o OUT");
    const QString file = needFile(args, "usage: korvo-cli export FILE [--label KN] -o OUT");
    ctx.load(file, label);
    ctx.mb.ArchivoActual = out;
    ctx.files.GuardaEti();
    return 0;
}

// Every command takes its arguments the same way, to take options out of them.
int cmdCheck(CliContext& ctx, QStringList args) // NOLINT(performance-unnecessary-value-param)
{
    if (args.isEmpty())
        throw UsageError("usage: korvo-cli check FILE...");
    int found = 0;
    for (const QString& file : args) {
        if (!fs::fileExists(file)) {
            std::fprintf(stderr, "%s: no such file\n", qPrintable(file));
            ++found;
            continue;
        }
        const QList<Hallazgo> hallazgos = comprobarArchivo(
            splitLines(fs::readAll(file)), !esArchivoEtiqueta(file), ctx.mb.ModeloNuevo);
        for (const Hallazgo& h : hallazgos) {
            if (h.linea == 0)
                print(QStringLiteral("%1: %2\n").arg(file, h.texto));
            else
                print(QStringLiteral("%1:%2:%3: %4\n")
                          .arg(file)
                          .arg(h.linea)
                          .arg(h.columna)
                          .arg(h.texto));
        }
        found += hallazgos.size();
    }
    return found ? 1 : 0;
}

int cmdPreview(CliContext& ctx, QStringList args)
{
    const QByteArray usage =
        QByteArray("usage: korvo-cli preview FILE [--label KN] -o OUT: ") + kFormatosVista;
    const QString label = takeOption(args, QStringLiteral("--label"));
    const QString out = takeOption(args, QStringLiteral("-o"));
    if (out.isEmpty() || !formatoVista(out))
        throw UsageError(usage.constData());
    ctx.load(needFile(args, usage.constData()), label);
    exportarVistaPrevia(ctx.mb, out);
    return 0;
}

namespace {

// The options that choose a number from a short list: the index in the list.
int16_t indiceDe(const QString& value, const QStringList& choices, const char* option)
{
    const int at = choices.indexOf(value.toUpper());
    if (at < 0)
        throw UsageError(
            qPrintable(QStringLiteral("%1 takes %2")
                           .arg(QLatin1String(option), choices.join(QLatin1Char('|')))));
    return static_cast<int16_t>(at);
}

// The scale's number: 1 when not given, as the settings dialog shows an unset one.
int16_t equipo(QStringList& args)
{
    const QString value = takeOption(args, QStringLiteral("--equipo"));
    if (value.isEmpty())
        return 1;
    bool ok = false;
    const int n = value.toInt(&ok);
    if (!ok || n < 0 || n > 99)
        throw UsageError("--equipo takes the scale's number");
    return static_cast<int16_t>(n);
}

// The transfer's progress as a bar on stderr.
class BarraProgreso : public ProgresoEnvio {
public:
    void setMaximo(int maximo) override { m_maximo = std::max(1, maximo); }
    void setValor(int valor) override
    {
        m_valor = valor;
        pintar();
    }
    void setTexto(const QString& texto) override
    {
        m_texto = texto;
        pintar();
    }
    ~BarraProgreso() override
    {
        if (g_barraActiva)
            std::fputc('\n', stderr);
        g_barraActiva = false;
    }

private:
    void pintar()
    {
        const int ancho = 30;
        const int lleno = std::clamp(m_valor * ancho / m_maximo, 0, ancho);
        std::fprintf(stderr, "\r[%s%s] %3d/%d %-40s", QByteArray(lleno, '#').constData(),
                     QByteArray(ancho - lleno, ' ').constData(), m_valor, m_maximo,
                     m_texto.left(40).toLocal8Bit().constData());
        std::fflush(stderr);
        g_barraActiva = true;
    }
    int m_maximo = 1;
    int m_valor = 0;
    QString m_texto;
};

// The labels in turn to the scale on one port, each with its progress bar
// and its messages on stderr; with more than one label, a line for each
// label sent on stdout.
int enviarPorPuerto(CliContext& ctx, const QString& port, const QList<EtiquetaEnvio>& etiquetas,
                    bool porEtiqueta, TrazaEnvio* traza)
{
    const std::unique_ptr<PuertoSerie> puerto = crearPuerto(ctx.mb.programDir, port);
    if (!puerto)
        throw UsageError("--port takes a device, COM1..COM4 or tcp://HOST:PORT");
    for (const EtiquetaEnvio& e : etiquetas) {
        int16_t resultado = -1;
        {
            BarraProgreso barra;
            Envio envio(*e.mb, *puerto, ctx.ui, barra);
            if (traza)
                traza->seguir(envio, port, e);
            envio.cargar();
            envio.ejecutar();
            resultado = envio.estadoEnvio();
        }
        if (traza)
            traza->nota(port, e.nombre + (resultado == 0 ? QStringLiteral(": accepted")
                                                         : QStringLiteral(": failed")));
        if (porEtiqueta)
            print(e.nombre +
                  (resultado == 0 ? QStringLiteral("\tok\n") : QStringLiteral("\tfailed\n")));
        if (resultado != 0)
            return 1;
    }
    return 0;
}

// Every scale of the list at once: a progress line on stderr while they
// go, then a line for each scale on stdout, in the order of the list.
int enviarAFlota(CliContext& ctx, const QList<BalanzaLista>& balanzas,
                 const QList<EtiquetaEnvio>& etiquetas, TrazaEnvio* traza)
{
    Flota flota(etiquetas, balanzas, ctx.mb.programDir, traza);
    QElapsedTimer ultima;
    const auto pintar = [&](bool ya) {
        if (!ya && ultima.isValid() && ultima.elapsed() < 100)
            return;
        ultima.start();
        int valor = 0, maximo = 0, fallidas = 0;
        for (int i = 0; i < flota.cuantas(); ++i) {
            const Flota::Resultado& r = flota.resultado(i);
            valor += r.terminada ? 1 : 0;
            fallidas += r.terminada && !r.ok ? 1 : 0;
            maximo += 1;
        }
        std::fprintf(stderr, "\r%d/%d scales done, %d failed", valor, maximo, fallidas);
        std::fflush(stderr);
        g_barraActiva = true;
    };
    QObject::connect(&flota, &Flota::progreso, &flota, [&] { pintar(false); });
    QObject::connect(&flota, &Flota::balanzaTerminada, &flota, [&] { pintar(true); });
    flota.ejecutar();
    if (g_barraActiva)
        std::fputc('\n', stderr);
    g_barraActiva = false;
    bool todas = true;
    for (int i = 0; i < flota.cuantas(); ++i) {
        const Flota::Resultado& r = flota.resultado(i);
        QString linea = flota.balanza(i).nombre +
                        (r.ok ? QStringLiteral("\tok") : QStringLiteral("\tfailed\t"));
        if (!r.ok)
            linea +=
                (etiquetas.size() > 1 ? r.etiqueta + QStringLiteral(": ") : QString()) + r.mensaje;
        print(linea + '\n');
        todas = todas && r.ok;
    }
    return todas ? 0 : 1;
}

} // namespace

int cmdFrames(CliContext& ctx, QStringList args)
{
    const char* usage = "usage: korvo-cli frames FILE [--label KN] [--equipo N] [--texts-only]";
    const QString label = takeOption(args, QStringLiteral("--label"));
    const int16_t numero = equipo(args);
    const bool soloTextos = takeFlag(args, QStringLiteral("--texts-only"));
    ctx.load(needFile(args, usage), label);
    for (const QByteArray& frame : TramasEtiqueta(ctx.mb, numero, soloTextos))
        print(QString::fromLatin1(frame.toHex(' ').toUpper()) + QLatin1Char('\n'));
    return 0;
}

int cmdSend(CliContext& ctx, QStringList args)
{
    const char* usage =
        "usage: korvo-cli send FILE [--label KN | --all-labels] (--port PORT | --scales LIST)\n"
        "       [--baud B] [--parity N|E|O] [--data 7|8] [--stop 1|2] [--equipo N] [--texts-only]\n"
        "       [--trace OUT]";
    const QString label = takeOption(args, QStringLiteral("--label"));
    const bool todas = takeFlag(args, QStringLiteral("--all-labels"));
    const QString port = takeOption(args, QStringLiteral("--port"));
    const QString lista = takeOption(args, QStringLiteral("--scales"));
    const QString rutaTraza = takeOption(args, QStringLiteral("--trace"));
    if (port.isEmpty() == lista.isEmpty() || (todas && !label.isEmpty()))
        throw UsageError(usage);
    ModBase& mb = ctx.mb;
    if (const QString v = takeOption(args, QStringLiteral("--baud")); !v.isEmpty())
        mb.Baudios = indiceDe(v, textosVelocidades(), "--baud");
    if (const QString v = takeOption(args, QStringLiteral("--parity")); !v.isEmpty())
        mb.Paridad = indiceDe(v, {"N", "E", "O"}, "--parity");
    if (const QString v = takeOption(args, QStringLiteral("--data")); !v.isEmpty())
        mb.BitsDatos = indiceDe(v, {"7", "8"}, "--data");
    if (const QString v = takeOption(args, QStringLiteral("--stop")); !v.isEmpty())
        mb.BitsParada = indiceDe(v, {"1", "2"}, "--stop");
    mb.NumEquipo = equipo(args);
    mb.SoloTextos = takeFlag(args, QStringLiteral("--texts-only"));
    const QString file = needFile(args, usage);

    QList<BalanzaLista> balanzas;
    if (!lista.isEmpty()) {
        if (!fs::fileExists(lista))
            throw UsageError(qPrintable(QStringLiteral("no file %1").arg(lista)));
        QStringList errores;
        balanzas = leerListaBalanzas(fs::readAll(lista), ajustesLinea(mb), errores);
        if (!errores.isEmpty()) {
            for (const QString& e : errores)
                std::fprintf(stderr, "%s:%s\n", qPrintable(lista), qPrintable(e.mid(5)));
            return 2;
        }
    }

    // Each label unfolded in a block of its own, in the order of the set.
    std::unique_ptr<EtiquetasConjunto> conjunto;
    QList<EtiquetaEnvio> etiquetas;
    if (todas) {
        if (!fs::fileExists(file) || esArchivoEtiqueta(file))
            throw UsageError("--all-labels is for set files");
        conjunto = std::make_unique<EtiquetasConjunto>(mb, file);
        etiquetas = conjunto->etiquetas();
    } else {
        ctx.load(file, label);
        etiquetas.append({texto(ctx, mb.TipoEtiqueta + mb.NumEtiqueta), &mb});
    }

    TrazaEnvio traza;
    TrazaEnvio* conTraza = rutaTraza.isEmpty() ? nullptr : &traza;
    int resultado = 0;
    if (balanzas.isEmpty())
        resultado = enviarPorPuerto(ctx, port, etiquetas, todas, conTraza);
    else
        resultado = enviarAFlota(ctx, balanzas, etiquetas, conTraza);
    if (conTraza)
        traza.guardar(rutaTraza);
    return resultado;
}
