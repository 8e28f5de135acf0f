#pragma once

#include "UserInteraction.h"

#include <functional>

struct ModBase;

// The one question about unsaved changes, put before any step that would lose
// them (closing, a new set, opening a file, another label, a preset, the
// model switch). Nothing modified: nothing is asked and the command goes on.
// Yes: `guardar` runs and the command goes on, even when the save was
// abandoned in its file dialog. No: the command goes on. Cancel: it stops.
struct RespuestaCambios {
    bool preguntado = false;
    Answer respuesta = Answer::No;
    // Whether the command that asked may go on.
    bool continuar() const { return !preguntado || respuesta != Answer::Cancel; }
};

RespuestaCambios preguntarCambios(const ModBase& mb, UserInteraction& ui,
                                  const std::function<void()>& guardar);
