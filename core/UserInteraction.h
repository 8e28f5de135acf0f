#pragma once

#include <QString>

// How the logic talks to the person. The windows implement it with message
// boxes and file dialogs; tests implement it with scripted answers, so every
// command runs without a screen.
enum class Answer { Yes, No, Cancel };

// A file dialog as the program asks for it: the filter in the classic form
// "Name (*.ext)|*.ext|Other|*.x;*.y", the 1-based index of the group shown
// first, and the file name proposed.
struct FileDialogRequest {
    QString filter;
    int filterIndex = 1;
    QString fileName;
};

class UserInteraction {
public:
    virtual ~UserInteraction() = default;

    // A message with an OK button.
    virtual void message(const QString& text) = 0;
    // A question with the buttons Yes, No and Cancel.
    virtual Answer question(const QString& text) = 0;
    // The chosen path, or an empty text when the person cancelled.
    virtual QString openFile(const FileDialogRequest& request) = 0;
    virtual QString saveFile(const FileDialogRequest& request) = 0;
};

// Nobody to ask: messages are dropped, questions cancelled, dialogs
// cancelled. For the command line's readers, fuzzing and measuring.
class SilentInteraction : public UserInteraction {
public:
    void message(const QString&) override {}
    Answer question(const QString&) override { return Answer::Cancel; }
    QString openFile(const FileDialogRequest&) override { return {}; }
    QString saveFile(const FileDialogRequest&) override { return {}; }
};

// How the logic asks the window to show the shared block again.
class WindowRefresh {
public:
    virtual ~WindowRefresh() = default;
    // Rewrites every caption from the catalogue and redraws the window.
    virtual void refresh() = 0;
};
