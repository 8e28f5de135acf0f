#pragma once

#include <QIcon>
#include <QString>

// The pictures of the tool bar's buttons, drawn here rather than shipped as
// files, so that they stay sharp at any screen scale. `clave` is the
// button's key ("Nueva", "Abrir", "JustIzda", ...); an unknown key gives an
// empty icon.
QIcon iconoToolbar(const QString& clave);
