#include "Historial.h"

#include "EditorEtiqueta.h"
#include "ModBase.h"

namespace {

// The catalogue's words for the two entries and for what a step changed.
constexpr int kDeshacer = 2200, kRehacer = 2201;
constexpr int kMover = 2202, kColocar = 2203, kBorrar = 2204, kTamano = 2205, kNombre = 2206,
              kAncho = 2207, kTextos = 2208, kCambio = 2209;

bool mismoCampo(const Campo& a, const Campo& b)
{
    Campo c = b;
    c.Seleccionado = a.Seleccionado;
    return a == c;
}

bool presente(const Campo& c)
{
    return c.Presente == "1";
}

} // namespace

EstadoEtiqueta EstadoEtiqueta::de(const ModBase& mb, const FileCommands& files)
{
    return {mb.Campos,      mb.TextoFijo,     mb.TextoLibre,     mb.TipoEtiqueta,
            mb.NumEtiqueta, mb.AnchoEtiqueta, mb.NombreEtiqueta, files.controles};
}

void EstadoEtiqueta::aplicar(ModBase& mb, FileCommands& files) const
{
    mb.Campos = Campos;
    mb.TextoFijo = TextoFijo;
    mb.TextoLibre = TextoLibre;
    mb.TipoEtiqueta = TipoEtiqueta;
    mb.NumEtiqueta = NumEtiqueta;
    mb.AnchoEtiqueta = AnchoEtiqueta;
    mb.NombreEtiqueta = NombreEtiqueta;
    files.controles = controles;
}

bool EstadoEtiqueta::mismaEtiqueta(const EstadoEtiqueta& o) const
{
    for (int j = 1; j <= 36; ++j)
        if (!mismoCampo(Campos(j), o.Campos(j)))
            return false;
    return TextoFijo(0) == o.TextoFijo(0) && TextoFijo(1) == o.TextoFijo(1) &&
           [&] {
               for (int i = 0; i <= 14; ++i)
                   if (TextoLibre(i) != o.TextoLibre(i))
                       return false;
               return true;
           }() &&
           TipoEtiqueta == o.TipoEtiqueta && NumEtiqueta == o.NumEtiqueta &&
           AnchoEtiqueta == o.AnchoEtiqueta && NombreEtiqueta == o.NombreEtiqueta &&
           controles.TxtNomEtiq == o.controles.TxtNomEtiq && controles.VSVer == o.controles.VSVer;
}

int Historial::clase(const EstadoEtiqueta& antes, const EstadoEtiqueta& despues)
{
    bool textos =
        antes.TextoFijo(0) != despues.TextoFijo(0) || antes.TextoFijo(1) != despues.TextoFijo(1);
    for (int i = 0; i <= 14; ++i)
        textos = textos || antes.TextoLibre(i) != despues.TextoLibre(i);
    const bool nombre = antes.NombreEtiqueta != despues.NombreEtiqueta;
    const bool ancho = antes.AnchoEtiqueta != despues.AnchoEtiqueta;
    const bool cabecera =
        antes.TipoEtiqueta != despues.TipoEtiqueta || antes.NumEtiqueta != despues.NumEtiqueta;
    int puestos = 0, quitados = 0, movidos = 0, tamanos = 0;
    for (int j = 1; j <= 36; ++j) {
        const Campo& a = antes.Campos(j);
        const Campo& d = despues.Campos(j);
        if (mismoCampo(a, d))
            continue;
        if (presente(a) != presente(d))
            (presente(d) ? puestos : quitados)++;
        else if (a.Tamano != d.Tamano)
            tamanos++;
        else
            movidos++;
    }
    const int campos = puestos + quitados + movidos + tamanos;
    const int partes = (campos > 0) + textos + nombre + ancho + cabecera;
    if (partes != 1)
        return kCambio;
    if (nombre)
        return kNombre;
    if (ancho)
        return kAncho;
    if (textos)
        return kTextos;
    if (cabecera)
        return kCambio;
    if (campos == quitados)
        return kBorrar;
    if (quitados == 0 && puestos > 0)
        return kColocar;
    if (campos == movidos)
        return kMover;
    if (campos == tamanos)
        return kTamano;
    return kCambio;
}

Historial::Historial(ModBase& mb, FileCommands& files, EditorView& view)
    : m_mb(mb), m_files(files), m_view(view)
{
    reiniciar();
}

void Historial::reiniciar()
{
    m_pasos = {Paso{EstadoEtiqueta::de(m_mb, m_files), 0}};
    m_actual = 0;
    m_guardado = 0;
    m_generacion = m_files.generacion;
    m_guardados = m_files.guardados;
    m_escribiendoNombre = false;
}

void Historial::registrar()
{
    if (m_generacion != m_files.generacion) {
        reiniciar();
        return;
    }
    EstadoEtiqueta ahora = EstadoEtiqueta::de(m_mb, m_files);
    const bool guardado = m_guardados != m_files.guardados;
    m_guardados = m_files.guardados;
    if (guardado && !m_mb.Modificado) {
        // The files hold this label now (a save may also pad the name).
        m_pasos[m_actual].estado = std::move(ahora);
        m_guardado = m_actual;
        m_escribiendoNombre = false;
        return;
    }
    if (guardado)
        m_guardado = m_actual; // saved first, then changed
    Paso& actual = m_pasos[m_actual];
    if (ahora.mismaEtiqueta(actual.estado)) {
        // The selection is kept with the step, so that undo brings it back.
        actual.estado = std::move(ahora);
        return;
    }
    const int id = clase(actual.estado, ahora);
    // Typing in the name box is one step however many keys it takes.
    if (id == kNombre && m_escribiendoNombre && m_guardado != m_actual) {
        actual.estado = std::move(ahora);
        return;
    }
    m_pasos.erase(m_pasos.begin() + m_actual + 1, m_pasos.end());
    if (m_guardado > m_actual)
        m_guardado = -1;
    m_pasos.append(Paso{std::move(ahora), id});
    if (m_pasos.size() > kPasosMax) {
        m_pasos.removeFirst();
        m_guardado = m_guardado > 0 ? m_guardado - 1 : -1;
    }
    m_actual = static_cast<int>(m_pasos.size()) - 1;
    m_escribiendoNombre = id == kNombre;
}

void Historial::orden(const std::function<void()>& f)
{
    f();
    registrar();
}

void Historial::ir(int indice)
{
    m_actual = indice;
    m_escribiendoNombre = false;
    m_pasos[m_actual].estado.aplicar(m_mb, m_files);
    m_mb.Modificado = m_actual != m_guardado;
    m_view.repintarVentana();
    // The repaint may mend a record (a box pushed back inside): the step is
    // the label as it then stands.
    m_pasos[m_actual].estado = EstadoEtiqueta::de(m_mb, m_files);
}

void Historial::deshacer()
{
    registrar();
    if (puedeDeshacer())
        ir(m_actual - 1);
}

void Historial::rehacer()
{
    registrar();
    if (puedeRehacer())
        ir(m_actual + 1);
}

QString Historial::captionDeshacer() const
{
    const TextTable& T = m_mb.Textos;
    const QString que = puedeDeshacer() ? T(m_pasos[m_actual].textId) : QString();
    return T(kDeshacer).arg(que).trimmed();
}

QString Historial::captionRehacer() const
{
    const TextTable& T = m_mb.Textos;
    const QString que = puedeRehacer() ? T(m_pasos[m_actual + 1].textId) : QString();
    return T(kRehacer).arg(que).trimmed();
}
