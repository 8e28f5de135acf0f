#pragma once

#include <QDialog>

struct ModBase;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class UserInteraction;

// The transfer settings that stand before every transfer: the five line
// settings and the scale's number. Its two action buttons keep them and run
// the transfer in frmEnvio, of the whole label or of the free texts alone;
// a third keeps them and sends the label to several scales in frmFlota.
class frmConfig : public QDialog {
    Q_OBJECT
public:
    frmConfig(ModBase& mb, UserInteraction& ui, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void enviar(bool soloTextos);
    void enviarVarias();
    void guardar(bool soloTextos);
    QLineEdit* titulo(const QString& objeto, const QString& texto, QComboBox* lista);
    QComboBox* lista(const QString& objeto, const QStringList& entradas, int posicion);

    ModBase& m_mb;
    UserInteraction& m_ui;
    QComboBox* cmbCOM;
    QComboBox* cmbBaud;
    QComboBox* cmbPar;
    QComboBox* cmbStop;
    QComboBox* cmbDatos;
    QLabel* lblEquipo;
    QLineEdit* txtEquipo;
    QPushButton* OKButton;
    QPushButton* CommandTXL;
    QPushButton* CommandVarias;
    QPushButton* CancelButton;
};
