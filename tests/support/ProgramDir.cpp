#include "ProgramDir.h"

#include "ModBase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <stdexcept>

QString ProgramDir::file(const QString& relative) const
{
    return QDir(m_dir.path()).filePath(relative);
}

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
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll();
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

void ProgramDir::writeSmallCatalogue() const
{
    writeCatalogue({
        row(260, QStringLiteral("Puerto de comunicación"), QStringLiteral("Port")),
        row(261, QStringLiteral("Baudios"), QStringLiteral("Baud")),
        row(262, QStringLiteral("Paridad"), QStringLiteral("Parity")),
        row(263, QStringLiteral("Bits de datos"), QStringLiteral("Data bits")),
        row(285, QStringLiteral("Sí"), QStringLiteral("Yes")),
        row(286, QStringLiteral("No"), QStringLiteral("No")),
        row(293, QStringLiteral("Idioma"), QStringLiteral("Language")),
        row(1315, QStringLiteral("¿Guardar los cambios?"), QStringLiteral("Save the changes?")),
        row(1321, QStringLiteral("Bits de parada"), QStringLiteral("Stop bits")),
        row(1342, QStringLiteral("Sombreado"), QStringLiteral("Shading")),
        row(1343, QStringLiteral("Fondo"), QStringLiteral("Background")),
    });
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
