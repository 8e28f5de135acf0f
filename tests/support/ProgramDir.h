#pragma once

#include "Catalogo.h"

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QTemporaryDir>

struct ModBase;

// A throw-away program folder for one test.
class ProgramDir {
public:
    QString path() const { return m_dir.path(); }
    QString file(const QString& relative) const { return QDir(m_dir.path()).filePath(relative); }

    void write(const QString& relative, const QByteArray& bytes) const;
    QByteArray read(const QString& relative) const;
    bool exists(const QString& relative) const;

    // lang/lang.db with these rows.
    void writeCatalogue(const QList<CatalogueRow>& rows) const;
    // The program's own catalogue, as the build made it.
    void copyBuiltCatalogue() const;

    // A shared block that lives in this folder.
    void attach(ModBase& mb) const;
    // The program's catalogue here, and the block living in this folder with
    // the texts of that language loaded.
    void prepare(ModBase& mb, int idioma = 1) const;

private:
    QTemporaryDir m_dir;
};

CatalogueRow row(int id, const QString& es, const QString& en);
