#pragma once

#include <optional>
#include <QImage>
#include <QString>

class QPainter;
struct EscenaVista;
struct ModBase;

// The one drawing of the preview, for the window and for every export: the
// white frame, the background picture under everything, the items in their
// order, the fixed texts. The painter's origin is the frame's top left and
// `unidadesPorMm` of its units make a millimetre.
void dibujarVistaPrevia(QPainter& painter, const EscenaVista& escena, qreal unidadesPorMm);

// The preview as a bitmap, `pxPorMm` pixels to the millimetre.
QImage imagenVistaPrevia(const EscenaVista& escena, qreal pxPorMm);

enum class FormatoVista { Png, Svg, Pdf };
// By the file's ending; nothing for an ending the export does not write.
// The Windows build has no SVG: Qt's SVG module is not built for it here.
std::optional<FormatoVista> formatoVista(const QString& path);
#ifdef KORVO_SVG
inline constexpr const char* kFormatosVista = "the preview is written as .png, .svg or .pdf";
#else
inline constexpr const char* kFormatosVista = "the preview is written as .png or .pdf";
#endif

// Writes the preview of the label in the shared block to a PNG (300 dots an
// inch), SVG or PDF file in true millimetres, told by the path's ending.
// A picture that cannot be read, or a file that cannot be written, is the
// program's run-time error; an unknown ending is std::invalid_argument.
void exportarVistaPrevia(const ModBase& mb, const QString& path);
