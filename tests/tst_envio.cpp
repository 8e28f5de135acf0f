// Whole transfers over a real serial port: QSerialPort on the pseudo-
// terminal of the virtual scale, which logs every byte it received; and the
// same over the network. Both models, Polish, and every way a port, a scale
// or a line lets a transfer down.
#include "BalanzaVirtual.h"
#include "CodePage.h"
#include "Codigos.h"
#include "Envio.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "PuertoSerieQt.h"
#include "PuertoTcp.h"
#include "RuntimeErrors.h"
#include "ScriptedInteraction.h"

#include <QRegularExpression>
#include <QTcpServer>
#include <QtTest>

namespace {

struct ProgresoRegistrado : ProgresoEnvio {
    int valor = -1;
    QStringList textos;
    void setMaximo(int) override {}
    void setValor(int v) override { valor = v; }
    void setTexto(const QString& t) override { textos.append(t); }
};

// A program folder with the catalogue and the Polish character table, a
// label whose free text 1 is in the language's code page, and a person and
// a progress bar that log what they get.
struct Entorno {
    ProgramDir pd;
    ModBase mb;
    ScriptedInteraction persona;
    ProgresoRegistrado progreso;

    Entorno(int idioma, int modelo, const QByteArray& polaco = fuente("polish.cht"))
    {
        pd.prepare(mb, idioma);
        pd.write("polish.cht", polaco);
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        mb.BitsDatos = 1;
        mb.NumEquipo = 2;
        mb.TextoLibre(0) = encodeFor(mb.Idioma, idioma == 8 ? QStringLiteral("ŁÓDŹ ĄĘ")
                                                            : QStringLiteral("CARNE~ÑO"));
    }

    // The messages the person was to see, as text ids: every number of three
    // digits or more stands for the catalogue's text of that id.
    QStringList mensajes(QStringList ids, const QString& puerto = {}) const
    {
        static const QRegularExpression id(QStringLiteral("\\d{3,}"));
        for (QString& m : ids) {
            QRegularExpressionMatch n;
            for (qsizetype desde = 0; (n = id.match(m, desde)).hasMatch();) {
                const QString texto = mb.Textos(n.captured().toInt());
                m.replace(n.capturedStart(), n.capturedLength(), texto);
                desde = n.capturedStart() + texto.size();
            }
            m = QStringLiteral("message: ") + m.replace(QStringLiteral("%1"), puerto);
        }
        return ids;
    }
};

using L = BalanzaVirtual::Linea;

// A whole transfer: the line, what the scale answers (its options) and how
// it ends. With no scale, the options are "link" and what COM1 names.
struct Caso {
    L linea;
    QStringList opciones;
    int recibidas;        // frames the scale received: the first of the label's stream
    QStringList mensajes; // text ids, joined by blanks; "(…)" the system's own words
    int avance;           // where the progress bar stopped
    int modelo = 1;
    int minimoMs = 0; // the waits the transfer must have made
    int idioma = 1;
    QByteArray libre1 = {}; // free text 1 as the scale got it, when told
    int bitsDatos = 1;
};

} // namespace

Q_DECLARE_METATYPE(Caso)

class TestEnvio : public QObject {
    Q_OBJECT

private slots:
    void transferencia_data()
    {
        QTest::addColumn<Caso>("caso");
        const QByteArray carne = QByteArray("CARNE~") + bytes({148}) + "O";
        const QByteArray polaco = bytes({157, 224, 'D', 141, ' ', '@', 168});
        // The bytes, the waits and the messages of the network are the
        // serial line's, but for the port's own failures.
        for (const L l : {L::Pty, L::Tcp}) {
            const auto fila = [l](const char* nombre) -> QTestData& {
                return QTest::addRow("%s%s", nombre, l == L::Tcp ? ", network" : "");
            };
            const QString muda = l == L::Tcp ? "260: %1 (2103)\n989" : "989";
            const QString cortada = l == L::Tcp ? "260: %1 (2102)\n989" : "260: %1 (…)\n989";
            fila("new model") << Caso{l, {}, 54, {"445"}, 52, 1, 0, 2, carne};
            fila("Polish, old model") << Caso{l, {}, 33, {"445"}, 31, 0, 0, 8, polaco};
            fila("opening refused with 0x15")
                << Caso{l, {"--refuse-opening"}, 1, {"544", "989"}, 0};
            fila("opening unanswered") << Caso{l, {"--silent", "1"}, 1, {muda}, 0, 1, 3000};
            fila("free text 3 refused") << Caso{l, {"--refuse", "4"}, 4, {"1327 1307"}, 2};
            // The second currency failing lets the rest of the fields go, and no more.
            fila("field 15 refused") << Caso{l, {"--refuse", "31"}, 52, {"1327 258 623"}, 50};
            fila("field 15 and 16 refused")
                << Caso{l, {"--refuse", "31,32"}, 32, QStringList(2, "1327 258 623"), 29};
            fila("fixed texts refused") << Caso{l, {"--refuse", "53"}, 53, {"1327 1337"}, 51};
            fila("closing refused") << Caso{l, {"--refuse", "54"}, 54, {"1328"}, 52};
            fila("late, within the time")
                << Caso{l, {"--delay", "2000", "--delay-at", "3"}, 54, {"445"}, 52, 1, 2000};
            fila("0x0D inside replies in pieces")
                << Caso{l, {"--cr-inside", "--pieces", "2", "--piece-gap", "20"}, 54, {"445"}, 52};
            // The time is not stretched by a reply that began in it.
            fila("last piece after the time")
                << Caso{l, {"--pieces", "2", "--piece-gap", "3300"}, 1, {"989"}, 0, 1, 3000};
            // A port that goes away ends the transfer at once with one
            // message that names it and why; nothing else goes out.
            fila("the scale goes away at field 4")
                << Caso{l, {"--vanish", "20"}, 20, {cortada}, 18};
        }
        // So does a port that cannot be opened or refuses a setting.
        QTest::newRow("no device behind COM1")
            << Caso{L::Pty, {"link", "nothing-here"}, 0, {"260: %1 (…)\n989"}, 0};
        QTest::newRow("7 data bits")
            << Caso{L::Pty, {}, 0, {"260: %1 (…)\n263: 7\n989"}, 0, 1, 0, 1, {}, 0};
        QTcpServer cerrado;
        QVERIFY(cerrado.listen(QHostAddress::LocalHost));
        const QString nadie = QStringLiteral("tcp://127.0.0.1:%1").arg(cerrado.serverPort());
        cerrado.close();
        QTest::newRow("connection refused")
            << Caso{L::Pty, {"link", nadie}, 0, {"260: %1 (2101)\n989"}, 0};
    }

    void transferencia()
    {
        QFETCH(Caso, caso);
        Entorno e(caso.idioma, caso.modelo);
        e.mb.BitsDatos = static_cast<int16_t>(caso.bitsDatos);
        std::unique_ptr<BalanzaVirtual> balanza;
        QString puerto = caso.opciones.value(1);
        if (caso.opciones.value(0) == "link") {
            QDir().mkpath(e.pd.file("dosdevices"));
            QVERIFY(QFile::link(puerto, e.pd.file("dosdevices/com1")));
        } else {
            balanza = std::make_unique<BalanzaVirtual>(e.pd, caso.opciones, caso.linea);
            QVERIFY(balanza->lista());
            puerto = balanza->direccion();
        }
        if (!puerto.startsWith("tcp:"))
            puerto = e.pd.file("dosdevices/com1");
        const auto com1 = crearPuerto(e.mb.programDir, QStringLiteral("COM1"));
        QElapsedTimer reloj;
        reloj.start();
        const int16_t resultado = EnviarEtiqueta(e.mb, *com1, e.persona, e.progreso);
        const qint64 ms = reloj.elapsed();

        QCOMPARE(resultado, caso.mensajes.last() == "445" ? 0 : 1);
        QVERIFY(!com1->portOpen());
        // What the system says of a serial port that fails is its own.
        static const QRegularExpression sistema(QStringLiteral("(: /\\S+) \\(.*\\)$"),
                                                QRegularExpression::MultilineOption);
        for (QString& m : e.persona.log)
            m.replace(sistema, QStringLiteral("\\1 (…)"));
        QCOMPARE(e.persona.log, e.mensajes(caso.mensajes, puerto));
        if (caso.idioma == 2) // the progress line names what is going out
            QCOMPARE(e.progreso.textos,
                     (QStringList{QString(), "Sending Free Text...", "Sending fields of Label...",
                                  "Sending Fixed Text Label..."}));
        QCOMPARE(e.progreso.valor, caso.avance);

        // Byte for byte what the stream of the label holds, up to where it stopped.
        const QList<QByteArray> llegadas = balanza ? balanza->tramas() : QList<QByteArray>();
        QCOMPARE(llegadas, TramasEtiqueta(e.mb, e.mb.NumEquipo, false).mid(0, caso.recibidas));
        if (!caso.libre1.isEmpty())
            QCOMPARE(llegadas.at(1).mid(caso.modelo ? 5 : 4, caso.libre1.size()).toHex(' '),
                     caso.libre1.toHex(' '));
        // Never a second wait where one is due, never a hang.
        QVERIFY(ms >= caso.minimoMs);
        QVERIFY2(ms < caso.minimoMs + 2900, qPrintable(QString::number(ms)));
    }

    // A reply that comes after its time, once the port is closed, is not
    // taken for the reply to the next transfer's opening: opening the port
    // empties what waited in it.
    void respuestaTardiaVaciada()
    {
        Entorno e(2, 0);
        e.mb.SoloTextos = true;
        BalanzaVirtual balanza(e.pd, {"--refuse", "1", "--delay", "3200", "--first-transfer-only"});
        QVERIFY(balanza.lista());
        {
            PuertoSerieQt puerto(e.mb.programDir);
            QCOMPARE(EnviarEtiqueta(e.mb, puerto, e.persona, e.progreso), 1);
        }
        QTest::qWait(600); // the refusal arrives on a closed port
        PuertoSerieQt puerto(e.mb.programDir);
        QCOMPARE(EnviarEtiqueta(e.mb, puerto, e.persona, e.progreso), 0);
        QCOMPARE(e.persona.log, e.mensajes({"989", "445"}));
    }

    // A character table that ends too soon ends the program at the first
    // text that needs it: nothing more goes out, no closing frame.
    void tablaCorta()
    {
        Entorno e(8, 1, fuente("polish.cht").left(200));
        BalanzaVirtual balanza(e.pd, {});
        QVERIFY(balanza.lista());
        PuertoSerieQt puerto(e.mb.programDir);
        QCOMPARE(errorNumber([&] { EnviarEtiqueta(e.mb, puerto, e.persona, e.progreso); }), 62);
        QVERIFY(!puerto.portOpen());
        QCOMPARE(balanza.tramas().size(), 1);
    }

    // COMn is the program folder's dosdevices/comN when there is one; it
    // reaches a network scale when that entry is a link whose target is the
    // address (see the transfers) or a small file that holds it.
    void nombresDePuerto_data()
    {
        QTest::addColumn<QByteArray>("archivo"); // dosdevices/com2, when there is one
        QTest::addColumn<QString>("nombre");     // relative to the folder, or absolute
        QTest::newRow("COM2 without an entry") << QByteArray() << "/dev/ttyS1";
        QTest::newRow("a file holding an address")
            << QByteArray("tcp://[::1]:4002\n") << "tcp://[::1]:4002";
        QTest::newRow("a file of anything else") << QByteArray("hello") << "dosdevices/com2";
    }

    void nombresDePuerto()
    {
        QFETCH(QByteArray, archivo);
        QFETCH(QString, nombre);
        ProgramDir pd;
        if (!archivo.isEmpty())
            pd.write("dosdevices/com2", archivo);
        // The port a transfer is given keeps its device whatever number it sets.
        const auto puerto = crearPuerto(pd.path(), QStringLiteral("COM2"));
        puerto->setCommPort(4);
        const auto* serie = qobject_cast<PuertoSerieQt*>(puerto.get());
        QCOMPARE(serie ? serie->nombre() : qobject_cast<PuertoTcp*>(puerto.get())->nombre(),
                 nombre.startsWith("dosdevices") ? pd.file(nombre) : nombre);
    }
};

QTEST_GUILESS_MAIN(TestEnvio)
#include "tst_envio.moc"
