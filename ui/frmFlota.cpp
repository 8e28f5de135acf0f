#include "frmFlota.h"

#include "ModBase.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
enum Columna { Marca, Puerto, Equipo, Avance, Resultado, Columnas };
}

frmFlota::frmFlota(ModBase& mb, UserInteraction& ui, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint),
      m_mb(mb), m_logica(mb, ui)
{
    setObjectName(QStringLiteral("frmFlota"));
    const TextTable& T = m_mb.Textos;
    setWindowTitle(T(2107));

    tblBalanzas = new QTableWidget(0, Columnas, this);
    tblBalanzas->setObjectName(QStringLiteral("tblBalanzas"));
    tblBalanzas->setAccessibleName(T(2107));
    tblBalanzas->setHorizontalHeaderLabels({T(2108), T(2109), T(568), T(516), T(2110)});
    tblBalanzas->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tblBalanzas->setSelectionMode(QAbstractItemView::NoSelection);
    tblBalanzas->verticalHeader()->hide();
    tblBalanzas->horizontalHeader()->setSectionResizeMode(Resultado, QHeaderView::Stretch);
    tblBalanzas->setMinimumSize(640, 240);

    cmdEnviar = new QPushButton(T(43), this);
    cmdEnviar->setObjectName(QStringLiteral("cmdEnviar"));
    cmdEnviar->setAccessibleName(T(43));
    cmdCerrar = new QPushButton(T(2112), this);
    cmdCerrar->setObjectName(QStringLiteral("cmdCerrar"));
    cmdCerrar->setAccessibleName(T(2112));
    chkTodas = new QCheckBox(T(2114), this);
    chkTodas->setObjectName(QStringLiteral("chkTodas"));
    chkTodas->setAccessibleName(T(2114));
    chkTraza = new QCheckBox(T(2113) + QStringLiteral("..."), this);
    chkTraza->setObjectName(QStringLiteral("chkTraza"));
    chkTraza->setAccessibleName(T(2113));
    auto* botones = new QHBoxLayout;
    botones->addWidget(chkTodas);
    botones->addWidget(chkTraza);
    botones->addStretch();
    botones->addWidget(cmdEnviar);
    botones->addWidget(cmdCerrar);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tblBalanzas);
    layout->addLayout(botones);

    m_cargada = m_logica.cargar();
    const QList<BalanzaLista>& lista = m_logica.balanzas();
    tblBalanzas->setRowCount(static_cast<int>(lista.size()));
    for (int fila = 0; fila < lista.size(); ++fila) {
        const BalanzaLista& b = lista.at(fila);
        auto* marca = new QCheckBox(b.nombre);
        marca->setObjectName(QStringLiteral("chkBalanza%1").arg(fila));
        marca->setAccessibleName(b.nombre);
        marca->setChecked(m_logica.marcada(fila));
        connect(marca, &QCheckBox::toggled, this,
                [this, fila](bool si) { m_logica.marcar(fila, si); });
        tblBalanzas->setCellWidget(fila, Marca, marca);
        tblBalanzas->setItem(fila, Puerto, new QTableWidgetItem(b.puerto));
        tblBalanzas->setItem(fila, Equipo, new QTableWidgetItem(QString::number(b.equipo)));
        auto* barra = new QProgressBar;
        barra->setObjectName(QStringLiteral("barBalanza%1").arg(fila));
        barra->setAccessibleName(b.nombre + ' ' + T(516));
        barra->setTextVisible(false);
        barra->setValue(0);
        tblBalanzas->setCellWidget(fila, Avance, barra);
        tblBalanzas->setItem(fila, Resultado, new QTableWidgetItem);
    }
    tblBalanzas->resizeColumnsToContents();
    cmdEnviar->setEnabled(!lista.isEmpty());

    connect(cmdEnviar, &QPushButton::clicked, this, &frmFlota::enviar);
    connect(cmdCerrar, &QPushButton::clicked, this, &frmFlota::reject);
    connect(&m_logica, &EnvioVarias::progreso, this, &frmFlota::mostrar);
    connect(&m_logica, &EnvioVarias::terminada, this, &frmFlota::mostrar);
    connect(&m_logica, &EnvioVarias::terminado, this, [this] {
        cmdEnviar->setEnabled(true);
        cmdCerrar->setEnabled(true);
        for (auto* marca : findChildren<QCheckBox*>())
            marca->setEnabled(true);
    });
}

void frmFlota::enviar()
{
    for (int fila = 0; fila < tblBalanzas->rowCount(); ++fila) {
        static_cast<QProgressBar*>(tblBalanzas->cellWidget(fila, Avance))->setValue(0);
        tblBalanzas->item(fila, Resultado)->setText(QString());
    }
    cmdEnviar->setEnabled(false);
    cmdCerrar->setEnabled(false);
    for (auto* marca : findChildren<QCheckBox*>())
        marca->setEnabled(false);
    if (!m_logica.enviar(chkTraza->isChecked(), chkTodas->isChecked()))
        emit m_logica.terminado();
}

void frmFlota::mostrar(int fila)
{
    const Flota::Resultado* r = m_logica.resultado(fila);
    if (!r)
        return;
    auto* barra = static_cast<QProgressBar*>(tblBalanzas->cellWidget(fila, Avance));
    barra->setMaximum(r->terminada && r->ok ? 1 : r->maximo);
    barra->setValue(r->terminada && r->ok ? 1 : r->valor);
    // A long message reads whole in the tip.
    QTableWidgetItem* resultado = tblBalanzas->item(fila, Resultado);
    resultado->setText(m_logica.textoResultado(fila));
    resultado->setToolTip(resultado->text());
}

void frmFlota::closeEvent(QCloseEvent* e)
{
    if (m_logica.enCurso())
        e->ignore();
    else
        e->accept();
}

// Escape cuts no transfer short.
void frmFlota::reject()
{
    if (!m_logica.enCurso())
        QDialog::reject();
}
