#pragma once

#include "FileCommands.h"
#include "TextosLibres.h"

#include <QStringList>

// The main window as the file commands see it: refreshes are counted in the
// log, and the free text load dialog is answered with its OK at once.
class ScriptedView : public BaseView {
public:
    explicit ScriptedView(ModBase& mb, QStringList& log) : m_mb(mb), m_log(log) {}
    void refresh() override { m_log.append(QStringLiteral("refresh")); }
    void mostrarCargaTXL() override
    {
        m_log.append(QStringLiteral("frmCargaTXL"));
        AceptarCargaTXL(m_mb);
    }

private:
    ModBase& m_mb;
    QStringList& m_log;
};
