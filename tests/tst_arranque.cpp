#include "Arranque.h"
#include "CambiosPendientes.h"
#include "Catalogo.h"
#include "CodePage.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "ScriptedInteraction.h"
#include "TextLines.h"

#include <QtTest>

namespace {

// What the main window's loading starts from and leaves.
struct Carga {
    int modelo;
    QByteArray antes;
    QByteArray despues;
    int minimo;
    QString ruta;
    bool legible;
    QStringList log;
    QString rutaDespues;
};

} // namespace

Q_DECLARE_METATYPE(Carga)

class TestArranque : public QObject {
    Q_OBJECT

private slots:
    // No cfg.ini: the English message first, then the splash and the main
    // window with a fresh label, and at the end cfg.ini in its long form, in
    // the language chosen during the run.
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
            struct : WindowRefresh {
                void refresh() override {}
            } window;
            CambiarIdioma(m, 2, window);
        };

        QCOMPARE(Main(mb, ui, windows), 0);
        QCOMPARE(ui.log, (QStringList{"message: Error: File cfg.ini => Default configuration",
                                      "splash", "base"}));
        QVERIFY(labelWasFresh);
        const QList<QByteArray> lines = splitLines(dir.read("cfg.ini"));
        QCOMPARE(lines.size(), 16);
        QCOMPARE(lines.at(0), QByteArray("Language = 2"));
        QCOMPARE(lines.at(7), QByteArray("No Background"));
    }

    // Without the catalogue nothing opens and cfg.ini is left as it was: one
    // made in this run stays in its short form. An empty cfg.ini leaves the
    // language at 0, which has no column: the program ends with the run-time
    // error, and writes nothing.
    void terminaAlEmpezar_data()
    {
        QTest::addColumn<bool>("catalogo");
        QTest::addColumn<bool>("conConfiguracion");
        QTest::addColumn<QByteArray>("antes");
        QTest::addColumn<QStringList>("log");
        QTest::newRow("no catalogue, cfg.ini present")
            << false << true << QByteArray("Idioma = 2\r\nPuerto = 1\r\n")
            << QStringList{"message: Error: Data base"};
        QTest::newRow("no catalogue, cfg.ini missing")
            << false << false << QByteArray()
            << QStringList{"message: Error: File cfg.ini => Default configuration",
                           "message: Error: Data base"};
        QTest::newRow("empty cfg.ini") << true << true << QByteArray()
                                       << QStringList{"message: Run-time error '3061': Too few "
                                                      "parameters. Expected 1."};
    }

    void terminaAlEmpezar()
    {
        QFETCH(bool, catalogo);
        QFETCH(bool, conConfiguracion);
        QFETCH(QByteArray, antes);
        ProgramDir dir;
        if (catalogo)
            dir.writeSmallCatalogue();
        if (conConfiguracion)
            dir.write("cfg.ini", antes);
        ModBase mb;
        dir.attach(mb);
        ScriptedInteraction ui;
        ScriptedWindows windows(ui.log);
        QCOMPARE(Main(mb, ui, windows), 1);
        QTEST(ui.log, "log");
        if (conConfiguracion)
            QCOMPARE(dir.read("cfg.ini"), antes);
        else
            QCOMPARE(splitLines(dir.read("cfg.ini")).size(), 8);
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
        QCOMPARE(s.intervaloTimer, timer);
        timerSplash(mb);
        QVERIFY(!mb.ArranqueInicial);
    }

    // The main window's loading: a fresh label at the model's lowest number,
    // and the background tried once, forgotten with a message when it does
    // not load.
    void cargaBase_data()
    {
        QTest::addColumn<Carga>("c");
        QTest::newRow("new model raises 2, no background tried")
            << Carga{1, "2", "3", 3, "", false, {}, ""};
        QTest::newRow("new model keeps 4, a picture that loads")
            << Carga{1, "4", "4", 3, "/a.bmp", true, {}, "/a.bmp"};
        QTest::newRow("old model keeps 1, one that does not is forgotten")
            << Carga{0, "1", "1", 1, "/a.bmp", false, {"message: Fondo : No se puede cargar"}, ""};
    }

    void cargaBase()
    {
        QFETCH(Carga, c);
        ProgramDir dir;
        dir.writeCatalogue({row(222, QStringLiteral("No se puede cargar"), QStringLiteral("x")),
                            row(1343, QStringLiteral("Fondo"), QStringLiteral("x"))});
        ModBase mb;
        dir.attach(mb);
        CargarTextos(mb, 1);
        mb.ModeloNuevo = static_cast<int16_t>(c.modelo);
        mb.NumEtiqueta = c.antes;
        mb.Modificado = true;
        mb.CargaTXL = 0;
        mb.PesoAproximado = true;
        mb.RutaFondo = c.ruta;
        ScriptedInteraction ui;
        QStringList tried;
        QCOMPARE(::cargaBase(mb, ui,
                             [&](const QString& r) {
                                 tried.append(r);
                                 return c.legible;
                             }),
                 c.minimo);
        QCOMPARE(mb.NumEtiqueta, c.despues);
        QVERIFY(!mb.Modificado && !mb.PesoAproximado && !mb.ArchivoConocido);
        QCOMPARE(mb.CargaTXL, int16_t(1));
        QCOMPARE(tried, c.ruta.isEmpty() ? QStringList{} : QStringList{c.ruta});
        QCOMPARE(ui.log, c.log);
        QCOMPARE(mb.RutaFondo, c.rutaDespues);
    }

    void preguntaCambios_data()
    {
        QTest::addColumn<bool>("modificado");
        QTest::addColumn<QList<Answer>>("respuestas");
        QTest::addColumn<bool>("guardado");
        QTest::addColumn<bool>("continua");
        QTest::newRow("nothing modified asks nothing") << false << QList<Answer>{} << false << true;
        QTest::newRow("yes saves and goes on")
            << true << QList<Answer>{Answer::Yes} << true << true;
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
        QCOMPARE(ui.log,
                 modificado ? QStringList{"question: ¿Guardar los cambios?"} : QStringList{});
    }
};

QTEST_GUILESS_MAIN(TestArranque)
#include "tst_arranque.moc"
