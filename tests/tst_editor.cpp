// The surface without a screen: coordinates, boxes, the drag and the
// alignment commands.
#include "EditorEnv.h"
#include "RuntimeErrors.h"

#include <QLocale>
#include <QtTest>

const double kSimple = 30.0 / 9, kDoble = 50.0 / 9;

// Field `campo` at `hor` given size code `tamano` (free texts `letras` long):
// the box it gets, and where a box past the right limit is put back.
struct CasoCaja {
    int campo, tamano, letras, hor;
    double ancho, alto;
    int resultado;
};
Q_DECLARE_METATYPE(CasoCaja)

// Field `campo` at (10, 20) pressed at its top left, alone or with field 13
// selected at (30, 30), then dragged over the surface (`debajo` 0: to x, y in
// units) or over field `debajo` (x, y in twips relative to that box), on a
// label 45 long.
struct CasoArrastre {
    int campo;
    bool grupo;
    int debajo;
    double x, y;
    int estado, punteroHor;
    bool permitido;
};
Q_DECLARE_METATYPE(CasoArrastre)

// A command on the selection: adjust left or up, or align (left, centre,
// right, and any other mode) where `orden` is Alinear plus the mode.
enum { Izda, Arriba, Alinear };
struct CasoOrden {
    int orden;
    QList<QList<int>> campos;
    QList<double> bordes;
};
Q_DECLARE_METATYPE(CasoOrden)

class TestEditor : public QObject {
    Q_OBJECT
    static bool conPunto() { return QLocale::system().decimalPoint() == QLatin1String("."); }

private slots:
    // Halves to the even number; past 16 bits, an overflow.
    void redondeo()
    {
        using Coordenadas::redondear;
        QCOMPARE(redondear(12.5), 12);
        QCOMPARE(redondear(32767.4), 32767);
        QCOMPARE(errorNumber([] { redondear(32767.5); }), 6);
        QCOMPARE(errorNumber([] { redondear(-32769); }), 6);
    }

    void cajas_data()
    {
        QTest::addColumn<CasoCaja>("c");
        QTest::newRow("price 3") << CasoCaja{13, 3, 0, 3, 31, kDoble, 3};
        QTest::newRow("second currency 1") << CasoCaja{15, 1, 0, 3, 23, kDoble, 3};
        QTest::newRow("label total 3 stays single") << CasoCaja{20, 3, 0, 3, 24, kSimple, 3};
        QTest::newRow("date 0") << CasoCaja{17, 0, 0, 3, 12.5, kSimple, 3};
        QTest::newRow("free text 13 at 2") << CasoCaja{36, 2, 13, 3, 47, kSimple, 3};
        // Tested against 52, put back against 53.
        QTest::newRow("ends at 52: stays") << CasoCaja{12, 0, 0, 41, 11, kSimple, 41};
        QTest::newRow("ends at 52.2: to 46") << CasoCaja{21, 0, 4, 45, 7.2, kSimple, 46};
        QTest::newRow("ends at 53.5: to 40") << CasoCaja{17, 0, 0, 41, 12.5, kSimple, 40};
        // A long free text goes over the band.
        QTest::newRow("30 letters") << CasoCaja{21, 0, 30, 10, 54, kSimple, -1};
    }

    void cajas()
    {
        QFETCH(CasoCaja, c);
        EditorEnv env;
        if (const int t = textoLibreDeCampo(c.campo))
            env.mb.TextoLibre(t - 1) = QByteArray(c.letras, 'X');
        env.poner(c.campo, c.hor, 20);
        env.mb.Campos(c.campo).TextoHor = "ABC";
        env.editor.TamanoImagen(c.campo, c.tamano);
        const Caja& caja = env.editor.superficie.Imagen(c.campo);
        QCOMPARE(float(caja.width()), float(c.ancho));
        QCOMPARE(float(caja.height()), float(c.alto));
        QCOMPARE(env.mb.Campos(c.campo).PosHor, c.resultado);
        QCOMPARE(caja.left(), double(c.resultado));
        // The push-back leaves the stored text alone.
        QCOMPARE(env.mb.Campos(c.campo).TextoHor, QByteArray("ABC"));
    }

    void textoExactoSigueLaConfiguracion()
    {
        // Run once with a point and once with a comma as the system's mark.
        QCOMPARE(textoPosicionExacto(11), conPunto() ? QByteArray("39.6") : QByteArray("39,6"));
        QCOMPARE(textoPosicionExacto(-1), conPunto() ? QByteArray("-3.6") : QByteArray("-3,6"));
        QCOMPARE(textoPosicionExacto(1000), QByteArray("3600"));
        QCOMPARE(textoPosicionEntero(-1), QByteArray("0-4"));
    }

    void limitesArrastre_data()
    {
        QTest::addColumn<CasoArrastre>("c");
        const auto fila = [](const char* nombre, CasoArrastre c) { QTest::newRow(nombre) << c; };
        // Field 1 (45 x 3.33) over the surface.
        fila("left 8 stands", {1, false, 0, 8, 20, 2, 8, true});
        fila("left 9 ends at 54", {1, false, 0, 9, 20, 2, 9, false});
        fila("left 2 in the band", {1, false, 0, 2, 20, 2, 2, false});
        fila("left 3 just clear", {1, false, 0, 3, 20, 2, 3, true});
        fila("top 7", {1, false, 0, 5, 7, 2, 5, false});
        fila("top 8", {1, false, 0, 5, 8, 2, 5, true});
        fila("bottom 45.33 rounds to 45", {1, false, 0, 5, 42, 2, 5, true});
        fila("bottom 46.33", {1, false, 0, 5, 43, 2, 5, false});
        fila("leaving, inside the limits", {1, false, 0, 5, 20, 1, 5, true});
        // Field 12 (11 x 3.33) with field 13 (14 wide): the box runs from 10
        // to 44 across and 20 to 33 down.
        fila("group bottom at 45", {12, true, 0, 10, 32, 2, 10, true});
        fila("group bottom at 46", {12, true, 0, 10, 33, 2, 10, false});
        fila("group right at 53", {12, true, 0, 19, 20, 2, 19, true});
        fila("group right at 54", {12, true, 0, 20, 20, 2, 20, false});
        // Field 12 over a box: the pointer is relative to that box, but the
        // dragged field's left and top are added, and the box's size counts.
        fila("over itself, 2 across", {12, false, 12, 226.8, 0, 0, 12, true});
        // The bar code at (20, 30) is 11.11 tall: 14 units down end at 45.11.
        fila("over the bar code, 14 down", {12, false, 16, 0, 882, 0, 10, true});
        fila("over the bar code, 16 down", {12, false, 16, 0, 1008, 0, 10, false});
    }

    void limitesArrastre()
    {
        QFETCH(CasoArrastre, c);
        EditorEnv env;
        env.poner(16, 20, 30);
        env.poner(c.campo, 10, 20, "0", c.grupo);
        if (c.grupo)
            env.poner(13, 30, 30, "0", true);
        env.editor.pulsarCampo(c.campo, BotonRaton::Izquierdo, 0, 0);
        if (c.debajo)
            env.editor.arrastrarSobreCampo(c.debajo, c.x, c.y);
        else
            env.editor.arrastrarSobreCuadro(c.estado, c.x, c.y);
        QCOMPARE(env.editor.superficie.puntero, c.permitido ? Puntero::Flecha : Puntero::NoSoltar);
        // The read-out is the pointer, not the box.
        QCOMPARE(env.editor.superficie.panelX, QStringLiteral("X: %1").arg(c.punteroHor));
    }

    // A drop: the record, its position texts and the companion line take
    // the place, the read-out is corrected by the grip, and the label is not
    // marked changed.
    void soltar()
    {
        EditorEnv env;
        env.mb.PesoAproximado = true;
        env.poner(11, 10, 20);
        // Pressed 1 unit across and 1 down into the box: 170.1 twips fall
        // just short of one and a half units in double precision.
        env.editor.pulsarCampo(11, BotonRaton::Izquierdo, 170.1, 63);
        env.editor.arrastrarSobreCuadro(2, 15.4, 30.6);
        env.editor.soltarEnCuadro(15.4, 30.6);
        QCOMPARE(env.en(11), QPoint(14, 30));
        QCOMPARE(env.mb.Campos(11).TextoHor, QByteArray("050"));
        QCOMPARE(env.editor.superficie.panelX, QStringLiteral("X: 14"));
        QCOMPARE(env.editor.superficie.Imagen(0).left(), 14.0);
        QVERIFY(!env.mb.Modificado);
    }

    // The group's right edge is compared with its bottom: near the top of
    // the label the last selected field sets it, here the pressed one (35),
    // though field 1 reaches 48.
    void cajaDelGrupo()
    {
        EditorEnv env;
        env.poner(12, 24, 20, "0", true);
        env.poner(1, 3, 10, "0", true);
        env.editor.pulsarCampo(12, BotonRaton::Izquierdo, 0, 0);
        const EditorEtiqueta& e = env.editor;
        QCOMPARE((QList<int>{e.GrupoIzquierda, e.GrupoArriba, e.GrupoDerecha, e.GrupoAbajo}),
                 (QList<int>{3, 10, 35, 23}));
    }

    void campoCeroNoEsCampo()
    {
        EditorEnv env;
        env.editor.CampoActivo = 5;
        env.editor.pulsarCampo(0, BotonRaton::Izquierdo, 300, 300);
        QCOMPARE(env.editor.CampoActivo, 5);
        QCOMPARE(errorNumber([&] { env.editor.dobleClicCampo(0); }), 9);
    }

    // Field 12 stacked from (desde, desde) down, among fields already in
    // place (number, hor, ver).
    void inicializarSituacion_data()
    {
        QTest::addColumn<QList<QList<int>>>("otros");
        QTest::addColumn<int>("desde");
        QTest::addColumn<int>("resultado");
        QTest::newRow("a stack found in reverse order")
            << QList<QList<int>>{{11, 0, 6}, {13, 0, 3}, {14, 0, 0}} << 0 << 9;
        QTest::newRow("a gap big enough") << QList<QList<int>>{{11, 0, 0}, {13, 0, 9}} << 0 << 3;
        // Touching from above is no obstacle.
        QTest::newRow("touching from above") << QList<QList<int>>{{11, 10, 7}} << 10 << 10;
        QTest::newRow("the bar code") << QList<QList<int>>{{16, 10, 12}} << 10 << 23;
    }

    void inicializarSituacion()
    {
        QFETCH(QList<QList<int>>, otros);
        QFETCH(int, desde);
        EditorEnv env;
        for (const QList<int>& o : otros)
            env.poner(o[0], o[1], o[2]);
        env.mb.Campos(12).Tamano = "3";
        env.editor.InicializarSituacion(12, desde, desde);
        QTEST(int(env.mb.Campos(12).PosVer), "resultado");
        QCOMPARE(env.mb.Campos(12).Tamano, QByteArray("0"));
        QCOMPARE(env.mb.Campos(12).TextoVer, QByteArray("000"));
    }

    // Fields given as number, hor, ver, selected; the box edge on the
    // command's axis each ends at. The adjustments pack the selection and
    // change the label; an alignment moves its box, the record to the rounded
    // edge, and leaves the label unchanged.
    void ordenes_data()
    {
        QTest::addColumn<CasoOrden>("c");
        const auto fila = [](const char* nombre, CasoOrden c) { QTest::newRow(nombre) << c; };
        fila("left: a row closes up", {Izda, {{12, 30, 20, 1}, {11, 20, 20, 1}}, {14, 3}});
        // Against an unselected field of the same top; one to its right is
        // ignored, and so is one that starts at its bottom.
        fila("left: against a field", {Izda, {{13, 5, 20, 0}, {12, 30, 20, 1}}, {5, 19}});
        fila("left: one to the right", {Izda, {{13, 38, 20, 0}, {12, 30, 20, 1}}, {38, 3}});
        fila("left: one touching below", {Izda, {{13, 5, 23, 0}, {12, 30, 20, 1}}, {5, 3}});
        // Pushed to the right, clear of a long field.
        fila("left: past a long field", {Izda, {{1, 4, 20, 0}, {12, 30, 21, 1}}, {4, 49}});
        // Equal lefts: the lower number goes first.
        fila("left: a tie", {Izda, {{12, 30, 20, 1}, {11, 30, 22, 1}}, {14, 3}});
        fila("left: nothing selected, nothing changes", {Izda, {{12, 30, 20, 0}}, {30}});
        fila("up: a column closes up", {Arriba, {{12, 10, 30, 1}, {11, 10, 20, 1}}, {11, 8}});
        fila("up: one beside is ignored", {Arriba, {{16, 21, 9, 0}, {12, 10, 30, 1}}, {9, 8}});
        // Field 12 at (20, 40) is not selected.
        const QList<int> otro{12, 20, 40, 0};
        fila("align left", {Alinear, {{1, 20, 30, 1}, otro}, {3, 20}});
        fila("centre of 14: 21.5 to 22", {Alinear + 1, {{13, 20, 30, 1}, otro}, {21.5, 20}});
        fila("right of the weight", {Alinear + 2, {{11, 20, 30, 1}, otro}, {42, 20}});
        fila("a bad mode keeps the left", {Alinear + 7, {{17, 20, 30, 1}, otro}, {20, 20}});
    }

    void ordenes()
    {
        if (!conPunto())
            QSKIP("this table is written for a point as the decimal mark");
        QFETCH(CasoOrden, c);
        EditorEnv env;
        bool alguno = false; // selected
        for (const QList<int>& f : c.campos) {
            env.poner(f[0], f[1], f[2], "0", f[3] != 0);
            alguno = alguno || f[3];
        }
        if (c.orden >= Alinear)
            env.editor.Alinear(c.orden - Alinear);
        else
            c.orden == Izda ? env.editor.AjustarIzda() : env.editor.AjustarArriba();
        const bool ajuste = c.orden < Alinear;
        for (int i = 0; i < c.campos.size(); ++i) {
            const Campo& campo = env.mb.Campos(c.campos[i][0]);
            const Caja& caja = env.editor.superficie.Imagen(c.campos[i][0]);
            const double borde = c.orden == Arriba ? caja.top() : caja.left();
            const int pos = c.orden == Arriba ? campo.PosVer : campo.PosHor;
            QCOMPARE(borde, c.bordes[i]);
            QCOMPARE(pos, Coordenadas::redondear(borde));
            if (c.campos[i][3]) {
                const QByteArray texto = c.orden == Arriba ? campo.TextoVer : campo.TextoHor;
                QCOMPARE(texto, ajuste ? textoPosicionExacto(pos) : textoPosicionEntero(pos));
            }
            QVERIFY(!campo.Seleccionado);
        }
        QCOMPARE(env.mb.Modificado, ajuste && alguno);
    }
};

QTEST_GUILESS_MAIN(TestEditor)
#include "tst_editor.moc"
