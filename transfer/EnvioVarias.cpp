#include "EnvioVarias.h"

#include "FileSystem.h"
#include "UserInteraction.h"

EnvioVarias::EnvioVarias(const ModBase& mb, UserInteraction& persona)
    : m_mb(mb), m_persona(persona)
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

bool EnvioVarias::enviar(bool conTraza)
{
    if (enCurso())
        return false;
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
    m_etiqueta = m_mb;
    m_flota.reset();
    m_traza = m_rutaTraza.isEmpty() ? nullptr : std::make_unique<TrazaEnvio>();
    const QString nombre = QString::fromLatin1(m_etiqueta.TipoEtiqueta + m_etiqueta.NumEtiqueta);
    m_flota = std::make_unique<Flota>(QList<EtiquetaEnvio>{{nombre, &m_etiqueta}}, elegidas,
                                      m_mb.programDir, m_traza.get());
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
