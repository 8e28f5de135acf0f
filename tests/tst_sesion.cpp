// A whole session as a person works: a new label, fields from the palette, a
// free text, the fixed text, a preset, save, a new label, open again, and
// the transfer to the virtual scale; on the offscreen platform, through the
// windows' own buttons and menus.
#include "BalanzaVirtual.h"
#include "frmBase.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "ScriptedInteraction.h"

#include <functional>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

namespace {

template <typename T> T* hijo(QObject* w, const QString& nombre)
{
    T* h = w->findChild<T*>(nombre);
    if (!h)
        qFatal("no %s", qPrintable(nombre));
    return h;
}

void pulsar(QWidget* w, const QString& boton)
{
    QTest::mouseClick(hijo<QPushButton>(w, boton), Qt::LeftButton);
}

// Acts on the next modal window of that name once it stands on the screen:
// the person answering a dialog the program opened.
void alAbrirse(const QString& nombre, std::function<void(QWidget*)> accion)
{
    auto* timer = new QTimer;
    timer->setInterval(20);
    QObject::connect(timer, &QTimer::timeout, [timer, nombre, accion] {
        QWidget* w = QApplication::activeModalWidget();
        if (!w || w->objectName() != nombre || !w->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        accion(w);
    });
    timer->start();
}

} // namespace

class TestSesion : public QObject {
    Q_OBJECT

private slots:
    void sesionCompleta()
    {
        ProgramDir dir;
        ModBase mb;
        dir.prepare(mb);
        mb.ModeloNuevo = 1;
        mb.BitsDatos = 1; // 8 bits: a pseudo-terminal takes no other
        BalanzaVirtual scale(dir, {});
        QVERIFY(scale.lista());
        ScriptedInteraction ui;

        frmBase w(mb, ui);
        alAbrirse("frmCargaTXL", [](QWidget* d) { pulsar(d, "OKButton"); });
        w.mostrarCargaTXL();
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        const auto herramienta = [&](const char* clave) { hijo<QAction>(&w, clave)->trigger(); };

        // The weight from the palette.
        pulsar(&w, "CBDisplay2");
        QCOMPARE(mb.Campos(11).Presente, QByteArray("1"));
        QVERIFY(mb.Modificado);

        // A free text through its dialog: the first row of the new model is text 6.
        alAbrirse("frmTXL", [](QWidget* d) {
            QTest::mouseClick(hijo<QCheckBox>(d, "ChTXL6"), Qt::LeftButton);
            QTest::keyClicks(hijo<QLineEdit>(d, "TextTXL6"), "oferta");
            pulsar(d, "OKButton");
            pulsar(d, "SalirButton");
        });
        pulsar(&w, "CBDisplay0");
        QCOMPARE(mb.TextoLibre(5), QByteArray("OFERTA"));
        QCOMPARE(mb.Campos(27).Presente, QByteArray("1"));

        // The fixed text, from the pop-up of its label.
        QTest::mouseClick(hijo<QWidget>(&w, "lblTXF1"), Qt::RightButton);
        alAbrirse("frmTXF", [](QWidget* d) {
            QTest::keyClicks(hijo<QLineEdit>(d, "TextTXF1"), "conservar en frio");
            pulsar(d, "OKButton");
        });
        hijo<QAction>(&w, "mnuDerTXFEdit")->trigger();
        QCOMPARE(mb.TextoFijo(0), QByteArray("CONSERVAR EN FRIO"));

        // The 60 mm preset asks first; No goes on without saving.
        ui.answers = {Answer::No};
        herramienta("Eti60");
        QCOMPARE(mb.AnchoEtiqueta, QByteArray("60"));
        QVERIFY(ui.answers.isEmpty());

        // Save: the label has no file yet, so Save As asks for one.
        ui.savePaths = {dir.file("tienda.pse")};
        herramienta("Guardar");
        QVERIFY(!mb.Modificado);

        // A new label, then the set opened again.
        alAbrirse("frmCargaTXL", [](QWidget* d) { pulsar(d, "OKButton"); });
        herramienta("Nueva");
        QCOMPARE(mb.Campos(11).Presente, QByteArray("0"));
        ui.openPaths = {dir.file("tienda.pse")};
        herramienta("Abrir");
        QCOMPARE(mb.AnchoEtiqueta, QByteArray("60"));
        QCOMPARE(mb.Campos(11).Presente, QByteArray("1"));
        QCOMPARE(mb.TextoLibre(5), QByteArray("OFERTA"));

        // Send it to the scale on COM1.
        alAbrirse("frmConfig", [](QWidget* d) { pulsar(d, "OKButton"); });
        herramienta("Enviar");
        QTRY_VERIFY_WITH_TIMEOUT(ui.log.contains("message: " + mb.Textos(445)), 20000);
        const QList<QByteArray> frames = scale.tramas();
        QCOMPARE(frames.size(), 54);
        QCOMPARE(frames.last().mid(1, 2), QByteArray("00"));
    }
};

QTEST_MAIN(TestSesion)
#include "tst_sesion.moc"
