# Starts quorvin as a process, off screen, and looks at the picture that it leaves: PROGRAM, SAMPLES and WORK.
set(picture ${WORK}/window.png)
file(REMOVE ${picture})
execute_process(COMMAND ${PROGRAM} --rekord 3 --immagine ${picture} ${SAMPLES}/pazienti.rec
    RESULT_VARIABLE result ERROR_VARIABLE err TIMEOUT 60)
if(NOT result STREQUAL 0 OR NOT EXISTS ${picture})
    message(FATAL_ERROR "status ${result}\n${err}")
endif()
file(SIZE ${picture} size)
if(size LESS 5000)
    message(FATAL_ERROR "the picture is empty: ${size} bytes")
endif()
