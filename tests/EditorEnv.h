#pragma once

#include "CatalogoCampos.h"
#include "EditorEtiqueta.h"
#include "FileCommands.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "ScriptedInteraction.h"

#include <functional>
#include <QPoint>
#include <QSet>
#include <QStringList>

// The main window as the editor sees it: the refresh runs the surface's
// repaint, as the window's does; dialogs and menus go to the log, and a
// dialog's effect is what the test scripts for it. The background picture
// loads unless its path is in `ilegibles`.
class ScriptedEditorView : public BaseView, public EditorView, public CargadorFondo {
public:
    explicit ScriptedEditorView(QStringList& log) : m_log(log) {}
    EditorEtiqueta* editor = nullptr;
    std::function<void()> dialogo; // what the person does in frmTXL or frmDES
    QSet<QString> ilegibles;
    QString mostrada; // the picture the surface shows now

    void refresh() override { repintarVentana(); }
    void repintarVentana() override
    {
        if (editor)
            editor->repintar();
    }
    void mostrarCargaTXL() override { m_log.append(QStringLiteral("frmCargaTXL")); }
    void repintarCuadro() override {}
    void mostrarTXL() override { abrir("frmTXL"); }
    void mostrarDES() override { abrir("frmDES"); }
    void mostrarBorrar() override { m_log.append(QStringLiteral("frmBorrar")); }
    void mostrarTXF(int n) override { m_log.append(QStringLiteral("frmTXF %1").arg(n)); }
    void abrirMenu(MenuEmergente menu) override
    {
        static const char* nombres[] = {"mnuVisualiza", "mnuOcultar", "mnuDerecho", "mnuDerecho2"};
        m_log.append(QString::fromLatin1(nombres[static_cast<int>(menu)]));
    }
    bool cargar(const QString& ruta) override
    {
        if (ilegibles.contains(ruta))
            return false;
        mostrada = ruta;
        return true;
    }

private:
    void abrir(const char* nombre)
    {
        m_log.append(QLatin1String(nombre));
        if (dialogo)
            dialogo();
    }

    QStringList& m_log;
};

// A program folder with the catalogue in Spanish, and the editor over a
// fresh shared block of the model asked for.
struct EditorEnv {
    ProgramDir dir;
    ModBase mb;
    ScriptedInteraction ui;
    ScriptedEditorView view{ui.log};
    FileCommands files{mb, ui, view};
    EditorEtiqueta editor{mb, ui, files, view, view};

    explicit EditorEnv(int modelo = 1)
    {
        dir.prepare(mb);
        mb.ModeloNuevo = static_cast<int16_t>(modelo);
        files.controles.VSEtiqMin = modelo ? 3 : 1;
        files.IniciaLineas();
        view.editor = &editor;
        editor.PaintFormLoad();
        editor.cargarSuperficie();
        editor.repintar();
    }

    // Field n on the label at (hor, ver) with size code `tamano`, its box
    // laid out as the refresh lays it.
    void poner(int n, int hor, int ver, const char* tamano = "0", bool seleccionado = false)
    {
        Campo& c = mb.Campos(n);
        c.Presente = "1";
        c.PosHor = static_cast<int16_t>(hor);
        c.PosVer = static_cast<int16_t>(ver);
        c.Tamano = tamano;
        c.Seleccionado = seleccionado;
        editor.MostrarCampo(n);
    }

    QPoint en(int n) const { return {mb.Campos(n).PosHor, mb.Campos(n).PosVer}; }
};
