# What the transfer area adds here.
korvo_test(tst_tramas korvo_transfer)
