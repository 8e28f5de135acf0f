#include "Flota.h"

#include "CodePage.h"
#include "FileCommands.h"
#include "FileSystem.h"
#include "ModBase.h"
#include "PuertoTcp.h"
#include "RuntimeError.h"
#include "TextLines.h"

#include <QDateTime>
#include <QEventLoop>
#include <QHash>
#include <QRegularExpression>

namespace {

// The columns of a list of scales; the first three must be there.
const QStringList kColumnas = {QStringLiteral("name"),   QStringLiteral("port"),
                               QStringLiteral("equipo"), QStringLiteral("baud"),
                               QStringLiteral("parity"), QStringLiteral("data"),
                               QStringLiteral("stop")};

constexpr int kMaxErrores = 20;

bool puertoValido(const QString& puerto)
{
    static const QRegularExpression com(QStringLiteral("^COM[1-4]$"),
                                        QRegularExpression::CaseInsensitiveOption);
    return direccionTcp(puerto) || com.match(puerto).hasMatch() || puerto.startsWith('/');
}

// One value of a short list, or the default when empty; false when neither.
template <typename T>
bool valorDe(const QString& texto, const QStringList& opciones, const QList<T>& valores, T& destino)
{
    if (texto.isEmpty())
        return true;
    const int at = opciones.indexOf(texto.toUpper());
    if (at < 0)
        return false;
    destino = valores.at(at);
    return true;
}

QString enUnaLinea(const QStringList& mensajes)
{
    QStringList partes;
    for (QString m : mensajes)
        partes.append(m.replace('\n', ' '));
    return partes.join(QStringLiteral(" / "));
}

} // namespace

QList<BalanzaLista> leerListaBalanzas(const QByteArray& texto, const AjustesLinea& porDefecto,
                                      QStringList& errores)
{
    errores.clear();
    QList<BalanzaLista> balanzas;
    const QList<QByteArray> lineas = texto.split('\n');
    QStringList cabecera;
    QHash<QString, int> vistos; // name, in lower case -> its line
    int primera = 0;
    for (int i = 0; i < lineas.size(); ++i) {
        const QString linea = QString::fromUtf8(lineas.at(i)).trimmed();
        if (linea.isEmpty())
            continue;
        const int n = i + 1;
        // A person fixes the first mistakes first; a file that is no list
        // at all is not told line by line to its end.
        if (errores.size() >= kMaxErrores) {
            errores.append(QStringLiteral("line %1: reading stopped after %2 mistakes")
                               .arg(n)
                               .arg(kMaxErrores));
            return {};
        }
        QStringList campos = linea.split(',');
        for (QString& c : campos)
            c = c.trimmed();
        if (cabecera.isEmpty()) {
            primera = n;
            for (QString& c : campos)
                c = c.toLower();
            cabecera = campos;
            for (int k = 0; k < campos.size(); ++k) {
                const QString& c = campos.at(k);
                if (!kColumnas.contains(c))
                    errores.append(
                        QStringLiteral("line %1: unknown column '%2' (the columns are %3)")
                            .arg(n)
                            .arg(c, kColumnas.join(',')));
                else if (campos.indexOf(c) != k)
                    errores.append(QStringLiteral("line %1: column '%2' twice").arg(n).arg(c));
            }
            for (int k = 0; k < 3; ++k)
                if (!campos.contains(kColumnas.at(k)))
                    errores.append(
                        QStringLiteral("line %1: no column '%2'").arg(n).arg(kColumnas.at(k)));
            // The lines below cannot be read against a header that is wrong.
            if (!errores.isEmpty())
                return {};
            continue;
        }
        if (campos.size() != cabecera.size()) {
            errores.append(QStringLiteral("line %1: %2 values where the header has %3 columns")
                               .arg(n)
                               .arg(campos.size())
                               .arg(cabecera.size()));
            continue;
        }
        const auto valor = [&](const QString& columna) {
            const int at = cabecera.indexOf(columna);
            return at < 0 ? QString() : campos.at(at);
        };
        BalanzaLista b;
        b.linea = n;
        b.nombre = valor(QStringLiteral("name"));
        b.puerto = valor(QStringLiteral("port"));
        b.ajustes = porDefecto;
        const auto error = [&](const QString& que) {
            errores.append(QStringLiteral("line %1: %2").arg(n).arg(que));
        };
        bool bien = true;
        if (b.nombre.isEmpty()) {
            error(QStringLiteral("no name"));
            bien = false;
        } else if (const auto otra = vistos.constFind(b.nombre.toLower());
                   otra != vistos.constEnd()) {
            error(QStringLiteral("the name '%1' is also on line %2").arg(b.nombre).arg(*otra));
            bien = false;
        } else {
            vistos.insert(b.nombre.toLower(), n);
        }
        if (!puertoValido(b.puerto)) {
            error(QStringLiteral("bad port '%1' (a device path, COM1..COM4 or tcp://HOST:PORT)")
                      .arg(b.puerto));
            bien = false;
        }
        const QString equipo = valor(QStringLiteral("equipo"));
        bool numero = true;
        const int e = equipo.isEmpty() ? 1 : equipo.toInt(&numero);
        if (!numero || e < 0 || e > 99) {
            error(QStringLiteral("bad equipo '%1' (the scale's number, 0 to 99)").arg(equipo));
            bien = false;
        }
        b.equipo = static_cast<int16_t>(e);
        if (!valorDe<int>(valor(QStringLiteral("baud")), textosVelocidades(),
                          QList<int>(kVelocidades.begin(), kVelocidades.end()),
                          b.ajustes.baudios)) {
            error(QStringLiteral("bad baud '%1' (%2)")
                      .arg(valor("baud"), textosVelocidades().join(QStringLiteral(", "))));
            bien = false;
        }
        if (!valorDe<char>(valor(QStringLiteral("parity")), {"N", "E", "O"}, {'N', 'E', 'O'},
                           b.ajustes.paridad)) {
            error(QStringLiteral("bad parity '%1' (N, E, O)").arg(valor("parity")));
            bien = false;
        }
        if (!valorDe<int>(valor(QStringLiteral("data")), {"7", "8"}, {7, 8}, b.ajustes.bitsDatos)) {
            error(QStringLiteral("bad data '%1' (7, 8)").arg(valor("data")));
            bien = false;
        }
        if (!valorDe<int>(valor(QStringLiteral("stop")), {"1", "2"}, {1, 2},
                          b.ajustes.bitsParada)) {
            error(QStringLiteral("bad stop '%1' (1, 2)").arg(valor("stop")));
            bien = false;
        }
        if (bien)
            balanzas.append(b);
    }
    if (cabecera.isEmpty())
        errores.append(QStringLiteral("line 1: the list is empty"));
    else if (balanzas.isEmpty() && errores.isEmpty())
        errores.append(QStringLiteral("line %1: a header and no scale").arg(primera));
    if (!errores.isEmpty())
        balanzas.clear();
    return balanzas;
}

EtiquetasConjunto::EtiquetasConjunto(const ModBase& mb, const QString& ruta)
{
    ModBase bloque = mb;
    SilentInteraction persona;
    HeadlessView vista;
    FileCommands archivos{bloque, persona, vista};
    const int primera = bloque.ModeloNuevo ? 3 : 1;
    archivos.controles.VSEtiqMin = primera;
    archivos.IniciaLineas();
    bloque.ArchivoActual = ruta;
    archivos.ArchivoConjunto = ruta;
    archivos.leerArchivoConjunto(ruta);
    for (const bool total : {false, true})
        for (int n = primera; n <= 5; ++n) {
            archivos.CargarEtiquetaConjunto(total ? n + (bloque.ModeloNuevo ? 3 : 5) : n);
            m_bloques.push_back(bloque);
            const ModBase& b = m_bloques.back();
            m_etiquetas.append({decodeFor(b.Idioma, b.TipoEtiqueta + b.NumEtiqueta), &b});
        }
}

QString descripcionTrama(const ModBase& mb, Envio::Fase fase, int indice)
{
    switch (fase) {
    case Envio::Fase::Apertura:
        return QStringLiteral("opening");
    case Envio::Fase::TextosLibres:
        return QStringLiteral("free text %1").arg(indice + 1);
    case Envio::Fase::Campos:
        return QStringLiteral("field %1 (%2)")
            .arg(indice)
            .arg(QString::fromLatin1(mb.Campos(indice).Codigo));
    case Envio::Fase::TextosFijos:
        return QStringLiteral("fixed texts");
    case Envio::Fase::Cierre:
        return QStringLiteral("closing");
    case Envio::Fase::Parado:
        break;
    }
    return QString();
}

void TrazaEnvio::seguir(Envio& envio, const QString& balanza, const EtiquetaEnvio& etiqueta)
{
    const auto linea = [this, balanza, etiqueta](const char* sentido, Envio::Fase fase, int indice,
                                                 const QByteArray& bytes,
                                                 const QString& veredicto) {
        QString l = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs) + '\t' + balanza +
                    '\t' + etiqueta.nombre + '\t' + QLatin1String(sentido) + '\t' +
                    descripcionTrama(*etiqueta.mb, fase, indice) + '\t' +
                    QString::fromLatin1(bytes.toHex(' ').toUpper());
        if (!veredicto.isEmpty())
            l += '\t' + veredicto;
        m_texto += l.toUtf8() + '\n';
    };
    QObject::connect(&envio, &Envio::tramaEnviada, &envio,
                     [linea](Envio::Fase fase, int indice, const QByteArray& trama) {
                         linea("->", fase, indice, trama, QString());
                     });
    QObject::connect(&envio, &Envio::respuestaRecibida, &envio,
                     [linea](Envio::Fase fase, int indice, const QByteArray& r, int resultado) {
                         QString veredicto;
                         if (resultado == 0)
                             veredicto = QStringLiteral("accepted");
                         else if (r.isEmpty())
                             veredicto =
                                 QStringLiteral("no reply within %1 ms").arg(Envio::EsperaMs);
                         else if (!r.endsWith(trama::Terminador))
                             veredicto = QStringLiteral("reply cut short by the wait");
                         else
                             veredicto = QStringLiteral("refused");
                         linea("<-", fase, indice, r, veredicto);
                     });
}

void TrazaEnvio::nota(const QString& balanza, const QString& texto)
{
    m_texto += (QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs) + '\t' + balanza +
                QStringLiteral("\t\t--\t") + texto + '\n')
                   .toUtf8();
}

void TrazaEnvio::guardar(const QString& ruta) const
{
    fs::writeAll(ruta, m_texto);
}

// One scale of the fleet: its port for the whole series, the person and the
// progress bar its transfers talk to, the transfer in hand.
struct Flota::Unidad {
    BalanzaLista balanza;
    std::unique_ptr<PuertoSerie> puerto;
    MensajesGuardados persona;
    struct Progreso : ProgresoEnvio {
        Flota* flota = nullptr;
        int indice = 0;
        Resultado* r = nullptr;
        void setMaximo(int m) override { r->maximo = std::max(1, m); }
        void setValor(int v) override
        {
            r->valor = v;
            emit flota->progreso(indice);
        }
        void setTexto(const QString&) override {}
    } progreso;
    std::unique_ptr<Envio> envio;
    int etiqueta = 0; // the next label to send
    Resultado r;
};

Flota::Flota(const QList<EtiquetaEnvio>& etiquetas, const QList<BalanzaLista>& balanzas,
             const QString& programDir, TrazaEnvio* traza)
    : m_etiquetas(etiquetas), m_programDir(programDir), m_traza(traza)
{
    for (int i = 0; i < balanzas.size(); ++i) {
        auto u = std::make_unique<Unidad>();
        u->balanza = balanzas.at(i);
        u->progreso.flota = this;
        u->progreso.indice = i;
        u->progreso.r = &u->r;
        m_unidades.push_back(std::move(u));
    }
}

// The transfers go first: each closes the port it was given.
Flota::~Flota()
{
    for (auto& u : m_unidades)
        u->envio.reset();
}

const BalanzaLista& Flota::balanza(int i) const
{
    return m_unidades.at(static_cast<size_t>(i))->balanza;
}

const Flota::Resultado& Flota::resultado(int i) const
{
    return m_unidades.at(static_cast<size_t>(i))->r;
}

int Flota::terminadas() const
{
    int n = 0;
    for (const auto& u : m_unidades)
        n += u->r.terminada ? 1 : 0;
    return n;
}

void Flota::iniciar()
{
    m_pendientes = cuantas();
    if (m_pendientes == 0) {
        emit terminado();
        return;
    }
    for (auto& u : m_unidades) {
        u->puerto = crearPuerto(m_programDir, u->balanza.puerto);
        if (!u->puerto) {
            u->r.mensaje = QStringLiteral("bad port %1").arg(u->balanza.puerto);
            cerrar(*u);
            continue;
        }
        siguiente(*u);
    }
}

void Flota::ejecutar()
{
    QEventLoop bucle;
    connect(this, &Flota::terminado, &bucle, &QEventLoop::quit);
    iniciar();
    if (enCurso())
        bucle.exec();
}

void Flota::siguiente(Unidad& u)
{
    if (u.etiqueta >= m_etiquetas.size()) {
        u.r.ok = true;
        cerrar(u);
        return;
    }
    const EtiquetaEnvio& e = m_etiquetas.at(u.etiqueta);
    u.persona.mensajes.clear();
    u.envio = std::make_unique<Envio>(*e.mb, *u.puerto, u.persona, u.progreso);
    if (m_traza)
        m_traza->seguir(*u.envio, u.balanza.nombre, e);
    connect(u.envio.get(), &Envio::terminado, this, [this, &u] { alTerminar(u); });
    u.envio->cargar();
    u.envio->dirigir(u.balanza.equipo, u.balanza.ajustes);
    u.envio->iniciar();
}

void Flota::alTerminar(Unidad& u)
{
    // Out of the transfer's own signal: the next one starts, or the scale
    // ends, once this one has returned.
    QMetaObject::invokeMethod(
        this,
        [this, &u] {
            const EtiquetaEnvio& e = m_etiquetas.at(u.etiqueta);
            QString mensaje = enUnaLinea(u.persona.mensajes);
            if (const std::exception_ptr error = u.envio->error()) {
                try {
                    std::rethrow_exception(error);
                } catch (const RuntimeError& re) {
                    mensaje = re.text();
                } catch (const std::exception& x) {
                    mensaje = QString::fromLocal8Bit(x.what());
                }
                u.envio.reset();
            } else if (u.envio->estadoEnvio() == 0) {
                u.envio.reset();
                ++u.r.enviadas;
                if (m_traza)
                    m_traza->nota(u.balanza.nombre, e.nombre + QStringLiteral(": accepted"));
                ++u.etiqueta;
                siguiente(u);
                return;
            }
            u.envio.reset();
            u.r.etiqueta = e.nombre;
            u.r.mensaje = mensaje;
            if (m_traza)
                m_traza->nota(u.balanza.nombre, e.nombre + QStringLiteral(": failed: ") + mensaje);
            cerrar(u);
        },
        Qt::QueuedConnection);
}

void Flota::cerrar(Unidad& u)
{
    u.r.terminada = true;
    u.puerto.reset();
    const int i = u.progreso.indice;
    emit balanzaTerminada(i);
    if (--m_pendientes == 0)
        emit terminado();
}
