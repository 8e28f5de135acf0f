// The editor's commands: presets, palette, pop-up menus, captions and the
// background picture.
#include "EditorEnv.h"
#include "Historial.h"
#include "Vista.h"

#include <QtTest>

static QString mascara(const std::function<bool(int)>& bit, int n)
{
    QString s;
    for (int i = 0; i < n; ++i)
        s += bit(i) ? QLatin1Char('1') : QLatin1Char('0');
    return s;
}

// Where a preset 45 or 60 long puts field `campo`, its position texts and
// size code.
struct CasoPreset {
    int ancho, modelo, campo;
    QPoint pos;
    QByteArrayList textos;
};
Q_DECLARE_METATYPE(CasoPreset)

// The Visualizar menu, the palette and the price box's caption of a label
// kind and model.
struct CasoMenus {
    QByteArray tipo;
    int modelo;
    QString visualHabilitado, visualMarcado;
    bool loteVisible;
    QString paleta;
    double topBorrar;
    QString precio;
};
Q_DECLARE_METATYPE(CasoMenus)

struct CasoMenuDer {
    int campo;
    const char* tamano;
    QString habilitado, marcado;
    int nuevo;
    double left;
};
Q_DECLARE_METATYPE(CasoMenuDer)

struct CasoPendientes {
    int boton, modelo;
    bool primeroPendiente, pesoEnOrigen;
    QList<int> alturas;
};
Q_DECLARE_METATYPE(CasoPendientes)

using Orden = std::function<void(EditorEnv&)>;
Q_DECLARE_METATYPE(Orden)

class TestEditorMenus : public QObject {
    Q_OBJECT
private slots:
    void presets_data()
    {
        QTest::addColumn<CasoPreset>("p");
        // A plain field, and each field a preset puts at size 1.
        QTest::newRow("60 field 14") << CasoPreset{60, 1, 14, {39, 36}, {"140", "130", "1"}};
        QTest::newRow("45 field 14") << CasoPreset{45, 1, 14, {39, 27}, {"140", "076", "1"}};
        // The old model keeps field 30, which it does not have, as it was.
        QTest::newRow("45 old field 13") << CasoPreset{45, 0, 13, {22, 27}, {"079", "076", "0"}};
    }

    // From the tool bar on a changed label: Yes to the question, and the save
    // dialog cancelled, runs the preset all the same. No and Cancel are in
    // the tool bar's own test.
    void presets()
    {
        QFETCH(CasoPreset, p);
        EditorEnv env(p.modelo);
        env.poner(5, 20, 20, "0", true);
        env.mb.Campos(30).Presente = "1";
        env.mb.NombreEtiqueta = "QUESO";
        env.mb.Modificado = true;
        env.ui.answers = {Answer::Yes};
        p.ancho == 60 ? env.editor.botonEti60() : env.editor.botonEti45();
        QCOMPARE(env.ui.log.filter(QStringLiteral("save:")).size(), 1);
        const Campo& c = env.mb.Campos(p.campo);
        QCOMPARE(env.en(p.campo), p.pos);
        QCOMPARE((QByteArrayList{c.TextoHor, c.TextoVer, c.Tamano}), p.textos);
        QVERIFY(env.editor.superficie.Imagen(p.campo).visible);
        QCOMPARE(env.mb.Campos(5).Presente, QByteArray("0"));
        QCOMPARE(env.mb.Campos(30).Presente, p.modelo ? QByteArray("0") : QByteArray("1"));
        QCOMPARE(env.mb.AnchoEtiqueta, QByteArray::number(p.ancho));
        QVERIFY(env.mb.NombreEtiqueta.isEmpty());
        QVERIFY(env.mb.Modificado);
    }

    // With fields 3, 11, 13 and 20 on the label.
    void menus_data()
    {
        QTest::addColumn<CasoMenus>("c");
        const auto fila = [](const char* nombre, CasoMenus c) { QTest::newRow(nombre) << c; };
        fila("V new",
             {"V", 1, "11001111101111", "10000000001000", true, "1111001111101111", 132, "Precio"});
        fila("T new", {"T", 1, "11111111110011", "10100000010000", true, "1111111111110011", 132,
                       "Operaciones"});
        fila("T old", {"T", 0, "11111111110011", "10100000010000", false, "1111111111110001", 130.2,
                       "Operaciones"});
    }

    void menus()
    {
        QFETCH(CasoMenus, c);
        EditorEnv env(c.modelo);
        env.mb.TipoEtiqueta = c.tipo;
        for (int n : {3, 11, 13, 20})
            env.poner(n, 10, 10 + n);
        env.editor.repintar();
        env.editor.pulsarCuadro(BotonRaton::Derecho, 20, 20);
        EditorEtiqueta& e = env.editor;
        QCOMPARE(mascara([&](int k) { return e.mnuVisual(k).enabled; }, 14), c.visualHabilitado);
        QCOMPARE(mascara([&](int k) { return e.mnuVisual(k).checked; }, 14), c.visualMarcado);
        QCOMPARE(e.mnuVisual(12).visible, c.loteVisible);
        QCOMPARE(mascara([&](int i) { return e.CBDisplay(i).visible; }, 16), c.paleta);
        QCOMPARE(e.CBDisplay(15).top, c.topBorrar);
        QCOMPARE(e.superficie.Imagen(13).caption, c.precio);
    }

    // A field's size menu: what it offers and marks; then size `nuevo`
    // chosen, and the box's left after it. Delete is the surface test's.
    void menuDerecho_data()
    {
        QTest::addColumn<CasoMenuDer>("c");
        // Wider, a descriptive line is pushed back to end at 53.
        QTest::newRow("descriptive") << CasoMenuDer{1, "0", "11111", "10000", 2, 6};
        // The second currency given the size it has: no change.
        QTest::newRow("second currency") << CasoMenuDer{15, "1", "11001", "01000", 1, 8};
        QTest::newRow("an odd code") << CasoMenuDer{12, "7", "11111", "00000", 3, 8};
    }

    void menuDerecho()
    {
        QFETCH(CasoMenuDer, c);
        EditorEnv env;
        env.poner(c.campo, 8, 20, c.tamano);
        env.editor.pulsarCampo(c.campo, BotonRaton::Derecho, 100, 100);
        QCOMPARE(env.ui.log.last(), QStringLiteral("mnuDerecho"));
        EditorEtiqueta& e = env.editor;
        QCOMPARE(mascara([&](int k) { return e.mnuDer(k).enabled; }, 5), c.habilitado);
        QCOMPARE(mascara([&](int k) { return e.mnuDer(k).checked; }, 5), c.marcado);
        e.clicMnuDer(c.nuevo);
        QCOMPARE(env.mb.Campos(c.campo).Tamano, QByteArray::number(c.nuevo));
        QCOMPARE(e.superficie.Imagen(c.campo).left(), c.left);
        QCOMPARE(env.mb.Modificado, QByteArray::number(c.nuevo) != c.tamano);
    }

    // A right press on the surface: the menu it opens and the point it keeps
    // for the next field, (7, 7) before.
    void pulsarCuadro_data()
    {
        QTest::addColumn<QPointF>("punto");
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QPoint>("nuevo");
        QTest::newRow("left band") << QPointF(2.9, 20) << "mnuOcultar" << QPoint(7, 7);
        QTest::newRow("exactly 3") << QPointF(3, 20) << "" << QPoint(7, 7);
        QTest::newRow("just inside") << QPointF(3.1, 8.1) << "mnuVisualiza" << QPoint(3, 8);
        QTest::newRow("top strip") << QPointF(10, 8) << "" << QPoint(7, 7);
    }

    void pulsarCuadro()
    {
        QFETCH(QPointF, punto);
        EditorEnv env;
        env.mb.NuevoCampoHor = 7;
        env.mb.NuevoCampoVer = 7;
        env.editor.pulsarCuadro(BotonRaton::Derecho, punto.x(), punto.y());
        QTEST(env.ui.log.join(QLatin1Char(',')), "menu");
        QTEST(QPoint(env.mb.NuevoCampoHor, env.mb.NuevoCampoVer), "nuevo");
    }

    void paletaCampo()
    {
        EditorEnv env;
        env.mb.PesoAproximado = true;
        env.editor.pulsarCBDisplay(2);  // weight
        env.editor.pulsarCBDisplay(3);  // tare, stacked under it
        env.editor.pulsarCBDisplay(12); // price
        QCOMPARE(env.en(11), QPoint(0, 0));
        QCOMPARE(env.en(12), QPoint(0, 3));
        QCOMPARE(env.editor.superficie.Imagen(13).top(), 6.0);
        QVERIFY(env.editor.superficie.Imagen(0).visible);
        QVERIFY(env.mb.Modificado);

        // Already there: nothing moves, and still the label counts as changed.
        env.mb.Modificado = false;
        env.editor.pulsarCBDisplay(4);
        QCOMPARE(env.mb.Campos(13).PosVer, 6);
        QVERIFY(env.mb.Modificado);
        // The delete button leaves the mark alone.
        env.mb.Modificado = false;
        env.editor.pulsarCBDisplay(15);
        QVERIFY(!env.mb.Modificado);
        QCOMPARE(env.ui.log.filter(QStringLiteral("frmBorrar")).size(), 1);
    }

    // Item 1 waits at the origin; the dialog, free texts (0) or descriptive
    // lines (1), puts items 2 and 3 on and marks them pending, and item 1 if
    // told. What the palette's button leaves.
    void colocaPendientes_data()
    {
        QTest::addColumn<CasoPendientes>("c");
        const auto fila = [](const char* nombre, CasoPendientes c) { QTest::newRow(nombre) << c; };
        fila("free texts: stacked under the first", {0, 1, false, false, {0, 3, 6}});
        fila("free texts, old model: nothing is left pending", {0, 0, false, false, {0, 0, 0}});
        fila("descriptive lines: the first keeps the origin", {1, 1, true, false, {0, 3, 6}});
        fila("descriptive lines: blocked by the weight", {1, 1, true, true, {3, 6, 9}});
    }

    void colocaPendientes()
    {
        QFETCH(CasoPendientes, c);
        EditorEnv env(c.modelo);
        const auto campo = [&](int n) { return c.boton == 0 ? campoDeTextoLibre(n) : n; };
        const auto pendiente = [&](int n) -> bool& {
            return c.boton == 0 ? env.mb.TXLPendiente(n) : env.mb.DESPendiente(n);
        };
        env.mb.TextoLibre(0) = "UNO";
        env.poner(campo(1), 0, 0);
        if (c.pesoEnOrigen)
            env.poner(11, 0, 0);
        if (c.boton == 0)
            env.mb.Campos(27).Presente = "1"; // free text 6, whose text is empty
        env.view.dialogo = [&] {
            for (int n : {2, 3}) {
                env.mb.TextoLibre(n - 1) = "DOS";
                env.mb.Campos(campo(n)).Presente = "1";
                pendiente(n) = true;
            }
            pendiente(1) = c.primeroPendiente;
        };
        env.editor.pulsarCBDisplay(c.boton);
        for (int n = 1; n <= 3; ++n)
            QCOMPARE(env.mb.Campos(campo(n)).PosVer, c.alturas[n - 1]);
        for (int n = 1; n <= 10; ++n)
            QVERIFY(!pendiente(n));
        QCOMPARE(env.mb.Campos(27).Presente, QByteArray("0"));
    }

    void clicVisualiza()
    {
        EditorEnv env;
        env.mb.PesoAproximado = true;
        env.editor.pulsarCuadro(BotonRaton::Derecho, 50, 40);
        env.editor.clicMnuVisual(0); // the weight, placed at the point
        QCOMPARE(env.en(11), QPoint(42, 40));
        QCOMPARE(env.mb.Campos(11).TextoHor, QByteArray("151.2"));
        QVERIFY(env.editor.superficie.Imagen(0).visible);

        env.editor.pulsarCuadro(BotonRaton::Derecho, 10, 20);
        env.editor.clicMnuVisual(0); // checked: off the label
        QVERIFY(!env.editor.superficie.Imagen(11).visible);
        QVERIFY(!env.editor.superficie.Imagen(0).visible);

        // Kept inside the right limit and the label's bottom.
        env.editor.pulsarCuadro(BotonRaton::Derecho, 10, 44);
        env.editor.clicMnuDES(4);
        QCOMPARE(env.en(5), QPoint(8, 42));
        env.editor.pulsarCuadro(BotonRaton::Derecho, 10, 20);
        env.editor.clicMnuDES(4);
        QCOMPARE(env.mb.Campos(5).Presente, QByteArray("0"));

        // The free texts: the empty ones go, the confirmed ones come to the point.
        env.mb.TextoLibre(1).clear();
        env.mb.Campos(22).Presente = "1";
        env.mb.TXLPendiente(2) = true;
        env.view.dialogo = [&] {
            env.mb.TextoLibre(0) = "HOLA";
            env.mb.TXLCambiado(1) = true;
        };
        env.editor.pulsarCuadro(BotonRaton::Derecho, 30, 30);
        env.editor.clicMnuVisual(13);
        QCOMPARE(env.en(21), QPoint(30, 30));
        QCOMPARE(env.mb.Campos(22).Presente, QByteArray("0"));
        QVERIFY(!env.mb.TXLPendiente(2));
    }

    // A fixed text of 25 blanks shows as the line's name, centred; 24 blanks
    // show as they are.
    void textoFijo()
    {
        EditorEnv env;
        const Superficie& s = env.editor.superficie;
        env.mb.TextoFijo(0) = QByteArray(25, ' ');
        env.mb.TextoFijo(1) = QByteArray(24, ' ');
        env.editor.repintar();
        QCOMPARE(s.lblTXF(1).caption, QStringLiteral("1 Texto Fijo"));
        QVERIFY(s.lblTXF(1).centrado);
        QCOMPARE(s.lblTXF(2).caption, QString(24, QLatin1Char(' ')));
        QVERIFY(!s.lblTXF(2).centrado);
    }

    // The weight's companion line and the bands: neither is the label's.
    void pesoAproximadoYBandas()
    {
        EditorEnv env;
        const Caja& companero = env.editor.superficie.Imagen(0);
        env.editor.clicMnuEtiquetaPeso(); // no weight on the label
        QVERIFY(env.mb.PesoAproximado);
        QVERIFY(!companero.visible);
        env.editor.clicMnuEtiquetaPeso();
        env.poner(11, 20, 30, "1");
        env.editor.clicMnuEtiquetaPeso();
        QCOMPARE(companero.left(), 20.0);
        QCOMPARE(float(companero.top()), float(30 + 50.0 / 9));
        env.editor.clicMnuEtiquetaPeso();
        QVERIFY(!companero.visible);

        // The bands, put on a label 60 long, reach its bottom, and leave the
        // label unchanged.
        env.editor.cambioVSVer(60);
        env.mb.Modificado = false;
        env.mb.Sombreado = 0;
        env.editor.clicMnuBandas();
        QCOMPARE(float(env.editor.superficie.Shape2.height), 60.3f);
        QVERIFY(!env.mb.Modificado);
    }

    // A picture added, unreadable, cancelled; then the grid, which only its
    // own entry takes off, and whose mark stays on when it cannot be read.
    void fondo()
    {
        EditorEnv env;
        FondoSuperficie& fondo = env.editor.fondo;
        const QString a = QStringLiteral("/img/a.bmp"), roto = QStringLiteral("/img/roto.jpg");
        env.ui.openPaths = {a, roto, QString()};
        env.view.ilegibles = {roto};
        fondo.mnuFondoAgregar();
        QCOMPARE(env.mb.RutaFondo, a);
        // Unreadable: said, the path forgotten, the old picture stays.
        fondo.mnuFondoAgregar();
        QCOMPARE(env.ui.log.filter(QStringLiteral("message:")).size(), 1);
        QVERIFY(env.mb.RutaFondo.isEmpty());
        QCOMPARE(env.view.mostrada, a);
        // Cancelled: the picture goes.
        fondo.mnuFondoAgregar();
        QVERIFY(env.view.mostrada.isEmpty());

        const QString parrilla = env.dir.file(QStringLiteral("res/parrilla.bmp"));
        fondo.mnuFondoParrilla();
        fondo.mnuFondoEliminar();
        QCOMPARE(env.view.mostrada, parrilla);
        fondo.mnuFondoParrilla();
        env.view.ilegibles = {parrilla};
        fondo.mnuFondoParrilla();
        QVERIFY(fondo.parrilla);
        QVERIFY(env.mb.RutaFondo.isEmpty());
        fondo.mnuFondoParrilla();
        QVERIFY(!fondo.parrilla);
        QVERIFY(!env.mb.Modificado);
    }

    // One command of each kind of step, named by what it changed: undo brings
    // back the very label before it, redo the one after.
    void deshacer_data()
    {
        QTest::addColumn<Orden>("orden");
        QTest::addColumn<int>("clase");
        const auto fila = [](const char* nombre, int clase, Orden orden) {
            QTest::newRow(nombre) << orden << clase;
        };
        fila("moved by the arrows", 2202, [](EditorEnv& e) { e.editor.moverSeleccion(1, 0); });
        fila("placed from the palette", 2203, [](EditorEnv& e) {
            for (int i = 2; i < 15; ++i)
                if (botonPaleta(i).campo == 14)
                    e.editor.pulsarCBDisplay(i);
        });
        fila("deleted from its menu", 2204, [](EditorEnv& e) {
            e.editor.pulsarCampo(12, BotonRaton::Derecho, 0, 0);
            e.editor.clicMnuDer(4);
        });
        fila("sized from its menu", 2205, [](EditorEnv& e) {
            e.editor.pulsarCampo(12, BotonRaton::Derecho, 0, 0);
            e.editor.clicMnuDer(1);
        });
        fila("the name box", 2206, [](EditorEnv& e) {
            e.files.cambioNombre(QStringLiteral("QU"));
            e.files.cambioNombre(QStringLiteral("QUESO"));
        });
        fila("the width", 2207, [](EditorEnv& e) { e.editor.cambioVSVer(60); });
        fila("a fixed text cleared", 2208, [](EditorEnv& e) {
            e.editor.pulsarTXF(1, BotonRaton::Derecho);
            e.editor.clicMnuDerTXFborrar();
        });
        fila("a preset: width and places at once", 2209, [](EditorEnv& e) { e.editor.Cargar60(); });
    }

    void deshacer()
    {
        QFETCH(Orden, orden);
        QFETCH(int, clase);
        // In both models: the old one has fewer fields, texts and label numbers.
        for (const int modelo : {1, 0}) {
            EditorEnv env(modelo);
            env.poner(12, 10, 20);
            env.poner(13, 20, 30, "0", true);
            env.mb.TextoFijo(0) = "OFERTA";
            Historial h(env.mb, env.files, env.view);
            const EstadoEtiqueta antes = EstadoEtiqueta::de(env.mb, env.files);
            h.orden([&] { orden(env); });
            const EstadoEtiqueta despues = EstadoEtiqueta::de(env.mb, env.files);
            QCOMPARE(h.captionDeshacer(), QStringLiteral("&Deshacer ") + env.mb.Textos(clase));

            h.deshacer();
            QVERIFY(EstadoEtiqueta::de(env.mb, env.files).mismaEtiqueta(antes));
            QCOMPARE(h.captionRehacer(), QStringLiteral("&Rehacer ") + env.mb.Textos(clase));

            h.rehacer();
            QVERIFY(EstadoEtiqueta::de(env.mb, env.files).mismaEtiqueta(despues));
        }
    }

    // The label counts as modified exactly away from where the files stand.
    // A new command drops what could be redone, and another label of the set
    // in hand starts the history afresh.
    void modificadoAlDeshacer()
    {
        EditorEnv env;
        Historial h(env.mb, env.files, env.view);
        h.orden([&] { env.editor.cambioVSVer(60); });
        env.mb.ArchivoActual = env.dir.file(QStringLiteral("guardada.pde"));
        h.orden([&] { env.files.GuardaEti(); });
        QVERIFY(!env.mb.Modificado);
        h.orden([&] { env.files.cambioNombre(QStringLiteral("PAN")); });
        QVERIFY(env.mb.Modificado);
        h.deshacer();
        QVERIFY(!env.mb.Modificado);
        h.deshacer();
        QVERIFY(env.mb.Modificado);
        QCOMPARE(env.mb.AnchoEtiqueta, QByteArray("45"));
        h.rehacer();
        QVERIFY(!env.mb.Modificado);
        h.orden([&] { env.editor.cambioVSVer(50); });
        QVERIFY(!h.puedeRehacer());
        h.orden([&] { env.files.CargarEtiquetaConjunto(4); });
        QVERIFY(!h.puedeDeshacer());
    }

    // The arrows move the red selection, here field 12 (11 wide), as far as
    // a drag may take it.
    void teclasSeleccion_data()
    {
        QTest::addColumn<QPoint>("flecha");
        QTest::addColumn<QPoint>("inicio");
        QTest::addColumn<QPoint>("fin");
        QTest::newRow("left, cut at 3") << QPoint(-5, 0) << QPoint(5, 20) << QPoint(3, 20);
        QTest::newRow("right, cut at 53") << QPoint(5, 0) << QPoint(40, 20) << QPoint(42, 20);
        QTest::newRow("down, to the bottom") << QPoint(0, 5) << QPoint(10, 38) << QPoint(10, 41);
        // Where the palette puts new fields, outside the limits: towards them,
        // never further out.
        QTest::newRow("from the corner, right") << QPoint(1, 0) << QPoint(0, 0) << QPoint(1, 0);
        QTest::newRow("from the corner, left") << QPoint(-1, 0) << QPoint(0, 0) << QPoint(0, 0);
    }

    void teclasSeleccion()
    {
        QFETCH(QPoint, flecha);
        QFETCH(QPoint, inicio);
        QFETCH(QPoint, fin);
        EditorEnv env;
        env.poner(12, inicio.x(), inicio.y(), "0", true);
        env.editor.moverSeleccion(flecha.x(), flecha.y());
        QCOMPARE(env.en(12), fin);
        QCOMPARE(env.editor.superficie.Imagen(12).left(), double(fin.x()));
        if (fin != inicio)
            QCOMPARE(env.mb.Campos(12).TextoHor, textoPosicionEntero(fin.x()));
    }

    // A letter taken in either case goes on, an ampersand is kept, and an
    // ordinal sign is no key. The letters of the menu bar left free are the
    // surface test's.
    void mnemonicos()
    {
        using L = QStringList;
        QCOMPARE(conMnemonicos({"Peso", "precio"}), (L{"&Peso", "p&recio"}));
        QCOMPARE(conMnemonicos({"1 & 2"}), L{"1 && 2"});
        QCOMPARE(conMnemonicos({QStringLiteral("2ª Moneda")}), L{QStringLiteral("2ª &Moneda")});
    }
};

QTEST_GUILESS_MAIN(TestEditorMenus)
#include "tst_editormenus.moc"
