#include "LabelEnv.h"
#include "RuntimeErrors.h"
#include "TextLines.h"

#include <QtTest>

namespace {

// A folder of label files as a shop keeps them, each written by the
// program's own writer and dated as told.
struct Tienda : LabelEnv {
    using LabelEnv::LabelEnv;
    QString carpeta() const { return dir.file("tienda"); }

    void etiqueta(const QString& name, const QByteArray& tipo, const QByteArray& numero,
                  const QByteArray& texto, const QDate& fecha)
    {
        QDir().mkpath(carpeta());
        mb.TipoEtiqueta = tipo;
        mb.NumEtiqueta = numero;
        mb.NombreEtiqueta = texto.left(7);
        for (int i = 0; i < 15; ++i)
            mb.TextoLibre(i) = texto + QByteArray::number(i);
        mb.Campos(27).Presente = "1"; // the first of the digit-coded rows
        mb.ArchivoActual = carpeta() + "/" + name;
        files.GuardaEti();
        QFile f(mb.ArchivoActual);
        QVERIFY(f.open(QIODevice::ReadWrite));
        QVERIFY(f.setFileTime(fecha.startOfDay(), QFileDevice::FileModificationTime));
    }

    void importar(const QString& name)
    {
        InicializarEtiqueta(mb);
        mb.ArchivoActual = carpeta() + "/" + name;
        files.RealizarConjunto();
    }

    QStringList en(const QString& sub = QString()) const
    {
        return QDir(carpeta() + "/" + sub).entryList(QDir::Files, QDir::Name);
    }
};

} // namespace

class TestImport : public QObject {
    Q_OBJECT

private slots:
    // The newest file gives the texts; dates are compared as the texts the
    // system shows them in, and these tests run under a day-first locale
    // (es_ES, set where the test is declared), so the ninth of January 2007
    // is newer than the tenth of 2008.
    void laMasRecienteDaLosTextos()
    {
        Tienda t(1);
        t.etiqueta("a.pde", "V", "3", "VIEJA", QDate(2008, 1, 10));
        t.etiqueta("b.pde", "T", "4", "NUEVA", QDate(2007, 1, 9));
        t.etiqueta("c.pde", "V", "5", "MEDIA", QDate(2007, 1, 1));
        t.importar("a.pde");

        QCOMPARE(t.en(), QStringList{"a.pse"});
        QCOMPARE(t.en("S"), (QStringList{"a.pde", "b.pde", "c.pde"}));
        // Each file filed in the block of its own kind and number (T4's is the
        // seventh: the three V labels come first).
        QCOMPARE(columns(t.files.Lineas(t.files.indiceBloque(7) + 11), 7, 7),
                 QByteArray("NUEVA  "));
        QCOMPARE(columns(t.files.Lineas(t.files.indiceBloque(5) + 1), 7, 7), QByteArray("MEDIA  "));
        // The label shown is packing label 3, each row in its field's place.
        QCOMPARE(t.mb.NombreEtiqueta, QByteArray("VIEJA"));
        QCOMPARE(t.mb.Campos(27).Presente, QByteArray("1"));
        QCOMPARE(t.mb.TextoLibre(0), QByteArray("NUEVA0"));
        QCOMPARE(t.dir.read("tienda/a.pse"), joinLines(t.files.lineasArchivo()));
        QVERIFY(t.mb.ArchivoConocido && !t.mb.Modificado);
    }

    void onceComoMucho()
    {
        Tienda t(1);
        for (int i = 0; i < 12; ++i)
            t.etiqueta(QStringLiteral("e%1.pde").arg(i, 2, 10, QLatin1Char('0')), "V", "3", "X",
                       QDate(2024, 1, 1));
        t.importar("e00.pde");
        QCOMPARE(t.en("S").size(), 11);
        QCOMPARE(t.en(), (QStringList{"e00.pse", "e11.pde"}));
    }

    // The old model moves its label files aside but files nothing.
    void modeloViejo()
    {
        Tienda t(0);
        t.etiqueta("a.ode", "V", "2", "VIEJO", QDate(2024, 1, 1));
        t.etiqueta("b.pde", "V", "3", "NUEVO", QDate(2024, 1, 1)); // not of this model
        t.importar("a.ode");
        QCOMPARE(t.en("S"), QStringList{"a.ode"});
        QCOMPARE(t.en(), (QStringList{"a.ose", "b.pde"}));
        QCOMPARE(t.files.lineasArchivo(), LabelEnv(0).files.lineasArchivo());
    }

    void textosDeFreetxt()
    {
        Tienda t(1);
        QByteArray rows;
        for (int i = 5; i < 15; ++i)
            rows += QStringLiteral("9:%1TEXTO %2\r\n").arg(i, 2, 10, QChar('0')).arg(i).toLatin1();
        t.dir.write("tienda/freetxt.txt", rows + "IGNORED\r\n");
        t.importar("x.pde"); // named, but the folder holds no label file beside it
        QCOMPARE(t.en("S"), QStringList{"freetxt.txt"});
        // The readers start at column 5, so the catalogue's words get a "0" in front.
        QCOMPARE(t.mb.TextoLibre(0), "0" + t.mb.Textos(1344).toLatin1());
        QCOMPARE(t.mb.TextoLibre(5), QByteArray("TEXTO 5"));
        QCOMPARE(t.mb.TextoLibre(14), QByteArray("TEXTO 14"));
        QVERIFY(t.files.TextosExternos);
    }

    void fallosQueTerminanElPrograma_data()
    {
        QTest::addColumn<QString>("caso");
        QTest::addColumn<int>("error");
        // Its free text rows are not consumed, so the first is taken for a field row.
        QTest::newRow("freetxt.txt beside a label file") << "freetxt" << 9;
        QTest::newRow("freetxt.txt of fewer than 10 lines") << "short freetxt" << 62;
        QTest::newRow("a file of the same name already in S") << "in S" << 58;
        QTest::newRow("a number below 3 in the new model") << "number" << 9;
    }

    void fallosQueTerminanElPrograma()
    {
        QFETCH(QString, caso);
        QFETCH(int, error);
        Tienda t(1);
        t.etiqueta("a.pde", "V", caso == "number" ? "1" : "3", "LARGOLARGOLARGO",
                   QDate(2024, 1, 1));
        if (caso.startsWith("freetxt"))
            t.dir.write("tienda/freetxt.txt", QByteArray("9:05LIBRE\r\n").repeated(10));
        if (caso == "short freetxt")
            t.dir.write("tienda/freetxt.txt", "9:05UNA\r\n");
        if (caso == "in S")
            t.dir.write("tienda/S/a.pde", "earlier");
        QCOMPARE(errorNumber([&] { t.importar("a.pde"); }), error);
        // Nothing is undone: what was moved stays moved.
        if (caso.startsWith("freetxt"))
            QCOMPARE(t.en("S"), QStringList{"freetxt.txt"});
    }
};

QTEST_GUILESS_MAIN(TestImport)
#include "tst_import.moc"
