// A surface without a window, for measuring the editor: the views do
// nothing and every background loads.
#pragma once

#include "EditorEtiqueta.h"
#include "FileCommands.h"

class SinVentana : public BaseView, public EditorView {
public:
    void refresh() override {}
    void mostrarCargaTXL() override {}
    void repintarCuadro() override {}
    void repintarVentana() override {}
    void mostrarTXL() override {}
    void mostrarDES() override {}
    void mostrarBorrar() override {}
    void mostrarTXF(int) override {}
    void abrirMenu(MenuEmergente) override {}
};

class SinFondo : public CargadorFondo {
public:
    bool cargar(const QString&) override { return true; }
};
