// The dialogs themselves on the offscreen platform, driven by keys and
// clicks as a person drives them, and transfers from the settings dialog
// to virtual scales.
#include "BalanzaVirtual.h"
#include "Catalogo.h"
#include "CodePage.h"
#include "frmBorrar.h"
#include "frmCargaTXL.h"
#include "frmConfig.h"
#include "frmDES.h"
#include "frmTXF.h"
#include "frmTXL.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "Recorrido.h"
#include "ScriptedInteraction.h"

#include <QtTest>
#include <QWindow>

using recorrido::hijo;
using recorrido::mostrar;

namespace {

// Typing as a keyboard of the language would: one key each, letters
// outside ASCII included.
void teclear(QWidget* w, const QString& texto)
{
    for (QChar c : texto)
        QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

// Entry `i` of a list, chosen as a person does: F4 opens the list, the
// arrows go to the entry, Enter takes it.
void elegir(QComboBox* c, int i)
{
    c->setFocus();
    QTest::keyClick(c, Qt::Key_F4);
    QTRY_VERIFY(c->view()->isVisible());
    for (int k = c->currentIndex(); k != i; k += k < i ? 1 : -1)
        QTest::keyClick(c->view(), k < i ? Qt::Key_Down : Qt::Key_Up);
    QTest::keyClick(c->view(), Qt::Key_Return);
    QCOMPARE(c->currentIndex(), i);
}

// The transfer window's title, caught as the window comes on the screen
// without the system's title bar: a short transfer is over before any timer
// could look.
class TituloDelEnvio : public QObject {
public:
    QString visto;
    TituloDelEnvio() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* o, QEvent* e) override
    {
        if (e->type() == QEvent::Show && o->isWidgetType() && o->objectName() == "frmEnvio" &&
            static_cast<QWidget*>(o)->windowHandle()->flags() & Qt::FramelessWindowHint)
            visto = o->findChild<QLabel*>("lblTitulo")->text();
        return false;
    }
};

} // namespace

class TestFrmDialogos : public QObject {
    Q_OBJECT

    std::unique_ptr<ProgramDir> m_dir;
    std::unique_ptr<ModBase> m_mb;

private slots:
    void init()
    {
        m_dir.reset(new ProgramDir);
        m_mb.reset(new ModBase);
        m_dir->prepare(*m_mb);
        m_mb->ModeloNuevo = 1;
        InicializarEtiqueta(*m_mb);
    }

    // The lists change only by choosing from them, and a title hands its
    // focus to its list; the scale number box takes one digit from 1 to 8,
    // and shows 1 when left empty. What the person chose is kept once a
    // transfer starts, here the one to several scales, which finds no list
    // and says where to write one; Cancel keeps nothing.
    void configGuarda_data()
    {
        QTest::addColumn<QString>("boton");
        QTest::newRow("several scales, no list") << "CommandVarias";
        QTest::newRow("cancel") << "CancelButton";
    }

    void configGuarda()
    {
        QFETCH(QString, boton);
        const bool guarda = boton == "CommandVarias";
        m_mb->Puerto = 1;
        m_mb->NumEquipo = 5;
        ScriptedInteraction ui;
        frmConfig w(*m_mb, ui);
        mostrar(w);
        auto* com = hijo<QComboBox>(w, "cmbCOM");
        com->setFocus();
        QTest::keyClicks(com, "4");
        QTest::keyClick(com, Qt::Key_Down);
        QCOMPARE(com->currentIndex(), 1);
        elegir(com, 3);
        hijo<QLineEdit>(w, "txtPar")->setFocus();
        auto* par = hijo<QComboBox>(w, "cmbPar");
        QCOMPARE(QApplication::focusWidget(), par);
        elegir(par, 2); // the stop bits stay at their first
        auto* equipo = hijo<QLineEdit>(w, "txtEquipo");
        equipo->setFocus();
        QTest::keyClick(equipo, Qt::Key_Backspace);
        QTest::keyClicks(equipo, "09a-");
        QCOMPARE(equipo->text(), QString());
        com->setFocus();
        QCOMPARE(equipo->text(), QStringLiteral("1"));
        equipo->setFocus();
        QTest::keyClick(equipo, Qt::Key_Backspace);
        QTest::keyClicks(equipo, "8");
        QTest::mouseClick(hijo<QPushButton>(w, boton), Qt::LeftButton);
        QCOMPARE(w.result(), int(guarda ? QDialog::Accepted : QDialog::Rejected));
        const QList<int> kept{m_mb->Puerto, m_mb->Paridad, m_mb->BitsParada, m_mb->NumEquipo};
        QCOMPARE(kept, (guarda ? QList<int>{3, 2, 0, 8} : QList<int>{1, 0, 0, 5}));
        const QString sinLista =
            "message: " + m_mb->Textos(2105) + "\n" + m_dir->file("scales.csv");
        QCOMPARE(ui.log, guarda ? QStringList{sinLista} : QStringList());
    }

    // The settings dialog's free-texts-only button sends through the
    // transfer window, which has no title bar of the system's, to the scale;
    // the window then closes. (The whole label goes by OK in the session's test.)
    void configEnvia()
    {
        BalanzaVirtual balanza(*m_dir, {});
        QVERIFY(balanza.lista());
        ScriptedInteraction ui;
        frmConfig w(*m_mb, ui);
        mostrar(w);
        // A pseudo-terminal carries no parity and 8 data bits only.
        hijo<QComboBox>(w, "cmbBaud")->setCurrentIndex(3);
        hijo<QComboBox>(w, "cmbPar")->setCurrentIndex(0);
        hijo<QComboBox>(w, "cmbDatos")->setCurrentIndex(1);
        TituloDelEnvio titulo;
        QTest::mouseClick(hijo<QPushButton>(w, "CommandTXL"), Qt::LeftButton);
        QCOMPARE(titulo.visto, QStringLiteral("Enviando..."));
        for (QWidget* t : QApplication::topLevelWidgets())
            QVERIFY(t->objectName() != "frmEnvio");
        QCOMPARE(ui.log, QStringList{"message: " + m_mb->Textos(445)});
        QCOMPARE(balanza.tramas().size(), 17); // the opening, 15 free texts, the closing
    }

    // The settings dialog's third button shows the list of scales of the
    // program folder; the ticked ones get the label, each row with its
    // result, and the trace goes where the person said; the unticked one
    // gets nothing. Every label of the set is asked for, and without a set
    // file nothing goes (the whole set to a list: the command line's tests).
    void configEnviaVarias_data()
    {
        QTest::addColumn<bool>("todas");
        QTest::newRow("a list of four, one unticked") << false;
        QTest::newRow("every label, no set file") << true;
    }

    void configEnviaVarias()
    {
        QFETCH(bool, todas);
        using L = BalanzaVirtual::Linea;
        BalanzaVirtual buena(*m_dir, {}, L::Tcp, "good");
        BalanzaVirtual rechaza(*m_dir, {"--refuse", "1"}, L::Tcp, "refuse");
        BalanzaVirtual serie(*m_dir, {});
        QVERIFY(buena.lista() && rechaza.lista() && serie.lista());
        const QString bien = buena.direccion();
        m_dir->write("scales.csv", ("name,port,equipo\nfirst," + bien + ",1\nsecond," + bien +
                                    ",2\nsaid no," + rechaza.direccion() + ",1\nleft out,COM1,1\n")
                                       .toUtf8());
        ScriptedInteraction ui;
        ui.savePaths.append(m_dir->file("trace.txt"));
        frmConfig w(*m_mb, ui);
        mostrar(w);
        QStringList resultados;
        recorrido::AlAbrirse persona([&](QWidget& f) {
            QTest::mouseClick(hijo<QCheckBox>(f, "chkBalanza3"), Qt::LeftButton);
            QTest::mouseClick(hijo<QCheckBox>(f, "chkTraza"), Qt::LeftButton);
            if (todas)
                QTest::mouseClick(hijo<QCheckBox>(f, "chkTodas"), Qt::LeftButton);
            QTest::mouseClick(hijo<QPushButton>(f, "cmdEnviar"), Qt::LeftButton);
            QTRY_VERIFY_WITH_TIMEOUT(hijo<QPushButton>(f, "cmdEnviar")->isEnabled(), 5000);
            auto* tabla = hijo<QTableWidget>(f, "tblBalanzas");
            for (int fila = 0; fila < 4; ++fila)
                resultados.append(tabla->item(fila, 4)->text());
            QTest::mouseClick(hijo<QPushButton>(f, "cmdCerrar"), Qt::LeftButton);
        });
        QTest::mouseClick(hijo<QPushButton>(w, "CommandVarias"), Qt::LeftButton);
        QCOMPARE(buena.tramas().size(), todas ? 0 : 2 * 54);
        QCOMPARE(rechaza.tramas().size(), todas ? 0 : 1);
        QVERIFY(serie.tramas().isEmpty());
        if (todas) {
            QCOMPARE(ui.log, QStringList{"message: " + m_mb->Textos(2115)});
            QCOMPARE(resultados, QStringList(4));
            return;
        }
        QCOMPARE(ui.log, QStringList{"save: " + m_mb->Textos(2113) + " (*.txt)|*.txt"});
        QCOMPARE(m_dir->read("trace.txt").count("\tfirst\t"), 2 * 54 + 1);
        const QString rechazo = QString(m_mb->Textos(989)).replace('\n', ' ');
        QCOMPARE(resultados,
                 (QStringList{m_mb->Textos(2111), m_mb->Textos(2111), rechazo, QString()}));
    }

    // Free texts, one box at a time: capitals as typed, 25 characters, Enter
    // moves on to OK. OK keeps the text; Exit then leaves it to be placed
    // and saved, Cancel does neither.
    void txl_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QString>("cierre");
        QTest::newRow("new model, exit") << 1 << "SalirButton";
        QTest::newRow("old model, cancel") << 0 << "CancelButton";
    }

    void txl()
    {
        QFETCH(int, modelo);
        QFETCH(QString, cierre);
        m_mb->ModeloNuevo = static_cast<int16_t>(modelo);
        const int n = modelo ? 6 : 1; // the model's first free text
        frmTXL w(*m_mb);
        mostrar(w);
        auto* ch = hijo<QCheckBox>(w, QStringLiteral("ChTXL%1").arg(n));
        auto* caja = hijo<QLineEdit>(w, QStringLiteral("TextTXL%1").arg(n));
        QTest::mouseClick(ch, Qt::LeftButton);
        QVERIFY(!hijo<QCheckBox>(w, QStringLiteral("ChTXL%1").arg(n + 1))->isEnabled());
        caja->setFocus();
        teclear(caja, QStringLiteral("jamón ñandú serrano del pais"));
        QTest::keyClick(caja, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), hijo<QPushButton>(w, "OKButton"));
        QTest::mouseClick(hijo<QPushButton>(w, "OKButton"), Qt::LeftButton);
        QVERIFY(w.isVisible());
        QCOMPARE(m_mb->TextoLibre(n - 1),
                 encodeFor(1, QStringLiteral("JAMóN ÑANDú SERRANO DEL P")));
        QVERIFY(!caja->isEnabled() && !ch->isChecked());
        QVERIFY(hijo<QLabel>(w, QStringLiteral("imTXLprog%1").arg(n))->isVisible());
        QTest::mouseClick(hijo<QPushButton>(w, cierre), Qt::LeftButton);
        QVERIFY(!w.isVisible());
        QCOMPARE(m_mb->TXLPendiente(n), bool(modelo));
        QCOMPARE(m_dir->exists("freetxl.sft"), bool(modelo));
    }

    // Fixed texts in Greek: Enter in an empty box stays, in a filled one it
    // moves on; capitals, 25 characters. OK keeps them, Cancel does not.
    void txf_data()
    {
        QTest::addColumn<bool>("acepta");
        QTest::newRow("ok") << true;
        QTest::newRow("cancel") << false;
    }

    void txf()
    {
        QFETCH(bool, acepta);
        m_mb->Idioma = 7;
        QCOMPARE(CargarTextos(*m_mb, 7), int16_t(0));
        const QByteArray uno = QByteArray("ABC") + QByteArray(22, ' ');
        m_mb->TextoFijo(0) = uno;
        frmTXF w(*m_mb);
        mostrar(w);
        QCOMPARE(hijo<QLineEdit>(w, "TextTXF1")->text(), QStringLiteral("ABC"));
        auto* dos = hijo<QLineEdit>(w, "TextTXF2");
        dos->setFocus();
        QTest::keyClick(dos, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), dos);
        teclear(dos, QStringLiteral("fin ρ") + QString(30, QLatin1Char('x')));
        QTest::keyClick(dos, Qt::Key_Enter);
        QCOMPARE(QApplication::focusWidget(), hijo<QPushButton>(w, "OKButton"));
        QTest::mouseClick(hijo<QPushButton>(w, acepta ? "OKButton" : "CancelButton"),
                          Qt::LeftButton);
        QVERIFY(!w.isVisible());
        const QString escrito = QStringLiteral("FIN ΡXX") + QString(18, QLatin1Char('X'));
        QCOMPARE(m_mb->TextoFijo(0), acepta ? QByteArray("ABC") : uno);
        QCOMPARE(m_mb->TextoFijo(1), acepta ? encodeFor(7, escrito) : QByteArray());
        QCOMPARE(m_mb->Modificado, acepta);
    }

    // The descriptive lines open as they are on the label; OK takes one off
    // and leaves another to be placed.
    void desBotones()
    {
        m_mb->Campos(4).Presente = "1";
        frmDES w(*m_mb);
        w.show();
        auto* cuatro = hijo<QCheckBox>(w, "ChDes4");
        QVERIFY(cuatro->isChecked());
        QCOMPARE(cuatro->text(), "4 " + m_mb->Textos(70));
        QTest::mouseClick(cuatro, Qt::LeftButton);
        QTest::mouseClick(hijo<QCheckBox>(w, "ChDes10"), Qt::LeftButton);
        QTest::mouseClick(hijo<QPushButton>(w, "OKButton"), Qt::LeftButton);
        QCOMPARE(m_mb->Campos(4).Presente, QByteArray("0"));
        QVERIFY(m_mb->DESPendiente(10));
    }

    // The kind of label: Cancel keeps the label, OK starts an empty total
    // label 3 with no name and no file.
    void tipoEtiqBotones_data()
    {
        QTest::addColumn<QString>("boton");
        QTest::addColumn<QByteArray>("etiqueta"); // kind, number, weight on
        QTest::addColumn<QByteArray>("nombre");
        QTest::newRow("cancel") << "CancelButton" << QByteArray("V51") << QByteArray("ABC");
        QTest::newRow("ok") << "OKButton" << QByteArray("T30") << QByteArray();
    }

    void tipoEtiqBotones()
    {
        QFETCH(QString, boton);
        m_mb->TipoEtiqueta = "V";
        m_mb->NumEtiqueta = "5";
        m_mb->Campos(11).Presente = "1";
        m_mb->NombreEtiqueta = "ABC";
        m_mb->ArchivoConocido = true;
        frmTipoEtiq w(*m_mb);
        w.show();
        QVERIFY(hijo<QRadioButton>(w, "TipoEtiq1")->isChecked());
        QTest::mouseClick(hijo<QRadioButton>(w, "TipoEtiq0"), Qt::LeftButton);
        QTest::mouseClick(hijo<QPushButton>(w, boton), Qt::LeftButton);
        QTEST(m_mb->TipoEtiqueta + m_mb->NumEtiqueta + m_mb->Campos(11).Presente, "etiqueta");
        QTEST(m_mb->NombreEtiqueta, "nombre");
        QCOMPARE(m_mb->ArchivoConocido, boton == "CancelButton");
    }

    // The delete dialog offers what a total label has; Select all ticks
    // every box, and a box unticked by hand stays on the label.
    void borrarBotones()
    {
        m_mb->TipoEtiqueta = "T";
        for (int n : {5, 13, 20, 27})
            m_mb->Campos(n).Presente = "1";
        frmBorrar w(*m_mb);
        mostrar(w);
        QVERIFY(!hijo<QCheckBox>(w, "ChBorrarPre")->isEnabled());
        QTest::mouseClick(hijo<QPushButton>(w, "CommandSelTodo"), Qt::LeftButton);
        QTest::mouseClick(hijo<QCheckBox>(w, "ChBorrarDes5"), Qt::LeftButton);
        QTest::mouseClick(hijo<QPushButton>(w, "OKButton"), Qt::LeftButton);
        QCOMPARE(m_mb->Campos(5).Presente, QByteArray("1"));
        for (int n : {13, 20, 27})
            QCOMPARE(m_mb->Campos(n).Presente, QByteArray("0"));
        QVERIFY(m_mb->Modificado);
    }

    // Every dialog in every language: each caption fits its widget, each
    // control has a name a screen reader says. The transfer window is left
    // out: showing it sends.
    void recorrido_data() { recorrido::filasIdiomas(); }

    void recorrido()
    {
        QFETCH(int, idioma);
        m_mb->Idioma = static_cast<int16_t>(idioma);
        QCOMPARE(CargarTextos(*m_mb, m_mb->Idioma), int16_t(0));
        ScriptedInteraction ui;
        frmConfig config(*m_mb, ui);
        frmTXL txl(*m_mb);
        frmTXF txf(*m_mb);
        frmDES des(*m_mb);
        frmTipoEtiq tipo(*m_mb);
        frmBorrar borrar(*m_mb);
        frmCargaTXL carga(*m_mb);
        QStringList fallos;
        for (QDialog* d :
             std::initializer_list<QDialog*>{&config, &txl, &txf, &des, &tipo, &borrar, &carga}) {
            mostrar(*d);
            for (const QString& f :
                 recorrido::textosCortados(*d) + recorrido::sinNombreAccesible(*d))
                fallos.append(d->objectName() + ": " + f);
            d->hide();
        }
        QVERIFY2(fallos.isEmpty(), qPrintable(fallos.join("\n")));
    }
};

QTEST_MAIN(TestFrmDialogos)
#include "tst_frmdialogos.moc"
