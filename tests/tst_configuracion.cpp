#include "Catalogo.h"
#include "Configuracion.h"
#include "ModBase.h"
#include "ProgramDir.h"

#include <QtTest>

namespace {

// The settings as one comparable row: Idioma, Puerto, Baudios, Paridad,
// BitsParada, BitsDatos, Sombreado.
QList<int> ajustes(const ModBase& mb)
{
    return {mb.Idioma, mb.Puerto, mb.Baudios, mb.Paridad, mb.BitsParada, mb.BitsDatos,
            mb.Sombreado};
}

const QList<int> kDefectos = {1, 0, 2, 0, 0, 1, 1};

QByteArray crlf(const QByteArray& lines)
{
    QByteArray out = lines;
    out.replace("\n", "\r\n");
    return out;
}

const QByteArray kLargaEspanol = crlf("Idioma = 3\n"
                                      "Puerto de comunicaci\xf3n = 2\n"
                                      "Baudios = 1\n"
                                      "Paridad = 2\n"
                                      "Bits de parada = 1\n"
                                      "Bits de datos = 0\n"
                                      "Sombreado = 0\n"
                                      "Fondo = C:\\fotos\\logo.bmp\n"
                                      "-----\n"
                                      "Idioma = 9\n");

} // namespace

class TestConfiguracion : public QObject {
    Q_OBJECT

private slots:
    void lectura_data()
    {
        QTest::addColumn<QByteArray>("contenido");
        QTest::addColumn<QList<int>>("esperado");
        QTest::addColumn<QString>("ruta");
        QTest::addColumn<bool>("modeloLeido"); // the marker file was looked at

        QTest::newRow("long form, stops at line 9")
            << kLargaEspanol << QList<int>{3, 2, 1, 2, 1, 0, 0} << "C:\\fotos\\logo.bmp" << true;
        QTest::newRow("only the last character counts")
            << crlf("Idioma = 12\nPuerto = 3\n") << QList<int>{2, 3, 0, 0, 0, 0, 0} << "" << true;
        QTest::newRow("out of range values are replaced")
            << crlf("x 9\nx 7\nx 7\nx 5\nx 4\nx 2\nx 3\nNo Fondo\n")
            << QList<int>{1, 0, 0, 0, 0, 0, 1} << "" << true;
        QTest::newRow("language 0 becomes 1")
            << crlf("Idioma = 0\n") << QList<int>{1, 0, 0, 0, 0, 0, 0} << "" << true;
        QTest::newRow("an empty line ends the reading")
            << crlf("Idioma = 2\nPuerto = 1\n\nParidad = 2\n")
            << QList<int>{2, 1, 0, 0, 0, 0, 0} << "" << true;
        QTest::newRow("an empty file leaves every setting at 0")
            << QByteArray() << QList<int>{0, 0, 0, 0, 0, 0, 0} << "" << true;
        QTest::newRow("a blank after the digit is a type mismatch")
            << crlf("Idioma = 2 \nPuerto = 1\n") << kDefectos << "" << false;
        QTest::newRow("a letter on line 7 restores everything")
            << crlf("Idioma = 2\nPuerto = 1\nBaudios = 3\nParidad = 1\nB = 1\nB = 0\nSombreado = s\n")
            << kDefectos << "" << false;
        QTest::newRow("a path with = survives behind the first one")
            << crlf("1\n1\n1\n1\n1\n1\n1\nFondo = C:\\a=b.bmp\n")
            << QList<int>{1, 1, 1, 1, 1, 1, 1} << "C:\\a=b.bmp" << true;
        QTest::newRow("line 8 without = has no path")
            << crlf("1\n1\n1\n1\n1\n1\n1\nNo Fondo\n") << QList<int>{1, 1, 1, 1, 1, 1, 1} << ""
            << true;
        QTest::newRow("line 8 ending in = has no path")
            << crlf("1\n1\n1\n1\n1\n1\n1\nFondo =\n") << QList<int>{1, 1, 1, 1, 1, 1, 1} << ""
            << true;
        QTest::newRow("line 8 of one character")
            << crlf("1\n1\n1\n1\n1\n1\n1\n=\n") << QList<int>{1, 1, 1, 1, 1, 1, 1} << "" << true;
        QTest::newRow("Greek path decoded in the language read")
            << crlf("7\n0\n2\n0\n0\n1\n1\n\xd6\xfc\xed\xf4\xef = \xe5\xe9\xea\xfc\xed\xe1.bmp\n")
            << QList<int>{7, 0, 2, 0, 0, 1, 1} << QStringLiteral("εικόνα.bmp") << true;
        QTest::newRow("lines ending in a lone line feed")
            << QByteArray("Idioma = 5\nPuerto = 2\n") << QList<int>{5, 2, 0, 0, 0, 0, 0} << ""
            << true;
    }

    void lectura()
    {
        QFETCH(QByteArray, contenido);
        QFETCH(QList<int>, esperado);
        QFETCH(QString, ruta);
        QFETCH(bool, modeloLeido);

        ProgramDir dir;
        dir.write("cfg.ini", contenido);
        dir.write("sirel.new", {});
        dir.write("Lastfreetext.txt", "x");
        ModBase mb;
        dir.attach(mb);

        QCOMPARE(LeerConfiguracion(mb), int16_t(0));
        QCOMPARE(ajustes(mb), esperado);
        QCOMPARE(mb.RutaFondo, ruta);
        // A damaged file skips the marker and the left-over file.
        QCOMPARE(mb.ModeloNuevo, int16_t(modeloLeido ? 1 : 0));
        QCOMPARE(dir.exists("Lastfreetext.txt"), !modeloLeido);
        QCOMPARE(dir.read("cfg.ini"), contenido);
    }

    void creacion()
    {
        ProgramDir dir;
        ModBase mb;
        dir.attach(mb);
        QCOMPARE(LeerConfiguracion(mb), int16_t(1));
        QCOMPARE(ajustes(mb), kDefectos);
        QCOMPARE(mb.RutaFondo, QString());
        QCOMPARE(mb.ModeloNuevo, int16_t(0));
        QCOMPARE(dir.read("cfg.ini"), crlf("Idioma = 1\n"
                                           "Puerto de comunicaci\xf3n = 0\n"
                                           "Baudios = 2\n"
                                           "Paridad = 0\n"
                                           "Bits de parada = 0\n"
                                           "Bits de datos = 1\n"
                                           "Sombreado = 1\n"
                                           "No Fondo\n"));

        // The next run finds the short form and reads it back unchanged.
        ModBase again;
        dir.attach(again);
        dir.write("sirel.new", {});
        QCOMPARE(LeerConfiguracion(again), int16_t(0));
        QCOMPARE(ajustes(again), kDefectos);
        QCOMPARE(again.ModeloNuevo, int16_t(1));
    }

    void creacionTambienMiraElModelo()
    {
        ProgramDir dir;
        dir.write("sirel.new", {});
        dir.write("Lastfreetext.txt", "x");
        ModBase mb;
        dir.attach(mb);
        QCOMPARE(LeerConfiguracion(mb), int16_t(1));
        QCOMPARE(mb.ModeloNuevo, int16_t(1));
        QVERIFY(!dir.exists("Lastfreetext.txt"));
    }

    void formaLarga_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QString>("ruta");
        QTest::addColumn<QByteArray>("esperado");

        const QByteArray leyendasEs = crlf(
            "Idioma: Espa\xf1ol = 1; English = 2; Portugu\xeas = 3; Dutch = 4; Fran\xe7" "ais = 5; "
            "Italiano = 6; Greek = 7; Polska = 8;\n"
            "Puerto de comunicaci\xf3n: COM1 = 0; COM2 = 1; COM3 = 2; COM4 = 3;\n"
            "Baudios: 2400 = 0; 4800 = 1; 9600 = 2; 19200 = 3;\n"
            "Paridad: NONE = 0; EVEN = 1; ODD = 2;\n"
            "Bits de parada: 1 = 0; 2 = 1; \n"
            "Bits de datos: 7 = 0; 8 = 1;\n"
            "Sombreado: No = 0; S\xed = 1;\n");
        const QByteArray ajustesEs = crlf("Idioma = 1\n"
                                          "Puerto de comunicaci\xf3n = 3\n"
                                          "Baudios = 2\n"
                                          "Paridad = 1\n"
                                          "Bits de parada = 1\n"
                                          "Bits de datos = 1\n"
                                          "Sombreado = 0\n");
        const QByteArray rayas = QByteArray(128, '-') + "\r\n";
        QTest::newRow("Spanish without a background")
            << 1 << QString() << ajustesEs + "No Fondo\r\n" + rayas + leyendasEs;
        QTest::newRow("Spanish with a background")
            << 1 << QStringLiteral("C:\\img\\año.bmp")
            << ajustesEs + "Fondo = C:\\img\\a\xf1o.bmp\r\n" + rayas + leyendasEs;
    }

    void formaLarga()
    {
        QFETCH(int, idioma);
        QFETCH(QString, ruta);
        QFETCH(QByteArray, esperado);

        ProgramDir dir;
        dir.writeSmallCatalogue();
        ModBase mb;
        dir.attach(mb);
        QCOMPARE(CargarTextos(mb, static_cast<int16_t>(idioma)), int16_t(0));
        mb.Idioma = static_cast<int16_t>(idioma);
        mb.Puerto = 3;
        mb.Baudios = 2;
        mb.Paridad = 1;
        mb.BitsParada = 1;
        mb.BitsDatos = 1;
        mb.Sombreado = 0;
        mb.RutaFondo = ruta;
        GuardarConfiguracion(mb);
        QCOMPARE(dir.read("cfg.ini"), esperado);
    }

    // Whatever the language of the last run, the next one reads the same
    // settings back, the background path included.
    void idaYVuelta_data()
    {
        QTest::addColumn<int>("idioma");
        for (int i = 1; i <= 8; ++i)
            QTest::newRow(qPrintable(QString::number(i))) << i;
    }

    void idaYVuelta()
    {
        QFETCH(int, idioma);
        ProgramDir dir;
        dir.copyBuiltCatalogue();
        ModBase mb;
        dir.attach(mb);
        QCOMPARE(CargarTextos(mb, static_cast<int16_t>(idioma)), int16_t(0));
        mb.Idioma = static_cast<int16_t>(idioma);
        mb.Puerto = 2;
        mb.Baudios = 3;
        mb.Paridad = 2;
        mb.BitsParada = 1;
        mb.BitsDatos = 0;
        mb.Sombreado = 1;
        mb.RutaFondo = idioma == 7 ? QStringLiteral("/home/πελάτης/λογότυπο.bmp")
                                   : QStringLiteral("/srv/fondos/etiqueta = 1.bmp");
        GuardarConfiguracion(mb);

        ModBase next;
        dir.attach(next);
        QCOMPARE(LeerConfiguracion(next), int16_t(0));
        QCOMPARE(ajustes(next), ajustes(mb));
        QCOMPARE(next.RutaFondo, mb.RutaFondo);
    }

    void guardarSinPermisoTerminaElPrograma()
    {
        ProgramDir dir;
        dir.writeSmallCatalogue();
        ModBase mb;
        dir.attach(mb);
        CargarTextos(mb, 1);
        mb.Idioma = 1;
        mb.programDir = dir.file("no-such-folder");
        QVERIFY_THROWS_EXCEPTION(RuntimeError, GuardarConfiguracion(mb));
    }
};

QTEST_GUILESS_MAIN(TestConfiguracion)
#include "tst_configuracion.moc"
