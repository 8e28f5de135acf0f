// The editor's commands: presets, palette, pop-up menus, captions and the
// background picture.
#include "EditorEnv.h"
#include "Historial.h"
#include "Vista.h"

#include <QtTest>

namespace {

QString mascara(const std::function<bool(int)>& bit, int n)
{
    QString s;
    for (int i = 0; i < n; ++i)
        s += bit(i) ? QLatin1Char('1') : QLatin1Char('0');
    return s;
}

} // namespace

class TestEditorMenus : public QObject {
    Q_OBJECT
private slots:
    void presets_data();
    void presets();
    void presetPregunta_data();
    void presetPregunta();
    void presetModeloViejo();
    void menus_data();
    void menus();
    void menuDerecho_data();
    void menuDerecho();
    void pulsarCuadro_data();
    void pulsarCuadro();
    void paletaCampo();
    void paletaTextosLibres_data();
    void paletaTextosLibres();
    void colocaDES_data();
    void colocaDES();
    void clicVisualiza();
    void clicDerecho();
    void textoFijo();
    void pesoAproximado();
    void bandas();
    void captions_data();
    void captions();
    void fondo();
    void fondoParrilla();
    void deshacer_data();
    void deshacer();
    void historialSeReinicia_data();
    void historialSeReinicia();
    void modificadoAlDeshacer();
    void teclasSeleccion_data();
    void mnemonicos_data();
    void mnemonicos();
    void teclasSeleccion();
};

void TestEditorMenus::presets_data()
{
    QTest::addColumn<int>("ancho");
    QTest::addColumn<int>("campo");
    QTest::addColumn<int>("posHor");
    QTest::addColumn<int>("posVer");
    QTest::addColumn<QByteArray>("textoHor");
    QTest::addColumn<QByteArray>("textoVer");
    QTest::addColumn<QByteArray>("tamano");
    const struct {
        int ancho, campo, hor, ver;
        const char *th, *tv, *t;
    } filas[] = {
        // One plain field, the bar code and each field a preset puts at size 1.
        {60, 1, 6, 18, "022", "072", "0"},   {60, 16, 3, 45, "011", "162", "0"},
        {60, 14, 39, 36, "140", "130", "1"}, {45, 14, 39, 27, "140", "076", "1"},
        {45, 18, 40, 42, "144", "108", "0"}, {45, 1, 6, 14, "022", "029", "1"},
    };
    for (const auto& r : filas)
        QTest::addRow("%d field %d", r.ancho, r.campo)
            << r.ancho << r.campo << r.hor << r.ver << QByteArray(r.th) << QByteArray(r.tv)
            << QByteArray(r.t);
}

void TestEditorMenus::presets()
{
    QFETCH(int, ancho);
    QFETCH(int, campo);
    QFETCH(int, posHor);
    QFETCH(int, posVer);
    QFETCH(QByteArray, textoHor);
    QFETCH(QByteArray, textoVer);
    QFETCH(QByteArray, tamano);
    EditorEnv env;
    env.poner(5, 20, 20, "0", true);
    env.mb.NombreEtiqueta = "QUESO";
    env.mb.ArchivoActual = "/algo.pse";
    ancho == 60 ? env.editor.Cargar60() : env.editor.Cargar45();
    const Campo& c = env.mb.Campos(campo);
    QCOMPARE(c.Presente, QByteArray("1"));
    QCOMPARE(c.PosHor, posHor);
    QCOMPARE(c.PosVer, posVer);
    QCOMPARE(c.TextoHor, textoHor);
    QCOMPARE(c.TextoVer, textoVer);
    QCOMPARE(c.Tamano, tamano);
    QVERIFY(env.editor.superficie.Imagen(campo).visible);

    for (int n = 1; n <= 36; ++n)
        QVERIFY(!env.mb.Campos(n).Seleccionado);
    QCOMPARE(env.mb.Campos(5).Presente, QByteArray("0"));
    QCOMPARE(env.mb.AnchoEtiqueta, QByteArray::number(ancho));
    QCOMPARE(env.files.controles.VSVer, ancho);
    QCOMPARE(env.editor.superficie.altoEscala, double(ancho));
    QVERIFY(env.mb.NombreEtiqueta.isEmpty());
    QCOMPARE(env.mb.ArchivoActual, QStringLiteral("/algo.pse"));
    QVERIFY(env.mb.Modificado);
}

void TestEditorMenus::presetPregunta_data()
{
    QTest::addColumn<bool>("modificado");
    QTest::addColumn<QList<Answer>>("respuestas");
    QTest::addColumn<bool>("carga");
    QTest::addColumn<bool>("dialogoGuardar");
    QTest::newRow("unchanged: no question") << false << QList<Answer>{} << true << false;
    QTest::newRow("no") << true << QList<Answer>{Answer::No} << true << false;
    QTest::newRow("cancel") << true << QList<Answer>{Answer::Cancel} << false << false;
    // The save dialog cancelled: the preset runs all the same.
    QTest::newRow("yes, unnamed") << true << QList<Answer>{Answer::Yes} << true << true;
}

void TestEditorMenus::presetPregunta()
{
    QFETCH(bool, modificado);
    QFETCH(QList<Answer>, respuestas);
    QFETCH(bool, carga);
    QFETCH(bool, dialogoGuardar);
    EditorEnv env;
    env.poner(5, 20, 20);
    env.mb.Modificado = modificado;
    env.ui.answers = respuestas;
    env.editor.botonEti60();
    QCOMPARE(env.mb.Campos(5).Presente, carga ? QByteArray("0") : QByteArray("1"));
    QCOMPARE(env.mb.AnchoEtiqueta, carga ? QByteArray("60") : QByteArray("45"));
    QCOMPARE(env.ui.log.filter(QStringLiteral("save:")).size(), dialogoGuardar ? 1 : 0);
    QCOMPARE(env.ui.log.filter(QStringLiteral("question:")).size(), modificado ? 1 : 0);
}

void TestEditorMenus::presetModeloViejo()
{
    EditorEnv env(0);
    env.mb.Campos(30).Presente = "1";
    env.mb.Campos(30).PosHor = 12;
    env.editor.Cargar45();
    QCOMPARE(env.mb.Campos(30).PosHor, 12);
    QCOMPARE(env.mb.Campos(30).Presente, QByteArray("1"));
    QCOMPARE(env.mb.Campos(13).PosHor, 22);
}

// The Visualizar menu and the palette by label kind and model, with fields
// 3, 11, 13 and 20 on the label.
void TestEditorMenus::menus_data()
{
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<int>("modelo");
    QTest::addColumn<QString>("visualHabilitado");
    QTest::addColumn<QString>("visualMarcado");
    QTest::addColumn<bool>("loteVisible");
    QTest::addColumn<QString>("paleta");
    QTest::addColumn<double>("topBorrar");
    QTest::newRow("V new") << "V" << 1 << "11001111101111" << "10000000001000" << true
                           << "1111001111101111" << 132.0;
    QTest::newRow("T new") << "T" << 1 << "11111111110011" << "10100000010000" << true
                           << "1111111111110011" << 132.0;
    QTest::newRow("V old") << "V" << 0 << "11001111101111" << "10000000001000" << false
                           << "1111001111101101" << 130.2;
    QTest::newRow("T old") << "T" << 0 << "11111111110011" << "10100000010000" << false
                           << "1111111111110001" << 130.2;
}

void TestEditorMenus::menus()
{
    QFETCH(QString, tipo);
    QFETCH(int, modelo);
    QFETCH(QString, visualHabilitado);
    QFETCH(QString, visualMarcado);
    QFETCH(bool, loteVisible);
    QFETCH(QString, paleta);
    QFETCH(double, topBorrar);
    EditorEnv env(modelo);
    env.mb.TipoEtiqueta = tipo.toLatin1();
    for (int n : {3, 11, 13, 20})
        env.poner(n, 10, 10 + n);
    env.editor.repintar();
    env.editor.pulsarCuadro(BotonRaton::Derecho, 20, 20);
    EditorEtiqueta& e = env.editor;
    QCOMPARE(mascara([&](int k) { return e.mnuVisual(k).enabled; }, 14), visualHabilitado);
    QCOMPARE(mascara([&](int k) { return e.mnuVisual(k).checked; }, 14), visualMarcado);
    QCOMPARE(mascara([&](int k) { return e.mnuDES(k).checked; }, 10), QStringLiteral("0010000000"));
    QCOMPARE(e.mnuVisual(12).visible, loteVisible);
    QCOMPARE(mascara([&](int i) { return e.CBDisplay(i).visible; }, 16), paleta);
    QCOMPARE(e.CBDisplay(15).top, topBorrar);
}

void TestEditorMenus::menuDerecho_data()
{
    QTest::addColumn<int>("campo");
    QTest::addColumn<QByteArray>("tamano");
    QTest::addColumn<QString>("habilitado");
    QTest::addColumn<QString>("marcado");
    QTest::newRow("descriptive") << 1 << QByteArray("2") << "11111" << "00100";
    QTest::newRow("bar code") << 16 << QByteArray("0") << "10001" << "10000";
    QTest::newRow("second currency") << 15 << QByteArray("1") << "11001" << "01000";
    QTest::newRow("label total") << 20 << QByteArray("0") << "11001" << "10000";
    QTest::newRow("free text") << 21 << QByteArray("3") << "11111" << "00010";
    QTest::newRow("an odd code") << 12 << QByteArray("7") << "11111" << "00000";
}

void TestEditorMenus::menuDerecho()
{
    QFETCH(int, campo);
    QFETCH(QByteArray, tamano);
    QFETCH(QString, habilitado);
    QFETCH(QString, marcado);
    EditorEnv env;
    env.poner(campo, 10, 10, tamano.constData());
    env.editor.pulsarCampo(campo, BotonRaton::Derecho, 100, 100);
    QCOMPARE(env.ui.log.last(), QStringLiteral("mnuDerecho"));
    QCOMPARE(env.editor.CampoActivo, campo);
    QVERIFY(!env.editor.arrastrando);
    EditorEtiqueta& e = env.editor;
    QCOMPARE(mascara([&](int k) { return e.mnuDer(k).enabled; }, 5), habilitado);
    QCOMPARE(mascara([&](int k) { return e.mnuDer(k).checked; }, 5), marcado);
}

void TestEditorMenus::pulsarCuadro_data()
{
    QTest::addColumn<bool>("derecho");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<QString>("menu");
    QTest::addColumn<int>("hor");
    QTest::addColumn<int>("ver");
    QTest::newRow("left band") << true << 2.9 << 20.0 << "mnuOcultar" << 7 << 7;
    QTest::newRow("left band, top strip") << true << 2.9 << 5.0 << "mnuOcultar" << 7 << 7;
    QTest::newRow("exactly 3") << true << 3.0 << 20.0 << "" << 7 << 7;
    QTest::newRow("just inside") << true << 3.1 << 8.1 << "mnuVisualiza" << 3 << 8;
    QTest::newRow("top strip") << true << 10.0 << 8.0 << "" << 7 << 7;
    QTest::newRow("right band") << true << 54.5 << 20.5 << "mnuVisualiza" << 54 << 20;
    QTest::newRow("left button") << false << 20.0 << 20.0 << "" << 7 << 7;
}

void TestEditorMenus::pulsarCuadro()
{
    QFETCH(bool, derecho);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(QString, menu);
    QFETCH(int, hor);
    QFETCH(int, ver);
    EditorEnv env;
    env.mb.NuevoCampoHor = 7;
    env.mb.NuevoCampoVer = 7;
    env.ui.log.clear();
    env.editor.pulsarCuadro(derecho ? BotonRaton::Derecho : BotonRaton::Izquierdo, x, y);
    QCOMPARE(env.ui.log.join(QLatin1Char(',')), menu);
    QCOMPARE(env.mb.NuevoCampoHor, hor);
    QCOMPARE(env.mb.NuevoCampoVer, ver);
}

void TestEditorMenus::paletaCampo()
{
    EditorEnv env;
    env.mb.PesoAproximado = true;
    env.ui.log.clear();
    env.editor.pulsarCBDisplay(2);  // weight
    env.editor.pulsarCBDisplay(3);  // tare, stacked under it
    env.editor.pulsarCBDisplay(12); // price
    QCOMPARE(env.mb.Campos(11).PosVer, 0);
    QCOMPARE(env.mb.Campos(12).PosVer, 3);
    QCOMPARE(env.mb.Campos(13).PosVer, 6);
    QCOMPARE(env.mb.Campos(13).PosHor, 0);
    QCOMPARE(env.mb.Campos(13).TextoVer, QByteArray("000"));
    QVERIFY(env.editor.superficie.Imagen(13).visible);
    QCOMPARE(env.editor.superficie.Imagen(13).top(), 6.0);
    QVERIFY(env.editor.superficie.Imagen(0).visible);
    QCOMPARE(env.ui.log.filter(QStringLiteral("refresh")).size(), 3);
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
    QCOMPARE(env.ui.log.last(), QStringLiteral("refresh"));
}

// Free text 1 waits at the origin; the dialog writes texts 2 and 3 and marks
// them pending. What the palette's free text button leaves.
void TestEditorMenus::paletaTextosLibres_data()
{
    QTest::addColumn<int>("modelo");
    QTest::addColumn<bool>("primeroPendiente");
    QTest::addColumn<QList<int>>("alturas");
    QTest::newRow("new model: stacked under the first") << 1 << false << QList<int>{0, 3, 6};
    QTest::newRow("new model: the first pending keeps the origin")
        << 1 << true << QList<int>{0, 3, 6};
    QTest::newRow("old model: nothing is left pending") << 0 << false << QList<int>{0, 0, 0};
}

void TestEditorMenus::paletaTextosLibres()
{
    QFETCH(int, modelo);
    QFETCH(bool, primeroPendiente);
    QFETCH(QList<int>, alturas);
    EditorEnv env(modelo);
    env.mb.TextoLibre(0) = "UNO";
    env.poner(21, 0, 0);
    env.mb.Campos(27).Presente = "1"; // free text 6, whose text is empty
    env.view.frmTXL = [&] {
        env.mb.TextoLibre(1) = "DOS";
        env.mb.TextoLibre(2) = "TRES";
        for (int t : {2, 3}) {
            env.mb.Campos(campoDeTextoLibre(t)).Presente = "1";
            env.mb.TXLPendiente(t) = true;
        }
        env.mb.TXLPendiente(1) = primeroPendiente;
    };
    env.editor.pulsarCBDisplay(0);
    for (int t = 1; t <= 3; ++t)
        QCOMPARE(env.mb.Campos(campoDeTextoLibre(t)).PosVer, alturas[t - 1]);
    for (int t = 1; t <= 15; ++t)
        QVERIFY(!env.mb.TXLPendiente(t));
    QCOMPARE(env.mb.Campos(27).Presente, QByteArray("0"));
    QVERIFY(env.mb.Modificado);
}

// Lines 1..3 ticked in the dialog and waiting at the origin; with another
// field there too, all are stacked.
void TestEditorMenus::colocaDES_data()
{
    QTest::addColumn<bool>("pesoEnOrigen");
    QTest::addColumn<QList<int>>("alturas");
    QTest::newRow("the first keeps the origin") << false << QList<int>{0, 3, 6};
    QTest::newRow("blocked by the weight") << true << QList<int>{3, 6, 9};
}

void TestEditorMenus::colocaDES()
{
    QFETCH(bool, pesoEnOrigen);
    QFETCH(QList<int>, alturas);
    EditorEnv env;
    if (pesoEnOrigen)
        env.poner(11, 0, 0);
    env.view.frmDES = [&] {
        for (int i = 1; i <= 3; ++i) {
            env.mb.Campos(i).Presente = "1";
            env.mb.DESPendiente(i) = true;
        }
    };
    env.editor.pulsarCBDisplay(1);
    for (int i = 1; i <= 3; ++i) {
        QCOMPARE(env.mb.Campos(i).PosVer, alturas[i - 1]);
        QVERIFY(!env.mb.DESPendiente(i));
    }
}

void TestEditorMenus::clicVisualiza()
{
    EditorEnv env;
    env.mb.PesoAproximado = true;
    env.editor.pulsarCuadro(BotonRaton::Derecho, 50, 40);
    env.editor.clicMnuVisual(0); // the weight, placed at the point
    QCOMPARE(env.mb.Campos(11).PosHor, 42);
    QCOMPARE(env.mb.Campos(11).PosVer, 40);
    QCOMPARE(env.mb.Campos(11).TextoHor, QByteArray("151.2"));
    QVERIFY(env.editor.superficie.Imagen(0).visible);
    QCOMPARE(env.editor.superficie.Imagen(0).left(), 42.0);
    QCOMPARE(env.mb.NuevoCampoHor, 0);
    QCOMPARE(env.mb.NuevoCampoVer, 0);
    QVERIFY(env.mb.Modificado);

    env.editor.pulsarCuadro(BotonRaton::Derecho, 10, 20);
    QVERIFY(env.editor.mnuVisual(0).checked);
    env.editor.clicMnuVisual(0); // checked: off the label
    QCOMPARE(env.mb.Campos(11).Presente, QByteArray("0"));
    QVERIFY(!env.editor.superficie.Imagen(11).visible);
    QVERIFY(!env.editor.superficie.Imagen(0).visible);

    env.editor.pulsarCuadro(BotonRaton::Derecho, 10, 20);
    env.editor.clicMnuDES(4);
    QCOMPARE(env.mb.Campos(5).PosHor, 8);
    QCOMPARE(env.mb.Campos(5).PosVer, 20);
    env.editor.pulsarCuadro(BotonRaton::Derecho, 10, 20);
    QVERIFY(env.editor.mnuDES(4).checked);
    env.editor.clicMnuDES(4);
    QCOMPARE(env.mb.Campos(5).Presente, QByteArray("0"));

    // The free texts: the empty ones go, the confirmed ones come to the point.
    env.mb.TextoLibre(1).clear();
    env.mb.Campos(22).Presente = "1";
    env.mb.TXLPendiente(2) = true;
    env.view.frmTXL = [&] {
        env.mb.TextoLibre(0) = "HOLA";
        env.mb.TXLCambiado(1) = true;
    };
    env.editor.pulsarCuadro(BotonRaton::Derecho, 30, 30);
    env.editor.clicMnuVisual(13);
    QCOMPARE(env.mb.Campos(21).Presente, QByteArray("1"));
    QCOMPARE(env.mb.Campos(21).PosHor, 30);
    QCOMPARE(env.mb.Campos(22).Presente, QByteArray("0"));
    QVERIFY(!env.mb.TXLPendiente(2));
    QCOMPARE(env.mb.NuevoCampoHor, 0);
}

void TestEditorMenus::clicDerecho()
{
    EditorEnv env;
    env.poner(1, 8, 20);
    env.editor.pulsarCampo(1, BotonRaton::Derecho, 0, 0);
    env.editor.clicMnuDer(0); // the size it has
    QVERIFY(!env.mb.Modificado);
    env.editor.clicMnuDer(2);
    QVERIFY(env.mb.Modificado);
    QCOMPARE(env.mb.Campos(1).Tamano, QByteArray("2"));
    QCOMPARE(env.mb.Campos(1).PosHor, 6);
    QCOMPARE(env.editor.superficie.Imagen(1).width(), 47.0);

    env.mb.Modificado = false;
    env.editor.clicMnuDer(4);
    QCOMPARE(env.mb.Campos(1).Presente, QByteArray("0"));
    QVERIFY(!env.editor.superficie.Imagen(1).visible);
    QVERIFY(env.mb.Modificado);
}

void TestEditorMenus::textoFijo()
{
    EditorEnv env;
    env.editor.pulsarTXF(2, BotonRaton::Derecho);
    QCOMPARE(env.ui.log.last(), QStringLiteral("mnuDerecho2"));
    QCOMPARE(env.editor.TXFActivo, 2);
    QVERIFY(!env.editor.mnuDerTXFborrar.enabled);

    env.mb.TextoFijo(0) = "OFERTA";
    env.editor.repintar();
    QCOMPARE(env.editor.superficie.lblTXF(1).caption, QStringLiteral("OFERTA"));
    QVERIFY(!env.editor.superficie.lblTXF(1).centrado);
    env.editor.pulsarTXF(1, BotonRaton::Derecho);
    QVERIFY(env.editor.mnuDerTXFborrar.enabled);
    env.editor.clicMnuDerTXFEdit();
    QCOMPARE(env.ui.log.last(), QStringLiteral("frmTXF 1"));
    env.editor.clicMnuDerTXFborrar();
    QVERIFY(env.mb.TextoFijo(0).isEmpty());
    QCOMPARE(env.editor.superficie.lblTXF(1).caption, QStringLiteral("1 Texto Fijo"));
    QVERIFY(env.editor.superficie.lblTXF(1).centrado);

    // 25 blanks show as nothing; 24 are shown.
    env.mb.TextoFijo(0) = QByteArray(25, ' ');
    env.mb.TextoFijo(1) = QByteArray(24, ' ');
    env.editor.repintar();
    QCOMPARE(env.editor.superficie.lblTXF(1).caption, QStringLiteral("1 Texto Fijo"));
    QCOMPARE(env.editor.superficie.lblTXF(2).caption, QString(24, QLatin1Char(' ')));
}

void TestEditorMenus::pesoAproximado()
{
    EditorEnv env;
    env.editor.clicMnuEtiquetaPeso(); // no weight on the label
    QVERIFY(env.mb.PesoAproximado);
    QVERIFY(env.editor.mnuEtiquetaPesoChecked);
    QVERIFY(!env.editor.superficie.Imagen(0).visible);
    env.editor.clicMnuEtiquetaPeso();
    env.poner(11, 20, 30, "1");
    env.editor.clicMnuEtiquetaPeso();
    const Caja& companero = env.editor.superficie.Imagen(0);
    QVERIFY(companero.visible);
    QCOMPARE(companero.left(), 20.0);
    QCOMPARE(float(companero.top()), float(30 + 50.0 / 9));
    env.editor.clicMnuEtiquetaPeso();
    QVERIFY(!companero.visible);
    QVERIFY(!env.mb.PesoAproximado);
    QVERIFY(!env.mb.Modificado);
}

void TestEditorMenus::bandas()
{
    EditorEnv env;
    env.editor.cambioVSVer(60);
    env.mb.Modificado = false;
    env.mb.Sombreado = 0;
    env.editor.pulsarCuadro(BotonRaton::Derecho, 1, 20);
    QCOMPARE(env.editor.mnuBandasTextId, 1311);
    env.editor.clicMnuBandas();
    QCOMPARE(env.mb.Sombreado, 1);
    const Superficie& s = env.editor.superficie;
    QVERIFY(s.Shape2.visible && s.Shape3.visible);
    QCOMPARE(float(s.Shape2.height), 60.3f);
    QCOMPARE(float(s.Shape3.left), 53.1f);
    env.editor.pulsarCuadro(BotonRaton::Derecho, 1, 20);
    QCOMPARE(env.editor.mnuBandasTextId, 495);
    env.editor.clicMnuBandas();
    QCOMPARE(env.mb.Sombreado, 0);
    QVERIFY(!s.Shape2.visible && !s.Shape3.visible);
    QVERIFY(!env.mb.Modificado);
}

void TestEditorMenus::captions_data()
{
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<int>("caja");
    QTest::addColumn<QString>("caption");
    QTest::newRow("free text 1") << "V" << 21 << "1 Texto Libre";
    QTest::newRow("free text 6 counts from 1") << "V" << 27 << "1 Texto Libre";
    QTest::newRow("free text 15") << "V" << 36 << "10 Texto Libre";
    QTest::newRow("descriptive 7") << "V" << 7 << "7 Descriptivo";
    QTest::newRow("price") << "V" << 13 << "Precio";
    QTest::newRow("operations") << "T" << 13 << "Operaciones";
    QTest::newRow("amount") << "V" << 14 << "Importe";
    QTest::newRow("total") << "T" << 14 << "Total";
    QTest::newRow("the companion keeps its own") << "V" << 0 << "PESO APROXIMADO";
}

void TestEditorMenus::captions()
{
    QFETCH(QString, tipo);
    QFETCH(int, caja);
    QFETCH(QString, caption);
    EditorEnv env;
    env.mb.TipoEtiqueta = tipo.toLatin1();
    env.editor.repintar();
    QCOMPARE(env.editor.superficie.Imagen(caja).caption, caption);
    QCOMPARE(env.editor.superficie.Imagen(caja).color, campoCatalogo(caja).color);
}

void TestEditorMenus::fondo()
{
    EditorEnv env;
    FondoSuperficie& fondo = env.editor.fondo;
    env.ui.openPaths = {QStringLiteral("/img/a.bmp"), QString(), QStringLiteral("/img/roto.jpg")};
    env.cargador.ilegibles = {QStringLiteral("/img/roto.jpg")};
    fondo.mnuFondoAgregar();
    QCOMPARE(env.mb.RutaFondo, QStringLiteral("/img/a.bmp"));
    QCOMPARE(env.ui.requests.last().filter, FondoSuperficie::kFiltro);
    QCOMPARE(env.ui.requests.last().filterIndex, 1);
    QVERIFY(env.ui.requests.last().fileName.isEmpty());
    // Cancelled: the picture and the path go.
    fondo.mnuFondoAgregar();
    QVERIFY(env.mb.RutaFondo.isEmpty());
    QVERIFY(env.cargador.mostrada.isEmpty());
    // Unreadable: said once, the path forgotten, the old picture stays.
    env.cargador.mostrada = QStringLiteral("/img/a.bmp");
    fondo.mnuFondoAgregar();
    QCOMPARE(env.ui.log.filter(QStringLiteral("message:")),
             QStringList{QStringLiteral("message: Fondo : No se puede cargar la imagen.")});
    QVERIFY(env.mb.RutaFondo.isEmpty());
    QCOMPARE(env.cargador.mostrada, QStringLiteral("/img/a.bmp"));
    fondo.mnuFondoEliminar();
    QVERIFY(env.cargador.mostrada.isEmpty());

    // A path of cfg.ini that is gone: one message at the load, then empty.
    EditorEnv inicio;
    inicio.mb.RutaFondo = QStringLiteral("/img/roto.jpg");
    inicio.cargador.ilegibles = {inicio.mb.RutaFondo};
    inicio.editor.cargarSuperficie();
    QVERIFY(inicio.mb.RutaFondo.isEmpty());
    QCOMPARE(inicio.ui.log.filter(QStringLiteral("message:")).size(), 1);
    QVERIFY(!inicio.mb.Modificado);
}

void TestEditorMenus::fondoParrilla()
{
    EditorEnv env;
    FondoSuperficie& fondo = env.editor.fondo;
    const QString parrilla = env.dir.file(QStringLiteral("res/parrilla.bmp"));
    QCOMPARE(fondo.rutaParrilla(), parrilla);
    fondo.mnuFondoParrilla();
    QVERIFY(fondo.parrilla);
    QCOMPARE(env.mb.RutaFondo, parrilla);
    // The grid goes only by its own entry.
    fondo.mnuFondoEliminar();
    QCOMPARE(env.mb.RutaFondo, parrilla);
    QCOMPARE(env.cargador.mostrada, parrilla);
    // A picture added over the grid takes the mark off.
    env.ui.openPaths = {QStringLiteral("/img/a.bmp")};
    fondo.mnuFondoAgregar();
    QVERIFY(!fondo.parrilla);
    fondo.mnuFondoEliminar();
    QVERIFY(env.mb.RutaFondo.isEmpty());

    // The grid file missing: the mark is on with nothing shown, and the next
    // click takes it off.
    env.cargador.ilegibles = {parrilla};
    fondo.mnuFondoParrilla();
    QVERIFY(fondo.parrilla);
    QVERIFY(env.mb.RutaFondo.isEmpty());
    QCOMPARE(env.ui.log.filter(QStringLiteral("message:")).size(), 1);
    fondo.mnuFondoParrilla();
    QVERIFY(!fondo.parrilla);
    QVERIFY(!env.mb.Modificado);
}

using Orden = std::function<void(EditorEnv&)>;
Q_DECLARE_METATYPE(Orden)

// Each kind of command, its step named by what it changed: undo brings back
// the very label before it, boxes where the records say, redo the one after.
void TestEditorMenus::deshacer_data()
{
    QTest::addColumn<Orden>("orden");
    QTest::addColumn<int>("clase");
    const auto arrastre = [](int campo, double x, double y) {
        return Orden([=](EditorEnv& e) {
            e.editor.pulsar(campo, BotonRaton::Izquierdo, e.editor.superficie.Imagen(campo).left(),
                            e.editor.superficie.Imagen(campo).top());
            e.editor.soltarEn(true, -1, x, y, false);
        });
    };
    QTest::newRow("a field dragged") << arrastre(12, 30, 35) << 2202;
    QTest::newRow("the selection dragged") << arrastre(13, 22, 25) << 2202;
    QTest::newRow("an arrow key") << Orden([](EditorEnv& e) { e.editor.moverSeleccion(0, 5); }) << 2202;
    QTest::newRow("alignment") << Orden([](EditorEnv& e) { e.editor.Alinear(2); }) << 2202;
    QTest::newRow("placed from the palette")
        << Orden([](EditorEnv& e) { e.editor.pulsarCBDisplay(2); }) << 2203;
    QTest::newRow("sized from its menu") << Orden([](EditorEnv& e) {
        e.editor.pulsarCampo(12, BotonRaton::Derecho, 0, 0);
        e.editor.clicMnuDer(1);
    }) << 2205;
    QTest::newRow("deleted from its menu") << Orden([](EditorEnv& e) {
        e.editor.pulsarCampo(12, BotonRaton::Derecho, 0, 0);
        e.editor.clicMnuDer(4);
    }) << 2204;
    QTest::newRow("the Delete key") << Orden([](EditorEnv& e) { e.editor.borrarSeleccion(); }) << 2204;
    QTest::newRow("the name box") << Orden([](EditorEnv& e) {
        e.files.cambioNombre(QStringLiteral("QU"));
        e.files.cambioNombre(QStringLiteral("QUESO"));
    }) << 2206;
    QTest::newRow("the width") << Orden([](EditorEnv& e) { e.editor.cambioVSVer(60); }) << 2207;
    QTest::newRow("a fixed text cleared") << Orden([](EditorEnv& e) {
        e.editor.pulsarTXF(1, BotonRaton::Derecho);
        e.editor.clicMnuDerTXFborrar();
    }) << 2208;
    QTest::newRow("a preset") << Orden([](EditorEnv& e) { e.editor.Cargar60(); }) << 2209;
}

void TestEditorMenus::deshacer()
{
    QFETCH(Orden, orden);
    QFETCH(int, clase);
    // In both models: the old one has fewer fields, texts and label numbers.
    for (const int modelo : {1, 0}) {
        EditorEnv env(modelo);
        env.poner(12, 10, 20);
        env.poner(13, 20, 30, "0", true);
        env.poner(14, 30, 30, "0", true);
        env.mb.TextoFijo(0) = "OFERTA";
        Historial h(env.mb, env.files, env.view);
        const EstadoEtiqueta antes = EstadoEtiqueta::de(env.mb, env.files);
        QVERIFY(!h.puedeDeshacer());
        QCOMPARE(h.captionDeshacer(), QStringLiteral("&Deshacer"));

        h.orden([&] { orden(env); });
        const EstadoEtiqueta despues = EstadoEtiqueta::de(env.mb, env.files);
        QVERIFY(!despues.mismaEtiqueta(antes));
        QCOMPARE(h.captionDeshacer(), QStringLiteral("&Deshacer ") + env.mb.Textos(clase));

        env.ui.log.clear();
        h.deshacer();
        const EstadoEtiqueta deshecho = EstadoEtiqueta::de(env.mb, env.files);
        QVERIFY(deshecho.mismaEtiqueta(antes));
        for (int n = 1; n <= env.mb.camposModelo(); ++n)
            QCOMPARE(env.mb.Campos(n), antes.Campos(n));
        QCOMPARE(env.mb.AnchoEtiqueta, antes.AnchoEtiqueta);
        QCOMPARE(env.files.controles.VSVer, antes.controles.VSVer);
        QCOMPARE(env.editor.superficie.Imagen(12).left(), 10.0);
        QVERIFY(env.editor.superficie.Imagen(12).visible);
        QVERIFY(env.ui.log.contains(QStringLiteral("repaint")));
        QVERIFY(!env.mb.Modificado);
        QVERIFY(!h.puedeDeshacer());
        QCOMPARE(h.captionRehacer(), QStringLiteral("&Rehacer ") + env.mb.Textos(clase));

        h.rehacer();
        for (int n = 1; n <= env.mb.camposModelo(); ++n)
            QCOMPARE(env.mb.Campos(n), despues.Campos(n));
        QVERIFY(EstadoEtiqueta::de(env.mb, env.files).mismaEtiqueta(despues));
        QVERIFY(env.mb.Modificado);
        QVERIFY(!h.puedeRehacer());
        // A new command after an undo drops what could be redone.
        h.deshacer();
        h.orden([&] { env.editor.cambioVSVer(50); });
        QVERIFY(!h.puedeRehacer());
    }
}

// A different label in hand starts the history afresh.
void TestEditorMenus::historialSeReinicia_data()
{
    QTest::addColumn<Orden>("carga");
    QTest::newRow("another label of the set")
        << Orden([](EditorEnv& e) { e.files.CargarEtiquetaConjunto(4); });
    QTest::newRow("the model switch") << Orden([](EditorEnv& e) { e.files.cambiarModelo(false); });
    QTest::newRow("a new label") << Orden([](EditorEnv& e) {
        e.mb.Modificado = false;
        e.files.menuNueva();
    });
}

void TestEditorMenus::historialSeReinicia()
{
    QFETCH(Orden, carga);
    EditorEnv env;
    Historial h(env.mb, env.files, env.view);
    h.orden([&] { env.editor.cambioVSVer(60); });
    QVERIFY(h.puedeDeshacer());
    h.orden([&] { carga(env); });
    QVERIFY(!h.puedeDeshacer());
    QVERIFY(!h.puedeRehacer());
}

// The label counts as modified exactly away from where the files stand.
void TestEditorMenus::modificadoAlDeshacer()
{
    EditorEnv env;
    env.poner(12, 10, 20);
    Historial h(env.mb, env.files, env.view);
    h.orden([&] { env.editor.cambioVSVer(60); });
    env.mb.ArchivoActual = env.dir.file(QStringLiteral("guardada.pde"));
    h.orden([&] { env.files.GuardaEti(); });
    const QByteArray guardada = env.dir.read(QStringLiteral("guardada.pde"));
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
    // Undo wrote nothing.
    QCOMPARE(env.dir.read(QStringLiteral("guardada.pde")), guardada);
}

// The arrows move the red selection as far as a drag may take it.
void TestEditorMenus::teclasSeleccion_data()
{
    QTest::addColumn<int>("hor");
    QTest::addColumn<int>("ver");
    QTest::addColumn<QList<int>>("inicio"); // the two selected fields' hor, ver
    QTest::addColumn<QList<int>>("fin");
    QTest::newRow("one to the right") << 1 << 0 << QList<int>{10, 20, 20, 30} << QList<int>{11, 20, 21, 30};
    QTest::newRow("five up") << 0 << -5 << QList<int>{10, 20, 20, 30} << QList<int>{10, 15, 20, 25};
    QTest::newRow("five left, cut at the left limit")
        << -5 << 0 << QList<int>{5, 20, 20, 30} << QList<int>{3, 20, 18, 30};
    QTest::newRow("up, at the top limit already") << 0 << -1 << QList<int>{10, 8, 20, 30} << QList<int>{10, 8, 20, 30};
    // A weight box is 11 across: 42 + 11 is the right limit, 53.
    QTest::newRow("right, at the right limit") << 1 << 0 << QList<int>{10, 20, 42, 30} << QList<int>{10, 20, 42, 30};
    QTest::newRow("five down, cut at the bottom")
        << 0 << 5 << QList<int>{10, 20, 20, 38} << QList<int>{10, 23, 20, 41};
    // Where the palette puts new fields, outside the limits: towards them, never further out.
    QTest::newRow("from the corner, right") << 1 << 0 << QList<int>{0, 0, 0, 4} << QList<int>{1, 0, 1, 4};
    QTest::newRow("from the corner, down") << 0 << 5 << QList<int>{0, 0, 0, 4} << QList<int>{0, 5, 0, 9};
    QTest::newRow("from the corner, left") << -1 << 0 << QList<int>{0, 0, 0, 4} << QList<int>{0, 0, 0, 4};
}

void TestEditorMenus::teclasSeleccion()
{
    QFETCH(int, hor);
    QFETCH(int, ver);
    QFETCH(QList<int>, inicio);
    QFETCH(QList<int>, fin);
    EditorEnv env;
    env.poner(12, inicio[0], inicio[1], "0", true);
    env.poner(11, inicio[2], inicio[3], "0", true);
    env.poner(13, 30, 10); // not selected: stays
    env.editor.moverSeleccion(hor, ver);
    const QList<int> ahora{env.mb.Campos(12).PosHor, env.mb.Campos(12).PosVer, env.mb.Campos(11).PosHor,
                           env.mb.Campos(11).PosVer};
    QCOMPARE(ahora, fin);
    QCOMPARE(env.editor.superficie.Imagen(11).left(), double(fin[2]));
    if (fin != inicio)
        QCOMPARE(env.mb.Campos(11).TextoVer, textoPosicionEntero(fin[3]));
    QCOMPARE(env.mb.Campos(13).PosHor, 30);
}

void TestEditorMenus::mnemonicos_data()
{
    QTest::addColumn<QStringList>("captions");
    QTest::addColumn<QString>("ocupadas");
    QTest::addColumn<QStringList>("esperadas");
    QTest::newRow("first letters") << QStringList{"Peso", "Tara"} << QString() << QStringList{"&Peso", "&Tara"};
    QTest::newRow("a letter taken goes on") << QStringList{"Peso", "Precio"} << QString()
                                            << QStringList{"&Peso", "P&recio"};
    QTest::newRow("the menu bar's letters are left") << QStringList{"Fecha"} << QStringLiteral("fe")
                                                     << QStringList{"Fe&cha"};
    QTest::newRow("case does not count twice") << QStringList{"Aa", "aB"} << QString() << QStringList{"&Aa", "a&B"};
    QTest::newRow("an ampersand is kept") << QStringList{"1 & 2"} << QString() << QStringList{"1 && 2"};
    QTest::newRow("no free letter") << QStringList{"ab", "ba", "ab"} << QString() << QStringList{"&ab", "&ba", "ab"};
    QTest::newRow("an ordinal sign is no key") << QStringList{QStringLiteral("2ª Moneda")} << QString()
                                               << QStringList{QStringLiteral("2ª &Moneda")};
    QTest::newRow("Greek letters") << QStringList{"Βάρος"} << QString() << QStringList{"&Βάρος"};
}

void TestEditorMenus::mnemonicos()
{
    QFETCH(QStringList, captions);
    QFETCH(QString, ocupadas);
    QFETCH(QStringList, esperadas);
    const QStringList hechas = conMnemonicos(captions, ocupadas);
    QCOMPARE(hechas, esperadas);
    QCOMPARE(letraMnemonico(hechas.first()), letraMnemonico(esperadas.first()));
}

QTEST_GUILESS_MAIN(TestEditorMenus)
#include "tst_editormenus.moc"
