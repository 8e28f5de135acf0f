#include "VentanasQt.h"

#include "frmBase.h"
#include "frmSplash.h"

#include <QEventLoop>

void VentanasQt::mostrarSplash(ModBase& mb)
{
    frmSplash splash(mb);
    splash.mostrar();
}

void VentanasQt::mostrarBase(ModBase& mb)
{
    frmBase base(mb, m_ui);
    base.setAcercaDe([&mb, &base] {
        frmSplash acerca(mb, &base);
        acerca.mostrar();
    });
    // The first label is made before the window is on the screen.
    base.mostrarCargaTXL();
    if (!m_archivo.isEmpty())
        base.abrirArchivo(m_archivo);
    QEventLoop loop;
    QObject::connect(&base, &frmBase::cerrado, &loop, &QEventLoop::quit);
    base.setWindowModality(Qt::ApplicationModal);
    base.show();
    loop.exec();
}
