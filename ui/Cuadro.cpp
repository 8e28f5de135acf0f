#include "Cuadro.h"

#include "Fuentes.h"

#include "EditorEtiqueta.h"
#include "Picture.h"

#include <algorithm>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

using namespace Escala;

namespace {

QColor colorDe(uint32_t rgb)
{
    return QColor::fromRgb(rgb);
}

BotonRaton botonDe(Qt::MouseButton b)
{
    if (b == Qt::LeftButton)
        return BotonRaton::Izquierdo;
    if (b == Qt::RightButton)
        return BotonRaton::Derecho;
    return BotonRaton::Otro;
}

} // namespace

QRectF Cuadro::rectUnidades(double left, double top, double width, double height) const
{
    const double h = pxPorUnidadHor(), v = pxPorUnidadVer();
    return QRectF(left * h, top * v, width * h, height * v);
}

void Cuadro::setZoom(double factor)
{
    m_zoom = std::clamp(factor, Zoom::kMinimo, Zoom::kMaximo);
    ajustarTamano();
    update();
}

namespace {

// The surface is a drawing, like the preview: its captions and numbers are
// in the face the label's pictures use, the same on every system, so that
// what fits a box on one fits it on all.
QFont fuenteSuperficie()
{
    asegurarFuentes();
    return QFont(QStringLiteral("DejaVu Sans"));
}

} // namespace

Cuadro::Cuadro(EditorEtiqueta& editor, const Picture& fondo, QWidget* parent)
    : QWidget(parent), m_editor(editor), m_fondo(fondo)
{
    setObjectName(QStringLiteral("Cuadro"));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    ajustarTamano();
}

QPointF Cuadro::puntoDe(double hor, double ver) const
{
    return QPointF(hor * pxPorUnidadHor(), ver * pxPorUnidadVer());
}

QPointF Cuadro::unidadesDe(const QPointF& pos) const
{
    return QPointF(Coordenadas::unidadesDePixel(pos.x(), pxPorUnidadHor()),
                   Coordenadas::unidadesDePixel(pos.y(), pxPorUnidadVer()));
}

QRectF Cuadro::rectCaja(int n) const
{
    const Caja& c = m_editor.superficie.Imagen(n);
    return rectUnidades(c.left(), c.top(), c.width(), c.height());
}

QRectF Cuadro::rectTexto(int n) const
{
    return rectCaja(n).adjusted(2, 0, -1, 0);
}

QFont Cuadro::fuenteCaja(int n) const
{
    // The caption in the largest size, down to a small one, that fits its
    // box: a long word of a language must not be cut. The sizes grow with
    // the zoom.
    const QString& caption = m_editor.superficie.Imagen(n).caption;
    const double ancho = rectTexto(n).width();
    const double escala = m_zoom / kZoomInicial;
    QFont f = fuenteSuperficie();
    for (int tamano = qRound(11 * escala); tamano >= std::max(5, qRound(7 * escala)); --tamano) {
        f.setPixelSize(tamano);
        // Measured as it is drawn: where the system rounds each letter to
        // whole pixels (hinted fonts on Windows), the whole-pixel sum.
        const qreal necesita = std::max<qreal>(QFontMetricsF(f).horizontalAdvance(caption),
                                               QFontMetrics(f).horizontalAdvance(caption));
        if (necesita <= ancho)
            break;
    }
    return f;
}

int Cuadro::cajaEn(const QPointF& pos) const
{
    for (int n = 36; n >= 0; --n)
        if (m_editor.superficie.Imagen(n).visible && rectCaja(n).contains(pos))
            return n;
    return -1;
}

void Cuadro::ajustarTamano()
{
    const Superficie& s = m_editor.superficie;
    setFixedSize(qRound(s.anchoExterior * pxPorMm()), qRound(s.altoExterior * pxPorMm()));
}

void Cuadro::avisar()
{
    if (trasRaton)
        trasRaton();
}

void Cuadro::aplicarPuntero()
{
    const Qt::CursorShape forma =
        m_editor.superficie.puntero == Puntero::NoSoltar ? Qt::ForbiddenCursor : Qt::ArrowCursor;
    if (m_editor.arrastrando)
        QGuiApplication::changeOverrideCursor(QCursor(forma));
    else
        setCursor(forma);
}

bool Cuadro::event(QEvent* e)
{
    if (e->type() == QEvent::ToolTip) {
        // A box's tip, where it has one (the free texts).
        const auto* ayuda = static_cast<QHelpEvent*>(e);
        const int n = cajaEn(ayuda->pos());
        const QString tip = n >= 0 ? m_editor.superficie.Imagen(n).toolTip : QString();
        if (tip.isEmpty()) {
            QToolTip::hideText();
            e->ignore();
        } else {
            QToolTip::showText(ayuda->globalPos(), tip, this, rectCaja(n).toRect());
        }
        return true;
    }
    return QWidget::event(e);
}

void Cuadro::paintEvent(QPaintEvent*)
{
    const Superficie& s = m_editor.superficie;
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    // The picture stands at its own size from the surface's top left; it is
    // a help for the eye, under everything else.
    if (!m_fondo.isNull())
        m_fondo.drawAtOwnSize(p, QPointF(0, 0), pxPorMm());

    for (const Banda* b : {&s.Shape2, &s.Shape3})
        if (b->visible)
            p.fillRect(rectUnidades(b->left, b->top, b->width, b->height),
                       colorDe(Superficie::kColorBandas));

    for (int n = 0; n <= 36; ++n) {
        const Caja& c = s.Imagen(n);
        if (!c.visible)
            continue;
        const QRectF r = rectCaja(n);
        const QColor fondoCaja = colorDe(c.color);
        p.fillRect(r, fondoCaja);
        p.setPen(QPen(fondoCaja.darker(140), 0));
        p.drawRect(r.adjusted(0, 0, -1, -1));
        p.setPen(c.rojo ? QColor(255, 0, 0) : QColor(0, 0, 0));
        p.setFont(fuenteCaja(n));
        p.drawText(rectTexto(n), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, c.caption);
    }

    QPen guia(colorDe(Superficie::kColorGuias), 0, Qt::DotLine);
    p.setPen(guia);
    for (const Linea* l : {&s.Line5, &s.Line6, &s.Line7})
        p.drawLine(puntoDe(l->x1, l->y1), puntoDe(l->x2, l->y2));

    if (m_editor.arrastrando) {
        // The outline of the dragged box follows the pointer, held where it
        // was gripped.
        const Caja& a = s.Imagen(m_editor.CampoActivo);
        p.setPen(QPen(Qt::black, 1, Qt::DashLine));
        p.setBrush(Qt::NoBrush);
        p.drawRect(rectUnidades(m_editor.arrastreHor - m_editor.AgarreHor,
                                m_editor.arrastreVer - m_editor.AgarreVer, a.width(), a.height()));
    }
}

void Cuadro::mousePressEvent(QMouseEvent* e)
{
    const QPointF pos = e->position();
    const QPointF u = unidadesDe(pos);
    m_editor.pulsar(cajaEn(pos), botonDe(e->button()), u.x(), u.y());
    if (m_editor.arrastrando) {
        QGuiApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
        aplicarPuntero();
        update();
    }
    avisar();
}

void Cuadro::mouseMoveEvent(QMouseEvent* e)
{
    const QPointF pos = e->position();
    if (m_editor.arrastrando) {
        const QPointF u = unidadesDe(pos);
        m_editor.arrastrarA(QRectF(rect()).contains(pos), cajaEn(pos), u.x(), u.y());
        aplicarPuntero();
        update();
        avisar();
        return;
    }
    if (cajaEn(pos) >= 0) {
        m_editor.moverSobreCampo();
        aplicarPuntero();
    }
}

void Cuadro::mouseReleaseEvent(QMouseEvent* e)
{
    if (!m_editor.arrastrando || e->button() != Qt::LeftButton)
        return;
    const QPointF pos = e->position();
    const QPointF u = unidadesDe(pos);
    const QPoint global = e->globalPosition().toPoint();
    m_editor.soltarEn(QRectF(rect()).contains(pos), cajaEn(pos), u.x(), u.y(),
                      sobreCajaTexto && sobreCajaTexto(global));
    QGuiApplication::restoreOverrideCursor();
    aplicarPuntero();
    update();
    avisar();
}

void Cuadro::mouseDoubleClickEvent(QMouseEvent* e)
{
    if (e->button() != Qt::LeftButton)
        return;
    const int n = cajaEn(e->position());
    if (n >= 0)
        m_editor.dobleClicCampo(n);
    avisar();
}

void Cuadro::wheelEvent(QWheelEvent* e)
{
    if (!(e->modifiers() & Qt::ControlModifier) || !alZoomRueda) {
        e->ignore(); // the scroll area scrolls
        return;
    }
    m_rueda += e->angleDelta().y();
    const int pasos = m_rueda / QWheelEvent::DefaultDeltasPerStep;
    m_rueda -= pasos * QWheelEvent::DefaultDeltasPerStep;
    if (pasos != 0)
        alZoomRueda(pasos, e->position());
    e->accept();
}

Regla::Regla(Qt::Orientation orientacion, QWidget* parent)
    : QWidget(parent), m_orientacion(orientacion),
      m_paso(orientacion == Qt::Horizontal ? kPxPorUnidadHor : kPxPorUnidadVer)
{
    setObjectName(orientacion == Qt::Horizontal ? QStringLiteral("Image1")
                                                : QStringLiteral("Image2"));
}

void Regla::setPaso(double px)
{
    m_paso = px;
    update();
}

QFont Regla::fuente() const
{
    QFont f = fuenteSuperficie();
    f.setPixelSize(9);
    return f;
}

QRectF Regla::rectNumero(int i) const
{
    // Beside its tick; a number at the end of a ruler stands before its
    // tick, inside the ruler.
    const bool horizontal = m_orientacion == Qt::Horizontal;
    const double pos = i * m_paso;
    const QFontMetricsF fm(fuente());
    const double alto = fm.height();
    if (horizontal) {
        const double ancho = fm.horizontalAdvance(QString::number(i)) + 1;
        return QRectF(std::min(pos + 1, width() - ancho), 0, ancho, height() * 0.6);
    }
    return QRectF(0, std::min(pos + 1, height() - alto), width() * 0.75, alto);
}

void Regla::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.fillRect(rect(), QColor(250, 250, 240));
    p.setPen(QColor(60, 60, 60));
    p.setFont(fuente());
    const bool horizontal = m_orientacion == Qt::Horizontal;
    const double paso = m_paso;
    const double largo = horizontal ? width() : height();
    const double grueso = horizontal ? height() : width();
    // Ticks grow from the edge that touches the surface.
    for (int i = 0; i * paso <= largo; ++i) {
        const double pos = i * paso;
        const double t = i % 10 == 0 ? grueso * 0.6 : i % 5 == 0 ? grueso * 0.4 : grueso * 0.2;
        if (horizontal)
            p.drawLine(QPointF(pos, grueso), QPointF(pos, grueso - t));
        else
            p.drawLine(QPointF(grueso, pos), QPointF(grueso - t, pos));
        if (i % 10 == 0 && i > 0)
            p.drawText(rectNumero(i),
                       Qt::AlignLeft | (horizontal ? Qt::AlignVCenter : Qt::AlignTop),
                       QString::number(i));
    }
}
