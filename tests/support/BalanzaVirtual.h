#pragma once

#include "ProgramDir.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#ifndef KORVO_SCALE
#error "the tests against the virtual scale need the path of korvo-scale"
#endif

// The virtual scale, linked as COM1 of a program folder.
class BalanzaVirtual {
public:
    BalanzaVirtual(const ProgramDir& pd, const QStringList& opciones)
        : m_enlace(pd.file(QStringLiteral("dosdevices/com1"))),
          m_log(pd.file(QStringLiteral("scale.log")))
    {
        QDir().mkpath(pd.file(QStringLiteral("dosdevices")));
        m_proceso.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_proceso.start(QStringLiteral(KORVO_SCALE),
                        QStringList{"--link", m_enlace, "--log", m_log} + opciones);
        m_listo = m_proceso.waitForStarted(5000) &&
                  QTest::qWaitFor([&] { return QFileInfo(m_enlace).isSymLink(); }, 5000);
    }

    ~BalanzaVirtual()
    {
        if (m_proceso.state() != QProcess::NotRunning) {
            m_proceso.terminate();
            if (!m_proceso.waitForFinished(3000))
                m_proceso.kill();
            m_proceso.waitForFinished(1000);
        }
    }

    bool lista() const { return m_listo; }

    // Every frame the scale received, in order, as it received it.
    QList<QByteArray> tramas() const
    {
        QFile f(m_log);
        QList<QByteArray> out;
        if (!f.open(QIODevice::ReadOnly))
            return out;
        for (const QByteArray& linea : f.readAll().split('\n')) {
            if (!linea.startsWith("frame "))
                continue;
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
