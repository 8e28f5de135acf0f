#include "frmSplash.h"

#include "Arranque.h"
#include "CatalogoCampos.h"
#include "ModBase.h"

#include <QEvent>
#include <QEventLoop>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// A label as the program knows it: a white card with a few field boxes in
// their own colours, and the program's name across it.
QPixmap dibujoSplash(qreal dpr)
{
    const QSize size(440, 250);
    QPixmap pm(size * dpr);
    pm.setDevicePixelRatio(dpr);
    pm.fill(QColor(0x2f, 0x4f, 0x6f));
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);

    const QRectF card(150, 30, 260, 190);
    QPainterPath path;
    path.addRoundedRect(card, 10, 10);
    p.fillPath(path.translated(4, 5), QColor(0, 0, 0, 70));
    p.fillPath(path, Qt::white);

    const auto box = [&](int campo, QRectF r) {
        p.fillRect(r.translated(card.topLeft()), QColor::fromRgb(campoCatalogo(campo).color));
    };
    box(1, {16, 18, 228, 22});
    box(2, {16, 46, 160, 18});
    box(11, {16, 80, 70, 30});
    box(13, {96, 80, 70, 30});
    box(14, {176, 80, 68, 30});
    box(17, {16, 122, 110, 16});
    box(18, {134, 122, 110, 16});
    // A bar code stands for itself.
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    qreal x = card.left() + 40;
    for (int i = 0; i < 46; ++i) {
        const qreal w = (i * 7 % 5 == 0) ? 2.6 : 1.3;
        if (i % 3 != 1)
            p.drawRect(QRectF(x, card.top() + 150, w, 28));
        x += w + 1.4;
    }

    p.setPen(Qt::white);
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setPixelSize(40);
    f.setBold(true);
    p.setFont(f);
    p.drawText(QRectF(16, 60, 130, 60), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Korvo"));
    f.setPixelSize(12);
    f.setBold(false);
    p.setFont(f);
    p.drawText(QRectF(18, 112, 130, 40), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
               QStringLiteral("label designer"));
    return pm;
}

} // namespace

frmSplash::frmSplash(ModBase& mb, QWidget* parent)
    : QDialog(parent, Qt::SplashScreen | Qt::FramelessWindowHint), m_mb(mb)
{
    setObjectName(QStringLiteral("frmSplash"));
    const EstadoSplash estado = cargaSplash(m_mb);

    Image1 = new QLabel(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setPixmap(dibujoSplash(devicePixelRatioF()));
    lblVersion = new QLabel(estado.lblVersion, this);
    lblVersion->setObjectName(QStringLiteral("lblVersion"));
    lblVersion->setAlignment(Qt::AlignRight);
    lblVersion->setStyleSheet(
        QStringLiteral("color: white; background: #2f4f6f; padding: 0 10px 8px 0;"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(Image1);
    layout->addWidget(lblVersion);
    Image1->installEventFilter(this);
    lblVersion->installEventFilter(this);

    Timer1 = new QTimer(this);
    Timer1->setSingleShot(true);
    connect(Timer1, &QTimer::timeout, this, [this] {
        timerSplash(m_mb);
        Timer1->stop();
        accept();
    });
    if (estado.intervaloTimer > 0) {
        Timer1->setInterval(estado.intervaloTimer);
        Timer1->start();
    }
}

void frmSplash::mostrar()
{
    QEventLoop bucle;
    bool cerrado = false;
    connect(this, &QDialog::finished, &bucle, [&] {
        cerrado = true;
        bucle.quit();
    });
    setWindowModality(Qt::ApplicationModal);
    show();
    if (!cerrado)
        bucle.exec();
}

void frmSplash::keyPressEvent(QKeyEvent*)
{
    accept();
}

bool frmSplash::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && (watched == Image1 || watched == lblVersion)) {
        accept();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
