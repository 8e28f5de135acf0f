// The small dialogs of the main window without their widgets: the branches
// their window tests do not take (the other model, the other kinds of label,
// the rows that misbehave).
#include "CatalogoCampos.h"
#include "CodePage.h"
#include "Configuracion.h"
#include "DialogoCampos.h"
#include "DialogoTextos.h"
#include "LabelEnv.h"
#include "ModBase.h"
#include "ProgramDir.h"

#include <functional>

#include <QtTest>

class TestDialogos : public QObject {
    Q_OBJECT

    ProgramDir m_dir;
    ModBase mb;

    // A fresh label of that model in this folder, with the catalogue's texts
    // of the language.
    void prepara(int modelo = 1, int idioma = 1)
    {
        mb = ModBase();
        m_dir.prepare(mb, idioma);
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        InicializarEtiqueta(mb);
    }

private slots:
    // Capitals as typed in Polish too, where "ń" sits at 241 (the window
    // tests type Spanish and Greek).
    void mayusculas()
    {
        QCOMPARE(mayusculasAlTeclear(8, QStringLiteral("ńą")), QStringLiteral("Ńą"));
    }

    // The rows of each model; a row closed with text shows it disabled, with
    // the mark only where its field is on.
    void txlFilas_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<int>("primera");
        QTest::addColumn<int>("ultima");
        QTest::addColumn<int>("campo"); // the first row's field
        QTest::newRow("old model") << 0 << 1 << 5 << 21;
        QTest::newRow("new model") << 1 << 6 << 15 << 27;
    }
    void txlFilas()
    {
        QFETCH(int, modelo);
        QFETCH(int, primera);
        QFETCH(int, ultima);
        QFETCH(int, campo);
        prepara(modelo);
        mb.TextoLibre(primera - 1) = "PAN";
        mb.Campos(campo).Presente = "1";
        mb.TextoLibre(primera) = "SIN CAMPO";
        DialogoTXL d(mb);
        for (int i = 1; i <= 15; ++i)
            QCOMPARE(d.fila(i).visible, i >= primera && i <= ultima);
        QCOMPARE(d.fila(primera).titulo, "1 " + mb.Textos(1307));
        QVERIFY(!d.fila(primera).textoHabilitado && d.fila(primera).enEtiqueta);
        QVERIFY(d.fila(primera + 1).textoVisible && !d.fila(primera + 1).enEtiqueta);
        QVERIFY(!d.fila(primera + 2).textoVisible);
    }

    // A row opened, typed in and closed by its box drops what was typed: a
    // row with a text shows it again, a row already on the label opens with
    // the (empty) text it was confirmed with, an empty row hides its box;
    // row 6 alone opens with what its box last had. Salir leaves pending
    // only the texts newly on the label and keeps all of them in freetxl.sft.
    void txlSoltarYSalir()
    {
        prepara();
        mb.TextoLibre(9) = "QUESO";
        mb.Campos(27).Presente = "1"; // rows 6 and 7 on the label when opened
        mb.Campos(28).Presente = "1";
        mb.TXLPendiente(12) = true;
        DialogoTXL d(mb);
        for (int fila : {6, 7, 9, 10}) {
            d.pulsarFila(fila, true);
            d.cambiarTexto(fila, "OTRO");
            d.pulsarFila(fila, false);
        }
        QCOMPARE(d.fila(10).texto, QStringLiteral("QUESO"));
        QVERIFY(!d.fila(9).textoVisible);
        for (int fila : {6, 7, 8}) {
            d.pulsarFila(fila, true);
            QCOMPARE(d.fila(fila).texto, fila == 6 ? QStringLiteral("OTRO") : QString());
            d.cambiarTexto(fila, "NUEVO");
            d.aceptar();
        }
        d.salir();
        QVERIFY(!mb.TXLPendiente(7) && mb.TXLPendiente(8) && !mb.TXLPendiente(12));
        QVERIFY(m_dir.read("freetxl.sft").contains("9:07NUEVO\r\n9:08\r\n9:09QUESO\r\n"));
    }

    // Select all and OK deletes the fields whose boxes this label offers.
    void borrarReglas_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QByteArray>("tipo");
        QTest::addColumn<QList<int>>("presentes");
        QTest::addColumn<QList<int>>("borrados");
        const auto fila = [](const char* nombre, int modelo, const char* tipo,
                             const QList<int>& presentes, const QList<int>& borrados) {
            QTest::newRow(nombre) << modelo << QByteArray(tipo) << presentes << borrados;
        };
        fila("nothing on the label", 1, "V", {}, {});
        fila("V: price and amount by their V boxes", 1, "V", {13, 14, 20, 1}, {13, 14, 1});
        fila("another kind: none of the five", 1, "Q", {13, 14, 20, 11}, {11});
        // The hidden boxes of free texts 1 to 5 are ticked too on the new model.
        fila("new model: lot and every free text", 1, "V", {21, 26, 27, 36}, {21, 26, 27, 36});
        fila("old model: free texts 1 to 5", 0, "V", {21, 25, 16}, {21, 25, 16});
    }
    void borrarReglas()
    {
        QFETCH(int, modelo);
        QFETCH(QList<int>, presentes);
        QFETCH(QList<int>, borrados);
        QFETCH(QByteArray, tipo);
        prepara(modelo);
        mb.TipoEtiqueta = tipo;
        for (int n : presentes) {
            mb.Campos(n).Presente = "1";
            mb.Campos(n).TextoHor = "025";
        }
        DialogoBorrar d(mb);
        d.seleccionarTodo();
        d.aceptar();
        for (int n : presentes)
            QCOMPARE(mb.Campos(n).Presente == "0", borrados.contains(n));
        QCOMPARE(mb.Modificado, !borrados.isEmpty());
    }

    // Label bytes shown to a person and taken back come back as they were,
    // for every byte of each of the three code pages, on each path where
    // they turn into text and back: the name box, the free and fixed text
    // dialogs, the background path in cfg.ini. A path that holds fewer
    // characters takes the bytes a piece at a time.
    void textoIdaYVuelta_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QString>("camino");
        for (const int idioma : {1, 7, 8})
            for (const char* camino : {"name", "free text", "fixed text", "background"})
                QTest::addRow("%s, language %d", camino, idioma) << idioma << QString(camino);
    }

    void textoIdaYVuelta()
    {
        QFETCH(int, idioma);
        QFETCH(QString, camino);
        LabelEnv e(1);
        e.mb.Idioma = static_cast<int16_t>(idioma);
        const auto cp = [&](const QByteArray& b) { return decodeFor(e.mb.Idioma, b); };
        // What each path gives back for the bytes it is handed.
        const QMap<QString, std::pair<int, std::function<QByteArray(const QByteArray&)>>> caminos =
            {
                {"name",
                 {7,
                  [&](const QByteArray& b) {
                      e.mb.NombreEtiqueta = b;
                      e.files.Actualiza();
                      e.files.cambioNombre(e.files.controles.TxtNomEtiq);
                      return e.mb.NombreEtiqueta;
                  }}},
                {"free text",
                 {25,
                  [&](const QByteArray& b) {
                      e.mb.TextoLibre(6) = b;
                      e.mb.Campos(campoDeTextoLibre(7)).Presente = "1";
                      DialogoTXL d(e.mb);
                      d.pulsarFila(7, true);
                      d.aceptar();
                      return e.mb.TextoLibre(6);
                  }}},
                {"fixed text",
                 {25,
                  [&](const QByteArray& b) {
                      AceptarTXF(e.mb, textoFijoParaCaja(e.mb.Idioma, b), {});
                      return e.mb.TextoFijo(0);
                  }}},
                {"background",
                 {256,
                  [&](const QByteArray& b) {
                      e.mb.RutaFondo = cp(b);
                      ModBase leido;
                      aplicarConfiguracion(leido, formaLarga(e.mb));
                      return encodeFor(e.mb.Idioma, leido.RutaFondo);
                  }}},
            };
        const auto& [pieza, ida] = caminos.value(camino);
        // Every byte but the ends of lines and the blank, which paths cut
        // at the end of a text; the blank and the letters are plain ASCII.
        QByteArray todos;
        for (int b = 0; b < 256; ++b)
            if (b != '\r' && b != '\n' && b != ' ')
                todos += static_cast<char>(b);
        for (qsizetype i = 0; i < todos.size(); i += pieza) {
            const QByteArray trozo = todos.mid(i, pieza);
            QCOMPARE(ida(trozo).toHex(' '), trozo.toHex(' '));
        }
    }
};

QTEST_GUILESS_MAIN(TestDialogos)
#include "tst_dialogos.moc"
