#include "Arranque.h"
#include "CarpetaPrograma.h"
#include "Catalogo.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "ScriptedInteraction.h"
#include "TextLines.h"

#include <QtTest>

class TestArranque : public QObject {
    Q_OBJECT

private slots:
    // No cfg.ini: the English message first, then the splash and the main
    // window with a fresh label, and at the end cfg.ini in its long form, in
    // the language chosen during the run.
    void primerArranque()
    {
        ProgramDir dir;
        dir.copyBuiltCatalogue();
        ModBase mb;
        dir.attach(mb);
        ScriptedInteraction ui;
        ScriptedWindows windows(ui.log);
        bool labelWasFresh = false;
        windows.whileBaseOpen = [&](ModBase& m) {
            labelWasFresh = m.ArranqueInicial && m.NumEtiqueta == "1" && m.Campos(36).Codigo == "9";
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
        QCOMPARE(lines.at(0), QByteArray("Language = 2"));
        QCOMPARE(lines.at(7), QByteArray("No Background"));
    }

    // Without the catalogue nothing opens, and the cfg.ini made in this run
    // stays in its short form. (An empty cfg.ini, whose
    // language 0 has no column, is the main window's tests' damaged cfg.ini.)
    void terminaAlEmpezar()
    {
        ProgramDir dir;
        ModBase mb;
        dir.attach(mb);
        ScriptedInteraction ui;
        ScriptedWindows windows(ui.log);
        QCOMPARE(Main(mb, ui, windows), 1);
        QCOMPARE(ui.log, (QStringList{"message: Error: File cfg.ini => Default configuration",
                                      "message: Error: Data base"}));
        QCOMPARE(splitLines(dir.read("cfg.ini")).size(), 8);
    }

    // The main window's loading: a fresh label at the model's lowest number,
    // and no background tried when there is none. What a background that
    // loads or not does is for the main window's tests, which start the
    // program whole.
    void cargaBase()
    {
        ModBase mb;
        mb.ModeloNuevo = 1;
        mb.NumEtiqueta = "2";
        mb.Modificado = true;
        mb.CargaTXL = 0;
        mb.PesoAproximado = true;
        ScriptedInteraction ui;
        bool tried = false;
        QCOMPARE(::cargaBase(mb, ui, [&](const QString&) { return tried = true; }), 3);
        QCOMPARE(mb.NumEtiqueta, QByteArray("3"));
        QVERIFY(!mb.Modificado && !mb.PesoAproximado && !mb.ArchivoConocido && !tried);
        QCOMPARE(mb.CargaTXL, int16_t(1));
        QVERIFY(ui.log.isEmpty());
    }

    // Which folders a run takes: unpacked, the executable's own; installed
    // (a marker beside the data, in the executable's folder or in
    // ../share/korvo), the person's own under the data home.
    void carpetas_data()
    {
        QTest::addColumn<QString>("marca");    // where the marker is, below the root; "" none
        QTest::addColumn<QString>("xdg");      // XDG_DATA_HOME
        QTest::addColumn<QString>("programa"); // expected, "ROOT" and "HOME" replaced
        QTest::addColumn<QString>("datos");
        QTest::newRow("unpacked") << ""
                                  << ""
                                  << "ROOT/bin"
                                  << "ROOT/bin";
        QTest::newRow("marker beside the program") << "bin"
                                                   << "/xdg"
                                                   << "/xdg/korvo"
                                                   << "ROOT/bin";
        QTest::newRow("marker in share/korvo, no XDG_DATA_HOME") << "share/korvo"
                                                                 << ""
                                                                 << "HOME/.local/share/korvo"
                                                                 << "ROOT/share/korvo";
        QTest::newRow("a relative XDG_DATA_HOME is ignored") << "share/korvo"
                                                             << "rel"
                                                             << "HOME/.local/share/korvo"
                                                             << "ROOT/share/korvo";
    }

    void carpetas()
    {
        QFETCH(QString, marca);
        QFETCH(QString, xdg);
        QFETCH(QString, programa);
        QFETCH(QString, datos);
        QTemporaryDir raiz;
        QDir(raiz.path()).mkpath("bin");
        if (!marca.isEmpty()) {
            QDir(raiz.path()).mkpath(marca);
            QFile(raiz.filePath(marca + "/" + CarpetasPrograma::marca()))
                .open(QIODevice::WriteOnly);
        }
        QProcessEnvironment entorno;
        entorno.insert("HOME", "/home/ana");
        if (!xdg.isEmpty())
            entorno.insert("XDG_DATA_HOME", xdg);
#ifdef Q_OS_WIN
        // Windows has one place for it, whatever XDG says.
        entorno.insert("LOCALAPPDATA", "C:/Users/ana/AppData/Local");
        if (!marca.isEmpty())
            programa = "C:/Users/ana/AppData/Local/Korvo";
#endif
        const CarpetasPrograma c = carpetasPrograma(raiz.filePath("bin"), entorno);
        const auto ruta = [&](QString r) {
            return r.replace("ROOT", raiz.path()).replace("HOME", "/home/ana");
        };
        QCOMPARE(c.programa, ruta(programa));
        QCOMPARE(c.datos, ruta(datos));
        QCOMPARE(c.instalada, !marca.isEmpty());
    }

    // The person's folder is made from the installation's defaults at the
    // first start and left alone after; one that cannot be made is told by
    // its name, and nothing is left half there.
    void carpetaDeLaPersona()
    {
        QTemporaryDir raiz;
        CarpetasPrograma c;
        c.instalada = true;
        c.datos = raiz.filePath("share");
        c.programa = raiz.filePath("home/korvo");
        QDir(raiz.path()).mkpath("share/defaults");
        QFile marca(raiz.filePath("share/defaults/sirel.new"));
        QVERIFY(marca.open(QIODevice::WriteOnly));
        marca.close();
        QCOMPARE(prepararCarpetaPrograma(c), QString());
        QVERIFY(QFileInfo::exists(c.programa + "/sirel.new"));
        // The model switched to old by the person stays old.
        QFile::remove(c.programa + "/sirel.new");
        QCOMPARE(prepararCarpetaPrograma(c), QString());
        QVERIFY(!QFileInfo::exists(c.programa + "/sirel.new"));
        QFile cerrada(raiz.filePath("cerrada"));
        QVERIFY(cerrada.open(QIODevice::WriteOnly)); // a file where a folder should be
        cerrada.close();
        c.programa = raiz.filePath("cerrada/korvo");
        QVERIFY(prepararCarpetaPrograma(c).contains(QDir::toNativeSeparators(c.programa)));
    }
};

QTEST_GUILESS_MAIN(TestArranque)
#include "tst_arranque.moc"
