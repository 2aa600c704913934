# Starts quorvin-cli and mkrec as processes: CLI and MKREC (programs), SAMPLES and WORK (folders).

# expect(STATUS REGEX ARGUMENT...): exit status, and a pattern that standard output and error together match.
function(expect status pattern)
    execute_process(COMMAND ${CLI} ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT result STREQUAL status OR NOT "${out}${err}" MATCHES "${pattern}")
        message(FATAL_ERROR "quorvin-cli ${ARGN}\nstatus ${result}, expected ${status}, pattern ${pattern}\n${out}${err}")
    endif()
endfunction()

set(rec ${SAMPLES}/pazienti.rec)
file(WRITE ${WORK}/nodata.rec "1 1\r\n_A            1   1  30   5   1   1   3 112 a\r\n")

expect(0 "rekord +500\n" info ${rec})
expect(0 "\"bytePerRekord\": 157" info ${rec} --json)
expect(0 "COMUNE      San Donà di Piave\n" mostra ${rec} 3)
expect(0 "\"rekord\": 3,\n  \"cancellato\": false,\n  \"campi\": {\n    \"COGNOME\": \"Longo\"" mostra ${rec} 3 --json)
expect(0 "Opzioni:" --help)
expect(2 "rekord 501 inesistente, il file ne ha 500" mostra ${rec} 501)
expect(2 "rekord 0 inesistente" mostra ${rec} 0)
expect(2 "valore non valido" mostra ${rec} uno)
expect(2 "manca un argomento" info)
expect(2 "argomento inatteso" info ${rec} ${rec} ${rec})
file(WRITE ${WORK}/escape.rec "1 1\r\n_A\t[31m        1   1  30   5   1   1   3 112 a\r\nabc!\r\n")
expect(0 "\n   1  A [[]31m " info ${WORK}/escape.rec)
expect(2 "^Errore!! Impossibile trovare il file\n$" info ${WORK}/no-such-file.rec)
expect(2 "^Errore file !! Divisione per zero\n$" info ${WORK}/nodata.rec)

# The sample comes from the generator, on every system.
execute_process(COMMAND ${MKREC} 500 ${WORK}/sample.rec RESULT_VARIABLE result)
file(SHA256 ${WORK}/sample.rec made)
file(SHA256 ${SAMPLES}/pazienti.rec kept)
if(NOT result STREQUAL 0 OR NOT made STREQUAL kept)
    message(FATAL_ERROR "mkrec 500 does not make samples/pazienti.rec")
endif()
