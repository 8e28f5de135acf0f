#include "TextosLibres.h"

#include "Filas.h"
#include "FileSystem.h"
#include "ModBase.h"
#include "TextLines.h"

namespace {
const char* const kFreetxl = "freetxl.sft";
}

QByteArray formaFreetxl(const ModBase& mb)
{
    QList<QByteArray> rows;
    for (int i = 0; i < mb.textosLibresModelo(); ++i)
        rows.append(filaTextoLibre(i, mb.TextoLibre(i), mb.ModeloNuevo));
    return joinLines(rows);
}

void GuardarFreetxl(const ModBase& mb)
{
    fs::writeAll(fs::inProgramDir(mb, kFreetxl), formaFreetxl(mb));
}

void leerFreetxl(ModBase& mb, const QList<QByteArray>& lines)
{
    const int desde = mb.ModeloNuevo ? 5 : 4;
    for (int k = 0; k < lines.size(); ++k)
        mb.TextoLibre(k) = columns(lines.at(k), desde, 25);
}

void AceptarCargaTXL(ModBase& mb)
{
    mb.TextoLibre.fill(QByteArray());
    const QString path = fs::inProgramDir(mb, kFreetxl);
    if (mb.CargaTXL == 1 && fs::fileExists(path))
        leerFreetxl(mb, splitLines(fs::readAll(path)));
    etiquetaNueva(mb);
}

void etiquetaNueva(ModBase& mb)
{
    mb.Modificado = false;
    mb.ArchivoConocido = false;
    mb.NumEtiqueta = mb.ModeloNuevo == 1 ? "3" : "1";
    mb.AnchoEtiqueta = "45";
    mb.NombreEtiqueta.clear();
    for (int n = 1; n <= 36; ++n)
        InicializarCampo(mb, n);
}
