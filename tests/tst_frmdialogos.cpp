// The dialogs themselves on the offscreen platform, driven by keys and
// clicks as a person drives them, and one transfer from the settings dialog
// to the virtual scale.
#include "BalanzaVirtual.h"
#include "Catalogo.h"
#include "CodePage.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "ScriptedInteraction.h"
#include "FileCommands.h"
#include "Recorrido.h"
#include "frmBorrar.h"
#include "frmCargaTXL.h"
#include "frmConfig.h"
#include "frmDES.h"
#include "frmEnvio.h"
#include "frmFlota.h"
#include "frmTXF.h"
#include "frmTXL.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QTableWidget>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <QtTest>
#include <memory>
#include <vector>

namespace {

template <typename T> T* hijo(QWidget& w, const QString& nombre)
{
    T* h = w.findChild<T*>(nombre);
    if (!h)
        qFatal("no child %s", qPrintable(nombre));
    return h;
}

// Typing as a keyboard of the language would: one key each, letters
// outside ASCII included.
void teclear(QWidget* w, const QString& texto)
{
    for (QChar c : texto)
        QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

// A fresh object of each dialog the main window opens (the transfer window
// aside: showing it sends).
std::vector<std::unique_ptr<QDialog>> dialogos(ModBase& mb, UserInteraction& ui)
{
    std::vector<std::unique_ptr<QDialog>> ds;
    ds.emplace_back(new frmConfig(mb, ui));
    ds.emplace_back(new frmTXL(mb));
    ds.emplace_back(new frmTXF(mb));
    ds.emplace_back(new frmDES(mb));
    ds.emplace_back(new frmTipoEtiq(mb));
    ds.emplace_back(new frmBorrar(mb));
    return ds;
}

// Calls `f` with the window named `nombre` when it is shown.
class AlMostrar : public QObject {
public:
    AlMostrar(const char* nombre, std::function<void(QWidget*)> f) : m_nombre(nombre), m_f(std::move(f))
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* o, QEvent* e) override
    {
        if (e->type() == QEvent::Show && o->isWidgetType() && o->objectName() == QLatin1String(m_nombre))
            m_f(static_cast<QWidget*>(o));
        return false;
    }

private:
    const char* m_nombre;
    std::function<void(QWidget*)> m_f;
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

    // --- transfer settings ---

    void configTeclas()
    {
        m_mb->Baudios = 2;
        m_mb->Paridad = 2;
        ScriptedInteraction ui;
        frmConfig w(*m_mb, ui);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(w.windowTitle(), m_mb->Textos(259));
        auto* baud = hijo<QComboBox>(w, "cmbBaud");
        auto* par = hijo<QComboBox>(w, "cmbPar");
        QCOMPARE(baud->currentText(), QStringLiteral("9600"));
        QCOMPARE(par->currentText(), m_mb->Textos(1324));
        // Nothing typed changes a list.
        baud->setFocus();
        QTest::keyClicks(baud, "4");
        QTest::keyClick(baud, Qt::Key_Down);
        QTest::keyClick(baud, Qt::Key_End);
        QCOMPARE(baud->currentIndex(), 2);
        // A title hands its focus to its list.
        hijo<QLineEdit>(w, "txtPar")->setFocus();
        QCOMPARE(QApplication::focusWidget(), par);

        auto* equipo = hijo<QLineEdit>(w, "txtEquipo");
        QCOMPARE(equipo->text(), QStringLiteral("1"));
        QCOMPARE(equipo->toolTip(), m_mb->Textos(323) + " 1 - 8");
        equipo->setFocus();
        QTest::keyClick(equipo, Qt::Key_Backspace);
        QTest::keyClicks(equipo, "09a-");
        QCOMPARE(equipo->text(), QString());
        QTest::keyClicks(equipo, "73");
        QCOMPARE(equipo->text(), QStringLiteral("7"));
        QTest::keyClick(equipo, Qt::Key_Backspace);
        // Left empty, the box reads 1 once the focus has gone.
        baud->setFocus();
        QCOMPARE(equipo->text(), QStringLiteral("1"));
    }

    void configCancelar()
    {
        m_mb->Puerto = 1;
        m_mb->NumEquipo = 5;
        ScriptedInteraction ui;
        frmConfig w(*m_mb, ui);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(hijo<QLineEdit>(w, "txtEquipo")->text(), QStringLiteral("5"));
        hijo<QComboBox>(w, "cmbCOM")->setCurrentIndex(3);
        hijo<QLineEdit>(w, "txtEquipo")->setText("2");
        QTest::mouseClick(hijo<QPushButton>(w, "CancelButton"), Qt::LeftButton);
        QVERIFY(!w.isVisible());
        QCOMPARE(w.result(), int(QDialog::Rejected));
        QCOMPARE(m_mb->Puerto, int16_t(1));
        QCOMPARE(m_mb->NumEquipo, int16_t(5));
        QVERIFY(!m_mb->SoloTextos);
    }

    // The settings dialog sends through the transfer window to the scale,
    // which then closes, and the settings chosen are kept.
    void configEnvia_data()
    {
        QTest::addColumn<QString>("boton");
        QTest::addColumn<int>("tramas");
        QTest::addColumn<int>("maximo");
        QTest::addColumn<bool>("soloTextos");
        QTest::newRow("whole label") << "OKButton" << 54 << 53 << false;
        QTest::newRow("free texts only") << "CommandTXL" << 17 << 15 << true;
    }
    void configEnvia()
    {
        QFETCH(QString, boton);
        QFETCH(int, tramas);
        QFETCH(int, maximo);
        QFETCH(bool, soloTextos);
        m_mb->Baudios = 0;
        m_mb->Paridad = 2;
        m_mb->BitsDatos = 0;
        m_mb->TextoLibre(0) = "CARNE";
        m_mb->Campos(1).Presente = "1";
        BalanzaVirtual balanza(*m_dir, {});
        QVERIFY(balanza.lista());

        ScriptedInteraction ui;
        frmConfig w(*m_mb, ui);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        // A pseudo-terminal carries no parity and 8 data bits only.
        hijo<QComboBox>(w, "cmbBaud")->setCurrentIndex(3);
        hijo<QComboBox>(w, "cmbPar")->setCurrentIndex(0);
        hijo<QComboBox>(w, "cmbDatos")->setCurrentIndex(1);
        auto* equipo = hijo<QLineEdit>(w, "txtEquipo");
        equipo->setFocus();
        QTest::keyClick(equipo, Qt::Key_Backspace);
        QTest::keyClicks(equipo, "3");

        // What the transfer window looks like while it runs.
        bool vista = false, sinCierre = false;
        QString titulo;
        int max = -1;
        // Seen as it comes on the screen: a short transfer is over before
        // any timer could look.
        AlMostrar espia("frmEnvio", [&](QWidget* t) {
            vista = true;
            titulo = t->windowTitle();
            // No title bar of the system's, whose buttons a window
            // manager would add: the title is the window's own.
            const Qt::WindowFlags f = t->windowHandle()->flags();
            sinCierre = (f & Qt::FramelessWindowHint) &&
                        !(f & (Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint |
                               Qt::WindowSystemMenuHint)) &&
                        t->findChild<QLabel*>("lblTitulo")->text() == t->windowTitle();
            max = t->findChild<QProgressBar*>("ProBar1")->maximum();
        });
        QTest::mouseClick(hijo<QPushButton>(w, boton), Qt::LeftButton);

        QVERIFY(vista);
        QCOMPARE(titulo, QStringLiteral("Enviando..."));
        QVERIFY(sinCierre);
        QCOMPARE(max, maximo);
        for (QWidget* t : QApplication::topLevelWidgets())
            QVERIFY(t->objectName() != "frmEnvio");
        QVERIFY(!w.isVisible());
        QCOMPARE(ui.log, QStringList{"message: " + m_mb->Textos(445)});
        const QList<QByteArray> recibidas = balanza.tramas();
        QCOMPARE(recibidas.size(), tramas);
        QVERIFY(recibidas.at(1).startsWith(QByteArray("\x02" "9:00CARNE ")));
        QCOMPARE(m_mb->Baudios, int16_t(3));
        QCOMPARE(m_mb->Paridad, int16_t(0));
        QCOMPARE(m_mb->BitsDatos, int16_t(1));
        QCOMPARE(m_mb->NumEquipo, int16_t(3));
        QCOMPARE(m_mb->SoloTextos, soloTextos);
    }

    // The settings dialog's third button shows the list of scales of the
    // program folder; the ticked ones get the label at once, each row with
    // its progress and result; the unticked one gets nothing. Without a
    // list, the person is told where to write one. Every label of the set
    // goes as saved, one transfer each; without a set file, nothing goes.
    void configEnviaVarias_data()
    {
        QTest::addColumn<bool>("conLista");
        QTest::addColumn<int>("todas"); // 0 the label; 1 every label, set saved; 2 every label, no set
        QTest::newRow("a list of four, one unticked") << true << 0;
        QTest::newRow("every label of the set") << true << 1;
        QTest::newRow("every label, no set file") << true << 2;
        QTest::newRow("no list") << false << 0;
    }
    void configEnviaVarias()
    {
        QFETCH(bool, conLista);
        QFETCH(int, todas);
        m_mb->Baudios = 3;
        m_mb->TextoLibre(0) = "CARNE";
        if (todas == 1) {
            HeadlessView vista;
            SilentInteraction nadie;
            FileCommands archivos{*m_mb, nadie, vista};
            archivos.controles.VSEtiqMin = 3;
            archivos.IniciaLineas();
            m_mb->NumEtiqueta = "3"; // the new model's first packing label
            m_mb->ArchivoActual = m_dir->file("set.pse");
            archivos.GuardarEtiquetaConjunto();
        }
        const int etiquetas = todas == 1 ? 6 : todas == 2 ? 0 : 1;
        using L = BalanzaVirtual::Linea;
        BalanzaVirtual buena(*m_dir, {}, L::Tcp, "good");
        BalanzaVirtual rechaza(*m_dir, {"--refuse", "1"}, L::Tcp, "refuse");
        BalanzaVirtual serie(*m_dir, {});
        QVERIFY(buena.lista() && rechaza.lista() && serie.lista());
        if (conLista)
            m_dir->write("scales.csv", ("name,port,equipo\nfirst," + buena.direccion() +
                                        ",1\nsecond," + buena.direccion() + ",2\nsaid no," +
                                        rechaza.direccion() + ",1\nleft out,COM1,1\n")
                                           .toUtf8());

        ScriptedInteraction ui;
        ui.savePaths.append(m_dir->file("trace.txt"));
        frmConfig w(*m_mb, ui);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        hijo<QComboBox>(w, "cmbPar")->setCurrentIndex(0);
        hijo<QComboBox>(w, "cmbDatos")->setCurrentIndex(1);

        QStringList resultados;
        bool cerrada = false;
        QTimer::singleShot(0, [&] {
            auto* f = qobject_cast<frmFlota*>(QApplication::activeModalWidget());
            if (!f)
                return;
            QVERIFY(QTest::qWaitForWindowExposed(f));
            auto* tabla = hijo<QTableWidget>(*f, "tblBalanzas");
            QCOMPARE(tabla->rowCount(), 4);
            auto* cuarta = hijo<QCheckBox>(*f, "chkBalanza3");
            QTest::mouseClick(cuarta, Qt::LeftButton);
            QVERIFY(!cuarta->isChecked());
            QTest::mouseClick(hijo<QCheckBox>(*f, "chkTraza"), Qt::LeftButton);
            if (todas)
                QTest::mouseClick(hijo<QCheckBox>(*f, "chkTodas"), Qt::LeftButton);
            QTest::mouseClick(hijo<QPushButton>(*f, "cmdEnviar"), Qt::LeftButton);
            QCOMPARE(hijo<QPushButton>(*f, "cmdCerrar")->isEnabled(), etiquetas == 0);
            QTRY_VERIFY_WITH_TIMEOUT(hijo<QPushButton>(*f, "cmdEnviar")->isEnabled(), 5000);
            for (int fila = 0; fila < 4; ++fila)
                resultados.append(tabla->item(fila, 4)->text());
            if (etiquetas)
                QCOMPARE(hijo<QProgressBar>(*f, "barBalanza0")->value(),
                         hijo<QProgressBar>(*f, "barBalanza0")->maximum());
            QTest::mouseClick(hijo<QPushButton>(*f, "cmdCerrar"), Qt::LeftButton);
            cerrada = true;
        });
        QTest::mouseClick(hijo<QPushButton>(w, "CommandVarias"), Qt::LeftButton);
        QVERIFY(!w.isVisible());
        if (!conLista) {
            QCOMPARE(ui.log, QStringList{"message: " + m_mb->Textos(2105) + "\n" +
                                         m_dir->file("scales.csv")});
            return;
        }
        QVERIFY(cerrada);
        QCOMPARE(buena.tramas().size(), 2 * 54 * etiquetas);
        QCOMPARE(rechaza.tramas().size(), etiquetas ? 1 : 0);
        QVERIFY(serie.tramas().isEmpty());
        if (etiquetas == 0) {
            QCOMPARE(ui.log, QStringList{"message: " + m_mb->Textos(2115)});
            QCOMPARE(resultados, QStringList(4));
            return;
        }
        // The trace goes where the person said, with both scales' frames.
        QCOMPARE(ui.log, QStringList{"save: " + m_mb->Textos(2113) + " (*.txt)|*.txt"});
        const QByteArray traza = m_dir->read("trace.txt");
        QCOMPARE(traza.count("\tfirst\t"), (2 * 54 + 1) * etiquetas);
        QVERIFY(traza.contains("\tsaid no\t"));
        QCOMPARE(resultados,
                 (QStringList{m_mb->Textos(2111), m_mb->Textos(2111),
                              (todas ? "V3: " : "") + QString(m_mb->Textos(989)).replace('\n', ' '),
                              QString()}));
    }

    // --- text boxes: capitals as typed, 25 characters ---

    void txlTeclear()
    {
        frmTXL w(*m_mb);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QVERIFY(!hijo<QCheckBox>(w, "ChTXL1")->isVisible());
        auto* ch = hijo<QCheckBox>(w, "ChTXL6");
        QCOMPARE(ch->text(), "1 " + m_mb->Textos(1307));
        auto* caja = hijo<QLineEdit>(w, "TextTXL6");
        QVERIFY(!caja->isVisible());
        QTest::mouseClick(ch, Qt::LeftButton);
        QVERIFY(caja->isVisible() && caja->isEnabled());
        QVERIFY(!hijo<QCheckBox>(w, "ChTXL7")->isEnabled());
        caja->setFocus();
        teclear(caja, QStringLiteral("jamón ñandú serrano del pais"));
        QCOMPARE(caja->text(), QStringLiteral("JAMóN ÑANDú SERRANO DEL P"));
        // Enter moves on to OK, and only that.
        QTest::keyClick(caja, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), hijo<QPushButton>(w, "OKButton"));
        QVERIFY(w.isVisible());
        QTest::mouseClick(hijo<QPushButton>(w, "OKButton"), Qt::LeftButton);
        QVERIFY(w.isVisible());
        QCOMPARE(m_mb->TextoLibre(5), encodeFor(1, QStringLiteral("JAMóN ÑANDú SERRANO DEL P")));
        QVERIFY(!caja->isEnabled() && !ch->isChecked());
        QVERIFY(hijo<QLabel>(w, "imTXLprog6")->isVisible());

        QTest::mouseClick(hijo<QPushButton>(w, "SalirButton"), Qt::LeftButton);
        QVERIFY(!w.isVisible());
        QVERIFY(m_mb->TXLPendiente(6));
        QVERIFY(m_dir->exists("freetxl.sft"));
    }

    void txlCancelar()
    {
        m_mb->ModeloNuevo = 0;
        frmTXL w(*m_mb);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(hijo<QCheckBox>(w, "ChTXL1")->text(), "1 " + m_mb->Textos(1307));
        QVERIFY(!hijo<QCheckBox>(w, "ChTXL6")->isVisible());
        QTest::mouseClick(hijo<QCheckBox>(w, "ChTXL2"), Qt::LeftButton);
        QTest::keyClicks(hijo<QLineEdit>(w, "TextTXL2"), "pan");
        QTest::mouseClick(hijo<QPushButton>(w, "OKButton"), Qt::LeftButton);
        QTest::mouseClick(hijo<QPushButton>(w, "CancelButton"), Qt::LeftButton);
        QVERIFY(!w.isVisible());
        QCOMPARE(m_mb->TextoLibre(1), QByteArray("PAN"));
        QVERIFY(!m_mb->TXLPendiente(2));
        QVERIFY(!m_dir->exists("freetxl.sft"));
    }

    void txfTeclear()
    {
        m_mb->Idioma = 7;
        QCOMPARE(CargarTextos(*m_mb, 7), int16_t(0));
        m_mb->TextoFijo(0) = QByteArray("ABC") + QByteArray(22, ' ');
        frmTXF w(*m_mb);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(hijo<QLabel>(w, "labelTXF2")->text(), m_mb->Textos(1337) + " 2:");
        auto* uno = hijo<QLineEdit>(w, "TextTXF1");
        auto* dos = hijo<QLineEdit>(w, "TextTXF2");
        QCOMPARE(uno->text(), QStringLiteral("ABC"));
        // Enter in an empty box stays; in a filled one it moves on.
        dos->setFocus();
        QTest::keyClick(dos, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), dos);
        teclear(dos, QStringLiteral("fin ρ") + QString(30, QLatin1Char('x')));
        QCOMPARE(dos->text().size(), 25);
        QVERIFY(dos->text().startsWith(QStringLiteral("FIN ΡXX")));
        QTest::keyClick(dos, Qt::Key_Enter);
        QCOMPARE(QApplication::focusWidget(), hijo<QPushButton>(w, "OKButton"));
        QVERIFY(w.isVisible());
        QTest::mouseClick(hijo<QPushButton>(w, "OKButton"), Qt::LeftButton);
        QVERIFY(!w.isVisible());
        QCOMPARE(m_mb->TextoFijo(0), QByteArray("ABC"));
        QCOMPARE(m_mb->TextoFijo(1), encodeFor(7, dos->text()));
        QVERIFY(m_mb->Modificado);
    }

    void txfCancelar()
    {
        m_mb->TextoFijo(1) = "KEEP";
        frmTXF w(*m_mb);
        w.show();
        QTest::keyClicks(hijo<QLineEdit>(w, "TextTXF2"), "x");
        QTest::mouseClick(hijo<QPushButton>(w, "CancelButton"), Qt::LeftButton);
        QCOMPARE(m_mb->TextoFijo(1), QByteArray("KEEP"));
        QVERIFY(!m_mb->Modificado);
    }

    // --- descriptive lines, label kind, delete ---

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
        QVERIFY(!w.isVisible());
        QCOMPARE(m_mb->Campos(4).Presente, QByteArray("0"));
        QVERIFY(m_mb->DESPendiente(10));
    }

    void tipoEtiqBotones()
    {
        m_mb->TipoEtiqueta = "V";
        m_mb->NombreEtiqueta = "ABC";
        {
            frmTipoEtiq w(*m_mb);
            w.show();
            QVERIFY(hijo<QRadioButton>(w, "TipoEtiq1")->isChecked());
            QTest::mouseClick(hijo<QRadioButton>(w, "TipoEtiq0"), Qt::LeftButton);
            QTest::mouseClick(hijo<QPushButton>(w, "CancelButton"), Qt::LeftButton);
        }
        QCOMPARE(m_mb->TipoEtiqueta, QByteArray("V"));
        QCOMPARE(m_mb->NombreEtiqueta, QByteArray("ABC"));
        frmTipoEtiq w(*m_mb);
        w.show();
        QTest::mouseClick(hijo<QRadioButton>(w, "TipoEtiq0"), Qt::LeftButton);
        QTest::mouseClick(hijo<QPushButton>(w, "OKButton"), Qt::LeftButton);
        QCOMPARE(m_mb->TipoEtiqueta, QByteArray("T"));
        QVERIFY(m_mb->NombreEtiqueta.isEmpty());
    }

    void borrarBotones()
    {
        m_mb->TipoEtiqueta = "T";
        for (int n : {5, 13, 20, 27})
            m_mb->Campos(n).Presente = "1";
        frmBorrar w(*m_mb);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QVERIFY(!hijo<QCheckBox>(w, "ChBorrarPre")->isEnabled());
        QVERIFY(hijo<QCheckBox>(w, "ChBorrarOpe")->isEnabled());
        QVERIFY(!hijo<QCheckBox>(w, "ChBorrarLib1")->isVisible());
        QVERIFY(hijo<QCheckBox>(w, "ChBorrarLote")->isVisible());
        QTest::mouseClick(hijo<QPushButton>(w, "CommandSelTodo"), Qt::LeftButton);
        QVERIFY(hijo<QCheckBox>(w, "ChBorrarEti")->isChecked());
        // Untick one of them by hand: it stays on the label.
        QTest::mouseClick(hijo<QCheckBox>(w, "ChBorrarDes5"), Qt::LeftButton);
        QTest::mouseClick(hijo<QPushButton>(w, "OKButton"), Qt::LeftButton);
        QVERIFY(!w.isVisible());
        QCOMPARE(m_mb->Campos(5).Presente, QByteArray("1"));
        for (int n : {13, 20, 27})
            QCOMPARE(m_mb->Campos(n).Presente, QByteArray("0"));
        QVERIFY(m_mb->Modificado);
    }

    // Every dialog in every language: each caption fits its widget, each
    // control has a name a screen reader says.
    void recorrido_data() { recorrido::filasIdiomas(); }

    void recorrido()
    {
        QFETCH(int, idioma);
        m_mb->Idioma = static_cast<int16_t>(idioma);
        QCOMPARE(CargarTextos(*m_mb, m_mb->Idioma), int16_t(0));
        ScriptedInteraction ui;
        std::vector<std::unique_ptr<QDialog>> ds = dialogos(*m_mb, ui);
        ds.emplace_back(new frmCargaTXL(*m_mb));
        QStringList fallos;
        for (auto& d : ds) {
            d->show();
            QVERIFY(QTest::qWaitForWindowExposed(d.get()));
            for (const QString& f : recorrido::textosCortados(*d) + recorrido::sinNombreAccesible(*d))
                fallos.append(d->objectName() + ": " + f);
            d->hide();
        }
        QVERIFY2(fallos.isEmpty(), qPrintable(fallos.join("\n")));
    }

    // Pictures of every dialog for a person to look at, in Spanish and in
    // Greek, when KORVO_SHOTS names a folder; skipped otherwise.
    void capturas()
    {
        const QString carpeta = qEnvironmentVariable("KORVO_SHOTS");
        if (carpeta.isEmpty())
            QSKIP("KORVO_SHOTS is not set");
        for (int idioma : {1, 7}) {
            m_mb->Idioma = static_cast<int16_t>(idioma);
            QCOMPARE(CargarTextos(*m_mb, m_mb->Idioma), int16_t(0));
            m_mb->TextoLibre(5) = "CARNE";
            m_mb->TextoLibre(6) = encodeFor(m_mb->Idioma, QStringLiteral("ΘΕΑ"));
            m_mb->TextoFijo(0) = "LINEA UNO";
            for (int n : {1, 3, 11, 13, 26, 27})
                m_mb->Campos(n).Presente = "1";
            ScriptedInteraction ui;
            for (auto& d : dialogos(*m_mb, ui)) {
                d->show();
                QVERIFY(QTest::qWaitForWindowExposed(d.get()));
                QVERIFY(d->grab().save(QStringLiteral("%1/%2-%3.png")
                                           .arg(carpeta, d->objectName())
                                           .arg(idioma)));
            }
            // The transfer window, halfway, never shown: showing it sends.
            frmEnvio envio(*m_mb, ui);
            envio.setTexto(m_mb->Textos(516) + " " + m_mb->Textos(1307) + "...");
            envio.setValor(7);
            envio.adjustSize();
            QVERIFY(envio.grab().save(QStringLiteral("%1/frmEnvio-%2.png").arg(carpeta).arg(idioma)));
        }
    }
};

QTEST_MAIN(TestFrmDialogos)
#include "tst_frmdialogos.moc"
