#include "Tramas.h"

#include "AdaptaCaracteres.h"
#include "CoordenadasEnvio.h"
#include "ModBase.h"
#include "RuntimeError.h"

namespace {

constexpr int AnchoTexto = 25; // a text's share of a frame, blanks filling it
constexpr int AnchoNombre = 7; // the label name's share of a field frame

// Fills with blanks up to the width; a longer text is not cut, the frame grows.
QByteArray relleno(QByteArray texto, int ancho)
{
    if (texto.size() < ancho)
        texto.append(ancho - texto.size(), ' ');
    return texto;
}

QByteArray textoAdaptado(const ModBase& mb, TablaCaracteres& tabla, const QByteArray& texto)
{
    if (mb.Idioma == 7 || mb.Idioma == 8)
        return AdapTaCharGR(mb, tabla, texto);
    return texto;
}

} // namespace

int CalCheck(const QByteArray& trama)
{
    const qsizetype n = trama.size();
    if (n > trama::MaxCheck)
        throw RuntimeError::subscriptOutOfRange();
    unsigned valor = 0;
    for (const char c : trama) {
        const auto codigo = static_cast<unsigned char>(c);
        valor ^= codigo == 0x7E ? 0u : codigo;
    }
    valor ^= static_cast<unsigned>(n + 2);
    return static_cast<int>((valor & 0x3F) | 0x40);
}

void cerrarTrama(QByteArray& trama)
{
    trama.append(static_cast<char>(CalCheck(trama)));
    trama.append(trama::Terminador);
}

QByteArray TramaApertura(int16_t numEquipo)
{
    QByteArray t;
    t.append(trama::Inicio);
    t.append("440");
    t.append(QByteArray::number(numEquipo));
    t.append('\0');
    t.append(trama::Fin);
    cerrarTrama(t);
    return t;
}

QByteArray TramaCierre()
{
    QByteArray t;
    t.append(trama::Inicio);
    t.append("00");
    t.append('\0');
    t.append('\0');
    t.append(trama::Fin);
    cerrarTrama(t);
    return t;
}

QByteArray TramaTextoLibre(const ModBase& mb, TablaCaracteres& tabla, int indice)
{
    const bool nuevo = mb.ModeloNuevo == 1;
    QByteArray t;
    t.append(trama::Inicio);
    t.append("9:");
    // The new model numbers its fifteen texts with two digits.
    QByteArray numero = QByteArray::number(indice);
    if (nuevo && numero.size() < 2)
        numero.prepend('0');
    t.append(numero);

    QByteArray texto = textoAdaptado(mb, tabla, mb.TextoLibre(indice));
    // Three codes of the code page stand elsewhere in the scale's font. Only
    // the part of a free text the scale prints is looked at, and each
    // character changes once at most. In Polish 209 is a letter of its own.
    const qsizetype hasta = std::min<qsizetype>(texto.size(), AnchoTexto);
    for (qsizetype k = 0; k < hasta; ++k) {
        const auto codigo = static_cast<unsigned char>(texto.at(k));
        if (codigo == 156)
            texto[k] = static_cast<char>(136);
        else if (codigo == 209 && mb.Idioma != 8)
            texto[k] = static_cast<char>(148);
        else if (codigo == 128)
            texto[k] = static_cast<char>(112);
    }
    t.append(relleno(texto, AnchoTexto));
    t.append('\0');
    t.append(trama::Fin);
    cerrarTrama(t);
    return t;
}

QByteArray TramaCampo(const ModBase& mb, const CoordenadasEnvio& coordenadas, int numero)
{
    const Campo& campo = mb.Campos(numero);
    QByteArray t;
    t.append(trama::Inicio);
    t.append("99");
    t.append('\0');
    t.append(mb.TipoEtiqueta);
    t.append('\0');
    t.append(mb.NumEtiqueta);
    t.append('\0');
    t.append(mb.AnchoEtiqueta);
    t.append('\0');
    // The name goes as it was typed: the scale shows it only in its menus.
    t.append(relleno(mb.NombreEtiqueta, AnchoNombre));
    t.append('\0');
    t.append(campo.Codigo);
    t.append('\0');
    t.append(coordenadas.CoordHor(numero));
    t.append(coordenadas.CoordVer(numero));
    t.append(campo.Tamano);
    t.append(campo.Presente);
    t.append('\0');
    t.append(trama::Fin);
    cerrarTrama(t);
    return t;
}

QByteArray TramaTextosFijos(const ModBase& mb, TablaCaracteres& tabla)
{
    QByteArray t;
    t.append(trama::Inicio);
    t.append("90");
    for (int linea = 0; linea <= 1; ++linea) {
        t.append('0');
        t.append('\0');
        t.append(relleno(textoAdaptado(mb, tabla, mb.TextoFijo(linea)), AnchoTexto));
        t.append('\0');
    }
    t.append(trama::Fin);
    cerrarTrama(t);
    return t;
}

int16_t LectorRespuesta::resultado() const
{
    return m_texto.size() >= 4 && m_texto.at(2) == '0' && m_texto.at(3) == '0' ? 0 : 1;
}

bool LectorRespuesta::rechazaApertura() const
{
    return m_texto.size() >= 2 && m_texto.at(1) == 0x15;
}
