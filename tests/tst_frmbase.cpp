#include "Catalogo.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "QtInteraction.h"
#include "ScriptedInteraction.h"
#include "frmBase.h"
#include "frmSplash.h"

#include <QLabel>

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollBar>
#include <QTimer>
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

private:
    std::unique_ptr<ProgramDir> m_dir;
    std::unique_ptr<ModBase> m_mb;
};

QTEST_MAIN(TestFrmBase)
#include "tst_frmbase.moc"
