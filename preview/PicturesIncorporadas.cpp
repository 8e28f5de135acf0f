#include "PicturesIncorporadas.h"

#include "CatalogoCampos.h"
#include "RuntimeError.h"

#include <array>
#include <QFile>

QString recursoIncorporado(int item)
{
    if (item < 0 || item > 36)
        throw RuntimeError::subscriptOutOfRange();
    if (const int n = textoLibreDeCampo(item))
        return QStringLiteral(":/korvo/preview/%1A.wmf").arg(n);
    const char* nombre = "pesoaprox";
    if (item >= 1 && item <= 10)
        nombre = "descriptivo";
    else if (item == 11 || item == 12)
        nombre = "peso";
    else if (item == 13 || item == 14)
        nombre = "importe";
    else if (item == 15)
        nombre = "moneda";
    else if (item == 16)
        nombre = "barras";
    else if (item >= 17 && item <= 19)
        nombre = "fecha";
    else if (item == 20)
        nombre = "total";
    else if (item == 26)
        nombre = "lote";
    return QStringLiteral(":/korvo/preview/%1.wmf").arg(QLatin1String(nombre));
}

std::shared_ptr<const Picture> imagenIncorporada(int item)
{
    // Read once: they cannot change while the program runs.
    static std::array<std::shared_ptr<const Picture>, 37> cache;
    if (item < 0 || item > 36)
        throw RuntimeError::subscriptOutOfRange();
    auto& slot = cache[static_cast<size_t>(item)];
    if (!slot) {
        QFile f(recursoIncorporado(item));
        if (!f.open(QIODevice::ReadOnly))
            throw RuntimeError::fileNotFound();
        PictureLoad r = readPictureData(f.readAll());
        if (r.error != PictureError::None)
            throw RuntimeError(481, QStringLiteral("Invalid picture"));
        slot = std::make_shared<const Picture>(r.picture);
    }
    return slot;
}
