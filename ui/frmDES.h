#pragma once

#include <array>
#include <QDialog>

struct ModBase;
class QCheckBox;
class QPushButton;
class QRadioButton;

// Which of the ten descriptive lines are on the label.
class frmDES : public QDialog {
    Q_OBJECT
public:
    explicit frmDES(ModBase& mb, QWidget* parent = nullptr);

private:
    ModBase& m_mb;
    std::array<QCheckBox*, 10> ChDes{};
    QPushButton* OKButton;
    QPushButton* CancelButton;
};

// The kind of the label, which starts a fresh label of that kind. No
// command opens it: the kind comes from converting a label or its file.
class frmTipoEtiq : public QDialog {
    Q_OBJECT
public:
    explicit frmTipoEtiq(ModBase& mb, QWidget* parent = nullptr);

private:
    ModBase& m_mb;
    std::array<QRadioButton*, 2> TipoEtiq{};
    QPushButton* OKButton;
    QPushButton* CancelButton;
};
