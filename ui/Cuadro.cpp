#include "Cuadro.h"

#include "EditorEtiqueta.h"
#include "Picture.h"

#include <QGuiApplication>
#include <algorithm>
#include <QMouseEvent>
#include <QPainter>

using namespace Escala;

namespace {

QColor colorDe(uint32_t rgb) { return QColor::fromRgb(rgb); }

BotonRaton botonDe(Qt::MouseButton b)
{
    if (b == Qt::LeftButton)
        return BotonRaton::Izquierdo;
    if (b == Qt::RightButton)
        return BotonRaton::Derecho;
    return BotonRaton::Otro;
}

QRectF rectUnidades(double left, double top, double width, double height)
{
    return QRectF(left * kPxPorUnidadHor, top * kPxPorUnidadVer, width * kPxPorUnidadHor,
                  height * kPxPorUnidadVer);
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

QPointF Cuadro::puntoDe(double hor, double ver)
{
    return QPointF(hor * kPxPorUnidadHor, ver * kPxPorUnidadVer);
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
    // box: a long word of a language must not be cut.
    const QString& caption = m_editor.superficie.Imagen(n).caption;
    const double ancho = rectTexto(n).width();
    QFont f = font();
    for (int tamano = 11; tamano >= 7; --tamano) {
        f.setPixelSize(tamano);
        if (QFontMetricsF(f).horizontalAdvance(caption) <= ancho)
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
    setFixedSize(qRound(s.anchoExterior * kPxPorMm), qRound(s.altoExterior * kPxPorMm));
}

QPointF Cuadro::twipsEnCaja(int n, const QPointF& pos) const
{
    // Pixels from the box's corner, as window mm, as twips: what the box
    // reports to the editor.
    const QPointF d = pos - rectCaja(n).topLeft();
    return QPointF(d.x() / kPxPorMm * kTwipsPorMm, d.y() / kPxPorMm * kTwipsPorMm);
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
    if (m_arrastrando)
        QGuiApplication::changeOverrideCursor(QCursor(forma));
    else
        setCursor(forma);
}

void Cuadro::paintEvent(QPaintEvent*)
{
    const Superficie& s = m_editor.superficie;
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    // The picture stands at its own size from the surface's top left; it is
    // a help for the eye, under everything else.
    if (!m_fondo.isNull())
        m_fondo.drawAtOwnSize(p, QPointF(0, 0), kPxPorMm);

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

    if (m_arrastrando) {
        // The outline of the dragged box follows the pointer, held where it
        // was gripped.
        const Caja& a = s.Imagen(m_editor.CampoActivo);
        p.setPen(QPen(Qt::black, 1, Qt::DashLine));
        p.setBrush(Qt::NoBrush);
        p.drawRect(rectUnidades(m_punteroUnidades.x() - m_editor.AgarreHor,
                                m_punteroUnidades.y() - m_editor.AgarreVer, a.width(), a.height()));
    }
}

void Cuadro::mousePressEvent(QMouseEvent* e)
{
    const QPointF pos = e->position();
    const BotonRaton boton = botonDe(e->button());
    const int n = cajaEn(pos);
    if (n >= 0) {
        const QPointF t = twipsEnCaja(n, pos);
        m_editor.pulsarCampo(n, boton, t.x(), t.y());
        if (boton == BotonRaton::Izquierdo && m_editor.arrastrando) {
            m_arrastrando = true;
            m_destino = Destino::Fuera;
            QGuiApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
            // The drag begins over the pressed box itself.
            arrastrarA(pos);
        }
    } else {
        m_editor.pulsarCuadro(boton, pos.x() / kPxPorUnidadHor, pos.y() / kPxPorUnidadVer);
    }
    avisar();
}

void Cuadro::arrastrarA(const QPointF& pos)
{
    const double x = pos.x() / kPxPorUnidadHor;
    const double y = pos.y() / kPxPorUnidadVer;
    int k = -1;
    Destino d = Destino::Fuera;
    if (QRectF(rect()).contains(pos)) {
        k = cajaEn(pos);
        d = k >= 0 ? Destino::Caja : Destino::Superficie;
    }
    // The bare surface hears the pointer come in (0), move (2) and go out (1).
    if (m_destino == Destino::Superficie && d != Destino::Superficie)
        m_editor.arrastrarSobreCuadro(1, x, y);
    if (d == Destino::Superficie) {
        m_editor.arrastrarSobreCuadro(m_destino == Destino::Superficie ? 2 : 0, x, y);
    } else if (d == Destino::Caja) {
        const QPointF t = twipsEnCaja(k, pos);
        m_editor.arrastrarSobreCampo(k, t.x(), t.y());
    }
    m_destino = d;
    m_punteroUnidades = QPointF(x, y);
    aplicarPuntero();
    update();
    avisar();
}

void Cuadro::mouseMoveEvent(QMouseEvent* e)
{
    if (m_arrastrando) {
        arrastrarA(e->position());
        return;
    }
    if (cajaEn(e->position()) >= 0) {
        m_editor.moverSobreCampo();
        aplicarPuntero();
    }
}

void Cuadro::terminarArrastre(const QPointF& pos, const QPoint& global)
{
    // The pointer reached the release point before being let go.
    arrastrarA(pos);
    const Destino d = m_destino;
    m_arrastrando = false;
    m_destino = Destino::Fuera;
    QGuiApplication::restoreOverrideCursor();
    if (d == Destino::Caja) {
        const int k = cajaEn(pos);
        const QPointF t = twipsEnCaja(k, pos);
        m_editor.soltarEnCampo(k, t.x(), t.y());
    } else if (d == Destino::Superficie) {
        m_editor.soltarEnCuadro(pos.x() / kPxPorUnidadHor, pos.y() / kPxPorUnidadVer);
    } else if (sobreCajaTexto && sobreCajaTexto(global)) {
        m_editor.soltarEnCajaTexto();
    } else {
        // Let go where nothing takes a drop: the drag is over, nothing moves.
        m_editor.arrastrando = false;
        update();
    }
    aplicarPuntero();
    avisar();
}

void Cuadro::mouseReleaseEvent(QMouseEvent* e)
{
    if (m_arrastrando && e->button() == Qt::LeftButton)
        terminarArrastre(e->position(), e->globalPosition().toPoint());
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

Regla::Regla(Qt::Orientation orientacion, QWidget* parent)
    : QWidget(parent), m_orientacion(orientacion)
{
    setObjectName(orientacion == Qt::Horizontal ? QStringLiteral("Image1") : QStringLiteral("Image2"));
}

QFont Regla::fuente() const
{
    QFont f = font();
    f.setPixelSize(9);
    return f;
}

QRectF Regla::rectNumero(int i) const
{
    // Beside its tick; a number at the end of a ruler stands before its
    // tick, inside the ruler.
    const bool horizontal = m_orientacion == Qt::Horizontal;
    const double pos = i * (horizontal ? kPxPorUnidadHor : kPxPorUnidadVer);
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
    const double paso = horizontal ? kPxPorUnidadHor : kPxPorUnidadVer;
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
            p.drawText(rectNumero(i), Qt::AlignLeft | (horizontal ? Qt::AlignVCenter : Qt::AlignTop),
                       QString::number(i));
    }
}
