# What the preview area adds here.
korvo_bench(bench_vistaprevia korvo_preview)
add_dependencies(bench_vistaprevia program_res)
