// What a person waits for while dragging over a full surface: one move of
// the pointer over the surface widget (the editor's drag-over, the history's
// look at the label, the status read-outs) and the whole repaint it causes,
// with 36 fields on the label, at true size and at 300 %.
#include "Cuadro.h"
#include "EditorEtiqueta.h"
#include "EtiquetaLlena.h"
#include "FileCommands.h"
#include "Historial.h"
#include "ModBase.h"
#include "Picture.h"
#include "SinVentana.h"

#include <benchmark/benchmark.h>
#include <QApplication>
#include <QImage>
#include <QMouseEvent>

namespace {

struct Superficie36 {
    ModBase mb;
    SilentInteraction ui;
    SinVentana view;
    SinFondo cargador;
    FileCommands files{mb, ui, view};
    EditorEtiqueta editor{mb, ui, files, view, cargador};
    Historial historial{mb, files, view};
    Picture fondo;
    Cuadro cuadro{editor, fondo};

    Superficie36()
    {
        llenarEtiqueta(mb);
        // Every box with a caption to fit.
        for (int n = 1; n <= 36; ++n)
            editor.superficie.Imagen(n).caption = QStringLiteral("%1 Precio por kilo").arg(n);
        editor.cargarSuperficie();
        editor.CargarImagen();
        historial.reiniciar();
        cuadro.trasRaton = [this] { historial.registrar(); };
    }
};

void arrastreYRepintado(benchmark::State& state)
{
    Superficie36 s;
    s.cuadro.setZoom(state.range(0) / 100.0);
    QImage imagen(s.cuadro.size(), QImage::Format_ARGB32_Premultiplied);
    const QPointF agarre = s.cuadro.rectCaja(12).center();
    QMouseEvent pulsa(QEvent::MouseButtonPress, agarre, s.cuadro.mapToGlobal(agarre),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&s.cuadro, &pulsa);
    double x = s.cuadro.puntoDe(10, 0).x();
    const double y = s.cuadro.puntoDe(0, 30).y();
    for (auto _ : state) {
        const QPointF p(x, y);
        QMouseEvent mueve(QEvent::MouseMove, p, s.cuadro.mapToGlobal(p), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&s.cuadro, &mueve);
        s.cuadro.render(&imagen);
        x = x > s.cuadro.puntoDe(40, 0).x() ? s.cuadro.puntoDe(10, 0).x() : x + 3;
    }
    benchmark::DoNotOptimize(imagen.constBits());
}
BENCHMARK(arrastreYRepintado)->Arg(100)->Arg(300)->ArgName("zoom")->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
