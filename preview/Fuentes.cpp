#include "Fuentes.h"

#include <QDir>
#include <QFontDatabase>

void asegurarFuentes()
{
    static const bool hechas = [] {
        const QDir propias(QStringLiteral(":/korvo/fonts"));
        for (const QString& nombre : propias.entryList({QStringLiteral("*.ttf")}, QDir::Files))
            QFontDatabase::addApplicationFont(propias.filePath(nombre));
        return true;
    }();
    Q_UNUSED(hechas);
}
