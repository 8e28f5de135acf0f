#pragma once

#include <QString>
#include <QStringList>

// How large the surface is drawn: a factor of its true size, where a
// horizontal unit is 113.4 twips, 7.56 logical pixels at 15 twips a pixel;
// a vertical unit is 63 twips. Every pointer position goes back to units
// through Coordenadas::unidadesDePixel with these pixels per unit.
namespace Zoom {
constexpr double kPxPorUnidadHorReal = 113.4 / 15;
constexpr double kPxPorUnidadVerReal = 63.0 / 15;
constexpr double kMinimo = 0.5;
constexpr double kMaximo = 8;
// The next step up or down of the ladder 50 % .. 800 %.
double acercar(double factor);
double alejar(double factor);
// The largest factor at which `unidadesHor` x `unidadesVer` fit in the
// room given in logical pixels, within the ladder's ends.
double ajustar(double anchoPx, double altoPx, double unidadesHor, double unidadesVer);
} // namespace Zoom

// Captions with a mnemonic each: the first letter of each caption, in
// order, that neither an earlier caption nor `ocupadas` (lower case) took;
// an ampersand of the caption itself is doubled. A caption without a free
// letter gets none.
QStringList conMnemonicos(const QStringList& captions, QString ocupadas = {});
// The letter of a caption's mnemonic, lower case; a null character when it has none.
QChar letraMnemonico(const QString& caption);

// What the main window remembers between runs, in a file of its own in the
// program's folder: its size, whether it was maximised, the zoom and whether
// the surface fits the window.
struct VistaVentana {
    int ancho = 0; // 0: never saved, the window takes its content's size
    int alto = 0;
    bool maximizada = false;
    double zoom = 0; // 0: the program's default
    bool ajustada = false;

    static QString nombreArchivo() { return QStringLiteral("ventana.ini"); }
    // A missing or damaged file gives the defaults.
    static VistaVentana leer(const QString& ruta);
    QByteArray texto() const;
    static VistaVentana deTexto(const QByteArray& texto);
    // Written whole or not at all; false when it could not be.
    bool guardar(const QString& ruta) const;
};
