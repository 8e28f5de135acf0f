#pragma once

#include "DialogoCampos.h"

#include <array>
#include <QDialog>

struct ModBase;
class QCheckBox;
class QPushButton;

// The fields to take off the current label, ticked together.
class frmBorrar : public QDialog {
    Q_OBJECT
public:
    explicit frmBorrar(ModBase& mb, QWidget* parent = nullptr);

private:
    void mostrar();

    ModBase& m_mb;
    DialogoBorrar m_logica;
    std::array<QCheckBox*, DialogoBorrar::Casillas> m_casillas{};
    QPushButton* CommandSelTodo;
    QPushButton* OKButton;
    QPushButton* CancelButton;
};
