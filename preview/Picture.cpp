#include "Picture.h"

#include "Metafile.h"
#include "RuntimeError.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

namespace {

constexpr qreal kMmPorPulgada = 25.4;
// Nothing the program shows is larger than this; a file that says otherwise
// is taken for a damaged one rather than for a reason to fill the memory.
constexpr int kLadoMaximo = 16384;

bool empiezaCon(const QByteArray& b, std::initializer_list<unsigned char> magia)
{
    if (b.size() < static_cast<qsizetype>(magia.size()))
        return false;
    int i = 0;
    for (unsigned char c : magia)
        if (static_cast<unsigned char>(b.at(i++)) != c)
            return false;
    return true;
}

PictureLoad leeRaster(const QByteArray& bytes, const char* formato)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, formato);
    const QSize size = reader.size();
    if (size.isValid() && (size.width() > kLadoMaximo || size.height() > kLadoMaximo))
        return {{}, PictureError::Unreadable};
    QImage image;
    if (!reader.read(&image) || image.isNull())
        return {{}, PictureError::Unreadable};
    return {Picture::fromImage(image), PictureError::None};
}

} // namespace

Picture Picture::fromImage(const QImage& image)
{
    Picture p;
    p.m_kind = image.isNull() ? Kind::Empty : Kind::Raster;
    p.m_image = image;
    return p;
}

Picture Picture::fromMetafile(std::shared_ptr<const Metafile> metafile)
{
    Picture p;
    p.m_kind = metafile ? Kind::Vector : Kind::Empty;
    p.m_metafile = std::move(metafile);
    return p;
}

QSizeF Picture::sizeMm() const
{
    switch (m_kind) {
    case Kind::Empty:
        return {};
    case Kind::Raster: {
        // A bitmap that names no resolution, or a silly one, is taken at the
        // screen's usual 96 dots an inch.
        const auto mmPorPunto = [](int puntosPorMetro) {
            return puntosPorMetro > 100 ? 1000.0 / puntosPorMetro : kMmPorPulgada / 96.0;
        };
        return {m_image.width() * mmPorPunto(m_image.dotsPerMeterX()),
                m_image.height() * mmPorPunto(m_image.dotsPerMeterY())};
    }
    case Kind::Vector:
        return m_metafile->sizeMm();
    }
    return {};
}

void Picture::draw(QPainter& painter, const QRectF& target) const
{
    if (target.isEmpty())
        return;
    switch (m_kind) {
    case Kind::Empty:
        return;
    case Kind::Raster:
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        painter.drawImage(target, m_image);
        painter.restore();
        return;
    case Kind::Vector:
        m_metafile->draw(painter, target);
        return;
    }
}

void Picture::drawAtOwnSize(QPainter& painter, const QPointF& topLeft, qreal unitsPerMm) const
{
    const QSizeF mm = sizeMm();
    draw(painter, QRectF(topLeft, QSizeF(mm.width() * unitsPerMm, mm.height() * unitsPerMm)));
}

PictureLoad readPictureData(const QByteArray& bytes)
{
    // The format is told by the first bytes, not by the name: a file renamed
    // by hand still shows, and a text file named .bmp fails cleanly.
    if (empiezaCon(bytes, {'B', 'M'}))
        return leeRaster(bytes, "BMP");
    if (empiezaCon(bytes, {0xFF, 0xD8, 0xFF}))
        return leeRaster(bytes, "JPEG");
    if (empiezaCon(bytes, {0x00, 0x00, 0x01, 0x00}))
        return leeRaster(bytes, "ICO");
    if (looksLikeEmf(bytes)) {
        auto m = readEmf(bytes);
        if (!m)
            return {{}, PictureError::Unreadable};
        return {Picture::fromMetafile(std::move(m)), PictureError::None};
    }
    if (looksLikeWmf(bytes)) {
        auto m = readWmf(bytes);
        if (!m)
            return {{}, PictureError::Unreadable};
        return {Picture::fromMetafile(std::move(m)), PictureError::None};
    }
    return {{}, PictureError::Unreadable};
}

PictureLoad readPicture(const QString& path)
{
    if (path.isEmpty())
        return {};
    QFile f(path);
    if (!QFileInfo(path).isFile())
        return {{}, PictureError::NotFound};
    if (!f.open(QIODevice::ReadOnly))
        return {{}, PictureError::Unreadable};
    return readPictureData(f.readAll());
}

Picture loadPicture(const QString& path)
{
    PictureLoad r = readPicture(path);
    switch (r.error) {
    case PictureError::None:
        return r.picture;
    case PictureError::NotFound:
        throw RuntimeError::fileNotFound();
    case PictureError::Unreadable:
        break;
    }
    throw RuntimeError(481, QStringLiteral("Invalid picture"));
}

bool tryLoadPicture(const QString& path, Picture& out)
{
    PictureLoad r = readPicture(path);
    if (r.error != PictureError::None)
        return false;
    out = r.picture;
    return true;
}
