#include "Metafile.h"

#include "CodePage.h"
#include "Fuentes.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QImageReader>
#include <QPainter>
#include <QStringDecoder>
#include <QtEndian>
#include <QTransform>

extern "C" {
#include <uemf.h>
#include <uemf_safe.h>
#include <uwmf.h>
}

// Reading goes in two layers. libuemf's safety checks say whether a record
// stands wholly inside the file and is consistent with its own size; then
// each record's fields are read with its own bounds checks before anything
// is believed. The player keeps the device context of the file (objects,
// colours, mapping) and turns every drawing record into an Op in device units.

namespace {

constexpr int kMaxOps = 200000; // more than any picture of ours will ever hold
constexpr int kMaxSaved = 256;  // nested SaveDC
constexpr uint32_t kMaxObjects = 65536;
constexpr int kMaxBitmapSide = 16384;

// A window on the bytes of one record; every read is checked.
class Bytes {
public:
    Bytes(const char* data, size_t size) : m_data(data), m_size(size) {}
    size_t size() const { return m_size; }
    const char* data() const { return m_data; }
    bool has(size_t off, size_t len) const { return off <= m_size && len <= m_size - off; }
    template <typename T> T get(size_t off) const
    {
        T v{};
        if (has(off, sizeof(T)))
            std::memcpy(&v, m_data + off, sizeof(T));
        return v;
    }
    int16_t i16(size_t off) const { return get<int16_t>(off); }
    uint16_t u16(size_t off) const { return get<uint16_t>(off); }
    int32_t i32(size_t off) const { return get<int32_t>(off); }
    // A coordinate, taken as a real number at once, so that no arithmetic on
    // it can leave the range of its integer (an edge of 2147483647 plus one).
    qreal x32(size_t off) const { return get<int32_t>(off); }
    uint32_t u32(size_t off) const { return get<uint32_t>(off); }
    float f32(size_t off) const { return get<float>(off); }

private:
    const char* m_data;
    size_t m_size;
};

QColor colorRef(uint32_t c)
{
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

bool esFinito(qreal v)
{
    return std::isfinite(v) && std::fabs(v) < 1e9;
}

bool esFinita(const QTransform& x)
{
    for (qreal v :
         {x.m11(), x.m12(), x.m13(), x.m21(), x.m22(), x.m23(), x.m31(), x.m32(), x.m33()})
        if (!esFinito(v))
            return false;
    return true;
}

// The code page of a font's character set, for 8-bit text.
const char* codecForCharset(int charset)
{
    switch (charset) {
    case 161:
        return "windows-1253";
    case 238:
        return "windows-1250";
    case 204:
        return "windows-1251";
    case 162:
        return "windows-1254";
    case 177:
        return "windows-1255";
    case 178:
        return "windows-1256";
    case 186:
        return "windows-1257";
    case 163:
        return "windows-1258";
    case 222:
        return "windows-874";
    case 128:
        return "Shift_JIS";
    case 134:
        return "GBK";
    case 136:
        return "Big5";
    case 129:
        return "windows-949";
    case 2:
        return "ISO-8859-1"; // symbol fonts: the codes are the glyphs
    default:
        return "windows-1252";
    }
}

QString decode8(const char* s, size_t n, int charset)
{
    const QByteArrayView bytes(s, static_cast<qsizetype>(n));
    bool conocida = false;
    const QString texto = decodificarPagina(codecForCharset(charset), bytes, &conocida);
    return conocida ? texto : QString::fromLatin1(bytes.data(), bytes.size());
}

// A packed bitmap (the info block, its colours, the pixels) as a QImage,
// by way of the bitmap file that holds the same bytes.
QImage dibToImage(const char* dib, size_t len)
{
    Bytes b(dib, len);
    if (!b.has(0, 4))
        return {};
    const uint32_t headerSize = b.u32(0);
    uint32_t colores = 0;
    uint32_t bytesPorColor = 4;
    int32_t ancho = 0;
    int32_t alto = 0;
    uint32_t bits = 0;
    uint32_t compresion = 0;
    if (headerSize == 12) {
        if (!b.has(0, 12))
            return {};
        ancho = b.u16(4);
        alto = b.u16(6);
        bits = b.u16(10);
        bytesPorColor = 3;
        colores = bits <= 8 ? (1u << bits) : 0;
    } else if (headerSize >= 40 && headerSize <= 124) {
        if (!b.has(0, headerSize) || !bitmapinfo_safe(dib, dib + len))
            return {};
        ancho = b.i32(4);
        alto = b.i32(8);
        bits = b.u16(14);
        compresion = b.u32(16);
        colores = b.u32(32);
        if (colores == 0 && bits <= 8)
            colores = 1u << bits;
        if (compresion == 3 && headerSize == 40)
            colores += 3; // the three masks stand where the colours would
    } else {
        return {};
    }
    if (ancho <= 0 || alto == 0 || alto == INT32_MIN || ancho > kMaxBitmapSide ||
        std::abs(alto) > kMaxBitmapSide || colores > 256 + 3 || bits == 0 || bits > 32)
        return {};
    const uint64_t offBits = 14 + uint64_t(headerSize) + uint64_t(colores) * bytesPorColor;
    if (offBits - 14 > len)
        return {};
    QByteArray file;
    file.reserve(static_cast<qsizetype>(len) + 14);
    file.append("BM");
    const auto le32 = [&file](uint32_t v) {
        char c[4];
        qToLittleEndian(v, c);
        file.append(c, 4);
    };
    le32(static_cast<uint32_t>(14 + len));
    le32(0);
    le32(static_cast<uint32_t>(offBits));
    file.append(dib, static_cast<qsizetype>(len));
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "BMP");
    QImage image;
    if (!reader.read(&image))
        return {};
    return image;
}

} // namespace

// The state of the file's device context, and the Ops it has drawn so far.
class MetafileBuilder {
public:
    struct Pen {
        uint32_t style = 0; // PS_SOLID
        qreal width = 0;    // logical units; 0 is one device pixel
        QColor color = Qt::black;
    };
    struct Brush {
        uint32_t style = 0; // BS_SOLID
        QColor color = Qt::white;
        uint32_t hatch = 0;
    };
    struct Font {
        QString family = QStringLiteral("DejaVu Sans");
        qreal height = 0;
        qreal width = 0;
        int escapement = 0;
        int weight = 400;
        bool italic = false, underline = false, strikeOut = false;
        int charset = 0;
    };
    struct Object {
        enum class Kind { None, Pen, Brush, Font, Other } kind = Kind::None;
        Pen pen;
        Brush brush;
        Font font;
    };
    struct Dc {
        int mapMode = U_MM_TEXT;
        QPointF winOrg{0, 0}, winExt{1, 1}, vpOrg{0, 0}, vpExt{1, 1};
        bool winSet = false;
        QTransform world;
        Pen pen;
        Brush brush;
        Font font;
        QColor textColor = Qt::black;
        QColor bkColor = Qt::white;
        int bkMode = U_OPAQUE;
        unsigned textAlign = 0;
        int polyFill = U_ALTERNATE;
        QPointF cur; // logical
    };

    explicit MetafileBuilder(bool emf) : m_emf(emf) {}

    Dc dc;
    bool m_emf;
    // WMF: the frame the window is played into.
    QRectF wmfFrame;
    bool wmfFrameFixed = false;
    // EMF: device pixels per millimetre of the reference device.
    qreal pxPerMm = 96 / 25.4;

    std::vector<Dc> saved;
    std::vector<Object> objects;
    bool inPath = false;
    QPainterPath path; // in device units, while a path bracket is open
    std::shared_ptr<Metafile> result = std::make_shared<Metafile>();
    bool full = false;
    bool broken = false; // a record that contradicts itself or the file

    // --- mapping ---------------------------------------------------------
    QPointF scale() const
    {
        if (!m_emf) {
            // A plain metafile is played into a rectangle: the player owns the
            // viewport and the file's window is mapped onto the frame.
            if (!dc.winSet || !wmfFrameFixed)
                return {1, 1};
            const qreal sx = dc.winExt.x() != 0 ? wmfFrame.width() / dc.winExt.x() : 1;
            const qreal sy = dc.winExt.y() != 0 ? wmfFrame.height() / dc.winExt.y() : 1;
            return {sx, sy};
        }
        qreal mm = 0;
        switch (dc.mapMode) {
        case U_MM_LOMETRIC:
            mm = 0.1;
            break;
        case U_MM_HIMETRIC:
            mm = 0.01;
            break;
        case U_MM_LOENGLISH:
            mm = 0.254;
            break;
        case U_MM_HIENGLISH:
            mm = 0.0254;
            break;
        case U_MM_TWIPS:
            mm = 25.4 / 1440;
            break;
        case U_MM_ISOTROPIC:
        case U_MM_ANISOTROPIC: {
            qreal sx = dc.winExt.x() != 0 ? dc.vpExt.x() / dc.winExt.x() : 1;
            qreal sy = dc.winExt.y() != 0 ? dc.vpExt.y() / dc.winExt.y() : 1;
            if (dc.mapMode == U_MM_ISOTROPIC) {
                const qreal s = std::min(std::fabs(sx), std::fabs(sy));
                sx = std::copysign(s, sx);
                sy = std::copysign(s, sy);
            }
            return {sx, sy};
        }
        default:
            return {1, 1};
        }
        return {mm * pxPerMm, -mm * pxPerMm};
    }

    QPointF map(QPointF p) const
    {
        if (m_emf)
            p = dc.world.map(p);
        const QPointF s = scale();
        if (!m_emf) {
            if (!dc.winSet || !wmfFrameFixed)
                return p;
            return {wmfFrame.left() + (p.x() - dc.winOrg.x()) * s.x(),
                    wmfFrame.top() + (p.y() - dc.winOrg.y()) * s.y()};
        }
        return {(p.x() - dc.winOrg.x()) * s.x() + dc.vpOrg.x(),
                (p.y() - dc.winOrg.y()) * s.y() + dc.vpOrg.y()};
    }
    QPointF map(qreal x, qreal y) const { return map(QPointF(x, y)); }
    qreal lengthX(qreal l) const
    {
        qreal w = std::sqrt(dc.world.m11() * dc.world.m11() + dc.world.m12() * dc.world.m12());
        return std::fabs(l * scale().x() * (m_emf ? w : 1));
    }
    qreal lengthY(qreal l) const
    {
        qreal w = std::sqrt(dc.world.m21() * dc.world.m21() + dc.world.m22() * dc.world.m22());
        return std::fabs(l * scale().y() * (m_emf ? w : 1));
    }

    // --- drawing -----------------------------------------------------------
    QPen currentPen() const
    {
        const uint32_t style = dc.pen.style & 0x0F;
        if (style == U_PS_NULL)
            return Qt::NoPen;
        const qreal w = lengthX(dc.pen.width);
        // QPen takes no width from 2^15 on: a line that wide is no line.
        if (!(w < 32768))
            return Qt::NoPen;
        QPen pen(dc.pen.color);
        pen.setWidthF(w);
        pen.setCosmetic(w <= 0);
        if (w <= 0)
            pen.setWidth(1);
        switch (style) {
        case U_PS_DASH:
            pen.setStyle(Qt::DashLine);
            break;
        case U_PS_DOT:
            pen.setStyle(Qt::DotLine);
            break;
        case U_PS_DASHDOT:
            pen.setStyle(Qt::DashDotLine);
            break;
        case U_PS_DASHDOTDOT:
            pen.setStyle(Qt::DashDotDotLine);
            break;
        default:
            pen.setStyle(Qt::SolidLine);
            break;
        }
        pen.setJoinStyle(Qt::MiterJoin);
        pen.setCapStyle(Qt::FlatCap);
        return pen;
    }
    QBrush currentBrush() const
    {
        switch (dc.brush.style) {
        case U_BS_NULL:
            return Qt::NoBrush;
        case U_BS_HATCHED: {
            static const Qt::BrushStyle hatches[] = {Qt::HorPattern,   Qt::VerPattern,
                                                     Qt::FDiagPattern, Qt::BDiagPattern,
                                                     Qt::CrossPattern, Qt::DiagCrossPattern};
            return QBrush(dc.brush.color,
                          dc.brush.hatch < 6 ? hatches[dc.brush.hatch] : Qt::SolidPattern);
        }
        case U_BS_SOLID:
            return QBrush(dc.brush.color);
        default:
            return QBrush(Qt::gray); // pattern brushes: their average, near enough
        }
    }
    bool room()
    {
        if (static_cast<int>(result->m_ops.size()) >= kMaxOps)
            full = true;
        return !full;
    }
    void emitPath(const QPainterPath& p, bool stroke, bool fill)
    {
        if (inPath) {
            path.addPath(p);
            return;
        }
        if (!room())
            return;
        Metafile::Op op;
        op.kind = Metafile::Op::Kind::Path;
        op.path = p;
        op.path.setFillRule(dc.polyFill == U_WINDING ? Qt::WindingFill : Qt::OddEvenFill);
        op.pen = stroke ? currentPen() : QPen(Qt::NoPen);
        op.brush = fill ? currentBrush() : QBrush(Qt::NoBrush);
        if (op.pen.style() == Qt::NoPen && op.brush.style() == Qt::NoBrush)
            return;
        result->m_ops.push_back(std::move(op));
    }
    template <typename PointAt> void poly(size_t n, PointAt at, bool closed)
    {
        if (n == 0)
            return;
        QPainterPath p;
        p.moveTo(map(at(0)));
        for (size_t i = 1; i < n; ++i)
            p.lineTo(map(at(i)));
        if (closed)
            p.closeSubpath();
        emitPath(p, true, closed);
    }
    void rect(qreal l, qreal t, qreal r, qreal b, qreal rx = 0, qreal ry = 0)
    {
        const QRectF rr = QRectF(map(l, t), map(r, b)).normalized();
        QPainterPath p;
        if (rx > 0 || ry > 0)
            p.addRoundedRect(rr, lengthX(rx) / 2, lengthY(ry) / 2);
        else
            p.addRect(rr);
        emitPath(p, true, true);
    }
    void ellipse(qreal l, qreal t, qreal r, qreal b)
    {
        QPainterPath p;
        p.addEllipse(QRectF(map(l, t), map(r, b)).normalized());
        emitPath(p, true, true);
    }
    void lineTo(qreal x, qreal y)
    {
        const QPointF to(x, y);
        if (inPath) {
            if (path.elementCount() == 0)
                path.moveTo(map(dc.cur));
            path.lineTo(map(to));
        } else {
            QPainterPath p;
            p.moveTo(map(dc.cur));
            p.lineTo(map(to));
            emitPath(p, true, false);
        }
        dc.cur = to;
    }
    void moveTo(qreal x, qreal y)
    {
        dc.cur = QPointF(x, y);
        if (inPath)
            path.moveTo(map(dc.cur));
    }
    void text(const QString& s, qreal x, qreal y, const std::vector<qreal>& dxLogical)
    {
        if (s.isEmpty() || !room())
            return;
        Metafile::Text t;
        t.text = s;
        QPointF ref(x, y);
        if (dc.textAlign & U_TA_UPDATECP)
            ref = dc.cur;
        t.origin = map(ref);
        for (qreal d : dxLogical)
            t.dx.push_back(lengthX(d));
        t.family = dc.font.family;
        t.height = dc.font.height < 0 ? -lengthY(dc.font.height) : lengthY(dc.font.height);
        t.width = lengthX(dc.font.width);
        t.weight = dc.font.weight;
        t.italic = dc.font.italic;
        t.underline = dc.font.underline;
        t.strikeOut = dc.font.strikeOut;
        t.angle = dc.font.escapement / 10.0;
        t.color = dc.textColor;
        t.align = dc.textAlign;
        t.opaque = dc.bkMode == U_OPAQUE;
        t.background = dc.bkColor;
        if ((dc.textAlign & U_TA_UPDATECP) && !t.dx.empty()) {
            qreal total = 0;
            for (qreal d : dxLogical)
                total += d;
            dc.cur = QPointF(ref.x() + total, ref.y());
        }
        Metafile::Op op;
        op.kind = Metafile::Op::Kind::Text;
        op.text = std::move(t);
        result->m_ops.push_back(std::move(op));
    }
    void image(const QImage& img, QRectF dst, QRectF src)
    {
        if (img.isNull() || !room() || inPath)
            return;
        if (src.isEmpty())
            src = QRectF(0, 0, img.width(), img.height());
        // The source names bottom-up rows in the file's terms only for the
        // raw data; the image is already top-down.
        src = src.intersected(QRectF(0, 0, img.width(), img.height()));
        if (src.isEmpty())
            return;
        Metafile::Op op;
        op.kind = Metafile::Op::Kind::Image;
        op.image = img;
        op.target = QRectF(map(dst.topLeft()), map(dst.bottomRight())).normalized();
        op.source = src;
        result->m_ops.push_back(std::move(op));
    }

    // --- objects -----------------------------------------------------------
    // A plain metafile puts each new object in the lowest free slot.
    bool addObject(const Object& o)
    {
        for (auto& slot : objects) {
            if (slot.kind == Object::Kind::None) {
                slot = o;
                return true;
            }
        }
        if (objects.size() >= kMaxObjects)
            return false;
        objects.push_back(o);
        return true;
    }
    // An enhanced one names the slot.
    void setObject(uint32_t index, const Object& o)
    {
        if (index == 0 || index >= kMaxObjects)
            return;
        if (objects.size() <= index)
            objects.resize(index + 1);
        objects[index] = o;
    }
    void select(uint32_t index)
    {
        if (index >= objects.size())
            return;
        const Object& o = objects[index];
        switch (o.kind) {
        case Object::Kind::Pen:
            dc.pen = o.pen;
            break;
        case Object::Kind::Brush:
            dc.brush = o.brush;
            break;
        case Object::Kind::Font:
            dc.font = o.font;
            break;
        default:
            break;
        }
    }
    void selectStock(uint32_t stock)
    {
        switch (stock) {
        case 0:
            dc.brush = {U_BS_SOLID, Qt::white, 0};
            break;
        case 1:
            dc.brush = {U_BS_SOLID, QColor(192, 192, 192), 0};
            break;
        case 2:
            dc.brush = {U_BS_SOLID, QColor(128, 128, 128), 0};
            break;
        case 3:
            dc.brush = {U_BS_SOLID, QColor(64, 64, 64), 0};
            break;
        case 4:
            dc.brush = {U_BS_SOLID, Qt::black, 0};
            break;
        case 5:
            dc.brush = {U_BS_NULL, Qt::white, 0};
            break;
        case 6:
            dc.pen = {U_PS_SOLID, 0, Qt::white};
            break;
        case 7:
            dc.pen = {U_PS_SOLID, 0, Qt::black};
            break;
        case 8:
            dc.pen = {U_PS_NULL, 0, Qt::black};
            break;
        case 10:
        case 11:
        case 16:
            dc.font = Font();
            dc.font.family = QStringLiteral("DejaVu Sans Mono");
            break;
        case 12:
        case 13:
        case 14:
        case 17:
            dc.font = Font();
            break;
        default:
            break;
        }
    }
    void deleteObject(uint32_t index)
    {
        if (index < objects.size())
            objects[index] = Object();
    }
    void save()
    {
        if (saved.size() < static_cast<size_t>(kMaxSaved))
            saved.push_back(dc);
    }
    void restore(int n)
    {
        // Negative: so many back; positive: that saved state by number.
        size_t keep;
        if (n < 0) {
            const size_t back = static_cast<size_t>(-static_cast<int64_t>(n));
            if (back > saved.size())
                return;
            keep = saved.size() - back;
        } else {
            if (n == 0 || static_cast<size_t>(n) > saved.size())
                return;
            keep = static_cast<size_t>(n) - 1;
        }
        dc = saved[keep];
        saved.resize(keep);
    }

    static Font fontFrom(int16_t h, int16_t w, int16_t esc, int16_t weight, uint8_t italic,
                         uint8_t underline, uint8_t strike, uint8_t charset, const QString& face)
    {
        Font f;
        f.height = h;
        f.width = w;
        f.escapement = esc;
        f.weight = weight > 0 ? weight : 400;
        f.italic = italic;
        f.underline = underline;
        f.strikeOut = strike;
        f.charset = charset;
        if (!face.trimmed().isEmpty())
            f.family = face.trimmed();
        return f;
    }

    std::shared_ptr<const Metafile> finish(QRectF frame, QSizeF mm)
    {
        if (broken)
            return nullptr;
        if (frame.isEmpty()) {
            // No frame in the file: what it draws makes one.
            QRectF bounds;
            for (const auto& op : result->m_ops) {
                QRectF r;
                if (op.kind == Metafile::Op::Kind::Path)
                    r = op.path.boundingRect();
                else if (op.kind == Metafile::Op::Kind::Image)
                    r = op.target;
                else
                    r = QRectF(op.text.origin, QSizeF(1, 1));
                bounds = bounds.isNull() ? r : bounds.united(r);
            }
            frame = bounds;
        }
        // A frame of no size to speak of would blow what it holds up past
        // anything a painter can place.
        constexpr qreal kMenor = 1e-3;
        if (frame.width() < kMenor || frame.height() < kMenor || !esFinito(frame.left()) ||
            !esFinito(frame.top()) || !esFinito(frame.width()) || !esFinito(frame.height()))
            return nullptr;
        if (mm.isEmpty())
            mm = QSizeF(frame.width() * 25.4 / 96, frame.height() * 25.4 / 96);
        result->m_frame = frame;
        result->m_sizeMm = mm;
        return result;
    }
};

// --- drawing -----------------------------------------------------------------

namespace {

// The font engine renders each glyph into a bitmap of its own before the
// painter places it, and Qt asks it to whenever the glyph's area is small,
// whatever its shape. A glyph thousands of pixels long and a fraction of one
// high has a small area, the engine cannot render it, and Qt then reads the
// bitmap it never got. So only a glyph of sane size and shape in device
// pixels goes to the font engine; any other is drawn as its outline, which
// the painter fills as it fills any shape. `glyph` maps the font's pixels to
// the device's.
bool paraElMotorDeFuentes(const QTransform& glyph, qreal em)
{
    constexpr qreal kLadoMaximo = 256; // pixels: no font engine minds a glyph this size
    constexpr qreal kLadoMinimo = 0.5;
    const qreal ancho = em * std::hypot(glyph.m11(), glyph.m12());
    const qreal alto = em * std::hypot(glyph.m21(), glyph.m22());
    const qreal area = em * em * std::fabs(glyph.m11() * glyph.m22() - glyph.m12() * glyph.m21());
    return ancho <= kLadoMaximo && alto <= kLadoMaximo && ancho >= kLadoMinimo &&
           alto >= kLadoMinimo && area >= 0.25 * ancho * alto; // not sheared flat
}

void drawText(QPainter& painter, const Metafile::Text& t)
{
    asegurarFuentes();
    // Fonts are made at a fixed size and scaled, so that a text of a few
    // hundredths of a millimetre or of a few thousand units draws the same.
    constexpr qreal kBase = 100;
    QFont font(t.family);
    font.setPixelSize(static_cast<int>(kBase));
    font.setWeight(static_cast<QFont::Weight>(std::clamp(t.weight / 10 * 10, 100, 900)));
    font.setItalic(t.italic);
    font.setUnderline(t.underline);
    font.setStrikeOut(t.strikeOut);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF fm(font);
    qreal em = 12;
    if (t.height < 0)
        em = -t.height;
    else if (t.height > 0)
        em = t.height * kBase / (fm.ascent() + fm.descent());
    const qreal s = em / kBase;
    qreal sx = s;
    if (t.width > 0 && fm.averageCharWidth() > 0)
        sx = t.width / fm.averageCharWidth();

    // The advance of each character, in device units.
    std::vector<qreal> adv;
    const QString& str = t.text;
    if (t.dx.size() >= static_cast<size_t>(str.size())) {
        adv.assign(t.dx.begin(), t.dx.begin() + str.size());
    } else {
        for (QChar c : str)
            adv.push_back(fm.horizontalAdvance(c) * sx);
    }
    qreal total = 0;
    for (qreal a : adv)
        total += a;

    qreal x0 = 0;
    if ((t.align & U_TA_CENTER) == U_TA_CENTER)
        x0 = -total / 2;
    else if (t.align & U_TA_RIGHT)
        x0 = -total;
    qreal base = 0;
    if ((t.align & U_TA_BASELINE) == U_TA_BASELINE)
        base = 0;
    else if (t.align & U_TA_BOTTOM)
        base = -fm.descent() * s;
    else
        base = fm.ascent() * s;

    painter.save();
    painter.translate(t.origin);
    painter.rotate(-t.angle);
    // Every glyph has the same shape on the device; only its place differs.
    const QTransform glyph = QTransform::fromScale(sx, s) * painter.combinedTransform();
    if (!esFinita(glyph)) {
        painter.restore();
        return; // nowhere sane on the device: nothing to draw
    }
    if (t.opaque)
        painter.fillRect(
            QRectF(x0, base - fm.ascent() * s, total, (fm.ascent() + fm.descent()) * s),
            t.background);
    const bool motor = paraElMotorDeFuentes(glyph, kBase);
    painter.setFont(font);
    painter.setPen(t.color);
    qreal x = x0;
    for (int i = 0; i < str.size(); ++i) {
        painter.save();
        painter.translate(x, base);
        painter.scale(sx, s);
        if (motor) {
            painter.drawText(QPointF(0, 0), QString(str.at(i)));
        } else {
            QPainterPath contorno;
            contorno.addText(QPointF(0, 0), font, QString(str.at(i)));
            painter.fillPath(contorno, t.color);
        }
        painter.restore();
        x += adv[static_cast<size_t>(i)];
    }
    painter.restore();
}

} // namespace

void Metafile::draw(QPainter& painter, const QRectF& target) const
{
    if (m_frame.isEmpty() || target.isEmpty())
        return;
    painter.save();
    painter.translate(target.topLeft());
    painter.scale(target.width() / m_frame.width(), target.height() / m_frame.height());
    painter.translate(-m_frame.topLeft());
    painter.setClipRect(m_frame, Qt::IntersectClip);
    for (const Op& op : m_ops) {
        switch (op.kind) {
        case Op::Kind::Path:
            painter.setPen(op.pen);
            painter.setBrush(op.brush);
            painter.drawPath(op.path);
            break;
        case Op::Kind::Text:
            drawText(painter, op.text);
            break;
        case Op::Kind::Image:
            painter.drawImage(op.target, op.image, op.source);
            break;
        }
    }
    painter.restore();
}

// --- the plain metafile ----------------------------------------------------

bool looksLikeWmf(const QByteArray& bytes)
{
    if (bytes.size() < 18)
        return false;
    Bytes b(bytes.constData(), static_cast<size_t>(bytes.size()));
    if (b.u32(0) == 0x9AC6CDD7)
        return true;
    // A header without the placeable prefix: type 1 or 2, nine words long.
    return (b.u16(0) == 1 || b.u16(0) == 2) && b.u16(2) == 9 &&
           (b.u16(4) == 0x0100 || b.u16(4) == 0x0300);
}

std::shared_ptr<const Metafile> readWmf(const QByteArray& bytes)
{
    // A few bytes of zeros after the end, so that nothing a record parser
    // reads past a short last record can stray outside the buffer.
    QByteArray buf = bytes;
    const size_t length = static_cast<size_t>(bytes.size());
    buf.append(QByteArray(64, '\0'));
    const char* start = buf.constData();
    const char* blimit = start + length;

    U_WMRPLACEABLE placeable{};
    U_WMRHEADER header{};
    const int headerSize = wmfheader_get(start, blimit, &placeable, &header);
    if (headerSize <= 0)
        return nullptr;

    MetafileBuilder m(false);
    QSizeF mm;
    if (placeable.Key == 0x9AC6CDD7) {
        const QRectF box = QRectF(QPointF(placeable.Dst.left, placeable.Dst.top),
                                  QPointF(placeable.Dst.right, placeable.Dst.bottom))
                               .normalized();
        if (box.isEmpty() || placeable.Inch == 0)
            return nullptr;
        m.wmfFrame = box;
        m.wmfFrameFixed = true;
        mm = QSizeF(box.width() * 25.4 / placeable.Inch, box.height() * 25.4 / placeable.Inch);
    }

    size_t off = static_cast<size_t>(headerSize);
    bool eof = false;
    while (!eof && !m.full && !m.broken) {
        if (off == length)
            break; // the end of the file stands for the end record
        if (length - off < U_SIZE_METARECORD) {
            m.broken = true;
            break;
        }
        const char* rec = start + off;
        const size_t size = U_WMRRECSAFE_get(rec, blimit);
        if (size == 0) {
            m.broken = true;
            break;
        }
        Bytes r(rec, size);
        const uint8_t type = static_cast<uint8_t>(rec[4]);
        // Parameters start after the six bytes of size and function.
        const auto need = [&](size_t n) { return size >= U_SIZE_METARECORD + n; };
        switch (type) {
        case U_WMR_EOF:
            eof = true;
            break;
        case U_WMR_SETBKCOLOR:
            if (need(4)) {
                U_COLORREF c;
                U_WMRSETBKCOLOR_get(rec, &c);
                m.dc.bkColor = QColor(c.Red, c.Green, c.Blue);
            }
            break;
        case U_WMR_SETTEXTCOLOR:
            if (need(4)) {
                U_COLORREF c;
                U_WMRSETTEXTCOLOR_get(rec, &c);
                m.dc.textColor = QColor(c.Red, c.Green, c.Blue);
            }
            break;
        case U_WMR_SETBKMODE:
        case U_WMR_SETMAPMODE:
        case U_WMR_SETPOLYFILLMODE:
        case U_WMR_SETTEXTALIGN:
            if (need(2)) {
                uint16_t v = 0;
                if (type == U_WMR_SETBKMODE)
                    U_WMRSETBKMODE_get(rec, &v), m.dc.bkMode = v;
                else if (type == U_WMR_SETMAPMODE)
                    U_WMRSETMAPMODE_get(rec, &v), m.dc.mapMode = v;
                else if (type == U_WMR_SETPOLYFILLMODE)
                    U_WMRSETPOLYFILLMODE_get(rec, &v), m.dc.polyFill = v;
                else
                    U_WMRSETTEXTALIGN_get(rec, &v), m.dc.textAlign = v;
            }
            break;
        case U_WMR_SETWINDOWORG:
        case U_WMR_SETWINDOWEXT:
        case U_WMR_OFFSETWINDOWORG:
        case U_WMR_SETVIEWPORTORG:
        case U_WMR_SETVIEWPORTEXT:
        case U_WMR_MOVETO:
        case U_WMR_LINETO:
            if (need(4)) {
                U_POINT16 p{};
                switch (type) {
                case U_WMR_SETWINDOWORG:
                    U_WMRSETWINDOWORG_get(rec, &p);
                    m.dc.winOrg = QPointF(p.x, p.y);
                    break;
                case U_WMR_SETWINDOWEXT:
                    U_WMRSETWINDOWEXT_get(rec, &p);
                    m.dc.winExt = QPointF(p.x, p.y);
                    m.dc.winSet = true;
                    if (!m.wmfFrameFixed && p.x != 0 && p.y != 0) {
                        // Without a placeable header the first window is the frame.
                        m.wmfFrame = QRectF(m.dc.winOrg, QSizeF(p.x, p.y)).normalized();
                        m.wmfFrameFixed = true;
                    }
                    break;
                case U_WMR_OFFSETWINDOWORG:
                    U_WMROFFSETWINDOWORG_get(rec, &p);
                    m.dc.winOrg += QPointF(p.x, p.y);
                    break;
                case U_WMR_SETVIEWPORTORG:
                    U_WMRSETVIEWPORTORG_get(rec, &p);
                    m.dc.vpOrg = QPointF(p.x, p.y);
                    break;
                case U_WMR_SETVIEWPORTEXT:
                    U_WMRSETVIEWPORTEXT_get(rec, &p);
                    m.dc.vpExt = QPointF(p.x, p.y);
                    break;
                case U_WMR_MOVETO:
                    U_WMRMOVETO_get(rec, &p);
                    m.moveTo(p.x, p.y);
                    break;
                case U_WMR_LINETO:
                    U_WMRLINETO_get(rec, &p);
                    m.lineTo(p.x, p.y);
                    break;
                }
            }
            break;
        case U_WMR_SCALEWINDOWEXT:
            if (need(8)) {
                U_POINT16 den{}, num{};
                U_WMRSCALEWINDOWEXT_get(rec, &den, &num);
                if (den.x != 0 && den.y != 0)
                    m.dc.winExt =
                        QPointF(m.dc.winExt.x() * num.x / den.x, m.dc.winExt.y() * num.y / den.y);
            }
            break;
        case U_WMR_RECTANGLE:
        case U_WMR_ELLIPSE:
            if (need(8)) {
                U_RECT16 rc{};
                if (type == U_WMR_RECTANGLE) {
                    U_WMRRECTANGLE_get(rec, &rc);
                    m.rect(rc.left, rc.top, rc.right, rc.bottom);
                } else {
                    U_WMRELLIPSE_get(rec, &rc);
                    m.ellipse(rc.left, rc.top, rc.right, rc.bottom);
                }
            }
            break;
        case U_WMR_ROUNDRECT:
            if (need(12)) {
                int16_t w = 0, h = 0;
                U_RECT16 rc{};
                U_WMRROUNDRECT_get(rec, &w, &h, &rc);
                m.rect(rc.left, rc.top, rc.right, rc.bottom, w, h);
            }
            break;
        case U_WMR_PATBLT:
            if (need(12)) {
                U_POINT16 dst{}, cwh{};
                uint32_t rop = 0;
                U_WMRPATBLT_get(rec, &dst, &cwh, &rop);
                QPainterPath p;
                p.addRect(
                    QRectF(m.map(dst.x, dst.y), m.map(dst.x + cwh.x, dst.y + cwh.y)).normalized());
                m.emitPath(p, false, true);
            }
            break;
        case U_WMR_POLYGON:
        case U_WMR_POLYLINE:
            if (need(2)) {
                uint16_t n = 0;
                const char* data = nullptr;
                if (type == U_WMR_POLYGON)
                    U_WMRPOLYGON_get(rec, &n, &data);
                else
                    U_WMRPOLYLINE_get(rec, &n, &data);
                if (!data || !need(2 + size_t(n) * 4)) {
                    m.broken = true;
                } else {
                    Bytes pts(rec + U_SIZE_METARECORD + 2, size_t(n) * 4);
                    m.poly(
                        n, [&](size_t i) { return QPointF(pts.i16(i * 4), pts.i16(i * 4 + 2)); },
                        type == U_WMR_POLYGON);
                }
            }
            break;
        case U_WMR_POLYPOLYGON:
            if (need(2)) {
                const size_t polys = r.u16(U_SIZE_METARECORD);
                if (!need(2 + polys * 2)) {
                    m.broken = true;
                    break;
                }
                size_t total = 0;
                for (size_t i = 0; i < polys; ++i)
                    total += r.u16(U_SIZE_METARECORD + 2 + i * 2);
                if (!need(2 + polys * 2 + total * 4)) {
                    m.broken = true;
                    break;
                }
                size_t at = U_SIZE_METARECORD + 2 + polys * 2;
                QPainterPath p;
                for (size_t i = 0; i < polys; ++i) {
                    const size_t n = r.u16(U_SIZE_METARECORD + 2 + i * 2);
                    for (size_t k = 0; k < n; ++k, at += 4) {
                        const QPointF q = m.map(r.i16(at), r.i16(at + 2));
                        k == 0 ? p.moveTo(q) : p.lineTo(q);
                    }
                    if (n)
                        p.closeSubpath();
                }
                m.emitPath(p, true, true);
            }
            break;
        case U_WMR_TEXTOUT:
            if (need(2)) {
                const size_t n = r.u16(U_SIZE_METARECORD);
                const size_t padded = (n + 1) & ~size_t(1);
                if (!need(2 + padded + 4)) {
                    m.broken = true;
                    break;
                }
                const char* s = rec + U_SIZE_METARECORD + 2;
                const int16_t y = r.i16(U_SIZE_METARECORD + 2 + padded);
                const int16_t x = r.i16(U_SIZE_METARECORD + 2 + padded + 2);
                m.text(decode8(s, n, m.dc.font.charset), x, y, {});
            }
            break;
        case U_WMR_EXTTEXTOUT:
            if (need(8)) {
                // y, x, length, options, [rectangle], string, [distances]
                const int16_t y = r.i16(6);
                const int16_t x = r.i16(8);
                const size_t n = r.u16(10);
                const uint16_t opts = r.u16(12);
                size_t at = 14;
                if (opts & (U_ETO_OPAQUE | U_ETO_CLIPPED))
                    at += 8;
                const size_t padded = (n + 1) & ~size_t(1);
                if (!r.has(at, n)) {
                    m.broken = true;
                    break;
                }
                const QString s = decode8(rec + at, n, m.dc.font.charset);
                std::vector<qreal> dx;
                if (r.has(at + padded, n * 2) && static_cast<size_t>(s.size()) == n)
                    for (size_t i = 0; i < n; ++i)
                        dx.push_back(r.i16(at + padded + i * 2));
                m.text(s, x, y, dx);
            }
            break;
        case U_WMR_DIBSTRETCHBLT:
        case U_WMR_STRETCHDIB:
        case U_WMR_DIBBITBLT: {
            // Parameters from the end backwards; the bitmap follows them.
            // rop(4) [usage(2) for STRETCHDIB] srcH srcW srcY srcX dstH dstW dstY dstX
            size_t params = type == U_WMR_DIBBITBLT ? 16 : (type == U_WMR_STRETCHDIB ? 22 : 20);
            if (!need(params))
                break;
            const size_t p0 = U_SIZE_METARECORD;
            QRectF src, dst;
            if (type == U_WMR_DIBBITBLT) {
                // rop(4) ySrc xSrc h w yDst xDst
                const int16_t ys = r.i16(p0 + 4), xs = r.i16(p0 + 6);
                const int16_t h = r.i16(p0 + 8), w = r.i16(p0 + 10);
                const int16_t yd = r.i16(p0 + 12), xd = r.i16(p0 + 14);
                src = QRectF(xs, ys, w, h);
                dst = QRectF(xd, yd, w, h);
            } else {
                const size_t q = p0 + (type == U_WMR_STRETCHDIB ? 6 : 4);
                const int16_t hs = r.i16(q), ws = r.i16(q + 2), ys = r.i16(q + 4),
                              xs = r.i16(q + 6);
                const int16_t hd = r.i16(q + 8), wd = r.i16(q + 10), yd = r.i16(q + 12),
                              xd = r.i16(q + 14);
                src = QRectF(xs, ys, ws, hs);
                dst = QRectF(xd, yd, wd, hd);
            }
            if (size <= p0 + params)
                break; // no bitmap: a plain fill by raster operation, nothing to show
            const QImage img = dibToImage(rec + p0 + params, size - p0 - params);
            if (img.isNull())
                m.broken = true;
            else {
                // The source's y counts from the bottom row of the bitmap.
                QRectF s = src.normalized();
                s.moveTop(img.height() - s.bottom());
                m.image(img, dst, s);
            }
            break;
        }
        case U_WMR_SAVEDC:
            m.save();
            break;
        case U_WMR_RESTOREDC:
            if (need(2))
                m.restore(r.i16(U_SIZE_METARECORD));
            break;
        case U_WMR_SELECTOBJECT:
            if (need(2))
                m.select(r.u16(U_SIZE_METARECORD));
            break;
        case U_WMR_DELETEOBJECT:
            if (need(2))
                m.deleteObject(r.u16(U_SIZE_METARECORD));
            break;
        case U_WMR_CREATEPENINDIRECT:
            if (need(10)) {
                MetafileBuilder::Object o;
                o.kind = MetafileBuilder::Object::Kind::Pen;
                o.pen.style = r.u16(6);
                o.pen.width = r.i16(8);
                o.pen.color = colorRef(r.u32(12));
                m.addObject(o);
            }
            break;
        case U_WMR_CREATEBRUSHINDIRECT:
            if (need(8)) {
                MetafileBuilder::Object o;
                o.kind = MetafileBuilder::Object::Kind::Brush;
                o.brush.style = r.u16(6);
                o.brush.color = colorRef(r.u32(8));
                o.brush.hatch = r.u16(12);
                m.addObject(o);
            }
            break;
        case U_WMR_CREATEFONTINDIRECT:
            if (need(18)) {
                const size_t faceAt = U_SIZE_METARECORD + 18;
                const size_t faceMax = std::min<size_t>(32, size - faceAt);
                size_t faceLen = 0;
                while (faceLen < faceMax && rec[faceAt + faceLen] != '\0')
                    ++faceLen;
                const uint8_t charset = static_cast<uint8_t>(rec[6 + 13]);
                MetafileBuilder::Object o;
                o.kind = MetafileBuilder::Object::Kind::Font;
                o.font = MetafileBuilder::fontFrom(
                    r.i16(6), r.i16(8), r.i16(10), r.i16(14), static_cast<uint8_t>(rec[16]),
                    static_cast<uint8_t>(rec[17]), static_cast<uint8_t>(rec[18]), charset,
                    decode8(rec + faceAt, faceLen, charset));
                m.addObject(o);
            }
            break;
        case U_WMR_CREATEPALETTE:
        case U_WMR_CREATEPATTERNBRUSH:
        case U_WMR_DIBCREATEPATTERNBRUSH:
        case U_WMR_CREATEREGION: {
            // Objects we do not draw with still take their slot.
            MetafileBuilder::Object o;
            o.kind = MetafileBuilder::Object::Kind::Other;
            if (type == U_WMR_DIBCREATEPATTERNBRUSH || type == U_WMR_CREATEPATTERNBRUSH) {
                o.kind = MetafileBuilder::Object::Kind::Brush;
                o.brush.style = U_BS_PATTERN;
            }
            m.addObject(o);
            break;
        }
        default:
            break; // what does not draw, or is not in use, is passed over
        }
        off += size;
    }
    return m.finish(m.wmfFrameFixed ? m.wmfFrame : QRectF(), mm);
}

// --- the enhanced metafile -------------------------------------------------

bool looksLikeEmf(const QByteArray& bytes)
{
    if (bytes.size() < 88)
        return false;
    Bytes b(bytes.constData(), static_cast<size_t>(bytes.size()));
    return b.u32(0) == U_EMR_HEADER && b.u32(40) == U_ENHMETA_SIGNATURE;
}

std::shared_ptr<const Metafile> readEmf(const QByteArray& bytes)
{
    if (!looksLikeEmf(bytes))
        return nullptr;
    const size_t length = static_cast<size_t>(bytes.size());
    // Records are read from an aligned copy with room behind it.
    QByteArray buf = bytes;
    buf.append(QByteArray(64, '\0'));
    const char* start = buf.constData();

    MetafileBuilder m(true);
    Bytes h(start, length);
    const uint32_t headerSize = h.u32(4);
    if (headerSize < 88 || headerSize > length)
        return nullptr;
    // The frame is in hundredths of a millimetre; the reference device says
    // how many of its pixels make a millimetre.
    const QRectF frameMm =
        QRectF(QPointF(h.x32(24), h.x32(28)) / 100.0, QPointF(h.x32(32), h.x32(36)) / 100.0)
            .normalized();
    const int32_t devX = h.i32(72), devY = h.i32(76), mmX = h.i32(80), mmY = h.i32(84);
    qreal pxX = 96 / 25.4, pxY = 96 / 25.4;
    if (devX > 0 && devY > 0 && mmX > 0 && mmY > 0) {
        pxX = qreal(devX) / mmX;
        pxY = qreal(devY) / mmY;
    }
    m.pxPerMm = pxX;
    QRectF frame(frameMm.left() * pxX, frameMm.top() * pxY, frameMm.width() * pxX,
                 frameMm.height() * pxY);
    QSizeF mm = frameMm.size();
    if (frame.isEmpty()) {
        const QRectF bounds =
            QRectF(QPointF(h.x32(8), h.x32(12)), QPointF(h.x32(16) + 1, h.x32(20) + 1));
        frame = bounds.normalized();
        mm = QSizeF();
    }

    size_t off = 0;
    bool eof = false;
    bool first = true;
    while (!eof && !m.full && !m.broken) {
        if (off == length)
            break;
        if (length - off < 8) {
            m.broken = true;
            break;
        }
        Bytes r(start + off, length - off);
        const uint32_t type = r.u32(0);
        const uint32_t size = r.u32(4);
        const char* rec = start + off;
        // Kinds past those the library checks are never drawn here, and are
        // passed over unread: the check would only complain of them.
        const bool conocido = type >= U_EMR_MIN && type <= 104;
        if (size < 8 || size % 4 != 0 || size > length - off ||
            (conocido && !U_emf_record_safe(rec))) {
            // Inconsistent with its own size or the file's: nothing after it
            // can be trusted, nor the picture as a whole.
            m.broken = true;
            break;
        }
        r = Bytes(rec, size);
        if (first && type != U_EMR_HEADER)
            return nullptr;
        first = false;
        const auto need = [&](size_t n) { return size >= n; };
        const auto pointl = [&](size_t at) { return QPointF(r.x32(at), r.x32(at + 4)); };

        switch (type) {
        case U_EMR_EOF:
            eof = true;
            break;
        case U_EMR_SETMAPMODE:
            if (need(12))
                m.dc.mapMode = static_cast<int>(r.u32(8));
            break;
        case U_EMR_SETWINDOWEXTEX:
            if (need(16))
                m.dc.winExt = pointl(8), m.dc.winSet = true;
            break;
        case U_EMR_SETWINDOWORGEX:
            if (need(16))
                m.dc.winOrg = pointl(8);
            break;
        case U_EMR_SETVIEWPORTEXTEX:
            if (need(16))
                m.dc.vpExt = pointl(8);
            break;
        case U_EMR_SETVIEWPORTORGEX:
            if (need(16))
                m.dc.vpOrg = pointl(8);
            break;
        case U_EMR_SETBKMODE:
            if (need(12))
                m.dc.bkMode = static_cast<int>(r.u32(8));
            break;
        case U_EMR_SETPOLYFILLMODE:
            if (need(12))
                m.dc.polyFill = static_cast<int>(r.u32(8));
            break;
        case U_EMR_SETTEXTALIGN:
            if (need(12))
                m.dc.textAlign = r.u32(8);
            break;
        case U_EMR_SETTEXTCOLOR:
            if (need(12))
                m.dc.textColor = colorRef(r.u32(8));
            break;
        case U_EMR_SETBKCOLOR:
            if (need(12))
                m.dc.bkColor = colorRef(r.u32(8));
            break;
        case U_EMR_MOVETOEX:
            if (need(16))
                m.moveTo(r.x32(8), r.x32(12));
            break;
        case U_EMR_LINETO:
            if (need(16))
                m.lineTo(r.x32(8), r.x32(12));
            break;
        case U_EMR_SAVEDC:
            m.save();
            break;
        case U_EMR_RESTOREDC:
            if (need(12))
                m.restore(r.i32(8));
            break;
        case U_EMR_SETWORLDTRANSFORM:
        case U_EMR_MODIFYWORLDTRANSFORM:
            if (need(32)) {
                const qreal v[6] = {r.f32(8),  r.f32(12), r.f32(16),
                                    r.f32(20), r.f32(24), r.f32(28)};
                if (!std::all_of(std::begin(v), std::end(v), esFinito))
                    break;
                const QTransform x(v[0], v[1], v[2], v[3], v[4], v[5]);
                QTransform nueva = m.dc.world;
                if (type == U_EMR_SETWORLDTRANSFORM) {
                    nueva = x;
                } else if (need(36)) {
                    switch (r.u32(32)) {
                    case U_MWT_IDENTITY:
                        nueva = QTransform();
                        break;
                    case U_MWT_LEFTMULTIPLY:
                        nueva = x * m.dc.world;
                        break;
                    case U_MWT_RIGHTMULTIPLY:
                        nueva = m.dc.world * x;
                        break;
                    case 4:
                        nueva = x;
                        break; // MWT_SET
                    default:
                        break;
                    }
                }
                // Products of sane factors can still grow past any sane
                // size: such a record is skipped.
                if (esFinita(nueva))
                    m.dc.world = nueva;
            }
            break;
        case U_EMR_SELECTOBJECT:
            if (need(12)) {
                const uint32_t ih = r.u32(8);
                if (ih & 0x80000000u)
                    m.selectStock(ih & 0x7FFFFFFFu);
                else
                    m.select(ih);
            }
            break;
        case U_EMR_DELETEOBJECT:
            if (need(12))
                m.deleteObject(r.u32(8));
            break;
        case U_EMR_CREATEPEN:
            if (need(28)) {
                MetafileBuilder::Object o;
                o.kind = MetafileBuilder::Object::Kind::Pen;
                o.pen.style = r.u32(12);
                o.pen.width = r.i32(16);
                o.pen.color = colorRef(r.u32(24));
                m.setObject(r.u32(8), o);
            }
            break;
        case U_EMR_EXTCREATEPEN:
            if (need(52)) {
                MetafileBuilder::Object o;
                o.kind = MetafileBuilder::Object::Kind::Pen;
                const uint32_t style = r.u32(28);
                o.pen.style = style;
                o.pen.width = (style & U_PS_GEOMETRIC) ? r.u32(32) : 0;
                if (r.u32(36) == U_BS_NULL)
                    o.pen.style = U_PS_NULL;
                o.pen.color = colorRef(r.u32(40));
                m.setObject(r.u32(8), o);
            }
            break;
        case U_EMR_CREATEBRUSHINDIRECT:
            if (need(24)) {
                MetafileBuilder::Object o;
                o.kind = MetafileBuilder::Object::Kind::Brush;
                o.brush.style = r.u32(12);
                o.brush.color = colorRef(r.u32(16));
                o.brush.hatch = r.u32(20);
                m.setObject(r.u32(8), o);
            }
            break;
        case U_EMR_CREATEMONOBRUSH:
        case U_EMR_CREATEDIBPATTERNBRUSHPT:
            if (need(12)) {
                MetafileBuilder::Object o;
                o.kind = MetafileBuilder::Object::Kind::Brush;
                o.brush.style = U_BS_PATTERN;
                m.setObject(r.u32(8), o);
            }
            break;
        case U_EMR_CREATEPALETTE:
            if (need(12)) {
                MetafileBuilder::Object o;
                o.kind = MetafileBuilder::Object::Kind::Other;
                m.setObject(r.u32(8), o);
            }
            break;
        case U_EMR_EXTCREATEFONTINDIRECTW:
            if (need(12 + 92)) {
                // LOGFONTW: five longs, eight bytes, 32 UTF-16 characters of name.
                const size_t f = 12;
                QString face;
                for (size_t i = 0; i < 32; ++i) {
                    const char16_t c = r.u16(f + 28 + i * 2);
                    if (c == 0)
                        break;
                    face.append(QChar(c));
                }
                MetafileBuilder::Object o;
                o.kind = MetafileBuilder::Object::Kind::Font;
                const auto clamp16 = [](int32_t v) {
                    return static_cast<int16_t>(std::clamp<int32_t>(v, INT16_MIN, INT16_MAX));
                };
                o.font = MetafileBuilder::fontFrom(
                    0, 0, clamp16(r.i32(f + 8)), clamp16(r.i32(f + 16)),
                    static_cast<uint8_t>(rec[f + 20]), static_cast<uint8_t>(rec[f + 21]),
                    static_cast<uint8_t>(rec[f + 22]), static_cast<uint8_t>(rec[f + 23]), face);
                // Heights in an enhanced file are longs, and may pass 16 bits.
                o.font.height = r.i32(f);
                o.font.width = r.i32(f + 4);
                m.setObject(r.u32(8), o);
            }
            break;
        case U_EMR_RECTANGLE:
        case U_EMR_ELLIPSE:
            if (need(24)) {
                const QPointF a = pointl(8), b = pointl(16);
                type == U_EMR_RECTANGLE ? m.rect(a.x(), a.y(), b.x(), b.y())
                                        : m.ellipse(a.x(), a.y(), b.x(), b.y());
            }
            break;
        case U_EMR_ROUNDRECT:
            if (need(32)) {
                const QPointF a = pointl(8), b = pointl(16), c = pointl(24);
                m.rect(a.x(), a.y(), b.x(), b.y(), c.x(), c.y());
            }
            break;
        case U_EMR_POLYGON:
        case U_EMR_POLYLINE:
        case U_EMR_POLYLINETO:
        case U_EMR_POLYBEZIER:
        case U_EMR_POLYBEZIERTO:
        case U_EMR_POLYGON16:
        case U_EMR_POLYLINE16:
        case U_EMR_POLYLINETO16:
        case U_EMR_POLYBEZIER16:
        case U_EMR_POLYBEZIERTO16:
            if (need(28)) {
                const bool small = type >= U_EMR_POLYBEZIER16;
                const size_t n = r.u32(24);
                const size_t step = small ? 4 : 8;
                if (n > (size - 28) / step) {
                    m.broken = true;
                    break;
                }
                const auto at = [&](size_t i) {
                    return small ? QPointF(r.i16(28 + i * 4), r.i16(30 + i * 4))
                                 : QPointF(r.x32(28 + i * 8), r.x32(32 + i * 8));
                };
                const bool to = type == U_EMR_POLYLINETO || type == U_EMR_POLYLINETO16 ||
                                type == U_EMR_POLYBEZIERTO || type == U_EMR_POLYBEZIERTO16;
                const bool bezier = type == U_EMR_POLYBEZIER || type == U_EMR_POLYBEZIERTO ||
                                    type == U_EMR_POLYBEZIER16 || type == U_EMR_POLYBEZIERTO16;
                const bool closed = type == U_EMR_POLYGON || type == U_EMR_POLYGON16;
                if (n == 0)
                    break;
                QPainterPath p;
                size_t i = 0;
                if (to) {
                    p.moveTo(m.map(m.dc.cur));
                } else {
                    p.moveTo(m.map(at(0)));
                    i = 1;
                }
                if (bezier) {
                    for (; i + 2 < n; i += 3)
                        p.cubicTo(m.map(at(i)), m.map(at(i + 1)), m.map(at(i + 2)));
                } else {
                    for (; i < n; ++i)
                        p.lineTo(m.map(at(i)));
                }
                if (closed)
                    p.closeSubpath();
                if (to)
                    m.dc.cur = at(n - 1);
                if (m.inPath) {
                    // Inside a path bracket the figure continues the path.
                    if (to && m.path.elementCount() > 0) {
                        for (int e = 1; e < p.elementCount(); ++e) {
                            const auto el = p.elementAt(e);
                            if (el.type == QPainterPath::CurveToElement &&
                                e + 2 < p.elementCount()) {
                                m.path.cubicTo(el, p.elementAt(e + 1), p.elementAt(e + 2));
                                e += 2;
                            } else {
                                m.path.lineTo(el);
                            }
                        }
                    } else {
                        m.path.addPath(p);
                    }
                } else {
                    m.emitPath(p, true, closed);
                }
            }
            break;
        case U_EMR_POLYPOLYLINE:
        case U_EMR_POLYPOLYGON:
        case U_EMR_POLYPOLYLINE16:
        case U_EMR_POLYPOLYGON16:
            if (need(32)) {
                const bool small = type == U_EMR_POLYPOLYLINE16 || type == U_EMR_POLYPOLYGON16;
                const bool closed = type == U_EMR_POLYPOLYGON || type == U_EMR_POLYPOLYGON16;
                const size_t polys = r.u32(24);
                const size_t total = r.u32(28);
                const size_t step = small ? 4 : 8;
                if (polys > (size - 32) / 4 || total > (size - 32 - polys * 4) / step) {
                    m.broken = true;
                    break;
                }
                size_t counted = 0;
                for (size_t i = 0; i < polys; ++i)
                    counted += r.u32(32 + i * 4);
                if (counted != total) {
                    m.broken = true;
                    break;
                }
                size_t at = 32 + polys * 4;
                QPainterPath p;
                for (size_t i = 0; i < polys; ++i) {
                    const size_t n = r.u32(32 + i * 4);
                    for (size_t k = 0; k < n; ++k, at += step) {
                        const QPointF q = m.map(small ? QPointF(r.i16(at), r.i16(at + 2))
                                                      : QPointF(r.x32(at), r.x32(at + 4)));
                        k == 0 ? p.moveTo(q) : p.lineTo(q);
                    }
                    if (n && closed)
                        p.closeSubpath();
                }
                m.emitPath(p, true, closed);
            }
            break;
        case U_EMR_BEGINPATH:
            m.inPath = true;
            m.path = QPainterPath();
            break;
        case U_EMR_ENDPATH:
            m.inPath = false;
            break;
        case U_EMR_ABORTPATH:
            m.inPath = false;
            m.path = QPainterPath();
            break;
        case U_EMR_CLOSEFIGURE:
            if (m.inPath)
                m.path.closeSubpath();
            break;
        case U_EMR_FILLPATH:
        case U_EMR_STROKEPATH:
        case U_EMR_STROKEANDFILLPATH: {
            m.inPath = false;
            const QPainterPath p = m.path;
            m.path = QPainterPath();
            m.emitPath(p, type != U_EMR_FILLPATH, type != U_EMR_STROKEPATH);
            break;
        }
        case U_EMR_EXTTEXTOUTA:
        case U_EMR_EXTTEXTOUTW:
            if (need(76)) {
                // bounds, graphics mode, scales, then the text block.
                const size_t t = 36;
                const QPointF ref = pointl(t);
                const size_t n = r.u32(t + 8);
                const size_t offString = r.u32(t + 12);
                const uint32_t options = r.u32(t + 16);
                size_t at = t + 20;
                if (!(options & U_ETO_NO_RECT))
                    at += 16;
                const size_t offDx = r.u32(at);
                const bool wide = type == U_EMR_EXTTEXTOUTW;
                if (n > size || !r.has(offString, n * (wide ? 2 : 1))) {
                    m.broken = true;
                    break;
                }
                QString s;
                if (wide) {
                    for (size_t i = 0; i < n; ++i)
                        s.append(QChar(char16_t(r.u16(offString + i * 2))));
                } else {
                    s = decode8(rec + offString, n, m.dc.font.charset);
                }
                std::vector<qreal> dx;
                if (offDx != 0 && r.has(offDx, n * 4) && static_cast<size_t>(s.size()) == n)
                    for (size_t i = 0; i < n; ++i)
                        dx.push_back(r.x32(offDx + i * 4));
                m.text(s, ref.x(), ref.y(), dx);
            }
            break;
        case U_EMR_BITBLT:
        case U_EMR_STRETCHBLT:
        case U_EMR_STRETCHDIBITS: {
            QPointF dst, cdst, src, csrc;
            size_t offBmi = 0, cbBmi = 0, offBits = 0, cbBits = 0;
            if (type == U_EMR_STRETCHDIBITS) {
                if (!need(80))
                    break;
                dst = pointl(24), src = pointl(32), csrc = pointl(40);
                offBmi = r.u32(48), cbBmi = r.u32(52), offBits = r.u32(56), cbBits = r.u32(60);
                cdst = pointl(72);
            } else {
                if (!need(100))
                    break;
                dst = pointl(24), cdst = pointl(32), src = pointl(44);
                offBmi = r.u32(84), cbBmi = r.u32(88), offBits = r.u32(92), cbBits = r.u32(96);
                csrc = type == U_EMR_STRETCHBLT && need(108) ? pointl(100) : cdst;
            }
            if (cbBmi == 0 || !r.has(offBmi, cbBmi) || !r.has(offBits, cbBits) ||
                offBits < offBmi + cbBmi) {
                m.broken = true;
                break;
            }
            // The bitmap's header and colours, then its pixels, as one packed bitmap.
            QByteArray dib(rec + offBmi, static_cast<qsizetype>(cbBmi));
            dib.append(rec + offBits, static_cast<qsizetype>(cbBits));
            const QImage img = dibToImage(dib.constData(), static_cast<size_t>(dib.size()));
            if (img.isNull())
                m.broken = true;
            else {
                QRectF s = QRectF(src, QSizeF(csrc.x(), csrc.y())).normalized();
                if (type == U_EMR_STRETCHDIBITS)
                    s.moveTop(img.height() - s.bottom()); // counted from the bottom row
                m.image(img, QRectF(dst, QSizeF(cdst.x(), cdst.y())), s);
            }
            break;
        }
        default:
            break;
        }
        off += size;
    }
    return m.finish(frame, mm);
}
