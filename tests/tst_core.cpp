#include "CatalogoCampos.h"
#include "CodePage.h"
#include "ModBase.h"
#include "RuntimeErrors.h"
#include "FileSystem.h"
#include "TextLines.h"

#include <QTemporaryDir>

#include <QtTest>


class TestCore : public QObject {
    Q_OBJECT

private slots:
    void codigos_data()
    {
        QTest::addColumn<int>("numero");
        QTest::addColumn<QByteArray>("codigo");
        QTest::newRow("first") << 1 << QByteArray("A");
        QTest::newRow("weight") << 11 << QByteArray("K");
        QTest::newRow("lot, last letter") << 26 << QByteArray("Z");
        QTest::newRow("free text 6, first digit") << 27 << QByteArray("0");
        QTest::newRow("last") << 36 << QByteArray("9");
    }

    void codigos()
    {
        QFETCH(int, numero);
        QFETCH(QByteArray, codigo);
        ModBase mb;
        QCOMPARE(mb.Campos(numero).Codigo, codigo);
        QCOMPARE(numeroCampo(codigo.at(0)), numero);
    }

    void fueraDeRango_data()
    {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("que");
        QTest::newRow("field 0") << 0 << "campo";
        QTest::newRow("field 37") << 37 << "campo";
        QTest::newRow("free text 15") << 15 << "textoLibre";
        QTest::newRow("free text -1") << -1 << "textoLibre";
        QTest::newRow("fixed text 2") << 2 << "textoFijo";
        QTest::newRow("pending descriptive 0") << 0 << "des";
        QTest::newRow("pending descriptive 11") << 11 << "des";
        QTest::newRow("catalogue box 37") << 37 << "catalogo";
        QTest::newRow("free text number 16") << 16 << "campoDeTexto";
    }

    void fueraDeRango()
    {
        QFETCH(int, indice);
        QFETCH(QString, que);
        ModBase mb;
        const int n = errorNumber([&] {
            if (que == "campo")
                InicializarCampo(mb, indice);
            else if (que == "textoLibre")
                mb.TextoLibre(indice) = "x";
            else if (que == "textoFijo")
                mb.TextoFijo(indice) = "x";
            else if (que == "des")
                mb.DESPendiente(indice) = true;
            else if (que == "catalogo")
                campoCatalogo(indice);
            else
                campoDeTextoLibre(indice);
        });
        QCOMPARE(n, 9);
        QCOMPARE(RuntimeError::subscriptOutOfRange().text(),
                 QStringLiteral("Run-time error '9': Subscript out of range"));
    }

    void inicializarEtiqueta()
    {
        ModBase mb;
        mb.TipoEtiqueta = "T";
        mb.NumEtiqueta = "4";
        mb.AnchoEtiqueta = "60";
        mb.NombreEtiqueta = "QUESO";
        mb.TextoFijo(1) = "FIXED";
        for (int i = 0; i <= 14; ++i)
            mb.TextoLibre(i) = "TEXT";
        Campo& peso = mb.Campos(11);
        peso.Presente = "1";
        peso.PosHor = 11;
        peso.TextoHor = "39.6";
        peso.Tamano = "3";
        peso.Seleccionado = true;

        InicializarEtiqueta(mb);

        QCOMPARE(mb.TipoEtiqueta, QByteArray("V"));
        QCOMPARE(mb.NumEtiqueta, QByteArray("1"));
        QCOMPARE(mb.AnchoEtiqueta, QByteArray("45"));
        QCOMPARE(mb.NombreEtiqueta, QByteArray());
        QCOMPARE(mb.TextoFijo(1), QByteArray("FIXED"));
        for (int i = 0; i <= 14; ++i)
            QCOMPARE(mb.TextoLibre(i), QByteArray());
        Campo fresh;
        fresh.Codigo = "K";
        QCOMPARE(mb.Campos(11), fresh);
    }

    void textoLibreYCampo()
    {
        // The lot stands at 26 between the two groups of free texts.
        QCOMPARE(campoDeTextoLibre(5), 25);
        QCOMPARE(campoDeTextoLibre(6), 27);
        QCOMPARE(campoDeTextoLibre(15), 36);
        for (int n = 1; n <= 15; ++n)
            QCOMPARE(textoLibreDeCampo(campoDeTextoLibre(n)), n);
        QCOMPARE(textoLibreDeCampo(26), 0);
        QCOMPARE(textoLibreDeCampo(20), 0);
        for (int n = 1; n <= 36; ++n)
            QCOMPARE(campoCatalogo(n).numero, n);
    }

    void paginasDeCodigos_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("Spanish") << 1 << QStringLiteral("Año €") << QByteArray("A\xf1o \x80");
        QTest::newRow("Greek") << 7 << QStringLiteral("ΦΩΣ άλφα") << QByteArray("\xd6\xd9\xd3 \xdc\xeb\xf6\xe1");
        QTest::newRow("Polish") << 8 << QStringLiteral("Łódź ąę") << QByteArray("\xa3\xf3\x64\x9f \xb9\xea");
        QTest::newRow("Greek lacks ñ") << 7 << QStringLiteral("ñ") << QByteArray("?");
        QTest::newRow("Western lacks Ω") << 2 << QStringLiteral("Ω") << QByteArray("?");
        QTest::newRow("language 0 is Western") << 0 << QStringLiteral("é") << QByteArray("\xe9");
    }

    void paginasDeCodigos()
    {
        QFETCH(int, idioma);
        QFETCH(QString, texto);
        QFETCH(QByteArray, bytes);
        QCOMPARE(encodeFor(static_cast<int16_t>(idioma), texto), bytes);
        if (!bytes.contains('?'))
            QCOMPARE(decodeFor(static_cast<int16_t>(idioma), bytes), texto);
    }

    // Label data goes through a language change unharmed: every byte decodes
    // to something and the defined ones come back as they were.
    void todosLosBytes()
    {
        for (int idioma : {1, 7, 8}) {
            const CodePage& cp = CodePage::forLanguage(static_cast<int16_t>(idioma));
            for (int b = 0; b < 256; ++b) {
                const QByteArray one(1, static_cast<char>(b));
                const QString s = cp.decode(one);
                QCOMPARE(s.size(), 1);
                if (s.at(0) != QChar(0xFFFD))
                    QCOMPARE(cp.encode(s), one);
            }
        }
    }

    void lineas_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QList<QByteArray>>("lines");
        QTest::newRow("CRLF") << QByteArray("a\r\nb\r\n") << QList<QByteArray>{"a", "b"};
        QTest::newRow("no end on the last") << QByteArray("a\r\nb") << QList<QByteArray>{"a", "b"};
        QTest::newRow("empty lines kept") << QByteArray("a\r\n\r\nb\r\n") << QList<QByteArray>{"a", "", "b"};
        QTest::newRow("lone CR and LF") << QByteArray("a\rb\nc") << QList<QByteArray>{"a", "b", "c"};
        QTest::newRow("empty file") << QByteArray() << QList<QByteArray>{};
    }

    void lineas()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QList<QByteArray>, lines);
        QCOMPARE(splitLines(bytes), lines);
        QCOMPARE(splitLines(joinLines(lines)), lines);
    }

    // The file operations fail the way the classic runtime reports them.
    void archivos_data()
    {
        QTest::addColumn<QString>("operacion");
        QTest::addColumn<int>("error");
        QTest::newRow("delete a missing file") << "delete missing" << 53;
        QTest::newRow("move a missing file") << "move missing" << 53;
        QTest::newRow("move onto a file") << "move onto" << 58;
        QTest::newRow("make an existing folder") << "mkdir existing" << 75;
        QTest::newRow("read a missing file") << "read missing" << 53;
        QTest::newRow("write into a missing folder") << "write nowhere" << 75;
        QTest::newRow("move a file") << "move" << 0;
        QTest::newRow("make a folder") << "mkdir" << 0;
    }

    void archivos()
    {
        QFETCH(QString, operacion);
        QFETCH(int, error);
        QTemporaryDir dir;
        const QString a = dir.filePath("a.txt");
        const QString b = dir.filePath("b.txt");
        fs::writeAll(a, "a");
        fs::writeAll(b, "b");
        const int n = errorNumber([&] {
            if (operacion == "delete missing")
                fs::deleteFile(dir.filePath("x"));
            else if (operacion == "move missing")
                fs::moveFile(dir.filePath("x"), dir.filePath("y"));
            else if (operacion == "move onto")
                fs::moveFile(a, b);
            else if (operacion == "mkdir existing")
                fs::makeDir(dir.path());
            else if (operacion == "read missing")
                fs::readAll(dir.filePath("x"));
            else if (operacion == "write nowhere")
                fs::writeAll(dir.filePath("no/such/folder/x"), "x");
            else if (operacion == "move")
                fs::moveFile(a, dir.filePath("c.txt"));
            else
                fs::makeDir(dir.filePath("S"));
        });
        QCOMPARE(n, error);
        if (operacion == "move") {
            QVERIFY(!fs::fileExists(a));
            QCOMPARE(fs::readAll(dir.filePath("c.txt")), QByteArray("a"));
        }
        if (operacion == "mkdir")
            QVERIFY(fs::dirExists(dir.filePath("S")) && !fs::fileExists(dir.filePath("S")));
    }
};

QTEST_GUILESS_MAIN(TestCore)
#include "tst_core.moc"
