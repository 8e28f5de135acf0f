# What the preview area adds here.
korvo_test(tst_tamanocampo korvo_preview)
korvo_test(tst_imagenes korvo_preview)
korvo_test(tst_vistaprevia korvo_preview)
korvo_test(tst_frmvistaprevia korvo_ui)
foreach(t tst_tamanocampo tst_imagenes tst_vistaprevia tst_frmvistaprevia)
    target_sources(${t} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/preview/EtiquetasPrueba.cpp)
    target_include_directories(${t} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/preview)
endforeach()
