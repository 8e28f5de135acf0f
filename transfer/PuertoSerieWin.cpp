#include "PuertoSerieWin.h"

#include <windows.h>

namespace {

// The system's own words for its last error.
QString ultimoError()
{
    const DWORD codigo = GetLastError();
    wchar_t* texto = nullptr;
    const DWORD n = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, codigo, 0, reinterpret_cast<wchar_t*>(&texto), 0, nullptr);
    QString s = n ? QString::fromWCharArray(texto, static_cast<int>(n)).trimmed()
                  : QStringLiteral("error %1").arg(codigo);
    if (texto)
        LocalFree(texto);
    return s;
}

HANDLE manejador(void* h)
{
    return static_cast<HANDLE>(h);
}

} // namespace

PuertoSerieWin::PuertoSerieWin(const QString& programDir, QObject* parent)
    : PuertoDispositivoBase(programDir, parent)
{
    m_reloj.setInterval(1);
    m_reloj.setTimerType(Qt::PreciseTimer);
    connect(&m_reloj, &QTimer::timeout, this, &PuertoSerieWin::mirar);
}

PuertoSerieWin::~PuertoSerieWin()
{
    close();
}

bool PuertoSerieWin::open()
{
    m_fallo = {};
    close();
    m_enUso = nombre();
    // "\\.\COM12": the device namespace, which every COM number needs past 9.
    const QString ruta =
        m_enUso.startsWith(QLatin1String("\\\\")) ? m_enUso : QStringLiteral("\\\\.\\") + m_enUso;
    HANDLE h = CreateFileW(reinterpret_cast<const wchar_t*>(ruta.utf16()),
                           GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (h == INVALID_HANDLE_VALUE) {
        fallar(FalloPuerto::Tipo::NoAbre, ultimoError());
        return false;
    }
    m_handle = h;

    // Each setting asked for in turn and read back, so that a refused one is
    // told by its name.
    using A = FalloPuerto::Ajuste;
    DCB dcb{};
    dcb.DCBlength = sizeof dcb;
    if (!GetCommState(h, &dcb)) {
        fallar(FalloPuerto::Tipo::NoAbre, ultimoError());
        close();
        return false;
    }
    dcb.fBinary = TRUE;
    dcb.fOutxCtsFlow = FALSE;
    dcb.fOutxDsrFlow = FALSE;
    dcb.fDtrControl = DTR_CONTROL_ENABLE;
    dcb.fRtsControl = RTS_CONTROL_ENABLE;
    dcb.fDsrSensitivity = FALSE;
    dcb.fOutX = FALSE;
    dcb.fInX = FALSE;
    dcb.fErrorChar = FALSE;
    dcb.fNull = FALSE;
    dcb.fAbortOnError = FALSE;
    const auto aplicar = [&](A ajuste, auto poner, auto vigente) {
        poner(dcb);
        DCB leido{};
        leido.DCBlength = sizeof leido;
        if (SetCommState(h, &dcb) && GetCommState(h, &leido) && vigente(leido))
            return true;
        fallar(FalloPuerto::Tipo::AjusteRechazado, ultimoError(), ajuste);
        close();
        return false;
    };
    const BYTE paridad = m_ajustes.paridad == 'E'   ? EVENPARITY
                         : m_ajustes.paridad == 'O' ? ODDPARITY
                                                    : NOPARITY;
    const BYTE bits = m_ajustes.bitsDatos == 7 ? 7 : 8;
    const BYTE parada = m_ajustes.bitsParada == 2 ? TWOSTOPBITS : ONESTOPBIT;
    const DWORD velocidad = static_cast<DWORD>(m_ajustes.baudios);
    if (!aplicar(
            A::Velocidad, [&](DCB& d) { d.BaudRate = velocidad; },
            [&](const DCB& d) { return d.BaudRate == velocidad; }) ||
        !aplicar(
            A::Paridad,
            [&](DCB& d) {
                d.Parity = paridad;
                d.fParity = paridad != NOPARITY;
            },
            [&](const DCB& d) { return d.Parity == paridad; }) ||
        !aplicar(
            A::BitsDatos, [&](DCB& d) { d.ByteSize = bits; },
            [&](const DCB& d) { return d.ByteSize == bits; }) ||
        !aplicar(
            A::BitsParada, [&](DCB& d) { d.StopBits = parada; },
            [&](const DCB& d) { return d.StopBits == parada; }))
        return false;

    // Reads return at once with what there is; writes wait for the line.
    COMMTIMEOUTS t{};
    t.ReadIntervalTimeout = MAXDWORD;
    t.WriteTotalTimeoutConstant = 5000;
    SetCommTimeouts(h, &t);
    // A device keeps unread bytes across a reopening (a late reply to an
    // earlier frame); a frame must start on an empty buffer.
    PurgeComm(h, PURGE_RXCLEAR | PURGE_TXCLEAR);
    m_entrada.clear();
    leer();
    m_entrada.clear();
    m_reloj.start();
    return true;
}

void PuertoSerieWin::close()
{
    m_reloj.stop();
    if (m_handle) {
        CloseHandle(manejador(m_handle));
        m_handle = nullptr;
    }
}

bool PuertoSerieWin::output(const QByteArray& trama)
{
    DWORD escritos = 0;
    if (!m_handle ||
        !WriteFile(manejador(m_handle), trama.constData(), static_cast<DWORD>(trama.size()),
                   &escritos, nullptr) ||
        escritos != static_cast<DWORD>(trama.size())) {
        if (m_fallo.tipo == FalloPuerto::Tipo::Ninguno)
            fallar(FalloPuerto::Tipo::Perdido, m_handle ? ultimoError() : QString());
        return false;
    }
    return true;
}

bool PuertoSerieWin::leer()
{
    if (!m_handle)
        return true;
    char trozo[512];
    for (;;) {
        DWORD leidos = 0;
        if (!ReadFile(manejador(m_handle), trozo, sizeof trozo, &leidos, nullptr))
            return false;
        if (leidos == 0)
            return true;
        m_entrada.append(trozo, static_cast<qsizetype>(leidos));
        if (leidos < sizeof trozo)
            return true;
    }
}

void PuertoSerieWin::mirar()
{
    const qsizetype antes = m_entrada.size();
    if (!leer()) {
        if (m_fallo.tipo == FalloPuerto::Tipo::Ninguno) {
            fallar(FalloPuerto::Tipo::Perdido, ultimoError());
            m_reloj.stop();
            emit averia();
        }
        return;
    }
    if (m_entrada.size() > antes)
        emit readyRead();
}

int PuertoSerieWin::inBufferCount() const
{
    return static_cast<int>(m_entrada.size());
}

QByteArray PuertoSerieWin::input()
{
    leer();
    QByteArray todo;
    todo.swap(m_entrada);
    return todo;
}
