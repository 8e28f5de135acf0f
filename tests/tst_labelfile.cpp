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
        mb.TextoLibre(i) = QByteArray(i * 25 / 14, 'A' + i) ;
    mb.TextoLibre(1) = "PRECIO \xe9\xf1\xfc \x80 1KG"; // codes above 127
    mb.TextoLibre(2) = QByteArray(25, '\xd3');
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
        for (int modelo : {1, 0})
            for (const QByteArray& nombre : {QByteArray(), QByteArray("Q"), QByteArray("QUE\xd1O"),
                                             QByteArray("1234567")})
                QTest::addRow("%s model, name '%s'", modelo ? "new" : "old", nombre.constData())
                    << modelo << nombre;
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
        QCOMPARE(splitLines(first).size(), modelo ? 52 : 31);
        QCOMPARE(e.mb.NombreEtiqueta, padRight(nombre, 7)); // the shared name stays padded

        ModBase& mb = e.mb;
        InicializarEtiqueta(mb);
        e.cargar("a.pde");
        QVERIFY(mb.ArchivoConocido);
        QVERIFY(!mb.Modificado);
        QCOMPARE(mb.NombreEtiqueta, nombre);
        QCOMPARE(mb.TipoEtiqueta, antes.TipoEtiqueta);
        QCOMPARE(mb.AnchoEtiqueta, QByteArray("60"));
        for (int n = 1; n <= mb.camposModelo(); ++n)
            QCOMPARE(mb.Campos(n), antes.Campos(n));
        QCOMPARE(mb.TextoFijo(0), antes.TextoFijo(0));
        QCOMPARE(mb.TextoFijo(1), antes.TextoFijo(1));
        for (int i = 0; i < mb.textosLibresModelo(); ++i)
            QCOMPARE(mb.TextoLibre(i), modelo ? antes.TextoLibre(i) : antes.TextoLibre(i).mid(1));

        const QByteArray second = e.guardar("b.pde");
        if (modelo)
            QCOMPARE(second, first);
        else
            QCOMPARE(splitLines(second).mid(5), splitLines(first).mid(5));
    }

    void filaTextoFijo_data()
    {
        QTest::addColumn<QByteArray>("uno");
        QTest::addColumn<QByteArray>("dos");
        QTest::addColumn<QByteArray>("fila");
        const QByteArray b25(25, ' ');
        QTest::newRow("both empty") << QByteArray() << QByteArray() << "900" + b25 + "0" + b25;
        QTest::newRow("equal lengths") << QByteArray("ABC") << QByteArray("XYZ")
                                       << "900ABC" + QByteArray(22, ' ') + "0XYZ" + QByteArray(22, ' ');
        QTest::newRow("long first, short second ends early")
            << QByteArray(25, 'L') << QByteArray("S") << "900" + QByteArray(25, 'L') + "0S";
        QTest::newRow("empty first pads the second by 25")
            << QByteArray() << QByteArray("SEGUNDA") << "900" + b25 + "0SEGUNDA" + b25;
    }

    void filaTextoFijo()
    {
        QFETCH(QByteArray, uno);
        QFETCH(QByteArray, dos);
        QFETCH(QByteArray, fila);
        QCOMPARE(::filaTextoFijo(uno, dos), fila);
    }

    void lecturaTextoFijo_data()
    {
        QTest::addColumn<QByteArray>("fila");
        QTest::addColumn<QByteArray>("uno");
        QTest::addColumn<QByteArray>("dos");
        QTest::newRow("padded lines lose their blanks")
            << "900ABC" + QByteArray(22, ' ') + "0XYZ" + QByteArray(22, ' ') << QByteArray("ABC") << QByteArray("XYZ");
        // The trim starts at position 25: a shorter second line keeps its blanks.
        QTest::newRow("a short second line keeps its blanks")
            << QByteArray(3 + 25, 'L').replace(0, 3, "900") + "0S  " << QByteArray(25, 'L') << QByteArray("S  ");
        QTest::newRow("24 blanks survive as blanks")
            << "900" + QByteArray(25, ' ') + "0" + QByteArray(24, ' ') << QByteArray() << QByteArray(24, ' ');
    }

    void lecturaTextoFijo()
    {
        QFETCH(QByteArray, fila);
        QFETCH(QByteArray, uno);
        QFETCH(QByteArray, dos);
        Entorno e(1);
        QList<QByteArray> lines = e.files.lineasEtiqueta("V");
        lines.last() = fila;
        e.files.leerLineasEtiqueta(lines);
        QCOMPARE(e.mb.TextoFijo(0), uno);
        QCOMPARE(e.mb.TextoFijo(1), dos);
    }

    // The second fixed line is padded by what the first needed, and read
    // back with its blanks while it is shorter than 25: lines of unequal
    // length gain blanks through a write and a read, and settle after that.
    void textoFijoDesigual()
    {
        Entorno e(1);
        e.mb.TextoFijo(0) = "CONSERVAR EN FRIO";   // 17: 8 blanks of padding
        e.mb.TextoFijo(1) = "ENTRE 0 Y 4 C";       // 13
        e.guardar("a.pde");
        e.cargar("a.pde");
        QCOMPARE(e.mb.TextoFijo(0), QByteArray("CONSERVAR EN FRIO"));
        QCOMPARE(e.mb.TextoFijo(1), QByteArray("ENTRE 0 Y 4 C        "));
        e.guardar("b.pde");
        e.cargar("b.pde");
        QCOMPARE(e.mb.TextoFijo(1), QByteArray("ENTRE 0 Y 4 C"));
    }

    // A position text of 4 characters shifts the rest of its row: that field
    // reads wrongly, the others do not.
    void textoDeCuatroCaracteres()
    {
        Entorno e(1);
        Campo& c = e.mb.Campos(11);
        c.Presente = "1";
        c.TextoHor = "39.6";
        c.TextoVer = "072";
        e.mb.Campos(12).Presente = "1";
        e.mb.Campos(12).TextoHor = "036";
        e.guardar("a.pde");
        InicializarEtiqueta(e.mb);
        e.cargar("a.pde");
        QCOMPARE(e.mb.Campos(11).TextoHor, QByteArray("39."));
        QCOMPARE(e.mb.Campos(11).PosHor, int16_t(11));
        QCOMPARE(e.mb.Campos(11).TextoVer, QByteArray("607"));
        QCOMPARE(e.mb.Campos(11).Tamano, QByteArray("2"));
        QCOMPARE(e.mb.Campos(11).Presente, QByteArray("0"));
        QCOMPARE(e.mb.Campos(12).PosHor, int16_t(10));
        QCOMPARE(e.mb.Campos(12).Presente, QByteArray("1"));
    }

    void lineasDeMas()
    {
        Entorno e(0);
        QList<QByteArray> lines = e.files.lineasEtiqueta("V");
        lines << "x" << "y";
        QCOMPARE(e.files.leerLineasEtiqueta(lines), 2);
        QCOMPARE(e.ui.log, QStringList(2, "message: " + e.mb.Textos(1338)));
    }

    // A short file leaves the rows it does not reach as the label before had them.
    void archivoCorto()
    {
        Entorno e(1);
        e.mb.Campos(30).Presente = "1";
        e.mb.TextoFijo(0) = "ANTES";
        QList<QByteArray> lines = e.files.lineasEtiqueta("V");
        e.mb.Campos(30).Presente = "0";
        e.mb.TextoFijo(0) = "";
        e.mb.Campos(2).Presente = "1";
        e.files.leerLineasEtiqueta(lines.mid(0, 20));
        QCOMPARE(e.mb.Campos(2).Presente, QByteArray("0")); // reached: from the file
        QCOMPARE(e.mb.Campos(30).Presente, QByteArray("0")); // not reached: as before
        QCOMPARE(e.mb.TextoFijo(0), QByteArray());
    }

    void convirtiendoEscribeElOtroTipo_data()
    {
        QTest::addColumn<QByteArray>("tipo");
        QTest::addColumn<QByteArray>("escrito");
        QTest::newRow("T becomes V") << QByteArray("T") << QByteArray("V");
        QTest::newRow("V becomes T") << QByteArray("V") << QByteArray("T");
        QTest::newRow("anything else becomes T") << QByteArray("X") << QByteArray("T");
    }

    void convirtiendoEscribeElOtroTipo()
    {
        QFETCH(QByteArray, tipo);
        QFETCH(QByteArray, escrito);
        Entorno e(1);
        e.mb.TipoEtiqueta = tipo;
        e.files.Convirtiendo = true;
        const QList<QByteArray> lines = splitLines(e.guardar("a.pde"));
        QCOMPARE(columns(lines.at(15), 3, 1), escrito);
        QCOMPARE(e.mb.TipoEtiqueta, tipo);
    }

    void archivoInexistente()
    {
        Entorno e(1);
        e.mb.ArchivoConocido = true;
        e.mb.NombreEtiqueta = "KEEP";
        e.cargar("missing.pde");
        QCOMPARE(e.ui.log, (QStringList{"open: " + e.mb.Textos(1316) + " (*.pde)|*.pde",
                                        "message: " + e.mb.Textos(864)}));
        QVERIFY(!e.mb.ArchivoConocido);
        QCOMPARE(e.mb.NombreEtiqueta, QByteArray("KEEP"));
    }

    void posiciones_data()
    {
        QTest::addColumn<QByteArray>("texto");
        QTest::addColumn<int>("posicion");
        QTest::newRow("whole") << QByteArray("036") << 10;
        QTest::newRow("cut decimal") << QByteArray("39.") << 11;
        QTest::newRow("decimal") << QByteArray("3.6") << 1;
        QTest::newRow("half rounds to even, down") << QByteArray("009") << 2;
        QTest::newRow("half rounds to even, up") << QByteArray("0045") << 12;
        QTest::newRow("not a number") << QByteArray("ABC") << 0;
        QTest::newRow("blank first") << QByteArray(" 36") << 0;
        QTest::newRow("empty") << QByteArray() << 0;
        QTest::newRow("digits then garbage") << QByteArray("07x") << 2;
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
