#pragma once

#include <QString>
#include <QVector>

// The localised texts by id, from 0 to the highest id of the catalogue.
// Ids the catalogue lacks below the highest are empty; an id above it is the
// program's "Subscript out of range" at the point of use.
class TextTable {
public:
    const QString& operator()(int id) const;

    // Drops every text and makes room for ids 0..upper, all empty.
    void redim(int upper);
    void set(int id, const QString& text);
    int upperBound() const { return m_texts.size() - 1; }
    bool isEmpty() const { return m_texts.isEmpty(); }

private:
    QVector<QString> m_texts;
};
