#pragma once

#include <QDialog>

struct ModBase;
class QCheckBox;
class QPushButton;

// Stands at the start of every fresh label: are the free texts kept in
// freetxl.sft to be taken over? Its one button makes the new label.
class frmCargaTXL : public QDialog {
    Q_OBJECT
public:
    explicit frmCargaTXL(ModBase& mb, QWidget* parent = nullptr);

protected:
    void reject() override {} // no way out but the OK button

private:
    ModBase& m_mb;
    QCheckBox* ChkCargaTXL;
    QPushButton* OKButton;
};
