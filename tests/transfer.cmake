# What the transfer area adds here.
korvo_test(tst_tramas korvo_transfer)
korvo_test(tst_coordenadas korvo_transfer)
korvo_test(tst_caracteres korvo_transfer)
# Whole transfers against the virtual scale on a pseudo-terminal.
if(TARGET korvo-scale)
    korvo_test(tst_envio korvo_transfer Qt6::Network)
    target_compile_definitions(tst_envio PRIVATE KORVO_SCALE="$<TARGET_FILE:korvo-scale>")
    add_dependencies(tst_envio korvo-scale)
    set_tests_properties(tst_envio PROPERTIES TIMEOUT 300)
endif()
# Damaged files of every kind met by the window's commands.
korvo_test(tst_danados korvo_transfer)
