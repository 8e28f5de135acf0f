# What the editor area adds here.
korvo_bench(bench_editor korvo_editor)
