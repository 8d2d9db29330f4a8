# ktl_target(name): the settings that every target of this project shares.
#
# -ffp-contract=off and no fast-math: the named routines give the same bits with every compiler and at every
# optimisation level. Warnings are errors in our own builds only, never in a consumer's.
function(ktl_target name)
    target_compile_features(${name} PUBLIC cxx_std_20)
    set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${name} PRIVATE -ffp-contract=off)
    if(PROJECT_IS_TOP_LEVEL)
        target_compile_options(${name} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
    endif()
endfunction()

# ktl_export_only(name map): a shared library that exports nothing but the names of the map file.
function(ktl_export_only name map)
    if(CMAKE_EXECUTABLE_FORMAT STREQUAL ELF)
        target_link_options(${name} PRIVATE LINKER:--version-script=${map})
        set_target_properties(${name} PROPERTIES LINK_DEPENDS ${map})
    endif()
endfunction()
