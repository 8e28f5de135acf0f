#pragma once

#include <functional>
#include <QString>

class RuntimeError;
struct ModBase;

// When the program ends on what it does not foresee, the work in hand is kept
// first. The window that holds the work says how to keep it while it lives.
namespace recuperacion {

// Keeps the work and returns where; may fail in any way, which only means
// that nothing was kept.
using Guardar = std::function<QString()>;

void registrar(const ModBase& mb, Guardar guardar);
void retirar();

// Keeps the work, when there is a keeper, and returns the text shown at the
// end: the run-time error, then where the work was kept.
QString mensajeFinal(const RuntimeError& error);

} // namespace recuperacion
