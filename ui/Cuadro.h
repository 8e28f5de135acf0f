#pragma once

#include <functional>
#include <QPointF>
#include <QRectF>
#include <QWidget>

#include "Superficie.h"
#include "Vista.h"

class EditorEtiqueta;
class Picture;

// How large the window is drawn: logical pixels to one window millimetre.
// The surface keeps its own anisotropic scale on top of it, 2.0 window mm to
// a horizontal unit and 10/9 to a vertical one; at 5 px the 57 units across
// are 570 px, large enough to place a box of 3.33 units by hand. That is
// the surface's zoom until the person chooses another. Logical pixels: a
// high-density screen scales them itself.
namespace Escala {
constexpr double kPxPorMm = 5.0;
constexpr double kPxPorUnidadHor = 2.0 * kPxPorMm;
constexpr double kPxPorUnidadVer = 10.0 / 9.0 * kPxPorMm;
constexpr double kTwipsPorMm = Coordenadas::kTwipsPorMm;
inline int px(double mm)
{
    return qRound(mm * kPxPorMm);
}
constexpr double kZoomInicial = kPxPorUnidadHor / Zoom::kPxPorUnidadHorReal;
} // namespace Escala

// The design surface on screen. It draws the editor's surface model (the
// white label, the background picture, the bands, the boxes `Imagen` in
// their colours, the dotted guide lines) and feeds the mouse to the editor:
// every pointer position goes to the editor as surface units with the box
// under it. It decides nothing itself.
class Cuadro : public QWidget {
    Q_OBJECT
public:
    Cuadro(EditorEtiqueta& editor, const Picture& fondo, QWidget* parent = nullptr);

    // The zoom: a factor of the true size.
    double zoom() const { return m_zoom; }
    void setZoom(double factor);
    double pxPorUnidadHor() const { return Zoom::kPxPorUnidadHorReal * m_zoom; }
    double pxPorUnidadVer() const { return Zoom::kPxPorUnidadVerReal * m_zoom; }
    double pxPorMm() const { return pxPorUnidadHor() / 2; }

    // Where a point of the surface (in surface units) is, in this widget.
    QPointF puntoDe(double hor, double ver) const;
    // The point of the surface, in surface units, that the pointer at a
    // position of this widget stands for.
    QPointF unidadesDe(const QPointF& pos) const;
    // Box n as the screen shows it.
    QRectF rectCaja(int n) const;
    // Where box n writes its caption, and in what font: the largest that
    // lets the caption fit.
    QRectF rectTexto(int n) const;
    QFont fuenteCaja(int n) const;
    // The box under a point of this widget, -1 for the bare surface. The
    // boxes of higher numbers lie on top.
    int cajaEn(const QPointF& pos) const;
    // The outer size follows the surface model (its height follows VSVer).
    void ajustarTamano();

    // The drag was let go outside the surface: is this point (global) on one
    // of the window's text boxes? There the drop only repaints.
    std::function<bool(const QPoint&)> sobreCajaTexto;
    // After each mouse action: the window shows the status read-outs.
    std::function<void()> trasRaton;
    // The wheel turned with Ctrl held: steps up (> 0) or down, the pointer
    // at that point of this widget.
    std::function<void(int, const QPointF&)> alZoomRueda;

protected:
    bool event(QEvent* e) override;
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    void wheelEvent(QWheelEvent* e) override;

private:
    void aplicarPuntero();
    void avisar();
    QRectF rectUnidades(double left, double top, double width, double height) const;

    double m_zoom = Escala::kZoomInicial;
    int m_rueda = 0; // wheel angle not yet a step

    EditorEtiqueta& m_editor;
    const Picture& m_fondo;
};

// A ruler beside the surface: a scale of the surface's units, every unit a
// tick, every 5 a longer one, every 10 a number.
class Regla : public QWidget {
    Q_OBJECT
public:
    Regla(Qt::Orientation orientacion, QWidget* parent = nullptr);
    // Where the number of unit i is written, and in what.
    QRectF rectNumero(int i) const;
    QFont fuente() const;
    // Pixels from one unit to the next.
    void setPaso(double px);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    Qt::Orientation m_orientacion;
    double m_paso;
};
