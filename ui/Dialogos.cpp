#include "Dialogos.h"

// Placeholders until the dialogs are built: each returns at once, as a
// dialog closed with Cancel would.
void mostrarFrmTXL(ModBase&, QWidget*) {}
void mostrarFrmDES(ModBase&, QWidget*) {}
void mostrarFrmBorrar(ModBase&, QWidget*) {}
void mostrarFrmTXF(ModBase&, int, QWidget*) {}
void mostrarFrmConfig(ModBase&, UserInteraction&, QWidget*) {}
void mostrarFrmTipoEtiq(ModBase&, QWidget*) {}
