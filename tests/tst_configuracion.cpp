#include "Catalogo.h"
#include "Configuracion.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "TextLines.h"

#include <QtTest>

namespace {

// The settings as one comparable row: Idioma, Puerto, Baudios, Paridad,
// BitsParada, BitsDatos, Sombreado.
QList<int> ajustes(const ModBase& mb)
{
    return {mb.Idioma,     mb.Puerto,    mb.Baudios,  mb.Paridad,
            mb.BitsParada, mb.BitsDatos, mb.Sombreado};
}

void ponAjustes(ModBase& mb, const QList<int>& a)
{
    int16_t* campos[] = {&mb.Idioma,     &mb.Puerto,    &mb.Baudios,  &mb.Paridad,
                         &mb.BitsParada, &mb.BitsDatos, &mb.Sombreado};
    for (int i = 0; i < 7; ++i)
        *campos[i] = static_cast<int16_t>(a.at(i));
}

const QList<int> kDefectos = {1, 0, 2, 0, 0, 1, 1};

QByteArray crlf(QByteArray lines)
{
    return lines.replace("\n", "\r\n");
}

// A cfg.ini as found, and what the reading makes of it.
struct Lectura {
    QByteArray contenido;
    QList<int> esperado;
    QString ruta = {};
    bool modeloLeido = true; // the marker file was looked at
    bool marca = true;       // the marker file is there
};

// What a run without cfg.ini writes: the defaults in the short form.
const QByteArray kCorta = crlf("Idioma = 1\nPuerto de comunicaci\xf3n = 0\nBaudios = 2\n"
                               "Paridad = 0\nBits de parada = 0\nBits de datos = 1\n"
                               "Sombreado = 1\nNo Fondo\n");

} // namespace

Q_DECLARE_METATYPE(Lectura)

class TestConfiguracion : public QObject {
    Q_OBJECT

private slots:
    void lectura_data()
    {
        QTest::addColumn<Lectura>("l");
        // The path keeps what follows its first " = ", another = included.
        QTest::newRow("long form, stops at line 9")
            << Lectura{crlf("Idioma = 3\nPuerto de comunicaci\xf3n = 2\nBaudios = 1\nParidad = 2\n"
                            "Bits de parada = 1\nBits de datos = 0\nSombreado = 0\n"
                            "Fondo = C:\\fotos\\a=b.bmp\n-----\nIdioma = 9\n"),
                       {3, 2, 1, 2, 1, 0, 0},
                       "C:\\fotos\\a=b.bmp"};
        QTest::newRow("the highest values are kept")
            << Lectura{crlf("8\n3\n3\n2\n1\n1\n1\n"), {8, 3, 3, 2, 1, 1, 1}};
        QTest::newRow("out of range values are replaced") << Lectura{
            crlf("x 9\nx 7\nx 7\nx 5\nx 4\nx 2\nx 3\nNo Fondo\n"), {1, 0, 0, 0, 0, 0, 1}};
        QTest::newRow("language 0 becomes 1, an empty line ends the reading")
            << Lectura{crlf("Idioma = 0\nPuerto = 1\n\nParidad = 2\n"), {1, 1, 0, 0, 0, 0, 0}};
        // No cfg.ini: the defaults, written in the short form; without the
        // marker it is the old model.
        QTest::newRow("no file, no marker") << Lectura{QByteArray(), kDefectos, "", true, false};
        // A damaged file skips the marker and the left-over file.
        QTest::newRow("a blank after the digit is a type mismatch")
            << Lectura{crlf("Idioma = 2 \nPuerto = 1\n"), kDefectos, "", false};
        QTest::newRow("Greek path decoded in the language read") << Lectura{
            crlf("7\n0\n2\n0\n0\n1\n1\n\xd6\xfc\xed\xf4\xef = \xe5\xe9\xea\xfc\xed\xe1.bmp\n"),
            {7, 0, 2, 0, 0, 1, 1},
            QStringLiteral("εικόνα.bmp")};
    }

    void lectura()
    {
        QFETCH(Lectura, l);
        ProgramDir dir;
        if (!l.contenido.isNull())
            dir.write("cfg.ini", l.contenido);
        if (l.marca)
            dir.write("sirel.new", {});
        dir.write("Lastfreetext.txt", "x");
        ModBase mb;
        dir.attach(mb);
        QCOMPARE(LeerConfiguracion(mb), int16_t(l.contenido.isNull()));
        QCOMPARE(ajustes(mb), l.esperado);
        QCOMPARE(mb.RutaFondo, l.ruta);
        QCOMPARE(mb.ModeloNuevo, int16_t(l.marca && l.modeloLeido));
        QCOMPARE(dir.exists("Lastfreetext.txt"), !l.modeloLeido);
        QCOMPARE(dir.read("cfg.ini"), l.contenido.isNull() ? kCorta : l.contenido);
    }

    // The long form names every line in the language, then a rule and the
    // legend of the values; whatever the language of the last run, the next
    // one reads the same settings back, the background path included. A
    // failed write is the full-disk tests' business.
    void formaLarga_data()
    {
        QTest::addColumn<int>("idioma");
        for (int i = 1; i <= 8; ++i)
            QTest::newRow(qPrintable(QString::number(i))) << i;
    }

    void formaLarga()
    {
        QFETCH(int, idioma);
        ProgramDir dir;
        dir.copyBuiltCatalogue();
        ModBase mb;
        dir.attach(mb);
        QCOMPARE(CargarTextos(mb, static_cast<int16_t>(idioma)), int16_t(0));
        ponAjustes(mb, {idioma, 3, 2, 1, 1, 1, 0});
        mb.RutaFondo = idioma == 7   ? QStringLiteral("/home/πελάτης/λογότυπο.bmp")
                       : idioma == 8 ? QStringLiteral("C:\\img\\łódź = 1.bmp")
                                     : QStringLiteral("C:\\img\\año = 1.bmp");
        GuardarConfiguracion(mb);
        const QByteArray escrito = dir.read("cfg.ini");
        if (idioma == 1)
            QVERIFY(escrito.startsWith(
                crlf("Idioma = 1\nPuerto de comunicaci\xf3n = 3\nBaudios = 2\nParidad = 1\n"
                     "Bits de parada = 1\nBits de datos = 1\nSombreado = 0\n"
                     "Fondo = C:\\img\\a\xf1o = 1.bmp\n") +
                QByteArray(128, '-') + "\r\nIdioma: Espa\xf1ol = 1;"));
        QCOMPARE(splitLines(escrito).size(), 16);

        ModBase next;
        dir.attach(next);
        QCOMPARE(LeerConfiguracion(next), int16_t(0));
        QCOMPARE(ajustes(next), ajustes(mb));
        QCOMPARE(next.RutaFondo, mb.RutaFondo);
    }
};

QTEST_GUILESS_MAIN(TestConfiguracion)
#include "tst_configuracion.moc"
