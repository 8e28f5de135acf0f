#include "CodePage.h"

#include <QStringDecoder>

#ifdef Q_OS_WIN
#include <windows.h>

#include <algorithm>
#include <QHash>
#include <string>
#endif

namespace {

#ifdef Q_OS_WIN
// The number of a code page of Windows by its name.
UINT paginaWindows(const QByteArray& nombre)
{
    static const QHash<QByteArray, UINT> otras = {
        {"Shift_JIS", 932}, {"GBK", 936}, {"Big5", 950}, {"ISO-8859-1", 28591}};
    if (otras.contains(nombre))
        return otras.value(nombre);
    return static_cast<UINT>(nombre.mid(nombre.lastIndexOf('-') + 1).toUInt()); // "windows-1252"
}
#endif

} // namespace

QString decodificarPagina(const char* nombre, QByteArrayView bytes, bool* conocida)
{
#ifdef Q_OS_WIN
    // Qt for Windows is built here without ICU: the system's own pages.
    const UINT pagina = paginaWindows(nombre);
    const int largo = static_cast<int>(bytes.size());
    std::wstring w(static_cast<size_t>(largo) * 2 + 1, L'\0');
    const int hechos = largo == 0 ? 0
                                  : MultiByteToWideChar(pagina, 0, bytes.data(), largo, w.data(),
                                                        static_cast<int>(w.size()));
    if (conocida)
        *conocida = IsValidCodePage(pagina);
    return QString::fromWCharArray(w.data(), std::max(hechos, 0));
#else
    QStringDecoder decoder(nombre);
    if (conocida)
        *conocida = decoder.isValid();
    return decoder.isValid() ? decoder.decode(bytes) : QString();
#endif
}

namespace {

// What the platform's own converter makes of one byte.
QString decodificarByte(const char* name, char byte)
{
    bool conocida = false;
    const QString ch = decodificarPagina(name, QByteArrayView(&byte, 1), &conocida);
    Q_ASSERT(conocida);
    return ch;
}

} // namespace

// The tables are taken once from the platform's converter: single-byte code
// pages map byte to character one to one, so a table in each direction is
// exact, and it lets an unknown character become "?" rather than a control
// code. The holes of a page, bytes the converter gives no character of their
// own (none, a substitute, a C1 control or a private-use character, which
// the converters of the systems fill the holes with differently), get a
// private-use character each of ours, the same everywhere, so that every
// one of the 256 bytes survives a trip through text.
CodePage::CodePage(const char* name) : m_name(name)
{
    for (int b = 0; b < 256; ++b) {
        const char byte = static_cast<char>(b);
        const QString ch = decodificarByte(name, byte);
        char16_t u = ch.size() == 1 ? ch.at(0).unicode() : char16_t(0xFFFD);
        const bool sustituto = u == 0xFFFD || (u == 0x1A && b != 0x1A);
        const bool control = u >= 0x80 && u <= 0x9F;
        const bool privado = u >= 0xE000 && u <= 0xF8FF;
        if (sustituto || control || privado || m_fromUnicode.contains(u))
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
