# Every target of ours links quorvin_flags, and so gets the same warnings, as errors.
add_library(quorvin_flags INTERFACE)
target_compile_definitions(quorvin_flags INTERFACE QUORVIN_VERSION="${PROJECT_VERSION}")
if(WIN32)
    target_compile_definitions(quorvin_flags INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()
if(MSVC)
    target_compile_options(quorvin_flags INTERFACE /W4 /utf-8 $<$<BOOL:${QUORVIN_WERROR}>:/WX>)
else()
    target_compile_options(quorvin_flags INTERFACE
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
        $<$<BOOL:${QUORVIN_WERROR}>:-Werror>)
    # GCC 12 reports impossible overlaps within its own std::string (bug 105651, gone in 13).
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(quorvin_flags INTERFACE -Wno-restrict)
    endif()
endif()
