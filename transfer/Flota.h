#pragma once

#include "Envio.h"
#include "UserInteraction.h"

#include <deque>
#include <memory>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <vector>

struct ModBase;

// One scale of a list of scales: its name, the port that reaches it (a
// device, COM1..COM4 or tcp://HOST:PORT), its number and line settings.
struct BalanzaLista {
    QString nombre;
    QString puerto;
    int16_t equipo = 1;
    AjustesLinea ajustes;
    int linea = 0; // where it stands in the list, counting from 1
};

// A list of scales as CSV: a header line naming the columns name, port and
// equipo in any order, optionally baud, parity (N, E, O), data (7, 8) and
// stop (1, 2), which default to `porDefecto`; then one scale a line, no
// quotes. Every mistake is told by its line in `errores`, and then no scale
// is returned.
QList<BalanzaLista> leerListaBalanzas(const QByteArray& texto, const AjustesLinea& porDefecto,
                                      QStringList& errores);

// One label to send: its kind and number as the set names it ("V3") and the
// shared block that holds it, unfolded.
struct EtiquetaEnvio {
    QString nombre;
    const ModBase* mb = nullptr;
};

// Every label of a set file, unfolded as the open command unfolds each, in
// the order of the set: the packing labels, then the total labels, from the
// model's first number. Each lives in a block of its own, a copy of the one
// given (its settings, language and catalogue) with the label in it.
class EtiquetasConjunto {
public:
    EtiquetasConjunto(const ModBase& mb, const QString& ruta);
    const QList<EtiquetaEnvio>& etiquetas() const { return m_etiquetas; }

private:
    std::deque<ModBase> m_bloques;
    QList<EtiquetaEnvio> m_etiquetas;
};

// A trace of the line for a technician: every frame sent and every reply
// received, with the time, the scale, the label, what the frame is, the
// bytes in hex and the verdict; and how each transfer ended.
class TrazaEnvio {
public:
    void seguir(Envio& envio, const QString& balanza, const EtiquetaEnvio& etiqueta);
    void nota(const QString& balanza, const QString& texto);
    const QByteArray& texto() const { return m_texto; }
    // Written whole or not at all.
    void guardar(const QString& ruta) const;

private:
    QByteArray m_texto;
};

// What a frame is, for a person: "opening", "free text 3", "field 13 (M)",
// "fixed texts", "closing".
QString descripcionTrama(const ModBase& mb, Envio::Fase fase, int indice);

// Messages kept instead of shown: a scale of many has no window of its own.
class MensajesGuardados : public SilentInteraction {
public:
    QStringList mensajes;
    void message(const QString& text) override { mensajes.append(text); }
};

// The labels sent to every scale of a list at once, on this thread and its
// event loop: each scale has its own port and its own transfer, and gets
// the labels one after the other, as one transfer each; a failure ends that
// scale's series and no other.
class Flota : public QObject {
    Q_OBJECT

public:
    Flota(const QList<EtiquetaEnvio>& etiquetas, const QList<BalanzaLista>& balanzas,
          const QString& programDir, TrazaEnvio* traza = nullptr);
    ~Flota() override;

    void iniciar();
    // iniciar() and a loop of its own until every scale has ended.
    void ejecutar();
    bool enCurso() const { return m_pendientes > 0; }

    struct Resultado {
        bool terminada = false;
        bool ok = false;
        QString etiqueta; // the label that failed
        QString mensaje;  // what the window would have shown, on one line
        int valor = 0;    // the progress of the transfer in hand
        int maximo = 1;
        int enviadas = 0; // labels the scale accepted
    };
    int cuantas() const { return static_cast<int>(m_unidades.size()); }
    const BalanzaLista& balanza(int i) const;
    const Resultado& resultado(int i) const;
    int terminadas() const;

signals:
    void progreso(int balanza);
    void balanzaTerminada(int balanza);
    void terminado();

private:
    struct Unidad;
    void siguiente(Unidad& u);
    void alTerminar(Unidad& u);
    void cerrar(Unidad& u);

    QList<EtiquetaEnvio> m_etiquetas;
    QString m_programDir;
    TrazaEnvio* m_traza;
    std::vector<std::unique_ptr<Unidad>> m_unidades;
    int m_pendientes = 0;
};
