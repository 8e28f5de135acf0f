#pragma once

#include <QString>

class QImage;

struct ModBase;
class ProgramDir;

// A program folder with the stock pictures of the repository in res/.
void copiaImagenesStock(const ProgramDir& dir);

// A field on the label at a place and size.
void pon(ModBase& mb, int campo, int hor, int ver, const char* tamano = "0");

// The reference labels of the drawing tests, by name: envasado45, total60,
// textoslibres, antiguo; any other name is a fresh label.
void etiquetaReferencia(ModBase& mb, const QString& nombre);

// The test data folder of the preview.
QString datosPreview(const QString& relativo);

// The dark pixels of a drawing.
int oscuros(const QImage& img);
