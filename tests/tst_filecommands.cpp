#include "CodePage.h"
#include "LabelEnv.h"
#include "RuntimeErrors.h"
#include "TextLines.h"

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

    // What the person was asked and shown, without the refreshes.
    QStringList pasos() const
    {
        QStringList out;
        for (const QString& s : ui.log) {
            if (s == "refresh")
                continue;
            out.append(s.section(':', 0, 0));
        }
        return out;
    }
};

} // namespace

class TestFileCommands : public QObject {
    Q_OBJECT

private slots:
    // Every command that would lose changes asks first; what Yes, No and
    // Cancel do differs from one command to the next.
    void preguntas_data()
    {
        QTest::addColumn<QString>("comando");
        QTest::addColumn<bool>("modificado");
        QTest::addColumn<bool>("conocido");
        QTest::addColumn<QList<Answer>>("respuestas");
        QTest::addColumn<QStringList>("pasos");
        QTest::addColumn<bool>("sigue");

        const QList<Answer> nada;
        const QList<Answer> si{Answer::Yes}, no{Answer::No}, cancelar{Answer::Cancel};
        const QStringList q{"question"};
        QTest::newRow("open, clean") << "abrir" << false << true << nada << QStringList{"open"} << true;
        // Yes saves and stops: the person gives the command again.
        QTest::newRow("open, yes") << "abrir" << true << true << si << q << false;
        QTest::newRow("open, yes, no file yet") << "abrir" << true << false << si << (q + QStringList{"save"}) << false;
        QTest::newRow("open, no") << "abrir" << true << true << no << (q + QStringList{"open"}) << true;
        QTest::newRow("open, cancel") << "abrir" << true << true << cancelar << q << false;
        // New goes on after a Yes.
        QTest::newRow("new, clean") << "nuevo" << false << true << nada << QStringList{"frmCargaTXL"} << true;
        QTest::newRow("new, yes") << "nuevo" << true << false << si << (q + QStringList{"save", "frmCargaTXL"}) << true;
        QTest::newRow("new, cancel") << "nuevo" << true << true << cancelar << q << false;
        QTest::newRow("label 4, clean") << "etiqueta" << false << true << nada << QStringList{} << true;
        QTest::newRow("label 4, yes") << "etiqueta" << true << true << si << q << true;
        QTest::newRow("label 4, no") << "etiqueta" << true << true << no << q << true;
        QTest::newRow("label 4, cancel") << "etiqueta" << true << true << cancelar << q << false;
        QTest::newRow("convert, clean") << "convertir" << false << true << nada << QStringList{} << true;
        QTest::newRow("convert, cancel") << "convertir" << true << true << cancelar << q << false;
        QTest::newRow("model, clean") << "modelo" << false << true << nada << QStringList{} << true;
        QTest::newRow("model, no") << "modelo" << true << true << no << q << true;
        QTest::newRow("model, cancel") << "modelo" << true << true << cancelar << q << false;
        QTest::newRow("close, yes") << "cierre" << true << true << si << q << true;
        // A save abandoned in its dialog does not stop the closing.
        QTest::newRow("close, yes, dialog cancelled") << "cierre" << true << false << si << (q + QStringList{"save"}) << true;
        QTest::newRow("close, cancel") << "cierre" << true << true << cancelar << q << false;
    }

    void preguntas()
    {
        QFETCH(QString, comando);
        QFETCH(bool, modificado);
        QFETCH(bool, conocido);
        QFETCH(QList<Answer>, respuestas);
        QFETCH(QStringList, pasos);
        QFETCH(bool, sigue);

        ConConjunto e;
        ModBase& mb = e.mb;
        mb.Modificado = modificado;
        mb.ArchivoConocido = conocido;
        mb.Campos(11).Presente = "1"; // the change that a Yes saves
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
            siguio = mb.NombreEtiqueta == "CUATRO";
            QCOMPARE(e.files.controles.VSEtiq, siguio ? 4 : 3);
            QCOMPARE(mb.NumEtiqueta, siguio ? QByteArray("4") : QByteArray("3"));
            QCOMPARE(e.files.IgnorarCambioEtiq, int16_t(0));
        } else if (comando == "convertir") {
            e.files.Convertir();
            siguio = mb.TipoEtiqueta == "T";
            QVERIFY(!e.files.Convirtiendo);
        } else if (comando == "modelo") {
            siguio = e.files.pulsarCompatibilidad();
            QCOMPARE(mb.ModeloNuevo, int16_t(siguio ? 0 : 1));
        } else {
            siguio = e.files.consultaCierre();
        }
        QCOMPARE(e.pasos(), pasos);
        QCOMPARE(siguio, sigue);
        QVERIFY(e.ui.answers.isEmpty());

        // Yes with the set's own file saves into it.
        const bool guardado = respuestas == QList<Answer>{Answer::Yes} && conocido;
        QCOMPARE(e.dir.read("set.pse") != antes, guardado);
        if (comando == "modelo" && respuestas == QList<Answer>{Answer::No})
            QVERIFY(!mb.Modificado);
    }

    void abrirSegunElPenultimoCaracter_data()
    {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<bool>("etiqueta");
        QTest::newRow("label file") << "x.pde" << true;
        QTest::newRow("capitals") << "LABEL.PDE" << true;
        QTest::newRow("any extension with d before its end") << "abc.d1" << true;
        QTest::newRow("old label file") << "x.ode" << true;
        QTest::newRow("set file") << "x.pse" << false;
        QTest::newRow("d elsewhere does not count") << "xd.txt" << false;
    }

    void abrirSegunElPenultimoCaracter()
    {
        QFETCH(QString, nombre);
        QFETCH(bool, etiqueta);
        LabelEnv e(1);
        const QString carpeta = e.dir.file("shop");
        QDir().mkpath(carpeta);
        if (!etiqueta) {
            e.mb.ArchivoActual = carpeta + "/" + nombre;
            e.files.GuardaConjunto();
        }
        e.ui.openPaths.append(carpeta + "/" + nombre);
        e.files.Abrir_Eti();
        QCOMPARE(e.ui.requests.first().filter,
                 "All (*.pde,*.pse)|*.pde;*.pse;|" + e.mb.Textos(1316) + " (*.pde)|*.pde|" +
                     e.mb.Textos(1349) + " (*.pse)|*.pse");
        // A label file is gathered with its neighbours into a set of its name.
        QCOMPARE(QFileInfo::exists(carpeta + "/S"), etiqueta);
        QCOMPARE(e.files.ArchivoConjunto,
                 etiqueta ? carpeta + "/" + nombre.chopped(2) + "se" : carpeta + "/" + nombre);
        QVERIFY(e.mb.ArchivoConocido);
    }

    void cambioDeModelo()
    {
        ConConjunto e;
        ModBase& mb = e.mb;
        mb.Campos(30).Presente = "1";
        mb.Campos(12).Presente = "1";
        mb.TextoLibre(0) = "UNO";
        mb.TextoLibre(9) = "DIEZ";
        e.dir.write("sirel.new", {});

        QVERIFY(e.files.pulsarCompatibilidad());
        QCOMPARE(mb.ModeloNuevo, int16_t(0));
        QVERIFY(!e.dir.exists("sirel.new"));
        QCOMPARE(mb.Campos(30).Presente, QByteArray("0"));
        QCOMPARE(mb.Campos(12).Presente, QByteArray("1")); // the surface stays
        QCOMPARE(mb.TextoLibre(0), QByteArray());
        QCOMPARE(mb.TextoLibre(9), QByteArray("DIEZ"));
        QCOMPARE(e.files.lineasArchivo(), LabelEnv(0).files.lineasArchivo());
        QCOMPARE(e.files.controles.VSEtiqMin, 1);
        QCOMPARE(mb.NumEtiqueta, QByteArray("1"));

        QVERIFY(e.files.pulsarCompatibilidad());
        QCOMPARE(mb.ModeloNuevo, int16_t(1));
        QCOMPARE(e.dir.read("sirel.new"), QByteArray());
        QCOMPARE(mb.TextoLibre(4), encodeFor(1, mb.Textos(1348)));
        QCOMPARE(mb.NumEtiqueta, QByteArray("3"));
    }

    // Typing a name marks the label modified and writes the label line.
    void cambioDeNombre()
    {
        ConConjunto e;
        e.files.cambioNombre("PAN");
        QCOMPARE(e.mb.NombreEtiqueta, QByteArray("PAN"));
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
        QVERIFY(e.mb.ArchivoActual.isEmpty());
        QVERIFY(e.mb.ArchivoConocido);
        QCOMPARE(errorNumber([&] { e.files.Guardar(); }), 75);
    }
};

QTEST_GUILESS_MAIN(TestFileCommands)
#include "tst_filecommands.moc"
