#pragma once

#include <QString>

struct ModBase;
class UserInteraction;

// Puts a picture behind the field boxes. An empty path clears the picture;
// false when the file cannot be read (missing or of a format we cannot
// draw), and then whatever was shown stays.
class CargadorFondo {
public:
    virtual ~CargadorFondo() = default;
    virtual bool cargar(const QString& ruta) = 0;
};

// The background picture and the grid: RutaFondo and the grid's check mark.
// The picture helps the eye only; it is kept in cfg.ini, never in a label,
// so none of these commands marks the label modified.
class FondoSuperficie {
public:
    FondoSuperficie(ModBase& mb, UserInteraction& ui, CargadorFondo& cargador);

    static const QString kFiltro;

    // The check mark of mnuFondoParrilla: the grid is on.
    bool parrilla = false;

    // The window's load: the picture of cfg.ini, forgotten when unreadable.
    void cargarInicial();
    void mnuFondoAgregar();
    void mnuFondoEliminar();
    void mnuFondoParrilla();
    // Where the grid lives: res/parrilla.bmp in the program's folder.
    QString rutaParrilla() const;

private:
    // Loads RutaFondo; on failure says so and forgets the path.
    void cargarRuta();

    ModBase& m_mb;
    UserInteraction& m_ui;
    CargadorFondo& m_cargador;
};
