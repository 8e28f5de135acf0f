#include "frmConfig.h"

#include "ConfigEnvio.h"
#include "frmEnvio.h"
#include "frmFlota.h"
#include "ModBase.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmConfig::frmConfig(ModBase& mb, UserInteraction& ui, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint),
      m_mb(mb), m_ui(ui)
{
    setObjectName(QStringLiteral("frmConfig"));
    const AjustesConfig a = CargarConfig(m_mb);
    const TextTable& T = m_mb.Textos;
    setWindowTitle(T(259));

    cmbCOM = lista(QStringLiteral("cmbCOM"), entradasCOM(), a.puerto);
    cmbBaud = lista(QStringLiteral("cmbBaud"), entradasBaud(), a.baudios);
    cmbPar = lista(QStringLiteral("cmbPar"), entradasParidad(m_mb), a.paridad);
    cmbStop = lista(QStringLiteral("cmbStop"), entradasStop(), a.bitsParada);
    cmbDatos = lista(QStringLiteral("cmbDatos"), entradasDatos(), a.bitsDatos);

    auto* grid = new QGridLayout;
    const struct {
        const char* nombre;
        QString texto;
        QComboBox* lista;
    } filas[] = {
        {"txtCOM", QStringLiteral("COM"), cmbCOM},
        {"txtBaud", T(261), cmbBaud},
        {"txtPar", T(262), cmbPar},
        {"txtStop", T(1321), cmbStop},
        {"txtDatos", T(263), cmbDatos},
    };
    int fila = 0;
    for (const auto& f : filas) {
        grid->addWidget(titulo(QString::fromLatin1(f.nombre), f.texto, f.lista), fila, 0);
        grid->addWidget(f.lista, fila, 1);
        ++fila;
    }

    lblEquipo = new QLabel(T(568) + QLatin1Char(':'), this);
    lblEquipo->setObjectName(QStringLiteral("lblEquipo"));
    txtEquipo = new QLineEdit(a.equipo, this);
    txtEquipo->setObjectName(QStringLiteral("txtEquipo"));
    txtEquipo->setMaxLength(1);
    txtEquipo->setFixedWidth(txtEquipo->fontMetrics().horizontalAdvance(QLatin1Char('8')) * 3 + 8);
    txtEquipo->setToolTip(T(323) + QStringLiteral(" 1 - 8"));
    txtEquipo->installEventFilter(this);
    lblEquipo->setBuddy(txtEquipo);
    auto* equipo = new QHBoxLayout;
    equipo->addWidget(lblEquipo);
    equipo->addWidget(txtEquipo);
    equipo->addStretch();
    grid->addLayout(equipo, fila, 0, 1, 2);

    OKButton = new QPushButton(T(43), this);
    OKButton->setObjectName(QStringLiteral("OKButton"));
    CommandTXL = new QPushButton(T(1329), this);
    CommandTXL->setObjectName(QStringLiteral("CommandTXL"));
    CommandVarias = new QPushButton(T(2107) + QStringLiteral("..."), this);
    CommandVarias->setObjectName(QStringLiteral("CommandVarias"));
    CancelButton = new QPushButton(T(288), this);
    CancelButton->setObjectName(QStringLiteral("CancelButton"));
    auto* botones = new QVBoxLayout;
    for (QPushButton* b : {OKButton, CommandTXL, CommandVarias, CancelButton})
        botones->addWidget(b);
    botones->addStretch();

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(grid);
    layout->addSpacing(12);
    layout->addLayout(botones);

    connect(OKButton, &QPushButton::clicked, this, [this] { enviar(false); });
    connect(CommandTXL, &QPushButton::clicked, this, [this] { enviar(true); });
    connect(CommandVarias, &QPushButton::clicked, this, &frmConfig::enviarVarias);
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

// A title beside its list: read-only, and the focus it gets goes on to the list.
QLineEdit* frmConfig::titulo(const QString& objeto, const QString& texto, QComboBox* lista)
{
    auto* t = new QLineEdit(texto, this);
    t->setObjectName(objeto);
    t->setReadOnly(true);
    // A title, not a box to type in: no frame, the dialog's own ground.
    t->setFrame(false);
    t->setStyleSheet(QStringLiteral("QLineEdit { background: transparent; }"));
    t->setFocusProxy(lista);
    t->setAccessibleName(texto);
    lista->setAccessibleName(texto);
    return t;
}

QComboBox* frmConfig::lista(const QString& objeto, const QStringList& entradas, int posicion)
{
    auto* c = new QComboBox(this);
    c->setObjectName(objeto);
    c->addItems(entradas);
    c->setCurrentIndex(posicion);
    c->installEventFilter(this);
    return c;
}

bool frmConfig::eventFilter(QObject* watched, QEvent* e)
{
    if (e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        // Tab and its reverse move on between the boxes as everywhere.
        if (k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab)
            return false;
        if (qobject_cast<QComboBox*>(watched)) {
            // A list changes only by choosing from it: typing, arrows and
            // wheels of letters would change it behind the person's back.
            return k->key() != Qt::Key_F4 &&
                   !(k->key() == Qt::Key_Down && (k->modifiers() & Qt::AltModifier));
        }
        if (watched == txtEquipo) {
            if (k->key() == Qt::Key_Backspace)
                return !teclaEquipoAdmitida(8);
            // Keys that type nothing (arrows, Delete, Home) are the box's own.
            if (k->text().isEmpty())
                return false;
            return !teclaEquipoAdmitida(k->text().at(0).unicode());
        }
    } else if (e->type() == QEvent::Wheel && qobject_cast<QComboBox*>(watched)) {
        return true;
    } else if (e->type() == QEvent::FocusOut && watched == txtEquipo) {
        txtEquipo->setText(equipoAlPerderFoco(txtEquipo->text()));
    }
    return QDialog::eventFilter(watched, e);
}

// The settings are kept as for one scale (the serial scales of the list
// take them as theirs), then the list of scales is shown.
void frmConfig::enviarVarias()
{
    guardar(false);
    {
        frmFlota flota(m_mb, m_ui, this);
        if (flota.cargada())
            flota.exec();
    }
    accept();
}

void frmConfig::enviar(bool soloTextos)
{
    guardar(soloTextos);
    {
        frmEnvio envio(m_mb, m_ui, this);
        envio.exec();
    }
    accept();
}

void frmConfig::guardar(bool soloTextos)
{
    // The box may still hold the focus when the button is pressed by its
    // shortcut; it is read as it stands once it has let go.
    txtEquipo->setText(equipoAlPerderFoco(txtEquipo->text()));
    AjustesConfig a;
    a.puerto = static_cast<int16_t>(cmbCOM->currentIndex());
    a.baudios = static_cast<int16_t>(cmbBaud->currentIndex());
    a.paridad = static_cast<int16_t>(cmbPar->currentIndex());
    a.bitsParada = static_cast<int16_t>(cmbStop->currentIndex());
    a.bitsDatos = static_cast<int16_t>(cmbDatos->currentIndex());
    a.equipo = txtEquipo->text();
    GuardarConfig(m_mb, a, soloTextos);
}
