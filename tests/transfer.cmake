# What the transfer area adds here.
korvo_test(tst_tramas korvo_transfer)
korvo_test(tst_coordenadas korvo_transfer)
korvo_test(tst_caracteres korvo_transfer)
