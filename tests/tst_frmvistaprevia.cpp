#include "Catalogo.h"
#include "EtiquetasPrueba.h"
#include "frmVistaPrevia.h"
#include "ModBase.h"
#include "ProgramDir.h"

#include <QPushButton>
#include <QtTest>

class TestFrmVistaPrevia : public QObject {
    Q_OBJECT

    ProgramDir m_dir;

    ModBase etiqueta(const char* ancho) const
    {
        ModBase mb;
        m_dir.attach(mb);
        etiquetaReferencia(mb, QStringLiteral("envasado45"));
        mb.AnchoEtiqueta = ancho;
        CargarTextos(mb, 1);
        return mb;
    }

private slots:
    void initTestCase()
    {
        m_dir.copyBuiltCatalogue();
        copiaImagenesStock(m_dir);
    }

    void textosYMedidas()
    {
        ModBase mb45 = etiqueta("45");
        ModBase mb60 = etiqueta("60");
        frmVistaPrevia f45(mb45);
        frmVistaPrevia f60(mb60);
        QCOMPARE(f45.windowTitle(), mb45.Textos(450));
        auto* boton = f45.findChild<QPushButton*>(QStringLiteral("CommandCerrar"));
        QVERIFY(boton);
        QCOMPARE(boton->text(), mb45.Textos(42));
        // The frame is the label in true millimetres.
        const qreal mm = f45.pixelesPorMm();
        auto* marco = f60.findChild<QWidget*>(QStringLiteral("PictVista"));
        QCOMPARE(marco->size(), QSize(qRound(57 * mm), qRound(60 * mm)));
        // A 60 frame: the window 941.1 twips higher, the button 15 mm lower.
        QCOMPARE(f60.height() - f45.height(), qRound(941.1 / 1440 * f60.logicalDpiY()));
        auto* boton60 = f60.findChild<QPushButton*>(QStringLiteral("CommandCerrar"));
        QVERIFY(qAbs(boton60->y() - boton->y() - 15 * mm) <= 1);
    }

    void cierra_data()
    {
        QTest::addColumn<bool>("conEsc");
        QTest::newRow("button") << false;
        QTest::newRow("esc") << true;
    }

    void cierra()
    {
        QFETCH(bool, conEsc);
        ModBase mb = etiqueta("45");
        frmVistaPrevia f(mb);
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        auto* boton = f.findChild<QPushButton*>(QStringLiteral("CommandCerrar"));
        if (conEsc)
            QTest::keyClick(boton, Qt::Key_Escape);
        else
            QTest::mouseClick(boton, Qt::LeftButton);
        QVERIFY(!f.isVisible());
    }

    // What the window shows is the scene's drawing: the bar code is there.
    void pinta()
    {
        ModBase mb = etiqueta("45");
        frmVistaPrevia f(mb);
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        auto* marco = f.findChild<QWidget*>(QStringLiteral("PictVista"));
        const QImage img = marco->grab().toImage();
        const ItemVista& barras = f.escena().ImagenVista(16);
        const qreal mm = marco->width() / 57.0;
        int negros = 0;
        const int y = qRound((barras.Top + barras.Height / 2) * mm);
        for (int x = qRound(barras.Left * mm); x < qRound((barras.Left + barras.Width) * mm); ++x)
            negros += qGray(img.pixel(x, y)) < 100;
        QVERIFY2(negros > 10, qPrintable(QString::number(negros)));
    }
};

QTEST_MAIN(TestFrmVistaPrevia)
#include "tst_frmvistaprevia.moc"
