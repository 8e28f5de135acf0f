#include "LabelEnv.h"
#include "TextLines.h"

#include <QtTest>

class TestSetFile : public QObject {
    Q_OBJECT

private slots:
    // The labels of a set share the free texts and the fixed text; each has
    // its own block, and a set file read back gives the lines it was written from.
    void etiquetasDeUnConjunto_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::newRow("new") << 1;
        QTest::newRow("old") << 0;
    }

    void etiquetasDeUnConjunto()
    {
        QFETCH(int, modelo);
        LabelEnv e(modelo);
        const int base = modelo ? 3 : 1;
        e.mb.ArchivoActual = e.dir.file("set.pse");
        e.mb.TipoEtiqueta = "T";
        e.mb.NumEtiqueta = QByteArray::number(base + 1);
        e.mb.Campos(20).Presente = "1";
        e.mb.Campos(20).TextoHor = "072";
        e.mb.TextoLibre(0) = "PRIMERO";
        e.mb.TextoFijo(1) = "FIJO";
        e.files.GuardarEtiquetaConjunto();

        // Another label of the set: empty, but with the common texts. (In the
        // old model packing label 1 has free text rows over its first rows.)
        e.files.CargarEtiquetaConjunto(base + 1);
        QCOMPARE(e.mb.Campos(20).TextoHor, QByteArray("000"));
        // The old model reads free texts one column late.
        QCOMPARE(e.mb.TextoLibre(0), modelo ? QByteArray("PRIMERO") : QByteArray("RIMERO"));
        QCOMPARE(e.mb.TextoFijo(1), "FIJO" + QByteArray(21, ' '));
        // A name of blanks shows an empty box and stays blanks in the block.
        QCOMPARE(e.files.controles.TxtNomEtiq, QString());
        QCOMPARE(e.mb.NombreEtiqueta, QByteArray(7, ' '));

        // And back to the total label.
        e.files.CargarEtiquetaConjunto(base + 1 + (modelo ? 3 : 5));
        QCOMPARE(e.mb.Campos(20).PosHor, int16_t(20));

        // A set file read into a fresh store gives the lines it was written from.
        LabelEnv other(modelo);
        other.mb.ArchivoActual = e.dir.file("set.pse");
        other.files.CargarConjunto();
        QCOMPARE(joinLines(other.files.lineasArchivo()), e.dir.read("set.pse"));
    }

    // In the old model the fifteen free text rows land on the block of
    // packing label 1; its own save mends all but the block line.
    void modeloViejoDanaLaLinea6()
    {
        LabelEnv e(0);
        e.mb.ArchivoActual = e.dir.file("set.ose");
        e.mb.NumEtiqueta = "3";
        e.files.GuardarEtiquetaConjunto();
        QCOMPARE(e.files.Lineas(15), QByteArray("9:14"));
        e.mb.NumEtiqueta = "1";
        e.files.GuardarEtiquetaConjunto();
        QCOMPARE(e.files.Lineas(6), QByteArray("9:5"));
        QCOMPARE(e.files.Lineas(7), "99V145" + QByteArray(7, ' ') + "A00000000");
    }
};

QTEST_GUILESS_MAIN(TestSetFile)
#include "tst_setfile.moc"
