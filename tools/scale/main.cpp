// korvo-scale: a scale on a pseudo-terminal or on a TCP port, for trying a
// transfer without one. It answers every frame as a scale does, checks each frame's check
// value, logs what it received with its verdict, and can be told to
// misbehave in the ways a real line does: a refused opening, a refused or
// unanswered frame, a late reply, a reply in pieces or with a 0x0D inside,
// a short or garbled reply, a scale that goes away.
#include "Tramas.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHostAddress>
#include <QSet>
#include <QSocketNotifier>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <cmath>
#include <functional>
#include <memory>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace {

// What a signal handler may touch: the link to take away and the slave it
// must still point at.
char g_enlace[4096];
char g_esclavo[256];

void quitarEnlace()
{
    if (!g_enlace[0])
        return;
    char destino[sizeof g_esclavo];
    const ssize_t n = ::readlink(g_enlace, destino, sizeof destino - 1);
    if (n < 0)
        return;
    destino[n] = 0;
    if (std::strcmp(destino, g_esclavo) == 0)
        ::unlink(g_enlace);
}

void alTerminar(int)
{
    quitarEnlace();
    ::_exit(0);
}

QByteArray hex(const QByteArray& bytes)
{
    return bytes.toHex(' ').toUpper();
}

// A text of the label as a person can read it; other bytes as \xNN.
QByteArray legible(const QByteArray& bytes)
{
    QByteArray out;
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b >= 0x20 && b < 0x7F && b != '\\')
            out += c;
        else
            out += "\\x" + QByteArray::number(b, 16).rightJustified(2, '0').toUpper();
    }
    return out;
}

struct Opciones {
    bool rechazarApertura = false;
    QSet<int> rechazar, callar, basura, corta;
    int desaparecer = 0;
    int retraso = 0;
    int retrasoEn = 0; // 0: every reply
    int trozos = 1;
    int pausaTrozos = 100;
    bool retornoDentro = false;
    bool soloPrimera = false; // misbehave in the first transfer only
    int baudiosLinea = 0;     // take the line's own time at this speed; 0: none
};

// One line to the scale: the pseudo-terminal, or one TCP connection. Each
// has its own input and its own count of frames.
struct Linea {
    QByteArray entrada;
    int numero = 0;
    QTimer silencio;
    QObject* contexto = nullptr; // what the line lives as long as
    std::function<void(const QByteArray&)> escribir;
    std::function<void()> desaparecer;
    // Where the line's own time has got to: a reply is never due before the
    // one before it has gone.
    qint64 libreNs = 0;
};

class Balanza : public QObject {
public:
    Balanza(Opciones opciones, FILE* log) : m_op(std::move(opciones)), m_log(log)
    {
        m_reloj.start();
    }

    // Listens on a TCP address; every connection is a line of its own, so
    // that one scale program can stand for many scales at one address.
    bool escuchar(const QHostAddress& host, quint16 puerto, QString* error)
    {
        m_servidor = new QTcpServer(this);
        // A whole fleet connects at once: a short queue of pending
        // connections would drop some, and the system retries them only
        // after a second.
        m_servidor->setListenBacklogSize(4096);
        if (!m_servidor->listen(host, puerto)) {
            *error = m_servidor->errorString();
            return false;
        }
        std::snprintf(g_esclavo, sizeof g_esclavo, "tcp://%s:%u",
                      qPrintable(m_servidor->serverAddress().toString()),
                      static_cast<unsigned>(m_servidor->serverPort()));
        connect(m_servidor, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* s = m_servidor->nextPendingConnection())
                conectar(s);
        });
        return true;
    }

    bool abrir(QString* error)
    {
        m_maestro = ::posix_openpt(O_RDWR | O_NOCTTY);
        if (m_maestro < 0 || ::grantpt(m_maestro) != 0 || ::unlockpt(m_maestro) != 0) {
            *error = QString::fromLocal8Bit(std::strerror(errno));
            return false;
        }
        const char* nombre = ::ptsname(m_maestro);
        if (!nombre) {
            *error = QString::fromLocal8Bit(std::strerror(errno));
            return false;
        }
        std::snprintf(g_esclavo, sizeof g_esclavo, "%s", nombre);
        // The scale keeps a slave end of its own: without it, every time the
        // program closes the port (and it does, before each field frame) the
        // master would see a hang-up until the next opening.
        m_esclavo = ::open(g_esclavo, O_RDWR | O_NOCTTY);
        if (m_esclavo < 0) {
            *error = QString::fromLocal8Bit(std::strerror(errno));
            return false;
        }
        termios tio{};
        ::tcgetattr(m_esclavo, &tio);
        ::cfmakeraw(&tio);
        tio.c_cflag |= CLOCAL | CREAD;
        ::tcsetattr(m_esclavo, TCSANOW, &tio);
        ::fcntl(m_maestro, F_SETFL, ::fcntl(m_maestro, F_GETFL) | O_NONBLOCK);
        m_lector = new QSocketNotifier(m_maestro, QSocketNotifier::Read, this);
        connect(m_lector, &QSocketNotifier::activated, this, [this] { leer(); });
        preparar(m_pty, this);
        m_pty.escribir = [this](const QByteArray& b) {
            ::write(m_maestro, b.constData(), static_cast<size_t>(b.size()));
        };
        m_pty.desaparecer = [this] {
            quitarEnlace();
            ::close(m_maestro);
            ::close(m_esclavo);
            QCoreApplication::exit(0);
        };
        return true;
    }

    const char* esclavo() const { return g_esclavo; }

private:
    void preparar(Linea& linea, QObject* contexto)
    {
        linea.contexto = contexto;
        linea.silencio.setSingleShot(true);
        linea.silencio.setTimerType(Qt::PreciseTimer);
        linea.silencio.setInterval(200);
        connect(&linea.silencio, &QTimer::timeout, contexto,
                [this, &linea] { tramaSinCheck(linea); });
    }

    void conectar(QTcpSocket* s)
    {
        s->setParent(this);
        s->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        // The line lives as long as its connection: the socket's own
        // connections hold it, and replies still due then find nobody.
        auto linea = std::make_shared<Linea>();
        preparar(*linea, s);
        linea->escribir = [s](const QByteArray& b) { s->write(b); };
        linea->desaparecer = [this] {
            // The scale is gone: no connection, no more listening.
            quitarEnlace();
            m_servidor->close();
            for (QTcpSocket* otro : findChildren<QTcpSocket*>())
                otro->abort();
            QCoreApplication::exit(0);
        };
        connect(s, &QTcpSocket::readyRead, s, [this, s, linea] {
            linea->entrada += s->readAll();
            analizar(*linea);
        });
        connect(s, &QTcpSocket::disconnected, s, &QObject::deleteLater);
    }

    void leer()
    {
        char buf[512];
        for (;;) {
            const ssize_t n = ::read(m_maestro, buf, sizeof buf);
            if (n > 0) {
                m_pty.entrada.append(buf, n);
                continue;
            }
            break;
        }
        analizar(m_pty);
    }

    // Frames end in 0x03, the check value and 0x0D. A text may hold any
    // byte, so an end counts only where the check value agrees; an end whose
    // check value is wrong is a bad frame once nothing more follows it.
    void analizar(Linea& linea)
    {
        for (;;) {
            const qsizetype inicio = linea.entrada.indexOf(trama::Inicio);
            if (inicio < 0) {
                if (!linea.entrada.isEmpty())
                    escribir("noise: " + hex(linea.entrada));
                linea.entrada.clear();
                return;
            }
            if (inicio > 0) {
                escribir("noise: " + hex(linea.entrada.left(inicio)));
                linea.entrada.remove(0, inicio);
            }
            qsizetype fin = -1;
            bool finDudoso = false;
            for (qsizetype i = 3; i < linea.entrada.size(); ++i) {
                const auto c = static_cast<unsigned char>(linea.entrada.at(i - 1));
                if (linea.entrada.at(i) != trama::Terminador ||
                    linea.entrada.at(i - 2) != trama::Fin || c < 0x40 || c > 0x7F)
                    continue;
                if (i - 1 <= trama::MaxCheck && CalCheck(linea.entrada.left(i - 1)) == c) {
                    fin = i;
                    break;
                }
                finDudoso = true;
            }
            if (fin < 0) {
                if (finDudoso || linea.entrada.size() > 4096)
                    linea.silencio.start();
                return;
            }
            linea.silencio.stop();
            const QByteArray t = linea.entrada.left(fin + 1);
            linea.entrada.remove(0, fin + 1);
            atender(linea, t, true);
        }
    }

    void tramaSinCheck(Linea& linea)
    {
        const QByteArray t = linea.entrada;
        linea.entrada.clear();
        if (!t.isEmpty())
            atender(linea, t, false);
    }

    static QByteArray respuesta(char reconocimiento, const char* estado)
    {
        QByteArray r;
        r.append(trama::Inicio);
        r.append(reconocimiento);
        r.append(estado);
        r.append(trama::Fin);
        cerrarTrama(r);
        return r;
    }

    void atender(Linea& linea, const QByteArray& t, bool checkBien)
    {
        const QByteArray tipo = t.mid(1, 2);
        if (tipo == "44") {
            linea.numero = 1;
            ++m_transferencias;
        } else {
            ++linea.numero;
        }
        // Frames of a transfer where no misbehaviour applies count as 0.
        const int n = !m_op.soloPrimera || m_transferencias <= 1 ? linea.numero : 0;

        QByteArray veredicto;
        QByteArray r;
        constexpr char ack = 0x06, nak = 0x15;
        if (n != 0 && n == m_op.desaparecer) {
            veredicto = "gone (asked)";
        } else if (m_op.callar.contains(n)) {
            veredicto = "no reply (asked)";
        } else if (!checkBien) {
            veredicto = "refused (bad check value)";
            r = respuesta(nak, "02");
        } else if (tipo == "44" && m_op.rechazarApertura && n != 0) {
            veredicto = "refused opening (asked)";
            r = respuesta(nak, "01");
        } else if (m_op.rechazar.contains(n)) {
            veredicto = "refused (asked)";
            r = respuesta(ack, "01");
        } else if (m_op.basura.contains(n)) {
            veredicto = "garbage reply (asked)";
            // Bytes of no meaning, then the end of a reply.
            quint32 semilla = 0x9E3779B9u * static_cast<quint32>(n);
            for (int i = 0; i < 11; ++i) {
                semilla = semilla * 1664525u + 1013904223u;
                char c = static_cast<char>(semilla >> 24);
                if (c == trama::Terminador || c == '0')
                    c = '?';
                r.append(c);
            }
            r.append(trama::Terminador);
        } else if (m_op.corta.contains(n)) {
            veredicto = "short reply (asked)";
            r = QByteArray("00") + trama::Terminador;
        } else {
            veredicto = "accepted";
            r = respuesta(ack, "00");
        }
        // A 0x0D inside the reply, where a reader that stops at the first one
        // would see a refusal.
        if (m_op.retornoDentro && n != 0 && r.size() >= 4 && r.at(1) != nak &&
            r.startsWith(trama::Inicio))
            r[1] = trama::Terminador;

        escribir("frame " + QByteArray::number(linea.numero) + " [" + legible(tipo) + "] check " +
                 (checkBien ? "ok" : "bad") + " -> " + veredicto + ": " + hex(t));
        describir(t, tipo);
        if (!r.isEmpty())
            escribir("    reply: " + hex(r));

        if (n != 0 && n == m_op.desaparecer) {
            linea.desaparecer();
            return;
        }
        if (r.isEmpty())
            return;
        int retraso = n != 0 && (m_op.retrasoEn == 0 || m_op.retrasoEn == n) ? m_op.retraso : 0;
        if (m_op.baudiosLinea > 0) {
            // The frame's and the reply's own time on a line at that speed,
            // ten bits a byte, kept to the nanosecond across the frames.
            const qint64 ahora = m_reloj.nsecsElapsed();
            const qint64 bits = 10 * static_cast<qint64>(t.size() + r.size());
            linea.libreNs = std::max(linea.libreNs, ahora) + bits * 1000000000 / m_op.baudiosLinea;
            retraso += static_cast<int>(std::lround((linea.libreNs - ahora) / 1e6));
        }
        // The reply in pieces, spread out in time. Precise timers: a coarse one
        // may fire a twentieth early, and the program's 3000 ms are exact.
        const int trozos =
            n == 0 ? 1 : std::max(1, std::min<int>(m_op.trozos, static_cast<int>(r.size())));
        const qsizetype largo = (r.size() + trozos - 1) / trozos;
        for (int k = 0; k < trozos; ++k) {
            const QByteArray pieza = r.mid(k * largo, largo);
            if (pieza.isEmpty())
                break;
            QTimer::singleShot(retraso + k * m_op.pausaTrozos, Qt::PreciseTimer, linea.contexto,
                               [escribir = linea.escribir, pieza] { escribir(pieza); });
        }
    }

    // What the frame asks of the scale, for a person watching the log.
    void describir(const QByteArray& t, const QByteArray& tipo)
    {
        const QList<QByteArray> partes = t.mid(3, t.size() - 6).split('\0');
        if (tipo == "44")
            escribir("    opening, scale " + legible(t.mid(4, t.size() - 8)));
        else if (tipo == "9:")
            escribir("    free text \"" + legible(t.mid(3, t.size() - 7)) + "\"");
        else if (tipo == "99" && partes.size() >= 7) {
            const QByteArray& datos = partes.at(6);
            escribir("    field " + legible(partes.at(5)) + " of label " + legible(partes.at(1)) +
                     legible(partes.at(2)) + " (" + legible(partes.at(3)) + ") \"" +
                     legible(partes.at(4)) + "\": at " + legible(datos.left(3)) + "," +
                     legible(datos.mid(3, 3)) + " size " + legible(datos.mid(6, 1)) +
                     (datos.mid(7, 1) == "1" ? " present" : " absent"));
        } else if (tipo == "90" && partes.size() >= 4)
            escribir("    fixed text \"" + legible(partes.at(1)) + "\" / \"" +
                     legible(partes.at(3)) + "\"");
        else if (tipo == "00")
            escribir("    closing: the label is complete");
    }

    void escribir(const QByteArray& linea)
    {
        std::fprintf(m_log, "%s\n", linea.constData());
        std::fflush(m_log);
    }

    Opciones m_op;
    FILE* m_log;
    int m_maestro = -1;
    int m_esclavo = -1;
    QSocketNotifier* m_lector = nullptr;
    Linea m_pty;
    QTcpServer* m_servidor = nullptr;
    QElapsedTimer m_reloj;
    int m_transferencias = 0;
};

QSet<int> numeros(const QStringList& valores)
{
    QSet<int> s;
    for (const QString& v : valores)
        for (const QString& parte : v.split(',', Qt::SkipEmptyParts))
            s.insert(parte.toInt());
    return s;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser p;
    p.setApplicationDescription(
        QStringLiteral("A scale on a pseudo-terminal. Frames are counted from each opening frame, "
                       "which is frame 1."));
    p.addHelpOption();
    const QCommandLineOption link("link", "Make PATH a link to the scale's port.", "PATH");
    const QCommandLineOption log("log", "Log the frames to FILE instead of stdout.", "FILE");
    const QCommandLineOption refuseOpening("refuse-opening", "Refuse the opening with 0x15.");
    const QCommandLineOption refuse("refuse", "Refuse frame N.", "N");
    const QCommandLineOption silent("silent", "Do not answer frame N.", "N");
    const QCommandLineOption garbage("garbage", "Answer frame N with garbage.", "N");
    const QCommandLineOption shortReply("short", "Answer frame N with three bytes.", "N");
    const QCommandLineOption vanish("vanish", "Go away on frame N, port and all.", "N");
    const QCommandLineOption delay("delay", "Answer MS milliseconds late.", "MS");
    const QCommandLineOption delayAt("delay-at", "Answer late at frame N only.", "N");
    const QCommandLineOption pieces("pieces", "Answer in K pieces.", "K");
    const QCommandLineOption pieceGap("piece-gap", "Milliseconds between pieces (100).", "MS");
    const QCommandLineOption crInside("cr-inside", "Put a 0x0D inside every reply.");
    const QCommandLineOption firstOnly("first-transfer-only",
                                       "Misbehave in the first transfer only.");
    const QCommandLineOption tcp("tcp",
                                 "Listen on HOST:PORT instead of a pseudo-terminal (PORT 0: any "
                                 "free port; the address is printed). Each connection is a scale.",
                                 "HOST:PORT");
    const QCommandLineOption lineSpeed("line-speed",
                                       "Take the line's own time at BAUD: ten bits a byte, frame "
                                       "and reply.",
                                       "BAUD");
    p.addOptions({tcp, lineSpeed, link, log, refuseOpening, refuse, silent, garbage, shortReply,
                  vanish, delay, delayAt, pieces, pieceGap, crInside, firstOnly});
    p.process(app);

    Opciones op;
    op.rechazarApertura = p.isSet(refuseOpening);
    op.rechazar = numeros(p.values(refuse));
    op.callar = numeros(p.values(silent));
    op.basura = numeros(p.values(garbage));
    op.corta = numeros(p.values(shortReply));
    op.desaparecer = p.value(vanish).toInt();
    op.retraso = p.value(delay).toInt();
    op.retrasoEn = p.value(delayAt).toInt();
    op.trozos = p.isSet(pieces) ? p.value(pieces).toInt() : 1;
    op.pausaTrozos = p.isSet(pieceGap) ? p.value(pieceGap).toInt() : 100;
    op.retornoDentro = p.isSet(crInside);
    op.soloPrimera = p.isSet(firstOnly);
    op.baudiosLinea = p.value(lineSpeed).toInt();

    FILE* salida = stdout;
    if (p.isSet(log)) {
        salida = std::fopen(QFile::encodeName(p.value(log)).constData(), "w");
        if (!salida) {
            std::fprintf(stderr, "korvo-scale: cannot write %s\n", qPrintable(p.value(log)));
            return 1;
        }
    }

    Balanza balanza(op, salida);
    QString error;
    if (p.isSet(tcp)) {
        const QString valor = p.value(tcp);
        const int dosPuntos = valor.lastIndexOf(':');
        bool ok = dosPuntos > 0;
        const int numero = valor.mid(dosPuntos + 1).toInt(&ok);
        QHostAddress host(valor.left(dosPuntos).remove('[').remove(']'));
        // Loopback only: the virtual scale is for this machine.
        if (!ok || numero < 0 || numero > 65535 || !host.isLoopback()) {
            std::fprintf(stderr, "korvo-scale: --tcp takes a loopback HOST:PORT\n");
            return 2;
        }
        if (!balanza.escuchar(host, static_cast<quint16>(numero), &error)) {
            std::fprintf(stderr, "korvo-scale: cannot listen on %s: %s\n", qPrintable(valor),
                         qPrintable(error));
            return 1;
        }
    } else if (!balanza.abrir(&error)) {
        std::fprintf(stderr, "korvo-scale: no pseudo-terminal: %s\n", qPrintable(error));
        return 1;
    }
    if (p.isSet(link)) {
        const QByteArray ruta = QFile::encodeName(p.value(link));
        std::snprintf(g_enlace, sizeof g_enlace, "%s", ruta.constData());
        // A link left by an earlier scale goes; anything else stays put.
        struct stat st {};
        if (::lstat(g_enlace, &st) == 0 && S_ISLNK(st.st_mode))
            ::unlink(g_enlace);
        if (::symlink(balanza.esclavo(), g_enlace) != 0) {
            std::fprintf(stderr, "korvo-scale: cannot link %s: %s\n", g_enlace,
                         std::strerror(errno));
            g_enlace[0] = 0;
            return 1;
        }
    }
    std::signal(SIGTERM, alTerminar);
    std::signal(SIGINT, alTerminar);
    std::signal(SIGHUP, alTerminar);
    std::fprintf(stderr, "korvo-scale: listening on %s%s%s\n", balanza.esclavo(),
                 g_enlace[0] ? ", linked as " : "", g_enlace);
    std::fflush(stderr);
    const int r = app.exec();
    quitarEnlace();
    return r;
}
