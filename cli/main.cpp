// korvo-cli: the headless companion of the designer.
#include <QCoreApplication>
#include <cstdio>

namespace {

void usage(FILE* out)
{
    std::fprintf(out,
                 "usage: korvo-cli [--program-dir DIR] [--model new|old] [--language N] "
                 "COMMAND ...\n"
                 "No command is available in this build yet.\n");
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.contains(QStringLiteral("--help")) || args.contains(QStringLiteral("-h"))) {
        usage(stdout);
        return 0;
    }
    usage(stderr);
    return 2;
}
