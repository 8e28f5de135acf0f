#pragma once

#include "Arranque.h"
#include "UserInteraction.h"

#include <functional>
#include <QList>
#include <QStringList>

// The person, scripted: every message, question and dialog is written to a
// log, questions take their answers from a queue and file dialogs their paths.
// A question with no answer left is a fault of the test, not a Cancel.
class ScriptedInteraction : public UserInteraction {
public:
    QStringList log;
    QList<Answer> answers;
    QStringList openPaths;
    QStringList savePaths;
    QList<FileDialogRequest> requests;

    void message(const QString& text) override { log.append(QStringLiteral("message: ") + text); }
    Answer question(const QString& text) override;
    QString openFile(const FileDialogRequest& request) override;
    QString saveFile(const FileDialogRequest& request) override;
};

// The splash and the main window of Main, as entries in a log; what the main
// window does while it is open is up to the test.
class ScriptedWindows : public VentanasPrincipales {
public:
    explicit ScriptedWindows(QStringList& log) : m_log(log) {}
    std::function<void(ModBase&)> whileBaseOpen;

    void mostrarSplash(ModBase&) override { m_log.append(QStringLiteral("splash")); }
    void mostrarBase(ModBase& mb) override;

private:
    QStringList& m_log;
};
