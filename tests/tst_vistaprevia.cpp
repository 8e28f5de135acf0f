#include "EtiquetasPrueba.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "RenderVista.h"
#include "RuntimeErrors.h"
#include "VistaPrevia.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

namespace {

constexpr qreal kPxPorMm = 8;

// How far two renderings are apart: the share of pixels that differ by more
// than a shade of anti-aliasing.
double diferencia(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return 1;
    qint64 distintos = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            distintos += std::max({qAbs(qRed(p) - qRed(q)), qAbs(qGreen(p) - qGreen(q)),
                                   qAbs(qBlue(p) - qBlue(q))}) > 96;
        }
    }
    return double(distintos) / (a.width() * a.height());
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

    // The fixed text lines: shown when not empty, one blank as well, in the
    // language's codes, and each drawn in its own place.
    void textosFijos()
    {
        ModBase mb = referencia(QStringLiteral("vacia"));
        QVERIFY(!cargaVistaPrevia(mb).lbTXF(1).Visible);
        mb.Idioma = 2;
        mb.TextoFijo(0) = "A\xD1O";
        mb.TextoFijo(1) = " ";
        QVERIFY(cargaVistaPrevia(mb).lbTXF(2).Visible);
        mb.TextoFijo(1) = "XXXX";
        const EscenaVista e = cargaVistaPrevia(mb);
        QCOMPARE(e.lbTXF(1).texto, QString::fromUtf8("AÑO"));
        QCOMPARE(QPointF(e.lbTXF(2).Left, e.lbTXF(2).Top), QPointF(5, 4));
        QVERIFY(!e.ImagenVista(16).Visible); // no field, not even the bar code
        const QImage img = imagenVistaPrevia(e, kPxPorMm);
        for (const TextoVista& t : {e.lbTXF(1), e.lbTXF(2)}) {
            const QRect donde =
                QRectF(t.Left * kPxPorMm, t.Top * kPxPorMm, 57 * kPxPorMm, t.Height * kPxPorMm)
                    .toRect() &
                img.rect();
            QVERIFY(oscuros(img.copy(donde)) > 0);
        }
    }

    // A missing stock picture ends the program with the runtime's error, as a
    // background that cannot be read does.
    void imagenQueFalta()
    {
        ProgramDir dir;
        copiaImagenesStock(dir);
        ModBase mb;
        dir.attach(mb);
        etiquetaReferencia(mb, QStringLiteral("textoslibres"));
        QFile::remove(dir.file(QStringLiteral("res/6A.wmf")));
        QCOMPARE(errorNumber([&] { cargaVistaPrevia(mb); }), 53);
    }

    // The drawings of the reference labels, against the committed ones, and
    // the items shown: the fields present, within the model.
    // KORVO_REGENERATE_PREVIEW=1 writes them afresh, to be looked at and
    // committed when a change of the drawing is meant.
    void dibujo_data()
    {
        QTest::addColumn<QList<int>>("visibles");
        QTest::newRow("envasado45") << QList<int>{0, 1, 2, 11, 13, 14, 16, 17, 18, 26};
        QTest::newRow("total60") << QList<int>{1, 13, 14, 15, 16, 19, 20};
        QTest::newRow("textoslibres") << QList<int>{12, 21, 25, 27, 36};
        QTest::newRow("antiguo") << QList<int>{10, 16, 21}; // neither 26 nor 27
    }

    void dibujo()
    {
        const QString nombre = QString::fromLatin1(QTest::currentDataTag());
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
        const EscenaVista e = cargaVistaPrevia(mb);
        QList<int> vistos;
        for (int i = 0; i <= 36; ++i)
            if (e.ImagenVista(i).Visible)
                vistos.append(i);
        QTEST(vistos, "visibles");
        const QImage hecha = imagenVistaPrevia(e, kPxPorMm);
        const QString archivo = datosPreview(nombre + QStringLiteral(".png"));
        if (qEnvironmentVariableIsSet("KORVO_REGENERATE_PREVIEW"))
            QVERIFY(hecha.save(archivo, "PNG"));
        const QImage esperada(archivo);
        QVERIFY2(!esperada.isNull(), qPrintable(archivo));
        const double d = diferencia(hecha, esperada);
        QVERIFY2(d < 0.004, qPrintable(QStringLiteral("%1 of the pixels differ").arg(d)));
    }

    // Each format by its name, the label at its true size: the picture at
    // 300 dots an inch, the drawing and the page in millimetres, the page in
    // whole points as the writer rounds them. (That each format is what its
    // name says is the command line's test.)
    void exporta_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QByteArrayList>("contiene");
        QTest::newRow("png") << "v.png"
                             << QByteArrayList{QByteArray("IHDR\0\0\x02\xa1\0\0\x02\xc5", 12)};
#ifdef KORVO_SVG
        QTest::newRow("svg") << "v.svg"
                             << QByteArrayList{"viewBox=\"0 0 57 60\"", "width=\"57mm\""};
#endif
        QTest::newRow("pdf") << "v.PDF" << QByteArrayList{"/MediaBox [0 0 162.000000 170.000000]"};
    }

    void exporta()
    {
        QFETCH(QString, archivo);
        QFETCH(QByteArrayList, contiene);
        ModBase mb = referencia(QStringLiteral("total60"));
        exportarVistaPrevia(mb, m_dir.file(archivo));
        const QByteArray bytes = m_dir.read(archivo);
        for (const QByteArray& c : contiene)
            QVERIFY2(bytes.contains(c), c.constData());
    }
};

QTEST_MAIN(TestVistaPrevia)
#include "tst_vistaprevia.moc"
