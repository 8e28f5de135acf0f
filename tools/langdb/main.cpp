// korvo-langdb SOURCE.tsv OUT.db: builds the text catalogue database from its
// reviewable source, and refuses a source with a missing or empty text.
#include "Catalogo.h"

#include <cstdio>
#include <QCoreApplication>
#include <QFile>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 3) {
        std::fprintf(stderr, "usage: korvo-langdb SOURCE.tsv OUT.db\n");
        return 2;
    }
    QFile in(args.at(1));
    if (!in.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "korvo-langdb: cannot read %s\n", qPrintable(args.at(1)));
        return 1;
    }
    const CatalogueSource source = parseCatalogueSource(in.readAll());
    for (const QString& p : source.problems)
        std::fprintf(stderr, "%s:%s\n", qPrintable(args.at(1)), qPrintable(p));
    if (!source.problems.isEmpty())
        return 1;
    QString error;
    if (!writeCatalogueDatabase(args.at(2), source.rows, &error)) {
        std::fprintf(stderr, "korvo-langdb: %s\n", qPrintable(error));
        return 1;
    }
    return 0;
}
