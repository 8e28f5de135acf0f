// Greek and Polish texts on their way to the scale's font: the Latin
// look-alikes, the table files beside the program, the accents.
#include "AdaptaCaracteres.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "RuntimeErrors.h"

#include <QtTest>

namespace {

QByteArray bytes(std::initializer_list<int> codigos)
{
    QByteArray b;
    for (int c : codigos)
        b.append(static_cast<char>(c));
    return b;
}

// One line of a table file: the numbers in their columns, notes around them.
QByteArray linea(const QByteArray& origen, const QByteArray& destino)
{
    return QByteArray("LETTER NAME  ") + origen.rightJustified(5) + QByteArray("  ----> ") + ' ' +
           destino.rightJustified(5) + " note\r\n";
}

QByteArray fuente(const QString& nombre)
{
    QFile f(QStringLiteral(KORVO_SOURCE_DIR "/res/") + nombre);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll();
}

} // namespace

class TestCaracteres : public QObject {
    Q_OBJECT

private slots:
    void latinas_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QByteArray>("texto");
        QTest::addColumn<QByteArray>("resultado");
        // ΑΒΕΖΗΙΚΜΝΟΡΤΥΧ in windows-1253, then Γ and Ω, which have no twin.
        QTest::newRow("Greek twins") << 7
                                     << bytes({193, 194, 197, 198, 199, 201, 202, 204, 205, 207,
                                               209, 212, 213, 215, 195, 217})
                                     << QByteArray("ABEZHIKMNOPTYX") + bytes({195, 217});
        QTest::newRow("Polish keeps its codes")
            << 8 << bytes({193, 209, 165}) << bytes({193, 209, 165});
        QTest::newRow("another language gives nothing") << 1 << QByteArray("ABC") << QByteArray();
    }

    void latinas()
    {
        QFETCH(int, idioma);
        QFETCH(QByteArray, texto);
        QFETCH(QByteArray, resultado);
        QCOMPARE(AdapTaCharGR1(static_cast<int16_t>(idioma), texto), resultado);
    }

    // Without a table file only the look-alikes and the accents change.
    void sinArchivo_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QByteArray>("texto");
        QTest::addColumn<QByteArray>("resultado");
        // Á É Í Ó Ú À È Ì Ò Ù Ä Ë Ï Ö Ü ¥ by their windows-1252 codes.
        const QByteArray acentos =
            bytes({193, 201, 205, 211, 218, 192, 200, 204, 210, 217, 196, 203, 207, 214, 220, 165});
        QTest::newRow("accents, Polish") << 8 << acentos << QByteArray("AEIOUAEIOUAEIOU@");
        QTest::newRow("small letters keep theirs")
            << 8 << bytes({225, 233, 252}) << bytes({225, 233, 252});
        // In Greek 200 is Θ, caught by the accent table without greek.cht.
        QTest::newRow("Greek without its table")
            << 7 << bytes({200, 193, 165}) << QByteArray("EA@");
        QTest::newRow("empty stays empty") << 8 << QByteArray() << QByteArray();
        QTest::newRow("code 0 meets the empty places, target 0")
            << 7 << bytes({0, 'A'}) << bytes({0, 'A'});
    }

    void sinArchivo()
    {
        QFETCH(int, idioma);
        QFETCH(QByteArray, texto);
        QFETCH(QByteArray, resultado);
        ProgramDir pd;
        ModBase mb;
        pd.attach(mb);
        mb.Idioma = static_cast<int16_t>(idioma);
        TablaCaracteres tabla;
        QCOMPARE(AdapTaCharGR(mb, tabla, texto), resultado);
    }

    // The tables that come with the program.
    void tablasDelPrograma_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QByteArray>("texto");
        QTest::addColumn<QByteArray>("resultado");
        // ΑΘΗΝΑ ΣΩΦΡΩΝ: the look-alikes become Latin, the others the font's codes.
        QTest::newRow("Greek")
            << 7 << bytes({193, 200, 199, 205, 193, ' ', 211, 217, 214, 209, 217, 205})
            << bytes({'A', 135, 'H', 'N', 'A', ' ', 145, 151, 148, 'P', 151, 'N'});
        QTest::newRow("Greek capitals without a twin")
            << 7 << bytes({195, 196, 200, 203, 206, 208, 211, 214, 216, 217})
            << bytes({130, 131, 135, 138, 141, 143, 145, 148, 150, 151});
        // ŁÓDŹ, ŻÓŁĆ, and Ą, which the font has at "@".
        QTest::newRow("Polish") << 8
                                << bytes({163, 211, 'D', 143, ' ', 175, 211, 163, 198, ' ', 165})
                                << bytes({157, 224, 'D', 141, ' ', 189, 224, 157, 143, ' ', '@'});
        QTest::newRow("Polish capitals") << 8 << bytes({198, 202, 163, 209, 211, 140, 143, 175})
                                         << bytes({143, 168, 157, 227, 224, 151, 141, 189});
        QTest::newRow("Polish small letters")
            << 8 << bytes({234, 179, 243, 156, 191, 185}) << bytes({169, 136, 162, 152, 190, 185});
    }

    void tablasDelPrograma()
    {
        QFETCH(int, idioma);
        QFETCH(QByteArray, texto);
        QFETCH(QByteArray, resultado);
        ProgramDir pd;
        pd.write("greek.cht", fuente("greek.cht"));
        pd.write("polish.cht", fuente("polish.cht"));
        ModBase mb;
        pd.attach(mb);
        mb.Idioma = static_cast<int16_t>(idioma);
        TablaCaracteres tabla;
        QCOMPARE(AdapTaCharGR(mb, tabla, texto).toHex(' '), resultado.toHex(' '));
    }

    // What a table file may hold, and what each gives or ends with.
    void lectura_data()
    {
        QTest::addColumn<QByteArray>("contenido");
        QTest::addColumn<int>("lineas");
        QTest::addColumn<QList<int>>("origen"); // places 0.. as far as given
        QTest::addColumn<QList<int>>("destino");
        QTest::addColumn<int>("error");
        using L = QList<int>;
        QTest::newRow("two lines")
            << linea("195", "130") + linea("196", "131") << 2 << L{195, 196} << L{130, 131} << 0;
        QTest::newRow("lines beyond are not read") << linea("1", "2") + "garbage\r\n"
                                                   << 1 << L{1, 0} << L{2, 0} << 0;
        QTest::newRow("line feeds alone") << QByteArray("             00065         00066\n"
                                                        "             00067         00068")
                                          << 2 << L{65, 67} << L{66, 68} << 0;
        QTest::newRow("a line too short") << QByteArray("short\r\n") << 1 << L{0} << L{0} << 0;
        QTest::newRow("only the source")
            << QByteArray("             65\r\n") << 1 << L{65} << L{0} << 0;
        QTest::newRow("letters give 0") << linea("ab", "x1") << 1 << L{0} << L{0} << 0;
        QTest::newRow("reading stops at a letter")
            << linea("12x", " 7a") << 1 << L{12} << L{7} << 0;
        QTest::newRow("halves to even") << linea("64.5", "65.5") << 1 << L{64} << L{66} << 0;
        QTest::newRow("sign and exponent") << linea("-3", "1e2") << 1 << L{-3} << L{100} << 0;
        QTest::newRow("fewer lines than read") << linea("1", "2") << 2 << L{1} << L{2} << 62;
        QTest::newRow("empty file") << QByteArray() << 10 << L{} << L{} << 62;
        QTest::newRow("beyond a 16-bit integer") << linea("99999", "1") << 1 << L{} << L{} << 6;
    }

    void lectura()
    {
        QFETCH(QByteArray, contenido);
        QFETCH(int, lineas);
        QFETCH(QList<int>, origen);
        QFETCH(QList<int>, destino);
        QFETCH(int, error);
        TablaCaracteres tabla;
        QCOMPARE(errorNumber([&] { leerTablaCaracteres(contenido, lineas, tabla); }), error);
        for (int k = 0; k < origen.size(); ++k) {
            QCOMPARE(tabla.CodigoOrigen(k), origen.at(k));
            QCOMPARE(tabla.CodigoDestino(k), destino.at(k));
        }
    }

    // The file is read on every call: a change shows at once, a file that
    // goes leaves the table as the last read made it, and a target that is
    // no byte ends the program only when a character meets it.
    void archivoEnCadaLlamada()
    {
        ProgramDir pd;
        ModBase mb;
        pd.attach(mb);
        mb.Idioma = 8;
        QByteArray trece;
        for (int k = 0; k < 13; ++k)
            trece += linea(QByteArray::number(k == 0   ? 'A'
                                              : k == 1 ? 'A'
                                                       : 1),
                           QByteArray::number(k == 0   ? 'X'
                                              : k == 1 ? 'Y'
                                                       : 1));
        pd.write("polish.cht", trece);
        TablaCaracteres tabla;
        QCOMPARE(AdapTaCharGR(mb, tabla, "AB"), QByteArray("XB")); // the first place wins

        pd.write("polish.cht", QByteArray(linea("66", "90")).repeated(13));
        QCOMPARE(AdapTaCharGR(mb, tabla, "AB"), QByteArray("AZ"));

        QFile::remove(pd.file("polish.cht"));
        QCOMPARE(AdapTaCharGR(mb, tabla, "AB"), QByteArray("AZ"));

        pd.write("polish.cht", QByteArray(linea("67", "300")).repeated(13));
        QCOMPARE(AdapTaCharGR(mb, tabla, "AB"), QByteArray("AB"));
        QCOMPARE(errorNumber([&] { AdapTaCharGR(mb, tabla, "C"); }), 5);

        pd.write("polish.cht", linea("67", "68"));
        QCOMPARE(errorNumber([&] { AdapTaCharGR(mb, tabla, "C"); }), 62);
    }

    // A Greek capital of the look-alike table never reaches greek.cht.
    void gemelaAntesQueTabla()
    {
        ProgramDir pd;
        ModBase mb;
        pd.attach(mb);
        mb.Idioma = 7;
        pd.write("greek.cht", QByteArray(linea("193", "33")).repeated(10));
        TablaCaracteres tabla;
        QCOMPARE(AdapTaCharGR(mb, tabla, bytes({193})), QByteArray("A"));
    }

    // The shipped files hold ten and thirteen letters, each a different one.
    void archivosDelPrograma_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<int>("lineas");
        QTest::newRow("greek.cht") << "greek.cht" << 10;
        QTest::newRow("polish.cht") << "polish.cht" << 13;
    }

    void archivosDelPrograma()
    {
        QFETCH(QString, archivo);
        QFETCH(int, lineas);
        TablaCaracteres tabla;
        leerTablaCaracteres(fuente(archivo), lineas, tabla);
        QSet<int> origenes;
        for (int k = 0; k < lineas; ++k) {
            QVERIFY(tabla.CodigoOrigen(k) >= 128 && tabla.CodigoOrigen(k) <= 255);
            QVERIFY(tabla.CodigoDestino(k) >= 128 && tabla.CodigoDestino(k) <= 255);
            origenes.insert(tabla.CodigoOrigen(k));
        }
        QCOMPARE(origenes.size(), lineas);
    }
};

QTEST_GUILESS_MAIN(TestCaracteres)
#include "tst_caracteres.moc"
