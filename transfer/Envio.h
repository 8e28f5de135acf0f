#pragma once

#include "AdaptaCaracteres.h"
#include "CoordenadasEnvio.h"
#include "PuertoSerie.h"
#include "Tramas.h"

#include <cstdint>
#include <exception>
#include <QByteArray>
#include <QElapsedTimer>
#include <QList>
#include <QString>
#include <QTimer>

struct ModBase;
class UserInteraction;

// What the transfer window shows while a label goes out: a progress bar
// (ProBar1) and one line of text (lblText). The window implements it; the
// command line writes it to stderr.
class ProgresoEnvio {
public:
    virtual ~ProgresoEnvio() = default;
    virtual void setMaximo(int maximo) = 0;
    virtual void setValor(int valor) = 0;
    virtual void setTexto(const QString& texto) = 0;
};

// The transfer of the current label to the scale, as the window frmEnvio
// runs it: cargar() when the window loads, ejecutar() when it becomes
// active; the port is closed when this object goes. One frame at a time,
// each sent once and answered before the next; a failed frame ends the
// transfer with its message and no closing frame. The label is only read.
//
// The transfer is driven by the port's signals and one timer: a frame goes
// out, the reply or the end of the wait moves it on. iniciar() starts it and
// returns at once, terminado() says it ended, so that several transfers,
// each with a port of its own, share one thread and its event loop;
// ejecutar() starts it and waits for the end in a loop of its own.
class Envio : public QObject {
    Q_OBJECT

public:
    Envio(const ModBase& mb, PuertoSerie& puerto, UserInteraction& persona,
          ProgresoEnvio& progreso);
    ~Envio() override;
    Envio(const Envio&) = delete;
    Envio& operator=(const Envio&) = delete;

    void cargar();
    // After cargar(): another scale's number and line settings than those
    // of the block, for a transfer to one scale of many.
    void dirigir(int16_t numEquipo, const AjustesLinea& ajustes);
    void ejecutar();
    void iniciar();
    bool enCurso() const { return m_fase != Fase::Parado; }

    // 0 when the scale accepted the closing frame, 1 when anything failed.
    int16_t estadoEnvio() const { return m_estadoEnvio; }
    // The frame under construction, then the last frame sent; the reply so far.
    const QByteArray& trama() const { return m_trama; }
    const QByteArray& respuesta() const { return m_respuesta.texto(); }
    // What the program could not foresee (a run-time error while building a
    // frame) ended the transfer: ejecutar() throws it again, a caller of
    // iniciar() finds it here.
    std::exception_ptr error() const { return m_error; }

    // How long the scale has to answer a frame, from the moment it was
    // handed to the port, the frame's own time on the line included.
    static constexpr int EsperaMs = 3000;

    // Where the transfer stands, for a trace of the line.
    enum class Fase { Parado, Apertura, TextosLibres, Campos, TextosFijos, Cierre };

signals:
    // A frame went out whole: its place in the transfer (the free text's
    // index from 0, the field's number, else 0).
    void tramaEnviada(Envio::Fase fase, int indice, const QByteArray& trama);
    // The wait for the reply ended: what came (possibly nothing) and the
    // verdict, 0 accepted, 1 anything else.
    void respuestaRecibida(Envio::Fase fase, int indice, const QByteArray& respuesta,
                           int resultado);
    void terminado();

private:
    struct PuertoCaido {}; // the port failed; the transfer ends where it stands

    // Each step runs inside paso(), which ends the transfer on a failed port
    // or on what the program did not foresee.
    template <typename F> void paso(F&& f);
    void respuestaLista(int16_t resultado);
    void revisar();
    void agotado();

    void IniciaComunicacion();
    void EnviaTextoLibre();
    void EnviaCampo();
    void siguienteCampo();
    void EnviaTextosFijos();
    void FinalizaComunicacion();
    void esperar();
    void terminar();

    void reabrir();
    void enviar(const QByteArray& trama);
    void avanzar();
    void mostrarFalloPuerto();
    QString texto(int id) const;

    const ModBase& m_mb;
    PuertoSerie& m_puerto;
    UserInteraction& m_persona;
    ProgresoEnvio& m_progreso;

    CoordenadasEnvio m_coordenadas;
    TablaCaracteres m_tabla;
    QByteArray m_trama;
    LectorRespuesta m_respuesta;
    int16_t m_estadoEnvio = 0;
    int16_t m_numEquipo = 0;
    int m_valor = 0;
    Fase m_fase = Fase::Parado;
    int m_indice = 0;         // the free text or field in hand
    bool m_esperando = false; // a reply is awaited
    QTimer m_espera;
    QElapsedTimer m_entrega; // since the frame was handed over
    std::exception_ptr m_error;
};

// A whole transfer of the label in the shared block, over the port given,
// with the scale's number, the free-texts-only flag and the line settings
// from the block. 0 only when the scale accepted the closing frame.
int16_t EnviarEtiqueta(const ModBase& mb, PuertoSerie& puerto, UserInteraction& persona,
                       ProgresoEnvio& progreso);

// The frames a transfer of that label would send, in wire order, when the
// scale accepts every one: opening, free texts, then (unless texts only)
// fields and fixed texts, closing.
QList<QByteArray> TramasEtiqueta(const ModBase& mb, int16_t numEquipo, bool soloTextos);

// The message shown when the port fails, from the catalogue of the block.
QString mensajeFalloPuerto(const ModBase& mb, const FalloPuerto& fallo);
