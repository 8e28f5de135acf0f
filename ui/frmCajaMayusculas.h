#pragma once

#include <cstdint>
#include <functional>
#include <QObject>

class QLineEdit;

// The keys of the free and fixed text boxes: letters become capitals as
// they are typed, and Enter does what the dialog says instead of pressing
// a button. Length and selection stay the box's own business.
class CajaMayusculas : public QObject {
    Q_OBJECT
public:
    CajaMayusculas(QLineEdit* caja, int16_t idioma, std::function<void()> alPulsarEnter);

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    QLineEdit* m_caja;
    int16_t m_idioma;
    std::function<void()> m_enter;
};
