// The frames a transfer puts on the line, byte for byte, the check value
// and the line settings. The scale's replies are read in the whole
// transfers.
#include "AdaptaCaracteres.h"
#include "Codigos.h"
#include "Envio.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "PuertoSerie.h"
#include "RuntimeErrors.h"
#include "Tramas.h"

#include <QtTest>

namespace {

QByteArray hex(const char* h)
{
    return QByteArray::fromHex(h);
}

QByteArray blancos(int n)
{
    return QByteArray(n, ' ');
}

} // namespace

class TestTramas : public QObject {
    Q_OBJECT

private slots:
    // The frames of a label as the scale expects them, from what it was
    // built against, by their place in the label's stream: the opening (0),
    // free text 1 (1; CARNE unless told), field 1 at 43, 29 (16), the fixed
    // texts (52) and the closing (53).
    void ejemplos_data()
    {
        QTest::addColumn<int>("trama");
        QTest::addColumn<int>("idioma");
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QByteArray>("texto"); // the free text, the name or fixed text 2
        QTest::addColumn<QByteArray>("esperada");
        const QByteArray carne("CARNE");
        QTest::newRow("opening of scale 1") << 0 << 1 << 1 << carne << hex("02343430310003490D");
        QTest::newRow("closing") << 53 << 1 << 1 << carne << hex("023030000003490D");
        QTest::newRow("free text 1, new model")
            << 1 << 1 << 1 << carne << hex("02393A30304341524E45") + blancos(20) + hex("00037B0D");
        QTest::newRow("free text 1, old model")
            << 1 << 1 << 0 << carne << hex("02393A304341524E45") + blancos(20) + hex("0003480D");
        // Texts are filled, never cut; the frame grows with them.
        QTest::newRow("free text of 30")
            << 1 << 1 << 1 << QByteArray(30, 'N')
            << hex("02393A3030") + QByteArray(30, 'N') + hex("0003650D");
        QTest::newRow("empty name, 7 blanks")
            << 16 << 1 << 1 << QByteArray()
            << hex("0239390056003100343500") + blancos(7) + hex("004100303433303239303100036A0D");
        QTest::newRow("name of 9") << 16 << 1 << 1 << QByteArray(9, 'N')
                                   << hex("0239390056003100343500") + QByteArray(9, 'N') +
                                          hex("00410030343330323930310003460D");
        QTest::newRow("fixed text of 26") << 52 << 1 << 1 << QByteArray(26, 'N')
                                          << hex("0239303000") + blancos(25) + hex("003000") +
                                                 QByteArray(26, 'N') + hex("0003570D");
        // A "~" counts as 0x00 in the check value, yet goes out as it is.
        QTest::newRow("a tilde") << 1 << 1 << 1 << QByteArray("A~B")
                                 << hex("02393A3030417E42") + blancos(22) + hex("0003630D");
        // Three codes stand elsewhere in the scale's font, in the printed
        // part of a free text only; Polish has a letter of its own at 209,
        // and in Greek it is a capital P. Fixed texts carry their codes as typed.
        QTest::newRow("156, 209, 128 in Spanish")
            << 1 << 1 << 1 << bytes({'A', 156, 209, 128})
            << hex("02393A303041889470") + blancos(21) + hex("00036D0D");
        QTest::newRow("209 stays in Polish")
            << 1 << 8 << 1 << bytes({209}) << hex("02393A3030D1") + blancos(24) + hex("0003710D");
        QTest::newRow("209 is a Greek capital P")
            << 1 << 7 << 1 << bytes({209}) << hex("02393A303050") + blancos(24) + hex("0003700D");
        QTest::newRow("position 25 changes, 26 keeps its code")
            << 1 << 1 << 1 << QByteArray(24, 'X') + bytes({156, 156})
            << hex("02393A3030") + QByteArray(24, 'X') + hex("889C0003750D");
        QTest::newRow("a fixed text as typed")
            << 52 << 1 << 1 << bytes({'A', 156, 209, 128})
            << hex("0239303000") + blancos(25) + hex("003000419CD180") + blancos(21) +
                   hex("00037A0D");
    }

    void ejemplos()
    {
        QFETCH(int, trama);
        QFETCH(int, idioma);
        QFETCH(int, modelo);
        QFETCH(QByteArray, texto);
        ProgramDir pd; // no character tables in it
        ModBase mb;
        pd.attach(mb);
        mb.Idioma = static_cast<int16_t>(idioma);
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        mb.TextoLibre(0) = texto;
        mb.NombreEtiqueta = texto;
        mb.TextoFijo(1) = texto;
        mb.Campos(1).Presente = "1";
        mb.Campos(1).PosHor = 15;
        mb.Campos(1).PosVer = 14;
        QTEST(TramasEtiqueta(mb, 1, false).at(trama), "esperada");
    }

    // A text the check value cannot take ends the program.
    void textoDemasiadoLargo()
    {
        ModBase mb;
        mb.TextoLibre(0) = QByteArray(1020, 'N');
        TablaCaracteres tabla;
        QCOMPARE(errorNumber([&] { TramaTextoLibre(mb, tabla, 0); }), 9);
    }

    void ajustes_data()
    {
        QTest::addColumn<QList<int>>("indices"); // speed, parity, data bits, stop bits
        QTest::addColumn<QByteArray>("texto");
        using L = QList<int>;
        QTest::newRow("all 0") << L{0, 0, 0, 0} << QByteArray("2400,N,7,1");
        QTest::newRow("all highest") << L{3, 2, 1, 1} << QByteArray("19200,O,8,2");
        QTest::newRow("others are 9600,N,8,2") << L{4, 7, 5, 3} << QByteArray("9600,N,8,2");
    }

    void ajustes()
    {
        QFETCH(QList<int>, indices);
        ModBase mb;
        int16_t* const lugares[] = {&mb.Baudios, &mb.Paridad, &mb.BitsDatos, &mb.BitsParada};
        for (int i = 0; i < 4; ++i)
            *lugares[i] = static_cast<int16_t>(indices[i]);
        QTEST(ajustesLinea(mb).texto(), "texto");
    }
};

QTEST_GUILESS_MAIN(TestTramas)
#include "tst_tramas.moc"
