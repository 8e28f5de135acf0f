#pragma once

#include <QString>
#include <stdexcept>

// What the program does not foresee ends it, with a number and a description
// in the manner of a classic runtime: "Run-time error '9': Subscript out of range".
// It is thrown where it happens and caught only at the top, which shows it once
// and ends the program without running the rest of its stop sequence.
class RuntimeError : public std::runtime_error {
public:
    RuntimeError(int number, const QString& description);

    int number() const { return m_number; }
    QString description() const { return m_description; }
    // The text shown to the person: "Run-time error '9': Subscript out of range".
    QString text() const;

    static RuntimeError invalidProcedureCall(); // 5
    static RuntimeError overflow();             // 6
    static RuntimeError outOfMemory();          // 7
    static RuntimeError subscriptOutOfRange();  // 9
    static RuntimeError typeMismatch();         // 13
    static RuntimeError fileNotFound();         // 53
    static RuntimeError inputPastEndOfFile();   // 62
    static RuntimeError fileAlreadyExists();    // 58
    static RuntimeError permissionDenied();     // 70
    static RuntimeError pathFileAccess();       // 75
    static RuntimeError invalidUseOfNull();     // 94

private:
    int m_number;
    QString m_description;
};
