#include "PuertoSerie.h"

#include "ModBase.h"

#include <QDir>
#include <QFileInfo>

QByteArray AjustesLinea::texto() const
{
    return QByteArray::number(baudios) + ',' + paridad + ',' + QByteArray::number(bitsDatos) + ',' +
           QByteArray::number(bitsParada);
}

QStringList textosVelocidades()
{
    QStringList textos;
    for (const int v : kVelocidades)
        textos.append(QString::number(v));
    return textos;
}

AjustesLinea ajustesLinea(const ModBase& mb)
{
    AjustesLinea a;
    // cfg.ini keeps the index in range; an index from elsewhere falls back
    // to the speed of a fresh configuration rather than off the table.
    a.baudios = mb.Baudios >= 0 && static_cast<size_t>(mb.Baudios) < kVelocidades.size()
                    ? kVelocidades.at(static_cast<size_t>(mb.Baudios))
                    : 9600;
    a.paridad = mb.Paridad == 1 ? 'E' : mb.Paridad == 2 ? 'O' : 'N';
    a.bitsDatos = mb.BitsDatos == 0 ? 7 : 8;
    a.bitsParada = mb.BitsParada == 0 ? 1 : 2;
    return a;
}

QString nombrePuerto(const QString& programDir, int numero)
{
#ifdef Q_OS_WIN
    Q_UNUSED(programDir);
    return QStringLiteral("COM%1").arg(numero);
#else
    // A link dosdevices/comN beside the program names the device of COMn,
    // as Wine has it; without one the first serial devices stand in.
    const QString enlace =
        QDir(programDir).filePath(QStringLiteral("dosdevices/com%1").arg(numero));
    if (QFileInfo(enlace).isSymLink() || QFileInfo::exists(enlace))
        return enlace;
    return QStringLiteral("/dev/ttyS%1").arg(numero - 1);
#endif
}

QString PuertoDispositivoBase::nombre() const
{
    return m_dispositivo.isEmpty() ? nombrePuerto(m_programDir, m_numero) : m_dispositivo;
}

void PuertoDispositivoBase::fallar(FalloPuerto::Tipo tipo, const QString& detalle,
                                   FalloPuerto::Ajuste ajuste)
{
    m_fallo.tipo = tipo;
    m_fallo.ajuste = ajuste;
    m_fallo.ajustes = m_ajustes;
    // The device in use, not what the name would resolve to now: a device
    // that went away may have taken its link with it.
    m_fallo.nombre = m_enUso.isEmpty() ? nombre() : m_enUso;
    m_fallo.detalle = detalle;
}
