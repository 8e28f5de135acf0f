#include "BalanzaVirtual.h"
#include "Comprobacion.h"
#include "LabelEnv.h"
#include "TextLines.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#ifndef KORVO_CLI
#error "the command-line tests need the path of korvo-cli"
#endif

namespace {

struct Run {
    int code = -1;
    QByteArray out;
    QByteArray err;
};

Run cli(const LabelEnv& e, const QStringList& args)
{
    QProcess p;
    // The companion needs no display of any kind, whatever the test has.
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("QT_QPA_PLATFORM"));
    env.remove(QStringLiteral("DISPLAY"));
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(KORVO_CLI), QStringList{"--program-dir", e.dir.path()} + args);
    p.waitForFinished(30000);
    return {p.exitCode(), p.readAllStandardOutput(), p.readAllStandardError()};
}

// A new-model set whose total label 4 holds a priced, named label.
void conjunto(LabelEnv& e)
{
    e.dir.write("sirel.new", {});
    e.dir.write("cfg.ini", "Idioma = 1\r\n");
    ModBase& mb = e.mb;
    mb.ArchivoActual = e.dir.file("set.pse");
    mb.TipoEtiqueta = "T";
    mb.NumEtiqueta = "4";
    mb.NombreEtiqueta = "A\xd1O";
    mb.Campos(13).Presente = "1";
    mb.Campos(13).TextoHor = "108";
    mb.Campos(13).TextoVer = "036";
    mb.Campos(13).Tamano = "2";
    mb.TextoLibre(2) = "TERCERO";
    e.files.GuardarEtiquetaConjunto();
}

} // namespace

class TestCli : public QObject {
    Q_OBJECT

private slots:
    void show()
    {
        LabelEnv e(1);
        conjunto(e);
        const Run r = cli(e, {"show", e.dir.file("set.pse"), "--label", "T4", "--json"});
        QCOMPARE(r.code, 0);
        const QJsonObject o = QJsonDocument::fromJson(r.out).object();
        QCOMPARE(o["TipoEtiqueta"].toString(), QStringLiteral("T"));
        QCOMPARE(o["NombreEtiqueta"].toString(), QStringLiteral("AÑO"));
        QCOMPARE(o["TextoLibre"].toArray().at(2).toString(), QStringLiteral("TERCERO"));
        const QJsonObject precio = o["Campos"].toArray().at(12).toObject();
        QCOMPARE(precio["Codigo"].toString(), QStringLiteral("M"));
        QCOMPARE(precio["PosHor"].toInt(), 30);
        QCOMPARE(precio["Tamano"].toString(), QStringLiteral("2"));

        // Without --label, the label the open command shows: packing label 3.
        const Run first = cli(e, {"show", e.dir.file("set.pse"), "--json"});
        QCOMPARE(QJsonDocument::fromJson(first.out).object()["NumEtiqueta"].toString(), QStringLiteral("3"));
    }

    void export_()
    {
        LabelEnv e(1);
        conjunto(e);
        const Run r = cli(e, {"export", e.dir.file("set.pse"), "--label", "T4", "-o", e.dir.file("t4.pde")});
        QCOMPARE(r.code, 0);
        // The same bytes the designer writes for that label.
        e.mb.NombreEtiqueta = "A\xd1O";
        e.mb.ArchivoActual = e.dir.file("own.pde");
        e.files.GuardaEti();
        QCOMPARE(e.dir.read("t4.pde"), e.dir.read("own.pde"));
        QCOMPARE(cli(e, {"show", e.dir.file("t4.pde"), "--json"}).code, 0);
    }

    void vistaPrevia_data()
    {
        QTest::addColumn<QString>("salida");
        QTest::addColumn<QByteArray>("firma");
        QTest::newRow("png") << "v.png" << QByteArray("\x89PNG");
        QTest::newRow("svg") << "v.svg" << QByteArray("<?xml");
        QTest::newRow("pdf") << "v.pdf" << QByteArray("%PDF");
    }

    void vistaPrevia()
    {
        QFETCH(QString, salida);
        QFETCH(QByteArray, firma);
        LabelEnv e(1);
        conjunto(e);
        QDir().mkpath(e.dir.file("res"));
        for (const QString& f : QDir(QStringLiteral(KORVO_BIN "/res")).entryList(QDir::Files))
            QFile::copy(QStringLiteral(KORVO_BIN "/res/") + f, e.dir.file("res/" + f));
        const Run r = cli(e, {"preview", e.dir.file("set.pse"), "--label", "T4", "-o", e.dir.file(salida)});
        QCOMPARE(r.code, 0);
        QVERIFY(e.dir.read(salida).startsWith(firma));
    }

    // What `frames` prints is what `send` puts on the line, frame for frame.
    void enviar_data()
    {
        QTest::addColumn<QStringList>("opciones");
        QTest::addColumn<QStringList>("balanza");
        QTest::addColumn<int>("code");
        QTest::newRow("whole label") << QStringList{} << QStringList{} << 0;
        QTest::newRow("texts only, scale 3") << QStringList{"--texts-only", "--equipo", "3"} << QStringList{} << 0;
        QTest::newRow("frame 4 refused") << QStringList{} << QStringList{"--refuse", "4"} << 1;
    }

    void enviar()
    {
        QFETCH(QStringList, opciones);
        QFETCH(QStringList, balanza);
        QFETCH(int, code);
        LabelEnv e(1);
        conjunto(e);
        BalanzaVirtual scale(e.dir, balanza);
        QVERIFY(scale.lista());
        const QStringList label{e.dir.file("set.pse"), "--label", "T4"};
        const Run frames = cli(e, QStringList{"frames"} + label + opciones);
        QCOMPARE(frames.code, 0);
        QList<QByteArray> expected;
        for (const QByteArray& line : frames.out.split('\n'))
            if (!line.isEmpty())
                expected.append(QByteArray::fromHex(line));
        const Run sent = cli(e, QStringList{"send"} + label + opciones +
                                    QStringList{"--port", "COM1", "--parity", "N", "--data", "8"});
        QCOMPARE(sent.code, code);
        const QList<QByteArray> received = scale.tramas();
        if (code == 0)
            QCOMPARE(received, expected);
        else // nothing after the refused frame, and no closing frame
            QCOMPARE(received, expected.mid(0, 4));
    }

    void errores_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("code");
        QTest::newRow("no command") << QStringList{} << 2;
        QTest::newRow("unknown command") << QStringList{"frobnicate"} << 2;
        QTest::newRow("label of the other model") << QStringList{"show", "SET", "--label", "V1"} << 2;
        QTest::newRow("label of a label file") << QStringList{"show", "LABEL", "--label", "V3"} << 2;
        QTest::newRow("missing file") << QStringList{"show", "nothing.pse"} << 2;
        QTest::newRow("export without -o") << QStringList{"export", "SET"} << 2;
        QTest::newRow("language out of range") << QStringList{"--language", "9", "show", "SET"} << 2;
    }

    void errores()
    {
        QFETCH(QStringList, args);
        QFETCH(int, code);
        LabelEnv e(1);
        conjunto(e);
        e.mb.ArchivoActual = e.dir.file("label.pde");
        e.files.GuardaEti();
        args.replaceInStrings("SET", e.dir.file("set.pse"));
        args.replaceInStrings("LABEL", e.dir.file("label.pde"));
        const Run r = cli(e, args);
        QCOMPARE(r.code, code);
        QVERIFY(!r.err.isEmpty());
    }

    void comprobar_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QStringList>("hallazgos"); // "line:column"
        QTest::newRow("a clean set") << "set" << 1 << QStringList{};
        QTest::newRow("a clean label file") << "label" << 1 << QStringList{};
        QTest::newRow("a 4-character position text") << "shifted" << 1 << QStringList{"43:15"};
        QTest::newRow("kind and width") << "kind" << 1 << QStringList{"18:3", "18:5"};
        QTest::newRow("a new set read in the old model") << "set" << 0 << QStringList{"0:0"};
        QTest::newRow("a label of number 1 in the new model") << "number" << 1 << QStringList{"16:4"};
        QTest::newRow("a short label file") << "short" << 1 << QStringList{"0:0"};
        // Saving packing label 2 writes free text rows over the block of label 1.
        QTest::newRow("an old set after a save of another label") << "overwritten" << 0 << QStringList{"8:3"};
    }

    void comprobar()
    {
        QFETCH(QString, archivo);
        QFETCH(int, modelo);
        QFETCH(QStringList, hallazgos);
        LabelEnv e(archivo == "overwritten" ? 0 : 1);
        QList<QByteArray> set;
        if (archivo == "overwritten") {
            e.mb.ArchivoActual = e.dir.file("set.ose");
            e.mb.TipoEtiqueta = "V";
            e.mb.NumEtiqueta = "2";
            e.files.GuardarEtiquetaConjunto();
            set = splitLines(e.dir.read("set.ose"));
        } else {
            conjunto(e);
            set = splitLines(e.dir.read("set.pse"));
        }
        e.files.CargarEtiquetaConjunto(3);
        QList<QByteArray> label = e.files.lineasEtiqueta("V");
        bool esConjunto = true;
        QByteArray bytes = joinLines(set);
        if (archivo == "label" || archivo == "number" || archivo == "short") {
            esConjunto = false;
            if (archivo == "number")
                label[15][3] = '1';
            if (archivo == "short")
                label.removeLast();
            bytes = joinLines(label);
        } else if (archivo == "shifted") {
            set[42] = "99V345       0" "39.6" "0720" "1";
            bytes = joinLines(set);
        } else if (archivo == "kind") {
            set[17] = "99X350       B00000000";
            bytes = joinLines(set);
        }
        QStringList got;
        const QList<Hallazgo> found = comprobarArchivo(splitLines(bytes), esConjunto, static_cast<int16_t>(modelo));
        for (const Hallazgo& h : found)
            got.append(QStringLiteral("%1:%2").arg(h.linea).arg(h.columna));
        if (archivo == "set" && modelo == 0) // read in the wrong model, the rows fall everywhere: the count says it first
            got = got.mid(0, 1);
        if (archivo == "overwritten") // the cause is named
            QVERIFY(found.constFirst().texto.contains("free text rows a save of another label wrote"));
        QCOMPARE(got, hallazgos);

        // The command says the same and exits 1 when it found something.
        const QString path = e.dir.file(esConjunto ? "c.pse" : "c.pde");
        e.dir.write(QFileInfo(path).fileName(), bytes);
        const Run r = cli(e, {"--model", modelo ? "new" : "old", "check", path});
        QCOMPARE(r.code, hallazgos.isEmpty() ? 0 : 1);
        if (!hallazgos.isEmpty() && hallazgos.first() != "0:0")
            QVERIFY(r.out.contains((path + ":" + hallazgos.first()).toUtf8()));
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
