#include "CodePage.h"
#include "LabelEnv.h"
#include "RuntimeErrors.h"

#include <QtTest>

Q_DECLARE_METATYPE(Answer)

namespace {

// A set on disk whose packing label 4 is called CUATRO, with packing label 3
// unfolded, as after opening it.
struct ConConjunto : LabelEnv {
    ConConjunto() : LabelEnv(1)
    {
        mb.ArchivoActual = dir.file("set.pse");
        mb.NumEtiqueta = "4";
        mb.NombreEtiqueta = "CUATRO";
        files.GuardarEtiquetaConjunto();
        files.CargarConjunto();
        ui.log.clear();
    }
};

} // namespace

class TestFileCommands : public QObject {
    Q_OBJECT

private slots:
    // Every command that would lose changes asks first, when there are
    // answers to give; what Yes, No and Cancel do differs from one command to
    // the next. (Closing and another label through the selector: the main
    // window's tests.)
    void preguntas_data()
    {
        QTest::addColumn<QString>("comando");
        QTest::addColumn<QList<Answer>>("respuestas");
        QTest::addColumn<bool>("sigue");
        const auto fila = [](const char* nombre, const char* comando, Answer r, bool sigue) {
            QTest::newRow(nombre) << QString(comando) << QList<Answer>{r} << sigue;
        };
        QTest::newRow("open, clean") << "abrir" << QList<Answer>{} << true;
        // Yes saves and stops: the person gives the command again.
        fila("open, yes", "abrir", Answer::Yes, false);
        fila("open, no", "abrir", Answer::No, true);
        // New and another label go on after a Yes.
        fila("new, yes", "nuevo", Answer::Yes, true);
        fila("label 4, yes", "etiqueta", Answer::Yes, true);
        fila("convert, cancel", "convertir", Answer::Cancel, false);
        // Here a No also forgets the changes.
        fila("model, no", "modelo", Answer::No, true);
    }

    void preguntas()
    {
        QFETCH(QString, comando);
        QFETCH(QList<Answer>, respuestas);
        ConConjunto e;
        e.mb.Modificado = !respuestas.isEmpty();
        e.mb.Campos(11).Presente = "1"; // the change that a Yes saves
        e.ui.answers = respuestas;
        const QByteArray antes = e.dir.read("set.pse");

        bool siguio = false;
        if (comando == "abrir") {
            e.files.Abrir_Eti();
            siguio = e.ui.log.contains("open: " + e.ui.requests.value(0).filter);
        } else if (comando == "nuevo") {
            e.files.NuevoConjunto();
            siguio = e.ui.log.contains("frmCargaTXL");
        } else if (comando == "etiqueta") {
            e.files.cambioEtiqueta(4);
            siguio = e.mb.NombreEtiqueta == "CUATRO";
        } else if (comando == "convertir") {
            e.files.Convertir();
            siguio = e.mb.TipoEtiqueta == "T";
            QVERIFY(!e.files.Convirtiendo);
        } else {
            siguio = e.files.pulsarCompatibilidad();
            QCOMPARE(e.mb.Modificado, false);
        }
        QTEST(siguio, "sigue");
        QCOMPARE(e.ui.log.filter("question:").size(), respuestas.size());
        // Yes saves into the set's own file.
        QCOMPARE(e.dir.read("set.pse") != antes, respuestas == QList<Answer>{Answer::Yes});
    }

    // Open takes a file for a label file, to be gathered with its neighbours
    // into a set, by the character before its last; a set file is read as it is.
    void abrirSegunElPenultimoCaracter_data()
    {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<bool>("etiqueta");
        QTest::newRow("capitals") << "LABEL.PDE" << true;
        QTest::newRow("any extension with d before its end") << "abc.d1" << true;
        QTest::newRow("set file") << "x.pse" << false;
        QTest::newRow("d elsewhere does not count") << "xd.txt" << false;
    }

    void abrirSegunElPenultimoCaracter()
    {
        QFETCH(QString, nombre);
        QTEST(esArchivoEtiqueta(nombre), "etiqueta");
    }

    void cambioDeModelo()
    {
        ConConjunto e;
        e.mb.Campos(30).Presente = "1";
        e.mb.TextoLibre(0) = "UNO";
        e.mb.TextoLibre(9) = "DIEZ";
        e.dir.write("sirel.new", {});

        // To the old model: its fields and texts only, an empty old store, label 1.
        QVERIFY(e.files.pulsarCompatibilidad() && e.mb.ModeloNuevo == 0);
        QVERIFY(!e.dir.exists("sirel.new"));
        QCOMPARE(e.mb.Campos(30).Presente, QByteArray("0"));
        QCOMPARE(e.mb.TextoLibre(0) + "|" + e.mb.TextoLibre(9), QByteArray("|DIEZ"));
        QCOMPARE(e.files.lineasArchivo(), LabelEnv(0).files.lineasArchivo());
        QCOMPARE(e.mb.NumEtiqueta, QByteArray("1"));

        // And back: the marker file again, the catalogue's free text 5, label 3.
        QVERIFY(e.files.pulsarCompatibilidad() && e.mb.ModeloNuevo == 1);
        QCOMPARE(e.dir.read("sirel.new"), QByteArray());
        QCOMPARE(e.mb.TextoLibre(4), encodeFor(1, e.mb.Textos(1348)));
        QCOMPARE(e.mb.NumEtiqueta, QByteArray("3"));
    }

    // Typing a name marks the label modified and writes the label line.
    void cambioDeNombre()
    {
        ConConjunto e;
        e.files.cambioNombre("PAN");
        QVERIFY(e.mb.Modificado);
        QCOMPARE(e.files.controles.lblNombre,
                 "PAN --- " + e.mb.Textos(1317) + " --- " + e.mb.Textos(623) + " 3");
        e.files.cambioNombre("");
        QCOMPARE(e.files.controles.lblNombre, QString());
    }

    // Cancelling the Open dialog leaves ArchivoActual empty while the set is
    // still known: the next Save cannot open its file, and the program ends.
    void guardarSinRuta()
    {
        ConConjunto e;
        e.files.Abrir_Eti();
        QCOMPARE(errorNumber([&] { e.files.Guardar(); }), 75);
    }
};

QTEST_GUILESS_MAIN(TestFileCommands)
#include "tst_filecommands.moc"
