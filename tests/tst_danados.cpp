// Damaged files met by the commands of the window: each ends as the program
// means it to, quietly or with its run-time error, and never otherwise.
#include "AdaptaCaracteres.h"
#include "ArchivoDanado.h"
#include "Codigos.h"
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
    return fuente("greek.cht");
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
        // Each file, with the error of each damage in this order.
        const QStringList danos{"empty", "binary", "truncated", "10 MB", "UTF-16"};
        const auto archivo = [&](const char* nombre, const QList<int>& errores) {
            for (int i = 0; i < danos.size(); ++i)
                QTest::addRow("%s %s", nombre, qPrintable(danos.at(i)))
                    << QString(nombre) << danos.at(i) << errores.at(i);
        };
        // A set is read line by line into the store, unchecked; the store
        // has 301 lines, and one more ends the program.
        archivo("set", {0, 0, 0, 9, 9});
        // An opened label file is filed into a new set: 52 lines are read,
        // and each field row files itself by its own kind, number and code;
        // cut in the middle of a field row, it has no code to take the
        // character of.
        archivo("label", {62, 13, 5, 0, 13});
        // freetxl.sft, read by the OK of the free text load dialog: a
        // sixteenth line has no text to go to.
        archivo("freetxl", {0, 9, 0, 9, 9});
        // greek.cht, read at every character the transfer adapts: ten lines
        // are wanted, and a number beyond 16 bits ends the program.
        archivo("cht", {62, 0, 62, 0, 0});
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
