// Without libFuzzer, a fuzz target replays the files it is given, so the
// ordinary build keeps every target compiling and its corpus passing.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <QFile>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv)
{
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        QFile f(QString::fromLocal8Bit(argv[i]));
        if (!f.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "cannot read %s\n", argv[i]);
            return 1;
        }
        const QByteArray bytes = f.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()),
                               static_cast<size_t>(bytes.size()));
        ++replayed;
    }
    std::printf("%d inputs replayed\n", replayed);
    return 0;
}
