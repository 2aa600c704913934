# What Windows reads from a program's file: version, manifest (screens of any density, long paths) and, where an icon file is
# named, the icon.
set(QUORVIN_ICON "" CACHE FILEPATH "The programs' icon (.ico)")

function(add_windows_resources program description)
    if(NOT WIN32)
        return()
    endif()
    if(QUORVIN_ICON)
        # The name under which Qt looks for the window's icon too.
        set(icon "IDI_ICON1 ICON \"${QUORVIN_ICON}\"")
    endif()
    file(STRINGS ${CMAKE_SOURCE_DIR}/LICENSE copyright REGEX "^Copyright")
    set(manifest ${CMAKE_SOURCE_DIR}/packaging/windows/program.manifest)
    configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc @ONLY)
    target_sources(${program} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc)
    if(MSVC)
        target_link_options(${program} PRIVATE /MANIFEST:NO)
    endif()
endfunction()
