#include "CatalogoCampos.h"
#include "CodePage.h"
#include "FileSystem.h"
#include "ModBase.h"
#include "RuntimeErrors.h"
#include "TextLines.h"

#include <QTemporaryDir>
#include <QtTest>

#include <functional>

using Operacion = std::function<void()>;

class TestCore : public QObject {
    Q_OBJECT

private slots:
    // A field's number, its one-character code and, for a free text, its
    // number: the lot stands at 26 between the two groups of free texts.
    void codigos_data()
    {
        QTest::addColumn<int>("numero");
        QTest::addColumn<QByteArray>("codigo");
        QTest::addColumn<int>("textoLibre");
        QTest::newRow("free text 5") << 25 << QByteArray("Y") << 5;
        QTest::newRow("lot, last letter") << 26 << QByteArray("Z") << 0;
        QTest::newRow("free text 6, first digit") << 27 << QByteArray("0") << 6;
        QTest::newRow("last") << 36 << QByteArray("9") << 15;
    }

    void codigos()
    {
        QFETCH(int, numero);
        QFETCH(QByteArray, codigo);
        QFETCH(int, textoLibre);
        ModBase mb;
        QCOMPARE(mb.Campos(numero).Codigo, codigo);
        QCOMPARE(numeroCampo(codigo.at(0)), numero);
        QCOMPARE(textoLibreDeCampo(numero), textoLibre);
        if (textoLibre)
            QCOMPARE(campoDeTextoLibre(textoLibre), numero);
    }

    // A fresh label: V 1 at 45 mm, no name, free texts or fields; the fixed
    // texts belong to the shop and stay.
    void inicializarEtiqueta()
    {
        ModBase mb;
        mb.TipoEtiqueta = "T";
        mb.NumEtiqueta = "4";
        mb.AnchoEtiqueta = "60";
        mb.NombreEtiqueta = "QUESO";
        mb.TextoFijo(1) = "FIXED";
        mb.TextoLibre(14) = "TEXT";
        mb.Campos(11).Presente = "1";
        InicializarEtiqueta(mb);
        QCOMPARE(mb.TipoEtiqueta + mb.NumEtiqueta + mb.AnchoEtiqueta + mb.NombreEtiqueta,
                 QByteArray("V145"));
        QCOMPARE(mb.TextoFijo(1) + mb.TextoLibre(14), QByteArray("FIXED"));
        QCOMPARE(mb.Campos(11).Presente + mb.Campos(11).Codigo, QByteArray("0K"));
    }

    void paginasDeCodigos_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("Greek") << 7 << QStringLiteral("ΦΩΣ άλφα")
                               << QByteArray("\xd6\xd9\xd3 \xdc\xeb\xf6\xe1");
        QTest::newRow("Polish") << 8 << QStringLiteral("Łódź ąę")
                                << QByteArray("\xa3\xf3\x64\x9f \xb9\xea");
        QTest::newRow("Western lacks Ω") << 2 << QStringLiteral("Ω") << QByteArray("?");
    }

    // Label data goes through text for a person unharmed: each of the 256
    // bytes of each page, the holes of the page (0x81 western, 0xFF Greek,
    // 0x83 Polish) included, decodes to one character of its own and comes
    // back as the byte it was.
    void paginasDeCodigos()
    {
        QFETCH(int, idioma);
        QFETCH(QString, texto);
        QFETCH(QByteArray, bytes);
        const CodePage& cp = CodePage::forLanguage(static_cast<int16_t>(idioma));
        QCOMPARE(encodeFor(static_cast<int16_t>(idioma), texto), bytes);
        if (!bytes.contains('?'))
            QCOMPARE(decodeFor(static_cast<int16_t>(idioma), bytes), texto);
        for (int b = 0; b < 256; ++b) {
            const QByteArray one(1, static_cast<char>(b));
            const QString s = cp.decode(one);
            QCOMPARE(s.size(), 1);
            QCOMPARE(cp.encode(s), one);
        }
    }

    void lineas_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QList<QByteArray>>("lines");
        QTest::newRow("CRLF, empty lines kept")
            << QByteArray("a\r\n\r\nb\r\n") << QList<QByteArray>{"a", "", "b"};
        QTest::newRow("lone CR and LF, no end on the last")
            << QByteArray("a\rb\nc") << QList<QByteArray>{"a", "b", "c"};
        QTest::newRow("empty file") << QByteArray() << QList<QByteArray>{};
    }

    void lineas()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QList<QByteArray>, lines);
        QCOMPARE(splitLines(bytes), lines);
        QCOMPARE(splitLines(joinLines(lines)), lines);
        // Read a byte at a time, as a file read in pieces may end a piece
        // between a carriage return and its line feed.
        DivisorLineas divisor;
        for (const char c : bytes)
            divisor.alimentar(QByteArrayView(&c, 1));
        divisor.terminar();
        QCOMPARE(std::move(divisor).lineas(), lines);
    }

    // The file operations fail the way the classic runtime reports them.
    void archivos_data()
    {
        QTest::addColumn<Operacion>("operacion");
        QTest::addColumn<int>("error");
        QTest::newRow("delete a missing file") << Operacion([] { fs::deleteFile("x"); }) << 53;
        QTest::newRow("move onto a file") << Operacion([] { fs::moveFile("a", "b"); }) << 58;
        QTest::newRow("write into a missing folder")
            << Operacion([] { fs::writeAll("no/x", "x"); }) << 75;
    }

    void archivos()
    {
        QFETCH(Operacion, operacion);
        QTemporaryDir tmp;
        QDir::setCurrent(tmp.path());
        fs::writeAll("a", "a");
        fs::writeAll("b", "b");
        QTEST(errorNumber(operacion), "error");
    }
};

QTEST_GUILESS_MAIN(TestCore)
#include "tst_core.moc"
