#pragma once

#include <cstdint>
#include <QByteArray>
#include <QList>
#include <QString>

// What in a label or set file the readers would take wrongly. The readers
// themselves check nothing: a shifted row, a strange kind or width goes into
// the label as it stands. This tells a person before that happens.
struct Hallazgo {
    int linea = 0;   // 1-based
    int columna = 0; // 1-based; 0 for the file as a whole
    QString texto;
};

// `conjunto`: a set file (else a label file), read in the model given.
// `lines` are the file's lines as splitLines gives them.
QList<Hallazgo> comprobarArchivo(const QList<QByteArray>& lines, bool conjunto,
                                 int16_t modeloNuevo);
