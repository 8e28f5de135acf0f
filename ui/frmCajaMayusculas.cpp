#include "frmCajaMayusculas.h"

#include "DialogoTextos.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

CajaMayusculas::CajaMayusculas(QLineEdit* caja, int16_t idioma, std::function<void()> alPulsarEnter)
    : QObject(caja), m_caja(caja), m_idioma(idioma), m_enter(std::move(alPulsarEnter))
{
    caja->installEventFilter(this);
}

bool CajaMayusculas::eventFilter(QObject* watched, QEvent* e)
{
    if (watched != m_caja || e->type() != QEvent::KeyPress)
        return false;
    auto* k = static_cast<QKeyEvent*>(e);
    if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
        m_enter();
        return true;
    }
    const QString texto = k->text();
    if (texto.isEmpty() || (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        return false;
    const QString mayusculas = mayusculasAlTeclear(m_idioma, texto);
    if (mayusculas == texto)
        return false;
    // The same key with its capital goes to the box, which types it
    // under its own rules (length, selection, undo).
    QKeyEvent otra(QEvent::KeyPress, k->key(), k->modifiers(), mayusculas, k->isAutoRepeat(),
                   static_cast<ushort>(k->count()));
    QCoreApplication::sendEvent(m_caja, &otra);
    return true;
}
