# One switch: address and undefined behaviour, the first fault ends the program. Fuzzing goes with it.
if(QUORVIN_SANITIZE OR QUORVIN_FUZZ)
    target_compile_options(quorvin_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quorvin_flags INTERFACE -fsanitize=address,undefined)
endif()
if(QUORVIN_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "QUORVIN_FUZZ needs clang; without it the targets run their corpora as tests.")
    endif()
    target_compile_options(quorvin_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
