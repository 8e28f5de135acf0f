#include "frmBorrar.h"

#include "ModBase.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

frmBorrar::frmBorrar(ModBase& mb, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint),
      m_mb(mb), m_logica(mb)
{
    setObjectName(QStringLiteral("frmBorrar"));
    const TextTable& T = m_mb.Textos;
    setWindowTitle(T(38));
    CommandSelTodo = new QPushButton(T(1325), this);
    CommandSelTodo->setObjectName(QStringLiteral("CommandSelTodo"));
    OKButton = new QPushButton(T(287), this);
    OKButton->setObjectName(QStringLiteral("OKButton"));
    CancelButton = new QPushButton(T(288), this);
    CancelButton->setObjectName(QStringLiteral("CancelButton"));

    // Three columns: the descriptive lines, the scale's own fields, the
    // free texts with the lot. Hidden boxes take no room, so each model's
    // column closes up.
    QVBoxLayout* columnas[3] = {new QVBoxLayout, new QVBoxLayout, new QVBoxLayout};
    for (int k = 0; k < DialogoBorrar::Casillas; ++k) {
        const CasillaBorrar& c = DialogoBorrar::casillaDef(k);
        auto* ch = m_casillas[static_cast<size_t>(k)] = new QCheckBox(this);
        const QString nombre = QString::fromLatin1(c.nombre);
        ch->setObjectName(c.numero ? nombre + QString::number(c.numero) : nombre);
        const int col = c.campo <= 10 ? 0 : (c.campo <= 20 ? 1 : 2);
        // The lot heads the new model's column of free texts.
        if (c.campo == 26)
            columnas[2]->insertWidget(5, ch);
        else
            columnas[col]->addWidget(ch);
        ch->setVisible(m_logica.casilla(k).visible);
        connect(ch, &QCheckBox::toggled, this, [this, k](bool on) { m_logica.marcar(k, on); });
    }
    auto* cuerpo = new QHBoxLayout;
    for (QVBoxLayout* c : columnas) {
        c->addStretch();
        cuerpo->addLayout(c);
    }
    auto* botones = new QHBoxLayout;
    botones->addWidget(CommandSelTodo);
    botones->addStretch();
    botones->addWidget(OKButton);
    botones->addWidget(CancelButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(cuerpo);
    layout->addLayout(botones);

    connect(CommandSelTodo, &QPushButton::clicked, this, [this] {
        m_logica.seleccionarTodo();
        mostrar();
    });
    connect(OKButton, &QPushButton::clicked, this, [this] {
        m_logica.aceptar();
        accept();
    });
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    mostrar();
}

void frmBorrar::mostrar()
{
    for (int k = 0; k < DialogoBorrar::Casillas; ++k) {
        const EstadoCasilla& e = m_logica.casilla(k);
        QCheckBox* ch = m_casillas[static_cast<size_t>(k)];
        const QSignalBlocker b(ch);
        ch->setText(e.titulo);
        ch->setEnabled(e.habilitada);
        ch->setChecked(e.marcada);
    }
}
