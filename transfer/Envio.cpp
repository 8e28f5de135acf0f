#include "Envio.h"

#include "ModBase.h"
#include "UserInteraction.h"

#include <QEventLoop>
#include <QTimer>

namespace {

bool modeloNuevo(const ModBase& mb)
{
    return mb.ModeloNuevo == 1;
}

int textosLibres(const ModBase& mb)
{
    return modeloNuevo(mb) ? 15 : 5;
}

int campos(const ModBase& mb)
{
    return modeloNuevo(mb) ? 36 : 25;
}

} // namespace

Envio::Envio(const ModBase& mb, PuertoSerie& puerto, UserInteraction& persona,
             ProgresoEnvio& progreso)
    : m_mb(mb), m_puerto(puerto), m_persona(persona), m_progreso(progreso)
{}

Envio::~Envio()
{
    if (m_puerto.portOpen())
        m_puerto.close();
}

QString Envio::texto(int id) const
{
    return m_mb.Textos(id);
}

void Envio::cargar()
{
    m_progreso.setTexto(QString());
    m_trama.clear();
    m_respuesta.vaciar();
    m_estadoEnvio = 0;
    // A whole transfer counts the opening and closing frames in its maximum
    // but advances only on the label's own frames: it ends one step short.
    const int maximo = m_mb.SoloTextos ? textosLibres(m_mb) : textosLibres(m_mb) + campos(m_mb) + 2;
    m_progreso.setMaximo(maximo);
    m_valor = 0;
    m_progreso.setValor(0);

    m_puerto.setSettings(ajustesLinea(m_mb));
    m_puerto.setCommPort(m_mb.Puerto + 1);
    // The port stays closed; the first frame opens it.
    if (m_puerto.portOpen())
        m_puerto.close();
}

void Envio::ejecutar()
{
    try {
        CalculaCoordenadasEnvio(m_mb, m_coordenadas);
        m_estadoEnvio = 0;
        IniciaComunicacion();
        if (m_estadoEnvio != 0) {
            m_persona.message(texto(989));
            return;
        }
        m_progreso.setTexto(texto(516) + ' ' + texto(1307) + QStringLiteral("..."));
        EnviaTextosLibres();
        if (m_estadoEnvio != 0)
            return;
        if (m_mb.SoloTextos) {
            FinalizaComunicacion();
            return;
        }
        m_progreso.setTexto(texto(516) + ' ' + texto(258) + ' ' + texto(623) +
                            QStringLiteral("..."));
        EnviaCampos();
        if (m_estadoEnvio != 0)
            return;
        m_progreso.setTexto(texto(516) + ' ' + texto(1337) + ' ' + texto(623) +
                            QStringLiteral("..."));
        EnviaTextosFijos();
        if (m_estadoEnvio != 0)
            return;
        FinalizaComunicacion();
    } catch (const PuertoCaido&) {
        // A port that fails ends the transfer where it stands, with one
        // message that names the port; no other frame is tried.
        m_estadoEnvio = 1;
        mostrarFalloPuerto();
        m_puerto.close();
    }
}

void Envio::mostrarFalloPuerto()
{
    m_persona.message(mensajeFalloPuerto(m_mb, m_puerto.fallo()));
}

void Envio::reabrir()
{
    if (m_puerto.portOpen())
        m_puerto.close();
    if (!m_puerto.open())
        throw PuertoCaido{};
}

void Envio::enviar(const QByteArray& trama)
{
    if (!m_puerto.output(trama))
        throw PuertoCaido{};
    m_entrega.start();
}

void Envio::avanzar()
{
    m_progreso.setValor(++m_valor);
}

void Envio::EsperaRespuesta(int16_t& resultado)
{
    bool tiempoAgotado = false;
    QEventLoop bucle;
    QTimer timer1;
    timer1.setSingleShot(true);
    timer1.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer1, &QTimer::timeout, &bucle, [&] {
        tiempoAgotado = true;
        bucle.quit();
    });
    QObject::connect(&m_puerto, &PuertoSerie::readyRead, &bucle, &QEventLoop::quit);
    QObject::connect(&m_puerto, &PuertoSerie::averia, &bucle, &QEventLoop::quit);
    // The time runs from the hand-over, not from here.
    timer1.start(std::max<qint64>(0, EsperaMs - m_entrega.elapsed()));

    // What waits in the input from before is part of this reply: only an
    // opening of the port empties it.
    m_respuesta.vaciar();
    for (;;) {
        if (m_puerto.fallo().tipo != FalloPuerto::Tipo::Ninguno)
            throw PuertoCaido{};
        if (tiempoAgotado) {
            resultado = 1;
            break;
        }
        if (m_puerto.inBufferCount() == 0) {
            resultado = 2;
            // Sleeps in the event loop until bytes come, the time is up or
            // the port fails; the window stays painted meanwhile.
            bucle.exec();
            continue;
        }
        m_respuesta.agregar(m_puerto.input());
        if (!m_respuesta.completa()) {
            bucle.exec();
            continue;
        }
        resultado = m_respuesta.resultado();
        if (tiempoAgotado)
            resultado = 1;
        break;
    }
    timer1.stop();
}

void Envio::IniciaComunicacion()
{
    reabrir();
    m_trama = TramaApertura(m_mb.NumEquipo);
    enviar(m_trama);
    EsperaRespuesta(m_estadoEnvio);
    if (m_respuesta.rechazaApertura()) {
        m_persona.message(texto(544));
        m_estadoEnvio = 1;
        if (m_puerto.portOpen())
            m_puerto.close();
    }
}

void Envio::EnviaTextosLibres()
{
    // The free texts share one opening of the port.
    reabrir();
    for (int i = 0; i < textosLibres(m_mb); ++i) {
        m_trama = TramaTextoLibre(m_mb, m_tabla, i);
        enviar(m_trama);
        int16_t resultado = 0;
        EsperaRespuesta(resultado);
        if (resultado != 0) {
            m_persona.message(texto(1327) + ' ' + texto(1307));
            m_estadoEnvio = 1;
            return;
        }
        avanzar();
    }
}

void Envio::EnviaCampo(int numero, bool& hecho)
{
    // Every field frame gets a fresh opening, and so an empty input buffer.
    reabrir();
    m_trama = TramaCampo(m_mb, m_coordenadas, numero);
    enviar(m_trama);
    int16_t resultado = 0;
    EsperaRespuesta(resultado);
    if (resultado == 0) {
        hecho = true;
        return;
    }
    m_persona.message(texto(1327) + ' ' + texto(258) + ' ' + texto(623));
    hecho = false;
    m_estadoEnvio = 1;
}

void Envio::EnviaCampos()
{
    for (int numero = 1; numero <= campos(m_mb); ++numero) {
        bool hecho = false;
        EnviaCampo(numero, hecho);
        if (hecho) {
            avanzar();
            continue;
        }
        // The second currency is the one field whose refusal does not stop
        // the fields: the rest still go, though the transfer has failed and
        // will end after them.
        if (numero != 15)
            return;
    }
}

void Envio::EnviaTextosFijos()
{
    reabrir();
    m_trama = TramaTextosFijos(m_mb, m_tabla);
    enviar(m_trama);
    int16_t resultado = 0;
    EsperaRespuesta(resultado);
    if (resultado != 0) {
        m_persona.message(texto(1327) + ' ' + texto(1337));
        m_estadoEnvio = 1;
        return;
    }
    avanzar();
}

void Envio::FinalizaComunicacion()
{
    if (!m_puerto.portOpen())
        return;
    m_trama = TramaCierre();
    enviar(m_trama);
    EsperaRespuesta(m_estadoEnvio);
    m_persona.message(texto(m_estadoEnvio != 0 ? 1328 : 445));
    if (m_puerto.portOpen())
        m_puerto.close();
}

int16_t EnviarEtiqueta(const ModBase& mb, PuertoSerie& puerto, UserInteraction& persona,
                       ProgresoEnvio& progreso)
{
    Envio envio(mb, puerto, persona, progreso);
    envio.cargar();
    envio.ejecutar();
    return envio.estadoEnvio();
}

QList<QByteArray> TramasEtiqueta(const ModBase& mb, int16_t numEquipo, bool soloTextos)
{
    CoordenadasEnvio coordenadas;
    CalculaCoordenadasEnvio(mb, coordenadas);
    TablaCaracteres tabla;
    QList<QByteArray> tramas;
    tramas.append(TramaApertura(numEquipo));
    for (int i = 0; i < textosLibres(mb); ++i)
        tramas.append(TramaTextoLibre(mb, tabla, i));
    if (!soloTextos) {
        for (int numero = 1; numero <= campos(mb); ++numero)
            tramas.append(TramaCampo(mb, coordenadas, numero));
        tramas.append(TramaTextosFijos(mb, tabla));
    }
    tramas.append(TramaCierre());
    return tramas;
}

QString mensajeFalloPuerto(const ModBase& mb, const FalloPuerto& fallo)
{
    // The catalogue has no sentence of its own for a port that fails, so
    // the message is made of its words: the port and its device, the
    // setting refused with its value, and what to check.
    QString m = mb.Textos(260) + QStringLiteral(": ") + fallo.nombre;
    if (!fallo.detalle.isEmpty())
        m += QStringLiteral(" (") + fallo.detalle + ')';
    if (fallo.tipo == FalloPuerto::Tipo::AjusteRechazado) {
        const AjustesLinea& a = fallo.ajustes;
        switch (fallo.ajuste) {
        case FalloPuerto::Ajuste::Velocidad:
            m += '\n' + mb.Textos(261) + QStringLiteral(": ") + QString::number(a.baudios);
            break;
        case FalloPuerto::Ajuste::Paridad:
            m += '\n' + mb.Textos(262) + QStringLiteral(": ") +
                 mb.Textos(a.paridad == 'E'   ? 1323
                           : a.paridad == 'O' ? 1324
                                              : 1322);
            break;
        case FalloPuerto::Ajuste::BitsDatos:
            m += '\n' + mb.Textos(263) + QStringLiteral(": ") + QString::number(a.bitsDatos);
            break;
        case FalloPuerto::Ajuste::BitsParada:
            m += '\n' + mb.Textos(1321) + QStringLiteral(": ") + QString::number(a.bitsParada);
            break;
        }
    }
    return m + '\n' + mb.Textos(989);
}
