# What the dialogs add here: their logic without a screen.
korvo_test(tst_dialogos korvo_editor korvo_transfer)
