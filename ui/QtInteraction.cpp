#include "QtInteraction.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace {

QString titulo()
{
    return QApplication::applicationName();
}

QString dialogo(QWidget* parent, const FileDialogRequest& request, QFileDialog::AcceptMode mode)
{
    QFileDialog dialog(parent, titulo());
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                       : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    const QStringList filters = nameFilters(request.filter);
    dialog.setNameFilters(filters);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
        dialog.selectNameFilter(filters.at(request.filterIndex - 1));
    if (!request.fileName.isEmpty())
        dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

} // namespace

QStringList nameFilters(const QString& classicFilter)
{
    // Pairs of name and patterns; the name keeps its own wording, and the
    // patterns are added in the form Qt reads.
    const QStringList parts = classicFilter.split(QLatin1Char('|'));
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts.at(i + 1).split(QLatin1Char(';'), Qt::SkipEmptyParts);
        filters.append(parts.at(i) + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
                       QLatin1Char(')'));
    }
    return filters;
}

void QtInteraction::message(const QString& text)
{
    QMessageBox box(QMessageBox::NoIcon, titulo(), text, QMessageBox::Ok, m_parent);
    box.exec();
}

Answer QtInteraction::question(const QString& text)
{
    QMessageBox box(QMessageBox::Question, titulo(), text,
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, m_parent);
    box.setDefaultButton(QMessageBox::Yes);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

QString QtInteraction::openFile(const FileDialogRequest& request)
{
    return dialogo(m_parent, request, QFileDialog::AcceptOpen);
}

QString QtInteraction::saveFile(const FileDialogRequest& request)
{
    return dialogo(m_parent, request, QFileDialog::AcceptSave);
}
