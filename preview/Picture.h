#pragma once

#include <memory>
#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QSizeF>
#include <QString>

class QPainter;
class Metafile;

// A picture as the program loads it by file name: a bitmap, an icon, a JPEG,
// or a plain or enhanced metafile. It draws itself stretched to a rectangle,
// or at its own size.
class Picture {
public:
    enum class Kind { Empty, Raster, Vector };

    Picture() = default;
    static Picture fromImage(const QImage& image);
    static Picture fromMetafile(std::shared_ptr<const Metafile> metafile);

    Kind kind() const { return m_kind; }
    bool isNull() const { return m_kind == Kind::Empty; }
    // The picture's own size in millimetres: a bitmap by its resolution (96
    // dots an inch when it names none), a metafile by its frame.
    QSizeF sizeMm() const;

    // Stretches the whole picture to the rectangle, in the painter's units.
    void draw(QPainter& painter, const QRectF& target) const;
    // Draws it at its own size with its top left at `topLeft`, the painter
    // counting `unitsPerMm` of its units to a millimetre.
    void drawAtOwnSize(QPainter& painter, const QPointF& topLeft, qreal unitsPerMm) const;

    const QImage& image() const { return m_image; }
    const Metafile* metafile() const { return m_metafile.get(); }

private:
    Kind m_kind = Kind::Empty;
    QImage m_image;
    std::shared_ptr<const Metafile> m_metafile;
};

// Why a picture could not be had.
enum class PictureError {
    None,
    NotFound,   // no such file
    Unreadable, // there, but not a picture of a format the program reads
};

struct PictureLoad {
    Picture picture;
    PictureError error = PictureError::None;
};

// Reads a picture from a file, telling the format by its first bytes. An
// empty path is an empty picture, which clears whatever was shown.
PictureLoad readPicture(const QString& path);
// The same from bytes already in memory.
PictureLoad readPictureData(const QByteArray& bytes);

// For the places that do not foresee a failure: a missing file is
// "File not found" (53), one that is no picture "Invalid picture" (481).
Picture loadPicture(const QString& path);

// For the places that report a failure themselves (the background of the
// surface): whether it could be loaded; `out` is left alone when not.
bool tryLoadPicture(const QString& path, Picture& out);
