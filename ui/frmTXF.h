#pragma once

#include <QDialog>

struct ModBase;
class QLabel;
class QLineEdit;
class QPushButton;

// The two fixed text lines of the label, edited together.
class frmTXF : public QDialog {
    Q_OBJECT
public:
    explicit frmTXF(ModBase& mb, QWidget* parent = nullptr);

private:
    ModBase& m_mb;
    QLabel* labelTXF[2];
    QLineEdit* TextTXF[2];
    QPushButton* OKButton;
    QPushButton* CancelButton;
};
