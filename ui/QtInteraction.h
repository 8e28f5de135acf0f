#pragma once

#include "UserInteraction.h"

#include <QStringList>

class QWidget;

// The person answers in message boxes and file dialogs.
class QtInteraction : public UserInteraction {
public:
    explicit QtInteraction(QWidget* parent = nullptr) : m_parent(parent) {}
    void setParent(QWidget* parent) { m_parent = parent; }

    void message(const QString& text) override;
    Answer question(const QString& text) override;
    QString openFile(const FileDialogRequest& request) override;
    QString saveFile(const FileDialogRequest& request) override;

private:
    QWidget* m_parent;
};

// The classic filter "Name (*.a)|*.a|All|*.a;*.b" as Qt's name filters.
QStringList nameFilters(const QString& classicFilter);
