#pragma once

#include "PuertoSerie.h"

#include <QSerialPort>

// The port the transfer talks to: a serial device through QSerialPort.
// COM1 to COM4 are the devices of the program folder's dosdevices/comN links
// when they exist, else /dev/ttyS0 to /dev/ttyS3 (the names themselves on
// Windows). A device path given outright stands instead of the number.
class PuertoSerieQt : public PuertoDispositivoBase {
    Q_OBJECT

public:
    explicit PuertoSerieQt(const QString& programDir, QObject* parent = nullptr);
    ~PuertoSerieQt() override;

    bool portOpen() const override { return m_puerto.isOpen(); }
    bool open() override;
    void close() override;
    bool output(const QByteArray& trama) override;
    int inBufferCount() const override;
    QByteArray input() override;

private:
    void errorDelPuerto(QSerialPort::SerialPortError error);

    QSerialPort m_puerto;
};
