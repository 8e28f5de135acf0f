#pragma once

#include "ProgramDir.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <unistd.h>

#ifndef KORVO_SCALE
#error "the tests against the virtual scale need the path of korvo-scale"
#endif

// The virtual scale, linked as COM1 of a program folder; or on a loopback
// TCP port, the link (COM1 or another name) then naming its address.
class BalanzaVirtual {
public:
    enum class Linea { Pty, Tcp };

    BalanzaVirtual(const ProgramDir& pd, const QStringList& opciones, Linea linea = Linea::Pty,
                   const QString& nombre = QStringLiteral("com1"))
        : m_enlace(pd.file(QStringLiteral("dosdevices/") + nombre)),
          m_log(pd.file(QStringLiteral("scale-%1.log").arg(nombre)))
    {
        QDir().mkpath(pd.file(QStringLiteral("dosdevices")));
        m_proceso.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        const QStringList tcp =
            linea == Linea::Tcp ? QStringList{"--tcp", "127.0.0.1:0"} : QStringList{};
        m_proceso.start(QStringLiteral(KORVO_SCALE),
                        tcp + QStringList{"--link", m_enlace, "--log", m_log} + opciones);
        m_listo = m_proceso.waitForStarted(5000) &&
                  QTest::qWaitFor([&] { return QFileInfo(m_enlace).isSymLink(); }, 5000);
    }

    ~BalanzaVirtual()
    {
        m_proceso.kill();
        m_proceso.waitForFinished(3000);
    }

    bool lista() const { return m_listo; }

    // Where the link points: the device, or the scale's "tcp://HOST:PORT".
    QString direccion() const
    {
        char destino[512];
        const ssize_t n =
            ::readlink(QFile::encodeName(m_enlace).constData(), destino, sizeof destino - 1);
        return n > 0 ? QFile::decodeName(QByteArray(destino, static_cast<int>(n))) : QString();
    }

    // Every frame the scale received, in order, as it received it.
    QList<QByteArray> tramas() const
    {
        QFile f(m_log);
        QList<QByteArray> out;
        for (const QByteArray& linea :
             (f.open(QIODevice::ReadOnly) ? f.readAll() : "").split('\n')) {
            if (linea.startsWith("frame "))
                out.append(QByteArray::fromHex(linea.mid(linea.lastIndexOf(": ") + 2)));
        }
        return out;
    }

private:
    QString m_enlace;
    QString m_log;
    QProcess m_proceso;
    bool m_listo = false;
};
