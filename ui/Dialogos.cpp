#include "Dialogos.h"

#include "frmBorrar.h"
#include "frmConfig.h"
#include "frmDES.h"
#include "frmTXF.h"
#include "frmTXL.h"

void mostrarFrmTXL(ModBase& mb, QWidget* parent)
{
    frmTXL dialogo(mb, parent);
    dialogo.exec();
}

void mostrarFrmDES(ModBase& mb, QWidget* parent)
{
    frmDES dialogo(mb, parent);
    dialogo.exec();
}

void mostrarFrmBorrar(ModBase& mb, QWidget* parent)
{
    frmBorrar dialogo(mb, parent);
    dialogo.exec();
}

// Both lines are in the dialog, whichever of them the menu was opened on.
void mostrarFrmTXF(ModBase& mb, int, QWidget* parent)
{
    frmTXF dialogo(mb, parent);
    dialogo.exec();
}

void mostrarFrmConfig(ModBase& mb, UserInteraction& ui, QWidget* parent)
{
    frmConfig dialogo(mb, ui, parent);
    dialogo.exec();
}

void mostrarFrmTipoEtiq(ModBase& mb, QWidget* parent)
{
    frmTipoEtiq dialogo(mb, parent);
    dialogo.exec();
}
