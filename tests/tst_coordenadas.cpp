// The coordinates the scale receives: the chain of roundings and the
// correction tables, at the borders of every row.
#include "CoordenadasEnvio.h"
#include "ModBase.h"

#include <QtTest>

class TestCoordenadas : public QObject {
    Q_OBJECT

private slots:
    // The label measured against the scale's print.
    void ejemplos_data()
    {
        QTest::addColumn<int>("numero");
        QTest::addColumn<int>("x");
        QTest::addColumn<QByteArray>("tamano");
        QTest::addColumn<int>("y");
        QTest::addColumn<QByteArray>("hor");
        QTest::addColumn<QByteArray>("ver");
        QTest::newRow("descriptive 1")
            << 1 << 20 << QByteArray("0") << 30 << QByteArray("061") << QByteArray("086");
        QTest::newRow("price") << 13 << 22 << QByteArray("0") << 40 << QByteArray("063")
                               << QByteArray("122");
        QTest::newRow("price, double height")
            << 13 << 10 << QByteArray("2") << 12 << QByteArray("002") << QByteArray("022");
        QTest::newRow("expiry at 26, fixed value")
            << 18 << 26 << QByteArray("2") << 5 << QByteArray("082") << QByteArray("000");
        QTest::newRow("descriptive near the edge")
            << 5 << 6 << QByteArray("0") << 8 << QByteArray("000") << QByteArray("007");
        QTest::newRow("lot near the edge")
            << 26 << 6 << QByteArray("0") << 1 << QByteArray("011") << QByteArray("000");
        QTest::newRow("best before, both doubled")
            << 19 << 8 << QByteArray("3") << 57 << QByteArray("014") << QByteArray("184");
        QTest::newRow("at 0, 0") << 12 << 0 << QByteArray("0") << 0 << QByteArray("000")
                                 << QByteArray("000");
        QTest::newRow("a number of four digits stays whole")
            << 2 << 300 << QByteArray("0") << 300 << QByteArray("1069") << QByteArray("1058");
        QTest::newRow("a size that is no digit counts as 0")
            << 13 << 10 << QByteArray("x") << 12 << QByteArray("016") << QByteArray("022");
    }

    void ejemplos()
    {
        QFETCH(int, numero);
        QFETCH(int, x);
        QFETCH(QByteArray, tamano);
        QFETCH(int, y);
        QFETCH(QByteArray, hor);
        QFETCH(QByteArray, ver);
        ModBase mb;
        mb.ModeloNuevo = 1;
        Campo& c = mb.Campos(numero);
        c.PosHor = static_cast<int16_t>(x);
        c.PosVer = static_cast<int16_t>(y);
        c.Tamano = tamano;
        CoordenadasEnvio coordenadas;
        CalculaCoordenadasEnvio(mb, coordenadas);
        QCOMPARE(coordenadas.CoordHor(numero), hor);
        QCOMPARE(coordenadas.CoordVer(numero), ver);
    }

    // Each row of the tables at both its ends, the gaps beside them, and
    // the edge below 7 that only the lot may pass.
    void horizontal_data()
    {
        QTest::addColumn<int>("numero");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("tamano");
        QTest::addColumn<int>("h");
        QTest::newRow("numeric s0 x 5") << 13 << 5 << 0 << 0;
        QTest::newRow("numeric s0 x 6") << 13 << 6 << 0 << 0;
        QTest::newRow("numeric s0 x 7") << 13 << 7 << 0 << 5;
        QTest::newRow("numeric s0 x 15") << 13 << 15 << 0 << 34;
        QTest::newRow("numeric s0 x 16") << 13 << 16 << 0 << 40;
        QTest::newRow("numeric s0 x 20") << 13 << 20 << 0 << 54;
        QTest::newRow("numeric s0 x 21") << 13 << 21 << 0 << 60;
        QTest::newRow("numeric s0 x 24") << 13 << 24 << 0 << 70;
        QTest::newRow("numeric s0 x 25") << 13 << 25 << 0 << 76;
        QTest::newRow("numeric s0 x 29") << 13 << 29 << 0 << 90;
        QTest::newRow("numeric s0 x 30") << 13 << 30 << 0 << 96;
        QTest::newRow("numeric s0 x 35") << 13 << 35 << 0 << 114;
        QTest::newRow("numeric s0 x 36") << 13 << 36 << 0 << 119;
        QTest::newRow("numeric s0 x 38") << 13 << 38 << 0 << 126;
        QTest::newRow("numeric s0 x 39") << 13 << 39 << 0 << 130;
        QTest::newRow("numeric s0 x 40") << 13 << 40 << 0 << 135;
        QTest::newRow("numeric s0 x 41") << 13 << 41 << 0 << 139;
        QTest::newRow("numeric s0 x 42") << 13 << 42 << 0 << 143;
        QTest::newRow("numeric s0 x 43") << 13 << 43 << 0 << 144;
        QTest::newRow("numeric s0 x 57") << 13 << 57 << 0 << 194;
        QTest::newRow("numeric s2 x 8") << 11 << 8 << 2 << 0;
        QTest::newRow("numeric s2 x 9") << 11 << 9 << 2 << 0;
        QTest::newRow("numeric s2 x 11") << 11 << 11 << 2 << 6;
        QTest::newRow("numeric s2 x 12") << 11 << 12 << 2 << 10;
        QTest::newRow("numeric s2 x 20") << 11 << 20 << 2 << 39;
        QTest::newRow("numeric s2 x 21") << 11 << 21 << 2 << 60;
        QTest::newRow("numeric s2 x 24") << 11 << 24 << 2 << 70;
        QTest::newRow("numeric s2 x 25") << 11 << 25 << 2 << 76;
        QTest::newRow("numeric s2 x 29") << 11 << 29 << 2 << 90;
        QTest::newRow("numeric s2 x 30") << 11 << 30 << 2 << 96;
        QTest::newRow("numeric s2 x 35") << 11 << 35 << 2 << 114;
        QTest::newRow("numeric s2 x 36") << 11 << 36 << 2 << 119;
        QTest::newRow("numeric s2 x 39") << 11 << 39 << 2 << 130;
        QTest::newRow("numeric s2 x 40") << 11 << 40 << 2 << 133;
        QTest::newRow("numeric s3 x 39") << 14 << 39 << 3 << 130;
        QTest::newRow("numeric s3 x 40") << 14 << 40 << 3 << 133;
        QTest::newRow("date s0 x 4") << 17 << 4 << 0 << 0;
        QTest::newRow("date s0 x 5") << 17 << 5 << 0 << 0;
        QTest::newRow("date s0 x 7") << 17 << 7 << 0 << 13;
        QTest::newRow("date s0 x 10") << 17 << 10 << 0 << 24;
        QTest::newRow("date s0 x 11") << 17 << 11 << 0 << 29;
        QTest::newRow("date s0 x 13") << 17 << 13 << 0 << 36;
        QTest::newRow("date s0 x 14") << 17 << 14 << 0 << 41;
        QTest::newRow("date s0 x 19") << 17 << 19 << 0 << 59;
        QTest::newRow("date s0 x 20") << 17 << 20 << 0 << 65;
        QTest::newRow("date s0 x 23") << 17 << 23 << 0 << 76;
        QTest::newRow("date s0 x 24") << 17 << 24 << 0 << 80;
        QTest::newRow("date s0 x 28") << 17 << 28 << 0 << 95;
        QTest::newRow("date s0 x 29") << 17 << 29 << 0 << 100;
        QTest::newRow("date s0 x 31") << 17 << 31 << 0 << 108;
        QTest::newRow("date s0 x 32") << 17 << 32 << 0 << 113;
        QTest::newRow("date s0 x 34") << 17 << 34 << 0 << 120;
        QTest::newRow("date s0 x 35") << 17 << 35 << 0 << 126;
        QTest::newRow("date s0 x 41") << 17 << 41 << 0 << 148;
        QTest::newRow("date s0 x 42") << 17 << 42 << 0 << 140;
        QTest::newRow("date s2 x 7") << 18 << 7 << 2 << 9;
        QTest::newRow("date s2 x 9") << 18 << 9 << 2 << 19;
        QTest::newRow("date s2 x 10") << 18 << 10 << 2 << 25;
        QTest::newRow("date s2 x 18") << 18 << 18 << 2 << 54;
        QTest::newRow("date s2 x 19") << 18 << 19 << 2 << 53;
        QTest::newRow("date s2 x 23") << 18 << 23 << 2 << 68;
        QTest::newRow("date s2 x 24") << 18 << 24 << 2 << 75;
        QTest::newRow("date s2 x 25") << 18 << 25 << 2 << 79;
        QTest::newRow("date s2 x 26") << 18 << 26 << 2 << 82;
        QTest::newRow("date s2 x 27") << 18 << 27 << 2 << 81;
        QTest::newRow("date s2 x 40") << 18 << 40 << 2 << 128;
        QTest::newRow("date s3 x 7") << 19 << 7 << 3 << 9;
        QTest::newRow("date s3 x 9") << 19 << 9 << 3 << 19;
        QTest::newRow("date s3 x 10") << 19 << 10 << 3 << 25;
        QTest::newRow("date s3 x 18") << 19 << 18 << 3 << 54;
        QTest::newRow("date s3 x 19") << 19 << 19 << 3 << 55;
        QTest::newRow("date s3 x 23") << 19 << 23 << 3 << 70;
        QTest::newRow("date s3 x 24") << 19 << 24 << 3 << 75;
        QTest::newRow("date s3 x 25") << 19 << 25 << 3 << 79;
        QTest::newRow("date s3 x 26") << 19 << 26 << 3 << 78;
        QTest::newRow("date s3 x 27") << 19 << 27 << 3 << 82;
        QTest::newRow("date s3 x 40") << 19 << 40 << 3 << 129;
        QTest::newRow("lot x 1") << 26 << 1 << 0 << 0;
        QTest::newRow("lot x 2") << 26 << 2 << 0 << 0;
        QTest::newRow("lot x 3") << 26 << 3 << 0 << 0;
        QTest::newRow("lot x 4") << 26 << 4 << 0 << 3;
        QTest::newRow("lot x 6") << 26 << 6 << 0 << 11;
        QTest::newRow("lot x 7") << 26 << 7 << 0 << 14;
        QTest::newRow("descriptive x 1") << 1 << 1 << 2 << 0;
        QTest::newRow("descriptive x 6") << 1 << 6 << 2 << 0;
        QTest::newRow("descriptive x 7") << 1 << 7 << 2 << 14;
        QTest::newRow("descriptive x 30") << 1 << 30 << 2 << 97;
    }

    void horizontal()
    {
        QFETCH(int, numero);
        QFETCH(int, x);
        QFETCH(int, tamano);
        QFETCH(int, h);
        QCOMPARE(coordenadaHorEnvio(numero, x, tamano), h);
    }

    void vertical_data()
    {
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("v");
        QTest::newRow("y -3") << -3 << 0;
        QTest::newRow("y 0") << 0 << 0;
        QTest::newRow("y 1") << 1 << 0;
        QTest::newRow("y 5") << 5 << 0;
        QTest::newRow("y 6") << 6 << 0;
        QTest::newRow("y 7") << 7 << 4;
        QTest::newRow("y 8") << 8 << 7;
        QTest::newRow("y 9") << 9 << 11;
        QTest::newRow("y 57") << 57 << 184;
        QTest::newRow("y 60") << 60 << 194;
    }

    void vertical()
    {
        QFETCH(int, y);
        QFETCH(int, v);
        QCOMPARE(coordenadaVerEnvio(y), v);
    }

    // The old model works out its 25 fields and leaves the places beyond.
    void modeloViejo()
    {
        ModBase mb;
        mb.ModeloNuevo = 0;
        for (int n = 1; n <= 36; ++n) {
            mb.Campos(n).PosHor = 20;
            mb.Campos(n).PosVer = 30;
        }
        CoordenadasEnvio c;
        c.CoordHor(26) = "keep";
        CalculaCoordenadasEnvio(mb, c);
        QCOMPARE(c.CoordHor(25), QByteArray("061"));
        QCOMPARE(c.CoordHor(26), QByteArray("keep"));
        QCOMPARE(c.CoordVer(36), QByteArray());
        QCOMPARE(c.CoordHor(0), QByteArray());
    }
};

QTEST_GUILESS_MAIN(TestCoordenadas)
#include "tst_coordenadas.moc"
