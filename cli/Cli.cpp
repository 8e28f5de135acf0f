#include "Cli.h"

#include "Catalogo.h"
#include "CodePage.h"
#include "Comprobacion.h"
#include "Configuracion.h"
#include "FileSystem.h"
#include "RenderVista.h"
#include "TextLines.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <cstdio>

void ConsoleInteraction::message(const QString& text)
{
    std::fprintf(stderr, "%s\n", qPrintable(text));
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

bool esArchivoEtiqueta(const QString& path)
{
    const QChar c = path.size() >= 2 ? path.at(path.size() - 2) : QChar();
    return c == QLatin1Char('d') || c == QLatin1Char('D');
}

void CliContext::configure(QStringList& args)
{
    const QString dir = takeOption(args, QStringLiteral("--program-dir"));
    mb.programDir = dir.isEmpty() ? QCoreApplication::applicationDirPath() : dir;
    if (!fs::dirExists(mb.programDir))
        throw UsageError(qPrintable(QStringLiteral("no program folder %1").arg(mb.programDir)));

    const QString cfg = fs::inProgramDir(mb, QStringLiteral("cfg.ini"));
    if (fs::fileExists(cfg)) {
        if (aplicarConfiguracion(mb, fs::readAll(cfg)) == LecturaConfiguracion::TipoIncorrecto)
            configuracionPorDefecto(mb);
    } else {
        configuracionPorDefecto(mb);
    }
    mb.ModeloNuevo = fs::fileExists(fs::inProgramDir(mb, QStringLiteral("sirel.new"))) ? 1 : 0;

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
    const QList<QByteArray> lines = splitLines(fs::readAll(path));
    if (esArchivoEtiqueta(path)) {
        if (!label.isEmpty())
            throw UsageError("a label file holds one label: --label is for set files");
        files.leerLineasEtiqueta(lines);
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
                QStringLiteral("--label takes a kind and a number, V%1..V5 or T%1..T5 in the %2 model")
                    .arg(minimo)
                    .arg(mb.ModeloNuevo ? "new" : "old")));
        const int numero = m.captured(2).toInt();
        p = m.captured(1).toUpper() == QLatin1String("V") ? numero : numero + (mb.ModeloNuevo ? 3 : 5);
    }
    files.ArchivoConjunto = path;
    files.leerLineasConjunto(lines);
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
    out += QStringLiteral("TipoEtiqueta   %1\nNumEtiqueta    %2\nAnchoEtiqueta  %3\nNombreEtiqueta \"%4\"\n")
               .arg(texto(ctx, mb.TipoEtiqueta), texto(ctx, mb.NumEtiqueta),
                    texto(ctx, mb.AnchoEtiqueta), texto(ctx, mb.NombreEtiqueta));
    for (int i = 0; i < mb.textosLibresModelo(); ++i)
        out += QStringLiteral("TextoLibre %1%2 \"%3\"\n")
                   .arg(i + 1)
                   .arg(i + 1 < 10 ? QStringLiteral(" ") : QString())
                   .arg(texto(ctx, mb.TextoLibre(i)));
    for (int i = 0; i < 2; ++i)
        out += QStringLiteral("TextoFijo %1    \"%2\"\n").arg(i + 1).arg(texto(ctx, mb.TextoFijo(i)));
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

int cmdCheck(CliContext& ctx, QStringList args)
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
        const QList<Hallazgo> hallazgos =
            comprobarArchivo(fs::readAll(file), !esArchivoEtiqueta(file), ctx.mb.ModeloNuevo);
        for (const Hallazgo& h : hallazgos) {
            if (h.linea == 0)
                print(QStringLiteral("%1: %2\n").arg(file, h.texto));
            else
                print(QStringLiteral("%1:%2:%3: %4\n").arg(file).arg(h.linea).arg(h.columna).arg(h.texto));
        }
        found += hallazgos.size();
    }
    return found ? 1 : 0;
}

int cmdPreview(CliContext& ctx, QStringList args)
{
    const char* usage = "usage: korvo-cli preview FILE [--label KN] -o OUT.png|.svg|.pdf";
    const QString label = takeOption(args, QStringLiteral("--label"));
    const QString out = takeOption(args, QStringLiteral("-o"));
    if (out.isEmpty() || !QRegularExpression(QStringLiteral("\\.(png|svg|pdf)$"),
                                             QRegularExpression::CaseInsensitiveOption)
                              .match(out)
                              .hasMatch())
        throw UsageError(usage);
    ctx.load(needFile(args, usage), label);
    exportarVistaPrevia(ctx.mb, out);
    return 0;
}
