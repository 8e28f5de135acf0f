// The boxes of the fields: their size from the number, the size code and,
// for the free texts, the length of the text.
#include "CatalogoCampos.h"
#include "EditorEtiqueta.h"
#include "ModBase.h"

using namespace Coordenadas;

namespace {

constexpr double kFilaSimple = 30.0 / 9.0;
constexpr double kFilaDoble = 50.0 / 9.0;
constexpr double kAltoBarras = 100.0 / 9.0;

} // namespace

void EditorEtiqueta::TamanoImagen(int campo, int tamano)
{
    Caja& caja = superficie.Imagen(campo);
    Campo& registro = m_mb.Campos(campo);
    // The surface shows the label turned against the printed characters:
    // code 1, "double width", makes the box taller, and code 2, "double
    // height", makes it wider.
    const bool alto = tamano == 1 || tamano == 3;
    const bool ancho = tamano == 2 || tamano == 3;
    const auto familia = [&](double base, double doble) {
        caja.setWidth(ancho ? doble : base);
        caja.setHeight(alto ? kFilaDoble : kFilaSimple);
    };

    if (campo >= 1 && campo <= 10) {
        familia(45, 47);
    } else if (campo == 11 || campo == 12) {
        familia(11, 23);
    } else if (campo == 13 || campo == 14) {
        familia(14, 31);
    } else if (campo == 15 || campo == 20) {
        // Only the double row: a code above 1 leaves the single row and the
        // base width.
        caja.setWidth(campo == 15 ? 23 : 24);
        caja.setHeight(tamano == 1 ? kFilaDoble : kFilaSimple);
    } else if (campo == 16) {
        caja.setHeight(kAltoBarras);
        caja.setWidth(26);
    } else if (campo >= 17 && campo <= 19) {
        familia(12.5, 27);
    } else if (campo == 26) {
        familia(12, 23);
    } else if (textoLibreDeCampo(campo) != 0) {
        const double n = m_mb.TextoLibre(textoLibreDeCampo(campo) - 1).size();
        // 25 characters at the normal size and 12 at the double one match
        // the width of a descriptive line; nothing stops a longer text.
        if (!ancho)
            caja.setWidth((45.0 / 25.0) * n);
        else
            caja.setWidth(n >= 13 ? 47 : (47.0 / 12.0) * n);
        caja.setHeight(alto ? kFilaDoble : kFilaSimple);
    }

    if (campo == 11 && m_mb.PesoAproximado)
        sigueCompanero();

    // Tested against 52 and pushed back against 53: a box that ends between
    // the two is moved to end at 53 or just short of it.
    if (caja.left() + caja.width() > 52.0) {
        registro.PosHor = redondear((Coordenadas::kDerecha - caja.width()) / 1.0);
        caja.setLeft(registro.PosHor);
    }
    registro.Tamano = QByteArray::number(tamano);
}

void EditorEtiqueta::MostrarCampo(int campo)
{
    Caja& caja = superficie.Imagen(campo);
    const Campo& registro = m_mb.Campos(campo);
    // A load or a reset clears the selection; the text follows it.
    caja.rojo = registro.Seleccionado;
    if (registro.Presente != "1") {
        caja.visible = false;
        if (campo == 11 && m_mb.PesoAproximado)
            superficie.Imagen(0).visible = false;
        return;
    }
    caja.visible = true;
    caja.move(registro.PosHor, registro.PosVer);
    TamanoImagen(campo, tamanoDe(campo));
    if (campo == 11 && m_mb.PesoAproximado) {
        sigueCompanero();
        superficie.Imagen(0).visible = true;
    }
}

void EditorEtiqueta::CargarImagen()
{
    for (int campo = 1; campo <= camposModelo(); ++campo)
        MostrarCampo(campo);
}

void EditorEtiqueta::sigueCompanero()
{
    const Caja& peso = superficie.Imagen(11);
    superficie.Imagen(0).move(peso.left(), peso.top() + peso.height());
}
