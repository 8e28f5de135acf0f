#pragma once

#include "VistaPrevia.h"

#include <QDialog>

struct ModBase;
class QPushButton;

// The preview of the current label in true millimetres. It reads the shared
// block once, when it is made, and changes nothing; it closes by its button
// or by Esc. Making it may throw the program's run-time error when a picture
// cannot be read, as the window's load does.
class frmVistaPrevia : public QDialog {
    Q_OBJECT
public:
    explicit frmVistaPrevia(const ModBase& mb, QWidget* parent = nullptr);

    const EscenaVista& escena() const { return m_escena; }
    // Screen pixels to a millimetre: the screen's own measure, so that the
    // label shows at its true size.
    qreal pixelesPorMm() const;

private:
    EscenaVista m_escena;
    QWidget* PictVista;
    QPushButton* CommandCerrar;
};
