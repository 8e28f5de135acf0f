#include "CarpetaPrograma.h"
#include "KorvoApplication.h"
#include "ModBase.h"
#include "QtInteraction.h"
#include "VentanasQt.h"

#include <QFileInfo>

int main(int argc, char** argv)
{
    KorvoApplication app(argc, argv);
    ModBase mb;
    QtInteraction ui;
    const QString aviso = fijarCarpetas(mb, QCoreApplication::applicationDirPath());
    if (!aviso.isEmpty())
        ui.message(aviso);
    // A set or label file named on the command line (a double click on it
    // in the file manager) is opened once the first label is made. Qt has
    // taken its own options out already.
    const QStringList argumentos = QCoreApplication::arguments().mid(1);
    VentanasQt ventanas(
        ui, argumentos.isEmpty() ? QString() : QFileInfo(argumentos.first()).absoluteFilePath());
    return Main(mb, ui, ventanas);
}
