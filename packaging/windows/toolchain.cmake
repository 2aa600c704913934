# Building for 64-bit Windows on Debian, with the compiler whose threads are the standard library's (package
# g++-mingw-w64-x86-64-posix). QUORVIN_PREFIXES: folders of libraries built for Windows; nothing of the system's own is looked at.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

# Programs made here, and the tests with them, run under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine.sh)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUORVIN_PREFIXES)
set(CMAKE_FIND_ROOT_PATH /usr/${triplet} ${QUORVIN_PREFIXES})
set(CMAKE_PREFIX_PATH ${QUORVIN_PREFIXES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
