#include "Iconos.h"

#include <functional>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {

// Every picture is drawn on a 24 x 24 grid; the pixmaps are made at four
// scales so that the usual high-density scales get their own.
using Dibujo = std::function<void(QPainter&)>;

QIcon icono(const Dibujo& dibujo)
{
    QIcon icon;
    for (const qreal escala : {1.0, 1.25, 1.5, 2.0}) {
        QPixmap pm(QSize(24, 24) * escala);
        pm.setDevicePixelRatio(escala);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        dibujo(p);
        p.end();
        icon.addPixmap(pm);
    }
    return icon;
}

const QColor kTinta(40, 40, 40);

QPen lapiz(const QColor& c = kTinta, qreal ancho = 1.2)
{
    return QPen(c, ancho, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

// A sheet with its corner turned down.
void hoja(QPainter& p, const QRectF& r, const QColor& relleno)
{
    QPainterPath path;
    path.moveTo(r.left(), r.top());
    path.lineTo(r.right() - 5, r.top());
    path.lineTo(r.right(), r.top() + 5);
    path.lineTo(r.right(), r.bottom());
    path.lineTo(r.left(), r.bottom());
    path.closeSubpath();
    p.setPen(lapiz());
    p.setBrush(relleno);
    p.drawPath(path);
    p.drawPolyline(QPolygonF({QPointF(r.right() - 5, r.top()), QPointF(r.right() - 5, r.top() + 5),
                              QPointF(r.right(), r.top() + 5)}));
}

void flecha(QPainter& p, QPointF desde, QPointF hasta, const QColor& c)
{
    p.setPen(lapiz(c, 2.0));
    p.drawLine(desde, hasta);
    const QLineF l(hasta, desde);
    QLineF a = l;
    a.setLength(4.5);
    a.setAngle(l.angle() + 35);
    QLineF b = l;
    b.setLength(4.5);
    b.setAngle(l.angle() - 35);
    p.drawLine(a);
    p.drawLine(b);
}

// Three lines of text, set against one edge or centred: 0 left, 1 centre, 2 right.
void justificado(QPainter& p, int modo)
{
    const qreal largos[] = {16, 10, 13, 8};
    p.setPen(lapiz(kTinta, 2.0));
    for (int i = 0; i < 4; ++i) {
        const qreal y = 5 + i * 4.7;
        const qreal l = largos[i];
        const qreal x = modo == 0 ? 4 : modo == 1 ? 12 - l / 2 : 20 - l;
        p.drawLine(QPointF(x, y), QPointF(x + l, y));
    }
    p.setPen(lapiz(QColor(200, 40, 40), 1.0));
    const qreal borde = modo == 0 ? 2.5 : modo == 1 ? 12 : 21.5;
    p.drawLine(QPointF(borde, 2), QPointF(borde, 22));
}

// Boxes of the surface pushed against a bar: to the left or to the top.
void ajuste(QPainter& p, bool izquierda)
{
    p.save();
    if (!izquierda) {
        // The same picture turned a quarter: the bar on top.
        p.translate(24, 0);
        p.rotate(90);
    }
    p.setPen(lapiz(QColor(200, 40, 40), 2.0));
    p.drawLine(QPointF(3, 3), QPointF(3, 21));
    p.setPen(lapiz());
    p.setBrush(QColor(192, 192, 255));
    p.drawRect(QRectF(5, 4, 12, 5));
    p.setBrush(QColor(192, 255, 192));
    p.drawRect(QRectF(5, 15, 8, 5));
    flecha(p, QPointF(21, 12), QPointF(8, 12), QColor(40, 90, 200));
    p.restore();
}

// A label of 57 mm across and 45 or 60 down, with its size written on it.
void etiqueta(QPainter& p, const char* ancho)
{
    const qreal alto = QByteArray(ancho) == "60" ? 20 : 15;
    const QRectF r(2, 12 - alto / 2, 20, alto);
    p.setPen(lapiz());
    p.setBrush(Qt::white);
    p.drawRoundedRect(r, 2, 2);
    p.setBrush(QColor(192, 192, 255));
    p.setPen(Qt::NoPen);
    p.drawRect(QRectF(4, r.top() + 2, 16, 2.5));
    QFont f;
    f.setPixelSize(9);
    f.setBold(true);
    p.setFont(f);
    p.setPen(kTinta);
    p.drawText(r.adjusted(0, 3, 0, 0), Qt::AlignCenter, QString::fromLatin1(ancho));
}

const std::pair<const char*, Dibujo> kDibujos[] = {
    {"Nueva", [](QPainter& p) { hoja(p, QRectF(5, 2, 14, 20), Qt::white); }},
    {"Abrir",
     [](QPainter& p) {
         // An open folder.
         p.setPen(lapiz());
         p.setBrush(QColor(230, 190, 80));
         p.drawPolygon(QPolygonF({QPointF(2, 6), QPointF(8, 6), QPointF(10, 8), QPointF(19, 8),
                                  QPointF(19, 20), QPointF(2, 20)}));
         p.setBrush(QColor(250, 215, 110));
         p.drawPolygon(
             QPolygonF({QPointF(2, 20), QPointF(6, 11), QPointF(23, 11), QPointF(19, 20)}));
     }},
    {"Guardar",
     [](QPainter& p) {
         // A diskette: shutter at the top, label below.
         p.setPen(lapiz());
         p.setBrush(QColor(60, 90, 160));
         p.drawPolygon(QPolygonF(
             {QPointF(3, 3), QPointF(19, 3), QPointF(21, 5), QPointF(21, 21), QPointF(3, 21)}));
         p.setBrush(QColor(200, 200, 210));
         p.drawRect(QRectF(7, 3, 9, 6));
         p.setBrush(Qt::white);
         p.drawRect(QRectF(6, 13, 12, 8));
     }},
    {"Enviar",
     [](QPainter& p) {
         // The label goes to the scale: a sheet, an arrow, a scale.
         hoja(p, QRectF(1, 3, 9, 12), Qt::white);
         p.setPen(lapiz());
         p.setBrush(QColor(200, 200, 200));
         p.drawRect(QRectF(13, 17, 10, 4));            // body
         p.drawLine(QPointF(18, 17), QPointF(18, 14)); // column
         p.drawRect(QRectF(13, 12, 10, 2));            // platter
         p.setBrush(QColor(120, 220, 120));
         p.drawRect(QRectF(15, 18, 6, 2)); // display
         flecha(p, QPointF(6, 19), QPointF(12, 19), QColor(40, 90, 200));
     }},
    {"Salir",
     [](QPainter& p) {
         // A door left open and the way out.
         p.setPen(lapiz());
         p.setBrush(QColor(170, 120, 70));
         p.drawRect(QRectF(3, 3, 10, 18));
         p.setBrush(QColor(210, 160, 100));
         p.drawPolygon(QPolygonF({QPointF(3, 3), QPointF(9, 5), QPointF(9, 23), QPointF(3, 21)}));
         flecha(p, QPointF(12, 12), QPointF(22, 12), QColor(200, 40, 40));
     }},
    {"AjusteIzda", [](QPainter& p) { ajuste(p, true); }},
    {"AjusteArriba", [](QPainter& p) { ajuste(p, false); }},
    {"JustIzda", [](QPainter& p) { justificado(p, 0); }},
    {"JustCentr", [](QPainter& p) { justificado(p, 1); }},
    {"JustDcha", [](QPainter& p) { justificado(p, 2); }},
    {"Eti45", [](QPainter& p) { etiqueta(p, "45"); }},
    {"Eti60", [](QPainter& p) { etiqueta(p, "60"); }},
    {"Convertir",
     [](QPainter& p) {
         // A packing label and a total label, each turning into the other.
         QFont f;
         f.setPixelSize(8);
         f.setBold(true);
         p.setFont(f);
         p.setPen(lapiz());
         p.setBrush(QColor(192, 255, 192));
         p.drawRect(QRectF(1, 2, 10, 9));
         p.setBrush(QColor(255, 192, 255));
         p.drawRect(QRectF(13, 13, 10, 9));
         p.drawText(QRectF(1, 2, 10, 9), Qt::AlignCenter, QStringLiteral("V"));
         p.drawText(QRectF(13, 13, 10, 9), Qt::AlignCenter, QStringLiteral("T"));
         p.setBrush(Qt::NoBrush);
         flecha(p, QPointF(14, 6), QPointF(20, 10), QColor(40, 90, 200));
         flecha(p, QPointF(10, 18), QPointF(4, 14), QColor(40, 90, 200));
     }},
};

} // namespace

QIcon iconoToolbar(const QString& clave)
{
    for (const auto& [nombre, dibujo] : kDibujos)
        if (clave == QLatin1String(nombre))
            return icono(dibujo);
    return {};
}
