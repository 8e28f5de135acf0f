#include "Arranque.h"
#include "ArchivoDanado.h"
#include "Catalogo.h"
#include "Configuracion.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "ScriptedInteraction.h"
#include "frmBase.h"
#include "TextLines.h"
#include "frmSplash.h"

#include <QLabel>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QtTest>

namespace {

QStringList captions(const frmBase& w)
{
    QStringList out;
    for (QAction* top : w.menuBar()->actions()) {
        out.append(top->text());
        if (QMenu* m = top->menu())
            for (QAction* a : m->actions())
                if (!a->isSeparator())
                    out.append(a->text());
    }
    return out;
}

QString avisoFondo(const ModBase& mb)
{
    return "message: " + mb.Textos(1343) + " : " + mb.Textos(222);
}

} // namespace

class TestFrmBase : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_dir.reset(new ProgramDir);
        m_mb.reset(new ModBase);
        m_dir->prepare(*m_mb);
    }

    // Every caption of the menu bar comes from the catalogue, in every language.
    void captionsEnCadaIdioma()
    {
        ScriptedInteraction ui;
        frmBase w(*m_mb, ui);
        QCOMPARE(w.windowTitle(), QStringLiteral("Korvo v1.0"));
        const QStringList spanish = captions(w);
        QCOMPARE(spanish.size(), 24);
        QVERIFY(spanish.contains(m_mb->Textos(1296) + "..."));
        QVERIFY(spanish.contains(QStringLiteral("&Griego")));
        for (int lang = 2; lang <= 8; ++lang) {
            w.menuIdioma(lang)->trigger();
            QCOMPARE(m_mb->Idioma, int16_t(lang));
            QVERIFY(w.menuIdioma(lang)->isChecked());
            QVERIFY(!w.menuIdioma(1)->isChecked());
            const QStringList now = captions(w);
            QCOMPARE(now.size(), spanish.size());
            for (const QString& c : now)
                QVERIFY2(!c.isEmpty() && c != "...", qPrintable(QString::number(lang)));
            QCOMPARE(now.first(), m_mb->Textos(1292));
        }
        // Greek captions in Greek letters.
        w.menuIdioma(7)->trigger();
        QVERIFY(captions(w).first().contains(QRegularExpression("[\\x{0391}-\\x{03C9}]")));
    }

    void cierre_data()
    {
        QTest::addColumn<bool>("modificado");
        QTest::addColumn<QList<Answer>>("respuestas");
        QTest::addColumn<bool>("cerrada");
        QTest::addColumn<bool>("guardado"); // the label has no file yet: Save As asks for one
        QTest::newRow("clean closes") << false << QList<Answer>{} << true << false;
        QTest::newRow("yes saves and closes") << true << QList<Answer>{Answer::Yes} << true << true;
        QTest::newRow("no closes") << true << QList<Answer>{Answer::No} << true << false;
        QTest::newRow("cancel stays") << true << QList<Answer>{Answer::Cancel} << false << false;
    }

    void cierre()
    {
        QFETCH(bool, modificado);
        QFETCH(QList<Answer>, respuestas);
        QFETCH(bool, cerrada);
        QFETCH(bool, guardado);
        ScriptedInteraction ui;
        ui.answers = respuestas;
        frmBase w(*m_mb, ui);
        bool closed = false;
        connect(&w, &frmBase::cerrado, this, [&] { closed = true; });
        w.show();
        m_mb->Modificado = modificado; // the load leaves the label clean
        w.findChild<QAction*>("mnuArchivoSalir")->trigger();
        QCOMPARE(closed, cerrada);
        QCOMPARE(w.isVisible(), !cerrada);
        QCOMPARE(ui.log.contains("save: " + m_mb->Textos(1316) + " (*.ose)|*.ose"), guardado);
        QCOMPARE(ui.answers.size(), 0);
    }

    void splash_data()
    {
        QTest::addColumn<bool>("arranque");
        QTest::addColumn<QString>("cierre"); // what closes it: "timer", "key", "click"
        QTest::newRow("start-up splash closes itself") << true << "timer";
        QTest::newRow("a key closes the start-up splash") << true << "key";
        QTest::newRow("a click closes the about box") << false << "click";
    }

    void splash()
    {
        QFETCH(bool, arranque);
        QFETCH(QString, cierre);
        m_mb->ArranqueInicial = arranque;
        frmSplash w(*m_mb);
        QSignalSpy closed(&w, &QDialog::finished);
        w.open();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(w.findChild<QLabel*>("lblVersion")->text(), QStringLiteral("v 1.0"));
        if (cierre == "key")
            QTest::keyClick(&w, Qt::Key_Space);
        else if (cierre == "click")
            QTest::mouseClick(w.findChild<QLabel*>("lblVersion"), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(closed.size(), 1, 5000);
        // Only the timer marks the start-up splash as gone.
        QCOMPARE(m_mb->ArranqueInicial, arranque && cierre != "timer");
    }

    // The background kept in cfg.ini is loaded and drawn as the window
    // opens. However the picture is made, the program goes on: one it cannot
    // read is reported and forgotten, so the next start does not meet it.
    void fondoAlArrancar_data()
    {
        QTest::addColumn<QString>("archivo"); // in the source tree, or written here
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("legible");
        const QString corpus = QStringLiteral(KORVO_SOURCE_DIR "/fuzz/corpus/");
        // Texts whose glyphs are thousands of pixels wide and a fraction of one high.
        QTest::newRow("emf text squashed by its frame")
            << corpus + "emf/emf-text-crash.emf" << QByteArray() << true;
        QTest::newRow("wmf text of a huge width")
            << corpus + "wmf/wmf-text-crash.wmf" << QByteArray() << true;
        QTest::newRow("bmp cut") << "cut.bmp"
                                 << QByteArray("BM\x36\0\0\0\0\0\0\0\x36\0\0\0\x28\0", 16)
                                 << false;
        QTest::newRow("ico cut") << "cut.ico" << QByteArray("\0\0\1\0\1\0", 6) << false;
        QTest::newRow("jpeg cut") << "cut.jpg" << QByteArray("\xFF\xD8\xFF\xE0\0\x10JFIF", 10)
                                  << false;
        const QString rotos = QStringLiteral(KORVO_SOURCE_DIR "/tests/data/preview/metafiles/damaged/");
        QTest::newRow("wmf cut") << rotos + "cut-header.wmf" << QByteArray() << false;
        QTest::newRow("emf cut") << rotos + "cut.emf" << QByteArray() << false;
        QTest::newRow("binary") << "ruido.bmp" << QByteArray(4096, '\xA5') << false;
    }

    void fondoAlArrancar()
    {
        QFETCH(QString, archivo);
        QFETCH(QByteArray, bytes);
        QFETCH(bool, legible);
        QString ruta = archivo;
        if (QFileInfo(archivo).isRelative()) {
            ruta = m_dir->file(archivo);
            m_dir->write(archivo, bytes);
        }
        m_mb->RutaFondo = ruta;
        m_dir->write("cfg.ini", formaLarga(*m_mb));
        ModBase mb;
        ScriptedInteraction ui;
        QCOMPARE(arrancar(mb, ui), 0);
        QCOMPARE(ui.log.contains(avisoFondo(mb)), !legible);
        const QByteArray linea8 = splitLines(m_dir->read("cfg.ini")).at(7);
        QCOMPARE(linea8.endsWith(ruta.toUtf8()), legible);
    }

    // A damaged cfg.ini: the program starts on what it can read, or on the
    // defaults, and leaves a file the next start reads whole. Only a file
    // without its first line ends it, as a language 0 does, and then it
    // writes nothing.
    void cfgDanado_data()
    {
        QTest::addColumn<QString>("dano");
        QTest::addColumn<int>("salida");
        QTest::addColumn<bool>("avisoFondo");
        QTest::newRow("empty") << "empty" << 1 << false;
        QTest::newRow("binary") << "binary" << 0 << false;
        QTest::newRow("truncated") << "truncated" << 0 << false;
        QTest::newRow("10 MB picture path") << "10 MB" << 0 << true;
        QTest::newRow("UTF-16") << "UTF-16" << 0 << false;
    }

    void cfgDanado()
    {
        QFETCH(QString, dano);
        QFETCH(int, salida);
        m_mb->Idioma = 2;
        const QByteArray sano = formaLarga(*m_mb);
        // The long path reaches the picture loader, which cannot open it.
        const QByteArray contenido =
            dano == "10 MB" ? joinLines(splitLines(sano).mid(0, 7)) + "Fondo = " +
                                  QByteArray(10 * 1024 * 1024, 'x') + "\r\n"
                            : archivoDanado(sano, dano);
        m_dir->write("cfg.ini", contenido);
        ModBase mb;
        ScriptedInteraction ui;
        QCOMPARE(arrancar(mb, ui), salida);
        const QByteArray despues = m_dir->read("cfg.ini");
        if (salida != 0) {
            QCOMPARE(despues, contenido);
            return;
        }
        QTEST(ui.log.contains(avisoFondo(mb)), "avisoFondo");
        ModBase siguiente;
        QCOMPARE(aplicarConfiguracion(siguiente, despues), LecturaConfiguracion::Completa);
        QCOMPARE(siguiente.Idioma, mb.Idioma);
        QVERIFY(siguiente.RutaFondo.isEmpty());
        QCOMPARE(splitLines(despues).size(), 16);
    }

private:
    // The whole life of the program in the test's folder, with the real main
    // window shown and drawn once, then closed.
    int arrancar(ModBase& mb, ScriptedInteraction& ui)
    {
        m_dir->attach(mb);
        ScriptedWindows ventanas(ui.log);
        ventanas.whileBaseOpen = [&](ModBase& m) {
            frmBase w(m, ui);
            w.show();
            QVERIFY(QTest::qWaitForWindowExposed(&w));
            QVERIFY(!w.grab().isNull()); // the surface with its background, drawn
            w.close();
        };
        return Main(mb, ui, ventanas);
    }

    std::unique_ptr<ProgramDir> m_dir;
    std::unique_ptr<ModBase> m_mb;
};

QTEST_MAIN(TestFrmBase)
#include "tst_frmbase.moc"
