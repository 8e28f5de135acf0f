# What the transfer area adds here.
korvo_fuzzer(respuesta korvo_transfer)
korvo_fuzzer(tablacaracteres korvo_transfer)
korvo_fuzzer(listabalanzas korvo_transfer)
