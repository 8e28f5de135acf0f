// Greek and Polish texts on their way to the scale's font: the Latin
// look-alikes, the table files beside the program, the accents.
#include "AdaptaCaracteres.h"
#include "Codigos.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "RuntimeErrors.h"

#include <QtTest>

namespace {

// One line of a table file: the numbers in their columns, notes around them.
QByteArray linea(const QByteArray& origen, const QByteArray& destino)
{
    return QByteArray("LETTER NAME  ") + origen.rightJustified(5) + QByteArray("  ----> ") + ' ' +
           destino.rightJustified(5) + " note\r\n";
}

} // namespace

class TestCaracteres : public QObject {
    Q_OBJECT

private slots:
    // A text of the language as the scale gets it, with the language's table
    // file beside the program (the shipped one, another, or none).
    void adaptacion_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QByteArray>("tabla");
        QTest::addColumn<QByteArray>("texto");
        QTest::addColumn<QByteArray>("resultado");
        // ΑΒΕΖΗΙΚΜΝΟΡΤΥΧ in windows-1253, which have a Latin twin, then the
        // ten capitals that have none: ΓΔΘΛΞΠΣΦΨΩ.
        QTest::newRow("Greek capitals")
            << 7 << fuente("greek.cht")
            << bytes({193, 194, 197, 198, 199, 201, 202, 204, 205, 207, 209, 212,
                      213, 215, 195, 196, 200, 203, 206, 208, 211, 214, 216, 217})
            << QByteArray("ABEZHIKMNOPTYX") +
                   bytes({130, 131, 135, 138, 141, 143, 145, 148, 150, 151});
        // The capitals and small letters of polish.cht, and Ą, which the font has at "@".
        QTest::newRow("Polish")
            << 8 << fuente("polish.cht")
            << bytes({198, 202, 163, 209, 211, 140, 143, 175, 234, 179, 243, 156, 191, 185, 165})
            << bytes({143, 168, 157, 227, 224, 151, 141, 189, 169, 136, 162, 152, 190, 185, '@'});
        // Á É Í Ó Ú À È Ì Ò Ù Ä Ë Ï Ö Ü ¥ by their windows-1252 codes, then
        // small letters, which keep theirs.
        QTest::newRow("accents without a table")
            << 8 << QByteArray()
            << bytes({193, 201, 205, 211, 218, 192, 200, 204, 210, 217, 196, 203, 207, 214, 220,
                      165, 225, 233, 252})
            << QByteArray("AEIOUAEIOUAEIOU@") + bytes({225, 233, 252});
        // A Greek capital of the look-alike table never reaches greek.cht.
        QTest::newRow("the twin before the table")
            << 7 << linea("193", "33").repeated(10) << bytes({193}) << QByteArray("A");
        // A number is read as far as it goes, halves to even.
        QTest::newRow("reading stops at a letter")
            << 8 << linea("12x", " 7a").repeated(13) << bytes({12}) << bytes({7});
        QTest::newRow("halves to even")
            << 8 << linea("64.5", "65.5").repeated(13) << QByteArray("@A") << QByteArray("BA");
    }

    void adaptacion()
    {
        QFETCH(int, idioma);
        QFETCH(QByteArray, tabla);
        QFETCH(QByteArray, texto);
        QFETCH(QByteArray, resultado);
        ProgramDir pd;
        ModBase mb;
        pd.attach(mb);
        mb.Idioma = static_cast<int16_t>(idioma);
        if (!tabla.isEmpty())
            pd.write(archivoTablaCaracteres(mb.Idioma), tabla);
        TablaCaracteres t;
        QCOMPARE(AdapTaCharGR(mb, t, texto).toHex(' '), resultado.toHex(' '));
    }

    // The file is read on every call: a change shows at once, a file that
    // goes leaves the table as the last read made it, a target that is no
    // byte ends the program only when a character meets it.
    void archivoEnCadaLlamada()
    {
        ProgramDir pd;
        ModBase mb;
        pd.attach(mb);
        mb.Idioma = 8;
        pd.write("polish.cht",
                 linea("65", "88") + linea("65", "89") + linea("1", "1").repeated(11));
        TablaCaracteres tabla;
        QCOMPARE(AdapTaCharGR(mb, tabla, "AB"), QByteArray("XB")); // the first place wins

        pd.write("polish.cht", linea("66", "90").repeated(13));
        QCOMPARE(AdapTaCharGR(mb, tabla, "AB"), QByteArray("AZ"));

        QFile::remove(pd.file("polish.cht"));
        QCOMPARE(AdapTaCharGR(mb, tabla, "AB"), QByteArray("AZ"));

        pd.write("polish.cht", linea("67", "300").repeated(13));
        QCOMPARE(AdapTaCharGR(mb, tabla, "AB"), QByteArray("AB"));
        QCOMPARE(errorNumber([&] { AdapTaCharGR(mb, tabla, "C"); }), 5);

        // A number beyond 16 bits ends the program as it is read.
        pd.write("polish.cht", linea("99999", "1").repeated(13));
        QCOMPARE(errorNumber([&] { AdapTaCharGR(mb, tabla, "AB"); }), 6);
    }
};

QTEST_GUILESS_MAIN(TestCaracteres)
#include "tst_caracteres.moc"
