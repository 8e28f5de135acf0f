#include "Catalogo.h"
#include "CatalogoCampos.h"
#include "CodePage.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "RuntimeErrors.h"
#include "UserInteraction.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QtTest>

namespace {

CatalogueRow fila(int id, const QString& prefix)
{
    CatalogueRow r;
    r.id = id;
    for (int c = 1; c <= 8; ++c)
        r.texts.append(QStringLiteral("%1-%2").arg(prefix).arg(c));
    return r;
}

// Every id the program's code names: Textos(n) and T(n) in the sources, and
// the ids of the field catalogue's tables.
QSet<int> idsInCode()
{
    QSet<int> ids;
    const QRegularExpression use(QStringLiteral("\\b(?:Textos|T)\\((\\d+)\\)"));
    // Data tables name their ids as the third member: {2, "Peso", 130, 11}.
    const QRegularExpression tableEntry(QStringLiteral("\\{\\d+, \"[^\"]*\", (\\d+), \\d+\\}"));
    // Menu entries name theirs after the object name.
    const QRegularExpression menuEntry(
        QStringLiteral("(?:entrada|menu)\\([^;]*?\"mnu\\w+\", (\\d+)"));
    for (const char* folder : {"core", "label", "editor", "transfer", "preview", "ui", "cli"}) {
        QDirIterator it(QStringLiteral(KORVO_SOURCE_DIR "/") + QLatin1String(folder),
                        {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile f(it.next());
            f.open(QIODevice::ReadOnly);
            const QString text = QString::fromUtf8(f.readAll());
            for (const auto& re : {use, tableEntry, menuEntry}) {
                auto m = re.globalMatch(text);
                while (m.hasNext())
                    ids.insert(m.next().captured(1).toInt());
            }
        }
    }
    return ids;
}

} // namespace

class TestCatalogo : public QObject {
    Q_OBJECT

private slots:
    void cargaPorIdioma()
    {
        ProgramDir dir;
        dir.writeCatalogue({fila(5, "cinco"), fila(2, "dos")});
        ModBase mb;
        dir.attach(mb);
        QCOMPARE(CargarTextos(mb, 3), int16_t(0));
        QCOMPARE(mb.Textos(2), QStringLiteral("dos-3"));
        QCOMPARE(mb.Textos(5), QStringLiteral("cinco-3"));
        // Ids the table lacks below the highest are empty; above it, an error.
        QCOMPARE(mb.Textos(3), QString());
        QCOMPARE(errorNumber([&] { mb.Textos(6); }), 9);

        // A change of language repaints the window in the new language before
        // Idioma is set.
        mb.Idioma = 3;
        struct : WindowRefresh {
            const ModBase* mb;
            QStringList seen; // the texts the window showed at each repaint
            void refresh() override { seen.append(mb->Textos(2)); }
        } window;
        window.mb = &mb;
        CambiarIdioma(mb, 4, window);
        QCOMPARE(window.seen, QStringList{"dos-4"});
        QCOMPARE(mb.Idioma, int16_t(4));

        // Without the database the texts stay, and the language changes anyway.
        QFile::remove(dir.file("lang/lang.db"));
        QCOMPARE(CargarTextos(mb, 2), int16_t(-1));
        CambiarIdioma(mb, 6, window);
        QCOMPARE(window.seen, (QStringList{"dos-4", "dos-4"}));
        QCOMPARE(mb.Idioma, int16_t(6));
    }

    void fallosQueTerminanElPrograma_data()
    {
        QTest::addColumn<QList<CatalogueRow>>("filas");
        QTest::addColumn<QByteArray>("otroArchivo"); // written over the catalogue unless null
        QTest::addColumn<int>("idioma");
        QTest::addColumn<int>("error");
        CatalogueRow vacia = fila(2, "dos");
        vacia.texts[0] = QString(); // stored as NULL
        const QList<CatalogueRow> buenas{fila(2, "dos")};
        QTest::newRow("language 9 has no column") << buenas << QByteArray() << 9 << 3061;
        QTest::newRow("an empty text") << QList<CatalogueRow>{vacia} << QByteArray() << 1 << 94;
        QTest::newRow("not a database") << buenas << QByteArray(4096, 'x') << 1 << 3000;
        QTest::newRow("an absurd highest id")
            << QList<CatalogueRow>{fila(2, "dos"), fila(2000000000, "muchos")} << QByteArray() << 1
            << 7;
    }

    void fallosQueTerminanElPrograma()
    {
        QFETCH(QList<CatalogueRow>, filas);
        QFETCH(QByteArray, otroArchivo);
        QFETCH(int, idioma);
        ProgramDir dir;
        dir.writeCatalogue(filas);
        if (!otroArchivo.isNull())
            dir.write("lang/lang.db", otroArchivo);
        ModBase mb;
        dir.attach(mb);
        QTEST(errorNumber([&] { CargarTextos(mb, static_cast<int16_t>(idioma)); }), "error");
    }

    // The source of the catalogue: escapes decoded, and a line the build
    // must refuse named with its fault.
    void fuente()
    {
        const QByteArray header = "id\ttext1\ttext2\ttext3\ttext4\ttext5\ttext6\ttext7\ttext8\n";
        const CatalogueSource bien =
            parseCatalogueSource(header + "1\ta\\nb\\\\\tb\tc\td\te\tf\tg\th\n");
        QCOMPARE(bien.rows.size(), 1);
        QCOMPARE(bien.rows.at(0).texts.at(0), QStringLiteral("a\nb\\"));
        QCOMPARE(parseCatalogueSource(header + "1\ta\tb\tc\td\te\tf\tg\n").problems,
                 QStringList{"line 2: 8 columns instead of 9"});
    }

    // The program's own catalogue: every id the code names has a text in
    // every language, and every text has codes in its language's code page,
    // since some go into cfg.ini and label files.
    void catalogoDelPrograma()
    {
        QFile f(QStringLiteral(KORVO_SOURCE_DIR "/lang/texts.tsv"));
        f.open(QIODevice::ReadOnly);
        const CatalogueSource source = parseCatalogueSource(f.readAll()); // the build checked it
        QSet<int> ids;
        for (const CatalogueRow& r : source.rows)
            ids.insert(r.id);
        const QSet<int> used = idsInCode();
        QVERIFY2(used.size() > 40, "the scan of the sources found too few ids");
        for (int id : used)
            QVERIFY2(ids.contains(id), qPrintable(QStringLiteral("id %1 is missing").arg(id)));
        for (const CatalogueRow& r : source.rows)
            for (int lang = 1; lang <= 8; ++lang)
                QVERIFY2(CodePage::forLanguage(lang).canEncode(r.texts.at(lang - 1)),
                         qPrintable(QStringLiteral("id %1, language %2").arg(r.id).arg(lang)));
    }
};

QTEST_GUILESS_MAIN(TestCatalogo)
#include "tst_catalogo.moc"
