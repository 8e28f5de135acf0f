#pragma once

#include <QApplication>

class RuntimeError;

// The application object catches, at every entry from the event loop, what
// the program does not foresee: it is shown once and the program ends at
// once, without the rest of its stop sequence.
class KorvoApplication : public QApplication {
public:
    KorvoApplication(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

[[noreturn]] void terminarConError(const RuntimeError& error);
