#pragma once

#include "EnvioVarias.h"

#include <QDialog>

class QCheckBox;
class QPushButton;
class QTableWidget;
class UserInteraction;

// Send to several scales: the scales of the program folder's list, a tick,
// a progress bar and the result for each, the label on the surface sent to
// every ticked one at once. The logic is EnvioVarias; the window binds it.
// It cannot be closed while the transfers run.
class frmFlota : public QDialog {
    Q_OBJECT
public:
    frmFlota(ModBase& mb, UserInteraction& ui, QWidget* parent = nullptr);

    // False when there was no list to show (the person has been told).
    bool cargada() const { return m_cargada; }

protected:
    void closeEvent(QCloseEvent* e) override;
    void reject() override;

private:
    void enviar();
    void mostrar(int fila);

    const ModBase& m_mb;
    EnvioVarias m_logica;
    bool m_cargada = false;
    QTableWidget* tblBalanzas;
    QCheckBox* chkTodas;
    QCheckBox* chkTraza;
    QPushButton* cmdEnviar;
    QPushButton* cmdCerrar;
};
