#pragma once

#include "PuertoSerie.h"

#include <QSerialPort>

// The port the transfer talks to: a serial device through QSerialPort.
// COM1 to COM4 are the devices of the program folder's dosdevices/comN links
// when they exist, else /dev/ttyS0 to /dev/ttyS3 (the names themselves on
// Windows). A device path given outright stands instead of the number.
class PuertoSerieQt : public PuertoSerie {
    Q_OBJECT

public:
    explicit PuertoSerieQt(const QString& programDir, QObject* parent = nullptr);
    ~PuertoSerieQt() override;

    // An explicit device, for the command line: the port number no longer counts.
    void setDevice(const QString& device) { m_dispositivo = device; }
    // The device that an opening would use now.
    QString nombre() const;

    void setSettings(const AjustesLinea& ajustes) override { m_ajustes = ajustes; }
    void setCommPort(int numero) override { m_numero = numero; }
    bool portOpen() const override { return m_puerto.isOpen(); }
    bool open() override;
    void close() override;
    bool output(const QByteArray& trama) override;
    int inBufferCount() const override;
    QByteArray input() override;
    FalloPuerto fallo() const override { return m_fallo; }

private:
    void fallar(FalloPuerto::Tipo tipo, const QString& detalle,
                FalloPuerto::Ajuste ajuste = FalloPuerto::Ajuste::Velocidad);
    void errorDelPuerto(QSerialPort::SerialPortError error);

    QString m_programDir;
    QString m_dispositivo;
    QString m_enUso; // the device of the last opening
    int m_numero = 1;
    AjustesLinea m_ajustes;
    QSerialPort m_puerto;
    FalloPuerto m_fallo;
};
