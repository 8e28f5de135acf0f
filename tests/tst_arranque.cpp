#include "Arranque.h"
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
};

QTEST_GUILESS_MAIN(TestArranque)
#include "tst_arranque.moc"
