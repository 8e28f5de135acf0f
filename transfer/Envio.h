#pragma once

#include "AdaptaCaracteres.h"
#include "CoordenadasEnvio.h"
#include "PuertoSerie.h"
#include "Tramas.h"

#include <cstdint>
#include <QByteArray>
#include <QElapsedTimer>
#include <QList>
#include <QString>

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
class Envio {
public:
    Envio(const ModBase& mb, PuertoSerie& puerto, UserInteraction& persona,
          ProgresoEnvio& progreso);
    ~Envio();
    Envio(const Envio&) = delete;
    Envio& operator=(const Envio&) = delete;

    void cargar();
    void ejecutar();

    // 0 when the scale accepted the closing frame, 1 when anything failed.
    int16_t estadoEnvio() const { return m_estadoEnvio; }
    // The frame under construction, then the last frame sent; the reply so far.
    const QByteArray& trama() const { return m_trama; }
    const QByteArray& respuesta() const { return m_respuesta.texto(); }

    // How long the scale has to answer a frame, from the moment it was
    // handed to the port, the frame's own time on the line included.
    static constexpr int EsperaMs = 3000;

private:
    struct PuertoCaido {}; // the port failed; the transfer ends where it stands

    void IniciaComunicacion();
    void EnviaTextosLibres();
    void EnviaCampos();
    void EnviaCampo(int numero, bool& hecho);
    void EnviaTextosFijos();
    void FinalizaComunicacion();
    void EsperaRespuesta(int16_t& resultado);

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
    int m_valor = 0;
    QElapsedTimer m_entrega; // since the frame was handed over
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
