#include "EtiquetasPrueba.h"

#include "ModBase.h"
#include "ProgramDir.h"

#include <QDir>
#include <QFile>
#include <QImage>

void copiaImagenesStock(const ProgramDir& dir)
{
    const QDir res(QStringLiteral(KORVO_SOURCE_DIR "/res"));
    QDir().mkpath(dir.file(QStringLiteral("res")));
    for (const QString& f : res.entryList({QStringLiteral("*.wmf")}, QDir::Files))
        QFile::copy(res.filePath(f), dir.file(QStringLiteral("res/") + f));
}

void pon(ModBase& mb, int campo, int hor, int ver, const char* tamano)
{
    Campo& c = mb.Campos(campo);
    c.Presente = "1";
    c.Tamano = tamano;
    c.PosHor = static_cast<int16_t>(hor);
    c.PosVer = static_cast<int16_t>(ver);
}

void etiquetaReferencia(ModBase& mb, const QString& nombre)
{
    InicializarEtiqueta(mb);
    mb.Idioma = 1;
    mb.ModeloNuevo = 1;
    if (nombre == QLatin1String("envasado45")) {
        // A packing label as shops use it: name lines, weight with its
        // approximate line, price and amount, the dates and the bar code.
        mb.PesoAproximado = true;
        mb.TextoFijo(0) = "CARNICERIA PEREZ";
        pon(mb, 1, 5, 9);
        pon(mb, 2, 5, 14, "1");
        pon(mb, 11, 4, 20);
        pon(mb, 13, 20, 20, "1");
        pon(mb, 14, 36, 20, "2");
        pon(mb, 17, 4, 28);
        pon(mb, 18, 20, 28, "1");
        pon(mb, 16, 16, 33);
        pon(mb, 26, 43, 28);
    } else if (nombre == QLatin1String("total60")) {
        mb.TipoEtiqueta = "T";
        mb.AnchoEtiqueta = "60";
        mb.TextoFijo(0) = "TOTAL TICKET";
        mb.TextoFijo(1) = " ";
        pon(mb, 1, 4, 10, "2");
        pon(mb, 20, 5, 18, "1");
        pon(mb, 13, 5, 26, "3");
        pon(mb, 14, 5, 36, "3");
        pon(mb, 15, 5, 46);
        pon(mb, 19, 30, 46, "3");
        pon(mb, 16, 16, 50);
    } else if (nombre == QLatin1String("textoslibres")) {
        mb.TextoLibre(0) = "OFERTA";
        mb.TextoLibre(4) = "CONSERVAR EN FRIO";
        mb.TextoLibre(5) = "";
        mb.TextoLibre(14) = "HECHO EN CASA CON AMOR Y";
        pon(mb, 21, 5, 8);
        pon(mb, 25, 5, 15, "2");
        pon(mb, 27, 5, 22);
        pon(mb, 36, 5, 30, "1");
        pon(mb, 12, 5, 40, "3");
    } else if (nombre == QLatin1String("antiguo")) {
        // The old model stops at field 25: the lot and free text 6 stay out.
        mb.ModeloNuevo = 0;
        mb.TextoLibre(0) = "AAA";
        mb.TextoLibre(5) = "NO SALE";
        pon(mb, 10, 5, 6, "3");
        pon(mb, 21, 5, 14);
        pon(mb, 26, 5, 22);
        pon(mb, 27, 5, 30);
        pon(mb, 16, 16, 32);
    }
}

QString datosPreview(const QString& relativo)
{
    return QStringLiteral(KORVO_SOURCE_DIR "/tests/data/preview/") + relativo;
}

int oscuros(const QImage& img)
{
    int n = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            n += qGray(img.pixel(x, y)) < 128;
    return n;
}
