#pragma once

#include "FileCommands.h"
#include "UserInteraction.h"

#include "Picture.h"

#include <QMainWindow>
#include <functional>

struct ModBase;
class QAction;
class QActionGroup;
class QLabel;
class QMenu;

// The main window. It holds no caption of its own: every text is rewritten
// from the catalogue each time it is repainted, so a new language needs only
// a new load of the catalogue and a repaint.
class frmBase : public QMainWindow, public BaseView {
    Q_OBJECT
public:
    frmBase(ModBase& mb, UserInteraction& ui, QWidget* parent = nullptr);

    void refresh() override;
    void mostrarCargaTXL() override;

    FileCommands& archivos() { return m_files; }
    // Opens the about box (the splash without its timer).
    void setAcercaDe(std::function<void()> acerca) { m_acerca = std::move(acerca); }

    QAction* menuIdioma(int idioma) const;

signals:
    void cerrado();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    struct Entrada {
        QAction* accion;
        int textId;
        bool puntos;
    };

    void construirMenus();
    QAction* entrada(QMenu* menu, const char* nombre, int textId, bool puntos,
                     const QKeySequence& atajo = {});

    ModBase& m_mb;
    UserInteraction& m_ui;
    FileCommands m_files;
    std::function<void()> m_acerca;
    QList<Entrada> m_entradas;
    QList<QPair<QMenu*, int>> m_menus;
    QActionGroup* m_idiomas = nullptr;
    QLabel* m_panelTipo = nullptr;
    QLabel* m_panelNombre = nullptr;
    Picture m_fondo;
};
