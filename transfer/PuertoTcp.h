#pragma once

#include "PuertoSerie.h"

#include <memory>
#include <QTcpSocket>

// A scale on the network, by its own Ethernet port or behind a serial device
// server that passes a TCP connection through to the scale's line. The
// scale sees the bytes a serial line would carry; the connection stays up
// across the frames of a transfer, and where the serial transfer opens its
// port afresh, what waits unread is thrown away instead.
class PuertoTcp : public PuertoSerie {
    Q_OBJECT

public:
    // `direccion` as "tcp://HOST:PORT".
    explicit PuertoTcp(const QString& direccion, QObject* parent = nullptr);
    ~PuertoTcp() override;

    QString nombre() const { return m_direccion; }

    // A network scale has no line settings and no port number of its own.
    void setSettings(const AjustesLinea& ajustes) override { m_ajustes = ajustes; }
    void setCommPort(int) override {}
    bool portOpen() const override;
    // Starts the connection and returns: a frame handed over meanwhile goes
    // out as soon as it is made.
    bool open() override;
    void close() override;
    bool reabrir() override;
    bool output(const QByteArray& trama) override;
    int inBufferCount() const override;
    QByteArray input() override;
    FalloPuerto fallo() const override { return m_fallo; }
    bool fallaPorSilencio() override;

private:
    void fallar(FalloPuerto::Tipo tipo, int textoId);
    void errorDelSocket(QAbstractSocket::SocketError error);

    QString m_direccion;
    QString m_host;
    quint16 m_puerto = 0;
    AjustesLinea m_ajustes;
    QTcpSocket m_socket;
    FalloPuerto m_fallo;
    bool m_recibido = false; // a byte came on this connection
};

// "tcp://HOST:PORT" taken apart; false when it is not such an address.
bool direccionTcp(const QString& nombre, QString* host = nullptr, quint16* puerto = nullptr);

// The port a name gives: "tcp://HOST:PORT", COM1..COM4 (whose dosdevices
// entry may name a network address, see nombreDeCom) or a device path.
// Null when the name is none of these.
std::unique_ptr<PuertoSerie> crearPuerto(const QString& programDir, const QString& nombre);
// Whether crearPuerto gives a port for the name, without making one.
bool nombrePuertoValido(const QString& nombre);

// What COMn of a program folder reaches: the network address that its
// dosdevices/comN names (a link whose target is the text "tcp://HOST:PORT",
// or a small file holding that text), else the serial device of
// nombrePuerto().
QString nombreDeCom(const QString& programDir, int numero);
