#pragma once

#include <QByteArray>
#include <QList>

struct ModBase;

// freetxl.sft beside the program keeps the last saved list of free texts,
// one row each: 15 in the new model, 5 in the old.

QByteArray formaFreetxl(const ModBase& mb);
void GuardarFreetxl(const ModBase& mb);

// Puts the rows of a freetxl.sft into the free texts, from the column where
// the text starts in the model in force (5 new, 4 old), 25 characters at
// most. The file's position decides the text, not the row's own index; a
// sixteenth row has no text to go to and ends the program.
void leerFreetxl(ModBase& mb, const QList<QByteArray>& lines);

// A fresh label: clean and unnamed, number 3 (new model) or 1, 45 wide, every
// field back to its defaults. The kind and the texts are the caller's.
void etiquetaNueva(ModBase& mb);

// The OK of the free text load dialog, which makes every new label: the free
// texts from freetxl.sft when asked for and present (else empty), and a
// clean header and fields.
void AceptarCargaTXL(ModBase& mb);
