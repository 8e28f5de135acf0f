#include "VistaPrevia.h"

#include "CatalogoCampos.h"
#include "CodePage.h"
#include "FileSystem.h"
#include "ModBase.h"
#include "PicturesIncorporadas.h"

namespace {

// The controls hold single-precision lengths: each change is worked out in
// double precision and stored back as a single, as the window did.
void mas(float& valor, double cambio)
{
    valor = static_cast<float>(static_cast<double>(valor) + cambio);
}

void fija(float& valor, double nuevo)
{
    valor = static_cast<float>(nuevo);
}

// The number that a text reads as, as far as it goes: "60" is 60, "6x" is 6.
double valor(const QByteArray& texto)
{
    const QByteArray t = texto.trimmed();
    int fin = 0;
    while (fin < t.size() &&
           ((t.at(fin) >= '0' && t.at(fin) <= '9') || (fin == 0 && t.at(0) == '-')))
        ++fin;
    return t.left(fin).toDouble();
}

void cargaArchivo(const ModBase& mb, ItemVista& item, const QString& archivo)
{
    // Loaded afresh each time: the files beside the program may change.
    item.imagen = std::make_shared<const Picture>(
        loadPicture(fs::inDataDir(mb, QStringLiteral("res/") + archivo)));
    item.origen = archivo;
}

} // namespace

QString archivoTextoLibre(int n)
{
    return QString::number(n) + QStringLiteral("A.wmf");
}

GeometriaVistaPrevia geometriaVistaPrevia(const ModBase& mb)
{
    GeometriaVistaPrevia g;
    g.altoMarco = static_cast<float>(valor(mb.AnchoEtiqueta));
    // The window is laid out for the 45 frame; the factor is the one the
    // window has always used, a little more than a millimetre in twips.
    g.crecimientoVentanaTwips = (static_cast<double>(g.altoMarco) - 45) * 62.74;
    g.bajadaBoton = g.altoMarco - 45;
    return g;
}

EscenaVista cargaVistaPrevia(const ModBase& mb)
{
    EscenaVista e;
    e.anchoMarco = 57;
    e.altoMarco = geometriaVistaPrevia(mb).altoMarco;

    for (int i = 0; i <= 36; ++i) {
        ItemVista& item = e.ImagenVista(i);
        item.imagen = imagenIncorporada(i);
        // The bar code stands as designed until PintarEtiqueta decides.
        item.Visible = (i == 16);
    }
    // Where the bar code stands in the window's design.
    e.ImagenVista(16).Left = 15;
    e.ImagenVista(16).Top = 17;
    e.ImagenVista(16).Width = 26;
    e.ImagenVista(16).Height = 10;

    if (!mb.RutaFondo.isEmpty())
        e.fondo = std::make_shared<const Picture>(loadPicture(mb.RutaFondo));

    const float tops[] = {0.5f, 4.0f};
    for (int n = 1; n <= 2; ++n) {
        TextoVista& t = e.lbTXF(n);
        const QByteArray& texto = mb.TextoFijo(n - 1);
        // One blank is a text like any other and shows as such.
        t.Visible = !texto.isEmpty();
        t.texto = decodeFor(mb.Idioma, texto);
        t.Left = 5;
        t.Top = tops[n - 1];
        t.Height = 3;
    }

    PintarEtiqueta(e, mb);
    return e;
}

void PintarEtiqueta(EscenaVista& escena, const ModBase& mb)
{
    const int ultimo = mb.ModeloNuevo == 1 ? 36 : 25;
    for (int i = 1; i <= ultimo; ++i) {
        const Campo& campo = mb.Campos(i);
        ItemVista& item = escena.ImagenVista(i);
        if (campo.Presente != "1") {
            item.Visible = false;
            if (i == 11)
                escena.ImagenVista(0).Visible = false;
            continue;
        }
        item.Left = campo.PosHor;
        item.Top = campo.PosVer;
        TamanoCampo(escena, mb, static_cast<int16_t>(i), static_cast<int16_t>(valor(campo.Tamano)));
        item.Visible = true;
    }
}

void TamanoCampo(EscenaVista& escena, const ModBase& mb, int16_t campo, int16_t tamano)
{
    ItemVista& it = escena.ImagenVista(campo);
    // The codes 1 and 2 read the other way round from the menu's words for
    // the lines: the scale's print decides, and the rectangles follow it.
    if (campo >= 1 && campo <= 10) {
        fija(it.Width, 45);
        fija(it.Height, 4.5);
        mas(it.Top, -1.2);
        if (tamano == 1) {
            fija(it.Height, 6);
        } else if (tamano != 0) {
            cargaArchivo(mb, it, QString::fromLatin1(kArchivoDobleAncho));
            if (tamano == 2) {
                fija(it.Width, 47);
                mas(it.Top, 0.2);
            } else if (tamano == 3) {
                fija(it.Width, 47);
                fija(it.Height, 6);
            }
        }
    } else if (campo == 11 || campo == 12) {
        fija(it.Width, 11);
        fija(it.Height, 4);
        mas(it.Top, -0.5);
        if (tamano == 1) {
            mas(it.Top, -0.5);
            mas(it.Left, -0.1);
            fija(it.Width, 11);
            fija(it.Height, 6.5);
        } else if (tamano == 2) {
            fija(it.Width, 23);
            mas(it.Left, 0.5);
        } else if (tamano == 3) {
            mas(it.Top, -0.5);
            mas(it.Left, 0.2);
            fija(it.Width, 23);
            fija(it.Height, 6.5);
        }
        if (campo == 11 && mb.PesoAproximado) {
            // The line under the weight goes by the field's stored place, not
            // by the rectangle just adjusted.
            ItemVista& aprox = escena.ImagenVista(0);
            const Campo& peso = mb.Campos(11);
            if (tamano < 2)
                fija(aprox.Top, peso.PosVer + 3 - 0.5);
            else
                fija(aprox.Top, peso.PosVer + 5 - 0.5);
            fija(aprox.Left, peso.PosHor);
            fija(aprox.Width, 27);
            fija(aprox.Height, 4);
            aprox.Visible = true;
        }
    } else if (campo == 13 || campo == 14) {
        if (campo == 13 && mb.TipoEtiqueta == "T")
            cargaArchivo(mb, it, QString::fromLatin1(kArchivoOperaciones));
        fija(it.Width, 14);
        fija(it.Height, 4);
        mas(it.Top, -0.7);
        if (tamano == 1) {
            mas(it.Top, -0.5);
            fija(it.Width, 14);
            fija(it.Height, 6.5);
        } else if (tamano == 2) {
            fija(it.Width, 31);
        } else if (tamano == 3) {
            fija(it.Width, 31);
            fija(it.Height, 6.5);
            mas(it.Top, -0.5);
        }
    } else if (campo == 15) {
        fija(it.Width, 22);
        fija(it.Height, 3.5);
        mas(it.Top, -0.5);
        if (tamano == 1) {
            mas(it.Top, 0.3);
            fija(it.Height, 5);
        }
    } else if (campo == 16) {
        fija(it.Width, 26);
        fija(it.Height, 10);
    } else if (campo >= 17 && campo <= 19) {
        fija(it.Width, 12);
        fija(it.Height, 3.7);
        if (tamano == 1) {
            fija(it.Width, 13);
            fija(it.Height, 5);
            mas(it.Left, -0.2);
        } else if (tamano == 2) {
            fija(it.Width, 27);
            fija(it.Height, 3);
        } else if (tamano == 3) {
            fija(it.Width, 27);
            fija(it.Height, 5);
        }
    } else if (campo == 20) {
        fija(it.Width, 24);
        fija(it.Height, 4);
        mas(it.Top, -0.5);
        mas(it.Left, -0.3);
        if (tamano == 1) {
            fija(it.Width, 24.5);
            fija(it.Height, 5.5);
            mas(it.Left, -0.2);
        }
    } else if (campo == 26) {
        fija(it.Width, 12);
        fija(it.Height, 3.9);
        mas(it.Top, -0.6);
        if (tamano == 1) {
            fija(it.Height, 6.2);
            mas(it.Top, -0.2);
        } else if (tamano == 2) {
            fija(it.Width, 24);
        } else if (tamano == 3) {
            fija(it.Width, 24);
            fija(it.Height, 6.2);
            mas(it.Top, -0.2);
        }
    } else {
        const int n = textoLibreDeCampo(campo);
        const int largo = static_cast<int>(mb.TextoLibre(n - 1).size());
        fija(it.Width, 45.0 / 25.0 * largo);
        fija(it.Height, 4.5);
        mas(it.Top, -0.8);
        int letras = largo;
        if (tamano == 1) {
            fija(it.Height, 6);
        } else if (tamano == 2 || tamano == 3) {
            // At double width a line holds twelve letters and no more.
            if (largo >= 13) {
                fija(it.Width, 47);
                letras = 12;
            } else {
                fija(it.Width, 47.0 / 12.0 * largo);
            }
            if (tamano == 3)
                fija(it.Height, 6);
        }
        cargaArchivo(mb, it, archivoTextoLibre(letras));
    }
}
