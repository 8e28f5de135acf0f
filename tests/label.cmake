# What the label area adds here.
korvo_test(tst_labelfile korvo_label)
korvo_test(tst_setfile korvo_label)
korvo_test(tst_import korvo_label)
# The import compares dates as the system's text; these tests fix a day-first locale.
set_tests_properties(tst_import PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=es_ES.UTF-8")
korvo_test(tst_filecommands korvo_label)
korvo_test(tst_freetexts korvo_label)
if(TARGET korvo-scale)
    korvo_test(tst_cli korvo_label)
    target_compile_definitions(tst_cli PRIVATE KORVO_CLI="$<TARGET_FILE:korvo-cli>" KORVO_BIN="${KORVO_BIN}")
    add_dependencies(tst_cli korvo-cli program_res)
    target_compile_definitions(tst_cli PRIVATE KORVO_SCALE="$<TARGET_FILE:korvo-scale>")
    add_dependencies(tst_cli korvo-scale)
endif()
# Every writer on a full disk, and the work kept when the program ends.
korvo_test(tst_escritura korvo_ui)
