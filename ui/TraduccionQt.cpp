#include "TraduccionQt.h"

#include "ModBase.h"

#include <memory>
#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <vector>

namespace {

// The standard buttons and the file dialogs' words from the catalogue, for
// a language Qt has no translation of. Asked last: Qt's own translation answers first. The texts
// are taken when it is made, so it needs the catalogue loaded by then.
class BotonesCatalogo : public QTranslator {
public:
    explicit BotonesCatalogo(const ModBase& mb)
    {
        for (int i = 0; i < kCuantos; ++i)
            m_textos[i] = mb.Textos(kTextos[i].textId);
    }

    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        for (int i = 0; i < kCuantos; ++i)
            if (qstrcmp(context, kTextos[i].contexto) == 0 &&
                qstrcmp(source, kTextos[i].ingles) == 0)
                return m_textos[i];
        return {};
    }

private:
    struct Texto {
        const char* contexto;
        const char* ingles;
        int textId;
    };
    static constexpr int kCuantos = 24;
    static constexpr Texto kTextos[kCuantos] = {
        {"QPlatformTheme", "&Yes", 285},
        {"QPlatformTheme", "&No", 286},
        {"QPlatformTheme", "OK", 287},
        {"QPlatformTheme", "Cancel", 288},
        {"QPlatformTheme", "Open", 1311},
        {"QPlatformTheme", "Save", 1313},
        {"QFileDialog", "&Open", 1311},
        {"QFileDialog", "&Save", 1313},
        {"QFileDialog", "Look in:", 2001},
        {"QFileDialog", "File &name:", 2002},
        {"QFileDialog", "Files of type:", 2003},
        {"QFileDialog", "Back", 2004},
        {"QFileDialog", "Forward", 2005},
        {"QFileDialog", "Parent Directory", 2006},
        {"QFileDialog", "Create New Folder", 2007},
        {"QFileDialog", "List View", 2008},
        {"QFileDialog", "Detail View", 2009},
        {"QFileSystemModel", "Name", 2010},
        {"QFileSystemModel", "Size", 2011},
        {"QFileSystemModel", "Type", 2012},
        {"QFileSystemModel", "Date Modified", 2013},
        {"QFileDialog", "%1 already exists.\nDo you want to replace it?", 2014},
        {"QAbstractFileIconProvider", "Folder", 2015},
        {"QFileSystemModel", "Computer", 2016},
    };
    QString m_textos[kCuantos];
};

// The locale of each language number; Portuguese is the European one, with
// the Brazilian translation behind it for what that one lacks.
QList<QLocale> localesDe(int16_t idioma)
{
    switch (idioma) {
    case 1:
        return {QLocale(QLocale::Spanish, QLocale::Spain)};
    case 2:
        return {QLocale(QLocale::English, QLocale::UnitedKingdom)};
    case 3:
        return {QLocale(QLocale::Portuguese, QLocale::Brazil),
                QLocale(QLocale::Portuguese, QLocale::Portugal)};
    case 4:
        return {QLocale(QLocale::Dutch, QLocale::Netherlands)};
    case 5:
        return {QLocale(QLocale::French, QLocale::France)};
    case 6:
        return {QLocale(QLocale::Italian, QLocale::Italy)};
    case 7:
        return {QLocale(QLocale::Greek, QLocale::Greece)};
    case 8:
        return {QLocale(QLocale::Polish, QLocale::Poland)};
    default:
        return {};
    }
}

std::vector<std::unique_ptr<QTranslator>>& instalados()
{
    static std::vector<std::unique_ptr<QTranslator>> lista;
    return lista;
}

} // namespace

void traducirQt(const ModBase& mb, int16_t idioma)
{
    auto& lista = instalados();
    for (auto& t : lista)
        QCoreApplication::removeTranslator(t.get());
    lista.clear();

    // Installed later is asked first: the catalogue's buttons go in first.
    lista.push_back(std::make_unique<BotonesCatalogo>(mb));
    const QString carpeta = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    for (const QLocale& locale : localesDe(idioma)) {
        // "qt_<language>" gathers Qt's modules, the dialogs' among them.
        auto t = std::make_unique<QTranslator>();
        if (t->load(locale, QStringLiteral("qt"), QStringLiteral("_"), carpeta))
            lista.push_back(std::move(t));
    }
    for (auto& t : lista)
        QCoreApplication::installTranslator(t.get());
}
