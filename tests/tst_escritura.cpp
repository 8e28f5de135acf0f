#include "Configuracion.h"
#include "FileSystem.h"
#include "frmBase.h"
#include "LabelEnv.h"
#include "Recuperacion.h"
#include "RuntimeErrors.h"
#include "TextLines.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

#include <functional>

namespace {

// A folder on a disk with no room left. Where the machine lets the test
// mount one, a small tmpfs really filled up; elsewhere the file-system
// helpers are told to take no more bytes, which they then refuse as a full
// disk does, after the file aside has been opened.
class DiscoLleno {
public:
    DiscoLleno()
    {
        m_montado = QProcess::execute(QStringLiteral("mount"), {"-t", "tmpfs", "-o", "size=128k",
                                                                "korvo-lleno", m_dir.path()}) == 0;
    }
    ~DiscoLleno()
    {
        fs::limitarEspacioLibre(-1);
        if (m_montado)
            QProcess::execute(QStringLiteral("umount"), {"-l", m_dir.path()});
    }
    bool montado() const { return m_montado; }
    QString file(const QString& name) const { return QDir(m_dir.path()).filePath(name); }

    void llenar()
    {
        if (!m_montado) {
            fs::limitarEspacioLibre(0);
            return;
        }
        QFile relleno(file(QStringLiteral("relleno")));
        QVERIFY(relleno.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray bloque(4096, 'x');
        while (relleno.write(bloque) == bloque.size()) {
        }
    }

private:
    QTemporaryDir m_dir;
    bool m_montado = false;
};

const QByteArray kAnterior = "THE EARLIER FILE\r\n";

// Packing label 3 of the new model, the first a set shows.
void etiqueta(LabelEnv& e)
{
    e.mb.TipoEtiqueta = "V";
    e.mb.NumEtiqueta = "3";
    e.mb.AnchoEtiqueta = "45";
}

using Escritor = std::function<void(LabelEnv&)>;

const QDateTime kMomento(QDate(2026, 11, 23), QTime(10, 15, 0));

} // namespace

class TestEscritura : public QObject {
    Q_OBJECT

private slots:
    // The writers of the program on a full disk (they all write through one
    // helper): the run-time error that a failed write ends the program with,
    // the earlier file whole, nothing left beside it, and the label still
    // counted as unsaved.
    void discoLleno_data()
    {
        // Where the file goes: the program's folder for its own files, else
        // where the person chose; the folder is then on the full disk.
        QTest::addColumn<bool>("enPrograma");
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<Escritor>("escribir");
        QTest::newRow("set file") << false << "set.pse" << Escritor([](LabelEnv& e) {
            e.files.GuardarEtiquetaConjunto();
        });
        QTest::newRow("cfg.ini") << true << "cfg.ini"
                                 << Escritor([](LabelEnv& e) { GuardarConfiguracion(e.mb); });
        QTest::newRow("recovery") << true << "" << Escritor([](LabelEnv& e) {
            e.files.GuardarRecuperacion(kMomento);
        });
    }
    void discoLleno()
    {
        QFETCH(bool, enPrograma);
        QFETCH(QString, archivo);
        QFETCH(Escritor, escribir);
        LabelEnv e(1);
        etiqueta(e);
        DiscoLleno disco;
        if (enPrograma)
            e.mb.programDir = disco.file({});
        if (!archivo.isEmpty()) {
            e.mb.ArchivoActual = disco.file(archivo);
            fs::writeAll(e.mb.ArchivoActual, kAnterior);
        }
        e.mb.Modificado = true;
        disco.llenar();

        QCOMPARE(errorNumber([&] { escribir(e); }), 75);
        if (!archivo.isEmpty())
            QCOMPARE(fs::readAll(e.mb.ArchivoActual), kAnterior);
        QVERIFY(e.mb.Modificado);
        const QStringList quedan =
            QDir(disco.file({})).entryList(QDir::Files | QDir::NoDotAndDotDot);
        QCOMPARE(quedan.size(), int(!archivo.isEmpty()) + int(disco.montado()));
        QVERIFY(QDir(disco.file("recovery")).entryList(QDir::Files).isEmpty());
    }

    // When the program ends on what it does not foresee, the label being
    // edited and the store are kept as a set file that opens to the same
    // label, and the message says where; the person's own files and the
    // store are not touched.
    void recuperacion()
    {
        LabelEnv e(1);
        etiqueta(e);
        e.mb.ArchivoActual = e.dir.file("shop.pse");
        e.files.GuardarEtiquetaConjunto();
        e.files.ArchivoConjunto = e.mb.ArchivoActual;
        const QByteArray guardado = e.dir.read("shop.pse");
        const auto lineas = e.files.Lineas;
        e.mb.TipoEtiqueta = "T";
        e.mb.NumEtiqueta = "4";
        e.mb.Campos(13).Presente = "1";

        // The end comes from opening another set, one line longer than the
        // store: the copy is still the work on screen, under its own name.
        QByteArray larga;
        for (int i = 0; i <= decltype(e.files.Lineas)::upper + 1; ++i)
            larga += "9:0\r\n";
        e.dir.write("otro.pse", larga);
        e.mb.ArchivoActual = e.dir.file("otro.pse");
        recuperacion::registrar(e.mb, [&] { return e.files.GuardarRecuperacion(kMomento); });
        QString texto;
        try {
            e.files.CargarConjunto();
        } catch (const RuntimeError& error) {
            texto = recuperacion::mensajeFinal(error);
        }
        recuperacion::retirar();
        const QString copia = e.dir.file("recovery/shop-20261123-101500.pse");
        QVERIFY(
            texto.startsWith("Run-time error '9': Subscript out of range\n\n" + e.mb.Textos(2090)));
        QVERIFY(texto.endsWith(QDir::toNativeSeparators(copia)));
        QVERIFY(e.files.Lineas == lineas);
        QCOMPARE(e.dir.read("shop.pse"), guardado);

        LabelEnv abierto(1);
        abierto.files.leerLineasConjunto(splitLines(fs::readAll(copia)));
        abierto.files.CargarEtiquetaConjunto(7);
        QCOMPARE(abierto.mb.TipoEtiqueta + abierto.mb.Campos(13).Presente, QByteArray("T1"));
    }

    // The main window keeps its work while it lives, and only then: without
    // a window there is nothing to keep. The keeper may fail in any way: the
    // error that ends the program is then shown as it is.
    void ventanaGuardaSuTrabajo()
    {
        LabelEnv e(1);
        {
            frmBase w(e.mb, e.ui);
            QVERIFY(recuperacion::mensajeFinal(RuntimeError::subscriptOutOfRange())
                        .contains(e.mb.Textos(2090)));
        }
        QCOMPARE(QDir(e.dir.file("recovery")).entryList(QDir::Files).size(), 1);
        QCOMPARE(recuperacion::mensajeFinal(RuntimeError::subscriptOutOfRange()),
                 RuntimeError::subscriptOutOfRange().text());
        recuperacion::registrar(e.mb, []() -> QString { throw RuntimeError::pathFileAccess(); });
        QCOMPARE(recuperacion::mensajeFinal(RuntimeError::overflow()),
                 RuntimeError::overflow().text());
        recuperacion::retirar();
    }
};

QTEST_MAIN(TestEscritura)
#include "tst_escritura.moc"
