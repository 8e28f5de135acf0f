// The coordinates the scale receives: the chain of roundings and the
// correction tables, at the borders of every row.
#include "CoordenadasEnvio.h"
#include "ModBase.h"

#include <QtTest>

using Puntos = QList<std::pair<int, int>>; // a place on the label, what the scale gets

// A field as placed, and both its coordinates as they go in its frame.
struct Colocado {
    int modelo;
    int numero;
    int x;
    int y;
    QByteArray tamano;
    QByteArray enviado;
};

Q_DECLARE_METATYPE(Colocado)

class TestCoordenadas : public QObject {
    Q_OBJECT

private slots:
    // The texts of a field's frame: three digits at least, the size read as
    // a number. The old model works out its 25 fields and leaves the places beyond.
    void textos_data()
    {
        QTest::addColumn<Colocado>("campo");
        QTest::newRow("price, double height") << Colocado{1, 13, 10, 12, "2", "002022"};
        QTest::newRow("a size that is no digit counts as 0")
            << Colocado{1, 13, 10, 12, "x", "016022"};
        QTest::newRow("a number of four digits stays whole")
            << Colocado{1, 2, 300, 300, "0", "10691058"};
        QTest::newRow("old model, field 25") << Colocado{0, 25, 20, 30, "0", "061086"};
        QTest::newRow("old model, field 26") << Colocado{0, 26, 20, 30, "0", "keptkept"};
    }

    void textos()
    {
        QFETCH(Colocado, campo);
        ModBase mb;
        mb.ModeloNuevo = static_cast<int16_t>(campo.modelo);
        Campo& c = mb.Campos(campo.numero);
        c.PosHor = static_cast<int16_t>(campo.x);
        c.PosVer = static_cast<int16_t>(campo.y);
        c.Tamano = campo.tamano;
        CoordenadasEnvio coordenadas;
        coordenadas.CoordHor(campo.numero) = coordenadas.CoordVer(campo.numero) = "kept";
        CalculaCoordenadasEnvio(mb, coordenadas);
        QCOMPARE(coordenadas.CoordHor(campo.numero) + coordenadas.CoordVer(campo.numero),
                 campo.enviado);
    }

    // Each row of the tables at both its ends, the gaps beside them, and
    // the edge below 7 that only the lot may pass.
    void horizontal_data()
    {
        QTest::addColumn<int>("numero");
        QTest::addColumn<int>("tamano");
        QTest::addColumn<Puntos>("puntos");
        QTest::newRow("number") << 13 << 0
                                << Puntos{{6, 0},    {7, 5},    {15, 34},  {16, 40},  {20, 54},
                                          {21, 60},  {24, 70},  {25, 76},  {29, 90},  {30, 96},
                                          {35, 114}, {36, 119}, {38, 126}, {39, 130}, {40, 135},
                                          {41, 139}, {42, 143}, {43, 144}};
        // The rows from 21 on are the same for every size.
        QTest::newRow("number, double height")
            << 11 << 2
            << Puntos{{8, 0}, {9, 0}, {11, 6}, {12, 10}, {20, 39}, {21, 60}, {39, 130}, {40, 133}};
        QTest::newRow("last number, both doubled") << 14 << 3 << Puntos{{40, 133}};
        QTest::newRow("date") << 17 << 0
                              << Puntos{{5, 0},    {7, 13},   {10, 24},  {11, 29},  {13, 36},
                                        {14, 41},  {19, 59},  {20, 65},  {23, 76},  {24, 80},
                                        {28, 95},  {29, 100}, {31, 108}, {32, 113}, {34, 120},
                                        {35, 126}, {41, 148}, {42, 140}};
        QTest::newRow("date, double height")
            << 18 << 2 << Puntos{{7, 9},   {9, 19},  {10, 25}, {18, 54}, {19, 53}, {23, 68},
                                 {24, 75}, {25, 79}, {26, 82}, {27, 81}, {40, 128}};
        QTest::newRow("date, both doubled")
            << 19 << 3 << Puntos{{19, 55}, {23, 70}, {26, 78}, {27, 82}, {40, 129}};
        QTest::newRow("lot") << 26 << 0 << Puntos{{3, 0}, {4, 3}, {6, 11}};
        QTest::newRow("descriptive") << 1 << 2 << Puntos{{6, 0}, {7, 14}, {30, 97}};
    }

    void horizontal()
    {
        QFETCH(int, numero);
        QFETCH(int, tamano);
        QFETCH(Puntos, puntos);
        Puntos enviados;
        for (const auto& [x, h] : puntos)
            enviados.append({x, coordenadaHorEnvio(numero, x, tamano)});
        QCOMPARE(enviados, puntos);
    }

    void vertical()
    {
        for (const auto& [y, v] :
             Puntos{{0, 0}, {1, 0}, {6, 0}, {7, 4}, {8, 7}, {9, 11}, {57, 184}})
            QCOMPARE(coordenadaVerEnvio(y), v);
    }
};

QTEST_GUILESS_MAIN(TestCoordenadas)
#include "tst_coordenadas.moc"
