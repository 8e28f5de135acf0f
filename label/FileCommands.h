#pragma once

#include "BoundedArray.h"
#include "UserInteraction.h"

#include <cstdint>
#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

struct ModBase;

// What the file commands need of the main window: a refresh (the surface
// rebuilt from the fields and every caption rewritten) and the free text load
// dialog, which makes every new label.
class BaseView : public WindowRefresh {
public:
    // Shows frmCargaTXL modally; its OK runs AceptarCargaTXL.
    virtual void mostrarCargaTXL() = 0;
};

// No window at all: for the command line, fuzzing and measuring.
class HeadlessView : public BaseView {
public:
    void refresh() override {}
    void mostrarCargaTXL() override {}
};

// Whether a path is a label file rather than a set file: the open command
// looks at the next-to-last character of the name alone ("x.pde", "abc.d1").
bool esArchivoEtiqueta(const QString& path);

// The controls of the main window that the commands read and set, kept here
// so that the commands run without a screen; the window shows them.
struct ControlesBase {
    QString TxtNomEtiq; // the name box
    int VSEtiq = 1;     // the label number selector, VSEtiqMin..5
    int VSEtiqMin = 1;
    QString TxtNumEtiq; // the number beside it
    int VSVer = 45;     // the surface's height
    QString lblNombre;  // the label line
};

// The set held as the lines of its file, one label of it unfolded into the
// shared block at a time, and the commands that open, import, save and
// switch labels and models. Every question goes through UserInteraction and
// every refresh through the view.
class FileCommands {
public:
    FileCommands(ModBase& mb, UserInteraction& ui, BaseView& view);

    // The store: index = line of the set file minus 1.
    BoundedArray<QByteArray, 0, 300> Lineas;
    QString ArchivoConjunto; // path the store was last loaded or built with
    QString FechaTextos;     // date text of the label file the free texts came from
    bool TextosExternos = false;
    int16_t IgnorarCambioEtiq = 0;
    bool Convirtiendo = false;
    ControlesBase controles;
    // Counts the times a different label came in: a load, another label of
    // the set, a new label, the model switch.
    int generacion = 0;
    // Counts the saves of the label in hand.
    int guardados = 0;

    // How many lines a set file of the model in force has.
    int lineasConjunto() const;
    // Where a label's block line stands: p is the number for "V", the number
    // plus 3 (new) or 5 (old) for "T".
    int indiceBloque(int p) const;
    int indiceTextoFijo() const;

    void IniciaLineas();
    void RealizarConjunto();
    void AlmacenaFreeText(const QString& ruta);
    void AlmacenaLineas(const QString& ruta);
    void CargarConjunto();
    void CargarEtiquetaConjunto(int p);
    void GuardarEtiquetaConjunto();
    void GuardaConjunto();
    void GuardaEtiComo();
    void NuevoConjunto();
    // The menu entry Nueva: unlike the tool bar's button, it runs Actualiza.
    void menuNueva();

    void Abrir_Eti();
    // Opens the set or label file at `ruta` as Open does once it has its
    // path (the program's command line gives one): a path that leads to no
    // file is told with the catalogue's message and changes nothing.
    void abrirArchivo(const QString& ruta);
    void CargarEti2();
    void CargarEti();
    void GuardaEti();

    // The Save command: the set's own file when it has one, else Save As.
    void Guardar();
    // The common tail of every load.
    void Actualiza();

    // The person typed in the name box.
    void cambioNombre(const QString& texto);
    // The person moved the label number selector to `valor`.
    void cambioEtiqueta(int valor);
    // The tool bar's Convertir: the label of the same number of the other kind.
    void Convertir();
    // The mouse went down on the model check box; false when the switch was cancelled.
    bool pulsarCompatibilidad();
    // The model check box changed to `nuevo`.
    void cambiarModelo(bool nuevo);
    // May the window close? Asks about unsaved changes.
    bool consultaCierre();

    // The label line: the name, the kind and the number, while the name box
    // is not empty; with no name it is left as it is.
    void completarLblNombre();

    // The lines of the store that a set file of the model in force holds.
    QList<QByteArray> lineasArchivo() const;
    // The lines of a label file of the shared block (GuardaEti's rows).
    QList<QByteArray> lineasEtiqueta(const QByteArray& tipo) const;
    // Reads a label file's lines into the shared block; returns how many
    // lines were beyond its format.
    int leerLineasEtiqueta(const QList<QByteArray>& lines);
    // The two halves of the import that take outside lines: a freetxt.txt's
    // rows, and a label file's rows with the file's date text.
    void almacenaTextosExternos(const QList<QByteArray>& lines);
    void almacenaLineasEtiqueta(const QList<QByteArray>& lines, const QString& fecha);
    // Reads a set file's lines into the store.
    void leerLineasConjunto(const QList<QByteArray>& lines);
    // Reads the set file at `ruta` into the store. A file longer than the
    // store ends on "Subscript out of range" at its first line past it, as
    // reading it whole would, without the rest of it ever being read.
    void leerArchivoConjunto(const QString& ruta);

    // Keeps the work in hand, the store with the label being edited folded
    // in, as a set file of its own in the folder "recovery" of the program's
    // folder, named after the set and the time; returns its path.
    QString GuardarRecuperacion(const QDateTime& ahora) const;

private:
    // Writes the label of the shared block and the texts into the lines.
    void plegarEtiqueta(BoundedArray<QByteArray, 0, 300>& lineas) const;
    QList<QByteArray> lineasArchivo(const BoundedArray<QByteArray, 0, 300>& lineas) const;
    // Yes saves, No goes on, Cancel stops: false when the command is to stop.
    bool preguntarYGuardar();
    void cargarDeArchivo(); // the tail shared by every load
    void cargarRuta();      // opens ArchivoActual, a set or a label file
    QByteArray codificar(const QString& texto) const;
    QString decodificar(const QByteArray& bytes) const;

    // The file the work in hand came from or last went to, empty for work
    // that has none: what a recovery copy is named after.
    QString m_archivoTrabajo;
    ModBase& m_mb;
    UserInteraction& m_ui;
    BaseView& m_view;
};
