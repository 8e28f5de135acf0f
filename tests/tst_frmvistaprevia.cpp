#include "EtiquetasPrueba.h"
#include "frmVistaPrevia.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "Recorrido.h"

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

    // The window shows the label in true millimetres, as the scene draws it
    // (the bar code is there), and closes by its button or by Esc.
    void ventana_data()
    {
        QTest::addColumn<bool>("conEsc");
        QTest::newRow("button") << false;
        QTest::newRow("esc") << true;
    }

    void ventana()
    {
        QFETCH(bool, conEsc);
        ModBase mb45 = etiqueta("45");
        ModBase mb60 = etiqueta("60");
        frmVistaPrevia f45(mb45);
        frmVistaPrevia f60(mb60);
        auto* boton = recorrido::hijo<QPushButton>(f45, "CommandCerrar");
        const qreal mm = f45.pixelesPorMm();
        QCOMPARE(recorrido::hijo<QWidget>(f60, "PictVista")->size(),
                 QSize(qRound(57 * mm), qRound(60 * mm)));
        // A 60 frame: the window 941.1 twips higher.
        QCOMPARE(f60.height() - f45.height(), qRound(941.1 / 1440 * f60.logicalDpiY()));

        recorrido::mostrar(f45);
        const QImage img = recorrido::hijo<QWidget>(f45, "PictVista")->grab().toImage();
        const ItemVista& barras = f45.escena().ImagenVista(16);
        int negros = 0;
        const int y = qRound((barras.Top + barras.Height / 2) * mm);
        for (int x = qRound(barras.Left * mm); x < qRound((barras.Left + barras.Width) * mm); ++x)
            negros += qGray(img.pixel(x, y)) < 100;
        QVERIFY2(negros > 10, qPrintable(QString::number(negros)));
        if (conEsc)
            QTest::keyClick(boton, Qt::Key_Escape);
        else
            QTest::mouseClick(boton, Qt::LeftButton);
        QVERIFY(!f45.isVisible());
    }
};

QTEST_MAIN(TestFrmVistaPrevia)
#include "tst_frmvistaprevia.moc"
