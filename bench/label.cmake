# What the label area adds here.
korvo_bench(bench_labelfile korvo_label)
