#pragma once

#include "Picture.h"

#include <memory>
#include <QString>

// The picture each item of the preview is built with (0 the approximate
// weight line, 1..36 the fields), before any stock file replaces it. They are
// part of the program itself, not files beside it.
std::shared_ptr<const Picture> imagenIncorporada(int item);
// The resource name of that picture, for the tools that make them.
QString recursoIncorporado(int item);
