#include "frmTXF.h"

#include "DialogoTextos.h"
#include "frmCajaMayusculas.h"
#include "ModBase.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmTXF::frmTXF(ModBase& mb, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint),
      m_mb(mb)
{
    setObjectName(QStringLiteral("frmTXF"));
    const TextTable& T = m_mb.Textos;
    setWindowTitle(T(1337));
    OKButton = new QPushButton(T(287), this);
    OKButton->setObjectName(QStringLiteral("OKButton"));
    CancelButton = new QPushButton(T(288), this);
    CancelButton->setObjectName(QStringLiteral("CancelButton"));

    auto* grid = new QGridLayout;
    for (int i = 0; i < 2; ++i) {
        labelTXF[i] = new QLabel(
            T(1337) + QLatin1Char(' ') + QString::number(i + 1) + QLatin1Char(':'), this);
        labelTXF[i]->setObjectName(QStringLiteral("labelTXF%1").arg(i + 1));
        QLineEdit* caja = TextTXF[i] = new QLineEdit(this);
        caja->setObjectName(QStringLiteral("TextTXF%1").arg(i + 1));
        caja->setMaxLength(25);
        caja->setMinimumWidth(caja->fontMetrics().horizontalAdvance(QString(25, QLatin1Char('W'))) /
                                  2 +
                              caja->fontMetrics().horizontalAdvance(QString(13, QLatin1Char('0'))));
        caja->setText(textoFijoParaCaja(m_mb.Idioma, m_mb.TextoFijo(i)));
        // Enter only moves on to the button, and not from an empty line.
        new CajaMayusculas(caja, m_mb.Idioma, [this, caja] {
            if (!caja->text().isEmpty())
                OKButton->setFocus();
        });
        labelTXF[i]->setBuddy(caja);
        grid->addWidget(labelTXF[i], i, 0);
        grid->addWidget(caja, i, 1);
    }

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(OKButton);
    botones->addWidget(CancelButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(botones);

    connect(OKButton, &QPushButton::clicked, this, [this] {
        AceptarTXF(m_mb, TextTXF[0]->text(), TextTXF[1]->text());
        accept();
    });
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}
