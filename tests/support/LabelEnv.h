#pragma once

#include "Catalogo.h"
#include "FileCommands.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "ScriptedInteraction.h"
#include "ScriptedView.h"

// A program folder with the program's catalogue, a shared block in Spanish,
// the scripted person and window, and the file commands over them.
struct LabelEnv {
    ProgramDir dir;
    ModBase mb;
    ScriptedInteraction ui;
    ScriptedView view{mb, ui.log}; // one timeline for the person and the window
    FileCommands files{mb, ui, view};

    explicit LabelEnv(int modelo)
    {
        dir.prepare(mb);
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        files.controles.VSEtiqMin = modelo ? 3 : 1;
        files.IniciaLineas();
    }
};
