// korvo-scale: a scale on a pseudo-terminal, for trying transfers without one.
#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    std::fprintf(stderr, "korvo-scale: the virtual scale is not part of this build yet\n");
    return 2;
}
