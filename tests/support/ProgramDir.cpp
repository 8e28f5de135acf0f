#include "ProgramDir.h"

#include "ModBase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <stdexcept>

void ProgramDir::write(const QString& relative, const QByteArray& bytes) const
{
    const QString path = file(relative);
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write a test file");
}

QByteArray ProgramDir::read(const QString& relative) const
{
    QFile f(file(relative));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool ProgramDir::exists(const QString& relative) const
{
    return QFileInfo::exists(file(relative));
}

void ProgramDir::writeCatalogue(const QList<CatalogueRow>& rows) const
{
    QDir().mkpath(file(QStringLiteral("lang")));
    QString error;
    if (!writeCatalogueDatabase(file(QStringLiteral("lang/lang.db")), rows, &error))
        throw std::runtime_error(error.toStdString());
}

CatalogueRow row(int id, const QString& es, const QString& en)
{
    CatalogueRow r;
    r.id = id;
    r.texts = QStringList{es, en, en, en, en, en, en, en};
    return r;
}

void ProgramDir::copyBuiltCatalogue() const
{
    QDir().mkpath(file(QStringLiteral("lang")));
    const QString target = file(QStringLiteral("lang/lang.db"));
    QFile::remove(target);
    if (!QFile::copy(QStringLiteral(KORVO_BUILT_CATALOGUE), target))
        throw std::runtime_error("the built catalogue is missing");
}

void ProgramDir::attach(ModBase& mb) const
{
    mb.programDir = m_dir.path();
}

void ProgramDir::prepare(ModBase& mb, int idioma) const
{
    copyBuiltCatalogue();
    attach(mb);
    mb.Idioma = static_cast<int16_t>(idioma);
    if (CargarTextos(mb, mb.Idioma) != 0)
        throw std::runtime_error("the catalogue did not load");
}
