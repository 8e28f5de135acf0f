#include "LabelEnv.h"
#include "RuntimeErrors.h"
#include "TextLines.h"
#include "TextosLibres.h"

#include <QtTest>

class TestFreeTexts : public QObject {
    Q_OBJECT

private slots:
    void guardado_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<int>("filas");
        QTest::addColumn<QByteArray>("ultima");
        QTest::newRow("new") << 1 << 15 << QByteArray("9:14" + QByteArray(25, 'Z'));
        QTest::newRow("old") << 0 << 5 << QByteArray("9:4EE");
    }

    // A save writes freetxl.sft beside the program, and the next new label
    // takes its texts back whole.
    void guardado()
    {
        QFETCH(int, modelo);
        QFETCH(int, filas);
        QFETCH(QByteArray, ultima);
        LabelEnv e(modelo);
        e.mb.ArchivoActual = e.dir.file("set.pse");
        e.mb.NumEtiqueta = modelo ? "3" : "1";
        for (int i = 0; i < 15; ++i)
            e.mb.TextoLibre(i) = QByteArray(2, 'A' + i);
        e.mb.TextoLibre(14) = QByteArray(25, 'Z');
        e.mb.TextoLibre(1) = "\xe1\xe9\xed\xf3\xfa";
        e.files.GuardarEtiquetaConjunto();
        const QList<QByteArray> rows = splitLines(e.dir.read("freetxl.sft"));
        QCOMPARE(rows.size(), filas);
        QCOMPARE(rows.last(), ultima);

        const ModBase antes = e.mb;
        e.mb.CargaTXL = 1;
        AceptarCargaTXL(e.mb);
        for (int i = 0; i < 15; ++i)
            QCOMPARE(e.mb.TextoLibre(i), i < filas ? antes.TextoLibre(i) : QByteArray());
    }

    void cargaTXL_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<int>("cargaTXL");
        QTest::addColumn<QByteArray>("archivo");
        QTest::addColumn<QByteArrayList>("textos");
        const auto fila = [](const char* nombre, int modelo, int carga, const char* archivo,
                             QByteArrayList textos) {
            QTest::newRow(nombre) << modelo << carga << QByteArray(archivo) << textos;
        };
        fila("box off: nothing read", 1, 0, "9:00UNO\r\n", {});
        fila("new file in the new model", 1, 1, "9:00UNO\r\n9:01DOS\r\n", {"UNO", "DOS"});
        // Another model's file shifts the texts by the prefix's width.
        fila("old file in the new model", 1, 1, "9:0UNO\r\n", {"NO"});
        fila("new file in the old model", 0, 1, "9:00UNO\r\n", {"0UNO"});
        fila("a short row", 1, 1, "9:0\r\n9:01X\r\n", {"", "X"});
    }

    // The OK of the free text load dialog makes a fresh label.
    void cargaTXL()
    {
        QFETCH(int, modelo);
        QFETCH(int, cargaTXL);
        QFETCH(QByteArray, archivo);
        QFETCH(QByteArrayList, textos);
        LabelEnv e(modelo);
        e.dir.write("freetxl.sft", archivo);
        ModBase& mb = e.mb;
        mb.CargaTXL = static_cast<int16_t>(cargaTXL);
        mb.TextoLibre.fill("OLD");
        mb.Modificado = mb.ArchivoConocido = true;
        mb.NumEtiqueta = "5";
        mb.AnchoEtiqueta = "60";
        mb.TipoEtiqueta = "T";
        AceptarCargaTXL(mb);
        for (int i = 0; i < 15; ++i)
            QCOMPARE(mb.TextoLibre(i), textos.value(i));
        QVERIFY(!mb.Modificado && !mb.ArchivoConocido);
        // A fresh label of the model, but the kind is not the dialog's.
        const QByteArrayList cabecera{mb.NumEtiqueta, mb.AnchoEtiqueta, mb.TipoEtiqueta};
        QCOMPARE(cabecera, (QByteArrayList{modelo ? "3" : "1", "45", "T"}));
    }

    void dieciseisFilas()
    {
        LabelEnv e(1);
        e.dir.write("freetxl.sft", QByteArray("9:00X\r\n").repeated(16));
        QCOMPARE(errorNumber([&] { AceptarCargaTXL(e.mb); }), 9);
    }
};

QTEST_GUILESS_MAIN(TestFreeTexts)
#include "tst_freetexts.moc"
