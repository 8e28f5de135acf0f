# What the editor area adds here.
korvo_bench(bench_editor korvo_editor)
# The surface widget: a drag-over and its repaint.
korvo_bench(bench_cuadro korvo_ui)
