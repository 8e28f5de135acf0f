# What the dialogs add here: their logic without a screen, then the dialogs
# themselves driven by keys and clicks, with one transfer against the
# virtual scale.
korvo_test(tst_dialogos korvo_editor korvo_transfer)
if(TARGET korvo-scale)
    korvo_test(tst_frmdialogos korvo_ui)
    target_compile_definitions(tst_frmdialogos PRIVATE KORVO_SCALE="$<TARGET_FILE:korvo-scale>")
    add_dependencies(tst_frmdialogos korvo-scale)
    set_tests_properties(tst_frmdialogos PROPERTIES TIMEOUT 120)
endif()
