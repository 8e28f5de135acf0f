#include "EtiquetasPrueba.h"
#include "Metafile.h"
#include "Picture.h"
#include "ProgramDir.h"
#include "RuntimeErrors.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QtTest>

namespace {

// The picture stretched over a white bitmap of that size.
QImage pinta(const Picture& p, QSize size = {200, 200})
{
    QImage img(size, QImage::Format_RGB32);
    img.fill(Qt::white);
    QPainter painter(&img);
    p.draw(painter, QRectF(QPointF(0, 0), QSizeF(size)));
    return img;
}

int textos(const Metafile& m)
{
    return static_cast<int>(
        std::count_if(m.ops().begin(), m.ops().end(),
                      [](const Metafile::Op& o) { return o.kind == Metafile::Op::Kind::Text; }));
}

} // namespace

class TestImagenes : public QObject {
    Q_OBJECT

private slots:
    // Metafiles written by other programs and by hand, record by record.
    void ajenos_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QPoint>("punto");
        QTest::addColumn<QString>("color");
        // Hand-made, four quadrants of shapes.
        QTest::newRow("wmf polygon in a reused slot")
            << "shapes.wmf" << QPoint(50, 170) << "#00a000";
        QTest::newRow("wmf its wide black border") << "shapes.wmf" << QPoint(112, 150) << "#000000";
        QTest::newRow("wmf bitmap left") << "bitmap.wmf" << QPoint(40, 100) << "#ff0000";
        QTest::newRow("wmf polypolygon hole") << "polypolygon.wmf" << QPoint(100, 100) << "#ffffff";
        QTest::newRow("emf ellipse moved by the world")
            << "shapes.emf" << QPoint(150, 50) << "#0000ff";
        QTest::newRow("emf filled path") << "shapes.emf" << QPoint(50, 140) << "#000000";
        QTest::newRow("emf bitmap") << "shapes.emf" << QPoint(150, 150) << "#00c800";
    }

    void ajenos()
    {
        QFETCH(QString, archivo);
        QFETCH(QPoint, punto);
        const PictureLoad r = readPicture(datosPreview(QStringLiteral("metafiles/") + archivo));
        QCOMPARE(r.error, PictureError::None);
        QTEST(QColor(pinta(r.picture).pixel(punto)).name(), "color");
    }

    // Text keeps its font and reads its codes by the font's character set.
    void textoConJuegoDeCaracteres()
    {
        const PictureLoad w = readPicture(datosPreview(QStringLiteral("metafiles/text.wmf")));
        const Metafile& m = *w.picture.metafile();
        QCOMPARE(textos(m), 2);
        QCOMPARE(m.ops()[0].text.text, QString::fromUtf8("ΑΒΓ"));
        QCOMPARE(m.ops()[0].text.family, QStringLiteral("DejaVu Sans"));
        QCOMPARE(m.ops()[1].text.text, QStringLiteral("ABCD"));
        QCOMPARE(m.ops()[1].text.origin, QPointF(2000, 900));
        // No placeable header: the window is the frame, hundredths of a millimetre.
        QCOMPARE(m.frame(), QRectF(0, 0, 4000, 1000));

        const PictureLoad e = readPicture(datosPreview(QStringLiteral("metafiles/shapes.emf")));
        QCOMPARE(e.picture.metafile()->ops().back().text.text, QString::fromUtf8("Año Ω"));
        QVERIFY(qAbs(e.picture.sizeMm().width() - 20) < 1e-9);
    }

    // What gnuplot writes: shapes and text, dark on white and not all over.
    void gnuplot_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::newRow("lines") << "gnuplot.emf";
        QTest::newRow("bars") << "gnuplot-barras.emf";
    }

    void gnuplot()
    {
        QFETCH(QString, archivo);
        const PictureLoad r = readPicture(datosPreview(QStringLiteral("metafiles/") + archivo));
        QVERIFY(textos(*r.picture.metafile()) > 3);
        const int n = oscuros(pinta(r.picture, {300, 200}));
        QVERIFY2(n > 300 && n < 300 * 200 / 2, qPrintable(QString::number(n)));
    }

    // The first bytes tell the format, whatever the name: bitmaps, icons and
    // JPEG as Qt writes them load at their size in millimetres. What cannot
    // be read fails as a whole, never half-way and never by crashing; cut
    // bitmaps, icons and JPEG files are met by the main window's tests as a
    // background at start-up.
    void lectura_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("error");
        QImage azul(32, 16, QImage::Format_RGB32);
        azul.fill(QColor(0, 0, 255));
        for (const char* formato : {"BMP", "ICO", "JPEG"}) {
            QBuffer b;
            b.open(QIODevice::WriteOnly);
            azul.save(&b, formato);
            QTest::newRow(formato) << "p.pic" << b.data() << 0;
        }
        QTest::newRow("missing") << "nada.wmf" << QByteArray() << 53; // null: not written
        QTest::newRow("empty") << "vacio.bmp" << QByteArray("") << 481;
        const QDir d(datosPreview(QStringLiteral("metafiles/damaged")));
        for (const QString& f : d.entryList(QDir::Files))
            QTest::newRow(qPrintable(f)) << d.filePath(f) << QByteArray() << 481;
    }

    void lectura()
    {
        QFETCH(QString, archivo);
        QFETCH(QByteArray, bytes);
        QFETCH(int, error);
        ProgramDir dir;
        const QString path = QFileInfo(archivo).isRelative() ? dir.file(archivo) : archivo;
        if (!bytes.isNull())
            dir.write(archivo, bytes);
        QCOMPARE(errorNumber([&] { loadPicture(path); }), error);
        Picture p = Picture::fromImage(QImage(1, 1, QImage::Format_RGB32));
        QCOMPARE(tryLoadPicture(path, p), error == 0);
        if (error) {
            QCOMPARE(p.image().size(), QSize(1, 1)); // left alone
        } else {
            QVERIFY(qAbs(p.sizeMm().width() - 32 * 25.4 / 96) < 0.1);
            QVERIFY(qBlue(pinta(p).pixel(100, 100)) > 200);
        }
    }
};

QTEST_MAIN(TestImagenes)
#include "tst_imagenes.moc"
