#pragma once

#include "DialogoTextos.h"

#include <array>
#include <QDialog>

struct ModBase;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

// The free texts of the label, one row each: a row is opened by its check
// box, typed into and confirmed by OKButton, which leaves the dialog open;
// SalirButton ends it and keeps the texts for the next new label.
class frmTXL : public QDialog {
    Q_OBJECT
public:
    explicit frmTXL(ModBase& mb, QWidget* parent = nullptr);

private:
    void mostrar();
    void pulsarFila(int r, bool marcada);

    ModBase& m_mb;
    DialogoTXL m_logica;
    std::array<QCheckBox*, DialogoTXL::Filas> ChTXL{};
    std::array<QLineEdit*, DialogoTXL::Filas> TextTXL{};
    std::array<QLabel*, DialogoTXL::Filas> imTXLprog{};
    QPushButton* OKButton;
    QPushButton* CancelButton;
    QPushButton* SalirButton;
};
