#include "ScriptedInteraction.h"

#include "ModBase.h"

#include <stdexcept>

Answer ScriptedInteraction::question(const QString& text)
{
    log.append(QStringLiteral("question: ") + text);
    if (answers.isEmpty())
        throw std::logic_error("a question nobody scripted an answer for");
    return answers.takeFirst();
}

QString ScriptedInteraction::openFile(const FileDialogRequest& request)
{
    log.append(QStringLiteral("open: ") + request.filter);
    requests.append(request);
    return openPaths.isEmpty() ? QString() : openPaths.takeFirst();
}

QString ScriptedInteraction::saveFile(const FileDialogRequest& request)
{
    log.append(QStringLiteral("save: ") + request.filter);
    requests.append(request);
    return savePaths.isEmpty() ? QString() : savePaths.takeFirst();
}

void ScriptedWindows::mostrarBase(ModBase& mb)
{
    m_log.append(QStringLiteral("base"));
    if (whileBaseOpen)
        whileBaseOpen(mb);
}
