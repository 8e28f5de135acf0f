#pragma once

#include <memory>
#include <QBrush>
#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QString>
#include <vector>

class QPainter;

// A plain (WMF) or enhanced (EMF) metafile, read once into what it draws:
// shapes, text and bitmaps in the coordinates of the metafile's device,
// within the frame that the file gives itself. Drawing maps that frame onto
// whatever rectangle the caller wants.
class Metafile {
public:
    // One line of text as the file asked for it: the font is kept as a
    // description and made when drawn, so reading needs no font machinery.
    struct Text {
        QString text;
        QPointF origin;        // the reference point, in device units
        std::vector<qreal> dx; // distances from each character to the next, or none
        QString family;
        qreal height = 0; // <0: the character's height; >0: the cell's; 0: a default
        qreal width = 0;  // average character width, 0 for the font's own
        int weight = 400;
        bool italic = false;
        bool underline = false;
        bool strikeOut = false;
        qreal angle = 0; // degrees, counter-clockwise
        QColor color = Qt::black;
        unsigned align = 0;  // the text alignment flags of the file
        bool opaque = false; // the background box is filled
        QColor background = Qt::white;
    };

    struct Op {
        enum class Kind { Path, Text, Image };
        Kind kind = Kind::Path;
        QPainterPath path;
        QPen pen = Qt::NoPen;
        QBrush brush = Qt::NoBrush;
        Text text;
        QImage image;
        QRectF target; // where the bitmap goes, in device units
        QRectF source; // which part of the bitmap, in its pixels
    };

    // The frame, in device units: what is stretched onto a target.
    QRectF frame() const { return m_frame; }
    QSizeF sizeMm() const { return m_sizeMm; }
    const std::vector<Op>& ops() const { return m_ops; }

    void draw(QPainter& painter, const QRectF& target) const;

private:
    friend class MetafileBuilder;
    QRectF m_frame;
    QSizeF m_sizeMm;
    std::vector<Op> m_ops;
};

// Whether the bytes start as a metafile of that kind does.
bool looksLikeWmf(const QByteArray& bytes);
bool looksLikeEmf(const QByteArray& bytes);

// The metafile, or nothing when the bytes are not one that can be shown.
// Every length and count in the file is checked against the bytes there are
// before it is used, so no file, however damaged, reads outside them.
std::shared_ptr<const Metafile> readWmf(const QByteArray& bytes);
std::shared_ptr<const Metafile> readEmf(const QByteArray& bytes);
