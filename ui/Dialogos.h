#pragma once

struct ModBase;
class QWidget;
class UserInteraction;

// The modal dialogs that the main window opens: each is made afresh, shown
// modally and dropped when it closes, so that all that outlives it lies in
// the shared block.
void mostrarFrmTXL(ModBase& mb, QWidget* parent);
void mostrarFrmDES(ModBase& mb, QWidget* parent);
void mostrarFrmBorrar(ModBase& mb, QWidget* parent);
void mostrarFrmTXF(ModBase& mb, int numero, QWidget* parent);
// The transfer settings; its buttons run the transfer in frmEnvio.
void mostrarFrmConfig(ModBase& mb, UserInteraction& ui, QWidget* parent);
void mostrarFrmTipoEtiq(ModBase& mb, QWidget* parent);
