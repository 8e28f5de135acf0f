#include "BalanzaVirtual.h"
#include "Configuracion.h"
#include "LabelEnv.h"
#include "TextLines.h"

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
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), e.dir.path()); // no warning of its own
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(KORVO_CLI), QStringList{"--program-dir", e.dir.path()} + args);
    p.waitForFinished(30000);
    return {p.exitCode(), p.readAllStandardOutput(), p.readAllStandardError()};
}

// The frames `frames` prints for a label of set.pse, one hex line each.
QList<QByteArray> tramas(const LabelEnv& e, const QString& etiqueta,
                         const QStringList& opciones = {})
{
    const Run r =
        cli(e, QStringList{"frames", e.dir.file("set.pse"), "--label", etiqueta} + opciones);
    QList<QByteArray> out;
    for (const QByteArray& line : r.out.split('\n'))
        if (!line.isEmpty())
            out.append(QByteArray::fromHex(line));
    return out;
}

// The lines of `salida` about `ruta`, each starting with what is expected after "ruta:".
void lineasSobre(const QByteArray& salida, const QString& ruta, const QStringList& esperadas)
{
    const QStringList lineas = QString::fromUtf8(salida).split('\n').filter(ruta + ":");
    QCOMPARE(lineas.size(), esperadas.size());
    for (int i = 0; i < lineas.size(); ++i)
        QVERIFY2(lineas.at(i).startsWith(ruta + ":" + esperadas.at(i)), qPrintable(lineas.at(i)));
}

// A new-model set whose total label 4 holds a priced, named label.
struct Conjunto : LabelEnv {
    Conjunto() : LabelEnv(1)
    {
        dir.write("sirel.new", {});
        mb.ArchivoActual = dir.file("set.pse");
        mb.TipoEtiqueta = "T";
        mb.NumEtiqueta = "4";
        mb.NombreEtiqueta = "A\xd1O";
        mb.Campos(13).Presente = "1";
        files.GuardarEtiquetaConjunto();
    }
};

} // namespace

class TestCli : public QObject {
    Q_OBJECT

private slots:
    void showYExport()
    {
        Conjunto e;
        const auto show = [&](const QStringList& label) {
            const Run r = cli(e, QStringList{"show", e.dir.file("set.pse"), "--json"} + label);
            return QJsonDocument::fromJson(r.out).object();
        };
        QCOMPARE(show({"--label", "T4"})["NombreEtiqueta"].toString(), QStringLiteral("AÑO"));
        // Without --label, the label the open command shows: packing label 3.
        QCOMPARE(show({})["NumEtiqueta"].toString(), QStringLiteral("3"));

        // Export writes the same bytes the designer writes for that label.
        cli(e, {"export", e.dir.file("set.pse"), "--label", "T4", "-o", e.dir.file("t4.pde")});
        e.mb.ArchivoActual = e.dir.file("own.pde");
        e.files.GuardaEti();
        QCOMPARE(e.dir.read("t4.pde"), e.dir.read("own.pde"));
    }

    // preview draws the label in the format its output's name asks for.
    void vistaPrevia()
    {
        Conjunto e;
        QDir().mkpath(e.dir.file("res"));
        for (const QString& f : QDir(QStringLiteral(KORVO_BIN "/res")).entryList(QDir::Files))
            QFile::copy(QStringLiteral(KORVO_BIN "/res/") + f, e.dir.file("res/" + f));
        for (const char* salida : {"v.png", "v.pdf"})
            cli(e, {"preview", e.dir.file("set.pse"), "--label", "T4", "-o", e.dir.file(salida)});
        QVERIFY(e.dir.read("v.png").startsWith("\x89PNG"));
        QVERIFY(e.dir.read("v.pdf").startsWith("%PDF"));
    }

    // What `frames` prints is what `send` puts on the line, frame for frame.
    void enviar()
    {
        Conjunto e;
        BalanzaVirtual scale(e.dir, {});
        QVERIFY(scale.lista());
        const QStringList opciones{"--texts-only", "--equipo", "3"};
        const Run sent = cli(e, QStringList{"send", e.dir.file("set.pse"), "--label", "T4",
                                            "--port", "COM1", "--parity", "N", "--data", "8"} +
                                    opciones);
        QCOMPARE(sent.code, 0);
        QCOMPARE(scale.tramas(), tramas(e, "T4", opciones));
    }

    // Every label of the set to every scale of a list: a silent scale fails
    // alone, after the label it stopped at, and the good one gets every byte
    // in the order of the set; the trace names each scale's frames and replies.
    void flota()
    {
        Conjunto e;
        using L = BalanzaVirtual::Linea;
        BalanzaVirtual buena(e.dir, {}, L::Tcp, "good");
        BalanzaVirtual muda(e.dir, {"--silent", "1"}, L::Tcp, "silent");
        QVERIFY(buena.lista() && muda.lista());
        const QString lista = QStringLiteral("name,port,equipo\nnet,%1,1\nsilent,%2,1\n");
        e.dir.write("scales.csv", lista.arg(buena.direccion(), muda.direccion()).toUtf8());
        const Run r = cli(e, {"send", e.dir.file("set.pse"), "--all-labels", "--scales",
                              e.dir.file("scales.csv"), "--trace", e.dir.file("trace.txt")});
        QCOMPARE(r.code, 1);
        const QStringList salida = QString::fromUtf8(r.out).split('\n', Qt::SkipEmptyParts);
        QCOMPARE(salida.size(), 2);
        QCOMPARE(salida.at(0), "net\tok");
        QVERIFY(salida.at(1).startsWith("silent\tfailed\tV3: "));
        QList<QByteArray> flujo;
        for (const char* kn : {"V3", "V4", "V5", "T3", "T4", "T5"})
            flujo += tramas(e, kn);
        QCOMPARE(buena.tramas(), flujo);
        const QByteArray traza = e.dir.read("trace.txt");
        QVERIFY(traza.contains("\tsilent\tV3\t<-\topening\t\tno reply within 3000 ms"));
        // Served at once: the silent scale is opened before the good one is done.
        QVERIFY(traza.indexOf("\tsilent\tV3\t->\topening") < traza.lastIndexOf("\tnet\t"));
    }

    // A byte the language's code page has no character for (0xFF in Greek)
    // is sent and exported as itself, in the name of every field.
    void bytesSinCaracter()
    {
        LabelEnv e(1);
        e.dir.write("sirel.new", {});
        const QString etiqueta =
            QStringLiteral(KORVO_SOURCE_DIR "/tests/data/greek-name-undefined-byte.pde");
        const QByteArray nombre("\xd7"
                                "D:WD\xff");
        const Run frames = cli(e, {"--language", "7", "frames", etiqueta});
        int campos = 0;
        for (const QByteArray& hex : frames.out.split('\n'))
            if (const QByteArray trama = QByteArray::fromHex(hex); trama.startsWith("\x02"
                                                                                    "99")) {
                ++campos;
                QVERIFY2(trama.contains(nombre), hex.constData());
            }
        QCOMPARE(campos, 36);
        cli(e, {"--language", "7", "export", etiqueta, "-o", e.dir.file("out.pde")});
        const QList<QByteArray> filas = splitLines(e.dir.read("out.pde"));
        QCOMPARE(filas.size(), 15 + 36 + 1);
        for (int j = 15; j < 15 + 36; ++j)
            QCOMPARE(columns(filas.at(j), 7, 6), nombre);
    }

    // The command line starts from the settings and the model the designer
    // starts from: a damaged cfg.ini means the old model, sirel.new or not.
    void ajustesComoElDisenador_data()
    {
        QTest::addColumn<QByteArray>("cfg"); // null: no cfg.ini
        QTest::addColumn<bool>("antiguo");
        QTest::newRow("no cfg.ini") << QByteArray() << false;
        QTest::newRow("whole") << QByteArray("Idioma = 2\r\nPuerto = 1\r\n") << false;
        QTest::newRow("a blank after a digit")
            << QByteArray("Idioma = 2 \r\nPuerto = 1\r\n") << true;
        QTest::newRow("a letter on line 5")
            << QByteArray("1\r\n0\r\n2\r\n0\r\nx\r\n1\r\n1\r\n") << true;
    }

    void ajustesComoElDisenador()
    {
        QFETCH(QByteArray, cfg);
        QFETCH(bool, antiguo);
        Conjunto e; // a new-model set, sirel.new present
        if (!cfg.isNull())
            e.dir.write("cfg.ini", cfg);
        // V1 exists only in the old model.
        const Run r = cli(e, {"show", e.dir.file("set.pse"), "--label", "V1"});
        ModBase disenador;
        disenador.programDir = e.dir.path();
        LeerConfiguracion(disenador);
        QCOMPARE(disenador.ModeloNuevo == 0, antiguo);
        QCOMPARE(r.code == 0, antiguo);
    }

    // Commands refused before anything is done: exit 2, with the reason.
    void errores_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("code");
        QTest::newRow("unknown command") << QStringList{"frobnicate"} << 2;
        QTest::newRow("label of the other model")
            << QStringList{"show", "SET", "--label", "V1"} << 2;
        QTest::newRow("export without -o") << QStringList{"export", "SET"} << 2;
        QTest::newRow("language out of range")
            << QStringList{"--language", "9", "show", "SET"} << 2;
        QTest::newRow("the last language, Polish")
            << QStringList{"--language", "8", "show", "SET"} << 0;
    }

    void errores()
    {
        QFETCH(QStringList, args);
        QFETCH(int, code);
        Conjunto e;
        args.replaceInStrings("SET", e.dir.file("set.pse"));
        const Run r = cli(e, args);
        QCOMPARE(r.code, code);
        QCOMPARE(r.err.isEmpty(), code == 0); // the reason, and only on a refusal
    }

    // Every mistake of a list of scales is told by its line, and nothing is sent.
    void listaDeBalanzas()
    {
        Conjunto e;
        e.dir.write("scales.csv", "name,port,equipo,baud,parity\n"
                                  "a,COM1,1,,\n"
                                  "A,tcp://127.0.0.1:4001,2,,\n"
                                  "b,COM9,x,1200,Q\n"
                                  "f,COM4\n");
        const QString ruta = e.dir.file("scales.csv");
        const Run r = cli(e, {"send", e.dir.file("set.pse"), "--scales", ruta});
        QCOMPARE(r.code, 2);
        lineasSobre(r.err, ruta,
                    {"3: the name 'A' is also on line 2", "4: bad port 'COM9'", "4: bad equipo 'x'",
                     "4: bad baud '1200'", "4: bad parity 'Q'",
                     "5: 2 values where the header has 5 columns"});
    }

    // What check finds, as "line:column:" (a blank for the file as a whole);
    // it exits 1 when it found something.
    void comprobar_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QStringList>("hallazgos");
        QTest::newRow("a clean label file") << "label" << QStringList{};
        QTest::newRow("a 4-character position text") << "shifted" << QStringList{"43:15:"};
        QTest::newRow("a label of number 2 in the new model") << "number" << QStringList{"16:4:"};
        QTest::newRow("a short label file") << "short" << QStringList{" "};
        QTest::newRow("a free text of 25 letters fits") << "free 25" << QStringList{};
        QTest::newRow("one letter more is cut") << "free 26" << QStringList{"2:30:"};
        // Saving packing label 2 writes free text rows over the block of label 1.
        QTest::newRow("an old set after a save of another label")
            << "overwritten" << QStringList{"8:3:"};
    }

    void comprobar()
    {
        QFETCH(QString, archivo);
        QFETCH(QStringList, hallazgos);
        Conjunto e;
        const bool viejo = archivo == "overwritten";
        if (viejo) { // an old set saved from packing label 2
            LabelEnv old(0);
            old.mb.ArchivoActual = e.dir.file("set.pse");
            old.mb.NumEtiqueta = "2";
            old.files.GuardarEtiquetaConjunto();
        }
        QList<QByteArray> set = splitLines(e.dir.read("set.pse"));
        e.files.CargarEtiquetaConjunto(3);
        QList<QByteArray> label = e.files.lineasEtiqueta("V");
        if (archivo == "number")
            label[15][3] = '2'; // the new model's numbers start at 3
        if (archivo == "short")
            label.removeLast();
        if (archivo == "shifted")
            set[42] = "99V345       039.607201";
        if (archivo.startsWith("free"))
            set[1] = "9:01" + QByteArray(archivo.mid(5).toInt(), 'X');
        const bool esConjunto = archivo != "label" && archivo != "number" && archivo != "short";
        const QString path = e.dir.file(esConjunto ? "c.pse" : "c.pde");
        e.dir.write(QFileInfo(path).fileName(), joinLines(esConjunto ? set : label));

        const Run r = cli(e, {"--model", viejo ? "old" : "new", "check", path});
        QCOMPARE(r.code, hallazgos.isEmpty() ? 0 : 1);
        lineasSobre(r.out, path, hallazgos);
        if (viejo) // the cause is named
            QVERIFY(r.out.contains("free text rows a save of another label wrote"));
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
