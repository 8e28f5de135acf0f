#pragma once

#include <array>
#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

struct ModBase;

// The line speeds a transfer offers, in the order of their index in cfg.ini.
inline constexpr std::array<int, 4> kVelocidades{2400, 4800, 9600, 19200};
// The same speeds as texts, for lists, options and messages.
QStringList textosVelocidades();

// The line settings of a transfer: speed, parity, data bits, stop bits.
struct AjustesLinea {
    int baudios = 9600;
    char paridad = 'N'; // 'N', 'E' or 'O'
    int bitsDatos = 8;  // 7 or 8
    int bitsParada = 1; // 1 or 2

    // "9600,E,8,1": the settings as one text.
    QByteArray texto() const;
    bool operator==(const AjustesLinea& o) const
    {
        return baudios == o.baudios && paridad == o.paridad && bitsDatos == o.bitsDatos &&
               bitsParada == o.bitsParada;
    }
};

// The stored indices of the shared block turned into line settings. Parity
// 1 is even and 2 odd, any other none; data bits 0 are 7, any other 8; stop
// bits 0 are 1, any other 2.
AjustesLinea ajustesLinea(const ModBase& mb);

// Why the port let the transfer down.
struct FalloPuerto {
    enum class Tipo {
        Ninguno,
        NoAbre,          // the device is not there, is busy, or is not ours to open
        AjusteRechazado, // the device refuses one of the line settings
        Perdido,         // the device went away, or stopped taking bytes, during the transfer
    };
    enum class Ajuste { Velocidad, Paridad, BitsDatos, BitsParada };

    Tipo tipo = Tipo::Ninguno;
    Ajuste ajuste = Ajuste::Velocidad; // which setting, for AjusteRechazado
    AjustesLinea ajustes;              // the settings asked for
    QString nombre;                    // the device as the program names it
    QString detalle;                   // the system's own words, when it has any
    int textoId = 0;                   // the catalogue's words instead, when not 0
};

// The serial port as the transfer needs it. One frame goes out whole, then
// the transfer reads what has come in. readyRead tells that bytes wait;
// averia that the port failed under the transfer, after which fallo() says why.
class PuertoSerie : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void setSettings(const AjustesLinea& ajustes) = 0;
    // The port by its number, 1 to 4.
    virtual void setCommPort(int numero) = 0;
    virtual bool portOpen() const = 0;
    // Opens the port and empties what waited in its input: a frame always
    // starts on an empty buffer after an opening. False when it cannot, and
    // fallo() tells why.
    virtual bool open() = 0;
    virtual void close() = 0;
    // Where a transfer opens the port afresh so that the next frame starts
    // on an empty input. A serial port is closed and opened; a port that
    // keeps its connection may only empty its input.
    virtual bool reabrir()
    {
        if (portOpen())
            close();
        return open();
    }
    // Hands the whole frame over; false when the port takes it no longer.
    virtual bool output(const QByteArray& trama) = 0;
    // How many received bytes wait, and all of them, taken.
    virtual int inBufferCount() const = 0;
    virtual QByteArray input() = 0;
    virtual FalloPuerto fallo() const = 0;
    // The reply wait ran out: true when the port sees a failure of its own
    // in that silence (then fallo() tells it), false when it is the scale's.
    virtual bool fallaPorSilencio() { return false; }

signals:
    void readyRead();
    void averia();
};

// What every serial device of the machine shares, whatever reaches it:
// COM1 to COM4 by their number, or a device named outright (the number then
// no longer counts), the settings asked for, and why it failed.
class PuertoDispositivoBase : public PuertoSerie {
    Q_OBJECT

public:
    PuertoDispositivoBase(const QString& programDir, QObject* parent)
        : PuertoSerie(parent), m_programDir(programDir)
    {}

    // An explicit device, for the command line.
    void setDevice(const QString& device) { m_dispositivo = device; }
    // The device that an opening would use now.
    QString nombre() const;

    void setSettings(const AjustesLinea& ajustes) override { m_ajustes = ajustes; }
    void setCommPort(int numero) override { m_numero = numero; }
    FalloPuerto fallo() const override { return m_fallo; }

protected:
    void fallar(FalloPuerto::Tipo tipo, const QString& detalle,
                FalloPuerto::Ajuste ajuste = FalloPuerto::Ajuste::Velocidad);

    QString m_enUso; // the device of the last opening
    AjustesLinea m_ajustes;
    FalloPuerto m_fallo;

private:
    QString m_programDir;
    QString m_dispositivo;
    int m_numero = 1;
};

// The device of port number 1..4 for a program folder: "COM1".."COM4" on
// Windows; elsewhere the program folder's dosdevices/comN link where there
// is one (as Wine has it), else /dev/ttyS0../dev/ttyS3.
QString nombrePuerto(const QString& programDir, int numero);
