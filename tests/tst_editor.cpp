// The surface without a screen: coordinates, boxes, the drag and the
// alignment commands.
#include "EditorEnv.h"
#include "RuntimeErrors.h"

#include <QLocale>
#include <cmath>
#include <QtTest>

namespace {

float f(double v) { return static_cast<float>(v); }

} // namespace

class TestEditor : public QObject {
    Q_OBJECT
private slots:
    void conversiones_data();
    void conversiones();
    void redondeo_data();
    void redondeo();
    void pixeles_data();
    void pixeles();
    void altoSuperficie_data();
    void altoSuperficie();
    void cajas_data();
    void cajas();
    void empujeDerecho_data();
    void empujeDerecho();
    void textosPosicion_data();
    void textosPosicion();
    void textoExactoSigueLaConfiguracion();
    void limitesArrastre_data();
    void limitesArrastre();
    void limitesSobreCampo_data();
    void limitesSobreCampo();
    void soltarUnCampo();
    void soltarGrupo();
    void cajaDelGrupo();
    void campoCeroNoEsCampo();
    void posicionarCampo_data();
    void posicionarCampo();
    void inicializarSituacion_data();
    void inicializarSituacion();
    void ajustes_data();
    void ajustes();
    void alinear_data();
    void alinear();
};

void TestEditor::conversiones_data()
{
    QTest::addColumn<double>("twips");
    QTest::addColumn<int>("hor");
    QTest::addColumn<int>("ver");
    QTest::newRow("226.8 twips are two units across") << 226.8 << 2 << 4;
    QTest::newRow("63 twips are one unit down") << 63.0 << 1 << 1;
    QTest::newRow("half a unit across rounds to even") << 56.7 << 0 << 1;
    // 170.1 / 56.7 / 2.0 falls just short of 1.5 in double precision.
    QTest::newRow("170.1 twips, just under one and a half") << 170.1 << 1 << 3;
    QTest::newRow("two and a half across rounds to even") << 283.5 << 2 << 4;
    QTest::newRow("the surface's width") << 6463.8 << 57 << 103;
}

void TestEditor::conversiones()
{
    QFETCH(double, twips);
    QFETCH(int, hor);
    QFETCH(int, ver);
    QCOMPARE(Coordenadas::redondear(Coordenadas::unidadesHorDeTwips(twips)), hor);
    QCOMPARE(Coordenadas::redondear(Coordenadas::unidadesVerDeTwips(twips)), ver);
}

void TestEditor::redondeo_data()
{
    QTest::addColumn<double>("valor");
    QTest::addColumn<int>("entero");
    QTest::addColumn<int>("error");
    QTest::newRow("12.5") << 12.5 << 12 << 0;
    QTest::newRow("13.5") << 13.5 << 14 << 0;
    QTest::newRow("-0.5") << -0.5 << 0 << 0;
    QTest::newRow("-1.5") << -1.5 << -2 << 0;
    QTest::newRow("32767.4") << 32767.4 << 32767 << 0;
    QTest::newRow("32767.5 overflows") << 32767.5 << 0 << 6;
    QTest::newRow("-32769 overflows") << -32769.0 << 0 << 6;
}

void TestEditor::redondeo()
{
    QFETCH(double, valor);
    QFETCH(int, entero);
    QFETCH(int, error);
    int r = 0;
    QCOMPARE(errorNumber([&] { r = Coordenadas::redondear(valor); }), error);
    if (!error)
        QCOMPARE(r, entero);
}

// A pixel stands for one point inside it, never on a half unit, at any
// scale the surface is drawn: the grip in a box at a whole left and the
// pointer over the surface then round alike, and a click moves nothing.
void TestEditor::pixeles_data()
{
    QTest::addColumn<double>("pxPorUnidad");
    QTest::newRow("10 across") << 10.0;
    QTest::newRow("50/9 down") << 50.0 / 9;
    QTest::newRow("5") << 5.0;
    QTest::newRow("2.5") << 2.5;
    QTest::newRow("7.5") << 7.5;
    QTest::newRow("15") << 15.0;
    QTest::newRow("100/9") << 100.0 / 9;
}

void TestEditor::pixeles()
{
    using namespace Coordenadas;
    QFETCH(double, pxPorUnidad);
    for (int p = 0; p < 60 * pxPorUnidad; ++p) {
        const double u = unidadesDePixel(p, pxPorUnidad);
        QVERIFY(u >= p / pxPorUnidad && u < (p + 1) / pxPorUnidad);
        QCOMPARE(unidadesDePixel(p + 0.6, pxPorUnidad), u); // the same pixel
        for (int left = 0; left <= 57; ++left) {
            const double grip = unidadesHorDeTwips(twipsDeMm(mmDeUnidadesHor(u - left)));
            QCOMPARE(redondear(u) - redondear(grip), left);
        }
    }
}

void TestEditor::altoSuperficie_data()
{
    QTest::addColumn<int>("valor");
    QTest::addColumn<double>("mm");
    QTest::addColumn<double>("twips");
    QTest::newRow("60") << 60 << 66.666667 << 3780.0;
    QTest::newRow("99") << 99 << 110.0 << 6237.0;
    QTest::newRow("1") << 1 << 1.1111111 << 63.0;
}

void TestEditor::altoSuperficie()
{
    QFETCH(int, valor);
    QFETCH(double, mm);
    QFETCH(double, twips);
    EditorEnv env;
    QVERIFY(!env.mb.Modificado);
    env.editor.cambioVSVer(valor);
    const Superficie& s = env.editor.superficie;
    QCOMPARE(f(s.altoExterior), f(mm));
    QVERIFY(qAbs(s.altoExteriorTwips() - twips) < 0.01);
    QCOMPARE(s.altoEscala, double(valor));
    QCOMPARE(f(s.largoRegla), f(mm + 1.0));
    QCOMPARE(s.TxtValorVer, QString::number(valor));
    QCOMPARE(env.mb.AnchoEtiqueta, QByteArray::number(valor));
    QCOMPARE(env.files.controles.VSVer, valor);
    // No field moved, and still the label counts as changed.
    QVERIFY(env.mb.Modificado);
}

void TestEditor::cajas_data()
{
    QTest::addColumn<int>("campo");
    QTest::addColumn<int>("tamano");
    QTest::addColumn<QByteArray>("texto");
    QTest::addColumn<double>("ancho");
    QTest::addColumn<double>("alto");
    const double simple = 30.0 / 9, doble = 50.0 / 9;
    QTest::newRow("descriptive 0") << 1 << 0 << QByteArray() << 45.0 << simple;
    QTest::newRow("descriptive 1 is taller") << 10 << 1 << QByteArray() << 45.0 << doble;
    QTest::newRow("descriptive 2 is wider") << 5 << 2 << QByteArray() << 47.0 << simple;
    QTest::newRow("weight 2") << 11 << 2 << QByteArray() << 23.0 << simple;
    QTest::newRow("tare 1") << 12 << 1 << QByteArray() << 11.0 << doble;
    QTest::newRow("price 3") << 13 << 3 << QByteArray() << 31.0 << doble;
    QTest::newRow("amount 1") << 14 << 1 << QByteArray() << 14.0 << doble;
    QTest::newRow("second currency 1") << 15 << 1 << QByteArray() << 23.0 << doble;
    QTest::newRow("second currency 2 stays single") << 15 << 2 << QByteArray() << 23.0 << simple;
    QTest::newRow("second currency 3 stays single") << 15 << 3 << QByteArray() << 23.0 << simple;
    QTest::newRow("label total 3 stays single") << 20 << 3 << QByteArray() << 24.0 << simple;
    QTest::newRow("bar code 0") << 16 << 0 << QByteArray() << 26.0 << 100.0 / 9;
    QTest::newRow("bar code 3") << 16 << 3 << QByteArray() << 26.0 << 100.0 / 9;
    QTest::newRow("date 0") << 17 << 0 << QByteArray() << 12.5 << simple;
    QTest::newRow("date 2") << 19 << 2 << QByteArray() << 27.0 << simple;
    QTest::newRow("lot 2") << 26 << 2 << QByteArray() << 23.0 << simple;
    QTest::newRow("free text empty") << 21 << 0 << QByteArray() << 0.0 << simple;
    QTest::newRow("free text 12 at 0") << 21 << 0 << QByteArray(12, 'A') << 21.6 << simple;
    QTest::newRow("free text 12 at 2") << 22 << 2 << QByteArray(12, 'A') << 47.0 << simple;
    QTest::newRow("free text 11 at 3") << 25 << 3 << QByteArray(11, 'A') << 47.0 / 12 * 11 << doble;
    QTest::newRow("free text 13 at 2") << 36 << 2 << QByteArray(13, 'A') << 47.0 << simple;
    QTest::newRow("free text 25 at 1") << 30 << 1 << QByteArray(25, 'A') << 45.0 << doble;
}

void TestEditor::cajas()
{
    QFETCH(int, campo);
    QFETCH(int, tamano);
    QFETCH(QByteArray, texto);
    QFETCH(double, ancho);
    QFETCH(double, alto);
    EditorEnv env;
    if (const int t = textoLibreDeCampo(campo))
        env.mb.TextoLibre(t - 1) = texto;
    env.editor.TamanoImagen(campo, tamano);
    const Caja& c = env.editor.superficie.Imagen(campo);
    QCOMPARE(f(c.width()), f(ancho));
    QCOMPARE(f(c.height()), f(alto));
    QCOMPARE(env.mb.Campos(campo).Tamano, QByteArray::number(tamano));
}

void TestEditor::empujeDerecho_data()
{
    QTest::addColumn<int>("campo");
    QTest::addColumn<int>("tamano");
    QTest::addColumn<int>("letras");
    QTest::addColumn<int>("hor");
    QTest::addColumn<int>("resultado");
    QTest::newRow("ends at 53: put back where it was") << 1 << 2 << 0 << 6 << 6;
    QTest::newRow("ends at 55: back to 6") << 1 << 2 << 0 << 8 << 6;
    QTest::newRow("ends at 52: passes") << 12 << 0 << 0 << 41 << 41;
    QTest::newRow("ends at 52.5: to 53 - 12.5, even") << 17 << 0 << 0 << 40 << 40;
    QTest::newRow("ends at 53.5: to 40") << 17 << 0 << 0 << 41 << 40;
    QTest::newRow("a long free text goes over the band") << 21 << 0 << 30 << 10 << -1;
}

void TestEditor::empujeDerecho()
{
    QFETCH(int, campo);
    QFETCH(int, tamano);
    QFETCH(int, letras);
    QFETCH(int, hor);
    QFETCH(int, resultado);
    EditorEnv env;
    if (const int t = textoLibreDeCampo(campo))
        env.mb.TextoLibre(t - 1) = QByteArray(letras, 'X');
    env.poner(campo, hor, 20);
    env.mb.Campos(campo).TextoHor = "ABC";
    env.editor.TamanoImagen(campo, tamano);
    QCOMPARE(env.mb.Campos(campo).PosHor, resultado);
    QCOMPARE(env.editor.superficie.Imagen(campo).left(), double(resultado));
    // The push-back leaves the stored text alone.
    QCOMPARE(env.mb.Campos(campo).TextoHor, QByteArray("ABC"));
}

void TestEditor::textosPosicion_data()
{
    QTest::addColumn<int>("v");
    QTest::addColumn<QByteArray>("entero");
    QTest::addColumn<QByteArray>("exacto");
    QTest::newRow("0") << 0 << QByteArray("000") << QByteArray("000");
    QTest::newRow("1") << 1 << QByteArray("004") << QByteArray("3.6");
    QTest::newRow("5") << 5 << QByteArray("018") << QByteArray("018");
    QTest::newRow("11") << 11 << QByteArray("040") << QByteArray("39.6");
    QTest::newRow("-1") << -1 << QByteArray("0-4") << QByteArray("-3.6");
}

void TestEditor::textosPosicion()
{
    if (QLocale::system().decimalPoint() != QLatin1String("."))
        QSKIP("this table is written for a point as the decimal mark");
    QFETCH(int, v);
    QFETCH(QByteArray, entero);
    QFETCH(QByteArray, exacto);
    QCOMPARE(textoPosicionEntero(v), entero);
    QCOMPARE(textoPosicionExacto(v), exacto);
}

void TestEditor::textoExactoSigueLaConfiguracion()
{
    // Run once with a point and once with a comma as the system's mark.
    const bool coma = QLocale::system().decimalPoint() == QLatin1String(",");
    QCOMPARE(textoPosicionExacto(11), coma ? QByteArray("39,6") : QByteArray("39.6"));
    QCOMPARE(textoPosicionExacto(1000), QByteArray("3600"));
}

// A drag over the surface: field `campo` at (hor, ver) pressed at the grip
// (twips), then dragged to (x, y) in surface units.
void TestEditor::limitesArrastre_data()
{
    QTest::addColumn<int>("largo"); // of the label
    QTest::addColumn<int>("campo");
    QTest::addColumn<QString>("tamano");
    QTest::addColumn<bool>("grupo");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<int>("estado");
    QTest::addColumn<bool>("permitido");
    // Field 1 (45 x 3.33) at (10, 20), pressed at its top left.
    QTest::newRow("left 8 stands") << 45 << 1 << "0" << false << 8.0 << 20.0 << 2 << true;
    QTest::newRow("left 9 ends at 54") << 45 << 1 << "0" << false << 9.0 << 20.0 << 2 << false;
    QTest::newRow("left 2 in the band") << 45 << 1 << "0" << false << 2.0 << 20.0 << 2 << false;
    QTest::newRow("left 3 just clear") << 45 << 1 << "0" << false << 3.0 << 20.0 << 2 << true;
    QTest::newRow("pointer 2.5 rounds to 2") << 45 << 1 << "0" << false << 2.5 << 20.0 << 2 << false;
    QTest::newRow("pointer 3.5 rounds to 4") << 45 << 1 << "0" << false << 3.5 << 20.0 << 2 << true;
    QTest::newRow("top 7") << 45 << 1 << "0" << false << 5.0 << 7.0 << 2 << false;
    QTest::newRow("top 8") << 45 << 1 << "0" << false << 5.0 << 8.0 << 2 << true;
    QTest::newRow("bottom 45.33 rounds to 45") << 45 << 1 << "0" << false << 5.0 << 42.0 << 2 << true;
    QTest::newRow("bottom 46.33") << 45 << 1 << "0" << false << 5.0 << 43.0 << 2 << false;
    QTest::newRow("60 label: bottom at 60") << 60 << 1 << "0" << false << 5.0 << 57.0 << 2 << true;
    QTest::newRow("60 label: bottom at 61") << 60 << 1 << "0" << false << 5.0 << 58.0 << 2 << false;
    QTest::newRow("double row ends at 47.56") << 45 << 1 << "1" << false << 5.0 << 42.0 << 2
                                               << false;
    QTest::newRow("leaving, inside the limits") << 45 << 1 << "0" << false << 5.0 << 20.0 << 1 << true;
    QTest::newRow("entering, outside") << 45 << 1 << "0" << false << 20.0 << 20.0 << 0 << false;
    // A group of field 12 (11 x 3.33) at (10, 20), pressed, and field 13
    // (14 wide) at (30, 30): the box runs from 10 to 44 across and 20 to 33
    // down.
    QTest::newRow("group 7 left") << 45 << 12 << "0" << true << 3.0 << 20.0 << 2 << true;
    QTest::newRow("group 8 left") << 45 << 12 << "0" << true << 2.0 << 20.0 << 2 << false;
    QTest::newRow("group bottom at 45") << 45 << 12 << "0" << true << 10.0 << 32.0 << 2 << true;
    QTest::newRow("group bottom at 46") << 45 << 12 << "0" << true << 10.0 << 33.0 << 2 << false;
    QTest::newRow("group top at 8") << 45 << 12 << "0" << true << 10.0 << 8.0 << 2 << true;
    QTest::newRow("group top at 7") << 45 << 12 << "0" << true << 10.0 << 7.0 << 2 << false;
    QTest::newRow("group right at 53") << 45 << 12 << "0" << true << 19.0 << 20.0 << 2 << true;
    QTest::newRow("group right at 54") << 45 << 12 << "0" << true << 20.0 << 20.0 << 2 << false;
}

void TestEditor::limitesArrastre()
{
    QFETCH(int, largo);
    QFETCH(int, campo);
    QFETCH(QString, tamano);
    QFETCH(bool, grupo);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(int, estado);
    QFETCH(bool, permitido);
    EditorEnv env;
    env.editor.cambioVSVer(largo);
    env.poner(campo, 10, 20, tamano.toLatin1().constData(), grupo);
    if (grupo)
        env.poner(13, 30, 30, "0", true);
    env.editor.pulsarCampo(campo, BotonRaton::Izquierdo, 0, 0);
    QCOMPARE(env.editor.ArrastreGrupo, grupo);
    env.editor.arrastrarSobreCuadro(estado, x, y);
    QCOMPARE(env.editor.FueraDeLimites, !permitido);
    QCOMPARE(env.editor.superficie.puntero, permitido ? Puntero::Flecha : Puntero::NoSoltar);
    // The read-out is the pointer, not the box.
    QCOMPARE(env.editor.superficie.panelX, QStringLiteral("X: %1").arg(std::nearbyint(x)));
}

// Over another field's box: the pointer is relative to that box, but the
// dragged field's left and top are added, and the box's size counts.
void TestEditor::limitesSobreCampo_data()
{
    QTest::addColumn<int>("debajo");
    QTest::addColumn<double>("xTwips");
    QTest::addColumn<double>("yTwips");
    QTest::addColumn<int>("punteroHor");
    QTest::addColumn<bool>("permitido");
    // Field 12 (11 wide) at (20, 20) dragged from its top left.
    QTest::newRow("over itself, no move") << 12 << 0.0 << 0.0 << 20 << true;
    QTest::newRow("over itself, 2 across") << 12 << 226.8 << 0.0 << 22 << true;
    // Over field 1 (45 wide): 20 + 45 is past 53 whatever the pointer says.
    QTest::newRow("over a wide neighbour") << 1 << 0.0 << 0.0 << 20 << false;
    // Over the bar code (11.11 tall) its height counts: 14 units down end at
    // 45.11, 16 at 47.11.
    QTest::newRow("over the bar code, 14 down") << 16 << 0.0 << 882.0 << 20 << true;
    QTest::newRow("over the bar code, 16 down") << 16 << 0.0 << 1008.0 << 20 << false;
}

void TestEditor::limitesSobreCampo()
{
    QFETCH(int, debajo);
    QFETCH(double, xTwips);
    QFETCH(double, yTwips);
    QFETCH(int, punteroHor);
    QFETCH(bool, permitido);
    EditorEnv env;
    env.poner(12, 20, 20);
    env.poner(1, 4, 10);
    env.poner(16, 20, 30);
    env.editor.pulsarCampo(12, BotonRaton::Izquierdo, 0, 0);
    env.editor.arrastrarSobreCampo(debajo, xTwips, yTwips);
    QCOMPARE(env.editor.PunteroHor, punteroHor);
    QCOMPARE(env.editor.FueraDeLimites, !permitido);
    QCOMPARE(env.editor.superficie.puntero, permitido ? Puntero::Flecha : Puntero::NoSoltar);
}

void TestEditor::soltarUnCampo()
{
    EditorEnv env;
    env.mb.PesoAproximado = true;
    env.poner(11, 10, 20);
    // Pressed 2 units across and 1 down into the box.
    env.editor.pulsarCampo(11, BotonRaton::Izquierdo, 226.8, 63);
    QCOMPARE(env.editor.AgarreHor, 2);
    QCOMPARE(env.editor.AgarreVer, 1);
    env.editor.arrastrarSobreCuadro(2, 15.4, 30.6);
    QCOMPARE(env.editor.superficie.panelY, QStringLiteral("Y: 31"));
    env.editor.soltarEnCuadro(15.4, 30.6);
    const Campo& c = env.mb.Campos(11);
    QCOMPARE(c.PosHor, 13);
    QCOMPARE(c.PosVer, 30);
    QCOMPARE(c.TextoHor, QByteArray("047"));
    QCOMPARE(c.TextoVer, QByteArray("108"));
    QCOMPARE(env.editor.superficie.Imagen(11).left(), 13.0);
    // The drop's read-out is corrected by the grip.
    QCOMPARE(env.editor.superficie.panelX, QStringLiteral("X: 13"));
    QCOMPARE(env.editor.superficie.Imagen(0).left(), 13.0);
    QCOMPARE(f(env.editor.superficie.Imagen(0).top()), f(30 + 30.0 / 9));
    QVERIFY(!env.mb.Modificado);
    QCOMPARE(env.ui.log.last(), QStringLiteral("Cuadro"));

    // Let go outside the limits: nothing moves and the drag is over.
    env.editor.pulsarCampo(11, BotonRaton::Izquierdo, 0, 0);
    env.editor.arrastrarSobreCuadro(2, 50, 30);
    QVERIFY(env.editor.FueraDeLimites);
    env.editor.soltarEnCuadro(50, 30);
    QCOMPARE(env.mb.Campos(11).PosHor, 13);
    QVERIFY(!env.editor.FueraDeLimites);

    // Within its own box: moved by the last drag-over's delta.
    env.editor.pulsarCampo(11, BotonRaton::Izquierdo, 0, 0);
    env.editor.arrastrarSobreCampo(11, 113.4 * 3, 0);
    env.editor.soltarEnCampo(11, 113.4 * 3, 0);
    QCOMPARE(env.mb.Campos(11).PosHor, 16);
    QCOMPARE(env.mb.Campos(11).TextoHor, QByteArray("058"));

    // Let go on a text box of the window: nothing moves.
    env.editor.pulsarCampo(11, BotonRaton::Izquierdo, 0, 0);
    env.editor.arrastrarSobreCuadro(2, 20, 20);
    env.editor.soltarEnCajaTexto();
    QCOMPARE(env.mb.Campos(11).PosHor, 16);
}

void TestEditor::soltarGrupo()
{
    EditorEnv env;
    env.poner(11, 5, 10, "0", true);
    env.poner(12, 10, 20, "0", true);
    env.poner(13, 30, 30); // not selected
    env.editor.pulsarCampo(12, BotonRaton::Izquierdo, 0, 0);
    env.editor.arrastrarSobreCuadro(2, 14, 23);
    QVERIFY(!env.editor.FueraDeLimites);
    env.editor.soltarEnCuadro(14, 23);
    // The boxes take the delta (4, 3) once, the records twice.
    QCOMPARE(env.editor.superficie.Imagen(12).left(), 14.0);
    QCOMPARE(env.editor.superficie.Imagen(11).top(), 13.0);
    QCOMPARE(env.mb.Campos(12).PosHor, 18);
    QCOMPARE(env.mb.Campos(12).PosVer, 26);
    QCOMPARE(env.mb.Campos(11).PosHor, 13);
    QCOMPARE(env.mb.Campos(11).TextoHor, QByteArray("047"));
    QCOMPARE(env.mb.Campos(11).TextoVer, QByteArray("058"));
    QCOMPARE(env.mb.Campos(13).PosHor, 30);
    QVERIFY(env.mb.Campos(11).Seleccionado);
    QVERIFY(!env.mb.Modificado);

    // No delta: the records stay.
    EditorEnv quieto;
    quieto.poner(1, 5, 10, "0", true);
    quieto.poner(12, 10, 20, "0", true);
    quieto.editor.pulsarCampo(12, BotonRaton::Izquierdo, 0, 0);
    quieto.editor.arrastrarSobreCampo(12, 0, 0);
    quieto.editor.soltarEnCampo(12, 0, 0);
    QCOMPARE(quieto.mb.Campos(12).PosHor, 10);
    QCOMPARE(quieto.mb.Campos(1).PosVer, 10);
}

void TestEditor::cajaDelGrupo()
{
    // The right edge is compared with the bottom: near the top of the label
    // the last selected field sets it, here the pressed one (35), though
    // field 1 reaches 48.
    EditorEnv env;
    env.poner(12, 24, 20, "0", true);
    env.poner(1, 3, 10, "0", true);
    env.editor.pulsarCampo(12, BotonRaton::Izquierdo, 0, 0);
    QCOMPARE(env.editor.GrupoIzquierda, 3);
    QCOMPARE(env.editor.GrupoArriba, 10);
    QCOMPARE(env.editor.GrupoAbajo, 23);
    QCOMPARE(env.editor.GrupoDerecha, 35);

    // Lower down a right edge short of the bottom is never taken.
    EditorEnv bajo;
    bajo.poner(12, 10, 40, "0", true);
    bajo.poner(13, 25, 30, "0", true);
    bajo.editor.pulsarCampo(12, BotonRaton::Izquierdo, 0, 0);
    QCOMPARE(bajo.editor.GrupoArriba, 30);
    QCOMPARE(bajo.editor.GrupoAbajo, 43);
    QCOMPARE(bajo.editor.GrupoDerecha, 21);
}

void TestEditor::campoCeroNoEsCampo()
{
    EditorEnv env;
    env.editor.CampoActivo = 5;
    env.editor.pulsarCampo(0, BotonRaton::Izquierdo, 300, 300);
    QCOMPARE(env.editor.CampoActivo, 5);
    QVERIFY(!env.editor.arrastrando);
    QCOMPARE(errorNumber([&] { env.editor.dobleClicCampo(0); }), 9);

    // The double click flips the mark and the colour, and nothing else.
    env.poner(3, 10, 10);
    env.editor.dobleClicCampo(3);
    QVERIFY(env.mb.Campos(3).Seleccionado);
    QVERIFY(env.editor.superficie.Imagen(3).rojo);
    env.editor.dobleClicCampo(3);
    QVERIFY(!env.editor.superficie.Imagen(3).rojo);
    QCOMPARE(env.editor.CampoActivo, 5);
    QVERIFY(!env.mb.Modificado);
}

void TestEditor::posicionarCampo_data()
{
    QTest::addColumn<int>("campo");
    QTest::addColumn<int>("hor");
    QTest::addColumn<int>("ver");
    QTest::addColumn<int>("posHor");
    QTest::addColumn<int>("posVer");
    QTest::addColumn<QByteArray>("textoHor");
    QTest::addColumn<QByteArray>("textoVer");
    QTest::newRow("a descriptive at (50, 40)") << 1 << 50 << 40 << 8 << 40 << QByteArray("28.8")
                                               << QByteArray("144");
    QTest::newRow("at the bottom") << 12 << 20 << 44 << 20 << 42 << QByteArray("072")
                                   << QByteArray("151.2");
    QTest::newRow("the bar code at the bottom") << 16 << 20 << 40 << 20 << 34 << QByteArray("072")
                                                << QByteArray("122.4");
    QTest::newRow("the corner after a command") << 12 << 0 << 0 << 0 << 0 << QByteArray("000")
                                                << QByteArray("000");
    QTest::newRow("at 1 across") << 12 << 1 << 11 << 1 << 11 << QByteArray("3.6")
                                 << QByteArray("39.6");
}

void TestEditor::posicionarCampo()
{
    if (QLocale::system().decimalPoint() != QLatin1String("."))
        QSKIP("this table is written for a point as the decimal mark");
    QFETCH(int, campo);
    QFETCH(int, hor);
    QFETCH(int, ver);
    QFETCH(int, posHor);
    QFETCH(int, posVer);
    QFETCH(QByteArray, textoHor);
    QFETCH(QByteArray, textoVer);
    EditorEnv env;
    env.mb.NuevoCampoHor = static_cast<int16_t>(hor);
    env.mb.NuevoCampoVer = static_cast<int16_t>(ver);
    env.editor.PosicionarCampo(campo);
    const Campo& c = env.mb.Campos(campo);
    QCOMPARE(c.Presente, QByteArray("1"));
    QCOMPARE(c.PosHor, posHor);
    QCOMPARE(c.PosVer, posVer);
    QCOMPARE(env.mb.NuevoCampoHor, posHor);
    QCOMPARE(env.mb.NuevoCampoVer, posVer);
    QCOMPARE(c.TextoHor, textoHor);
    QCOMPARE(c.TextoVer, textoVer);
    QVERIFY(env.editor.superficie.Imagen(campo).visible);
    QCOMPARE(env.editor.superficie.Imagen(campo).left(), double(posHor));
    QVERIFY(!env.mb.Modificado);
}

// Field 12 stacked in column `hor` from `ver` down, among fields already in
// place (number, hor, ver, size code).
void TestEditor::inicializarSituacion_data()
{
    QTest::addColumn<QList<QList<int>>>("otros");
    QTest::addColumn<int>("hor");
    QTest::addColumn<int>("ver");
    QTest::addColumn<int>("resultado");
    QTest::newRow("empty column") << QList<QList<int>>{} << 0 << 0 << 0;
    QTest::newRow("one in the way") << QList<QList<int>>{{11, 0, 0, 0}} << 0 << 0 << 3;
    QTest::newRow("a double row") << QList<QList<int>>{{11, 0, 0, 1}} << 0 << 0 << 6;
    QTest::newRow("a stack found in reverse order")
        << QList<QList<int>>{{11, 0, 6, 0}, {13, 0, 3, 0}, {14, 0, 0, 0}} << 0 << 0 << 9;
    QTest::newRow("a gap big enough") << QList<QList<int>>{{11, 0, 0, 0}, {13, 0, 9, 0}} << 0
                                      << 0 << 3;
    QTest::newRow("the neighbouring column is ignored") << QList<QList<int>>{{1, 1, 0, 0}} << 0
                                                        << 0 << 0;
    QTest::newRow("touching from above is no obstacle") << QList<QList<int>>{{11, 10, 7, 0}}
                                                        << 10 << 10 << 10;
    QTest::newRow("the bar code") << QList<QList<int>>{{16, 10, 12, 0}} << 10 << 10 << 23;
}

void TestEditor::inicializarSituacion()
{
    QFETCH(QList<QList<int>>, otros);
    QFETCH(int, hor);
    QFETCH(int, ver);
    QFETCH(int, resultado);
    EditorEnv env;
    for (const QList<int>& o : otros)
        env.poner(o[0], o[1], o[2], QByteArray::number(o[3]).constData());
    env.mb.Campos(12).Tamano = "3";
    env.editor.InicializarSituacion(12, hor, ver);
    QCOMPARE(env.mb.Campos(12).PosVer, resultado);
    QCOMPARE(env.mb.Campos(12).Tamano, QByteArray("0"));
    QCOMPARE(env.mb.Campos(12).TextoVer, QByteArray("000"));
}

// AjustarIzda (0) and AjustarArriba (1) on fields given as number, hor,
// ver, selected; the expected packed position of each.
void TestEditor::ajustes_data()
{
    QTest::addColumn<int>("eje");
    QTest::addColumn<QList<QList<int>>>("campos");
    QTest::addColumn<QList<int>>("posiciones");
    QTest::newRow("a row closes up from the left")
        << 0 << QList<QList<int>>{{12, 30, 20, 1}, {11, 20, 20, 1}} << QList<int>{14, 3};
    QTest::newRow("against an unselected field of the same top")
        << 0 << QList<QList<int>>{{13, 5, 20, 0}, {12, 30, 20, 1}} << QList<int>{5, 19};
    QTest::newRow("one to the right is ignored")
        << 0 << QList<QList<int>>{{13, 38, 20, 0}, {12, 30, 20, 1}} << QList<int>{38, 3};
    QTest::newRow("an obstacle starting at its bottom does not count")
        << 0 << QList<QList<int>>{{13, 5, 23, 0}, {12, 30, 20, 1}} << QList<int>{5, 3};
    QTest::newRow("pushed to the right, clear of a long field")
        << 0 << QList<QList<int>>{{1, 4, 20, 0}, {12, 30, 21, 1}} << QList<int>{4, 49};
    QTest::newRow("already at 3") << 0 << QList<QList<int>>{{12, 3, 20, 1}} << QList<int>{3};
    QTest::newRow("equal lefts: the lower number goes first")
        << 0 << QList<QList<int>>{{12, 30, 20, 1}, {11, 30, 22, 1}} << QList<int>{14, 3};
    QTest::newRow("up: a column closes up from the top")
        << 1 << QList<QList<int>>{{12, 10, 30, 1}, {11, 10, 20, 1}} << QList<int>{11, 8};
    QTest::newRow("up: against an obstacle above")
        << 1 << QList<QList<int>>{{16, 5, 9, 0}, {12, 10, 30, 1}} << QList<int>{9, 20};
    QTest::newRow("up: an obstacle beside is ignored")
        << 1 << QList<QList<int>>{{16, 21, 9, 0}, {12, 10, 30, 1}} << QList<int>{9, 8};
}

void TestEditor::ajustes()
{
    if (QLocale::system().decimalPoint() != QLatin1String("."))
        QSKIP("this table is written for a point as the decimal mark");
    QFETCH(int, eje);
    QFETCH(QList<QList<int>>, campos);
    QFETCH(QList<int>, posiciones);
    EditorEnv env;
    for (const QList<int>& c : campos)
        env.poner(c[0], c[1], c[2], "0", c[3] != 0);
    eje == 0 ? env.editor.AjustarIzda() : env.editor.AjustarArriba();
    for (int i = 0; i < campos.size(); ++i) {
        const int n = campos[i][0];
        const Campo& c = env.mb.Campos(n);
        const int pos = eje == 0 ? c.PosHor : c.PosVer;
        QCOMPARE(pos, posiciones[i]);
        if (campos[i][3]) {
            const double caja = eje == 0 ? env.editor.superficie.Imagen(n).left()
                                         : env.editor.superficie.Imagen(n).top();
            QCOMPARE(caja, double(pos));
            QCOMPARE(eje == 0 ? c.TextoHor : c.TextoVer, textoPosicionExacto(pos));
        }
        QVERIFY(!c.Seleccionado);
        QVERIFY(!env.editor.superficie.Imagen(n).rojo);
    }
    QVERIFY(env.mb.Modificado);

    // Nothing selected: nothing changes, not even the mark.
    EditorEnv nada;
    nada.poner(12, 30, 20);
    eje == 0 ? nada.editor.AjustarIzda() : nada.editor.AjustarArriba();
    QCOMPARE(nada.mb.Campos(12).PosHor, 30);
    QVERIFY(!nada.mb.Modificado);
}

void TestEditor::alinear_data()
{
    QTest::addColumn<int>("campo");
    QTest::addColumn<int>("modo");
    QTest::addColumn<double>("left");
    QTest::addColumn<int>("posHor");
    QTest::addColumn<QByteArray>("textoHor");
    QTest::newRow("left") << 1 << 0 << 3.0 << 3 << QByteArray("011");
    QTest::newRow("centre of 45") << 1 << 1 << 6.0 << 6 << QByteArray("022");
    QTest::newRow("centre of 12.5") << 17 << 1 << 22.25 << 22 << QByteArray("079");
    QTest::newRow("centre of 14: 21.5 to 22") << 13 << 1 << 21.5 << 22 << QByteArray("079");
    QTest::newRow("right of 12.5") << 17 << 2 << 40.5 << 40 << QByteArray("144");
    QTest::newRow("right of the weight") << 11 << 2 << 42.0 << 42 << QByteArray("151");
    QTest::newRow("a bad mode keeps the left") << 17 << 7 << 20.0 << 20 << QByteArray("072");
}

void TestEditor::alinear()
{
    QFETCH(int, campo);
    QFETCH(int, modo);
    QFETCH(double, left);
    QFETCH(int, posHor);
    QFETCH(QByteArray, textoHor);
    EditorEnv env;
    env.mb.PesoAproximado = true;
    env.poner(campo, 20, 30, "0", true);
    env.poner(12, 20, 40); // not selected
    env.editor.Alinear(modo);
    const Campo& c = env.mb.Campos(campo);
    QCOMPARE(env.editor.superficie.Imagen(campo).left(), left);
    QCOMPARE(c.PosHor, posHor);
    QCOMPARE(c.TextoHor, textoHor);
    QCOMPARE(c.TextoVer, QByteArray("000"));
    QVERIFY(!c.Seleccionado);
    QCOMPARE(env.mb.Campos(12).PosHor, 20);
    QVERIFY(!env.mb.Modificado);
    if (campo == 11)
        QCOMPARE(env.editor.superficie.Imagen(0).left(), left);
}

QTEST_GUILESS_MAIN(TestEditor)
#include "tst_editor.moc"
