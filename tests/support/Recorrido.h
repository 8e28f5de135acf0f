#pragma once

// A window's widgets as a person and a screen reader meet them: the child
// a test needs, the modal windows answered as they open, every caption
// measured against the widget that shows it, every control's accessible
// name. The walks return what is wrong, one line a widget.
#include "Catalogo.h"

#include <functional>
#include <QtTest>
#include <QtWidgets>

namespace recorrido {

// A child the test cannot go on without.
template <typename T> T* hijo(const QWidget& w, const QString& nombre)
{
    T* h = w.findChild<T*>(nombre);
    if (!h)
        qFatal("no child %s", qPrintable(nombre));
    return h;
}

// The window on the screen, drawn.
inline void mostrar(QWidget& w)
{
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
}

// The person at the screen: `f` meets each modal window once, as it shows,
// inside the window's own event loop, and answers it as it sees fit.
class AlAbrirse : public QObject {
public:
    explicit AlAbrirse(std::function<void(QWidget&)> f)
    {
        connect(&m_timer, &QTimer::timeout, this, [this, f = std::move(f)] {
            QWidget* d = QApplication::activeModalWidget();
            if (!d || !d->isVisible() || d == m_ultima)
                return;
            m_ultima = d;
            f(*d);
        });
        m_timer.start(20);
    }

private:
    QTimer m_timer;
    QPointer<QWidget> m_ultima;
};

inline QString nombre(const QWidget* w)
{
    return w->objectName() + " (" + w->metaObject()->className() + ")";
}

inline QString sinMnemonico(QString t)
{
    return t.replace(QStringLiteral("&&"), QStringLiteral("\x01")).remove('&').replace('\x01', '&');
}

// The width each caption needs, by the font it is drawn in, against what
// its widget gives it.
inline QStringList textosCortados(const QWidget& ventana)
{
    QStringList fallos;
    const auto medir = [&](const QWidget* w, const QString& texto, int necesita, int tiene) {
        if (necesita > tiene)
            fallos.append(
                QStringLiteral("%1 \"%2\" needs %3 px, has %4")
                    .arg(nombre(w), texto, QString::number(necesita), QString::number(tiene)));
    };
    for (const QWidget* w : ventana.findChildren<QWidget*>()) {
        if (!w->isVisibleTo(&ventana))
            continue;
        const QFontMetrics fm(w->font());
        if (const auto* l = qobject_cast<const QLabel*>(w)) {
            if (l->text().isEmpty() || l->wordWrap() || l->textFormat() == Qt::RichText)
                continue;
            const QString t = l->buddy() ? sinMnemonico(l->text()) : l->text();
            const QRect r = l->contentsRect();
            const QRect texto =
                fm.boundingRect(QRect(0, 0, 10000, 10000), Qt::AlignLeft | Qt::AlignTop, t);
            medir(l, t, texto.width() + l->indent() * (l->indent() > 0), r.width());
            medir(l, t, texto.height(), r.height());
        } else if (const auto* e = qobject_cast<const QLineEdit*>(w)) {
            // A box that shows a caption or a value the program wrote.
            if (!e->isReadOnly() || e->text().isEmpty())
                continue;
            QStyleOptionFrame opt;
            opt.initFrom(e);
            opt.lineWidth =
                e->hasFrame() ? e->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &opt, e) : 0;
            const QRect r = e->style()
                                ->subElementRect(QStyle::SE_LineEditContents, &opt, e)
                                .marginsRemoved(e->textMargins());
            // QLineEdit keeps 2 px each side of its text.
            medir(e, e->text(), fm.horizontalAdvance(e->text()) + 4, r.width());
        } else if (const auto* b = qobject_cast<const QAbstractButton*>(w)) {
            if (b->text().isEmpty() || qobject_cast<const QToolButton*>(w))
                continue;
            const QString t = sinMnemonico(b->text());
            QStyleOptionButton opt;
            opt.initFrom(b);
            opt.text = t;
            const QStyle::ContentsType tipo =
                qobject_cast<const QCheckBox*>(w)      ? QStyle::CT_CheckBox
                : qobject_cast<const QRadioButton*>(w) ? QStyle::CT_RadioButton
                                                       : QStyle::CT_PushButton;
            // What the style adds around a text (its indicator, margins and
            // frame), taken at a width past any minimum it keeps.
            const int ancho = 400;
            const int alrededor =
                b->style()->sizeFromContents(tipo, &opt, QSize(ancho, fm.height()), b).width() -
                ancho;
            medir(b, t, fm.horizontalAdvance(t) + alrededor, b->width());
        }
    }
    return fallos;
}

// Every control that can be reached has a name a screen reader can say.
inline QStringList sinNombreAccesible(const QWidget& ventana)
{
    QStringList fallos;
    for (QWidget* w : ventana.findChildren<QWidget*>()) {
        // A control a person can act on, by its accessible role.
        const bool control = qobject_cast<QAbstractButton*>(w) || qobject_cast<QLineEdit*>(w) ||
                             qobject_cast<QComboBox*>(w) || qobject_cast<QAbstractSlider*>(w);
        if (!control || !w->isVisibleTo(&ventana))
            continue;
        // The inner parts of a composite control (a combo box's list) are
        // the composite's.
        if (w->parentWidget() && qobject_cast<QComboBox*>(w->parentWidget()))
            continue;
        QAccessibleInterface* i = QAccessible::queryAccessibleInterface(w);
        const QString n = i ? i->text(QAccessible::Name) : QString();
        if (n.trimmed().isEmpty())
            fallos.append(nombre(w));
    }
    return fallos;
}

// One row a language, in the column "idioma".
inline void filasIdiomas()
{
    QTest::addColumn<int>("idioma");
    for (int i = 1; i <= 8; ++i)
        QTest::addRow("%s", qPrintable(captionIdioma(i))) << i;
}

} // namespace recorrido
