#pragma once

#include <array>
#include <cstdint>
#include <QByteArray>
#include <QString>

struct ModBase;

// The free and fixed text dialogs without their widgets.

// A letter typed into a free or fixed text box becomes a capital as it is
// typed: the codes of "a" to "z" and 241 lose 32 in the code page of the
// language, so "ñ" becomes "Ñ" (and, in Greek, "ρ" "Ρ"), while the other
// accented letters stay as typed.
QString mayusculasAlTeclear(int16_t idioma, const QString& tecleado);

// Free texts. A row is one free text, i from 1 to 15; the model decides
// which rows are shown: 1 to 5 on the old one, 6 to 15 on the new one,
// where they read 1 to 10.
struct FilaTXL {
    bool visible = false;
    QString titulo;
    bool marcada = false;      // ChTXL on: the row is open
    bool marcable = true;      // ChTXL enabled
    bool textoVisible = false; // TextTXL
    bool textoHabilitado = false;
    QString texto;           // what TextTXL holds
    bool enEtiqueta = false; // the check mark beside the box
};

class DialogoTXL {
public:
    static constexpr int Filas = 15;
    static constexpr int Longitud = 25;

    // The dialog's load: which rows show, which texts are on the label now.
    explicit DialogoTXL(ModBase& mb);

    const FilaTXL& fila(int i) const { return m_filas.at(static_cast<size_t>(i - 1)); }
    int filaActual() const { return m_filaActual; }

    // Run whenever the dialog is drawn and after each OK.
    void repintar();
    // A click on the row's check box, which is now on or off.
    void pulsarFila(int r, bool marcada);
    // The person typed in the row's box.
    void cambiarTexto(int r, const QString& texto);
    // OKButton: the open row goes onto the label; the dialog stays.
    void aceptar();
    // SalirButton: texts newly on the label are left for the editor to
    // place, and freetxl.sft keeps all of them for the next new label.
    void salir();

private:
    FilaTXL& f(int i) { return m_filas.at(static_cast<size_t>(i - 1)); }
    bool campoPresente(int i) const;
    void reponerFilaActual();

    ModBase& m_mb;
    std::array<FilaTXL, Filas> m_filas;
    std::array<bool, Filas> m_textoPresente{};
    int m_filaActual = 1;
};

// Fixed texts: the box shows a line without the blanks that fill it up to
// 25 characters; a line shorter than that is shown whole.
QString textoFijoParaCaja(int16_t idioma, const QByteArray& texto);
// OKButton: both lines as they stand in their boxes, with no fill.
void AceptarTXF(ModBase& mb, const QString& linea1, const QString& linea2);
