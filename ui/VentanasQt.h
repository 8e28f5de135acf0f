#pragma once

#include "Arranque.h"

#include <QString>

class UserInteraction;

// The splash and the main window, each shown modally and released.
class VentanasQt : public VentanasPrincipales {
public:
    // `archivo`: a set or label file the main window opens once it has made
    // its first label, as Open would (the program's command line).
    explicit VentanasQt(UserInteraction& ui, QString archivo = {})
        : m_ui(ui), m_archivo(std::move(archivo))
    {}
    void mostrarSplash(ModBase& mb) override;
    void mostrarBase(ModBase& mb) override;

private:
    UserInteraction& m_ui;
    QString m_archivo;
};
