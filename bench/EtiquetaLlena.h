#pragma once

#include "ModBase.h"

// The fullest label a person makes: a 60 label of the new model with every
// field on, in three narrow columns.
inline void llenarEtiqueta(ModBase& mb)
{
    mb.ModeloNuevo = 1;
    mb.AnchoEtiqueta = "60";
    for (int n = 1; n <= 36; ++n) {
        Campo& c = mb.Campos(n);
        c.Presente = "1";
        c.PosHor = static_cast<int16_t>(n <= 10 ? 3 : 3 + 12 * (n % 3));
        c.PosVer = static_cast<int16_t>(8 + n % 12);
    }
}
