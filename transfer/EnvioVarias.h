#pragma once

#include "Flota.h"
#include "ModBase.h"

#include <memory>
#include <QList>
#include <QObject>

class UserInteraction;

// The window's "send to several scales" without its widgets: the list of
// scales of the program folder (scales.csv, the CSV of the command line's
// LIST, kept apart from cfg.ini), a tick for each, and the label on the
// surface sent to every ticked scale at once. The label is taken as it
// stands when the sending starts and only read.
class EnvioVarias : public QObject {
    Q_OBJECT

public:
    EnvioVarias(const ModBase& mb, UserInteraction& persona);
    ~EnvioVarias() override;

    // The file of the list, in the program folder.
    QString ruta() const;
    // Reads the list, every scale ticked. When the file is missing or wrong
    // the person is told, and the list is empty.
    bool cargar();
    const QList<BalanzaLista>& balanzas() const { return m_balanzas; }
    bool marcada(int fila) const { return m_marcadas.value(fila); }
    void marcar(int fila, bool si);

    // Starts the transfers to the ticked scales; false when none is. With
    // a trace, the person chooses its file first (false when cancelled),
    // and it is written when the last scale has ended. Every label of the
    // set is the set file as saved, each label a transfer of its own in the
    // order of the set; without a set file the person is told.
    bool enviar(bool conTraza = false, bool todas = false);
    bool enCurso() const { return m_flota && m_flota->enCurso(); }
    // The progress and the result of a row, while and after it is sent;
    // null for a row not sent.
    const Flota::Resultado* resultado(int fila) const;
    // The result of a row as the window shows it: nothing yet, done, or
    // what failed (after the label that failed, when every label went).
    QString textoResultado(int fila) const;

signals:
    void progreso(int fila);
    void terminada(int fila);
    void terminado();

private:
    const ModBase& m_mb;
    UserInteraction& m_persona;
    QList<BalanzaLista> m_balanzas;
    QList<bool> m_marcadas;
    QList<int> m_filas; // the row of each scale sent
    ModBase m_etiqueta; // the label as it stood when the sending started
    std::unique_ptr<EtiquetasConjunto> m_conjunto;
    bool m_todas = false;
    std::unique_ptr<TrazaEnvio> m_traza;
    QString m_rutaTraza;
    std::unique_ptr<Flota> m_flota;
};
