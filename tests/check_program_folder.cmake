# The build's program folder: a fresh one serves the new model, one the
# program has run in keeps the model the person chose.
set(base ${WORK_DIR}/program_folder)
file(REMOVE_RECURSE ${base})

# Fresh: an empty marker.
execute_process(COMMAND ${CMAKE_COMMAND} -DDIR=${base}/fresh -P ${SCRIPT} RESULT_VARIABLE rc)
if(NOT rc EQUAL 0 OR NOT EXISTS ${base}/fresh/sirel.new)
    message(FATAL_ERROR "a fresh program folder got no sirel.new")
endif()
file(SIZE ${base}/fresh/sirel.new size)
if(NOT size EQUAL 0)
    message(FATAL_ERROR "sirel.new is not empty")
endif()

# Switched to the old model at a run: the next build leaves it so.
file(WRITE ${base}/used/cfg.ini "Idioma = 1\r\n")
execute_process(COMMAND ${CMAKE_COMMAND} -DDIR=${base}/used -P ${SCRIPT} RESULT_VARIABLE rc)
if(NOT rc EQUAL 0 OR EXISTS ${base}/used/sirel.new)
    message(FATAL_ERROR "a build brought back the new model the person had left")
endif()
file(REMOVE_RECURSE ${base})
