#pragma once

#include <cstdint>
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

struct ModBase;

// The wording of the program: one table `texts (id, text1 .. text8)` in
// lang/lang.db below the program's folder, one column per language.

// Fills Textos with the texts of one language. 0 when done, -1 when the
// database is missing (Textos then stays as it was). Anything else that goes
// wrong ends the program: a language without a column, an empty text, a
// table without rows.
int16_t CargarTextos(ModBase& mb, int16_t idioma);

// Changing the language from the menu: the catalogue is loaded (a missing
// database leaves the old texts), the window repaints, and the number is kept
// for cfg.ini.
class WindowRefresh;
void CambiarIdioma(ModBase& mb, int16_t idioma, WindowRefresh& window);

// The reviewable source of the catalogue (lang/texts.tsv): a header line, then
// per id its number and eight texts separated by tabs. "\n", "\t" and "\\"
// stand for a line break, a tab and a backslash.
struct CatalogueRow {
    int id = 0;
    QStringList texts; // eight, language 1 first
};

struct CatalogueSource {
    QList<CatalogueRow> rows;
    QStringList problems; // each "line N: what is wrong"
};

CatalogueSource parseCatalogueSource(const QByteArray& utf8);
// Writes the rows as a fresh database; false with a reason when it cannot.
bool writeCatalogueDatabase(const QString& path, const QList<CatalogueRow>& rows,
                            QString* error = nullptr);

// The captions of the language menu, which stay in their own language.
QString captionIdioma(int idioma);
