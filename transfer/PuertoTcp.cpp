#include "PuertoTcp.h"

#include "PuertoDispositivo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

// The catalogue's words for what the network did.
constexpr int NoSeEncuentra = 2100;
constexpr int Rechazada = 2101;
constexpr int Cortada = 2102;
constexpr int Muda = 2103;
constexpr int SinConexion = 2104;

} // namespace

bool direccionTcp(const QString& nombre, QString* host, quint16* puerto)
{
    static const QRegularExpression forma(
        QStringLiteral("^tcp://([^/:\\s]+|\\[[0-9A-Fa-f:.]+\\]):([0-9]{1,5})$"),
        QRegularExpression::CaseInsensitiveOption);
    const QString limpio = nombre.trimmed();
    if (!limpio.startsWith(QLatin1String("tcp://"), Qt::CaseInsensitive))
        return false; // the common case, without the expression's cost
    const auto m = forma.match(limpio);
    if (!m.hasMatch())
        return false;
    const int n = m.captured(2).toInt();
    if (n < 1 || n > 65535)
        return false;
    QString h = m.captured(1);
    if (h.startsWith('['))
        h = h.mid(1, h.size() - 2);
    if (host)
        *host = h;
    if (puerto)
        *puerto = static_cast<quint16>(n);
    return true;
}

PuertoTcp::PuertoTcp(const QString& direccion, QObject* parent)
    : PuertoSerie(parent), m_direccion(direccion.trimmed())
{
    direccionTcp(m_direccion, &m_host, &m_puerto);
    connect(&m_socket, &QTcpSocket::readyRead, this, [this] {
        m_recibido = true;
        emit readyRead();
    });
    connect(&m_socket, &QTcpSocket::connected, this, [this] {
        // Frames are small and each waits for its reply: no coalescing.
        m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    });
    connect(&m_socket, &QTcpSocket::errorOccurred, this, &PuertoTcp::errorDelSocket);
}

PuertoTcp::~PuertoTcp()
{
    close();
}

bool PuertoTcp::portOpen() const
{
    return m_socket.state() != QAbstractSocket::UnconnectedState;
}

void PuertoTcp::fallar(FalloPuerto::Tipo tipo, int textoId)
{
    m_fallo.tipo = tipo;
    m_fallo.ajustes = m_ajustes;
    m_fallo.nombre = m_direccion;
    m_fallo.textoId = textoId;
    m_fallo.detalle = m_socket.errorString();
}

bool PuertoTcp::open()
{
    m_fallo = {};
    m_recibido = false;
    m_socket.abort();
    // A name that is no host name at all is not looked up anywhere.
    if (m_host.isEmpty() || QUrl::toAce(m_host).isEmpty()) {
        fallar(FalloPuerto::Tipo::NoAbre, NoSeEncuentra);
        return false;
    }
    m_socket.connectToHost(m_host, m_puerto);
    // A name that cannot be looked up, or a refusal, may come at once.
    return m_fallo.tipo == FalloPuerto::Tipo::Ninguno;
}

void PuertoTcp::close()
{
    m_socket.abort();
}

bool PuertoTcp::reabrir()
{
    if (!portOpen() || m_fallo.tipo != FalloPuerto::Tipo::Ninguno)
        return open();
    m_socket.readAll();
    return true;
}

bool PuertoTcp::output(const QByteArray& trama)
{
    if (m_fallo.tipo != FalloPuerto::Tipo::Ninguno)
        return false;
    if (!portOpen() || m_socket.write(trama) != trama.size()) {
        fallar(FalloPuerto::Tipo::Perdido, Cortada);
        return false;
    }
    return true;
}

int PuertoTcp::inBufferCount() const
{
    return static_cast<int>(m_socket.bytesAvailable());
}

QByteArray PuertoTcp::input()
{
    return m_socket.readAll();
}

bool PuertoTcp::fallaPorSilencio()
{
    if (m_socket.state() != QAbstractSocket::ConnectedState) {
        fallar(FalloPuerto::Tipo::NoAbre, SinConexion);
        return true;
    }
    if (!m_recibido) {
        fallar(FalloPuerto::Tipo::Perdido, Muda);
        return true;
    }
    return false;
}

void PuertoTcp::errorDelSocket(QAbstractSocket::SocketError error)
{
    if (m_fallo.tipo != FalloPuerto::Tipo::Ninguno)
        return;
    switch (error) {
    case QAbstractSocket::HostNotFoundError:
        fallar(FalloPuerto::Tipo::NoAbre, NoSeEncuentra);
        break;
    case QAbstractSocket::ConnectionRefusedError:
        fallar(FalloPuerto::Tipo::NoAbre, Rechazada);
        break;
    case QAbstractSocket::SocketTimeoutError:
        return;
    default:
        fallar(FalloPuerto::Tipo::Perdido, Cortada);
        break;
    }
    emit averia();
}

QString nombreDeCom(const QString& programDir, int numero)
{
    const QString dispositivo = nombrePuerto(programDir, numero);
    const QString entrada =
        QDir(programDir).filePath(QStringLiteral("dosdevices/com%1").arg(numero));
    if (dispositivo != entrada)
        return dispositivo;
#ifdef Q_OS_UNIX
    char destino[512];
    const ssize_t n =
        ::readlink(QFile::encodeName(entrada).constData(), destino, sizeof destino - 1);
    if (n > 0) {
        const QString texto = QFile::decodeName(QByteArray(destino, static_cast<int>(n)));
        if (direccionTcp(texto))
            return texto;
        return dispositivo;
    }
#endif
    const QFileInfo info(entrada);
    if (info.isFile() && info.size() < 512) {
        QFile f(entrada);
        if (f.open(QIODevice::ReadOnly)) {
            const QString texto = QString::fromUtf8(f.readAll()).trimmed();
            if (direccionTcp(texto))
                return texto;
        }
    }
    return dispositivo;
}

bool nombrePuertoValido(const QString& nombre)
{
    return direccionTcp(nombre) ||
           !(nombre.isEmpty() || nombre.startsWith(QStringLiteral("tcp:"), Qt::CaseInsensitive));
}

std::unique_ptr<PuertoSerie> crearPuerto(const QString& programDir, const QString& nombre)
{
    if (!nombrePuertoValido(nombre))
        return nullptr;
    if (direccionTcp(nombre))
        return std::make_unique<PuertoTcp>(nombre);
    static const QRegularExpression com(QStringLiteral("^COM([1-9])$"),
                                        QRegularExpression::CaseInsensitiveOption);
    if (const auto m = com.match(nombre); m.hasMatch()) {
        const int numero = m.captured(1).toInt();
        const QString destino = nombreDeCom(programDir, numero);
        if (direccionTcp(destino))
            return std::make_unique<PuertoTcp>(destino);
        // The device itself, so that the number the transfer sets counts no more.
        auto serie = std::make_unique<PuertoDispositivo>(programDir);
        serie->setDevice(destino);
        return serie;
    }
    auto serie = std::make_unique<PuertoDispositivo>(programDir);
    serie->setDevice(nombre);
    return serie;
}
