#include "PuertoSerieQt.h"

#include <QDir>
#include <QFileInfo>

QString nombrePuerto(const QString& programDir, int numero)
{
#ifdef Q_OS_WIN
    Q_UNUSED(programDir);
    return QStringLiteral("COM%1").arg(numero);
#else
    // A link dosdevices/comN beside the program names the device of COMn,
    // as Wine has it; without one the first serial devices stand in.
    const QString enlace = QDir(programDir).filePath(QStringLiteral("dosdevices/com%1").arg(numero));
    if (QFileInfo(enlace).isSymLink() || QFileInfo::exists(enlace))
        return enlace;
    return QStringLiteral("/dev/ttyS%1").arg(numero - 1);
#endif
}

PuertoSerieQt::PuertoSerieQt(const QString& programDir, QObject* parent)
    : PuertoSerie(parent), m_programDir(programDir)
{
    connect(&m_puerto, &QSerialPort::readyRead, this, &PuertoSerie::readyRead);
    connect(&m_puerto, &QSerialPort::errorOccurred, this, &PuertoSerieQt::errorDelPuerto);
}

PuertoSerieQt::~PuertoSerieQt()
{
    close();
}

QString PuertoSerieQt::nombre() const
{
    return m_dispositivo.isEmpty() ? nombrePuerto(m_programDir, m_numero) : m_dispositivo;
}

void PuertoSerieQt::fallar(FalloPuerto::Tipo tipo, const QString& detalle,
                           FalloPuerto::Ajuste ajuste)
{
    m_fallo.tipo = tipo;
    m_fallo.ajuste = ajuste;
    m_fallo.ajustes = m_ajustes;
    m_fallo.nombre = nombre();
    m_fallo.detalle = detalle;
}

bool PuertoSerieQt::open()
{
    m_fallo = {};
    if (m_puerto.isOpen())
        m_puerto.close();
    m_puerto.setPortName(nombre());
    // Open on the plainest settings, then ask for each real one in turn, so
    // that a refused setting is told by its name and not as a port that
    // would not open (a pseudo-terminal, for one, carries no parity).
    m_puerto.setBaudRate(9600);
    m_puerto.setDataBits(QSerialPort::Data8);
    m_puerto.setParity(QSerialPort::NoParity);
    m_puerto.setStopBits(QSerialPort::OneStop);
    m_puerto.setFlowControl(QSerialPort::NoFlowControl);
    if (!m_puerto.open(QIODevice::ReadWrite)) {
        fallar(FalloPuerto::Tipo::NoAbre, m_puerto.errorString());
        return false;
    }
    using A = FalloPuerto::Ajuste;
    const auto rechazado = [this](A ajuste) {
        fallar(FalloPuerto::Tipo::AjusteRechazado, m_puerto.errorString(), ajuste);
        m_puerto.close();
        return false;
    };
    if (!m_puerto.setBaudRate(m_ajustes.baudios))
        return rechazado(A::Velocidad);
    const auto paridad = m_ajustes.paridad == 'E'   ? QSerialPort::EvenParity
                         : m_ajustes.paridad == 'O' ? QSerialPort::OddParity
                                                    : QSerialPort::NoParity;
    if (!m_puerto.setParity(paridad))
        return rechazado(A::Paridad);
    if (!m_puerto.setDataBits(m_ajustes.bitsDatos == 7 ? QSerialPort::Data7 : QSerialPort::Data8))
        return rechazado(A::BitsDatos);
    if (!m_puerto.setStopBits(m_ajustes.bitsParada == 2 ? QSerialPort::TwoStop
                                                        : QSerialPort::OneStop))
        return rechazado(A::BitsParada);
    // A device keeps unread bytes across a reopening (a late reply to an
    // earlier frame); a frame must start on an empty buffer.
    m_puerto.clear(QSerialPort::Input);
    m_puerto.readAll();
    return true;
}

void PuertoSerieQt::close()
{
    if (m_puerto.isOpen())
        m_puerto.close();
}

bool PuertoSerieQt::output(const QByteArray& trama)
{
    if (!m_puerto.isOpen() || m_puerto.write(trama) != trama.size()) {
        if (m_fallo.tipo == FalloPuerto::Tipo::Ninguno)
            fallar(FalloPuerto::Tipo::Perdido, m_puerto.errorString());
        return false;
    }
    return true;
}

int PuertoSerieQt::inBufferCount() const
{
    return static_cast<int>(m_puerto.bytesAvailable());
}

QByteArray PuertoSerieQt::input()
{
    return m_puerto.readAll();
}

void PuertoSerieQt::errorDelPuerto(QSerialPort::SerialPortError error)
{
    // Only what happens to an open port is a failure under the transfer; the
    // failures of opening and of the settings are told where they happen.
    switch (error) {
    case QSerialPort::ResourceError:
    case QSerialPort::ReadError:
    case QSerialPort::WriteError:
        if (!m_puerto.isOpen() || m_fallo.tipo != FalloPuerto::Tipo::Ninguno)
            return;
        fallar(FalloPuerto::Tipo::Perdido, m_puerto.errorString());
        emit averia();
        break;
    default:
        break;
    }
}
