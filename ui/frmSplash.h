#pragma once

#include <QDialog>

struct ModBase;
class QLabel;
class QTimer;

// The start-up splash, which closes itself after half a second, and the about
// box, which stays until a key or a click.
class frmSplash : public QDialog {
    Q_OBJECT
public:
    explicit frmSplash(ModBase& mb, QWidget* parent = nullptr);

    // Shows it modally until it closes. Not exec(): showing a splash makes
    // Qt handle the events that wait, and a key or a click among them closes
    // it before exec's loop has begun, which then never ends.
    void mostrar();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ModBase& m_mb;
    QLabel* Image1;
    QLabel* lblVersion;
    QTimer* Timer1;
};
