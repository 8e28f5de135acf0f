#include "frmVistaPrevia.h"

#include "ModBase.h"
#include "RenderVista.h"

#include <QPainter>
#include <QPushButton>

namespace {

// Where things stand in the window as it is laid out for the 45 frame, in
// millimetres.
constexpr qreal kMargen = 5;
constexpr qreal kAnchoVentana = 57 + 2 * kMargen;
constexpr qreal kAltoVentana = 45 + 2 * kMargen + 9;
constexpr qreal kBotonTop = 45 + kMargen + 2;
constexpr qreal kBotonAncho = 20;
constexpr qreal kBotonAlto = 6;

class Marco : public QWidget {
public:
    Marco(const EscenaVista& escena, QWidget* parent) : QWidget(parent), m_escena(escena)
    {
        setObjectName(QStringLiteral("PictVista"));
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        dibujarVistaPrevia(p, m_escena, width() / qreal(m_escena.anchoMarco));
    }

private:
    const EscenaVista& m_escena;
};

} // namespace

frmVistaPrevia::frmVistaPrevia(const ModBase& mb, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmVistaPrevia"));
    setWindowTitle(mb.Textos(450));
    m_escena = cargaVistaPrevia(mb);
    const GeometriaVistaPrevia g = geometriaVistaPrevia(mb);

    const qreal mm = pixelesPorMm();
    const auto px = [mm](qreal v) { return qRound(v * mm); };
    PictVista = new Marco(m_escena, this);
    PictVista->setGeometry(px(kMargen), px(kMargen), px(m_escena.anchoMarco),
                           px(m_escena.altoMarco));

    CommandCerrar = new QPushButton(mb.Textos(42), this);
    CommandCerrar->setObjectName(QStringLiteral("CommandCerrar"));
    CommandCerrar->setGeometry(px((kAnchoVentana - kBotonAncho) / 2), px(kBotonTop + g.bajadaBoton),
                               px(kBotonAncho), px(kBotonAlto));
    CommandCerrar->setDefault(true);
    CommandCerrar->setFocus();
    // Esc is the dialog's own way out; the button's is the same.
    connect(CommandCerrar, &QPushButton::clicked, this, &QDialog::accept);

    // The window grows with a 60 frame by the factor it always has, in twips.
    const int crecimiento = qRound(g.crecimientoVentanaTwips / 1440.0 * logicalDpiY());
    setFixedSize(px(kAnchoVentana), px(kAltoVentana) + crecimiento);
}

qreal frmVistaPrevia::pixelesPorMm() const
{
    return logicalDpiX() / 25.4;
}
