#pragma once

#include "FileCommands.h"
#include "ModBase.h"
#include "UserInteraction.h"

#include <memory>
#include <QStringList>
#include <stdexcept>

// A mistake in how the command was called: said on stderr, exit 2.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The person at a terminal: messages go to stderr; there is nobody to answer
// a question or a file dialog.
class ConsoleInteraction : public UserInteraction {
public:
    void message(const QString& text) override;
    Answer question(const QString& text) override;
    QString openFile(const FileDialogRequest&) override { return {}; }
    QString saveFile(const FileDialogRequest&) override { return {}; }
};

// The program's state as the designer would have it at start: cfg.ini read
// (never written), the model from the marker file, the catalogue loaded,
// each overridable from the command line.
struct CliContext {
    ModBase mb;
    ConsoleInteraction ui;
    HeadlessView window;
    FileCommands files{mb, ui, window};

    // Takes the global options off the front of args.
    void configure(QStringList& args);

    // Opens FILE as the designer would and unfolds one label: the one named
    // by `--label KN`, else the one the open command shows.
    void load(const QString& path, const QString& label);
};

// Takes `--name value` off args; empty when absent.
QString takeOption(QStringList& args, const QString& name);
bool takeFlag(QStringList& args, const QString& name);

int cmdShow(CliContext& ctx, QStringList args);
int cmdExport(CliContext& ctx, QStringList args);
int cmdCheck(CliContext& ctx, QStringList args);
int cmdPreview(CliContext& ctx, QStringList args);
int cmdFrames(CliContext& ctx, QStringList args);
int cmdSend(CliContext& ctx, QStringList args);
