// The commands on the multiple selection: packing against the left or the
// top, and justifying to a column. All end with the selection empty.
#include "EditorEtiqueta.h"
#include "ModBase.h"
#include "Posicion.h"

using namespace Coordenadas;

namespace {

// Whether [a, a + la] and [b, b + lb] overlap in the open sense: touching at
// an edge is no overlap. Written as the three cases the packing has always
// tested: b inside the span, b's end inside it, or the two across each other.
bool solapan(int a, int la, int b, int lb)
{
    return (b > a && b < a + la) || (b + lb > a && b + lb < a + la) || (b + lb > a && b < a + la);
}

} // namespace

void EditorEtiqueta::ajustar(bool horizontal)
{
    const int n = camposModelo();
    int k = 0;
    for (int i = 1; i <= n; ++i)
        k += m_mb.Campos(i).Seleccionado ? 1 : 0;
    if (k == 0)
        return;
    m_mb.Modificado = true;

    const auto inicio = [&](const Caja& c) { return horizontal ? c.left() : c.top(); };
    for (int vez = 0; vez < k; ++vez) {
        int minimo = horizontal ? 57 : static_cast<int>(valorTextoPosicion(m_mb.AnchoEtiqueta));
        int destino = horizontal ? 3 : 8;
        // The selected field that starts first; the lowest number on a tie.
        int p = 0;
        for (int i = 1; i <= n; ++i)
            if (m_mb.Campos(i).Seleccionado && inicio(superficie.Imagen(i)) < minimo) {
                p = i;
                minimo = redondear(inicio(superficie.Imagen(i)));
            }
        // No selected field left of the start: the program stops here, as it
        // always has, on field 0.
        Campo& registro = m_mb.Campos(p);
        Caja& caja = superficie.Imagen(p);
        const int Lp = redondear(caja.left()), Wp = redondear(caja.width());
        const int Tp = redondear(caja.top()), Hp = redondear(caja.height());
        for (int i = 1; i <= n; ++i) {
            if (i == p || !superficie.Imagen(i).visible || m_mb.Campos(i).Seleccionado)
                continue;
            const Caja& o = superficie.Imagen(i);
            const int Li = redondear(o.left()), Wi = redondear(o.width());
            const int Ti = redondear(o.top()), Hi = redondear(o.height());
            if (horizontal) {
                if (solapan(Tp, Hp, Ti, Hi) && Li < minimo && Li + Wi > destino)
                    destino = Li + Wi;
            } else {
                if (solapan(Lp, Wp, Li, Wi) && Ti < minimo && Ti + Hi > destino)
                    destino = Ti + Hi;
            }
        }
        if (horizontal) {
            caja.setLeft(destino);
            registro.PosHor = static_cast<int16_t>(destino);
            registro.TextoHor = textoPosicionExacto(destino);
        } else {
            caja.setTop(destino);
            registro.PosVer = static_cast<int16_t>(destino);
            registro.TextoVer = textoPosicionExacto(destino);
        }
        // Packed, it is no longer selected, and so an obstacle for the next:
        // a row of selected fields closes up from the left.
        registro.Seleccionado = false;
        caja.rojo = false;
    }
}

void EditorEtiqueta::AjustarIzda()
{
    ajustar(true);
}

void EditorEtiqueta::AjustarArriba()
{
    ajustar(false);
}

void EditorEtiqueta::Alinear(int modo)
{
    for (int i = 1; i <= camposModelo(); ++i) {
        Campo& c = m_mb.Campos(i);
        Caja& caja = superficie.Imagen(i);
        if (c.Seleccionado) {
            double left = caja.left();
            if (modo == 0)
                left = Coordenadas::kIzquierda;
            else if (modo == 1)
                left = (57.0 - caja.width()) / 2;
            else if (modo == 2)
                left = Coordenadas::kDerecha - caja.width();
            // The centre leaves the box at a fractional left; the record is whole.
            caja.setLeft(left);
            c.PosHor = redondear(caja.left());
            c.TextoHor = textoPosicionEntero(c.PosHor);
            if (i == 11 && m_mb.PesoAproximado)
                superficie.Imagen(0).setLeft(caja.left());
        }
        c.Seleccionado = false;
        caja.rojo = false;
    }
}
