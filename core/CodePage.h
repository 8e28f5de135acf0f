#pragma once

#include <array>
#include <cstdint>
#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringView>

// The 8-bit code page of a language: windows-1253 for Greek (7),
// windows-1250 for Polish (8), windows-1252 for every other number.
// It is used only where text meets a person; label data stays as bytes.
class CodePage {
public:
    static const CodePage& forLanguage(int16_t idioma);
    static const char* nameForLanguage(int16_t idioma);

    const char* name() const { return m_name; }
    // A byte that no character of the page stands for (0x81 in the western
    // page, 0xFF in the Greek one) is read as a private-use character of its
    // own, kHueco + the byte, and written back as that byte: label data read
    // for a person and taken back is the data it was. A character the page
    // lacks becomes "?", as the platform's own conversion does.
    static constexpr char16_t kHueco = 0xF700;
    QByteArray encode(QStringView text) const;
    QString decode(QByteArrayView bytes) const;
    // Whether every character of the text has a code in this page.
    bool canEncode(QStringView text) const;

private:
    explicit CodePage(const char* name);

    const char* m_name;
    std::array<char16_t, 256> m_toUnicode{};
    QHash<char16_t, char> m_fromUnicode;
};

// Text in a code page the platform knows, by its name ("windows-1251",
// "Shift_JIS"), for pictures whose texts name their character set: Qt's ICU
// converters, or Windows' own code pages where Qt has no ICU. `conocida`
// tells whether the platform has that page.
QString decodificarPagina(const char* nombre, QByteArrayView bytes, bool* conocida = nullptr);

// Shorthands for the language in force.
QByteArray encodeFor(int16_t idioma, QStringView text);
QString decodeFor(int16_t idioma, QByteArrayView bytes);
