#pragma once

#include <cstdint>

struct ModBase;

// Qt's own wording (the standard buttons of a question, the file dialogs,
// the context menu of a text box) in the language in force. Qt's
// translations come from the system's Qt (qt6-translations-l10n); where it
// has none for the language (Greek), the standard buttons and the file
// dialogs take the catalogue's words, so the catalogue of the language must
// be loaded first. Called when the main window loads and at every change of
// language; the previous language's is taken away.
void traducirQt(const ModBase& mb, int16_t idioma);
