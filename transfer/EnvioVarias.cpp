#include "EnvioVarias.h"

#include "CodePage.h"
#include "FileCommands.h"
#include "FileSystem.h"
#include "UserInteraction.h"

EnvioVarias::EnvioVarias(const ModBase& mb, UserInteraction& persona) : m_mb(mb), m_persona(persona)
{}

EnvioVarias::~EnvioVarias() = default;

QString EnvioVarias::ruta() const
{
    return fs::inProgramDir(m_mb, QStringLiteral("scales.csv"));
}

bool EnvioVarias::cargar()
{
    m_balanzas.clear();
    m_marcadas.clear();
    if (!fs::fileExists(ruta())) {
        m_persona.message(m_mb.Textos(2105) + '\n' + ruta());
        return false;
    }
    QStringList errores;
    m_balanzas = leerListaBalanzas(fs::readAll(ruta()), ajustesLinea(m_mb), errores);
    if (!errores.isEmpty()) {
        m_persona.message(m_mb.Textos(2106) + '\n' + ruta() + '\n' + errores.join('\n'));
        return false;
    }
    m_marcadas = QList<bool>(m_balanzas.size(), true);
    return true;
}

void EnvioVarias::marcar(int fila, bool si)
{
    if (fila >= 0 && fila < m_marcadas.size() && !enCurso())
        m_marcadas[fila] = si;
}

bool EnvioVarias::enviar(bool conTraza, bool todas)
{
    if (enCurso())
        return false;
    const QString conjunto = m_mb.ArchivoActual;
    if (todas && (conjunto.isEmpty() || !fs::fileExists(conjunto) || esArchivoEtiqueta(conjunto))) {
        m_persona.message(m_mb.Textos(2115));
        return false;
    }
    m_rutaTraza.clear();
    if (conTraza) {
        m_rutaTraza = m_persona.saveFile(
            {m_mb.Textos(2113) + QStringLiteral(" (*.txt)|*.txt"), 1, QStringLiteral("trace.txt")});
        if (m_rutaTraza.isEmpty())
            return false;
    }
    QList<BalanzaLista> elegidas;
    m_filas.clear();
    for (int i = 0; i < m_balanzas.size(); ++i)
        if (m_marcadas.at(i)) {
            elegidas.append(m_balanzas.at(i));
            m_filas.append(i);
        }
    if (elegidas.isEmpty())
        return false;
    m_flota.reset();
    m_traza = m_rutaTraza.isEmpty() ? nullptr : std::make_unique<TrazaEnvio>();
    m_todas = todas;
    QList<EtiquetaEnvio> etiquetas;
    if (todas) {
        m_conjunto = std::make_unique<EtiquetasConjunto>(m_mb, conjunto);
        etiquetas = m_conjunto->etiquetas();
    } else {
        m_etiqueta = m_mb;
        etiquetas.append(
            {decodeFor(m_etiqueta.Idioma, m_etiqueta.TipoEtiqueta + m_etiqueta.NumEtiqueta),
             &m_etiqueta});
    }
    m_flota = std::make_unique<Flota>(etiquetas, elegidas, m_mb.programDir, m_traza.get());
    connect(m_flota.get(), &Flota::progreso, this, [this](int i) { emit progreso(m_filas.at(i)); });
    connect(m_flota.get(), &Flota::balanzaTerminada, this,
            [this](int i) { emit terminada(m_filas.at(i)); });
    connect(m_flota.get(), &Flota::terminado, this, [this] {
        if (m_traza)
            m_traza->guardar(m_rutaTraza);
        emit terminado();
    });
    m_flota->iniciar();
    return true;
}

const Flota::Resultado* EnvioVarias::resultado(int fila) const
{
    if (!m_flota)
        return nullptr;
    const int i = static_cast<int>(m_filas.indexOf(fila));
    return i < 0 ? nullptr : &m_flota->resultado(i);
}

QString EnvioVarias::textoResultado(int fila) const
{
    const Flota::Resultado* r = resultado(fila);
    if (!r || !r->terminada)
        return QString();
    if (r->ok)
        return m_mb.Textos(2111);
    return m_todas && !r->etiqueta.isEmpty() ? r->etiqueta + QStringLiteral(": ") + r->mensaje
                                             : r->mensaje;
}
