// The small dialogs of the main window without their widgets: the branches
// their window tests do not take (the other model, the other kinds of label,
// the rows that misbehave).
#include "Catalogo.h"
#include "ConfigEnvio.h"
#include "DialogoCampos.h"
#include "DialogoTextos.h"
#include "ModBase.h"
#include "ProgramDir.h"

#include <QtTest>

class TestDialogos : public QObject {
    Q_OBJECT

    ProgramDir m_dir;
    ModBase mb;

    static int campoDeTextoLibre(int i) { return i <= 5 ? i + 20 : i + 21; }

    // A fresh store in this folder, with the catalogue's texts of the language.
    void prepara(int modelo = 1, int idioma = 1)
    {
        mb = ModBase();
        m_dir.attach(mb);
        mb.Idioma = static_cast<int16_t>(idioma);
        QCOMPARE(CargarTextos(mb, mb.Idioma), int16_t(0));
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        InicializarEtiqueta(mb);
    }

    static QList<int> ajustes(const ModBase& m)
    {
        return {m.Puerto, m.Baudios, m.Paridad, m.BitsParada, m.BitsDatos};
    }

private slots:
    void initTestCase() { m_dir.copyBuiltCatalogue(); }

    // Each setting goes to the box of its own and back; the scale number box
    // shows 1 until one was chosen; free-texts-only is stored as the button
    // pressed says.
    void config()
    {
        prepara();
        mb.Puerto = 2;
        mb.Baudios = 3;
        mb.Paridad = 1;
        mb.BitsDatos = 4; // every setting its own value, so none can stand for another
        mb.NumEquipo = 6;
        mb.SoloTextos = true;
        AjustesConfig a = CargarConfig(mb);
        QCOMPARE(a.equipo, QStringLiteral("6"));
        QVERIFY(!mb.SoloTextos);
        const QList<int> antes = ajustes(mb);
        prepara();
        a.equipo = "8";
        GuardarConfig(mb, a, true);
        QCOMPARE(ajustes(mb), antes);
        QCOMPARE(mb.NumEquipo, int16_t(8));
        QVERIFY(mb.SoloTextos);
        a.equipo.clear(); // an empty box stores 1
        GuardarConfig(mb, a, false);
        QCOMPARE(mb.NumEquipo, int16_t(1));
        QVERIFY(!mb.SoloTextos);
        mb.NumEquipo = 0;
        QCOMPARE(CargarConfig(mb).equipo, QStringLiteral("1"));
    }

    void mayusculas_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("queda");
        QTest::newRow("capitals and signs stay") << 2 << "AB-{}~"
                                                 << "AB-{}~";
        QTest::newRow("Greek: only what sits at 241") << 7 << "aρα"
                                                      << "AΡα";
        QTest::newRow("Polish: ń at 241") << 8 << "ńą"
                                          << "Ńą";
    }
    void mayusculas()
    {
        QFETCH(int, idioma);
        QFETCH(QString, tecleado);
        QTEST(mayusculasAlTeclear(static_cast<int16_t>(idioma), tecleado), "queda");
    }

    // The rows of each model; a row closed with text shows it disabled, with
    // the mark only where its field is on.
    void txlFilas_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<int>("primera");
        QTest::addColumn<int>("ultima");
        QTest::newRow("old model") << 0 << 1 << 5;
        QTest::newRow("new model") << 1 << 6 << 15;
    }
    void txlFilas()
    {
        QFETCH(int, modelo);
        QFETCH(int, primera);
        QFETCH(int, ultima);
        prepara(modelo);
        mb.TextoLibre(primera - 1) = "PAN";
        mb.Campos(campoDeTextoLibre(primera)).Presente = "1";
        mb.TextoLibre(primera) = "SIN CAMPO";
        DialogoTXL d(mb);
        for (int i = 1; i <= 15; ++i)
            QCOMPARE(d.fila(i).visible, i >= primera && i <= ultima);
        QCOMPARE(d.fila(primera).titulo, "1 " + mb.Textos(1307));
        QVERIFY(!d.fila(primera).textoHabilitado && d.fila(primera).enEtiqueta);
        QVERIFY(d.fila(primera + 1).textoVisible && !d.fila(primera + 1).enEtiqueta);
        QVERIFY(!d.fila(primera + 2).textoVisible);
    }

    // A row opened and typed in, then closed by its box, drops what was
    // typed; an empty row opened and closed hides its box again.
    void txlSoltar()
    {
        prepara();
        mb.TextoLibre(5) = "QUESO";
        DialogoTXL d(mb);
        d.pulsarFila(6, true);
        d.cambiarTexto(6, "OTRO");
        d.pulsarFila(6, false);
        QCOMPARE(d.fila(6).texto, QStringLiteral("QUESO"));
        d.pulsarFila(9, true);
        d.pulsarFila(9, false);
        QVERIFY(!d.fila(9).textoVisible);
        d.aceptar();
        QCOMPARE(mb.TextoLibre(5), QByteArray("QUESO"));
        QCOMPARE(mb.Campos(30).Presente, QByteArray("0"));
    }

    // A row already on the label opens with its text (here the empty one it
    // was confirmed with), dropping what was typed and not confirmed; row 6
    // keeps what its box had.
    void txlAbrirFilaPresente_data()
    {
        QTest::addColumn<int>("fila");
        QTest::addColumn<QString>("abre");
        QTest::newRow("row 7") << 7 << "";
        QTest::newRow("row 6 is never filled") << 6 << "STALE";
    }
    void txlAbrirFilaPresente()
    {
        QFETCH(int, fila);
        prepara();
        mb.Campos(campoDeTextoLibre(fila)).Presente = "1";
        DialogoTXL d(mb);
        d.pulsarFila(fila, true);
        d.cambiarTexto(fila, "STALE");
        d.pulsarFila(fila, false);
        d.pulsarFila(fila, true);
        QTEST(d.fila(fila).texto, "abre");
    }

    // Salir: only texts newly on the label are left pending.
    void txlSalir()
    {
        prepara();
        mb.Campos(28).Presente = "1"; // row 7 on the label when opened
        mb.TXLPendiente(12) = true;
        DialogoTXL d(mb);
        for (int fila : {7, 8}) {
            d.pulsarFila(fila, true);
            d.cambiarTexto(fila, "NUEVO");
            d.aceptar();
        }
        d.salir();
        QVERIFY(!mb.TXLPendiente(7) && mb.TXLPendiente(8) && !mb.TXLPendiente(12));
        QVERIFY(m_dir.read("freetxl.sft").contains("9:06NUEVO\r\n9:07NUEVO\r\n"));
    }

    void textoFijo_data()
    {
        QTest::addColumn<QByteArray>("guardado");
        QTest::addColumn<QString>("caja");
        QTest::newRow("25 blanks") << QByteArray(25, ' ') << "";
        QTest::newRow("short with blanks") << QByteArray("AB  ") << "AB  ";
        QTest::newRow("longer than 25") << "A" + QByteArray(30, ' ') + "Z" << QString("A");
    }
    void textoFijo()
    {
        QFETCH(QByteArray, guardado);
        QTEST(textoFijoParaCaja(1, guardado), "caja");
    }

    // Any change of kind starts an empty label 3; neither kind chooses none.
    void tipoEtiqueta_data()
    {
        QTest::addColumn<QByteArray>("tipo");
        QTest::addColumn<int>("opcion");
        QTest::addColumn<int>("elegida");
        QTest::addColumn<QByteArray>("queda");
        QTest::newRow("T to V") << QByteArray("T") << 0 << 1 << QByteArray("V");
        QTest::newRow("neither, none chosen") << QByteArray("X") << -1 << -1 << QByteArray("X");
    }
    void tipoEtiqueta()
    {
        QFETCH(QByteArray, tipo);
        QFETCH(int, elegida);
        prepara();
        mb.TipoEtiqueta = tipo;
        mb.NumEtiqueta = "5";
        mb.Campos(11).Presente = "1";
        mb.Modificado = mb.ArchivoConocido = true;
        QTEST(CargarTipoEtiq(mb), "opcion");
        AceptarTipoEtiq(mb, elegida);
        QTEST(mb.TipoEtiqueta, "queda");
        QCOMPARE(mb.NumEtiqueta + mb.Campos(11).Presente, QByteArray("30"));
        QVERIFY(!mb.Modificado && !mb.ArchivoConocido);
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

    // The new model shows free text 6 as its first; the lot's words come
    // from the catalogue only when it is off.
    void borrarTitulos()
    {
        prepara(1, 2);
        mb.Campos(27).Presente = "1";
        DialogoBorrar nuevo(mb);
        const int lib6 = DialogoBorrar::indice("ChBorrarLib", 6);
        QCOMPARE(nuevo.casilla(lib6).titulo, mb.Textos(1307) + " 1");
        QVERIFY(!nuevo.casilla(DialogoBorrar::indice("ChBorrarLib", 1)).visible);
        const int lote = DialogoBorrar::indice("ChBorrarLote");
        QCOMPARE(nuevo.casilla(lote).titulo, mb.Textos(1040));
        mb.Campos(26).Presente = "1";
        QCOMPARE(DialogoBorrar(mb).casilla(lote).titulo, QStringLiteral("Lote"));
    }
};

QTEST_GUILESS_MAIN(TestDialogos)
#include "tst_dialogos.moc"
