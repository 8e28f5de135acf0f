#include "EtiquetasPrueba.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "RenderVista.h"
#include "RuntimeErrors.h"
#include "VistaPrevia.h"

#include <QImage>
#include <QPainter>
#include <QtTest>
#include <stdexcept>

namespace {

constexpr qreal kPxPorMm = 8;

// How far two renderings are apart: the share of pixels that differ by more
// than a shade of anti-aliasing.
double diferencia(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return 1;
    const QImage x = a.convertToFormat(QImage::Format_RGB32);
    const QImage y = b.convertToFormat(QImage::Format_RGB32);
    qint64 distintos = 0;
    for (int j = 0; j < x.height(); ++j) {
        const QRgb* p = reinterpret_cast<const QRgb*>(x.constScanLine(j));
        const QRgb* q = reinterpret_cast<const QRgb*>(y.constScanLine(j));
        for (int i = 0; i < x.width(); ++i) {
            const int d =
                qMax(qMax(qAbs(qRed(p[i]) - qRed(q[i])), qAbs(qGreen(p[i]) - qGreen(q[i]))),
                     qAbs(qBlue(p[i]) - qBlue(q[i])));
            if (d > 96)
                ++distintos;
        }
    }
    return double(distintos) / (x.width() * x.height());
}

} // namespace

class TestVistaPrevia : public QObject {
    Q_OBJECT

    ProgramDir m_dir;

    ModBase referencia(const QString& nombre) const
    {
        ModBase mb;
        m_dir.attach(mb);
        etiquetaReferencia(mb, nombre);
        return mb;
    }

private slots:
    void initTestCase() { copiaImagenesStock(m_dir); }

    void geometria_data()
    {
        QTest::addColumn<QByteArray>("ancho");
        QTest::addColumn<float>("alto");
        QTest::addColumn<double>("crecimiento");
        QTest::addColumn<float>("bajada");
        QTest::newRow("45") << QByteArray("45") << 45.0f << 0.0 << 0.0f;
        QTest::newRow("60") << QByteArray("60") << 60.0f << 941.1 << 15.0f;
    }

    void geometria()
    {
        ModBase mb = referencia(QStringLiteral("envasado45"));
        QFETCH(QByteArray, ancho);
        mb.AnchoEtiqueta = ancho;
        const GeometriaVistaPrevia g = geometriaVistaPrevia(mb);
        QTEST(g.altoMarco, "alto");
        QFETCH(double, crecimiento);
        QVERIFY(qAbs(g.crecimientoVentanaTwips - crecimiento) < 1e-9);
        QTEST(g.bajadaBoton, "bajada");
        QCOMPARE(cargaVistaPrevia(mb).altoMarco, g.altoMarco);
        QCOMPARE(cargaVistaPrevia(mb).anchoMarco, 57.0f);
    }

    // Which items the walk shows: the fields present, within the model.
    void visibles_data()
    {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QList<int>>("visibles");
        QTest::newRow("envasado45")
            << "envasado45" << QList<int>{0, 1, 2, 11, 13, 14, 16, 17, 18, 26};
        QTest::newRow("total60") << "total60" << QList<int>{1, 13, 14, 15, 16, 19, 20};
        QTest::newRow("textoslibres") << "textoslibres" << QList<int>{12, 21, 25, 27, 36};
        QTest::newRow("antiguo: no 26 nor 27") << "antiguo" << QList<int>{10, 16, 21};
        QTest::newRow("nothing, not even the bar code") << "vacia" << QList<int>{};
    }

    void visibles()
    {
        QFETCH(QString, nombre);
        ModBase mb = referencia(nombre);
        const EscenaVista e = cargaVistaPrevia(mb);
        QList<int> vistos;
        for (int i = 0; i <= 36; ++i)
            if (e.ImagenVista(i).Visible)
                vistos.append(i);
        QTEST(vistos, "visibles");
    }

    void textosFijos_data()
    {
        QTest::addColumn<int>("idioma");
        QTest::addColumn<QByteArray>("uno");
        QTest::addColumn<QByteArray>("dos");
        QTest::addColumn<bool>("visible1");
        QTest::addColumn<bool>("visible2");
        QTest::addColumn<QString>("texto1");
        QTest::newRow("none") << 1 << QByteArray() << QByteArray() << false << false << "";
        QTest::newRow("one blank shows")
            << 1 << QByteArray() << QByteArray(" ") << false << true << "";
        QTest::newRow("greek codes") << 7 << QByteArray("\xC1\xC2") << QByteArray() << true << false
                                     << QString::fromUtf8("ΑΒ");
        QTest::newRow("latin codes") << 2 << QByteArray("A\xD1O") << QByteArray("X") << true << true
                                     << QString::fromUtf8("AÑO");
    }

    void textosFijos()
    {
        ModBase mb = referencia(QStringLiteral("vacia"));
        QFETCH(int, idioma);
        QFETCH(QByteArray, uno);
        QFETCH(QByteArray, dos);
        mb.Idioma = static_cast<int16_t>(idioma);
        mb.TextoFijo(0) = uno;
        mb.TextoFijo(1) = dos;
        const EscenaVista e = cargaVistaPrevia(mb);
        QTEST(e.lbTXF(1).Visible, "visible1");
        QTEST(e.lbTXF(2).Visible, "visible2");
        QTEST(e.lbTXF(1).texto, "texto1");
        QCOMPARE(e.lbTXF(1).Top, 0.5f);
        QCOMPARE(e.lbTXF(2).Top, 4.0f);
        QCOMPARE(e.lbTXF(2).Left, 5.0f);
    }

    // Missing or damaged pictures end the program with the runtime's error.
    void imagenesQueFaltan_data()
    {
        QTest::addColumn<QString>("caso");
        QTest::addColumn<int>("error");
        QTest::newRow("stock file missing") << "stock" << 53;
        QTest::newRow("stock file damaged") << "dañado" << 481;
        QTest::newRow("background gone") << "fondo" << 53;
        QTest::newRow("background not a picture") << "fondo-texto" << 481;
    }

    void imagenesQueFaltan()
    {
        QFETCH(QString, caso);
        ProgramDir dir;
        copiaImagenesStock(dir);
        ModBase mb;
        dir.attach(mb);
        etiquetaReferencia(mb, QStringLiteral("textoslibres"));
        if (caso == QLatin1String("stock"))
            QFile::remove(dir.file(QStringLiteral("res/6A.wmf")));
        else if (caso == QLatin1String("dañado"))
            dir.write(QStringLiteral("res/6A.wmf"), QByteArray(300, '\x01'));
        else if (caso == QLatin1String("fondo"))
            mb.RutaFondo = dir.file(QStringLiteral("nada.bmp"));
        else {
            dir.write(QStringLiteral("fondo.bmp"), "not a picture");
            mb.RutaFondo = dir.file(QStringLiteral("fondo.bmp"));
        }
        QTEST(errorNumber([&] { cargaVistaPrevia(mb); }), "error");
    }

    // The drawings of the reference labels, against the committed ones.
    // KORVO_REGENERATE_PREVIEW=1 writes them afresh, to be looked at and
    // committed when a change of the drawing is meant.
    void dibujo_data()
    {
        QTest::addColumn<QString>("nombre");
        for (const QString& n : etiquetasReferencia())
            QTest::newRow(qPrintable(n)) << n;
    }

    void dibujo()
    {
        QFETCH(QString, nombre);
        ModBase mb = referencia(nombre);
        if (nombre == QLatin1String("envasado45")) {
            // A background at its own size under everything.
            QImage fondo(40, 40, QImage::Format_RGB32);
            fondo.fill(QColor(255, 230, 200));
            fondo.setDotsPerMeterX(2000); // half a millimetre a dot: 20 x 20 mm
            fondo.setDotsPerMeterY(2000);
            fondo.save(m_dir.file(QStringLiteral("fondo.bmp")), "BMP");
            mb.RutaFondo = m_dir.file(QStringLiteral("fondo.bmp"));
        }
        const QImage hecha = imagenVistaPrevia(cargaVistaPrevia(mb), kPxPorMm);
        const QString archivo = datosPreview(nombre + QStringLiteral(".png"));
        if (qEnvironmentVariableIsSet("KORVO_REGENERATE_PREVIEW"))
            QVERIFY(hecha.save(archivo, "PNG"));
        const QImage esperada(archivo);
        QVERIFY2(!esperada.isNull(), qPrintable(archivo));
        const double d = diferencia(hecha, esperada);
        QVERIFY2(d < 0.004, qPrintable(QStringLiteral("%1 of the pixels differ").arg(d)));
    }

    // The drawing lands where the scene says: the bar code is black at its
    // middle, the frame white beyond the fields.
    void dibujoEnSuSitio()
    {
        ModBase mb = referencia(QStringLiteral("envasado45"));
        const EscenaVista e = cargaVistaPrevia(mb);
        const QImage img = imagenVistaPrevia(e, kPxPorMm);
        QCOMPARE(img.size(), QSize(456, 360));
        const ItemVista& barras = e.ImagenVista(16);
        int negros = 0;
        const int y = qRound((barras.Top + barras.Height / 2) * kPxPorMm);
        for (int x = qRound(barras.Left * kPxPorMm);
             x < qRound((barras.Left + barras.Width) * kPxPorMm); ++x)
            negros += qGray(img.pixel(x, y)) < 80;
        QVERIFY2(negros > 60, qPrintable(QString::number(negros)));
        QCOMPARE(img.pixel(455, 359), qRgb(255, 255, 255));
    }

    void exporta_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QByteArray>("principio");
        QTest::newRow("png") << "v.png" << QByteArray("\x89PNG");
        QTest::newRow("svg") << "v.svg" << QByteArray("<?xml");
        QTest::newRow("pdf") << "v.PDF" << QByteArray("%PDF");
    }

    void exporta()
    {
        QFETCH(QString, archivo);
        ModBase mb = referencia(QStringLiteral("total60"));
        exportarVistaPrevia(mb, m_dir.file(archivo));
        const QByteArray bytes = m_dir.read(archivo);
        QTEST(bytes.left(archivo.endsWith(QLatin1String(".svg")) ? 5 : 4), "principio");
        if (archivo.endsWith(QLatin1String(".png")))
            QCOMPARE(QImage::fromData(bytes).size(), QSize(673, 709)); // 300 dots an inch
        if (archivo.endsWith(QLatin1String(".svg"))) {
            QVERIFY(bytes.contains("viewBox=\"0 0 57 60\""));
            QVERIFY(bytes.contains("width=\"57mm\""));
        }
        if (archivo.endsWith(QLatin1String(".PDF")))
            // 57 x 60 mm in whole points, as the writer rounds them.
            QVERIFY2(bytes.contains("/MediaBox [0 0 162.000000 170.000000]"),
                     bytes.mid(bytes.indexOf("/MediaBox"), 40).constData());
    }

    void exportaFalla()
    {
        ModBase mb = referencia(QStringLiteral("total60"));
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument,
                                 exportarVistaPrevia(mb, m_dir.file(QStringLiteral("v.gif"))));
        QCOMPARE(
            errorNumber([&] { exportarVistaPrevia(mb, m_dir.file(QStringLiteral("no/v.png"))); }),
            75);
    }
};

QTEST_MAIN(TestVistaPrevia)
#include "tst_vistaprevia.moc"
