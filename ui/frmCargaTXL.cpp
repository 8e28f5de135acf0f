#include "frmCargaTXL.h"

#include "ModBase.h"
#include "TextosLibres.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

frmCargaTXL::frmCargaTXL(ModBase& mb, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), m_mb(mb)
{
    setObjectName(QStringLiteral("frmCargaTXL"));
    const TextTable& T = m_mb.Textos;
    setWindowTitle(T(441) + QLatin1Char(' ') + T(1349));
    ChkCargaTXL = new QCheckBox(T(1350), this);
    ChkCargaTXL->setObjectName(QStringLiteral("ChkCargaTXL"));
    ChkCargaTXL->setChecked(m_mb.CargaTXL == 1);
    OKButton = new QPushButton(T(287), this);
    OKButton->setObjectName(QStringLiteral("OKButton"));
    OKButton->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(OKButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ChkCargaTXL);
    layout->addLayout(buttons);

    connect(ChkCargaTXL, &QCheckBox::toggled, this,
            [this](bool on) { m_mb.CargaTXL = on ? 1 : 0; });
    connect(OKButton, &QPushButton::clicked, this, [this] {
        AceptarCargaTXL(m_mb);
        accept();
    });
}
