# What the editor area adds here.
korvo_test(tst_editor korvo_editor)
korvo_test(tst_editormenus korvo_editor)
# The exact position text takes the system's decimal mark: once with a point,
# once with a comma.
set_tests_properties(tst_editor PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
add_test(NAME tst_editor_coma COMMAND tst_editor textoExactoSigueLaConfiguracion)
set_tests_properties(tst_editor_coma PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=es_ES.UTF-8")
set_tests_properties(tst_editormenus PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
