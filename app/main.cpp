#include "KorvoApplication.h"
#include "ModBase.h"
#include "QtInteraction.h"
#include "VentanasQt.h"

int main(int argc, char** argv)
{
    KorvoApplication app(argc, argv);
    ModBase mb;
    mb.programDir = QCoreApplication::applicationDirPath();
    QtInteraction ui;
    VentanasQt ventanas(ui);
    return Main(mb, ui, ventanas);
}
