// What the two metafile targets share: read, and when it reads, draw it, so
// the painter of our own meets every shape the reader lets through.
#pragma once

#include "Metafile.h"

#include <cstddef>
#include <cstdint>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

// fontconfig keeps its caches to the end of the process: that is no leak of
// the reader's, and the sanitizer is told so.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n";
}

inline void fuzzMetafile(const uint8_t* data, size_t size,
                         std::shared_ptr<const Metafile> (*read)(const QByteArray&))
{
    // Drawing text wants the font machinery, which wants an application.
    static QGuiApplication* app = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "fuzz";
        static char* argv[] = {name, nullptr};
        return new QGuiApplication(argc, argv);
    }();
    (void)app;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto m = read(bytes);
    if (!m)
        return;
    if (m->frame().isEmpty())
        __builtin_trap(); // a picture that reads always has a frame to be drawn into
    QImage img(64, 32, QImage::Format_RGB32);
    img.fill(Qt::white);
    QPainter p(&img);
    m->draw(p, QRectF(0, 0, 64, 32));
}
