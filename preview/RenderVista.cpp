#include "RenderVista.h"

#include "FileSystem.h"
#include "Fuentes.h"
#include "RuntimeError.h"
#include "VistaPrevia.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#ifdef KORVO_SVG
#include <QSvgGenerator>
#endif
#include <stdexcept>

namespace {

constexpr qreal kPngPxPorMm = 300 / 25.4;
constexpr qreal kPdfDpi = 1200;

// The fixed text shows in the window's own font, 8 points.
void dibujaTexto(QPainter& p, const TextoVista& t)
{
    if (!t.Visible || t.texto.isEmpty())
        return;
    constexpr qreal kBase = 100;
    const qreal em = 8 * 25.4 / 72; // 8 points in millimetres
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(static_cast<int>(kBase));
    font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF fm(font);
    p.save();
    p.setClipRect(QRectF(t.Left, t.Top, 57 - t.Left, t.Height), Qt::IntersectClip);
    p.translate(t.Left, t.Top);
    p.scale(em / kBase, em / kBase);
    p.setFont(font);
    p.setPen(Qt::black);
    p.drawText(QPointF(0, fm.ascent()), t.texto);
    p.restore();
}

#ifdef KORVO_SVG
QByteArray svg(const EscenaVista& e)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator gen;
    gen.setOutputDevice(&buffer);
    // Sized in millimetres: 10 units of the generator to a millimetre at 254
    // dots an inch, with a view box that counts in millimetres.
    gen.setResolution(254);
    gen.setSize(QSize(qRound(e.anchoMarco * 10), qRound(e.altoMarco * 10)));
    gen.setViewBox(QRectF(0, 0, e.anchoMarco, e.altoMarco));
    gen.setTitle(QStringLiteral("Korvo"));
    QPainter p(&gen);
    dibujarVistaPrevia(p, e, 1);
    p.end();
    return buffer.data();
}
#endif

QByteArray pdf(const EscenaVista& e)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setCreator(QStringLiteral("Korvo"));
        writer.setResolution(static_cast<int>(kPdfDpi));
        writer.setPageLayout(
            QPageLayout(QPageSize(QSizeF(e.anchoMarco, e.altoMarco), QPageSize::Millimeter),
                        QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
        QPainter p(&writer);
        dibujarVistaPrevia(p, e, kPdfDpi / 25.4);
        p.end();
    }
    return buffer.data();
}

} // namespace

void dibujarVistaPrevia(QPainter& painter, const EscenaVista& e, qreal unidadesPorMm)
{
    asegurarFuentes();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.scale(unidadesPorMm, unidadesPorMm);
    const QRectF marco(0, 0, e.anchoMarco, e.altoMarco);
    painter.fillRect(marco, Qt::white);
    painter.setClipRect(marco, Qt::IntersectClip);
    if (e.fondo)
        e.fondo->drawAtOwnSize(painter, QPointF(0, 0), 1);
    for (int i = 0; i <= 36; ++i) {
        const ItemVista& item = e.ImagenVista(i);
        if (item.Visible && item.imagen)
            item.imagen->draw(painter, QRectF(item.Left, item.Top, item.Width, item.Height));
    }
    dibujaTexto(painter, e.lbTXF(1));
    dibujaTexto(painter, e.lbTXF(2));
    painter.restore();
}

QImage imagenVistaPrevia(const EscenaVista& e, qreal pxPorMm)
{
    QImage image(QSize(qRound(e.anchoMarco * pxPorMm), qRound(e.altoMarco * pxPorMm)),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(qRound(pxPorMm * 1000));
    image.setDotsPerMeterY(qRound(pxPorMm * 1000));
    QPainter p(&image);
    dibujarVistaPrevia(p, e, pxPorMm);
    return image;
}

std::optional<FormatoVista> formatoVista(const QString& path)
{
    const QString p = path.toLower();
    if (p.endsWith(QLatin1String(".png")))
        return FormatoVista::Png;
#ifdef KORVO_SVG
    if (p.endsWith(QLatin1String(".svg")))
        return FormatoVista::Svg;
#endif
    if (p.endsWith(QLatin1String(".pdf")))
        return FormatoVista::Pdf;
    return std::nullopt;
}

void exportarVistaPrevia(const ModBase& mb, const QString& path)
{
    const std::optional<FormatoVista> formato = formatoVista(path);
    if (!formato)
        throw std::invalid_argument(kFormatosVista);
    const EscenaVista e = cargaVistaPrevia(mb);
    QByteArray bytes;
    switch (*formato) {
    case FormatoVista::Png: {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        imagenVistaPrevia(e, kPngPxPorMm).save(&buffer, "PNG");
        break;
    }
    case FormatoVista::Svg:
#ifdef KORVO_SVG
        bytes = svg(e);
#endif
        break;
    case FormatoVista::Pdf:
        bytes = pdf(e);
        break;
    }
    fs::writeAll(path, bytes);
}
