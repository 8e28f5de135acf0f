#include "Envio.h"

#include "ModBase.h"
#include "UserInteraction.h"

#include <QEventLoop>

#include <utility>

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
{
    m_espera.setSingleShot(true);
    // The scale's 3000 ms are exact: a coarse timer may fire a twentieth early.
    m_espera.setTimerType(Qt::PreciseTimer);
    connect(&m_espera, &QTimer::timeout, this, [this] { paso([this] { agotado(); }); });
    connect(&m_puerto, &PuertoSerie::readyRead, this, [this] { paso([this] { revisar(); }); });
    connect(&m_puerto, &PuertoSerie::averia, this, [this] { paso([this] { revisar(); }); });
}

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
    m_numEquipo = m_mb.NumEquipo;
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

void Envio::dirigir(int16_t numEquipo, const AjustesLinea& ajustes)
{
    m_numEquipo = numEquipo;
    m_puerto.setSettings(ajustes);
}

void Envio::ejecutar()
{
    QEventLoop bucle;
    connect(this, &Envio::terminado, &bucle, &QEventLoop::quit);
    iniciar();
    // The window stays painted meanwhile: the loop sleeps until the scale
    // answers, the time is up or the port fails.
    if (enCurso())
        bucle.exec();
    if (m_error)
        std::rethrow_exception(std::exchange(m_error, nullptr));
}

void Envio::iniciar()
{
    m_error = nullptr;
    m_estadoEnvio = 0;
    m_fase = Fase::Apertura;
    m_indice = 0;
    paso([this] {
        CalculaCoordenadasEnvio(m_mb, m_coordenadas);
        IniciaComunicacion();
    });
}

template <typename F> void Envio::paso(F&& f)
{
    if (m_fase == Fase::Parado)
        return;
    try {
        f();
    } catch (const PuertoCaido&) {
        // A port that fails ends the transfer where it stands, with one
        // message that names the port; no other frame is tried.
        m_estadoEnvio = 1;
        mostrarFalloPuerto();
        m_puerto.close();
        terminar();
    } catch (...) {
        // Not across the event loop: the one who started the transfer
        // meets it when the transfer has ended.
        m_error = std::current_exception();
        terminar();
    }
}

void Envio::terminar()
{
    m_esperando = false;
    m_espera.stop();
    m_fase = Fase::Parado;
    emit terminado();
}

void Envio::mostrarFalloPuerto()
{
    m_persona.message(mensajeFalloPuerto(m_mb, m_puerto.fallo()));
}

void Envio::reabrir()
{
    if (!m_puerto.reabrir())
        throw PuertoCaido{};
}

void Envio::enviar(const QByteArray& trama)
{
    if (!m_puerto.output(trama))
        throw PuertoCaido{};
    m_entrega.start();
    emit tramaEnviada(m_fase, m_indice, trama);
    esperar();
}

void Envio::avanzar()
{
    m_progreso.setValor(++m_valor);
}

void Envio::esperar()
{
    // The time runs from the hand-over, not from here.
    m_espera.start(static_cast<int>(std::max<qint64>(0, EsperaMs - m_entrega.elapsed())));
    // What waits in the input from before is part of this reply: only an
    // opening of the port empties it. Looked at once the step has returned.
    m_respuesta.vaciar();
    m_esperando = true;
    QMetaObject::invokeMethod(
        this, [this] { paso([this] { revisar(); }); }, Qt::QueuedConnection);
}

void Envio::revisar()
{
    if (!m_esperando)
        return;
    if (m_puerto.fallo().tipo != FalloPuerto::Tipo::Ninguno)
        throw PuertoCaido{};
    if (m_puerto.inBufferCount() == 0)
        return;
    m_respuesta.agregar(m_puerto.input());
    if (!m_respuesta.completa())
        return;
    m_esperando = false;
    m_espera.stop();
    const int16_t resultado = m_respuesta.resultado();
    emit respuestaRecibida(m_fase, m_indice, m_respuesta.texto(), resultado);
    respuestaLista(resultado);
}

void Envio::agotado()
{
    if (!m_esperando)
        return;
    m_esperando = false;
    if (m_puerto.fallo().tipo != FalloPuerto::Tipo::Ninguno)
        throw PuertoCaido{};
    emit respuestaRecibida(m_fase, m_indice, m_respuesta.texto(), 1);
    // A port may know more than the silence: a connection never answered.
    if (m_puerto.fallaPorSilencio())
        throw PuertoCaido{};
    respuestaLista(1);
}

void Envio::respuestaLista(int16_t resultado)
{
    switch (m_fase) {
    case Fase::Parado:
        return;
    case Fase::Apertura:
        m_estadoEnvio = resultado;
        if (m_respuesta.rechazaApertura()) {
            m_persona.message(texto(544));
            m_estadoEnvio = 1;
            if (m_puerto.portOpen())
                m_puerto.close();
        }
        if (m_estadoEnvio != 0) {
            m_persona.message(texto(989));
            terminar();
            return;
        }
        m_progreso.setTexto(texto(516) + ' ' + texto(1307) + QStringLiteral("..."));
        // The free texts share one opening of the port.
        m_fase = Fase::TextosLibres;
        m_indice = 0;
        reabrir();
        EnviaTextoLibre();
        return;
    case Fase::TextosLibres:
        if (resultado != 0) {
            m_persona.message(texto(1327) + ' ' + texto(1307));
            m_estadoEnvio = 1;
            terminar();
            return;
        }
        avanzar();
        if (++m_indice < textosLibres(m_mb)) {
            EnviaTextoLibre();
            return;
        }
        if (m_mb.SoloTextos) {
            FinalizaComunicacion();
            return;
        }
        m_progreso.setTexto(texto(516) + ' ' + texto(258) + ' ' + texto(623) +
                            QStringLiteral("..."));
        m_fase = Fase::Campos;
        m_indice = 1;
        EnviaCampo();
        return;
    case Fase::Campos:
        if (resultado == 0) {
            avanzar();
        } else {
            m_persona.message(texto(1327) + ' ' + texto(258) + ' ' + texto(623));
            m_estadoEnvio = 1;
            // The second currency is the one field whose refusal does not
            // stop the fields: the rest still go, though the transfer has
            // failed and will end after them.
            if (m_indice != 15) {
                terminar();
                return;
            }
        }
        siguienteCampo();
        return;
    case Fase::TextosFijos:
        if (resultado != 0) {
            m_persona.message(texto(1327) + ' ' + texto(1337));
            m_estadoEnvio = 1;
            terminar();
            return;
        }
        avanzar();
        FinalizaComunicacion();
        return;
    case Fase::Cierre:
        m_estadoEnvio = resultado;
        m_persona.message(texto(m_estadoEnvio != 0 ? 1328 : 445));
        if (m_puerto.portOpen())
            m_puerto.close();
        terminar();
        return;
    }
}

void Envio::IniciaComunicacion()
{
    reabrir();
    m_trama = TramaApertura(m_numEquipo);
    enviar(m_trama);
}

void Envio::EnviaTextoLibre()
{
    m_trama = TramaTextoLibre(m_mb, m_tabla, m_indice);
    enviar(m_trama);
}

void Envio::EnviaCampo()
{
    // Every field frame gets a fresh opening, and so an empty input buffer.
    reabrir();
    m_trama = TramaCampo(m_mb, m_coordenadas, m_indice);
    enviar(m_trama);
}

void Envio::siguienteCampo()
{
    if (++m_indice <= campos(m_mb)) {
        EnviaCampo();
        return;
    }
    if (m_estadoEnvio != 0) {
        terminar();
        return;
    }
    m_progreso.setTexto(texto(516) + ' ' + texto(1337) + ' ' + texto(623) + QStringLiteral("..."));
    m_fase = Fase::TextosFijos;
    m_indice = 0;
    EnviaTextosFijos();
}

void Envio::EnviaTextosFijos()
{
    reabrir();
    m_trama = TramaTextosFijos(m_mb, m_tabla);
    enviar(m_trama);
}

void Envio::FinalizaComunicacion()
{
    if (!m_puerto.portOpen()) {
        terminar();
        return;
    }
    m_fase = Fase::Cierre;
    m_indice = 0;
    m_trama = TramaCierre();
    enviar(m_trama);
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
    const QString detalle = fallo.textoId != 0 ? mb.Textos(fallo.textoId) : fallo.detalle;
    if (!detalle.isEmpty())
        m += QStringLiteral(" (") + detalle + ')';
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
