#include "Arranque.h"
#include "ArchivoDanado.h"
#include "Catalogo.h"
#include "Configuracion.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "Cuadro.h"
#include "QtInteraction.h"
#include "Recorrido.h"
#include "ScriptedInteraction.h"
#include "frmBase.h"
#include "TextLines.h"
#include "frmSplash.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QToolBar>
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

// The person at the screen: every question box that opens is answered with
// the next answer, and with Cancel once they have run out; counts them.
class Respondedor : public QObject {
public:
    explicit Respondedor(QList<QMessageBox::StandardButton> respuestas)
        : m_respuestas(std::move(respuestas))
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || !box->isVisible() || box == m_ultima)
                return;
            m_ultima = box;
            ++preguntas;
            const auto r = m_respuestas.isEmpty() ? QMessageBox::Cancel : m_respuestas.takeFirst();
            QTest::mouseClick(box->button(r), Qt::LeftButton);
        });
        m_timer.start(20);
    }
    int preguntas = 0;

private:
    QList<QMessageBox::StandardButton> m_respuestas;
    QTimer m_timer;
    QPointer<QMessageBox> m_ultima;
};

// Every field on the label, each at its own place, so that every box of
// the surface shows its caption.
void todosLosCampos(ModBase& mb)
{
    const int n = mb.ModeloNuevo ? 36 : 25;
    for (int i = 1; i <= n; ++i)
        mb.Campos(i).Presente = "1";
    // Free texts as long as they may be: their boxes are as wide as their texts.
    for (int i = 0; i < 15; ++i)
        mb.TextoLibre(i) = QByteArray(25, 'W');
}

// Answers the next modal box with the button `boton`, after `mirar` has
// looked at it.
void responder(QMessageBox::StandardButton boton, std::function<void(QMessageBox&)> mirar)
{
    QTimer::singleShot(0, [boton, mirar] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box);
        mirar(*box);
        QTest::mouseClick(box->button(boton), Qt::LeftButton);
    });
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
        QCOMPARE(spanish.size(), 31);
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
            // The about entry opens a box of its own: no dots.
            QCOMPARE(w.findChild<QAction*>("mnuAcerca")->text(), m_mb->Textos(296));
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

    // One press on the label selector's arrow, held longer than the scroll
    // bar waits before it repeats, is one step and at most one question; Cancel
    // puts the selector back and nothing more happens.
    void selectorEtiqueta_data()
    {
        QTest::addColumn<bool>("modificado");
        QTest::addColumn<QList<QMessageBox::StandardButton>>("respuestas");
        QTest::addColumn<int>("paso"); // where the selector ends, from where it started
        QTest::newRow("unchanged: one step") << false << QList<QMessageBox::StandardButton>{} << 1;
        QTest::newRow("changed, no: one step")
            << true << QList<QMessageBox::StandardButton>{QMessageBox::No} << 1;
        QTest::newRow("changed, cancel: back")
            << true << QList<QMessageBox::StandardButton>{QMessageBox::Cancel} << 0;
    }

    void selectorEtiqueta()
    {
        QFETCH(bool, modificado);
        QFETCH(QList<QMessageBox::StandardButton>, respuestas);
        QFETCH(int, paso);
        QtInteraction ui;
        frmBase w(*m_mb, ui);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        if (modificado)
            QTest::keyClicks(w.findChild<QLineEdit*>("TxtNomEtiq"), "QUESO");
        QCOMPARE(m_mb->Modificado, modificado);
        QScrollBar* vs = w.findChild<QScrollBar*>("VSEtiq");
        const int inicial = vs->value();
        const QByteArray numero = m_mb->NumEtiqueta;

        Respondedor persona(respuestas);
        const QPoint flecha(vs->width() / 2, vs->height() - 4); // the down arrow
        QTest::mousePress(vs, Qt::LeftButton, {}, flecha);
        QTest::qWait(800); // past the scroll bar's wait before it repeats
        QTest::mouseRelease(vs, Qt::LeftButton, {}, flecha);
        QTest::qWait(300);

        QCOMPARE(persona.preguntas, modificado ? 1 : 0);
        QCOMPARE(vs->value(), inicial + paso);
        QCOMPARE(w.findChild<QLineEdit*>("TxtNumEtiq")->text(), QString::number(inicial + paso));
        QCOMPARE(m_mb->NumEtiqueta, paso ? QByteArray::number(inicial + paso) : numero);
        // Cancel keeps the label as it was, changes and all.
        QCOMPARE(m_mb->Modificado, modificado && !paso);
    }

    void splash_data()
    {
        QTest::addColumn<bool>("arranque");
        QTest::addColumn<QString>("cierre"); // what closes it: "timer", "key", "click"
        QTest::newRow("start-up splash closes itself") << true << "timer";
        QTest::newRow("a key closes the start-up splash") << true << "key";
        QTest::newRow("a click closes the about box") << false << "click";
        QTest::newRow("a key waiting as the splash shows") << true << "key waiting";
    }

    void splash()
    {
        QFETCH(bool, arranque);
        QFETCH(QString, cierre);
        m_mb->ArranqueInicial = arranque;
        frmSplash w(*m_mb);
        QSignalSpy closed(&w, &QDialog::finished);
        if (cierre == "key waiting") {
            // Handled while the splash is being shown, before its own loop
            // runs: it must still end, not leave the program waiting on a
            // hidden window. Should it hang, the guard shows and ends it.
            QTimer::singleShot(0, &w, [&w] { QTest::keyClick(&w, Qt::Key_Home); });
            bool colgado = false;
            QTimer::singleShot(3000, &w, [&] {
                colgado = true;
                w.show();
                w.accept();
            });
            w.mostrar();
            QVERIFY(!colgado);
            QCOMPARE(closed.size(), 1);
            return;
        }
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

    // Each caption measured against the widget that shows it, in every
    // language, on both kinds of label: the window, the boxes of the
    // surface and the numbers of the rulers.
    void captionsCaben_data() { recorrido::filasIdiomas(); }

    void captionsCaben()
    {
        QFETCH(int, idioma);
        ScriptedInteraction ui;
        m_mb->ModeloNuevo = 1;
        todosLosCampos(*m_mb);
        m_mb->AnchoEtiqueta = "60";
        frmBase w(*m_mb, ui);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        w.menuIdioma(idioma)->trigger();
        // At the first zoom and at a large one.
        for (const char* tipo : {"V", "T"}) {
            m_mb->TipoEtiqueta = tipo;
            w.fijarZoom(tipo[0] == 'V' ? Escala::kZoomInicial : 3.0);
            w.refresh();
            QCoreApplication::processEvents(); // the layouts follow the new captions
            QStringList fallos = recorrido::textosCortados(w);
            const Cuadro* c = w.cuadro();
            for (int n = 1; n <= 36; ++n) {
                const Caja& caja = w.editor().superficie.Imagen(n);
                if (!caja.visible)
                    continue;
                const int necesita = QFontMetrics(c->fuenteCaja(n)).horizontalAdvance(caja.caption);
                if (necesita > c->rectTexto(n).width())
                    fallos.append(QStringLiteral("box %1 \"%2\" needs %3 px, has %4")
                                      .arg(n).arg(caja.caption).arg(necesita).arg(c->rectTexto(n).width()));
            }
            for (const Regla* r : w.findChildren<Regla*>())
                for (int i = 10; i <= 60; i += 10) {
                    const QRectF donde = r->rectNumero(i);
                    const QRectF texto = QFontMetricsF(r->fuente()).boundingRect(QString::number(i));
                    if (donde.bottom() > r->height() + 0.5 || donde.right() > r->width() + 0.5 ||
                        texto.width() > donde.width() + 0.5 || texto.height() > donde.height() + 0.5)
                        if (donde.left() < r->width() && donde.top() < r->height())
                            fallos.append(QStringLiteral("%1: %2 outside").arg(r->objectName()).arg(i));
                }
            // The two sizes' arrows stand apart.
            const QRect hor = w.findChild<QScrollBar*>("VSHor")->geometry();
            const QRect ver = w.findChild<QScrollBar*>("VSVer")->geometry();
            if (hor.bottom() + 4 > ver.top())
                fallos.append(QStringLiteral("VSHor ends at %1, VSVer starts at %2").arg(hor.bottom()).arg(ver.top()));
            QVERIFY2(fallos.isEmpty(), qPrintable(tipo + QStringLiteral(": ") + fallos.join("\n")));
        }
    }

    // The size and zoom of the last run come back, from a file of their own;
    // a size the screen cannot hold is brought inside it.
    void ventanaRecordada_data()
    {
        QTest::addColumn<QSize>("tamano");
        QTest::addColumn<bool>("cabe");
        QTest::newRow("a size that fits") << QSize(640, 480) << true;
        QTest::newRow("larger than the screen") << QSize(5000, 4000) << false;
    }

    void ventanaRecordada()
    {
        QFETCH(QSize, tamano);
        QFETCH(bool, cabe);
        ScriptedInteraction ui;
        {
            frmBase w(*m_mb, ui);
            w.show();
            QVERIFY(QTest::qWaitForWindowExposed(&w));
            w.fijarZoom(2);
            w.resize(tamano);
            QVERIFY(w.close());
        }
        const QByteArray cfg = m_dir->read(QStringLiteral("cfg.ini"));
        QVERIFY(m_dir->exists(QStringLiteral("ventana.ini")));
        frmBase w(*m_mb, ui);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(w.cuadro()->zoom(), 2.0);
        const QRect libre = w.screen()->availableGeometry();
        QVERIFY(libre.contains(w.frameGeometry()));
        if (cabe)
            QCOMPARE(w.size(), tamano);
        QCOMPARE(m_dir->read(QStringLiteral("cfg.ini")), cfg);
    }

    // The whole window on the screen it runs on, and its content in sight
    // without scrolling, for a label of 60 in every language. ctest runs
    // this on 1366 x 768, on 1920 x 1080 at 150 % and on 2560 x 1440 at 200 %.
    void ventanaCabe()
    {
        ScriptedInteraction ui;
        m_mb->AnchoEtiqueta = "60";
        frmBase w(*m_mb, ui);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        const QRect libre = w.screen()->availableGeometry();
        if (libre.width() < 1280 || libre.height() < 720)
            QSKIP("run on a screen of 1366 x 768, or of 1920 x 1080 at 150 %");
        for (int idioma = 1; idioma <= 8; ++idioma) {
            w.menuIdioma(idioma)->trigger();
            for (const char* tipo : {"V", "T"}) {
                m_mb->TipoEtiqueta = tipo;
                w.refresh();
                QCoreApplication::processEvents();
                const QString donde = QStringLiteral("%1 %2: %3x%4 on %5x%6")
                                          .arg(idioma).arg(tipo)
                                          .arg(w.frameGeometry().width()).arg(w.frameGeometry().height())
                                          .arg(libre.width()).arg(libre.height());
                QVERIFY2(libre.contains(w.frameGeometry()), qPrintable(donde));
                const auto* area = w.findChild<QScrollArea*>("areaLienzo");
                QVERIFY2(area->viewport()->width() >= area->widget()->minimumSizeHint().width() &&
                             area->viewport()->height() >= area->widget()->minimumSizeHint().height(),
                         qPrintable(donde));
            }
        }
    }

    // Every control of the window has a name a screen reader says, from the
    // catalogue, in every language.
    void nombresAccesibles()
    {
        ScriptedInteraction ui;
        frmBase w(*m_mb, ui);
        w.show();
        for (int idioma : {1, 7}) {
            w.menuIdioma(idioma)->trigger();
            QVERIFY2(recorrido::sinNombreAccesible(w).isEmpty(),
                     qPrintable(recorrido::sinNombreAccesible(w).join(", ")));
            const auto nombre = [&](const char* control) {
                QWidget* c = w.findChild<QWidget*>(control);
                return QAccessible::queryAccessibleInterface(c)->text(QAccessible::Name);
            };
            QCOMPARE(nombre("TxtNomEtiq"), m_mb->Textos(552));
            QCOMPARE(nombre("VSVer"), m_mb->Textos(1306));
            QCOMPARE(nombre("TxtValorHor"), m_mb->Textos(1305));
            QCOMPARE(nombre("VSEtiq"), m_mb->Textos(1317));
            QToolBar* barra = w.findChild<QToolBar*>("Toolbar1");
            QAction* abrir = w.findChild<QAction*>("Abrir");
            QWidget* boton = barra->widgetForAction(abrir);
            QCOMPARE(QAccessible::queryAccessibleInterface(boton)->text(QAccessible::Name), m_mb->Textos(1311));
        }
    }

    // The standard buttons of a question and the file dialog speak the
    // language in force: the one of the start, and the one chosen next.
    void qtEnElIdioma_data()
    {
        QTest::addColumn<int>("alArrancar");
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QString>("buscarEn"); // the file dialog's "Look in:", Qt's own
        const char* buscarEn[8] = {"Ver en:", "Look in:", "Procurar em:", "Zoeken in:",
                                   "Voir dans :", "Cerca in:",
                                   "Αναζήτηση σε:", // the catalogue's: the system's Qt has no Greek
                                   "Szukaj w:"};
        for (int i = 1; i <= 8; ++i) {
            const int despues = i % 8 + 1;
            QTest::addRow("%s, then %s", qPrintable(captionIdioma(i)), qPrintable(captionIdioma(despues)))
                << i << despues << QString::fromUtf8(buscarEn[despues - 1]);
        }
    }

    void qtEnElIdioma()
    {
        QFETCH(int, alArrancar);
        QFETCH(int, idioma);
        m_dir->prepare(*m_mb, alArrancar);
        QtInteraction ui;
        frmBase w(*m_mb, ui);
        ui.setParent(&w);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        const TextTable& T = m_mb->Textos;
        // The close question, cancelled.
        m_mb->Modificado = true;
        bool visto = false;
        responder(QMessageBox::Cancel, [&](QMessageBox& box) {
            QCOMPARE(box.text(), T(1315));
            QCOMPARE(recorrido::sinMnemonico(box.button(QMessageBox::Yes)->text()), T(285));
            QCOMPARE(recorrido::sinMnemonico(box.button(QMessageBox::No)->text()), T(286));
            QCOMPARE(recorrido::sinMnemonico(box.button(QMessageBox::Cancel)->text()), T(288));
            visto = true;
        });
        w.findChild<QAction*>("mnuArchivoSalir")->trigger();
        QVERIFY(visto);
        QVERIFY(w.isVisible());
        // The open dialog in the next language, cancelled.
        w.menuIdioma(idioma)->trigger();
        m_mb->Modificado = false;
        QString etiqueta, abrir;
        QTimer::singleShot(0, [&] {
            auto* d = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(d);
            etiqueta = d->findChild<QLabel*>("lookInLabel")->text();
            auto* botones = d->findChild<QDialogButtonBox*>("buttonBox");
            abrir = recorrido::sinMnemonico(botones->button(QDialogButtonBox::Open)->text());
            QTest::mouseClick(botones->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        });
        w.findChild<QAction*>("mnuArchivoCargar")->trigger();
        QFETCH(QString, buscarEn);
        QCOMPARE(etiqueta, buscarEn);
        QCOMPARE(abrir, T(1311));
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
