// The frames a transfer puts on the line, byte for byte, the check value,
// the reading of the scale's replies and the line settings.
#include "AdaptaCaracteres.h"
#include "CoordenadasEnvio.h"
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

QByteArray bytes(std::initializer_list<int> codigos)
{
    QByteArray b;
    for (int c : codigos)
        b.append(static_cast<char>(c));
    return b;
}

// The text's share of a free text frame, whatever the model.
QByteArray parteTexto(const QByteArray& trama, bool nuevo)
{
    const int inicio = nuevo ? 5 : 4;
    return trama.mid(inicio, trama.size() - inicio - 4);
}

} // namespace

class TestTramas : public QObject {
    Q_OBJECT

private slots:
    void apertura_data()
    {
        QTest::addColumn<int>("equipo");
        QTest::addColumn<int>("check");
        const int checks[] = {0x49, 0x4A, 0x4B, 0x4C, 0x4D, 0x4E, 0x4F, 0x40};
        for (int e = 1; e <= 8; ++e)
            QTest::addRow("scale %d", e) << e << checks[e - 1];
    }

    void apertura()
    {
        QFETCH(int, equipo);
        QFETCH(int, check);
        const QByteArray t = TramaApertura(static_cast<int16_t>(equipo));
        QCOMPARE(t.size(), 9);
        QCOMPARE(t.left(7), hex("02343430") + QByteArray::number(equipo) + hex("0003"));
        QCOMPARE(static_cast<unsigned char>(t.at(7)), check);
        QCOMPARE(t.at(8), '\r');
    }

    void cierre() { QCOMPARE(TramaCierre(), hex("023030000003490D")); }

    // The frames of a label as the scale expects them, from what it was
    // built against.
    void ejemplos_data()
    {
        QTest::addColumn<QString>("que");
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QByteArray>("esperada");
        QTest::newRow("free text 1, new model")
            << "textoLibre" << 1 << hex("02393A30304341524E45") + blancos(20) + hex("00037B0D");
        QTest::newRow("free text 1, old model")
            << "textoLibre" << 0 << hex("02393A304341524E45") + blancos(20) + hex("0003480D");
        QTest::newRow("field 1 of V1 PESCADO") << "campo" << 1
                                               << hex("0239390056003100343500504553434144"
                                                      "4F00410030343330323930310003450D");
        QTest::newRow("two empty fixed texts")
            << "fijos" << 1
            << hex("0239303000") + blancos(25) + hex("003000") + blancos(25) + hex("0003760D");
    }

    void ejemplos()
    {
        QFETCH(QString, que);
        QFETCH(int, modelo);
        QFETCH(QByteArray, esperada);
        ModBase mb;
        mb.Idioma = 1;
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        mb.TextoLibre(0) = "CARNE";
        mb.NombreEtiqueta = "PESCADO";
        mb.Campos(1).Presente = "1";
        CoordenadasEnvio c;
        c.CoordHor(1) = "043";
        c.CoordVer(1) = "029";
        TablaCaracteres tabla;
        QByteArray t;
        if (que == "textoLibre")
            t = TramaTextoLibre(mb, tabla, 0);
        else if (que == "campo")
            t = TramaCampo(mb, c, 1);
        else
            t = TramaTextosFijos(mb, tabla);
        QCOMPARE(t.toHex(' '), esperada.toHex(' '));
    }

    // Three codes stand elsewhere in the scale's font, in the printed part
    // of a free text only; Polish has a letter of its own at 209.
    void reemplazos_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QByteArray>("texto");
        QTest::addColumn<QByteArray>("enviado");
        QTest::newRow("156, 209, 128 in Spanish")
            << 1 << bytes({'A', 156, 209, 128}) << bytes({'A', 136, 148, 112});
        QTest::newRow("209 stays in Polish") << 8 << bytes({209}) << bytes({209});
        QTest::newRow("156 and 128 in Polish") << 8 << bytes({156, 128}) << bytes({136, 112});
        QTest::newRow("209 is a Greek capital P") << 7 << bytes({209}) << QByteArray("P");
        QTest::newRow("position 25 changes")
            << 1 << QByteArray(24, 'X') + bytes({156}) << QByteArray(24, 'X') + bytes({136});
        QTest::newRow("position 26 keeps its code") << 1 << QByteArray(25, 'X') + bytes({156, 128})
                                                    << QByteArray(25, 'X') + bytes({156, 128});
        QTest::newRow("each character changes once")
            << 1 << bytes({136, 148, 112}) << bytes({136, 148, 112});
    }

    void reemplazos()
    {
        QFETCH(int, idioma);
        QFETCH(QByteArray, texto);
        QFETCH(QByteArray, enviado);
        ProgramDir pd; // no character tables in it
        ModBase mb;
        pd.attach(mb);
        mb.Idioma = static_cast<int16_t>(idioma);
        mb.ModeloNuevo = 1;
        mb.TextoLibre(3) = texto;
        TablaCaracteres tabla;
        const QByteArray t = TramaTextoLibre(mb, tabla, 3);
        QCOMPARE(t.mid(3, 2), QByteArray("03"));
        QCOMPARE(parteTexto(t, true).toHex(' '),
                 (enviado + blancos(std::max<int>(0, 25 - enviado.size()))).toHex(' '));
        // Fixed texts carry their codes as typed.
        mb.TextoFijo(0) = texto;
        const QByteArray fijos = TramaTextosFijos(mb, tabla);
        if (idioma == 1)
            QVERIFY(fijos.contains(texto));
    }

    // A "~" counts as 0x00 in the check value, yet goes out as it is.
    void tilde()
    {
        ModBase mb;
        mb.Idioma = 1;
        mb.ModeloNuevo = 1;
        TablaCaracteres tabla;
        mb.TextoLibre(0) = "A~B";
        const QByteArray conTilde = TramaTextoLibre(mb, tabla, 0);
        mb.TextoLibre(0) = QByteArray("A\0B", 3);
        const QByteArray conCero = TramaTextoLibre(mb, tabla, 0);
        QVERIFY(conTilde.contains("A~B"));
        QCOMPARE(conTilde.at(conTilde.size() - 2), conCero.at(conCero.size() - 2));
        QCOMPARE(conTilde.size(), conCero.size());
    }

    // Texts are filled, never cut; the frame grows with them, up to what the
    // check value can take.
    void largos_data()
    {
        QTest::addColumn<QString>("que");
        QTest::addColumn<int>("largo");
        QTest::addColumn<int>("tamano"); // of the frame, or -error number
        QTest::newRow("free text of 25") << "libre" << 25 << 34;
        QTest::newRow("free text of 30") << "libre" << 30 << 39;
        QTest::newRow("empty free text") << "libre" << 0 << 34;
        QTest::newRow("free text the check value cannot take") << "libre" << 1020 << -9;
        QTest::newRow("name of 7, no fill") << "nombre" << 7 << 33;
        QTest::newRow("empty name, 7 blanks") << "nombre" << 0 << 33;
        QTest::newRow("name of 9") << "nombre" << 9 << 35;
        QTest::newRow("fixed text of 26") << "fijo" << 26 << 63;
    }

    void largos()
    {
        QFETCH(QString, que);
        QFETCH(int, largo);
        QFETCH(int, tamano);
        ModBase mb;
        mb.Idioma = 1;
        mb.ModeloNuevo = 1;
        const QByteArray texto(largo, 'N');
        CoordenadasEnvio c;
        c.CoordHor(5) = "000";
        c.CoordVer(5) = "000";
        TablaCaracteres tabla;
        QByteArray t;
        const int error = errorNumber([&] {
            if (que == "libre") {
                mb.TextoLibre(0) = texto;
                t = TramaTextoLibre(mb, tabla, 0);
            } else if (que == "nombre") {
                mb.NombreEtiqueta = texto;
                t = TramaCampo(mb, c, 5);
                QCOMPARE(t.mid(11, std::max(7, largo)), texto + blancos(7 - std::min(7, largo)));
            } else {
                mb.TextoFijo(1) = texto;
                t = TramaTextosFijos(mb, tabla);
            }
        });
        if (tamano < 0) {
            QCOMPARE(error, -tamano);
            return;
        }
        QCOMPARE(error, 0);
        QCOMPARE(t.size(), tamano);
        QCOMPARE(t.back(), '\r');
        QCOMPARE(static_cast<int>(static_cast<unsigned char>(t.at(t.size() - 2))),
                 CalCheck(t.left(t.size() - 2)));
    }

    void respuesta_data()
    {
        QTest::addColumn<QList<QByteArray>>("piezas");
        QTest::addColumn<bool>("completa");
        QTest::addColumn<int>("resultado");
        QTest::addColumn<bool>("rechazaApertura");
        using L = QList<QByteArray>;
        QTest::newRow("accepted") << L{hex("020630300340"
                                           "0D")}
                                  << true << 0 << false;
        QTest::newRow("accepted in pieces")
            << L{hex("02"), hex("0630"), hex("30"), hex("03400D")} << true << 0 << false;
        QTest::newRow("0x0D inside a piece ends nothing")
            << L{hex("020D303003")} << false << 0 << false;
        QTest::newRow("0x0D inside, then the end")
            << L{hex("020D303003"), hex("400D")} << true << 0 << false;
        QTest::newRow("refused") << L{hex("02063031"
                                          "03410D")}
                                 << true << 1 << false;
        QTest::newRow("refused opening") << L{hex("02153031"
                                                  "03520D")}
                                         << true << 1 << true;
        QTest::newRow("three bytes") << L{hex("30300D")} << true << 1 << false;
        QTest::newRow("0x0D alone") << L{hex("0D")} << true << 1 << false;
        QTest::newRow("only the bytes 3 and 4 count") << L{hex("FF4130300D")} << true << 0 << false;
        QTest::newRow("0x15 in a reply not yet ended") << L{hex("0215")} << false << 1 << true;
        QTest::newRow("nothing") << L{} << false << 1 << false;
    }

    void respuesta()
    {
        QFETCH(QList<QByteArray>, piezas);
        QFETCH(bool, completa);
        QFETCH(int, resultado);
        QFETCH(bool, rechazaApertura);
        LectorRespuesta r;
        for (const QByteArray& p : piezas)
            r.agregar(p);
        QCOMPARE(r.completa(), completa);
        if (completa)
            QCOMPARE(r.resultado(), resultado);
        QCOMPARE(r.rechazaApertura(), rechazaApertura);
    }

    void ajustes_data()
    {
        QTest::addColumn<QList<int>>("indices"); // speed, parity, data bits, stop bits
        QTest::addColumn<QByteArray>("texto");
        using L = QList<int>;
        QTest::newRow("all 0") << L{0, 0, 0, 0} << QByteArray("2400,N,7,1");
        QTest::newRow("all highest") << L{3, 2, 1, 1} << QByteArray("19200,O,8,2");
        QTest::newRow("even") << L{2, 1, 1, 0} << QByteArray("9600,E,8,1");
        QTest::newRow("4800") << L{1, 0, 1, 0} << QByteArray("4800,N,8,1");
        QTest::newRow("other parity is none") << L{2, 7, 1, 0} << QByteArray("9600,N,8,1");
        QTest::newRow("other data bits are 8") << L{2, 0, 5, 3} << QByteArray("9600,N,8,2");
    }

    void ajustes()
    {
        QFETCH(QList<int>, indices);
        QFETCH(QByteArray, texto);
        ModBase mb;
        mb.Baudios = static_cast<int16_t>(indices[0]);
        mb.Paridad = static_cast<int16_t>(indices[1]);
        mb.BitsDatos = static_cast<int16_t>(indices[2]);
        mb.BitsParada = static_cast<int16_t>(indices[3]);
        QCOMPARE(ajustesLinea(mb).texto(), texto);
    }

    // The whole stream of a label, in wire order.
    void flujo_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<bool>("soloTextos");
        QTest::addColumn<int>("tramas");
        QTest::newRow("old model") << 0 << false << 33;
        QTest::newRow("new model") << 1 << false << 54;
        QTest::newRow("old model, texts only") << 0 << true << 7;
        QTest::newRow("new model, texts only") << 1 << true << 17;
    }

    void flujo()
    {
        QFETCH(int, modelo);
        QFETCH(bool, soloTextos);
        QFETCH(int, tramas);
        ModBase mb;
        mb.Idioma = 2;
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        mb.Campos(3).PosHor = 20;
        mb.Campos(3).PosVer = 30;
        mb.Campos(3).Presente = "1";
        const QList<QByteArray> t = TramasEtiqueta(mb, 3, soloTextos);
        QCOMPARE(t.size(), tramas);
        QCOMPARE(t.first(), TramaApertura(3));
        QCOMPARE(t.last(), TramaCierre());
        const int libres = modelo ? 15 : 5;
        for (int i = 1; i <= libres; ++i)
            QCOMPARE(t.at(i).mid(1, 2), QByteArray("9:"));
        if (soloTextos)
            return;
        const int campos = modelo ? 36 : 25;
        for (int n = 1; n <= campos; ++n) {
            const QByteArray& f = t.at(libres + n);
            QCOMPARE(f.mid(1, 2), QByteArray("99"));
            QCOMPARE(f.mid(19, 1), codigoCampo(n));
            // An untouched field goes out as reset; field 3 with its place.
            QCOMPARE(f.mid(21, 8), n == 3 ? QByteArray("06108601") : QByteArray("00000000"));
        }
        QCOMPARE(t.at(libres + campos + 1).mid(1, 2), QByteArray("90"));
    }
};

QTEST_GUILESS_MAIN(TestTramas)
#include "tst_tramas.moc"
