# One switch: address and undefined behaviour, the first fault ends the program.
if(QUORVIN_SANITIZE)
    target_compile_options(quorvin_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quorvin_flags INTERFACE -fsanitize=address,undefined)
endif()
