// The small dialogs of the main window without their widgets: what each
// shows when it loads, what its keys let through and what its buttons store.
#include "Catalogo.h"
#include "CodePage.h"
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

    // --- transfer settings ---

    // The scale number box shows 1 until one was chosen; an empty box stores 1.
    void config_data()
    {
        QTest::addColumn<int>("numEquipo");
        QTest::addColumn<QString>("caja");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<bool>("soloTextos");
        QTest::addColumn<int>("guardado");
        QTest::newRow("never chosen, box left empty") << 0 << QString("1") << "" << false << 1;
        QTest::newRow("chosen earlier, free texts only") << 6 << QString("6") << "8" << true << 8;
    }
    void config()
    {
        QFETCH(int, numEquipo);
        QFETCH(QString, tecleado);
        QFETCH(bool, soloTextos);
        prepara();
        mb.Puerto = 2;
        mb.Baudios = 3;
        mb.Paridad = 1;
        mb.BitsDatos = 4; // every setting its own value, so none can stand for another
        mb.NumEquipo = static_cast<int16_t>(numEquipo);
        mb.SoloTextos = true;
        AjustesConfig a = CargarConfig(mb);
        QCOMPARE((QList<int>{a.puerto, a.baudios, a.paridad, a.bitsParada, a.bitsDatos}),
                 ajustes(mb));
        QTEST(a.equipo, "caja");
        QVERIFY(!mb.SoloTextos);

        const QList<int> antes = ajustes(mb);
        prepara();
        a.equipo = tecleado;
        GuardarConfig(mb, a, soloTextos);
        QCOMPARE(ajustes(mb), antes);
        QTEST(int(mb.NumEquipo), "guardado");
        QCOMPARE(mb.SoloTextos, soloTextos);
    }

    // Only 1 to 8 and backspace reach the scale number box.
    void teclaEquipo()
    {
        QString admitidas;
        for (const QChar c : QStringLiteral("\b10892\r"))
            if (teclaEquipoAdmitida(c.unicode()))
                admitidas += c;
        QCOMPARE(admitidas, QStringLiteral("\b182"));
    }

    // --- capitals as typed ---

    void mayusculas_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("queda");
        const auto fila = [](const char* nombre, int idioma, const QString& de, const QString& a) {
            QTest::newRow(nombre) << idioma << de << a;
        };
        fila("plain letters", 1, "carne 1z", "CARNE 1Z");
        fila("ñ, not the other accents", 1, "ñáéü", "Ñáéü");
        fila("capitals and signs stay", 2, "AB-{}~", "AB-{}~");
        fila("Greek: only what sits at 241", 7, "aρα", "AΡα");
        fila("Polish: ń at 241", 8, "ńą", "Ńą");
    }
    void mayusculas()
    {
        QFETCH(int, idioma);
        QFETCH(QString, tecleado);
        QTEST(mayusculasAlTeclear(static_cast<int16_t>(idioma), tecleado), "queda");
    }

    // --- free texts ---

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
        mb.TXLPendiente(3) = true;
        mb.TextoLibre(primera - 1) = "PAN";
        mb.Campos(campoDeTextoLibre(primera)).Presente = "1";
        mb.TextoLibre(primera) = "SIN CAMPO";
        DialogoTXL d(mb);
        for (int i = 1; i <= 15; ++i)
            QCOMPARE(d.fila(i).visible, i >= primera && i <= ultima);
        QVERIFY(!mb.TXLPendiente(3));
        QCOMPARE(d.fila(primera).titulo, "1 " + mb.Textos(1307));
        // Closed with text: shown, disabled; the mark only where the field is on.
        QVERIFY(d.fila(primera).textoVisible && !d.fila(primera).textoHabilitado);
        QVERIFY(d.fila(primera).enEtiqueta);
        QVERIFY(d.fila(primera + 1).textoVisible && !d.fila(primera + 1).enEtiqueta);
        QVERIFY(!d.fila(primera + 2).textoVisible);
    }

    // Open a row, type, confirm; another row: open, type, close by its box.
    void txlAbrirConfirmarSoltar()
    {
        prepara();
        DialogoTXL d(mb);
        d.pulsarFila(6, true);
        QVERIFY(d.fila(6).textoVisible && d.fila(6).textoHabilitado);
        QVERIFY(!d.fila(7).marcable && !d.fila(15).marcable);
        d.cambiarTexto(6, "QUESO");
        d.aceptar();
        QCOMPARE(mb.TextoLibre(5), QByteArray("QUESO"));
        QCOMPARE(mb.Campos(27).Presente, QByteArray("1"));
        QVERIFY(mb.TXLCambiado(6));
        QVERIFY(!d.fila(6).marcada && !d.fila(6).textoHabilitado && d.fila(6).enEtiqueta);
        QVERIFY(d.fila(7).marcable && d.fila(15).marcable);

        // Clearing the box drops what was typed.
        d.pulsarFila(6, true);
        d.cambiarTexto(6, "OTRO");
        d.pulsarFila(6, false);
        QCOMPARE(d.fila(6).texto, QStringLiteral("QUESO"));
        QCOMPARE(mb.TextoLibre(5), QByteArray("QUESO"));

        // An empty row opened and closed again hides its box; OK then only repaints.
        d.pulsarFila(9, true);
        d.pulsarFila(9, false);
        QVERIFY(!d.fila(9).textoVisible);
        const ModBase antes = mb;
        d.aceptar();
        QCOMPARE(mb.TextoLibre, antes.TextoLibre);
        QVERIFY(mb.Campos(30).Presente == "0");
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

    // Salir: only texts newly on the label are left pending; freetxl.sft.
    void txlSalir()
    {
        prepara();
        mb.TextoLibre(6) = "YA";
        mb.Campos(28).Presente = "1"; // row 7 on the label when opened
        mb.TXLPendiente(12) = true;
        DialogoTXL d(mb);
        d.pulsarFila(7, true);
        d.cambiarTexto(7, "REWORDED");
        d.aceptar();
        d.pulsarFila(8, true);
        d.cambiarTexto(8, "NUEVO");
        d.aceptar();
        d.salir();
        QVERIFY(!mb.TXLPendiente(7) && mb.TXLPendiente(8) && !mb.TXLPendiente(12));
        const QByteArray sft = m_dir.read("freetxl.sft");
        QVERIFY(sft.contains("9:06REWORDED\r\n9:07NUEVO\r\n"));
        QCOMPARE(sft.count("9:"), 15);
    }

    // --- fixed texts ---

    void textoFijo_data()
    {
        QTest::addColumn<QByteArray>("guardado");
        QTest::addColumn<QString>("caja");
        QTest::newRow("25 blanks") << QByteArray(25, ' ') << "";
        QTest::newRow("filled to 25") << QByteArray("ABC") + QByteArray(22, ' ') << "ABC";
        QTest::newRow("short with blanks") << QByteArray("AB  ") << "AB  ";
        QTest::newRow("longer than 25") << "A" + QByteArray(30, ' ') + "Z" << QString("A");
        QTest::newRow("Greek") << encodeFor(7, QStringLiteral("ΔΕΛΤΑ")) << "ΔΕΛΤΑ";
    }
    void textoFijo()
    {
        QFETCH(QByteArray, guardado);
        QFETCH(QString, caja);
        const int16_t idioma = caja.contains(QChar(0x0394)) ? 7 : 1;
        QCOMPARE(textoFijoParaCaja(idioma, guardado), caja);
    }

    // --- descriptive lines and label kind ---

    void descriptivos()
    {
        prepara();
        mb.Campos(1).Presente = "1";
        mb.Campos(2).Presente = "1";
        mb.DESPendiente(9) = true; // an earlier choice not placed yet
        std::array<bool, 10> m = CargarDES(mb);
        QVERIFY(m[0] && m[1] && !m[2]);
        QCOMPARE(tituloDES(mb, 10), "10 " + mb.Textos(70));
        m[1] = false; // cleared
        m[2] = true;  // newly on
        AceptarDES(mb, m);
        QCOMPARE(mb.Campos(1).Presente + mb.Campos(2).Presente + mb.Campos(3).Presente,
                 QByteArray("101"));
        QVERIFY(!mb.DESPendiente(1) && mb.DESPendiente(3) && mb.DESPendiente(9));
        QVERIFY(!mb.Modificado);
    }

    void tipoEtiqueta_data()
    {
        QTest::addColumn<QByteArray>("tipo");
        QTest::addColumn<int>("opcion");
        QTest::addColumn<int>("elegida");
        QTest::addColumn<QByteArray>("queda");
        QTest::newRow("T to V") << QByteArray("T") << 0 << 1 << QByteArray("V");
        QTest::newRow("V to T") << QByteArray("V") << 1 << 0 << QByteArray("T");
        QTest::newRow("neither, none chosen") << QByteArray("X") << -1 << -1 << QByteArray("X");
    }
    void tipoEtiqueta()
    {
        QFETCH(QByteArray, tipo);
        QFETCH(int, elegida);
        prepara();
        mb.TipoEtiqueta = tipo;
        mb.NumEtiqueta = "5";
        mb.NombreEtiqueta = "PESCADO";
        mb.TextoLibre(3) = "X";
        mb.Campos(11).Presente = "1";
        mb.Modificado = mb.ArchivoConocido = true;
        QTEST(CargarTipoEtiq(mb), "opcion");
        AceptarTipoEtiq(mb, elegida);
        QTEST(mb.TipoEtiqueta, "queda");
        QCOMPARE(mb.NumEtiqueta, QByteArray("3"));
        QVERIFY(mb.NombreEtiqueta.isEmpty() && mb.TextoLibre(3).isEmpty());
        QCOMPARE(mb.Campos(11).Presente, QByteArray("0"));
        QVERIFY(!mb.Modificado && !mb.ArchivoConocido);
    }

    // --- delete selection ---

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
        fila("T: operations, total and total mark", 1, "T", {13, 14, 20}, {13, 14, 20});
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
            mb.Campos(n).Seleccionado = true;
        }
        DialogoBorrar d(mb);
        d.seleccionarTodo();
        // With nothing on the label every box is disabled (but the one this
        // model hides), and "select all" ticks none.
        for (int k = 0; presentes.isEmpty() && k < DialogoBorrar::Casillas; ++k) {
            QVERIFY(!d.casilla(k).marcada);
            QVERIFY(!d.casilla(k).habilitada || k == DialogoBorrar::indice("ChBorrarLib", 3));
        }
        d.aceptar();
        for (int n : presentes) {
            Campo limpio;
            limpio.Codigo = codigoCampo(n);
            QCOMPARE(mb.Campos(n) == limpio, borrados.contains(n));
        }
        QCOMPARE(mb.Modificado, !borrados.isEmpty());
    }

    void borrarTitulos()
    {
        prepara(1, 2);
        mb.Campos(27).Presente = "1";
        DialogoBorrar nuevo(mb);
        const int lib6 = DialogoBorrar::indice("ChBorrarLib", 6);
        QCOMPARE(nuevo.casilla(lib6).titulo, mb.Textos(1307) + " 1");
        QVERIFY(nuevo.casilla(lib6).visible && nuevo.casilla(lib6).habilitada);
        QVERIFY(!nuevo.casilla(DialogoBorrar::indice("ChBorrarLib", 1)).visible);
        const int lote = DialogoBorrar::indice("ChBorrarLote");
        // The lot's words come from the catalogue only when it is off.
        QCOMPARE(nuevo.casilla(lote).titulo, mb.Textos(1040));
        mb.Campos(26).Presente = "1";
        QCOMPARE(DialogoBorrar(mb).casilla(lote).titulo, QStringLiteral("Lote"));

        // Ticked, then cancelled: the dialog is dropped and nothing changes.
        const ModBase antes = mb;
        {
            DialogoBorrar d(mb);
            d.marcar(lib6, true);
        }
        QCOMPARE(mb.Campos(27), antes.Campos(27));
        QVERIFY(!mb.Modificado);
    }
};

QTEST_GUILESS_MAIN(TestDialogos)
#include "tst_dialogos.moc"
