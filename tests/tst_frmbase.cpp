#include "ArchivoDanado.h"
#include "Arranque.h"
#include "Configuracion.h"
#include "Cuadro.h"
#include "FileCommands.h"
#include "frmBase.h"
#include "frmSplash.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "QtInteraction.h"
#include "Recorrido.h"
#include "ScriptedInteraction.h"
#include "TextLines.h"

using recorrido::hijo;
using recorrido::mostrar;

namespace {

// A start of the program on a cfg.ini, sound or damaged, naming a background.
struct Arranque {
    QString dano;  // of cfg.ini, as archivoDanado makes it; "" sound
    QString fondo; // the background, in the source tree
    bool aviso;    // the background is reported unreadable
};

} // namespace

Q_DECLARE_METATYPE(Arranque)

class TestFrmBase : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_dir.reset(new ProgramDir);
        m_mb.reset(new ModBase);
        m_dir->prepare(*m_mb);
    }

    // Closing by the tool bar's button asks first about a modified label;
    // Yes saves, and a label with no file yet asks for one. The size and
    // zoom of the run come back at the next, from a file of their own.
    void cierre_data()
    {
        QTest::addColumn<QList<Answer>>("respuestas"); // the label is modified when there are any
        QTest::addColumn<bool>("cerrada");
        QTest::addColumn<bool>("guardado");
        QTest::newRow("yes saves and closes") << QList<Answer>{Answer::Yes} << true << true;
        QTest::newRow("no closes") << QList<Answer>{Answer::No} << true << false;
        QTest::newRow("cancel stays") << QList<Answer>{Answer::Cancel} << false << false;
    }

    void cierre()
    {
        QFETCH(QList<Answer>, respuestas);
        QFETCH(bool, cerrada);
        ScriptedInteraction ui;
        ui.answers = respuestas;
        frmBase w(*m_mb, ui);
        QSignalSpy closed(&w, &frmBase::cerrado);
        mostrar(w);
        w.fijarZoom(2);
        w.resize(640, 480);
        const QByteArray cfg = m_dir->read("cfg.ini");
        m_mb->Modificado = !respuestas.isEmpty(); // the load leaves the label clean
        QAction* salir = hijo<QAction>(w, "Salir");
        QTest::mouseClick(hijo<QToolBar>(w, "Toolbar1")->widgetForAction(salir), Qt::LeftButton);
        QCOMPARE(closed.size(), cerrada ? 1 : 0);
        QTEST(ui.log.contains("save: " + m_mb->Textos(1316) + " (*.ose)|*.ose"), "guardado");
        QCOMPARE(ui.answers.size(), 0);
        if (!cerrada)
            return;
        frmBase siguiente(*m_mb, ui);
        mostrar(siguiente);
        QCOMPARE(siguiente.cuadro()->zoom(), 2.0);
        QCOMPARE(siguiente.size(), QSize(640, 480));
        QCOMPARE(m_dir->read("cfg.ini"), cfg);
    }

    // One press on the label selector's arrow, held longer than the scroll
    // bar waits before it repeats, is one step and at most one question; Cancel
    // puts the selector back and nothing more happens.
    void selectorEtiqueta_data()
    {
        QTest::addColumn<QMessageBox::StandardButton>("respuesta"); // to a name typed, if any
        QTest::addColumn<int>("paso"); // where the selector ends, from where it started
        QTest::newRow("unchanged: one step") << QMessageBox::NoButton << 1;
        QTest::newRow("changed, cancel: back") << QMessageBox::Cancel << 0;
    }

    void selectorEtiqueta()
    {
        QFETCH(QMessageBox::StandardButton, respuesta);
        QFETCH(int, paso);
        const bool modificado = respuesta != QMessageBox::NoButton;
        QtInteraction ui;
        frmBase w(*m_mb, ui);
        mostrar(w);
        if (modificado)
            QTest::keyClicks(hijo<QLineEdit>(w, "TxtNomEtiq"), "QUESO");
        QScrollBar* vs = hijo<QScrollBar>(w, "VSEtiq");
        const int inicial = vs->value();

        int preguntas = 0;
        recorrido::AlAbrirse persona([&](QWidget& d) {
            ++preguntas;
            QTest::mouseClick(static_cast<QMessageBox&>(d).button(respuesta), Qt::LeftButton);
        });
        const QPoint flecha(vs->width() / 2, vs->height() - 4); // the down arrow
        QTest::mousePress(vs, Qt::LeftButton, {}, flecha);
        QTest::qWait(800); // past the scroll bar's wait before it repeats
        QTest::mouseRelease(vs, Qt::LeftButton, {}, flecha);
        QTest::qWait(300);

        QCOMPARE(preguntas, modificado ? 1 : 0);
        QCOMPARE(hijo<QLineEdit>(w, "TxtNumEtiq")->text(), QString::number(inicial + paso));
        // Cancel keeps the label as it was, changes and all.
        QCOMPARE(m_mb->Modificado, modificado && !paso);
    }

    void splash_data()
    {
        QTest::addColumn<bool>("arranque");
        QTest::addColumn<QString>("cierre"); // what closes it: "timer", "key", "click"
        QTest::newRow("start-up splash closes itself") << true << "timer";
        QTest::newRow("a click closes the about box") << false << "click";
        QTest::newRow("a key waiting as the splash shows") << true << "key";
    }

    void splash()
    {
        QFETCH(bool, arranque);
        QFETCH(QString, cierre);
        m_mb->ArranqueInicial = arranque;
        frmSplash w(*m_mb);
        QSignalSpy closed(&w, &QDialog::finished);
        // The key is handled while the splash is being shown, before its own
        // loop runs: it must still end, not leave the program waiting on a
        // hidden window. Should it hang, the guard ends it.
        QTimer::singleShot(0, &w, [&] {
            if (cierre == "key")
                QTest::keyClick(&w, Qt::Key_Home);
            else if (cierre == "click")
                QTest::mouseClick(hijo<QLabel>(w, "lblVersion"), Qt::LeftButton);
        });
        QElapsedTimer reloj;
        reloj.start();
        QTimer::singleShot(5000, &w, [&w] { w.done(QDialog::Rejected); });
        w.mostrar();
        QVERIFY(reloj.elapsed() < 5000);
        QCOMPARE(closed.size(), 1);
        // Only the timer marks the start-up splash as gone.
        QCOMPARE(m_mb->ArranqueInicial, arranque && cierre != "timer");
    }

    // The whole window on the screen it runs on, and its content in sight
    // without scrolling, for a label of 60 in every language. ctest runs
    // this on 1366 x 768, on 1920 x 1080 at 150 % and on 2560 x 1440 at 200 %.
    void ventanaCabe()
    {
        ScriptedInteraction ui;
        m_mb->AnchoEtiqueta = "60";
        frmBase w(*m_mb, ui);
        mostrar(w);
        const QRect libre = w.screen()->availableGeometry();
        if (libre.width() < 1280 || libre.height() < 720)
            QSKIP("run on a screen of 1366 x 768, or of 1920 x 1080 at 150 %");
        const auto* area = hijo<QScrollArea>(w, "areaLienzo");
        for (int idioma = 1; idioma <= 8; ++idioma) {
            w.menuIdioma(idioma)->trigger();
            for (const char* tipo : {"V", "T"}) {
                m_mb->TipoEtiqueta = tipo;
                w.refresh();
                QCoreApplication::processEvents();
                QString donde;
                QDebug(&donde) << idioma << tipo << w.frameGeometry() << "on" << libre;
                QVERIFY2(libre.contains(w.frameGeometry()), qPrintable(donde));
                const QSize sobra = area->viewport()->size() - area->widget()->minimumSizeHint();
                QVERIFY2(sobra.width() >= 0 && sobra.height() >= 0, qPrintable(donde));
            }
        }
    }

    // The standard buttons of a question speak the language of the start. A
    // new language reaches the file dialog's, the window's captions (none
    // empty) and the names a screen reader says, and leaves the label alone.
    // Then each caption is measured against the widget that shows it, on
    // both kinds of label: the window, the boxes of the surface and the
    // numbers of the rulers.
    void captionsCaben_data()
    {
        QTest::addColumn<int>("alArrancar");
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QString>("buscarEn"); // the file dialog's "Look in:", Qt's own
        const char* buscarEn[8] = {
            "Ver en:",       "Look in:", "Procurar em:", "Zoeken in:", "Voir dans :", "Cerca in:",
            "Αναζήτηση σε:", // the catalogue's: the system's Qt has no Greek
            "Szukaj w:"};
        for (int i = 1; i <= 8; ++i) {
            const int despues = i % 8 + 1;
            QTest::addRow("%s, then %s", qPrintable(captionIdioma(i)),
                          qPrintable(captionIdioma(despues)))
                << i << despues << QString::fromUtf8(buscarEn[despues - 1]);
        }
    }

    void captionsCaben()
    {
        QFETCH(int, alArrancar);
        QFETCH(int, idioma);
        QFETCH(QString, buscarEn);
        m_dir->prepare(*m_mb, alArrancar);
        m_mb->ModeloNuevo = 1;
        // Every field, free texts as long as they may be: each box shows its caption.
        for (int i = 1; i <= 36; ++i)
            m_mb->Campos(i).Presente = "1";
        for (int i = 0; i < 15; ++i)
            m_mb->TextoLibre(i) = QByteArray(25, 'W');
        m_mb->AnchoEtiqueta = "60";
        QtInteraction ui;
        frmBase w(*m_mb, ui);
        ui.setParent(&w);
        mostrar(w);
        QStringList visto; // each dialog's text and buttons, then it is cancelled
        recorrido::AlAbrirse persona([&](QWidget& d) {
            if (auto* box = qobject_cast<QMessageBox*>(&d)) {
                visto << box->text();
                for (auto b : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel})
                    visto << recorrido::sinMnemonico(box->button(b)->text());
                QTest::mouseClick(box->button(QMessageBox::Cancel), Qt::LeftButton);
                return;
            }
            auto* botones = hijo<QDialogButtonBox>(d, "buttonBox");
            visto << hijo<QLabel>(d, "lookInLabel")->text()
                  << recorrido::sinMnemonico(botones->button(QDialogButtonBox::Open)->text());
            QTest::mouseClick(botones->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        });
        const TextTable& T = m_mb->Textos;
        m_mb->Modificado = true;
        hijo<QAction>(w, "mnuArchivoSalir")->trigger();
        QCOMPARE(visto, (QStringList{T(1315), T(285), T(286), T(288)}));
        m_mb->Modificado = false;
        w.menuIdioma(idioma)->trigger();
        QVERIFY(!m_mb->Modificado);
        QList<QAction*> entradas = w.menuBar()->actions();
        for (QAction* menu : w.menuBar()->actions())
            if (menu->menu())
                entradas += menu->menu()->actions();
        for (QAction* a : entradas)
            QVERIFY(a->isSeparator() || (!a->text().isEmpty() && a->text() != "..."));
        QCOMPARE(w.menuBar()->actions().first()->text(), T(1292));
        QCOMPARE(w.editor().superficie.Imagen(11).caption, T(130));
        const QStringList sinNombre = recorrido::sinNombreAccesible(w);
        QVERIFY2(sinNombre.isEmpty(), qPrintable(sinNombre.join(", ")));
        visto.clear();
        hijo<QAction>(w, "mnuArchivoCargar")->trigger();
        QCOMPARE(visto, (QStringList{buscarEn, T(1311)}));

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
                const int necesita = QFontMetrics(c->fuenteCaja(n)).horizontalAdvance(caja.caption);
                if (caja.visible && necesita > c->rectTexto(n).width())
                    fallos.append(
                        QStringLiteral("box %1 \"%2\" too narrow").arg(n).arg(caja.caption));
            }
            for (const Regla* r : w.findChildren<Regla*>())
                for (int i = 10; i <= 60; i += 10) {
                    const QRectF donde = r->rectNumero(i);
                    const QRectF texto =
                        QFontMetricsF(r->fuente()).boundingRect(QString::number(i));
                    if (donde.bottom() > r->height() + 0.5 || donde.right() > r->width() + 0.5 ||
                        texto.width() > donde.width() + 0.5 ||
                        texto.height() > donde.height() + 0.5)
                        if (donde.left() < r->width() && donde.top() < r->height())
                            fallos.append(
                                QStringLiteral("%1: %2 outside").arg(r->objectName()).arg(i));
                }
            // The two sizes' arrows stand apart.
            const QRect hor = hijo<QScrollBar>(w, "VSHor")->geometry();
            if (hor.bottom() + 4 > hijo<QScrollBar>(w, "VSVer")->geometry().top())
                fallos.append(QStringLiteral("VSHor and VSVer overlap"));
            QVERIFY2(fallos.isEmpty(), qPrintable(tipo + QStringLiteral(": ") + fallos.join("\n")));
        }
    }

    // The program starts on a cfg.ini, sound or damaged, and loads and draws
    // the background it names. However the picture is made, the program
    // goes on: one it cannot read is reported and forgotten, and the next
    // start reads the file left whole.
    void arranque_data()
    {
        QTest::addColumn<Arranque>("caso");
        const QString corpus = QStringLiteral(KORVO_SOURCE_DIR "/fuzz/corpus/");
        const QString rotos =
            QStringLiteral(KORVO_SOURCE_DIR "/tests/data/preview/metafiles/damaged/");
        // Texts whose glyphs are thousands of pixels wide and a fraction of one high.
        QTest::newRow("emf text squashed by its frame")
            << Arranque{"", corpus + "emf/emf-text-crash.emf", false};
        QTest::newRow("wmf text of a huge width")
            << Arranque{"", corpus + "wmf/wmf-text-crash.wmf", false};
        QTest::newRow("wmf cut") << Arranque{"", rotos + "cut-header.wmf", true};
        QTest::newRow("emf cut") << Arranque{"", rotos + "cut.emf", true};
        QTest::newRow("cfg binary") << Arranque{"binary", "", false};
        QTest::newRow("cfg UTF-16") << Arranque{"UTF-16", "", false};
        // The long path reaches the picture loader, which cannot open it.
        QTest::newRow("10 MB picture path") << Arranque{"10 MB path", "", true};
    }

    void arranque()
    {
        QFETCH(Arranque, caso);
        m_mb->RutaFondo = caso.fondo;
        const QByteArray sano = formaLarga(*m_mb);
        QByteArray contenido = caso.dano.isEmpty() ? sano : archivoDanado(sano, caso.dano);
        if (caso.dano == "10 MB path")
            contenido = joinLines(splitLines(sano).mid(0, 7)) +
                        "Fondo = " + QByteArray(10 * 1024 * 1024, 'x') + "\r\n";
        m_dir->write("cfg.ini", contenido);
        // The whole life of the program in the test's folder, with the real
        // main window shown and drawn once, then closed.
        ModBase mb;
        m_dir->attach(mb);
        ScriptedInteraction ui;
        ScriptedWindows ventanas(ui.log);
        ventanas.whileBaseOpen = [&](ModBase& m) {
            frmBase w(m, ui);
            mostrar(w);
            QVERIFY(!w.grab().isNull()); // the surface with its background, drawn
            w.close();
        };
        QCOMPARE(Main(mb, ui, ventanas), 0);
        const QString aviso = "message: " + mb.Textos(1343) + " : " + mb.Textos(222);
        QCOMPARE(ui.log.contains(aviso), caso.aviso);
        ModBase siguiente;
        QCOMPARE(aplicarConfiguracion(siguiente, m_dir->read("cfg.ini")),
                 LecturaConfiguracion::Completa);
        QCOMPARE(siguiente.RutaFondo, caso.aviso ? QString() : caso.fondo);
    }

    // A file named on the command line opens once the window stands, as
    // Open would open it; a path to no file is told, and the label stays.
    void archivoDeLineaDeOrdenes_data()
    {
        QTest::addColumn<bool>("existe");
        QTest::newRow("a set") << true;
        QTest::newRow("no such file") << false;
    }

    void archivoDeLineaDeOrdenes()
    {
        QFETCH(bool, existe);
        m_mb->ModeloNuevo = 1;
        const QString ruta = m_dir->file(QStringLiteral("tienda ñ.pse"));
        if (existe) {
            ModBase otro = *m_mb;
            InicializarEtiqueta(otro);
            otro.NumEtiqueta = "3";
            SilentInteraction nadie;
            HeadlessView sinVentana;
            FileCommands archivos(otro, nadie, sinVentana);
            archivos.IniciaLineas();
            otro.ArchivoActual = ruta;
            otro.NombreEtiqueta = "QUESO";
            archivos.GuardarEtiquetaConjunto();
        }
        QtInteraction ui;
        frmBase w(*m_mb, ui);
        mostrar(w);
        QString dicho;
        recorrido::AlAbrirse persona([&](QWidget& d) {
            dicho = static_cast<QMessageBox&>(d).text();
            QTest::keyClick(&d, Qt::Key_Return);
        });
        w.abrirArchivo(ruta);
        QCOMPARE(hijo<QLineEdit>(w, "TxtNomEtiq")->text(),
                 existe ? QStringLiteral("QUESO") : QString());
        QCOMPARE(dicho, existe ? QString() : m_mb->Textos(864));
        QCOMPARE(m_mb->ArchivoConocido, existe);
    }

private:
    std::unique_ptr<ProgramDir> m_dir;
    std::unique_ptr<ModBase> m_mb;
};

QTEST_MAIN(TestFrmBase)
#include "tst_frmbase.moc"
