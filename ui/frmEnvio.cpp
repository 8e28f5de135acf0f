#include "frmEnvio.h"

#include "ModBase.h"
#include "PuertoTcp.h"
#include "UserInteraction.h"

#include <QCloseEvent>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

frmEnvio::frmEnvio(ModBase& mb, UserInteraction& ui, QWidget* parent)
    // No close box, no button, no way out but the end. A window manager
    // offers minimise, maximise and close on any title bar it draws unless
    // told of some function the window does have, and the only ones there
    // are to tell are those very buttons: so the window has no frame of the
    // system's and carries its title and border itself.
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmEnvio"));
    setWindowTitle(QStringLiteral("Enviando..."));
    auto* marco = new QFrame(this);
    marco->setObjectName(QStringLiteral("marco"));
    marco->setFrameShape(QFrame::WinPanel);
    marco->setFrameShadow(QFrame::Raised);
    lblTitulo = new QLabel(windowTitle(), marco);
    lblTitulo->setObjectName(QStringLiteral("lblTitulo"));
    QFont negrita = lblTitulo->font();
    negrita.setBold(true);
    lblTitulo->setFont(negrita);
    ProBar1 = new QProgressBar(this);
    ProBar1->setObjectName(QStringLiteral("ProBar1"));
    ProBar1->setTextVisible(false);
    lblText = new QLabel(this);
    lblText->setObjectName(QStringLiteral("lblText"));
    lblText->setMinimumWidth(360);
    auto* exterior = new QVBoxLayout(this);
    exterior->setContentsMargins(0, 0, 0, 0);
    exterior->addWidget(marco);
    auto* layout = new QVBoxLayout(marco);
    layout->addWidget(lblTitulo);
    layout->addWidget(ProBar1);
    layout->addWidget(lblText);

    // COMn, or the network scale its dosdevices entry names.
    m_puerto = crearPuerto(mb.programDir, QStringLiteral("COM%1").arg(mb.Puerto + 1));
    m_envio = std::make_unique<Envio>(mb, *m_puerto, ui, *this);
    m_envio->cargar();
}

// The transfer object goes first: it closes the port it was given.
frmEnvio::~frmEnvio()
{
    m_envio.reset();
}

void frmEnvio::setMaximo(int maximo)
{
    ProBar1->setMaximum(maximo);
}

void frmEnvio::setValor(int valor)
{
    ProBar1->setValue(valor);
}

void frmEnvio::setTexto(const QString& texto)
{
    lblText->setText(texto);
}

bool frmEnvio::event(QEvent* e)
{
    if (e->type() == QEvent::WindowActivate)
        arrancar();
    return QDialog::event(e);
}

// A platform that never makes the window active (no window manager) must
// not leave the person before a window that waits for ever.
void frmEnvio::showEvent(QShowEvent* e)
{
    QDialog::showEvent(e);
    QTimer::singleShot(100, this, [this] { arrancar(); });
}

void frmEnvio::arrancar()
{
    if (m_arrancado)
        return;
    m_arrancado = true;
    // Out of the activation handler, so that the window is drawn before
    // the first frame goes; the wait for each reply keeps it drawn.
    QTimer::singleShot(0, this, [this] { ejecutar(); });
}

void frmEnvio::ejecutar()
{
    m_envio->ejecutar();
    m_estado = m_envio->estadoEnvio();
    m_terminado = true;
    m_envio.reset(); // the port is closed on unload
    accept();
}

void frmEnvio::closeEvent(QCloseEvent* e)
{
    if (m_terminado)
        e->accept();
    else
        e->ignore();
}

// Escape cancels nothing: a transfer can't be cut short.
void frmEnvio::reject()
{
    if (m_terminado)
        QDialog::reject();
}
