#pragma once

#include <array>
#include <QString>

struct ModBase;

// The dialogs that choose fields by rows of check boxes, without their
// widgets: the descriptive lines, the label's kind, and the delete dialog.

// Descriptive lines: which of the ten are on the label now.
std::array<bool, 10> CargarDES(const ModBase& mb);
QString tituloDES(const ModBase& mb, int i);
// OKButton: a line newly ticked is left pending for the editor to place;
// one that stays ticked keeps its place; one cleared is off at once.
void AceptarDES(ModBase& mb, const std::array<bool, 10>& marcadas);

// Label kind: option 0 is the total label "T", option 1 the packing label
// "V"; -1 neither, for a kind that is neither.
int CargarTipoEtiq(const ModBase& mb);
// OKButton: the chosen kind on a fresh, empty label.
void AceptarTipoEtiq(ModBase& mb, int opcion);

// The delete dialog: 38 boxes, one field each, fields 13 and 14 with a box
// for each label kind.
struct CasillaBorrar {
    enum class Uso { Siempre, KindV, KindT, ModeloViejo, ModeloNuevo };
    const char* nombre; // the control's name
    int campo;
    int texto;  // catalogue id of its words
    int numero; // 1..15 for the numbered boxes, else 0
    Uso uso;
};

struct EstadoCasilla {
    bool visible = true;
    bool habilitada = true;
    bool marcada = false;
    QString titulo;
};

class DialogoBorrar {
public:
    static constexpr int Casillas = 38;
    static const CasillaBorrar& casillaDef(int k); // 0..37
    // The index of a box by its control name and number; -1 when none.
    static int indice(const char* nombre, int numero = 0);

    // The load: boxes shown for the model, usable for the fields present
    // and the label's kind, with their captions.
    explicit DialogoBorrar(ModBase& mb);

    const EstadoCasilla& casilla(int k) const { return m_estado.at(static_cast<size_t>(k)); }
    void marcar(int k, bool marcada);
    // CommandSelTodo: ticks every usable box, shown or not; clears none.
    void seleccionarTodo();
    // OKButton: the fields of the ticked boxes that count are reset.
    void aceptar();

private:
    bool cuenta(int k) const;

    ModBase& m_mb;
    std::array<EstadoCasilla, Casillas> m_estado;
};
