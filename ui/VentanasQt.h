#pragma once

#include "Arranque.h"

class UserInteraction;

// The splash and the main window, each shown modally and released.
class VentanasQt : public VentanasPrincipales {
public:
    explicit VentanasQt(UserInteraction& ui) : m_ui(ui) {}
    void mostrarSplash(ModBase& mb) override;
    void mostrarBase(ModBase& mb) override;

private:
    UserInteraction& m_ui;
};
