#include "frmDES.h"

#include "DialogoCampos.h"
#include "ModBase.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const Qt::WindowFlags kFlags =
    Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

QHBoxLayout* filaBotones(QPushButton* ok, QPushButton* cancel)
{
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(ok);
    botones->addWidget(cancel);
    return botones;
}

} // namespace

frmDES::frmDES(ModBase& mb, QWidget* parent) : QDialog(parent, kFlags), m_mb(mb)
{
    setObjectName(QStringLiteral("frmDES"));
    const TextTable& T = m_mb.Textos;
    setWindowTitle(T(1263));
    OKButton = new QPushButton(T(287), this);
    OKButton->setObjectName(QStringLiteral("OKButton"));
    CancelButton = new QPushButton(T(288), this);
    CancelButton->setObjectName(QStringLiteral("CancelButton"));

    const std::array<bool, 10> marcadas = CargarDES(m_mb);
    auto* grid = new QGridLayout;
    for (int i = 1; i <= 10; ++i) {
        auto* ch = ChDes[static_cast<size_t>(i - 1)] = new QCheckBox(tituloDES(m_mb, i), this);
        ch->setObjectName(QStringLiteral("ChDes%1").arg(i));
        ch->setChecked(marcadas[static_cast<size_t>(i - 1)]);
        // Two columns of five, in reading order down each column.
        grid->addWidget(ch, (i - 1) % 5, (i - 1) / 5);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(filaBotones(OKButton, CancelButton));

    connect(OKButton, &QPushButton::clicked, this, [this] {
        std::array<bool, 10> elegidas{};
        for (size_t k = 0; k < 10; ++k)
            elegidas[k] = ChDes[k]->isChecked();
        AceptarDES(m_mb, elegidas);
        accept();
    });
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmTipoEtiq::frmTipoEtiq(ModBase& mb, QWidget* parent) : QDialog(parent, kFlags), m_mb(mb)
{
    setObjectName(QStringLiteral("frmTipoEtiq"));
    const TextTable& T = m_mb.Textos;
    setWindowTitle(T(77));
    OKButton = new QPushButton(T(287), this);
    OKButton->setObjectName(QStringLiteral("OKButton"));
    CancelButton = new QPushButton(T(288), this);
    CancelButton->setObjectName(QStringLiteral("CancelButton"));

    auto* grupo = new QButtonGroup(this);
    auto* opciones = new QVBoxLayout;
    const int textos[2] = {1310, 1317};
    for (int i = 0; i < 2; ++i) {
        auto* op = TipoEtiq[static_cast<size_t>(i)] = new QRadioButton(T(textos[i]), this);
        op->setObjectName(QStringLiteral("TipoEtiq%1").arg(i));
        grupo->addButton(op, i);
        opciones->addWidget(op);
    }
    // A kind that is neither shows no option chosen.
    const int elegida = CargarTipoEtiq(m_mb);
    if (elegida >= 0)
        TipoEtiq[static_cast<size_t>(elegida)]->setChecked(true);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(opciones);
    layout->addLayout(filaBotones(OKButton, CancelButton));

    connect(OKButton, &QPushButton::clicked, this, [this, grupo] {
        AceptarTipoEtiq(m_mb, grupo->checkedId());
        accept();
    });
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}
