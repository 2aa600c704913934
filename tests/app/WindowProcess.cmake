# Starts quorvin as a process, off screen, and looks at the picture that it leaves: PROGRAM, SAMPLES and WORK.

# take(NAME STATUS ARGUMENT...): runs the program; NAME gets the checksum of its picture when it succeeds.
function(take name status)
    set(picture ${WORK}/window-${name}.png)
    file(REMOVE ${picture})
    execute_process(COMMAND ${PROGRAM} --immagine ${picture} ${ARGN}
        RESULT_VARIABLE result ERROR_VARIABLE err TIMEOUT 60)
    if(NOT result STREQUAL status)
        message(FATAL_ERROR "${ARGN}: status ${result}, expected ${status}\n${err}")
    endif()
    if(status EQUAL 0)
        file(SHA256 ${picture} checksum)
        set(${name} ${checksum} PARENT_SCOPE)
    elseif(NOT err MATCHES "Errore")
        message(FATAL_ERROR "${ARGN}: no message\n${err}")
    endif()
endfunction()

take(none 0)
take(third 0 --rekord 3 ${SAMPLES}/pazienti.rec)
take(fourth 0 --rekord 4 ${SAMPLES}/pazienti.rec)
if(third STREQUAL fourth OR third STREQUAL none)
    message(FATAL_ERROR "the pictures of different records are the same")
endif()
take(missing 2 ${WORK}/no-such-file.rec)
