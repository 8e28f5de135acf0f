#include "DialogoTextos.h"

#include "CatalogoCampos.h"
#include "CodePage.h"
#include "ModBase.h"
#include "TextosLibres.h"

QString mayusculasAlTeclear(int16_t idioma, const QString& tecleado)
{
    const CodePage& cp = CodePage::forLanguage(idioma);
    QString out;
    for (QChar c : tecleado) {
        const QString uno(c);
        if (!cp.canEncode(uno)) {
            out += c;
            continue;
        }
        const auto codigo = static_cast<unsigned char>(cp.encode(uno).at(0));
        if ((codigo >= 'a' && codigo <= 'z') || codigo == 241) {
            const char mayuscula = static_cast<char>(codigo - 32);
            out += cp.decode(QByteArrayView(&mayuscula, 1));
        } else {
            out += c;
        }
    }
    return out;
}

DialogoTXL::DialogoTXL(ModBase& mb) : m_mb(mb)
{
    const bool nuevo = m_mb.ModeloNuevo == 1;
    for (int i = 1; i <= Filas; ++i) {
        f(i).visible = nuevo ? i >= 6 : i <= 5;
        // The old model has no fields for rows 6 to 15.
        m_textoPresente[static_cast<size_t>(i - 1)] = (nuevo || i <= 5) && campoPresente(i);
        m_mb.TXLPendiente(i) = false;
    }
    repintar();
}

bool DialogoTXL::campoPresente(int i) const
{
    const int campo = campoDeTextoLibre(i);
    return campo <= m_mb.camposModelo() && m_mb.Campos(campo).Presente == "1";
}

void DialogoTXL::repintar()
{
    const bool nuevo = m_mb.ModeloNuevo == 1;
    for (int i = 1; i <= Filas; ++i) {
        FilaTXL& fila = f(i);
        if (!fila.visible)
            continue;
        const QByteArray& libre = m_mb.TextoLibre(i - 1);
        if (!libre.isEmpty()) {
            fila.textoVisible = true;
            fila.textoHabilitado = false;
            fila.texto = decodeFor(m_mb.Idioma, libre);
        }
        fila.enEtiqueta = !fila.texto.isEmpty() && campoPresente(i);
        fila.titulo = QString::number(nuevo ? i - 5 : i) + QLatin1Char(' ') + m_mb.Textos(1307);
    }
}

// What was typed in the last row changed and not confirmed is lost.
void DialogoTXL::reponerFilaActual()
{
    const QByteArray& libre = m_mb.TextoLibre(m_filaActual - 1);
    if (libre.isEmpty())
        return;
    FilaTXL& fila = f(m_filaActual);
    fila.textoVisible = true;
    fila.textoHabilitado = false;
    fila.texto = decodeFor(m_mb.Idioma, libre);
}

void DialogoTXL::pulsarFila(int r, bool marcada)
{
    reponerFilaActual();
    FilaTXL& fila = f(r);
    fila.marcada = marcada;
    if (!marcada) {
        if (!m_mb.TextoLibre(r - 1).isEmpty())
            fila.textoHabilitado = false;
        else
            fila.textoVisible = false;
        for (int i = 1; i <= Filas; ++i)
            f(i).marcable = true;
        return;
    }
    fila.textoVisible = true;
    fila.textoHabilitado = true;
    // Row 6 is never filled from the label: the two tests of the rows end
    // short of it on either side, and a label made that way must open the
    // same way here.
    if ((r < 6 && campoPresente(r)) || (r > 6 && campoPresente(r)))
        fila.texto = decodeFor(m_mb.Idioma, m_mb.TextoLibre(r - 1));
    for (int i = 1; i <= Filas; ++i)
        if (i != r)
            f(i).marcable = false;
}

void DialogoTXL::cambiarTexto(int r, const QString& texto)
{
    f(r).texto = texto.left(Longitud);
    m_filaActual = r;
}

void DialogoTXL::aceptar()
{
    const int n = m_mb.textosLibresModelo();
    for (int i = 1; i <= n; ++i) {
        if (!f(i).marcada)
            continue;
        m_mb.Campos(campoDeTextoLibre(i)).Presente = "1";
        m_mb.TextoLibre(i - 1) = encodeFor(m_mb.Idioma, f(i).texto);
        m_mb.TXLCambiado(i) = true;
    }
    for (int i = 1; i <= n; ++i) {
        f(i).marcable = true;
        if (f(i).marcada)
            pulsarFila(i, false);
    }
    repintar();
}

void DialogoTXL::salir()
{
    for (int i = 1; i <= Filas; ++i)
        m_mb.TXLPendiente(i) = !m_textoPresente[static_cast<size_t>(i - 1)] && campoPresente(i);
    GuardarFreetxl(m_mb);
}

QString textoFijoParaCaja(int16_t idioma, const QByteArray& texto)
{
    // The line is looked at from its 25th character back; a shorter line
    // has no 25th character and is shown as it is.
    int j = 25;
    while (j >= 2 && j <= texto.size() && texto.at(j - 1) == ' ')
        --j;
    if (j > texto.size())
        return decodeFor(idioma, texto);
    if (j == 1 && texto.at(0) == ' ')
        return QString();
    return decodeFor(idioma, texto.left(j));
}

void AceptarTXF(ModBase& mb, const QString& linea1, const QString& linea2)
{
    mb.TextoFijo(0) = encodeFor(mb.Idioma, linea1);
    mb.TextoFijo(1) = encodeFor(mb.Idioma, linea2);
    mb.Modificado = true;
}
