#include "TextTable.h"

#include "RuntimeError.h"

const QString& TextTable::operator()(int id) const
{
    if (id < 0 || id >= m_texts.size())
        throw RuntimeError::subscriptOutOfRange();
    return m_texts[id];
}

void TextTable::redim(int upper)
{
    if (upper < -1)
        throw RuntimeError::subscriptOutOfRange();
    m_texts = QVector<QString>(upper + 1);
}

void TextTable::set(int id, const QString& text)
{
    if (id < 0 || id >= m_texts.size())
        throw RuntimeError::subscriptOutOfRange();
    m_texts[id] = text;
}
