#include "frmTXL.h"

#include "frmCajaMayusculas.h"
#include "ModBase.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

// The mark beside a text that is on the label: black on a clear ground.
QPixmap marcaEnEtiqueta()
{
    QPixmap p(32, 32);
    p.fill(Qt::transparent);
    QPainter g(&p);
    g.setRenderHint(QPainter::Antialiasing);
    g.setPen(QPen(Qt::black, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPainterPath marca;
    marca.moveTo(5, 17);
    marca.lineTo(12, 25);
    marca.lineTo(27, 7);
    g.drawPath(marca);
    g.end();
    return p.scaled(23, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

frmTXL::frmTXL(ModBase& mb, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint),
      m_mb(mb), m_logica(mb)
{
    setObjectName(QStringLiteral("frmTXL"));
    const TextTable& T = m_mb.Textos;
    setWindowTitle(T(1307));
    OKButton = new QPushButton(T(287), this);
    OKButton->setObjectName(QStringLiteral("OKButton"));
    CancelButton = new QPushButton(T(288), this);
    CancelButton->setObjectName(QStringLiteral("CancelButton"));
    SalirButton = new QPushButton(T(1299), this);
    SalirButton->setObjectName(QStringLiteral("SalirButton"));

    const QPixmap marca = marcaEnEtiqueta();
    auto* filas = new QGridLayout;
    filas->setColumnMinimumWidth(2, marca.width());
    for (int i = 1; i <= DialogoTXL::Filas; ++i) {
        const size_t k = static_cast<size_t>(i - 1);
        auto* ch = ChTXL[k] = new QCheckBox(this);
        ch->setObjectName(QStringLiteral("ChTXL%1").arg(i));
        auto* caja = TextTXL[k] = new QLineEdit(this);
        caja->setObjectName(QStringLiteral("TextTXL%1").arg(i));
        caja->setMaxLength(DialogoTXL::Longitud);
        caja->setMinimumWidth(281);
        new CajaMayusculas(caja, m_mb.Idioma, [this] { OKButton->setFocus(); });
        auto* im = imTXLprog[k] = new QLabel(this);
        im->setObjectName(QStringLiteral("imTXLprog%1").arg(i));
        im->setPixmap(marca);
        filas->addWidget(ch, i, 0);
        filas->addWidget(caja, i, 1);
        filas->addWidget(im, i, 2);
        // The rows of the other model stay out, taking no room.
        if (!m_logica.fila(i).visible) {
            ch->hide();
            caja->hide();
            im->hide();
        }
        connect(ch, &QCheckBox::clicked, this, [this, i](bool on) { pulsarFila(i, on); });
        connect(caja, &QLineEdit::textEdited, this,
                [this, i](const QString& t) { m_logica.cambiarTexto(i, t); });
    }

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(OKButton);
    botones->addWidget(CancelButton);
    botones->addWidget(SalirButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filas);
    layout->addSpacing(8);
    layout->addLayout(botones);

    connect(OKButton, &QPushButton::clicked, this, [this] {
        m_logica.aceptar();
        mostrar();
    });
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(SalirButton, &QPushButton::clicked, this, [this] {
        m_logica.salir();
        accept();
    });
    mostrar();
}

void frmTXL::pulsarFila(int r, bool marcada)
{
    m_logica.pulsarFila(r, marcada);
    mostrar();
    if (marcada)
        TextTXL[static_cast<size_t>(r - 1)]->setFocus();
}

// The widgets of the shown rows as the logic has them.
void frmTXL::mostrar()
{
    for (int i = 1; i <= DialogoTXL::Filas; ++i) {
        const FilaTXL& f = m_logica.fila(i);
        if (!f.visible)
            continue;
        const size_t k = static_cast<size_t>(i - 1);
        const QSignalBlocker b1(ChTXL[k]);
        const QSignalBlocker b2(TextTXL[k]);
        ChTXL[k]->setText(f.titulo);
        ChTXL[k]->setChecked(f.marcada);
        ChTXL[k]->setEnabled(f.marcable);
        if (TextTXL[k]->text() != f.texto)
            TextTXL[k]->setText(f.texto);
        TextTXL[k]->setEnabled(f.textoHabilitado);
        // Hidden boxes keep their room, so the rows do not jump about.
        QSizePolicy sp = TextTXL[k]->sizePolicy();
        sp.setRetainSizeWhenHidden(true);
        TextTXL[k]->setSizePolicy(sp);
        TextTXL[k]->setVisible(f.textoVisible);
        QSizePolicy sm = imTXLprog[k]->sizePolicy();
        sm.setRetainSizeWhenHidden(true);
        imTXLprog[k]->setSizePolicy(sm);
        imTXLprog[k]->setVisible(f.enEtiqueta);
    }
}
