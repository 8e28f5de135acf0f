#include "Filas.h"
#include "LabelEnv.h"
#include "Posicion.h"
#include "TextLines.h"

#include <QtTest>

namespace {

// A label that uses every kind of field state the files can hold.
void etiquetaCompleta(ModBase& mb, const QByteArray& nombre)
{
    mb.TipoEtiqueta = "T";
    mb.NumEtiqueta = mb.ModeloNuevo ? "4" : "2";
    mb.AnchoEtiqueta = "60";
    mb.NombreEtiqueta = nombre;
    for (int i = 0; i < mb.textosLibresModelo(); ++i)
        mb.TextoLibre(i) = QByteArray(i * 25 / 14, 'A' + i);
    mb.TextoLibre(1) = "PRECIO \xe9\xf1\xfc \x80 1KG"; // codes above 127
    for (int n = 1; n <= mb.camposModelo(); ++n) {
        Campo& c = mb.Campos(n);
        c.Presente = n % 3 ? "1" : "0";
        c.Tamano = QByteArray::number(n % 4);
        c.TextoHor = QByteArray::number(n * 18 % 1000).rightJustified(3, '0');
        c.TextoVer = QByteArray::number(n * 36 % 1000).rightJustified(3, '0');
        c.PosHor = posicionDeTexto(c.TextoHor);
        c.PosVer = posicionDeTexto(c.TextoVer);
    }
    mb.TextoFijo(0) = "CONSERVAR EN FRIO";
    mb.TextoFijo(1) = "MAXIMO 4 GRADOS \xba"; // as long as the first: see the padding below
}

struct Entorno : LabelEnv {
    using LabelEnv::LabelEnv;
    QByteArray guardar(const QString& name)
    {
        mb.ArchivoActual = dir.file(name);
        files.GuardaEti();
        return dir.read(name);
    }
    void cargar(const QString& name)
    {
        ui.openPaths.append(dir.file(name));
        files.CargarEti();
    }
};

} // namespace

class TestLabelFile : public QObject {
    Q_OBJECT

private slots:
    void idaYVuelta_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QByteArray>("nombre");
        QTest::newRow("new model, a short name") << 1 << QByteArray("QUE\xd1O");
        QTest::newRow("old model, a name of 7") << 0 << QByteArray("1234567");
    }

    // Written, read and written again, a label file comes out byte for byte,
    // with the reader's own losses aside: the old model drops the first
    // character of each free text at every read.
    void idaYVuelta()
    {
        QFETCH(int, modelo);
        QFETCH(QByteArray, nombre);
        Entorno e(modelo);
        etiquetaCompleta(e.mb, nombre);
        const ModBase antes = e.mb;
        const QByteArray first = e.guardar("a.pde");
        InicializarEtiqueta(e.mb);
        e.cargar("a.pde");
        QCOMPARE(e.mb.NombreEtiqueta + e.mb.TipoEtiqueta + e.mb.AnchoEtiqueta, nombre + "T60");
        for (int n = 1; n <= e.mb.camposModelo(); ++n)
            QCOMPARE(e.mb.Campos(n), antes.Campos(n));
        for (int i = 0; i < e.mb.textosLibresModelo(); ++i)
            QCOMPARE(e.mb.TextoLibre(i), modelo ? antes.TextoLibre(i) : antes.TextoLibre(i).mid(1));

        const QByteArray second = e.guardar("b.pde");
        if (modelo)
            QCOMPARE(second, first);
        else
            QCOMPARE(splitLines(second).mid(5), splitLines(first).mid(5));
    }

    // The fixed text row as written from the two texts, and the texts read
    // back from it: the second is padded by what the first needed, and the
    // trim of blanks starts at position 25, so a shorter second keeps them.
    void textoFijo_data()
    {
        QTest::addColumn<QByteArray>("uno");
        QTest::addColumn<QByteArray>("dos");
        QTest::addColumn<QByteArray>("fila");
        const auto fila = [](const char* nombre, const QByteArray& uno, const QByteArray& dos,
                             const QByteArray& fila) {
            QTest::newRow(nombre) << uno << dos << fila;
        };
        const QByteArray b22(22, ' '), b25(25, ' '), l25(25, 'L');
        fila("equal lengths", "ABC", "XYZ", "900ABC" + b22 + "0XYZ" + b22);
        fila("long first: the second ends early and keeps its blanks", l25, "S  ",
             "900" + l25 + "0S  ");
        fila("empty first pads the second by 25", "", "SEGUNDA", "900" + b25 + "0SEGUNDA" + b25);
    }

    void textoFijo()
    {
        QFETCH(QByteArray, uno);
        QFETCH(QByteArray, dos);
        QFETCH(QByteArray, fila);
        QCOMPARE(::filaTextoFijo(uno, dos), fila);
        Entorno e(1);
        QList<QByteArray> lines = e.files.lineasEtiqueta("V");
        lines.last() = fila;
        e.files.leerLineasEtiqueta(lines);
        QCOMPARE(e.mb.TextoFijo(0) + "|" + e.mb.TextoFijo(1), uno + "|" + dos);
    }

    // A short file leaves the rows it does not reach as the label before had
    // them; each line too many is told.
    void archivoCortoOLargo()
    {
        Entorno e(1);
        e.mb.TextoFijo(0) = "ANTES";
        QList<QByteArray> lines = e.files.lineasEtiqueta("V");
        e.mb.TextoFijo(0) = "";
        e.mb.Campos(2).Presente = "1";
        QCOMPARE(e.files.leerLineasEtiqueta(lines.mid(0, 20)), 0);
        // Field 2 reached, from the file; the fixed text as before.
        QCOMPARE(e.mb.Campos(2).Presente, QByteArray("0"));
        QCOMPARE(e.mb.TextoFijo(0), QByteArray());
        QCOMPARE(e.files.leerLineasEtiqueta(lines + QList<QByteArray>{"x", "y"}), 2);
        QCOMPARE(e.ui.log, QStringList(2, "message: " + e.mb.Textos(1338)));
    }

    // A label being converted is written as the other kind: T as V, any other as T.
    void convirtiendoEscribeElOtroTipo()
    {
        Entorno e(1);
        e.files.Convirtiendo = true;
        e.mb.TipoEtiqueta = "T";
        const QByteArray deT = splitLines(e.guardar("t.pde")).at(15);
        e.mb.TipoEtiqueta = "X";
        const QByteArray deX = splitLines(e.guardar("x.pde")).at(15);
        QCOMPARE(columns(deT, 3, 1) + columns(deX, 3, 1), QByteArray("VT"));
    }

    void archivoInexistente()
    {
        Entorno e(1);
        e.mb.ArchivoConocido = true;
        e.mb.NombreEtiqueta = "KEEP";
        e.cargar("missing.pde");
        QCOMPARE(e.ui.log, (QStringList{"open: " + e.mb.Textos(1316) + " (*.pde)|*.pde",
                                        "message: " + e.mb.Textos(864)}));
        QVERIFY(!e.mb.ArchivoConocido && e.mb.NombreEtiqueta == "KEEP");
    }

    void posiciones_data()
    {
        QTest::addColumn<QByteArray>("texto");
        QTest::addColumn<int>("posicion");
        QTest::newRow("cut decimal") << QByteArray("39.") << 11;
        QTest::newRow("half rounds to even, down") << QByteArray("009") << 2;
        QTest::newRow("half rounds to even, up") << QByteArray("0045") << 12;
        QTest::newRow("blank first") << QByteArray(" 36") << 0;
    }

    void posiciones()
    {
        QFETCH(QByteArray, texto);
        QFETCH(int, posicion);
        QCOMPARE(int(posicionDeTexto(texto)), posicion);
    }
};

QTEST_GUILESS_MAIN(TestLabelFile)
#include "tst_labelfile.moc"
