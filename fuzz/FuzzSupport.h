#pragma once

#include "FileCommands.h"
#include "ModBase.h"
#include "RuntimeError.h"
#include "TextLines.h"

#include <cstddef>
#include <cstdint>

// A shared block with the texts the readers may show, and no window: what
// the readers do with any bytes at all. Every input starts from a copy of
// one made once for its model, texts and empty store included, so that the
// time goes to the readers and not to building what they start from.
struct FuzzLabel {
    ModBase mb;
    SilentInteraction ui;
    HeadlessView view;
    FileCommands files{mb, ui, view};

    explicit FuzzLabel(int modelo)
    {
        const FuzzLabel& inicial = modelo ? nuevo() : antiguo();
        mb = inicial.mb;
        files.Lineas = inicial.files.Lineas;
    }

private:
    struct Inicial {};
    FuzzLabel(int modelo, Inicial)
    {
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        mb.Idioma = 1;
        mb.Textos.redim(1400);
        for (int id : {623, 1310, 1317, 1338, 1344, 1345, 1346, 1347, 1348})
            mb.Textos.set(id, QStringLiteral("texto"));
        files.IniciaLineas();
    }
    static const FuzzLabel& nuevo()
    {
        static const FuzzLabel f(1, Inicial{});
        return f;
    }
    static const FuzzLabel& antiguo()
    {
        static const FuzzLabel f(0, Inicial{});
        return f;
    }
};

// The first byte picks the model; the rest is the file, as the lines the
// readers take.
struct FuzzFile {
    int modelo = 1;
    QList<QByteArray> lines;

    FuzzFile(const uint8_t* data, size_t size)
        : modelo(size > 0 ? data[0] & 1 : 1),
          lines(splitLines(QByteArray(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0),
                                      static_cast<qsizetype>(size > 0 ? size - 1 : 0))))
    {}
};
