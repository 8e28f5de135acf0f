// Damaged files met by the commands of the window: each ends as the program
// means it to, quietly or with its run-time error, and never otherwise.
#include "AdaptaCaracteres.h"
#include "ArchivoDanado.h"
#include "LabelEnv.h"
#include "RuntimeErrors.h"
#include "TextLines.h"
#include "TextosLibres.h"

#include <QtTest>

namespace {

// The file a person would have, made by the program itself.
QByteArray sano(LabelEnv& e, const QString& archivo)
{
    if (archivo == "set")
        return joinLines(e.files.lineasArchivo());
    if (archivo == "label") {
        e.mb.NumEtiqueta = "3"; // the new model's first
        return joinLines(e.files.lineasEtiqueta("V"));
    }
    if (archivo == "freetxl") {
        for (int i = 0; i < 15; ++i)
            e.mb.TextoLibre(i) = "TEXTO " + QByteArray::number(i);
        return formaFreetxl(e.mb);
    }
    QFile cht(QStringLiteral(KORVO_SOURCE_DIR "/res/greek.cht"));
    return cht.open(QIODevice::ReadOnly) ? cht.readAll() : QByteArray();
}

} // namespace

class TestDanados : public QObject {
    Q_OBJECT

private slots:
    void archivos_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QString>("dano");
        QTest::addColumn<int>("error"); // the run-time error it ends with; 0 for none
        // A set is read line by line into the store, unchecked (any small
        // file alike); the store has 301 lines, and one more ends the program.
        QTest::newRow("set empty") << "set" << "empty" << 0;
        QTest::newRow("set 10 MB") << "set" << "10 MB" << 9;
        QTest::newRow("set UTF-16") << "set" << "UTF-16" << 9;
        // An opened label file is filed into a new set: 52 lines are read,
        // and each field row files itself by its own kind, number and code.
        QTest::newRow("label empty") << "label" << "empty" << 62;
        QTest::newRow("label binary") << "label" << "binary" << 13;
        // Cut in the middle of a field row: no code to take the character of.
        QTest::newRow("label truncated") << "label" << "truncated" << 5;
        QTest::newRow("label 10 MB") << "label" << "10 MB" << 0;
        QTest::newRow("label UTF-16") << "label" << "UTF-16" << 13;
        // freetxl.sft, read by the OK of the free text load dialog: a
        // sixteenth line has no text to go to.
        QTest::newRow("freetxl empty") << "freetxl" << "empty" << 0;
        QTest::newRow("freetxl binary") << "freetxl" << "binary" << 9;
        QTest::newRow("freetxl UTF-16") << "freetxl" << "UTF-16" << 9;
        // greek.cht, read at every character the transfer adapts: ten lines
        // are wanted (a cut file has fewer).
        QTest::newRow("cht empty") << "cht" << "empty" << 62;
        QTest::newRow("cht binary") << "cht" << "binary" << 0;
        QTest::newRow("cht 10 MB") << "cht" << "10 MB" << 0;
    }

    void archivos()
    {
        QFETCH(QString, archivo);
        QFETCH(QString, dano);
        LabelEnv e(1);
        const QByteArray bytes = archivoDanado(sano(e, archivo), dano);
        int error = 0;
        if (archivo == "set" || archivo == "label") {
            // The Open command, as the window gives it.
            const QString ruta = e.dir.file(archivo == "set" ? "tienda.pse" : "tienda.pde");
            e.dir.write(QFileInfo(ruta).fileName(), bytes);
            e.ui.openPaths = {ruta};
            error = errorNumber([&] { e.files.Abrir_Eti(); });
        } else if (archivo == "freetxl") {
            e.dir.write("freetxl.sft", bytes);
            e.mb.CargaTXL = 1;
            error = errorNumber([&] { AceptarCargaTXL(e.mb); });
        } else {
            e.dir.write("greek.cht", bytes);
            e.mb.Idioma = 7;
            TablaCaracteres tabla;
            error = errorNumber([&] { AdapTaCharGR(e.mb, tabla, "\xc1\xc2\xc3\xc4 ABC"); });
        }
        QTEST(error, "error");
        QVERIFY(e.ui.log.filter("message").isEmpty()); // none of these readers speaks
    }
};

QTEST_MAIN(TestDanados)
#include "tst_danados.moc"
