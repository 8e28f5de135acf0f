#include "CodePage.h"

#include <QStringDecoder>

// The tables are taken once from Qt's ICU converters: single-byte code pages
// map byte to character one to one, so a table in each direction is exact,
// and it lets an unknown character become "?" rather than ICU's control code.
// The holes of a page, bytes ICU decodes to no character of their own, get a
// private-use character each, so that every one of the 256 bytes survives a
// trip through text.
CodePage::CodePage(const char* name) : m_name(name)
{
    QStringDecoder decoder(name);
    Q_ASSERT(decoder.isValid());
    for (int b = 0; b < 256; ++b) {
        const char byte = static_cast<char>(b);
        const QString ch = decoder.decode(QByteArrayView(&byte, 1));
        char16_t u = ch.size() == 1 ? ch.at(0).unicode() : char16_t(0xFFFD);
        const bool sustituto = u == 0xFFFD || (u == 0x1A && b != 0x1A);
        if (sustituto || m_fromUnicode.contains(u))
            u = static_cast<char16_t>(kHueco + b);
        m_toUnicode[static_cast<size_t>(b)] = u;
        m_fromUnicode.insert(u, byte);
    }
}

const CodePage& CodePage::forLanguage(int16_t idioma)
{
    static const CodePage western("windows-1252");
    static const CodePage greek("windows-1253");
    static const CodePage central("windows-1250");
    switch (idioma) {
    case 7:
        return greek;
    case 8:
        return central;
    default:
        return western;
    }
}

const char* CodePage::nameForLanguage(int16_t idioma)
{
    return forLanguage(idioma).name();
}

QByteArray CodePage::encode(QStringView text) const
{
    QByteArray out;
    out.reserve(text.size());
    for (const QChar c : text)
        out.append(m_fromUnicode.value(c.unicode(), '?'));
    return out;
}

QString CodePage::decode(QByteArrayView bytes) const
{
    QString out;
    out.reserve(bytes.size());
    for (const char b : bytes)
        out.append(QChar(m_toUnicode[static_cast<unsigned char>(b)]));
    return out;
}

bool CodePage::canEncode(QStringView text) const
{
    for (const QChar c : text)
        if (!m_fromUnicode.contains(c.unicode()))
            return false;
    return true;
}

QByteArray encodeFor(int16_t idioma, QStringView text)
{
    return CodePage::forLanguage(idioma).encode(text);
}

QString decodeFor(int16_t idioma, QByteArrayView bytes)
{
    return CodePage::forLanguage(idioma).decode(bytes);
}
