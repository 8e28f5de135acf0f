#include "Arranque.h"
#include "CambiosPendientes.h"
#include "Catalogo.h"
#include "CodePage.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "ScriptedInteraction.h"
#include "TextLines.h"

#include <QtTest>

class TestArranque : public QObject {
    Q_OBJECT

private slots:
    // No cfg.ini: the English message first, then the splash and the main
    // window, and at the end cfg.ini in its long form.
    void primerArranque()
    {
        ProgramDir dir;
        dir.writeSmallCatalogue();
        ModBase mb;
        dir.attach(mb);
        ScriptedInteraction ui;
        ScriptedWindows windows(ui.log);
        bool labelWasFresh = false;
        windows.whileBaseOpen = [&](ModBase& m) {
            labelWasFresh = m.ArranqueInicial && m.NumEtiqueta == "1" && m.Campos(36).Codigo == "9";
            QCOMPARE(dir.read("cfg.ini").count("\r\n"), 8);
        };

        QCOMPARE(Main(mb, ui, windows), 0);
        QCOMPARE(ui.log, (QStringList{"message: Error: File cfg.ini => Default configuration",
                                      "splash", "base"}));
        QVERIFY(labelWasFresh);
        const QList<QByteArray> lines = splitLines(dir.read("cfg.ini"));
        QCOMPARE(lines.size(), 16);
        QCOMPARE(lines.at(0), QByteArray("Idioma = 1"));
        QCOMPARE(lines.at(7), QByteArray("No Fondo"));
    }

    // The language chosen during the run is the one cfg.ini is written in.
    void cambioDeIdiomaLlegaAlArchivo()
    {
        ProgramDir dir;
        dir.writeSmallCatalogue();
        dir.write("cfg.ini", "Idioma = 1\r\n");
        ModBase mb;
        dir.attach(mb);
        ScriptedInteraction ui;
        ScriptedWindows windows(ui.log);
        windows.whileBaseOpen = [](ModBase& m) {
            struct : WindowRefresh {
                void refresh() override {}
            } window;
            CambiarIdioma(m, 2, window);
        };
        QCOMPARE(Main(mb, ui, windows), 0);
        QCOMPARE(ui.log, (QStringList{"splash", "base"}));
        QCOMPARE(splitLines(dir.read("cfg.ini")).at(0), QByteArray("Language = 2"));
    }

    void sinCatalogo_data()
    {
        QTest::addColumn<bool>("conConfiguracion");
        QTest::addColumn<QStringList>("log");
        QTest::newRow("cfg.ini present")
            << true << QStringList{"message: Error: Data base"};
        QTest::newRow("cfg.ini missing")
            << false << QStringList{"message: Error: File cfg.ini => Default configuration",
                                    "message: Error: Data base"};
    }

    // Without the catalogue nothing opens and cfg.ini is left as it was:
    // one made in this run stays in its short form.
    void sinCatalogo()
    {
        QFETCH(bool, conConfiguracion);
        QFETCH(QStringList, log);
        ProgramDir dir;
        const QByteArray before = "Idioma = 2\r\nPuerto = 1\r\n";
        if (conConfiguracion)
            dir.write("cfg.ini", before);
        ModBase mb;
        dir.attach(mb);
        ScriptedInteraction ui;
        ScriptedWindows windows(ui.log);
        QCOMPARE(Main(mb, ui, windows), 1);
        QCOMPARE(ui.log, log);
        const QByteArray after = dir.read("cfg.ini");
        if (conConfiguracion)
            QCOMPARE(after, before);
        else
            QCOMPARE(splitLines(after).size(), 8);
    }

    // An empty cfg.ini leaves the language at 0, which has no column: the
    // program ends with the run-time error, and writes nothing.
    void idiomaCeroTerminaElPrograma()
    {
        ProgramDir dir;
        dir.writeSmallCatalogue();
        dir.write("cfg.ini", "");
        ModBase mb;
        dir.attach(mb);
        ScriptedInteraction ui;
        ScriptedWindows windows(ui.log);
        QCOMPARE(Main(mb, ui, windows), 1);
        QCOMPARE(ui.log,
                 (QStringList{"message: Run-time error '3061': Too few parameters. Expected 1."}));
        QCOMPARE(dir.read("cfg.ini"), QByteArray());
    }

    void splash_data()
    {
        QTest::addColumn<bool>("arranque");
        QTest::addColumn<int>("timer");
        QTest::newRow("start-up splash closes itself") << true << 500;
        QTest::newRow("about box waits") << false << 0;
    }

    void splash()
    {
        QFETCH(bool, arranque);
        QFETCH(int, timer);
        ModBase mb;
        mb.ArranqueInicial = arranque;
        const EstadoSplash s = cargaSplash(mb);
        QCOMPARE(s.lblVersion, QStringLiteral("v ") + versionPrograma());
        QVERIFY(QRegularExpression("^\\d+\\.\\d+$").match(versionPrograma()).hasMatch());
        QCOMPARE(s.intervaloTimer, timer);
        timerSplash(mb);
        QVERIFY(!mb.ArranqueInicial);
    }

    void cargaBase_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QByteArray>("antes");
        QTest::addColumn<QByteArray>("despues");
        QTest::addColumn<int>("minimo");
        QTest::newRow("new model raises 1") << 1 << QByteArray("1") << QByteArray("3") << 3;
        QTest::newRow("new model raises 2") << 1 << QByteArray("2") << QByteArray("3") << 3;
        QTest::newRow("new model keeps 4") << 1 << QByteArray("4") << QByteArray("4") << 3;
        QTest::newRow("old model keeps 1") << 0 << QByteArray("1") << QByteArray("1") << 1;
    }

    void cargaBase()
    {
        QFETCH(int, modelo);
        QFETCH(QByteArray, antes);
        QFETCH(QByteArray, despues);
        QFETCH(int, minimo);
        ModBase mb;
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        mb.NumEtiqueta = antes;
        mb.Modificado = true;
        mb.CargaTXL = 0;
        mb.PesoAproximado = true;
        ScriptedInteraction ui;
        QCOMPARE(::cargaBase(mb, ui, [](const QString&) { return true; }), minimo);
        QCOMPARE(mb.NumEtiqueta, despues);
        QVERIFY(!mb.Modificado && !mb.PesoAproximado && !mb.ArchivoConocido);
        QCOMPARE(mb.CargaTXL, int16_t(1));
    }

    void fondo_data()
    {
        QTest::addColumn<QString>("ruta");
        QTest::addColumn<bool>("legible");
        QTest::addColumn<QStringList>("log");
        QTest::addColumn<QString>("despues");
        QTest::newRow("no background, nothing tried") << "" << false << QStringList{} << "";
        QTest::newRow("a picture that loads") << "/a.bmp" << true << QStringList{} << "/a.bmp";
        QTest::newRow("one that does not is forgotten")
            << "/a.bmp" << false << QStringList{"message: Fondo : No se puede cargar"} << "";
    }

    void fondo()
    {
        QFETCH(QString, ruta);
        QFETCH(bool, legible);
        QFETCH(QStringList, log);
        QFETCH(QString, despues);
        ProgramDir dir;
        dir.writeCatalogue({row(222, QStringLiteral("No se puede cargar"), QStringLiteral("x")),
                            row(1343, QStringLiteral("Fondo"), QStringLiteral("x"))});
        ModBase mb;
        dir.attach(mb);
        CargarTextos(mb, 1);
        mb.RutaFondo = ruta;
        ScriptedInteraction ui;
        QStringList tried;
        ::cargaBase(mb, ui, [&](const QString& r) {
            tried.append(r);
            return legible;
        });
        QCOMPARE(tried, ruta.isEmpty() ? QStringList{} : QStringList{ruta});
        QCOMPARE(ui.log, log);
        QCOMPARE(mb.RutaFondo, despues);
    }

    void preguntaCambios_data()
    {
        QTest::addColumn<bool>("modificado");
        QTest::addColumn<QList<Answer>>("respuestas");
        QTest::addColumn<bool>("guardado");
        QTest::addColumn<bool>("continua");
        QTest::newRow("nothing modified asks nothing") << false << QList<Answer>{} << false << true;
        QTest::newRow("yes saves and goes on") << true << QList<Answer>{Answer::Yes} << true << true;
        QTest::newRow("no goes on") << true << QList<Answer>{Answer::No} << false << true;
        QTest::newRow("cancel stops") << true << QList<Answer>{Answer::Cancel} << false << false;
    }

    void preguntaCambios()
    {
        QFETCH(bool, modificado);
        QFETCH(QList<Answer>, respuestas);
        QFETCH(bool, guardado);
        QFETCH(bool, continua);
        ProgramDir dir;
        dir.writeSmallCatalogue();
        ModBase mb;
        dir.attach(mb);
        CargarTextos(mb, 1);
        mb.Modificado = modificado;
        ScriptedInteraction ui;
        ui.answers = respuestas;
        bool saved = false;
        const RespuestaCambios r = preguntarCambios(mb, ui, [&] { saved = true; });
        QCOMPARE(saved, guardado);
        QCOMPARE(r.continuar(), continua);
        QCOMPARE(ui.log.size(), modificado ? 1 : 0);
        if (modificado)
            QCOMPARE(ui.log.first(), QStringLiteral("question: ¿Guardar los cambios?"));
    }
};

QTEST_GUILESS_MAIN(TestArranque)
#include "tst_arranque.moc"
