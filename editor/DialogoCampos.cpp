#include "DialogoCampos.h"

#include "CatalogoCampos.h"
#include "ModBase.h"
#include "TextosLibres.h"

#include <cstring>

std::array<bool, 10> CargarDES(const ModBase& mb)
{
    std::array<bool, 10> marcadas{};
    for (int i = 1; i <= 10; ++i)
        marcadas[static_cast<size_t>(i - 1)] = mb.Campos(i).Presente == "1";
    return marcadas;
}

QString tituloDES(const ModBase& mb, int i)
{
    return QString::number(i) + QLatin1Char(' ') + mb.Textos(70);
}

void AceptarDES(ModBase& mb, const std::array<bool, 10>& marcadas)
{
    for (int i = 1; i <= 10; ++i) {
        Campo& c = mb.Campos(i);
        if (marcadas[static_cast<size_t>(i - 1)]) {
            if (c.Presente == "0") {
                mb.DESPendiente(i) = true;
                c.Presente = "1";
            }
        } else {
            c.Presente = "0";
        }
    }
    // The pending marks of an earlier choice not yet placed stay with it.
}

int CargarTipoEtiq(const ModBase& mb)
{
    if (mb.TipoEtiqueta == "T")
        return 0;
    if (mb.TipoEtiqueta == "V")
        return 1;
    return -1;
}

void AceptarTipoEtiq(ModBase& mb, int opcion)
{
    if (opcion == 0)
        mb.TipoEtiqueta = "T";
    else if (opcion == 1)
        mb.TipoEtiqueta = "V";
    mb.TextoLibre.fill(QByteArray());
    etiquetaNueva(mb);
}

namespace {

using Uso = CasillaBorrar::Uso;

const std::array<CasillaBorrar, DialogoBorrar::Casillas>& tabla()
{
    static const std::array<CasillaBorrar, DialogoBorrar::Casillas> t = [] {
        std::array<CasillaBorrar, DialogoBorrar::Casillas> c{};
        size_t k = 0;
        for (int i = 1; i <= 10; ++i)
            c[k++] = {"ChBorrarDes", i, 70, i, Uso::Siempre};
        c[k++] = {"ChBorrarPeso", 11, 130, 0, Uso::Siempre};
        c[k++] = {"ChBorrarTara", 12, 74, 0, Uso::Siempre};
        c[k++] = {"ChBorrarPre", 13, 71, 0, Uso::KindV};
        c[k++] = {"ChBorrarImp", 14, 132, 0, Uso::KindV};
        c[k++] = {"ChBorrarOpe", 13, 133, 0, Uso::KindT};
        c[k++] = {"ChBorrarTot", 14, 488, 0, Uso::KindT};
        c[k++] = {"ChBorrarMon", 15, 1314, 0, Uso::Siempre};
        c[k++] = {"ChBorrarCod", 16, 23, 0, Uso::Siempre};
        c[k++] = {"ChBorrarEnv", 17, 1308, 0, Uso::Siempre};
        c[k++] = {"ChBorrarCad", 18, 1309, 0, Uso::Siempre};
        c[k++] = {"ChBorrarCon", 19, 73, 0, Uso::Siempre};
        c[k++] = {"ChBorrarEti", 20, 1310, 0, Uso::KindT};
        for (int i = 1; i <= 15; ++i)
            c[k++] = {"ChBorrarLib", campoDeTextoLibre(i), 1307, i,
                      i <= 5 ? Uso::ModeloViejo : Uso::ModeloNuevo};
        c[k++] = {"ChBorrarLote", 26, 1040, 0, Uso::ModeloNuevo};
        return c;
    }();
    return t;
}

} // namespace

const CasillaBorrar& DialogoBorrar::casillaDef(int k)
{
    return tabla().at(static_cast<size_t>(k));
}

int DialogoBorrar::indice(const char* nombre, int numero)
{
    for (int k = 0; k < Casillas; ++k)
        if (std::strcmp(tabla()[static_cast<size_t>(k)].nombre, nombre) == 0 &&
            tabla()[static_cast<size_t>(k)].numero == numero)
            return k;
    return -1;
}

DialogoBorrar::DialogoBorrar(ModBase& mb) : m_mb(mb)
{
    const bool nuevo = m_mb.ModeloNuevo == 1;
    const TextTable& T = m_mb.Textos;
    for (int k = 0; k < Casillas; ++k) {
        const CasillaBorrar& c = casillaDef(k);
        EstadoCasilla& e = m_estado[static_cast<size_t>(k)];
        const bool presente = m_mb.Campos(c.campo).Presente != "0";
        if (c.uso == Uso::ModeloViejo)
            e.visible = !nuevo;
        else if (c.uso == Uso::ModeloNuevo)
            e.visible = nuevo;

        if (std::strcmp(c.nombre, "ChBorrarLib") == 0) {
            // Only the boxes of the model in force are looked at: on the
            // old model 6 to 15 stay usable, hidden as they are.
            if (c.numero <= m_mb.textosLibresModelo() && !presente)
                e.habilitada = false;
            e.titulo =
                T(1307) + QLatin1Char(' ') + QString::number(nuevo ? c.numero - 5 : c.numero);
        } else if (c.numero > 0) {
            e.habilitada = presente;
            e.titulo = T(c.texto) + QLatin1Char(' ') + QString::number(c.numero);
        } else if (c.campo == 26) {
            // The lot takes its words from the catalogue only when it is
            // not on a new-model label; otherwise it keeps its own.
            e.titulo = QStringLiteral("Lote");
            if (!presente) {
                e.habilitada = false;
                if (nuevo)
                    e.titulo = T(c.texto);
            }
        } else {
            e.habilitada = presente;
            if (c.uso == Uso::KindV && m_mb.TipoEtiqueta != "V")
                e.habilitada = false;
            if (c.uso == Uso::KindT && m_mb.TipoEtiqueta != "T")
                e.habilitada = false;
            e.titulo = T(c.texto);
        }
    }
}

void DialogoBorrar::marcar(int k, bool marcada)
{
    m_estado.at(static_cast<size_t>(k)).marcada = marcada;
}

void DialogoBorrar::seleccionarTodo()
{
    for (EstadoCasilla& e : m_estado)
        if (e.habilitada)
            e.marcada = true;
}

bool DialogoBorrar::cuenta(int k) const
{
    const CasillaBorrar& c = casillaDef(k);
    switch (c.uso) {
    case Uso::KindV:
        return m_mb.TipoEtiqueta == "V";
    case Uso::KindT:
        return m_mb.TipoEtiqueta == "T";
    case Uso::ModeloNuevo:
        return c.campo != 26 || m_mb.ModeloNuevo == 1;
    default:
        return true;
    }
}

void DialogoBorrar::aceptar()
{
    for (int k = 0; k < Casillas; ++k) {
        if (!m_estado[static_cast<size_t>(k)].marcada || !cuenta(k))
            continue;
        InicializarCampo(m_mb, casillaDef(k).campo);
        m_mb.Modificado = true;
    }
}
