// Whole transfers over a real serial port: QSerialPort on the pseudo-
// terminal of the virtual scale, which logs every byte it received. Both
// models, free texts only, Greek and Polish, and every way a scale or a
// line lets a transfer down.
#include "BalanzaVirtual.h"
#include "Catalogo.h"
#include "CodePage.h"
#include "Envio.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "PuertoSerieQt.h"
#include "PuertoTcp.h"
#include "RuntimeError.h"
#include "ScriptedInteraction.h"

#include <QProcess>
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

QByteArray bytes(std::initializer_list<int> codigos)
{
    QByteArray b;
    for (int c : codigos)
        b.append(static_cast<char>(c));
    return b;
}

QByteArray fuente(const QString& nombre)
{
    QFile f(QStringLiteral(KORVO_SOURCE_DIR "/res/") + nombre);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A label with something in every part of it, in the language's code page.
void prepararEtiqueta(ModBase& mb, int idioma, int modelo)
{
    mb.Idioma = static_cast<int16_t>(idioma);
    mb.ModeloNuevo = static_cast<int16_t>(modelo);
    mb.Puerto = 0;
    mb.Baudios = 3;
    mb.Paridad = 0;
    mb.BitsDatos = 1;
    mb.BitsParada = 0;
    mb.NumEquipo = 2;
    mb.TipoEtiqueta = "V";
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
    const int presentes[] = {1, 11, 13, 15, 16, 18, 26, 36};
    for (int n : presentes) {
        Campo& c = mb.Campos(n);
        c.Presente = "1";
        c.PosHor = static_cast<int16_t>(5 + n);
        c.PosVer = static_cast<int16_t>(10 + n);
        c.Tamano = QByteArray::number(n % 4);
    }
}

// A program folder with the catalogue and both character tables, the
// label above in it, and a person and a progress bar that log what they get.
struct Entorno {
    ProgramDir pd;
    ModBase mb;
    ScriptedInteraction persona;
    ProgresoRegistrado progreso;
    int16_t textos;

    Entorno(int idioma, int modelo, const QByteArray& polaco = fuente("polish.cht"))
    {
        pd.copyBuiltCatalogue();
        pd.write("greek.cht", fuente("greek.cht"));
        pd.write("polish.cht", polaco);
        pd.attach(mb);
        textos = CargarTextos(mb, static_cast<int16_t>(idioma));
        prepararEtiqueta(mb, idioma, modelo);
    }
};

} // namespace

class TestEnvio : public QObject {
    Q_OBJECT

private slots:
    void transferencia_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<int>("idioma");
        QTest::addColumn<bool>("soloTextos");
        QTest::addColumn<QStringList>("opciones");
        QTest::addColumn<int>("recibidas"); // frames the scale received: the first of the stream
        QTest::addColumn<QStringList>("mensajes"); // text ids, joined by blanks
        QTest::addColumn<int>("estado");
        QTest::addColumn<int>("avance");
        QTest::addColumn<int>("minimoMs");
        QTest::addColumn<QByteArray>("libre1"); // free text 1 as the scale got it

        using S = QStringList;
        const QByteArray carne = QByteArray("CARNE~") + bytes({148}) + "O";
        QTest::newRow("new model")
            << 1 << 1 << false << S{} << 54 << S{"445"} << 0 << 52 << 0 << carne;
        QTest::newRow("old model")
            << 0 << 2 << false << S{} << 33 << S{"445"} << 0 << 31 << 0 << carne;
        QTest::newRow("new model, texts only")
            << 1 << 1 << true << S{} << 17 << S{"445"} << 0 << 15 << 0 << carne;
        QTest::newRow("old model, texts only")
            << 0 << 5 << true << S{} << 7 << S{"445"} << 0 << 5 << 0 << carne;
        QTest::newRow("Greek") << 1 << 7 << false << S{} << 54 << S{"445"} << 0 << 52 << 0
                               << QByteArray("\x87"
                                             "EA K") +
                                      bytes({'P', 'E', 'A', 145});
        QTest::newRow("Polish, old model") << 0 << 8 << false << S{} << 33 << S{"445"} << 0 << 31
                                           << 0 << bytes({157, 224, 'D', 141, ' ', '@', 168});

        QTest::newRow("opening refused with 0x15")
            << 1 << 1 << false << S{"--refuse-opening"} << 1 << S{"544", "989"} << 1 << 0 << 0
            << QByteArray();
        QTest::newRow("opening refused") << 1 << 1 << false << S{"--refuse", "1"} << 1 << S{"989"}
                                         << 1 << 0 << 0 << QByteArray();
        QTest::newRow("opening unanswered") << 1 << 1 << false << S{"--silent", "1"} << 1
                                            << S{"989"} << 1 << 0 << 3000 << QByteArray();
        QTest::newRow("free text 3 refused") << 1 << 1 << false << S{"--refuse", "4"} << 4
                                             << S{"1327 1307"} << 1 << 2 << 0 << QByteArray();
        QTest::newRow("free text 2 answered too late")
            << 0 << 1 << false << S{"--delay", "3300", "--delay-at", "3"} << 3 << S{"1327 1307"}
            << 1 << 1 << 3000 << QByteArray();
        QTest::newRow("garbage for free text 1") << 0 << 1 << true << S{"--garbage", "2"} << 2
                                                 << S{"1327 1307"} << 1 << 0 << 0 << QByteArray();
        QTest::newRow("short reply for free text 1")
            << 0 << 1 << true << S{"--short", "2"} << 2 << S{"1327 1307"} << 1 << 0 << 0
            << QByteArray();
        QTest::newRow("field 1 refused") << 1 << 1 << false << S{"--refuse", "17"} << 17
                                         << S{"1327 258 623"} << 1 << 15 << 0 << QByteArray();
        // The second currency failing lets the rest of the fields go, and no more.
        QTest::newRow("field 15 refused") << 1 << 1 << false << S{"--refuse", "31"} << 52
                                          << S{"1327 258 623"} << 1 << 50 << 0 << QByteArray();
        QTest::newRow("field 15 unanswered, old model")
            << 0 << 1 << false << S{"--silent", "21"} << 31 << S{"1327 258 623"} << 1 << 29 << 3000
            << QByteArray();
        QTest::newRow("field 15 and 16 refused")
            << 1 << 1 << false << S{"--refuse", "31,32"} << 32 << S{"1327 258 623", "1327 258 623"}
            << 1 << 29 << 0 << QByteArray();
        QTest::newRow("fixed texts refused") << 1 << 1 << false << S{"--refuse", "53"} << 53
                                             << S{"1327 1337"} << 1 << 51 << 0 << QByteArray();
        QTest::newRow("closing refused") << 1 << 1 << false << S{"--refuse", "54"} << 54
                                         << S{"1328"} << 1 << 52 << 0 << QByteArray();
        QTest::newRow("closing refused, texts only") << 1 << 1 << true << S{"--refuse", "17"} << 17
                                                     << S{"1328"} << 1 << 15 << 0 << QByteArray();

        QTest::newRow("late, within the time")
            << 0 << 1 << true << S{"--delay", "2000", "--delay-at", "3"} << 7 << S{"445"} << 0 << 5
            << 2000 << QByteArray();
        QTest::newRow("replies in pieces")
            << 0 << 1 << true << S{"--pieces", "4", "--piece-gap", "60"} << 7 << S{"445"} << 0 << 5
            << 0 << QByteArray();
        QTest::newRow("0x0D inside every reply")
            << 0 << 1 << false << S{"--cr-inside", "--pieces", "2", "--piece-gap", "20"} << 33
            << S{"445"} << 0 << 31 << 0 << QByteArray();
        // The time is not stretched by a reply that began in it.
        QTest::newRow("last piece after the time")
            << 0 << 1 << false << S{"--pieces", "2", "--piece-gap", "3300"} << 1 << S{"989"} << 1
            << 0 << 3000 << QByteArray();
    }

    void transferencia() { transferir(BalanzaVirtual::Linea::Pty); }

    // The same over the network: the scale's address in the COM1 link of
    // the program folder. The bytes, the waits and the messages are the
    // serial line's; a scale that takes the connection and never answers
    // is told as such.
    void transferenciaTcp_data() { transferencia_data(); }
    void transferenciaTcp() { transferir(BalanzaVirtual::Linea::Tcp); }

    // A network scale that cannot be reached, or goes away, ends the
    // transfer at once with one message that names its address and why.
    void fallosDeRed_data()
    {
        QTest::addColumn<QString>("direccion"); // SCALE: the virtual scale's; CLOSED: a port nobody listens on
        QTest::addColumn<QStringList>("opciones");
        QTest::addColumn<int>("porque"); // the text id in the parenthesis
        QTest::addColumn<int>("recibidas");
        QTest::newRow("no such host") << "tcp://no..host:4000" << QStringList{} << 2100 << 0;
        QTest::newRow("connection refused") << "CLOSED" << QStringList{} << 2101 << 0;
        QTest::newRow("dropped at field 4") << "SCALE" << QStringList{"--vanish", "20"} << 2102 << 20;
    }

    void fallosDeRed()
    {
        QFETCH(QString, direccion);
        QFETCH(QStringList, opciones);
        QFETCH(int, porque);
        QFETCH(int, recibidas);
        Entorno e(2, 1);
        std::unique_ptr<BalanzaVirtual> balanza;
        if (direccion == "SCALE") {
            balanza = std::make_unique<BalanzaVirtual>(e.pd, opciones, BalanzaVirtual::Linea::Tcp);
            QVERIFY(balanza->lista());
            direccion = balanza->direccion();
        } else if (direccion == "CLOSED") {
            QTcpServer cerrado;
            QVERIFY(cerrado.listen(QHostAddress::LocalHost));
            direccion = QStringLiteral("tcp://127.0.0.1:%1").arg(cerrado.serverPort());
        }
        const auto puerto = crearPuerto(e.mb.programDir, direccion);
        QVERIFY(puerto);
        QElapsedTimer reloj;
        reloj.start();
        QCOMPARE(EnviarEtiqueta(e.mb, *puerto, e.persona, e.progreso), 1);
        QVERIFY(reloj.elapsed() < 2500);
        QVERIFY(!puerto->portOpen());
        QCOMPARE(e.persona.log,
                 QStringList{"message: " + e.mb.Textos(260) + ": " + direccion + " (" +
                             e.mb.Textos(porque) + ")\n" + e.mb.Textos(989)});
        if (balanza)
            QCOMPARE(balanza->tramas().size(), recibidas);
    }

    // COMn reaches a network scale when its dosdevices entry names one: a
    // link whose target is the address, or a small file that holds it.
    void comEnRed_data()
    {
        QTest::addColumn<QString>("entrada"); // "link:TARGET" or "file:CONTENT"
        QTest::addColumn<QString>("nombre");
        QTest::newRow("link") << "link:tcp://127.0.0.1:4001" << "tcp://127.0.0.1:4001";
        QTest::newRow("file") << "file:tcp://[::1]:4002\n" << "tcp://[::1]:4002";
        QTest::newRow("file of anything else") << "file:hello" << "dosdevices/com2";
        QTest::newRow("link to a device") << "link:/dev/null" << "dosdevices/com2";
    }

    void comEnRed()
    {
        QFETCH(QString, entrada);
        QFETCH(QString, nombre);
        ProgramDir pd;
        QDir().mkpath(pd.file("dosdevices"));
        const QString valor = entrada.section(':', 1);
        if (entrada.startsWith("link:"))
            QVERIFY(QFile::link(valor, pd.file("dosdevices/com2")));
        else
            pd.write("dosdevices/com2", valor.toUtf8());
        const QString esperado = nombre.startsWith("tcp:") ? nombre : pd.file(nombre);
        QCOMPARE(nombreDeCom(pd.path(), 2), esperado);
        QCOMPARE(qobject_cast<PuertoTcp*>(crearPuerto(pd.path(), "COM2").get()) != nullptr,
                 nombre.startsWith("tcp:"));
    }

private:
    void transferir(BalanzaVirtual::Linea linea)
    {
        QFETCH(int, modelo);
        QFETCH(int, idioma);
        QFETCH(bool, soloTextos);
        QFETCH(QStringList, opciones);
        QFETCH(int, recibidas);
        QFETCH(QStringList, mensajes);
        QFETCH(int, estado);
        QFETCH(int, avance);
        QFETCH(int, minimoMs);
        QFETCH(QByteArray, libre1);

        Entorno e(idioma, modelo);
        QCOMPARE(e.textos, 0);
        ModBase& mb = e.mb;
        mb.SoloTextos = soloTextos;
        const ModBase antes = mb;

        BalanzaVirtual balanza(e.pd, opciones, linea);
        QVERIFY(balanza.lista());
        const auto puerto = crearPuerto(mb.programDir, QStringLiteral("COM1"));
        QCOMPARE(qobject_cast<PuertoTcp*>(puerto.get()) != nullptr,
                 linea == BalanzaVirtual::Linea::Tcp);
        QElapsedTimer reloj;
        reloj.start();
        const int16_t resultado = EnviarEtiqueta(mb, *puerto, e.persona, e.progreso);
        const qint64 ms = reloj.elapsed();

        QCOMPARE(resultado, estado);
        QStringList esperados;
        for (const QString& m : mensajes) {
            QStringList partes;
            for (const QString& id : m.split(' '))
                partes.append(mb.Textos(id.toInt()));
            esperados.append(QStringLiteral("message: ") + partes.join(' '));
        }
        if (linea == BalanzaVirtual::Linea::Tcp &&
            QTest::currentDataTag() == QLatin1String("opening unanswered"))
            esperados = QStringList{"message: " + mb.Textos(260) + ": " + balanza.direccion() +
                                    " (" + mb.Textos(2103) + ")\n" + mb.Textos(989)};
        QCOMPARE(e.persona.log, esperados);

        // Byte for byte what the stream of the label holds, up to where it stopped.
        const QList<QByteArray> flujo = TramasEtiqueta(mb, mb.NumEquipo, soloTextos);
        const QList<QByteArray> llegadas = balanza.tramas();
        QCOMPARE(llegadas.size(), recibidas);
        for (int i = 0; i < recibidas; ++i)
            QCOMPARE(llegadas.at(i).toHex(' '), flujo.at(i).toHex(' '));
        if (!libre1.isEmpty())
            QCOMPARE(llegadas.at(1).mid(modelo ? 5 : 4, libre1.size()).toHex(' '),
                     libre1.toHex(' '));

        const int libres = modelo ? 15 : 5;
        QCOMPARE(e.progreso.maximo, soloTextos ? libres : libres + (modelo ? 36 : 25) + 2);
        QCOMPARE(e.progreso.valor, avance);
        QVERIFY(ms >= minimoMs);
        // Never a second wait where one is due, never a hang.
        QVERIFY2(ms < minimoMs + 2900, qPrintable(QString::number(ms)));
        // The label is only read.
        QVERIFY(mb.Campos == antes.Campos);
        QCOMPARE(mb.TextoLibre, antes.TextoLibre);
    }

private slots:
    // A reply that comes after its time, once the port is closed, is not
    // taken for the reply to the next transfer's opening: opening the port
    // empties what waited in it.
    void respuestaTardiaVaciada()
    {
        Entorno e(2, 0);
        ModBase& mb = e.mb;
        mb.SoloTextos = true;
        BalanzaVirtual balanza(e.pd, {"--refuse", "1", "--delay", "3200", "--first-transfer-only"});
        QVERIFY(balanza.lista());
        {
            PuertoSerieQt puerto(mb.programDir);
            QCOMPARE(EnviarEtiqueta(mb, puerto, e.persona, e.progreso), 1);
        }
        QTest::qWait(600); // the refusal arrives on a closed port
        PuertoSerieQt puerto(mb.programDir);
        QCOMPARE(EnviarEtiqueta(mb, puerto, e.persona, e.progreso), 0);
        QCOMPARE(e.persona.log,
                 (QStringList{"message: " + mb.Textos(989), "message: " + mb.Textos(445)}));
        QCOMPARE(balanza.tramas().size(), 1 + 7);
    }

    // A character table that ends too soon ends the program at the first
    // text that needs it: nothing more goes out, no closing frame.
    void tablaCorta()
    {
        Entorno e(8, 1, fuente("polish.cht").left(200));
        QCOMPARE(e.textos, 0);
        BalanzaVirtual balanza(e.pd, {});
        QVERIFY(balanza.lista());
        PuertoSerieQt puerto(e.mb.programDir);
        int numero = 0;
        try {
            EnviarEtiqueta(e.mb, puerto, e.persona, e.progreso);
        } catch (const RuntimeError& e) {
            numero = e.number();
        }
        QCOMPARE(numero, 62);
        QVERIFY(!puerto.portOpen());
        QCOMPARE(balanza.tramas().size(), 1);
        QVERIFY(e.persona.log.isEmpty());
    }

    // COMn is the program folder's dosdevices/comN link when there is one,
    // even one whose device is gone (the message then names the link).
    void nombresDePuerto_data()
    {
        QTest::addColumn<int>("numero");
        QTest::addColumn<QString>("enlace"); // what dosdevices/comN links to; empty: no link
        QTest::addColumn<QString>("nombre"); // relative to the folder, or absolute
        QTest::newRow("COM1 without a link") << 1 << ""
                                             << "/dev/ttyS0";
        QTest::newRow("COM2 linked") << 2 << "/dev/null"
                                     << "dosdevices/com2";
        QTest::newRow("COM3 linked to nothing") << 3 << "/nonexistent"
                                                << "dosdevices/com3";
    }

    void nombresDePuerto()
    {
        QFETCH(int, numero);
        QFETCH(QString, enlace);
        QFETCH(QString, nombre);
        ProgramDir pd;
        QDir().mkpath(pd.file("dosdevices"));
        if (!enlace.isEmpty())
            QVERIFY(QFile::link(enlace, pd.file(QStringLiteral("dosdevices/com%1").arg(numero))));
        const QString esperado = nombre.startsWith('/') ? nombre : pd.file(nombre);
        QCOMPARE(nombrePuerto(pd.path(), numero), esperado);
        PuertoSerieQt puerto(pd.path());
        puerto.setCommPort(numero);
        QCOMPARE(puerto.nombre(), esperado);
        puerto.setDevice("/dev/ttyUSB7");
        QCOMPARE(puerto.nombre(), QStringLiteral("/dev/ttyUSB7"));
    }

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

    // A port that cannot be opened, refuses a setting or goes away ends the
    // transfer with one message that names it; nothing else goes out.
    void fallosDelPuerto_data()
    {
        QTest::addColumn<QString>("caso");
        QTest::addColumn<QStringList>("lineas"); // text ids of the lines after the first
        QTest::addColumn<int>("recibidas");
        QTest::newRow("no device behind COM1") << "sinDispositivo" << QStringList{"989"} << 0;
        QTest::newRow("even parity on a pseudo-terminal")
            << "paridad" << QStringList{"262:1323", "989"} << 0;
        QTest::newRow("7 data bits") << "bitsDatos" << QStringList{"263:7", "989"} << 0;
        QTest::newRow("the scale goes away at field 4") << "desaparece" << QStringList{"989"} << 20;
    }

    void fallosDelPuerto()
    {
        QFETCH(QString, caso);
        QFETCH(QStringList, lineas);
        QFETCH(int, recibidas);
        Entorno e(2, 1);
        ModBase& mb = e.mb;
        ProgramDir& pd = e.pd;
        if (caso == "paridad")
            mb.Paridad = 1;
        else if (caso == "bitsDatos")
            mb.BitsDatos = 0;

        std::unique_ptr<BalanzaVirtual> balanza;
        if (caso == "sinDispositivo") {
            QDir().mkpath(pd.file("dosdevices"));
            QFile::link(pd.file("nothing-here"), pd.file("dosdevices/com1"));
        } else {
            balanza = std::make_unique<BalanzaVirtual>(
                pd, caso == "desaparece" ? QStringList{"--vanish", "20"} : QStringList{});
            QVERIFY(balanza->lista());
        }
        PuertoSerieQt puerto(mb.programDir);
        QElapsedTimer reloj;
        reloj.start();
        QCOMPARE(EnviarEtiqueta(mb, puerto, e.persona, e.progreso), 1);
        QVERIFY(reloj.elapsed() < 2500);
        QVERIFY(!puerto.portOpen());

        QCOMPARE(e.persona.log.size(), 1);
        const QStringList partes = e.persona.log.first().split('\n');
        QVERIFY2(
            partes.first().startsWith("message: Communication port: " + pd.file("dosdevices/com1")),
            qPrintable(partes.first()));
        QStringList esperadas;
        for (const QString& l : lineas) {
            const QStringList idValor = l.split(':');
            QString t = mb.Textos(idValor.at(0).toInt());
            if (idValor.size() > 1)
                t += ": " +
                     (idValor.at(1).size() > 1 ? mb.Textos(idValor.at(1).toInt()) : idValor.at(1));
            esperadas.append(t);
        }
        QCOMPARE(partes.mid(1).join('\n'), esperadas.join('\n'));
        if (balanza)
            QCOMPARE(balanza->tramas().size(), recibidas);
    }
};

QTEST_GUILESS_MAIN(TestEnvio)
#include "tst_envio.moc"
