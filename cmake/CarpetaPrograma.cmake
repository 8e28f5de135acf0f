# Readies the program folder DIR that the build makes: a folder the program
# has never run in (it has no cfg.ini yet) gets an empty sirel.new, so that
# it serves the new model. Once the program has run there the marker is the
# person's: the model check box creates and deletes it, and a later build
# leaves it as it is.
if(NOT DIR)
    message(FATAL_ERROR "CarpetaPrograma.cmake needs -DDIR=<program folder>")
endif()
if(NOT EXISTS "${DIR}/cfg.ini" AND NOT EXISTS "${DIR}/sirel.new")
    file(MAKE_DIRECTORY "${DIR}")
    file(TOUCH "${DIR}/sirel.new")
endif()
