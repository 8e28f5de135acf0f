#pragma once

#include "FileCommands.h"
#include "ModBase.h"
#include "RuntimeError.h"
#include "TextLines.h"

#include <cstddef>
#include <cstdint>

// A shared block with the texts the readers may show, and no window: what
// the readers do with any bytes at all.
struct FuzzLabel {
    ModBase mb;
    SilentInteraction ui;
    HeadlessView view;
    FileCommands files{mb, ui, view};

    explicit FuzzLabel(int modelo)
    {
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        mb.Idioma = 1;
        mb.Textos.redim(1400);
        for (int id : {623, 1310, 1317, 1338, 1344, 1345, 1346, 1347, 1348})
            mb.Textos.set(id, QStringLiteral("texto"));
        files.IniciaLineas();
    }
};

// The first byte picks the model; the rest is the file.
inline QList<QByteArray> fuzzLines(const uint8_t* data, size_t size, int& modelo)
{
    modelo = size > 0 ? data[0] & 1 : 1;
    const QByteArray bytes(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0),
                           static_cast<qsizetype>(size > 0 ? size - 1 : 0));
    return splitLines(bytes);
}
