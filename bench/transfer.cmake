# What the transfer area adds here.
korvo_bench(bench_envio korvo_transfer Qt6::Network)
add_dependencies(bench_envio korvo-scale)
