#include "RuntimeError.h"

RuntimeError::RuntimeError(int number, const QString& description)
    : std::runtime_error(
          QStringLiteral("Run-time error '%1': %2").arg(number).arg(description).toStdString()),
      m_number(number), m_description(description)
{}

QString RuntimeError::text() const
{
    return QStringLiteral("Run-time error '%1': %2").arg(m_number).arg(m_description);
}

RuntimeError RuntimeError::invalidProcedureCall()
{
    return {5, QStringLiteral("Invalid procedure call or argument")};
}
RuntimeError RuntimeError::overflow()
{
    return {6, QStringLiteral("Overflow")};
}
RuntimeError RuntimeError::outOfMemory()
{
    return {7, QStringLiteral("Out of memory")};
}
RuntimeError RuntimeError::subscriptOutOfRange()
{
    return {9, QStringLiteral("Subscript out of range")};
}
RuntimeError RuntimeError::typeMismatch()
{
    return {13, QStringLiteral("Type mismatch")};
}
RuntimeError RuntimeError::fileNotFound()
{
    return {53, QStringLiteral("File not found")};
}
RuntimeError RuntimeError::inputPastEndOfFile()
{
    return {62, QStringLiteral("Input past end of file")};
}
RuntimeError RuntimeError::fileAlreadyExists()
{
    return {58, QStringLiteral("File already exists")};
}
RuntimeError RuntimeError::permissionDenied()
{
    return {70, QStringLiteral("Permission denied")};
}
RuntimeError RuntimeError::pathFileAccess()
{
    return {75, QStringLiteral("Path/File access error")};
}
RuntimeError RuntimeError::invalidUseOfNull()
{
    return {94, QStringLiteral("Invalid use of Null")};
}
