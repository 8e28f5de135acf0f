// A whole session as a person works: a new label, fields from the palette, a
// free text, the fixed text, a preset, save, a new label, open again, and
// the transfer to the virtual scale; on the offscreen platform, through the
// windows' own buttons and menus.
#include "BalanzaVirtual.h"
#include "frmBase.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "Recorrido.h"
#include "ScriptedInteraction.h"

#include <QtTest>

using recorrido::hijo;

class TestSesion : public QObject {
    Q_OBJECT

private slots:
    void sesionCompleta()
    {
        ProgramDir dir;
        ModBase mb;
        dir.prepare(mb);
        mb.ModeloNuevo = 1;
        mb.BitsDatos = 1; // 8 bits: a pseudo-terminal takes no other
        BalanzaVirtual scale(dir, {});
        QVERIFY(scale.lista());
        ScriptedInteraction ui;
        const auto pulsar = [](const QWidget& w, const char* boton) {
            QTest::mouseClick(hijo<QPushButton>(w, boton), Qt::LeftButton);
        };

        // The person at the screen: the free text of the new model's first
        // row (text 6), the fixed text, and OK to the texts to load and to
        // the transfer's settings; the transfer window runs by itself.
        recorrido::AlAbrirse persona([pulsar](QWidget& d) {
            if (d.objectName() == "frmTXL") {
                QTest::mouseClick(hijo<QCheckBox>(d, "ChTXL6"), Qt::LeftButton);
                QTest::keyClicks(hijo<QLineEdit>(d, "TextTXL6"), "oferta");
                pulsar(d, "OKButton");
                pulsar(d, "SalirButton");
            } else if (d.objectName() == "frmTXF") {
                QTest::keyClicks(hijo<QLineEdit>(d, "TextTXF1"), "conservar en frio");
                pulsar(d, "OKButton");
            } else if (d.objectName() != "frmEnvio") {
                pulsar(d, "OKButton");
            }
        });
        frmBase w(mb, ui);
        w.mostrarCargaTXL();
        recorrido::mostrar(w);
        const auto herramienta = [&](const char* clave) { hijo<QAction>(w, clave)->trigger(); };

        pulsar(w, "CBDisplay2"); // the weight from the palette
        pulsar(w, "CBDisplay0"); // a free text through its dialog
        QTest::mouseClick(hijo<QWidget>(w, "lblTXF1"), Qt::RightButton);
        hijo<QAction>(w, "mnuDerTXFEdit")->trigger();

        // The 60 mm preset asks first; No goes on without saving.
        ui.answers = {Answer::No};
        herramienta("Eti60");
        // Save: the label has no file yet, so Save As asks for one.
        ui.savePaths = {dir.file("tienda.pse")};
        herramienta("Guardar");

        // A new label, then the set opened again.
        herramienta("Nueva");
        QCOMPARE(mb.Campos(11).Presente, QByteArray("0"));
        ui.openPaths = {dir.file("tienda.pse")};
        herramienta("Abrir");
        QCOMPARE(mb.AnchoEtiqueta, QByteArray("60"));
        QCOMPARE(mb.Campos(11).Presente, QByteArray("1"));
        QCOMPARE(mb.TextoLibre(5), QByteArray("OFERTA"));
        QCOMPARE(mb.TextoFijo(0).trimmed(), QByteArray("CONSERVAR EN FRIO"));

        // Send it to the scale on COM1.
        herramienta("Enviar");
        QTRY_VERIFY_WITH_TIMEOUT(ui.log.contains("message: " + mb.Textos(445)), 20000);
        QCOMPARE(scale.tramas().size(), 54);
    }
};

QTEST_MAIN(TestSesion)
#include "tst_sesion.moc"
