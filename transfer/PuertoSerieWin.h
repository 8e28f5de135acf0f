#pragma once

#include "PuertoSerie.h"

#include <QTimer>

// The port the transfer talks to on Windows: a serial device through the
// Win32 communications functions. COM1 to COM4 are the devices of those
// names; a device name given outright stands instead of the number.
//
// Bytes that come in are looked for by a timer of the event loop that asks
// the port for what it holds without waiting (every read returns at once),
// a millisecond apart: the same on Windows and under Wine on a
// pseudo-terminal, where the port's own notice of arriving bytes never
// comes and a read that waits never returns.
class PuertoSerieWin : public PuertoDispositivoBase {
    Q_OBJECT

public:
    explicit PuertoSerieWin(const QString& programDir, QObject* parent = nullptr);
    ~PuertoSerieWin() override;

    bool portOpen() const override { return m_handle != nullptr; }
    bool open() override;
    void close() override;
    bool output(const QByteArray& trama) override;
    int inBufferCount() const override;
    QByteArray input() override;

private:
    // Takes what the device holds into the buffer; false when it failed.
    bool leer();
    void mirar();

    void* m_handle = nullptr; // the device's HANDLE while open
    QByteArray m_entrada;
    QTimer m_reloj;
};
