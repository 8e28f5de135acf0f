#include "EtiquetasPrueba.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "VistaPrevia.h"

#include <QtTest>

// The sizing table of the preview, row by row, for an item at 10, 20; the
// weight is stored at 7, 21 and has its companion line.
struct CasoTamano {
    int campo, tamano;
    const char* tipo;
    int largo; // of the free text, where there is one
    double left, top, width, height;
    const char* origen = "";
    double aprox = 0; // top of the weight's companion line; 0: not shown
};
Q_DECLARE_METATYPE(CasoTamano)

class TestTamanoCampo : public QObject {
    Q_OBJECT

    ProgramDir m_dir;

private slots:
    void initTestCase() { copiaImagenesStock(m_dir); }

    void tabla_data()
    {
        QTest::addColumn<CasoTamano>("c");
        const auto row = [](const char* name, CasoTamano c) { QTest::newRow(name) << c; };
        // Descriptive lines: codes above 1 take the double-width picture.
        row("desc 2", {10, 2, "V", 0, 10, 19.0, 47, 4.5, "12A.wmf"});
        row("desc 7 is 0 but double picture", {2, 7, "V", 0, 10, 18.8, 45, 4.5, "12A.wmf"});
        // Weight, price / operations and amount / total.
        // The companion line goes by the weight's stored place, never the tare's.
        row("peso 1", {11, 1, "V", 0, 9.9, 19.0, 11, 6.5, "", 23.5});
        row("peso 2", {11, 2, "V", 0, 10.5, 19.5, 23, 4, "", 25.5});
        row("tara 3", {12, 3, "V", 0, 10.2, 19.0, 23, 6.5});
        row("oper T 3", {13, 3, "T", 0, 10, 18.8, 31, 6.5, "OPER.wmf"});
        row("total T 1 keeps its picture", {14, 1, "T", 0, 10, 18.8, 14, 6.5});
        // The bar code has one size whatever its code.
        row("barras 3 ignores the code", {16, 3, "V", 0, 10, 20, 26, 10});
        // Free texts: 1.8 mm a letter, at double width at most twelve letters.
        row("txl 25", {22, 0, "V", 25, 10, 19.2, 45, 4.5, "25A.wmf"});
        row("txl 13 double", {36, 2, "V", 13, 10, 19.2, 47, 4.5, "12A.wmf"});
        row("txl 3 both", {24, 3, "V", 3, 10, 19.2, 11.75, 6, "3A.wmf"});
        row("txl 5 code 8 as 0", {23, 8, "V", 5, 10, 19.2, 9, 4.5, "5A.wmf"});
    }

    void tabla()
    {
        QFETCH(CasoTamano, c);
        ModBase mb;
        m_dir.attach(mb);
        InicializarEtiqueta(mb);
        mb.ModeloNuevo = 1;
        mb.TipoEtiqueta = c.tipo;
        mb.PesoAproximado = true;
        pon(mb, 11, 7, 21);
        if (const int n = c.campo >= 21 && c.campo != 26 ? c.campo - (c.campo <= 25 ? 20 : 21) : 0)
            mb.TextoLibre(n - 1) = QByteArray(c.largo, 'X');

        EscenaVista e;
        ItemVista& it = e.ImagenVista(c.campo);
        it.Left = 10;
        it.Top = 20;
        TamanoCampo(e, mb, static_cast<int16_t>(c.campo), static_cast<int16_t>(c.tamano));
        const double real[] = {it.Left, it.Top, it.Width, it.Height};
        const double esperado[] = {c.left, c.top, c.width, c.height};
        for (int i = 0; i < 4; ++i)
            QVERIFY2(qAbs(real[i] - esperado[i]) < 1e-5, qPrintable(QString::number(real[i])));
        QCOMPARE(it.origen, QString::fromLatin1(c.origen));
        QVERIFY(it.imagen || it.origen.isEmpty());
        // Sizing never shows or hides the item itself.
        QVERIFY(!it.Visible);
        const ItemVista& aprox = e.ImagenVista(0);
        QCOMPARE(aprox.Visible, c.aprox > 0);
        if (aprox.Visible)
            QCOMPARE(QRectF(aprox.Left, aprox.Top, aprox.Width, aprox.Height),
                     QRectF(7, c.aprox, 27, 4));
    }
};

QTEST_GUILESS_MAIN(TestTamanoCampo)
#include "tst_tamanocampo.moc"
