#include "FileCommands.h"

#include "CambiosPendientes.h"
#include "CodePage.h"
#include "Filas.h"
#include "FileSystem.h"
#include "ModBase.h"
#include "RuntimeError.h"
#include "TextLines.h"
#include "TextosLibres.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace {

// A one-digit number of a row, as the runtime converts it: anything but a
// digit is a type mismatch that ends the program.
int digito(const QByteArray& texto)
{
    if (texto.size() != 1 || texto.at(0) < '0' || texto.at(0) > '9')
        throw RuntimeError::typeMismatch();
    return texto.at(0) - '0';
}

// A whole number held as text, such as the label number.
int entero(const QByteArray& texto)
{
    bool ok = false;
    const int value = texto.trimmed().toInt(&ok);
    if (!ok)
        throw RuntimeError::typeMismatch();
    return value;
}

// The fixed text as the label file reader takes it: the blanks at its end
// go only when the text fills all 25 columns.
QByteArray recorte25(const QByteArray& texto)
{
    return texto.size() >= 25 ? trimRight(texto) : texto;
}

// The first file of a folder whose name matches, in name order and
// regardless of case, as the platform's own search finds it.
QString primerArchivo(const QString& carpeta, const QString& patron)
{
    const QStringList names =
        QDir(carpeta).entryList({patron}, QDir::Files, QDir::Name | QDir::IgnoreCase);
    return names.isEmpty() ? QString() : names.constFirst();
}

} // namespace

bool esArchivoEtiqueta(const QString& path)
{
    const QChar c = path.size() >= 2 ? path.at(path.size() - 2) : QChar();
    return c == QLatin1Char('d') || c == QLatin1Char('D');
}

FileCommands::FileCommands(ModBase& mb, UserInteraction& ui, BaseView& view)
    : m_mb(mb), m_ui(ui), m_view(view)
{}

QByteArray FileCommands::codificar(const QString& texto) const
{
    return encodeFor(m_mb.Idioma, texto);
}

QString FileCommands::decodificar(const QByteArray& bytes) const
{
    return decodeFor(m_mb.Idioma, bytes);
}

int FileCommands::lineasConjunto() const
{
    return m_mb.ModeloNuevo ? 240 : 278;
}

int FileCommands::indiceBloque(int p) const
{
    return m_mb.ModeloNuevo ? (p - 3) * 36 + p + 13 : (p - 1) * 26 + p + 5;
}

int FileCommands::indiceTextoFijo() const
{
    return lineasConjunto() - 1;
}

void FileCommands::IniciaLineas()
{
    Lineas.fill(QByteArray());
    const bool nuevo = m_mb.ModeloNuevo != 0;
    Lineas(0) = "TXL";
    // The rows of an empty store count from 1; saved rows count from 0.
    for (int i = 1; i <= m_mb.textosLibresModelo(); ++i)
        Lineas(i) = filaTextoLibre(i, {}, m_mb.ModeloNuevo);
    const int primera = nuevo ? 3 : 1;
    const int ultima = nuevo ? 8 : 10;
    const int porTipo = nuevo ? 3 : 5;
    const int campos = nuevo ? 36 : 26;
    for (int p = primera; p <= ultima; ++p) {
        const bool total = p - primera >= porTipo;
        const QByteArray tipo = total ? "T" : "V";
        const QByteArray numero = QByteArray::number(total ? p - porTipo : p);
        const int b = indiceBloque(p);
        Lineas(b) = "ETQ " + tipo + " " + numero;
        for (int j = 1; j <= campos; ++j)
            Lineas(b + j) =
                "99" + tipo + numero + "45" + QByteArray(7, ' ') + codigoCampo(j) + "00000000";
    }
    Lineas(indiceTextoFijo() - 1) = "TXF";
    Lineas(indiceTextoFijo()) = filaTextoFijo({}, {});
}

void FileCommands::RealizarConjunto()
{
    const QString carpeta = QFileInfo(m_mb.ArchivoActual).path();
    const QString s = QDir(carpeta).filePath(QStringLiteral("S"));
    if (!fs::dirExists(s))
        fs::makeDir(s);
    // The set takes the name of the label file picked: x.pde becomes x.pse.
    ArchivoConjunto = m_mb.ArchivoActual.left(m_mb.ArchivoActual.size() - 2) + QStringLiteral("se");
    IniciaLineas();

    const QString textos =
        m_mb.ModeloNuevo ? primerArchivo(carpeta, QStringLiteral("freetxt.txt")) : QString();
    if (!textos.isEmpty()) {
        AlmacenaFreeText(QDir(carpeta).filePath(textos));
        fs::moveFile(QDir(carpeta).filePath(textos), QDir(s).filePath(textos));
    } else {
        TextosExternos = false;
    }

    // Each label file is filed and moved aside, so the next search finds the
    // next one; a twelfth stays where it is.
    const QString patron = m_mb.ModeloNuevo ? QStringLiteral("*.pde") : QStringLiteral("*.ode");
    for (int vez = 0; vez < 11; ++vez) {
        const QString nombre = primerArchivo(carpeta, patron);
        if (nombre.isEmpty())
            break;
        AlmacenaLineas(QDir(carpeta).filePath(nombre));
        fs::moveFile(QDir(carpeta).filePath(nombre), QDir(s).filePath(nombre));
    }

    fs::writeAll(ArchivoConjunto, joinLines(lineasArchivo()));
    CargarEtiquetaConjunto(3);
}

void FileCommands::AlmacenaFreeText(const QString& ruta)
{
    // The first five come from the catalogue behind "9:" and a number with
    // "00" after it, so every reader, starting at column 5, sees a "0" first.
    for (int i = 1; i <= 5; ++i)
        Lineas(i) = "9:" + QByteArray::number(i - 1) + "00" + codificar(m_mb.Textos(1343 + i));
    almacenaTextosExternos(splitLines(fs::readAll(ruta)));
}

void FileCommands::almacenaTextosExternos(const QList<QByteArray>& lines)
{
    if (lines.size() < 10)
        throw RuntimeError::inputPastEndOfFile();
    for (int i = 0; i < 10; ++i)
        Lineas(6 + i) = lines.at(i);
    TextosExternos = true;
}

void FileCommands::AlmacenaLineas(const QString& ruta)
{
    // Dates are compared as the texts the system shows them in, character by
    // character: that is how the newest label file is told.
    const QString d = fs::lastModifiedText(ruta);
    almacenaLineasEtiqueta(splitLines(fs::readAll(ruta)), d);
}

void FileCommands::almacenaLineasEtiqueta(const QList<QByteArray>& lines, const QString& d)
{
    if (!m_mb.ModeloNuevo)
        return; // the old model files nothing: its blocks stay empty

    int leidas = 0;
    const auto siguiente = [&]() -> const QByteArray& {
        if (leidas >= lines.size())
            throw RuntimeError::inputPastEndOfFile();
        return lines.at(leidas++);
    };
    // The line counter and the read position are independent: with free
    // texts from a freetxt.txt no free text row is consumed, and the field
    // rows are then looked for 15 lines early.
    for (int k = 1; k <= 52; ++k) {
        if (k <= 15) {
            if (TextosExternos)
                continue;
            if (!FechaTextos.isEmpty() && FechaTextos != d && d < FechaTextos) {
                siguiente();
            } else {
                FechaTextos = d;
                Lineas(k) = siguiente();
            }
        } else if (k <= 51) {
            const QByteArray& line = siguiente();
            int indice = columns(line, 3, 1) == "T" ? 111 : 0;
            const int c = digito(columns(line, 4, 1));
            indice += (c - 3) * 36 + (c - 2);
            const QByteArray codigo = columns(line, 14, 1);
            if (codigo.isEmpty())
                throw RuntimeError::invalidProcedureCall();
            const int valor = static_cast<unsigned char>(codigo.at(0));
            indice += valor > 64 ? valor - 64 : valor - 48 + 27;
            Lineas(indice + 15) = line;
        } else if (d == FechaTextos) {
            // The fixed text comes with the free texts, from the newest file.
            Lineas(239) = siguiente();
        }
    }
}

void FileCommands::CargarConjunto()
{
    ArchivoConjunto = m_mb.ArchivoActual;
    leerArchivoConjunto(m_mb.ArchivoActual);
    CargarEtiquetaConjunto(3);
}

void FileCommands::leerArchivoConjunto(const QString& ruta)
{
    // One line past the store is enough to meet the end of it.
    const QList<QByteArray> lineas = fs::readLines(ruta, decltype(Lineas)::upper + 2);
    // A file that ends the program leaves the store as the work in hand had
    // it, for the recovery copy.
    const auto antes = Lineas;
    try {
        leerLineasConjunto(lineas);
    } catch (const RuntimeError&) {
        Lineas = antes;
        throw;
    }
}

void FileCommands::leerLineasConjunto(const QList<QByteArray>& lines)
{
    // No check of kind or length: a short file leaves the later lines as they were.
    for (int i = 0; i < lines.size(); ++i)
        Lineas(i) = lines.at(i);
}

void FileCommands::CargarEtiquetaConjunto(int p)
{
    const int b = indiceBloque(p);
    const QByteArray& fijo = Lineas(indiceTextoFijo());
    m_mb.TextoFijo(0) = columns(fijo, 4, 25);
    m_mb.TextoFijo(1) = columns(fijo, 30, 25);
    // Column 5 in both models: the old model's texts, which start at column
    // 4, lose their first character at each load.
    for (int i = 1; i <= m_mb.textosLibresModelo(); ++i)
        m_mb.TextoLibre(i - 1) = columns(Lineas(i), 5, 25);
    leerCabecera(Lineas(b + 1), m_mb);
    const int campos = m_mb.ModeloNuevo ? 36 : 26;
    for (int j = 1; j <= campos; ++j) {
        Campo& campo = m_mb.Campos(j);
        leerFilaCampo(Lineas(b + j), campo, false);
        campo.Seleccionado = false;
    }
    cargarDeArchivo();
}

void FileCommands::cargarDeArchivo()
{
    ++generacion;
    m_archivoTrabajo = ArchivoConjunto.isEmpty() ? m_mb.ArchivoActual : ArchivoConjunto;
    m_mb.ArchivoConocido = true;
    Actualiza();
    m_mb.Modificado = false;
}

void FileCommands::plegarEtiqueta(BoundedArray<QByteArray, 0, 300>& lineas) const
{
    lineas(indiceTextoFijo()) = filaTextoFijo(m_mb.TextoFijo(0), m_mb.TextoFijo(1));
    // All fifteen in both models: in the old one the rows 6 to 15 land on the
    // block of packing label 1, whose own save mends all but its block line.
    for (int i = 1; i <= 15; ++i)
        lineas(i) = filaTextoLibre(i - 1, m_mb.TextoLibre(i - 1), m_mb.ModeloNuevo);
    const int numero = entero(m_mb.NumEtiqueta);
    const int p = m_mb.TipoEtiqueta == "V" ? numero : numero + (m_mb.ModeloNuevo ? 3 : 5);
    const int b = indiceBloque(p);
    const int campos = m_mb.ModeloNuevo ? 36 : 26;
    for (int j = 1; j <= campos; ++j)
        lineas(b + j) = filaCampo(m_mb, m_mb.Campos(j), m_mb.TipoEtiqueta);
}

void FileCommands::GuardarEtiquetaConjunto()
{
    plegarEtiqueta(Lineas);
    GuardaConjunto();
    m_archivoTrabajo = m_mb.ArchivoActual;
    GuardarFreetxl(m_mb);
    m_mb.ArchivoConocido = true;
    m_mb.Modificado = false;
    ++guardados;
}

QList<QByteArray> FileCommands::lineasArchivo() const
{
    return lineasArchivo(Lineas);
}

QList<QByteArray> FileCommands::lineasArchivo(const BoundedArray<QByteArray, 0, 300>& lineas) const
{
    QList<QByteArray> lines;
    for (int i = 0; i < lineasConjunto(); ++i)
        lines.append(lineas(i));
    return lines;
}

QString FileCommands::GuardarRecuperacion(const QDateTime& ahora) const
{
    // The store with the label being edited folded in, as a save would have
    // made it; the store itself and the person's own files stay untouched.
    // A label that cannot be folded (the error may lie in it) leaves the store
    // as it stands.
    QList<QByteArray> lineas;
    try {
        BoundedArray<QByteArray, 0, 300> copia = Lineas;
        plegarEtiqueta(copia);
        lineas = lineasArchivo(copia);
    } catch (const RuntimeError&) {
        lineas = lineasArchivo();
    }
    const QString carpeta = fs::inProgramDir(m_mb, QStringLiteral("recovery"));
    if (!fs::dirExists(carpeta))
        fs::makeDir(carpeta);
    // Named after the work it holds, which is not always the file last
    // chosen: an open that fails part way has chosen another.
    QString base = QFileInfo(m_archivoTrabajo).completeBaseName();
    if (base.isEmpty())
        base = QStringLiteral("korvo");
    const QString nombre = base + ahora.toString(QStringLiteral("-yyyyMMdd-HHmmss"));
    const QString extension = m_mb.ModeloNuevo ? QStringLiteral(".pse") : QStringLiteral(".ose");
    QString ruta = QDir(carpeta).filePath(nombre + extension);
    for (int n = 2; QFileInfo::exists(ruta); ++n)
        ruta = QDir(carpeta).filePath(nombre + QStringLiteral("-%1").arg(n) + extension);
    fs::writeAll(ruta, joinLines(lineas));
    return ruta;
}

void FileCommands::GuardaConjunto()
{
    // To ArchivoActual, not ArchivoConjunto: Save As needs no further step.
    fs::writeAll(m_mb.ArchivoActual, joinLines(lineasArchivo()));
}

void FileCommands::GuardaEtiComo()
{
    const TextTable& T = m_mb.Textos;
    FileDialogRequest dialog;
    dialog.filter = T(1316) + (m_mb.ModeloNuevo ? QStringLiteral(" (*.pse)|*.pse")
                                                : QStringLiteral(" (*.ose)|*.ose"));
    m_mb.ArchivoActual = m_ui.saveFile(dialog);
    if (!m_mb.ArchivoActual.isEmpty())
        GuardarEtiquetaConjunto();
}

void FileCommands::Guardar()
{
    if (m_mb.ArchivoConocido)
        GuardarEtiquetaConjunto();
    else
        GuardaEtiComo();
}

bool FileCommands::preguntarYGuardar()
{
    return preguntarCambios(m_mb, m_ui, [this] { Guardar(); }).continuar();
}

void FileCommands::NuevoConjunto()
{
    if (!preguntarYGuardar())
        return;
    // The other labels of the set stay in the store.
    ++generacion;
    m_view.mostrarCargaTXL();
}

void FileCommands::menuNueva()
{
    NuevoConjunto();
    Actualiza();
}

void FileCommands::Abrir_Eti()
{
    // Unlike the other commands, a Yes saves and stops: the person gives the
    // command again.
    const RespuestaCambios r = preguntarCambios(m_mb, m_ui, [this] { Guardar(); });
    if (!r.preguntado || r.respuesta == Answer::No)
        CargarEti2();
}

void FileCommands::CargarEti2()
{
    const TextTable& T = m_mb.Textos;
    FileDialogRequest dialog;
    if (m_mb.ModeloNuevo)
        dialog.filter = QStringLiteral("All (*.pde,*.pse)|*.pde;*.pse;|") + T(1316) +
                        QStringLiteral(" (*.pde)|*.pde|") + T(1349) +
                        QStringLiteral(" (*.pse)|*.pse");
    else
        dialog.filter = QStringLiteral("All (*.ode,*.ose)|*.ode;*.ose;|") + T(1316) +
                        QStringLiteral(" (*.ode)|*.ode|") + T(1349) +
                        QStringLiteral(" (*.ose)|*.ose");
    m_mb.ArchivoActual = m_ui.openFile(dialog);
    if (m_mb.ArchivoActual.isEmpty())
        return;
    cargarRuta();
}

void FileCommands::abrirArchivo(const QString& ruta)
{
    if (!fs::fileExists(ruta)) {
        m_ui.message(m_mb.Textos(864));
        return;
    }
    m_mb.ArchivoActual = ruta;
    cargarRuta();
}

void FileCommands::cargarRuta()
{
    // A label file is gathered with its neighbours into a new set.
    if (esArchivoEtiqueta(m_mb.ArchivoActual))
        RealizarConjunto();
    else
        CargarConjunto();
}

void FileCommands::CargarEti()
{
    const TextTable& T = m_mb.Textos;
    FileDialogRequest dialog;
    dialog.filter = T(1316) + (m_mb.ModeloNuevo ? QStringLiteral(" (*.pde)|*.pde")
                                                : QStringLiteral(" (*.ode)|*.ode"));
    m_mb.ArchivoActual = m_ui.openFile(dialog);
    if (m_mb.ArchivoActual.isEmpty())
        return;
    if (!fs::fileExists(m_mb.ArchivoActual)) {
        m_ui.message(T(864));
        m_mb.ArchivoConocido = false;
        return;
    }
    leerLineasEtiqueta(splitLines(fs::readAll(m_mb.ArchivoActual)));
    cargarDeArchivo();
}

int FileCommands::leerLineasEtiqueta(const QList<QByteArray>& lines)
{
    const int n = m_mb.textosLibresModelo();
    const int m = m_mb.camposModelo();
    int extra = 0;
    for (int k = 1; k <= lines.size(); ++k) {
        const QByteArray& line = lines.at(k - 1);
        if (k <= n) {
            m_mb.TextoLibre(k - 1) = columns(line, 5, 25);
        } else if (k <= n + m) {
            // The row's place in the file decides the field, not its code.
            Campo& campo = m_mb.Campos(k - n);
            leerFilaCampo(line, campo, true);
            campo.Seleccionado = false;
            if (k == n + 1) {
                leerCabecera(line, m_mb);
                m_mb.NombreEtiqueta = trimRight(m_mb.NombreEtiqueta);
            }
        } else if (k == n + m + 1) {
            m_mb.TextoFijo(0) = recorte25(columns(line, 4, 25));
            m_mb.TextoFijo(1) = recorte25(columns(line, 30, 25));
        } else {
            ++extra;
            m_ui.message(m_mb.Textos(1338));
        }
    }
    return extra;
}

QList<QByteArray> FileCommands::lineasEtiqueta(const QByteArray& tipo) const
{
    QList<QByteArray> lines;
    for (int i = 0; i < m_mb.textosLibresModelo(); ++i)
        lines.append(filaTextoLibre(i, m_mb.TextoLibre(i), m_mb.ModeloNuevo));
    for (int j = 1; j <= m_mb.camposModelo(); ++j)
        lines.append(filaCampo(m_mb, m_mb.Campos(j), tipo));
    lines.append(filaTextoFijo(m_mb.TextoFijo(0), m_mb.TextoFijo(1)));
    return lines;
}

void FileCommands::GuardaEti()
{
    // The shared name itself stays padded afterwards.
    m_mb.NombreEtiqueta = padRight(m_mb.NombreEtiqueta, 7);
    QByteArray tipo = m_mb.TipoEtiqueta;
    if (Convirtiendo)
        tipo = m_mb.TipoEtiqueta == "T" ? "V" : "T";
    if (m_mb.ArchivoActual.isEmpty())
        return;
    fs::writeAll(m_mb.ArchivoActual, joinLines(lineasEtiqueta(tipo)));
    m_mb.ArchivoConocido = true;
    m_mb.Modificado = false;
    ++guardados;
}

void FileCommands::completarLblNombre()
{
    // With no name the line is left as it stands.
    if (controles.TxtNomEtiq.isEmpty())
        return;
    const TextTable& T = m_mb.Textos;
    controles.lblNombre = controles.TxtNomEtiq + QStringLiteral(" --- ") +
                          (m_mb.TipoEtiqueta == "T" ? T(1310) : T(1317)) + QStringLiteral(" --- ") +
                          T(623) + QLatin1Char(' ') + controles.TxtNumEtiq;
}

void FileCommands::Actualiza()
{
    // Writing the name box fires its change, which marks the label modified:
    // every load therefore clears Modificado after this.
    const QByteArray sinBlancos = trimRight(m_mb.NombreEtiqueta);
    const QString nombre = decodificar(sinBlancos);
    if (controles.TxtNomEtiq != nombre)
        cambioNombre(nombre);
    bool ok = false;
    const int ancho = m_mb.AnchoEtiqueta.toInt(&ok);
    if (ok)
        controles.VSVer = ancho;
    // The selector shows the label's number within its range; it does not
    // load anything when the program itself moves it.
    const int numero = m_mb.NumEtiqueta.toInt(&ok);
    controles.VSEtiq = std::clamp(ok ? numero : controles.VSEtiqMin, controles.VSEtiqMin, 5);
    controles.TxtNumEtiq = QString::number(controles.VSEtiq);
    completarLblNombre();
    m_view.refresh();
}

void FileCommands::cambioNombre(const QString& texto)
{
    controles.TxtNomEtiq = texto;
    controles.lblNombre = texto;
    completarLblNombre();
    m_mb.NombreEtiqueta = codificar(texto);
    m_mb.Modificado = true;
}

void FileCommands::cambioEtiqueta(int valor)
{
    controles.VSEtiq = valor;
    if (IgnorarCambioEtiq != 0) {
        IgnorarCambioEtiq = 0;
    } else {
        if (!preguntarYGuardar()) {
            // The selector goes back, and that change of its own is swallowed.
            IgnorarCambioEtiq = 1;
            cambioEtiqueta(entero(m_mb.NumEtiqueta));
        } else {
            // The kind does not change: the selector moves among the numbers of one kind.
            const int v = controles.VSEtiq;
            CargarEtiquetaConjunto(m_mb.TipoEtiqueta == "V" ? v : v + (m_mb.ModeloNuevo ? 3 : 5));
        }
    }
    controles.TxtNumEtiq = QString::number(controles.VSEtiq);
    completarLblNombre();
    m_mb.NumEtiqueta = codificar(controles.TxtNumEtiq);
}

void FileCommands::Convertir()
{
    Convirtiendo = true;
    if (!preguntarYGuardar()) {
        Convirtiendo = false;
        return;
    }
    const int n = controles.VSEtiq;
    CargarEtiquetaConjunto(m_mb.TipoEtiqueta != "V" ? n : n + (m_mb.ModeloNuevo ? 3 : 5));
    Convirtiendo = false;
}

bool FileCommands::pulsarCompatibilidad()
{
    // Here a No also forgets the changes.
    const RespuestaCambios r = preguntarCambios(m_mb, m_ui, [this] { Guardar(); });
    if (!r.continuar())
        return false;
    if (r.preguntado && r.respuesta == Answer::No)
        m_mb.Modificado = false;
    cambiarModelo(m_mb.ModeloNuevo == 0);
    return true;
}

void FileCommands::cambiarModelo(bool nuevo)
{
    const QString marca = fs::inProgramDir(m_mb, QStringLiteral("sirel.new"));
    if (!nuevo) {
        m_mb.ModeloNuevo = 0;
        if (fs::fileExists(marca))
            fs::deleteFile(marca);
        for (int n = 26; n <= 36; ++n)
            InicializarCampo(m_mb, n);
        for (int i = 0; i < 5; ++i)
            m_mb.TextoLibre(i).clear();
    } else {
        m_mb.ModeloNuevo = 1;
        fs::writeAll(marca, {});
        for (int i = 0; i < 5; ++i)
            m_mb.TextoLibre(i) = codificar(m_mb.Textos(1344 + i));
    }
    ++generacion;
    // The store is emptied; the fields on the surface and the other free
    // texts stay. The label takes the selector's first number.
    IniciaLineas();
    controles.VSEtiqMin = nuevo ? 3 : 1;
    controles.VSEtiq = controles.VSEtiqMin;
    controles.TxtNumEtiq = QString::number(controles.VSEtiq);
    m_mb.NumEtiqueta = codificar(controles.TxtNumEtiq);
    completarLblNombre();
    m_view.refresh();
}

bool FileCommands::consultaCierre()
{
    return preguntarYGuardar();
}
