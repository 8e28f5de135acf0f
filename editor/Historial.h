#pragma once

#include "BoundedArray.h"
#include "Campo.h"
#include "FileCommands.h"

#include <functional>
#include <QByteArray>
#include <QList>
#include <QString>

struct ModBase;
class EditorView;

// The label as a command may change it: every record, the header, the
// texts, the name and width, and the controls that show them.
struct EstadoEtiqueta {
    BoundedArray<Campo, 1, 36> Campos;
    BoundedArray<QByteArray, 0, 1> TextoFijo;
    BoundedArray<QByteArray, 0, 14> TextoLibre;
    QByteArray TipoEtiqueta, NumEtiqueta, AnchoEtiqueta, NombreEtiqueta;
    ControlesBase controles;

    static EstadoEtiqueta de(const ModBase& mb, const FileCommands& files);
    void aplicar(ModBase& mb, FileCommands& files) const;
    // The same label; the red selection alone is no change of it.
    bool mismaEtiqueta(const EstadoEtiqueta& o) const;
};

// Undo and redo. After every command the window calls `registrar`: a label
// that changed becomes one step, named by what changed. A different label
// coming in (a load, another label of the set, a new label, the model
// switch) starts the history afresh at the point where the files stand; a
// save moves that point. After an undo or redo the label counts as modified
// exactly when the history is elsewhere. Undo and redo touch no file.
class Historial {
public:
    Historial(ModBase& mb, FileCommands& files, EditorView& view);

    static constexpr int kPasosMax = 200;

    void registrar();
    // Runs a command, then registers what it left.
    void orden(const std::function<void()>& f);
    void reiniciar();

    bool puedeDeshacer() const { return m_actual > 0; }
    bool puedeRehacer() const { return m_actual + 1 < m_pasos.size(); }
    void deshacer();
    void rehacer();
    // The menu entries' captions: what the next undo and redo bring back.
    QString captionDeshacer() const;
    QString captionRehacer() const;
    // The text id of what changed from one label to the other.
    static int clase(const EstadoEtiqueta& antes, const EstadoEtiqueta& despues);

private:
    struct Paso {
        EstadoEtiqueta estado;
        int textId = 0; // what the step into this state changed
    };
    void ir(int indice);

    ModBase& m_mb;
    FileCommands& m_files;
    EditorView& m_view;
    QList<Paso> m_pasos;
    int m_actual = 0;
    int m_guardado = 0; // where the files stand; -1: at no state of the history
    int m_generacion = -1;
    int m_guardados = 0;
    bool m_escribiendoNombre = false; // the last step was typing in the name box
};
