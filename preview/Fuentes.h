#pragma once

// The faces the preview's pictures and texts are drawn in (DejaVu Sans,
// Sans Mono and Serif). Linux has them from its font package; the Windows
// build carries them inside the program, and this makes them known to Qt,
// once, before anything is drawn. Elsewhere it does nothing.
void asegurarFuentes();
