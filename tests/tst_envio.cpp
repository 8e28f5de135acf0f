// Whole transfers over a real serial port: QSerialPort on the pseudo-
// terminal of the virtual scale, which logs every byte it received. Both
// models, free texts only, Greek and Polish, and every way a scale or a
// line lets a transfer down.
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
    int maximo = -1;
    int valor = -1;
    QStringList textos;
    void setMaximo(int m) override { maximo = m; }
    void setValor(int v) override { valor = v; }
    void setTexto(const QString& t) override { textos.append(t); }
};

// A program folder with the catalogue and both character tables, a label
// with something in every part of it in the language's code page, and a
// person and a progress bar that log what they get.
struct Entorno {
    ProgramDir pd;
    ModBase mb;
    ScriptedInteraction persona;
    ProgresoRegistrado progreso;

    Entorno(int idioma, int modelo, const QByteArray& polaco = fuente("polish.cht"))
    {
        pd.prepare(mb, idioma);
        pd.write("greek.cht", fuente("greek.cht"));
        pd.write("polish.cht", polaco);
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        mb.BitsDatos = 1;
        mb.NumEquipo = 2;
        mb.NumEtiqueta = modelo ? "3" : "1";
        mb.NombreEtiqueta = "PESCADO";
        const QString libre1 = idioma == 7   ? QStringLiteral("ΘΕΑ ΚΡΕΑΣ")
                               : idioma == 8 ? QStringLiteral("ŁÓDŹ ĄĘ")
                                             : QStringLiteral("CARNE~ÑO");
        mb.TextoLibre(0) = encodeFor(mb.Idioma, libre1);
        mb.TextoLibre(2) = "SECOND TEXT OF MORE THAN TWENTY-FIVE";
        mb.TextoFijo(0) =
            encodeFor(mb.Idioma, idioma == 7 ? QStringLiteral("ΔΕΛΤΑ") : QStringLiteral("ÁRBOL"));
        mb.TextoFijo(1) = "FIN";
        for (int n : {1, 11, 13, 15, 16, 18, 26, 36}) {
            Campo& c = mb.Campos(n);
            c.Presente = "1";
            c.PosHor = static_cast<int16_t>(5 + n);
            c.PosVer = static_cast<int16_t>(10 + n);
            c.Tamano = QByteArray::number(n % 4);
        }
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

// A whole transfer: what the scale answers (its options) and how it ends.
struct Caso {
    int modelo;
    int idioma;
    bool soloTextos;
    QStringList opciones;
    int recibidas;        // frames the scale received: the first of the label's stream
    QStringList mensajes; // text ids, joined by blanks
    int avance;           // where the progress bar stopped
    int minimoMs;         // the waits the transfer must have made
    QByteArray libre1;    // free text 1 as the scale got it, when told
};

} // namespace

Q_DECLARE_METATYPE(Caso)

class TestEnvio : public QObject {
    Q_OBJECT

private slots:
    void transferencia_data()
    {
        QTest::addColumn<Caso>("caso");
        using S = QStringList;
        const QByteArray carne = QByteArray("CARNE~") + bytes({148}) + "O";
        const QByteArray griego = bytes({0x87, 'E', 'A', ' ', 'K', 'P', 'E', 'A', 145});
        const QByteArray polaco = bytes({157, 224, 'D', 141, ' ', '@', 168});
        QTest::newRow("new model") << Caso{1, 1, false, {}, 54, {"445"}, 52, 0, carne};
        QTest::newRow("Greek") << Caso{1, 7, false, {}, 54, {"445"}, 52, 0, griego};
        QTest::newRow("Polish, old model") << Caso{0, 8, false, {}, 33, {"445"}, 31, 0, polaco};
        QTest::newRow("opening refused with 0x15")
            << Caso{1, 1, false, {"--refuse-opening"}, 1, {"544", "989"}, 0, 0, {}};
        QTest::newRow("opening unanswered")
            << Caso{1, 1, false, {"--silent", "1"}, 1, {"989"}, 0, 3000, {}};
        QTest::newRow("free text 3 refused")
            << Caso{1, 1, false, {"--refuse", "4"}, 4, {"1327 1307"}, 2, 0, {}};
        // The second currency failing lets the rest of the fields go, and no more.
        QTest::newRow("field 15 refused")
            << Caso{1, 1, false, {"--refuse", "31"}, 52, {"1327 258 623"}, 50, 0, {}};
        QTest::newRow("field 15 and 16 refused")
            << Caso{1, 1, false, {"--refuse", "31,32"}, 32, S(2, "1327 258 623"), 29, 0, {}};
        QTest::newRow("fixed texts refused")
            << Caso{1, 1, false, {"--refuse", "53"}, 53, {"1327 1337"}, 51, 0, {}};
        QTest::newRow("closing refused")
            << Caso{1, 1, false, {"--refuse", "54"}, 54, {"1328"}, 52, 0, {}};
        QTest::newRow("late, within the time")
            << Caso{0, 1, true, {"--delay", "2000", "--delay-at", "3"}, 7, {"445"}, 5, 2000, {}};
        QTest::newRow("0x0D inside replies in pieces") << Caso{
            0,  1, false, {"--cr-inside", "--pieces", "2", "--piece-gap", "20"}, 33, {"445"},
            31, 0, {}};
        // The time is not stretched by a reply that began in it.
        QTest::newRow("last piece after the time")
            << Caso{0, 1, false, {"--pieces", "2", "--piece-gap", "3300"}, 1, {"989"}, 0, 3000, {}};
    }

    void transferencia() { transferir(BalanzaVirtual::Linea::Pty); }

    // The same over the network: the scale's address in the COM1 link of
    // the program folder. The bytes, the waits and the messages are the
    // serial line's; a scale that takes the connection and never answers
    // is told as such.
    void transferenciaTcp_data() { transferencia_data(); }
    void transferenciaTcp() { transferir(BalanzaVirtual::Linea::Tcp); }

private:
    void transferir(BalanzaVirtual::Linea linea)
    {
        QFETCH(Caso, caso);
        Entorno e(caso.idioma, caso.modelo);
        e.mb.SoloTextos = caso.soloTextos;
        BalanzaVirtual balanza(e.pd, caso.opciones, linea);
        QVERIFY(balanza.lista());
        const auto puerto = crearPuerto(e.mb.programDir, QStringLiteral("COM1"));
        QCOMPARE(qobject_cast<PuertoTcp*>(puerto.get()) != nullptr,
                 linea == BalanzaVirtual::Linea::Tcp);
        QElapsedTimer reloj;
        reloj.start();
        const int16_t resultado = EnviarEtiqueta(e.mb, *puerto, e.persona, e.progreso);
        const qint64 ms = reloj.elapsed();

        QCOMPARE(resultado, caso.mensajes.last() == "445" ? 0 : 1);
        if (linea == BalanzaVirtual::Linea::Tcp && caso.opciones == QStringList{"--silent", "1"})
            caso.mensajes = {"260: %1 (2103)\n989"};
        QCOMPARE(e.persona.log, e.mensajes(caso.mensajes, balanza.direccion()));

        // Byte for byte what the stream of the label holds, up to where it stopped.
        const QList<QByteArray> flujo = TramasEtiqueta(e.mb, e.mb.NumEquipo, caso.soloTextos);
        const QList<QByteArray> llegadas = balanza.tramas();
        QCOMPARE(llegadas.size(), caso.recibidas);
        for (int i = 0; i < caso.recibidas; ++i)
            QCOMPARE(llegadas.at(i).toHex(' '), flujo.at(i).toHex(' '));
        if (!caso.libre1.isEmpty())
            QCOMPARE(llegadas.at(1).mid(caso.modelo ? 5 : 4, caso.libre1.size()).toHex(' '),
                     caso.libre1.toHex(' '));
        QCOMPARE(e.progreso.maximo,
                 caso.soloTextos ? (caso.modelo ? 15 : 5) : (caso.modelo ? 53 : 32));
        QCOMPARE(e.progreso.valor, caso.avance);
        // Never a second wait where one is due, never a hang.
        QVERIFY(ms >= caso.minimoMs);
        QVERIFY2(ms < caso.minimoMs + 2900, qPrintable(QString::number(ms)));
    }

private slots:
    // The progress line names what is going out.
    void lineaDeProgreso()
    {
        Entorno e(2, 1);
        BalanzaVirtual balanza(e.pd, {});
        QVERIFY(balanza.lista());
        PuertoSerieQt puerto(e.mb.programDir);
        QCOMPARE(EnviarEtiqueta(e.mb, puerto, e.persona, e.progreso), 0);
        QCOMPARE(e.progreso.textos,
                 (QStringList{QString(), "Sending Free Text...", "Sending fields of Label...",
                              "Sending Fixed Text Label..."}));
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
        QCOMPARE(balanza.tramas().size(), 1 + 7);
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
        QVERIFY(e.persona.log.isEmpty());
    }

    // A port that cannot be opened, refuses a setting or goes away ends the
    // transfer at once with one message that names it and why; nothing else
    // goes out.
    void fallosDelPuerto_data()
    {
        // What COM1 reaches: the virtual scale on a pseudo-terminal (PTY) or
        // the network (TCP), a network port nobody listens on (CLOSED), or
        // what its link names.
        QTest::addColumn<QString>("com1");
        QTest::addColumn<QStringList>("opciones"); // the scale's
        QTest::addColumn<QList<int>>("ajustes");   // parity and data bits
        QTest::addColumn<QString>("mensaje");      // its first line begins so; %1 the port
        QTest::addColumn<int>("recibidas");
        using S = QStringList;
        using L = QList<int>;
        QTest::newRow("no device behind COM1")
            << "nothing-here" << S() << L{0, 1} << "260: %1\n989" << 0;
        QTest::newRow("even parity on a pseudo-terminal")
            << "PTY" << S() << L{1, 1} << "260: %1\n262: 1323\n989" << 0;
        QTest::newRow("7 data bits") << "PTY" << S() << L{0, 0} << "260: %1\n263: 7\n989" << 0;
        QTest::newRow("the scale goes away at field 4")
            << "PTY" << S{"--vanish", "20"} << L{0, 1} << "260: %1\n989" << 20;
        QTest::newRow("no such host")
            << "tcp://no..host:4000" << S() << L{0, 1} << "260: %1 (2100)\n989" << 0;
        QTest::newRow("connection refused")
            << "CLOSED" << S() << L{0, 1} << "260: %1 (2101)\n989" << 0;
        QTest::newRow("dropped at field 4")
            << "TCP" << S{"--vanish", "20"} << L{0, 1} << "260: %1 (2102)\n989" << 20;
    }

    void fallosDelPuerto()
    {
        QFETCH(QString, com1);
        QFETCH(QStringList, opciones);
        QFETCH(QList<int>, ajustes);
        QFETCH(QString, mensaje);
        Entorno e(2, 1);
        e.mb.Paridad = static_cast<int16_t>(ajustes[0]);
        e.mb.BitsDatos = static_cast<int16_t>(ajustes[1]);
        std::unique_ptr<BalanzaVirtual> balanza;
        if (com1 == "PTY" || com1 == "TCP") {
            balanza = std::make_unique<BalanzaVirtual>(e.pd, opciones,
                                                       com1 == "PTY" ? BalanzaVirtual::Linea::Pty
                                                                     : BalanzaVirtual::Linea::Tcp);
            QVERIFY(balanza->lista());
            com1 = balanza->direccion();
        } else {
            if (com1 == "CLOSED") {
                QTcpServer cerrado;
                QVERIFY(cerrado.listen(QHostAddress::LocalHost));
                com1 = QStringLiteral("tcp://127.0.0.1:%1").arg(cerrado.serverPort());
            }
            QDir().mkpath(e.pd.file("dosdevices"));
            QVERIFY(QFile::link(com1, e.pd.file("dosdevices/com1")));
        }
        const auto puerto = crearPuerto(e.mb.programDir, QStringLiteral("COM1"));
        QElapsedTimer reloj;
        reloj.start();
        QCOMPARE(EnviarEtiqueta(e.mb, *puerto, e.persona, e.progreso), 1);
        QVERIFY(reloj.elapsed() < 2500);
        QVERIFY(!puerto->portOpen());

        const QString nombre = com1.startsWith("tcp:") ? com1 : e.pd.file("dosdevices/com1");
        QCOMPARE(e.persona.log.size(), 1);
        const QStringList visto = e.persona.log.first().split('\n');
        const QStringList esperado = e.mensajes({mensaje}, nombre).first().split('\n');
        QVERIFY2(visto.first().startsWith(esperado.first()), qPrintable(visto.first()));
        QCOMPARE(visto.mid(1), esperado.mid(1));
        if (balanza)
            QTEST(int(balanza->tramas().size()), "recibidas");
    }

    // COMn is the program folder's dosdevices/comN when there is one (see
    // the failures above); it reaches a network scale when that entry is a
    // link whose target is the address (see the transfers over the network)
    // or a small file that holds it.
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
        const QString esperado = nombre.startsWith("dosdevices") ? pd.file(nombre) : nombre;
        QCOMPARE(nombreDeCom(pd.path(), 2), esperado);
        // The port a transfer is given keeps its device whatever number it sets.
        const auto puerto = crearPuerto(pd.path(), QStringLiteral("COM2"));
        auto* serie = qobject_cast<PuertoSerieQt*>(puerto.get());
        QCOMPARE(serie == nullptr, nombre.startsWith("tcp:"));
        if (serie) {
            serie->setCommPort(4);
            QCOMPARE(serie->nombre(), esperado);
        }
    }
};

QTEST_GUILESS_MAIN(TestEnvio)
#include "tst_envio.moc"
