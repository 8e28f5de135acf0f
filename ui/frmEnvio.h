#pragma once

#include "Envio.h"

#include <memory>
#include <QDialog>

struct ModBase;
class QLabel;
class QProgressBar;
class PuertoSerie;
class UserInteraction;

// The transfer window: a progress bar and one line of text while the label
// goes out. It has no button and no close box; the transfer starts as soon
// as the window is active and the window closes itself when it ends, well
// or badly. It owns the port for that time.
class frmEnvio : public QDialog, public ProgresoEnvio {
    Q_OBJECT
public:
    frmEnvio(ModBase& mb, UserInteraction& ui, QWidget* parent = nullptr);
    ~frmEnvio() override;

    // 0 when the scale accepted the closing frame, 1 otherwise; -1 before the end.
    int estado() const { return m_estado; }

    void setMaximo(int maximo) override;
    void setValor(int valor) override;
    void setTexto(const QString& texto) override;

protected:
    bool event(QEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    void reject() override;

private:
    void arrancar();
    void ejecutar();

    QLabel* lblTitulo;
    QProgressBar* ProBar1;
    QLabel* lblText;
    std::unique_ptr<PuertoSerie> m_puerto;
    std::unique_ptr<Envio> m_envio;
    bool m_arrancado = false;
    bool m_terminado = false;
    int m_estado = -1;
};
