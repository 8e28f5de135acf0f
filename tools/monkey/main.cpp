// korvo-monkey: the real designer driven by random mouse and key actions.
//
// As a supervisor (the default) it starts one designer after another, each in
// a program folder of its own with a virtual scale on COM1 and a drawer of
// good and damaged files, and records how each one ended. A run-time error is
// one of the designer's own endings; a crash, a sanitizer's report, a hang or
// a leak is a failure, kept with its seed so that it can be played again:
//
//     korvo-monkey [--minutes M | --runs R] [--actions N] [--seed S] [--keep DIR]
//     korvo-monkey --child --seed S --actions N --program-dir DIR   (one run)

#include "Arranque.h"
#include "FileCommands.h"
#include "KorvoApplication.h"
#include "ModBase.h"
#include "QtInteraction.h"
#include "VentanasQt.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KORVO_LSAN 1
#include <sanitizer/lsan_interface.h>
#endif
#endif

#ifdef KORVO_LSAN
// fontconfig keeps its caches to the end of the process, and the platform's
// font database with it: no leak of ours.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n";
}
#endif

namespace {

// ---------------------------------------------------------------- one run

// The person's file dialogs: a file from the drawer, a new name in it, or
// nothing. Qt's own dialog is not ours to test, and a random walk through it
// could write anywhere on the machine.
class MonkeyInteraction : public QtInteraction {
public:
    MonkeyInteraction(QRandomGenerator& rng, QString drawer)
        : m_rng(rng), m_drawer(std::move(drawer))
    {}

    QString openFile(const FileDialogRequest&) override
    {
        const QStringList files = QDir(m_drawer).entryList(QDir::Files, QDir::Name);
        const int pick = m_rng.bounded(files.size() + 2);
        return pick < files.size() ? QDir(m_drawer).filePath(files.at(pick)) : QString();
    }
    QString saveFile(const FileDialogRequest& request) override
    {
        static const char* const names[] = {"guardado.pse", "guardado.ose", "otro.pse", "x.pde"};
        const int pick = m_rng.bounded(6);
        if (pick >= 4)
            return {};
        return QDir(m_drawer).filePath(QString::fromLatin1(names[pick]));
    }

private:
    QRandomGenerator& m_rng;
    QString m_drawer;
};

class Monkey : public QObject {
public:
    Monkey(quint32 seed, int acciones) : m_rng(seed), m_restantes(acciones)
    {
        QTimer::singleShot(1, this, [this] { paso(); });
    }
    QRandomGenerator& rng() { return m_rng; }
    int hechas() const { return m_hechas; }

private:
    void paso()
    {
        // The next step is due before this one acts: an action that opens a
        // modal window stays on the stack while its loop runs, and a running
        // timer does not fire again until its slot returns.
        QTimer::singleShot(1, this, [this] { paso(); });
        // A person holding the button down does nothing else meanwhile.
        if (m_sostenido)
            return;
        if (m_restantes-- <= 0) {
            std::printf("done %d\n", m_hechas);
            std::fflush(stdout);
            // Ends here, with the windows still open: what LeakSanitizer finds
            // unreachable now is lost for good.
#ifdef KORVO_LSAN
            __lsan_do_leak_check();
#endif
            std::_Exit(0);
        }
        if (++m_hechas % 100 == 0) {
            std::printf("actions %d\n", m_hechas);
            std::fflush(stdout);
        }
        QWidget* ventana = QApplication::activePopupWidget();
        if (!ventana)
            ventana = QApplication::activeModalWidget();
        if (!ventana || !ventana->isVisible())
            ventana = QApplication::activeWindow();
        if (!ventana || !ventana->isVisible()) {
            ventana = nullptr;
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->isVisible())
                    ventana = w;
        }
        if (!ventana)
            return;
        const int tirada = m_rng.bounded(100);
        if (tirada < 45)
            clic(ventana);
        else if (tirada < 60)
            arrastre(ventana);
        else if (tirada < 85)
            tecla(ventana);
        else
            entrada(ventana);
    }

    // The way out of the program is taken now and then, not at every turn,
    // or no run would get far.
    bool salidaEvitada(const QObject* o)
    {
        QString nombre = o->objectName();
        if (const auto* b = qobject_cast<const QToolButton*>(o); b && b->defaultAction())
            nombre = b->defaultAction()->objectName();
        return nombre.contains(QLatin1String("Salir")) && m_rng.bounded(20) != 0;
    }

    QWidget* hijo(QWidget* ventana)
    {
        QList<QWidget*> todos{ventana};
        for (QWidget* w : ventana->findChildren<QWidget*>())
            if (w->isVisible() && w->isEnabled() && w->width() > 0 && w->height() > 0 &&
                !salidaEvitada(w))
                todos.append(w);
        // Buttons are what a person goes for first.
        QList<QWidget*> botones;
        for (QWidget* w : todos)
            if (qobject_cast<QAbstractButton*>(w))
                botones.append(w);
        if (!botones.isEmpty() && m_rng.bounded(3) == 0)
            return botones.at(m_rng.bounded(botones.size()));
        return todos.at(m_rng.bounded(todos.size()));
    }

    QPoint punto(QWidget* w)
    {
        return {m_rng.bounded(w->width()), m_rng.bounded(w->height())};
    }

    // Every event may open a modal window whose loop runs further actions,
    // which may close the widget: each step looks again that it is there.
    void clic(QWidget* ventana)
    {
        QPointer<QWidget> w = hijo(ventana);
        const QPoint p = punto(w);
        const int tipo = m_rng.bounded(10);
        const Qt::MouseButton boton = tipo == 0 ? Qt::RightButton : Qt::LeftButton;
        QTest::mousePress(w, boton, {}, p);
        if (tipo == 2) {
            // Held a while: scroll bars repeat, questions come in between.
            // Let go of by a timer, whatever loop runs then: a wait of
            // its own here would run the next steps inside it, deeper and
            // deeper, and no modal window could ever end its loop.
            m_sostenido = true;
            QTimer::singleShot(m_rng.bounded(400), this, [this, w, boton, p] {
                m_sostenido = false;
                if (w)
                    QTest::mouseRelease(w, boton, {}, p);
            });
            return;
        }
        if (w)
            QTest::mouseRelease(w, boton, {}, p);
        if (tipo == 1 && w) {
            QTest::mouseDClick(w, boton, {}, p);
            if (w)
                QTest::mouseRelease(w, boton, {}, p);
        }
    }

    void arrastre(QWidget* ventana)
    {
        QPointer<QWidget> w = hijo(ventana);
        QTest::mousePress(w, Qt::LeftButton, {}, punto(w));
        for (int i = m_rng.bounded(6); i > 0 && w; --i)
            QTest::mouseMove(w, punto(w));
        if (w)
            QTest::mouseRelease(w, Qt::LeftButton, {}, punto(w));
    }

    void tecla(QWidget* ventana)
    {
        static const Qt::Key teclas[] = {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,
                                         Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,
                                         Qt::Key_Down,   Qt::Key_Delete, Qt::Key_Backspace,
                                         Qt::Key_Space,  Qt::Key_PageUp, Qt::Key_Home};
        QWidget* destino = QApplication::focusWidget();
        if (!destino || destino->window() != ventana)
            destino = ventana;
        const int tipo = m_rng.bounded(3);
        if (tipo == 0) {
            // Typed text, letters of every code page among them.
            static const QString letras = QStringLiteral("ABCXYZabc019 ÑñΣłé-.,");
            const QString letra = letras.mid(m_rng.bounded(letras.size()), 1);
            QPointer<QWidget> guard(destino);
            QKeyEvent pulsa(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, letra);
            QApplication::sendEvent(destino, &pulsa);
            QKeyEvent suelta(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, letra);
            if (guard)
                QApplication::sendEvent(destino, &suelta);
        } else {
            const Qt::KeyboardModifiers mods = tipo == 1          ? Qt::NoModifier
                                               : m_rng.bounded(2) ? Qt::ControlModifier
                                                                  : Qt::ShiftModifier;
            QTest::keyClick(destino, teclas[m_rng.bounded(int(std::size(teclas)))], mods);
        }
    }

    // A menu entry, as a person reaches it: from the menu bar, the tool bar
    // or the pop-up menu that is open. The pop-ups' entries are not taken
    // otherwise: the press that opens one readies what its entries act on.
    void entrada(QWidget* ventana)
    {
        QList<QAction*> acciones;
        const std::function<void(const QList<QAction*>&)> juntar =
            [&](const QList<QAction*>& lista) {
                for (QAction* a : lista) {
                    if (!a->isEnabled() || !a->isVisible() || a->isSeparator())
                        continue;
                    if (a->menu())
                        juntar(a->menu()->actions());
                    else if (!salidaEvitada(a))
                        acciones.append(a);
                }
            };
        if (auto* menu = qobject_cast<QMenu*>(ventana))
            juntar(menu->actions());
        for (QMenuBar* barra : ventana->findChildren<QMenuBar*>())
            juntar(barra->actions());
        for (QToolBar* barra : ventana->findChildren<QToolBar*>())
            juntar(barra->actions());
        if (acciones.isEmpty())
            return;
        acciones.at(m_rng.bounded(acciones.size()))->trigger();
    }

    QRandomGenerator m_rng;
    bool m_sostenido = false;
    int m_restantes;
    int m_hechas = 0;
};

int correr(int argc, char** argv, quint32 seed, int acciones, const QString& carpeta)
{
    KorvoApplication app(argc, argv);
    ModBase mb;
    mb.programDir = carpeta;
    Monkey mono(seed, acciones);
    MonkeyInteraction ui(mono.rng(), QDir(carpeta).filePath(QStringLiteral("cajon")));
    VentanasQt ventanas(ui);
    const int code = Main(mb, ui, ventanas);
    std::printf("actions %d\nclosed %d\n", mono.hechas(), code);
    std::fflush(stdout);
    return code;
}

// ---------------------------------------------------------------- the supervisor

QString binDir()
{
    return QCoreApplication::applicationDirPath();
}

void copiarArbol(const QString& de, const QString& a)
{
    QDir().mkpath(a);
    for (const QFileInfo& f :
         QDir(de).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (f.isDir())
            copiarArbol(f.filePath(), QDir(a).filePath(f.fileName()));
        else
            QFile::copy(f.filePath(), QDir(a).filePath(f.fileName()));
    }
}

// A program folder: catalogue, pictures, tables, cfg.ini in a language, the
// model's marker, COM2..COM4 leading nowhere, and a drawer of files to open.
void prepararCarpeta(const QString& dir, QRandomGenerator& rng, const QString& fuentes)
{
    const QString bin = binDir();
    copiarArbol(QDir(bin).filePath("lang"), QDir(dir).filePath("lang"));
    copiarArbol(QDir(bin).filePath("res"), QDir(dir).filePath("res"));
    for (const char* t : {"greek.cht", "polish.cht"})
        QFile::copy(QDir(bin).filePath(t), QDir(dir).filePath(t));
    const bool nuevo = rng.bounded(2);
    if (nuevo)
        QFile(QDir(dir).filePath("sirel.new")).open(QIODevice::WriteOnly);
    QFile cfg(QDir(dir).filePath("cfg.ini"));
    cfg.open(QIODevice::WriteOnly);
    cfg.write(
        QStringLiteral("Idioma = %1\r\nPuerto = 0\r\nBaudios = 3\r\nParidad = 0\r\n"
                       "Bits de parada = 0\r\nBits de datos = 1\r\nSombreado = 0\r\nNo Fondo\r\n")
            .arg(1 + rng.bounded(8))
            .toLatin1());
    cfg.close();
    QDir().mkpath(QDir(dir).filePath("dosdevices"));
    for (int n = 2; n <= 4; ++n)
        QFile::link(QDir(dir).filePath("nowhere"),
                    QDir(dir).filePath(QStringLiteral("dosdevices/com%1").arg(n)));

    // The drawer: the seed files of every reader, good and damaged, and the
    // stock pictures.
    const QString cajon = QDir(dir).filePath("cajon");
    QDir().mkpath(cajon);
    const std::pair<const char*, const char*> semillas[] = {
        {"setfile", ".pse"}, {"labelfile", ".pde"}, {"freetexts", ".txt"},
        {"wmf", ".wmf"},     {"emf", ".emf"},       {"config", ".ini"}};
    for (const auto& [carpeta, ext] : semillas) {
        const QDir d(QDir(fuentes).filePath(QStringLiteral("fuzz/corpus/") + carpeta));
        for (const QFileInfo& f : d.entryInfoList(QDir::Files))
            QFile::copy(f.filePath(), QDir(cajon).filePath(f.completeBaseName() + ext));
    }
    for (const char* f : {"0A.wmf", "12A.wmf", "OPER.wmf", "parrilla.bmp"})
        QFile::copy(QDir(bin).filePath(QStringLiteral("res/") + f), QDir(cajon).filePath(f));
}

struct Final {
    QString tipo; // how the run ended
    bool fallo = false;
};

Final clasificar(int exitCode, QProcess::ExitStatus status, bool colgado, const QByteArray& out,
                 const QByteArray& err)
{
    if (colgado)
        return {QStringLiteral("hang"), true};
    if (err.contains("Sanitizer") || err.contains("runtime error:"))
        return {QStringLiteral("sanitizer report"), true};
    if (status != QProcess::NormalExit)
        return {QStringLiteral("crash"), true};
    static const QRegularExpression errorRe(QStringLiteral("Run-time error '(\\d+)'"));
    const auto m = errorRe.match(QString::fromLocal8Bit(err));
    if (exitCode == 1 && m.hasMatch())
        return {QStringLiteral("run-time error ") + m.captured(1), false};
    if (exitCode == 0 && out.contains("done"))
        return {QStringLiteral("all actions done"), false};
    if (out.contains("closed"))
        return {QStringLiteral("closed by the monkey"), false};
    return {QStringLiteral("exit %1").arg(exitCode), true};
}

int supervisar(const QStringList& args)
{
    auto valor = [&](const char* nombre, const QString& porDefecto) {
        const int i = args.indexOf(QString::fromLatin1(nombre));
        return i >= 0 && i + 1 < args.size() ? args.at(i + 1) : porDefecto;
    };
    const double minutos = valor("--minutes", "0").toDouble();
    const int runs = valor("--runs", minutos > 0 ? "1000000" : "3").toInt();
    const int acciones = valor("--actions", "2000").toInt();
    quint32 semilla = valor("--seed", "1").toUInt();
    const QString guardar = valor("--keep", {});
    const QString fuentes = valor("--source-dir", QStringLiteral(KORVO_SOURCE_DIR));
    const int esperaColgado = 15000; // well past the transfer's 3000 ms reply wait

    QElapsedTimer reloj;
    reloj.start();
    std::map<QString, int> finales;
    long long totalAcciones = 0;
    int fallos = 0, hechas = 0;
    qsizetype aperturas = 0, cierres = 0;
    int errores = 0, guardados = 0; // run-time error ends, and those that kept the work
    for (; hechas < runs; ++hechas, ++semilla) {
        if (minutos > 0 && reloj.elapsed() > minutos * 60000)
            break;
        QTemporaryDir dir;
        QRandomGenerator rng(semilla);
        prepararCarpeta(dir.path(), rng, fuentes);

        QProcess balanza;
        balanza.setProgram(QDir(binDir()).filePath("korvo-scale"));
        const QString registro = QDir(dir.path()).filePath("balanza.log");
        balanza.setArguments(
            {"--link", QDir(dir.path()).filePath("dosdevices/com1"), "--log", registro});
        balanza.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        balanza.setStandardOutputFile(QProcess::nullDevice());
        balanza.start();
        for (int i = 0;
             i < 50 && !QFileInfo(QDir(dir.path()).filePath("dosdevices/com1")).isSymLink(); ++i)
            QThread::msleep(100);

        QProcess mono;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        if (!env.contains("QT_QPA_PLATFORM"))
            env.insert("QT_QPA_PLATFORM", "offscreen");
        mono.setProcessEnvironment(env);
        mono.start(QCoreApplication::applicationFilePath(),
                   {"--child", "--seed", QString::number(semilla), "--actions",
                    QString::number(acciones), "--program-dir", dir.path()});
        QByteArray out, err;
        QElapsedTimer ultimo;
        ultimo.start();
        bool colgado = false;
        while (!mono.waitForFinished(200)) {
            const QByteArray nuevo = mono.readAllStandardOutput();
            if (!nuevo.isEmpty())
                ultimo.restart();
            out += nuevo;
            err += mono.readAllStandardError();
            if (ultimo.elapsed() > esperaColgado) {
                colgado = true;
                mono.kill();
                mono.waitForFinished();
                break;
            }
        }
        out += mono.readAllStandardOutput();
        err += mono.readAllStandardError();
        balanza.terminate();
        balanza.waitForFinished(3000);
        {
            // How far the monkey got with the transfers.
            QFile f(registro);
            f.open(QIODevice::ReadOnly);
            const QByteArray visto = f.readAll();
            aperturas += visto.count("    opening");
            cierres += visto.count("    closing");
        }

        static const QRegularExpression actionsRe(QStringLiteral("(?:actions|done) (\\d+)"));
        int hechasAqui = 0;
        for (auto it = actionsRe.globalMatch(QString::fromLatin1(out)); it.hasNext();)
            hechasAqui = it.next().captured(1).toInt();
        totalAcciones += hechasAqui;
        const Final f = clasificar(mono.exitCode(), mono.exitStatus(), colgado, out, err);
        ++finales[f.tipo];
        if (f.tipo.startsWith(QLatin1String("run-time"))) {
            ++errores;
            if (!QDir(QDir(dir.path()).filePath("recovery")).entryList(QDir::Files).isEmpty())
                ++guardados;
        }
        std::printf("seed %u: %s after about %d actions\n", semilla, qPrintable(f.tipo),
                    hechasAqui);
        if (f.fallo) {
            ++fallos;
            std::fprintf(stderr, "---- seed %u failed (%s); its stderr:\n%s\n", semilla,
                         qPrintable(f.tipo), err.right(6000).constData());
        }
        // Failures, and the program's own errors too, to see what led there.
        if (!guardar.isEmpty() && (f.fallo || f.tipo.startsWith(QLatin1String("run-time")))) {
            const QString destino = QDir(guardar).filePath(QStringLiteral("seed-%1").arg(semilla));
            copiarArbol(dir.path(), destino);
            QFile log(QDir(destino).filePath("stderr.txt"));
            log.open(QIODevice::WriteOnly);
            log.write(err);
        }
        std::fflush(stdout);
    }
    std::printf("monkey: %d runs, %lld actions in %.1f minutes; ends:", hechas, totalAcciones,
                reloj.elapsed() / 60000.0);
    for (const auto& [tipo, n] : finales)
        std::printf(" %s %d;", qPrintable(tipo), n);
    std::printf("\nthe scale on COM1 saw %lld transfers begin and %lld end whole\n",
                qlonglong(aperturas), qlonglong(cierres));
    std::printf("the work was kept in recovery/ at %d of %d run-time error ends\n", guardados,
                errores);
    std::printf("%d passed, %d failed\n", hechas - fallos, fallos);
    return fallos ? 1 : 0;
}

} // namespace

int main(int argc, char** argv)
{
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args.append(QString::fromLocal8Bit(argv[i]));
    if (args.contains(QStringLiteral("--child"))) {
        const auto valor = [&](const char* nombre) {
            return args.at(args.indexOf(QString::fromLatin1(nombre)) + 1);
        };
        return correr(argc, argv, valor("--seed").toUInt(), valor("--actions").toInt(),
                      valor("--program-dir"));
    }
    QCoreApplication app(argc, argv);
    return supervisar(args);
}
