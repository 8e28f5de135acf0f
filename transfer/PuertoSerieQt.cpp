#include "PuertoSerieQt.h"

#include <QDir>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <termios.h>
#endif

namespace {

// What the device holds now for one setting. A terminal takes a set of
// settings as done when any part of it was, so what it keeps is read back:
// a pseudo-terminal, asked for odd parity, keeps the odd flag and drops the
// parity. True where the platform has no way to ask.
bool ajusteVigente(qintptr handle, FalloPuerto::Ajuste ajuste, const AjustesLinea& a)
{
#ifdef Q_OS_UNIX
    termios tio{};
    if (::tcgetattr(static_cast<int>(handle), &tio) != 0)
        return false;
    switch (ajuste) {
    case FalloPuerto::Ajuste::Velocidad: {
        const speed_t esperada = a.baudios == 2400    ? B2400
                                 : a.baudios == 4800  ? B4800
                                 : a.baudios == 9600  ? B9600
                                 : a.baudios == 19200 ? B19200
                                                      : 0;
        return esperada == 0 || ::cfgetospeed(&tio) == esperada;
    }
    case FalloPuerto::Ajuste::Paridad: {
        const bool con = tio.c_cflag & PARENB;
        const bool impar = tio.c_cflag & PARODD;
        return a.paridad == 'E' ? con && !impar : a.paridad == 'O' ? con && impar : !con;
    }
    case FalloPuerto::Ajuste::BitsDatos:
        return (tio.c_cflag & CSIZE) == (a.bitsDatos == 7 ? CS7 : CS8);
    case FalloPuerto::Ajuste::BitsParada:
        return bool(tio.c_cflag & CSTOPB) == (a.bitsParada == 2);
    }
    return false;
#else
    Q_UNUSED(handle);
    Q_UNUSED(ajuste);
    Q_UNUSED(a);
    return true;
#endif
}

} // namespace

PuertoSerieQt::PuertoSerieQt(const QString& programDir, QObject* parent)
    : PuertoDispositivoBase(programDir, parent)
{
    connect(&m_puerto, &QSerialPort::readyRead, this, &PuertoSerie::readyRead);
    connect(&m_puerto, &QSerialPort::errorOccurred, this, &PuertoSerieQt::errorDelPuerto);
}

PuertoSerieQt::~PuertoSerieQt()
{
    close();
}

bool PuertoSerieQt::open()
{
    m_fallo = {};
    if (m_puerto.isOpen())
        m_puerto.close();
    m_enUso = nombre();
    m_puerto.setPortName(m_enUso);
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
    const auto aplicar = [this](A ajuste, bool hecho) {
        if (hecho && ajusteVigente(m_puerto.handle(), ajuste, m_ajustes))
            return true;
        fallar(FalloPuerto::Tipo::AjusteRechazado, hecho ? QString() : m_puerto.errorString(),
               ajuste);
        m_puerto.close();
        return false;
    };
    const auto paridad = m_ajustes.paridad == 'E'   ? QSerialPort::EvenParity
                         : m_ajustes.paridad == 'O' ? QSerialPort::OddParity
                                                    : QSerialPort::NoParity;
    if (!aplicar(A::Velocidad, m_puerto.setBaudRate(m_ajustes.baudios)) ||
        !aplicar(A::Paridad, m_puerto.setParity(paridad)) ||
        !aplicar(A::BitsDatos,
                 m_puerto.setDataBits(m_ajustes.bitsDatos == 7 ? QSerialPort::Data7
                                                               : QSerialPort::Data8)) ||
        !aplicar(A::BitsParada,
                 m_puerto.setStopBits(m_ajustes.bitsParada == 2 ? QSerialPort::TwoStop
                                                                : QSerialPort::OneStop)))
        return false;
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
