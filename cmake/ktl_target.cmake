# ktl_target(name): the settings that every target of this project shares.
#
# No contraction and no fast-math: the same bits with every compiler and at every optimisation level. These options follow
# those of a surrounding project (CMAKE_CXX_FLAGS, add_compile_options), so they take precedence. Warnings are errors in
# our own builds only, never in a consumer's.
if(MSVC)
    set(ktl_arithmetic_options /fp:precise)
    set(ktl_warnings /W4)
else()
    set(ktl_arithmetic_options -fno-fast-math -ffp-contract=off)
    set(ktl_warnings -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
endif()

function(ktl_target name)
    # A target of somebody else that states its standard keeps it; any other gets the one of steam.hpp.
    target_compile_features(${name} PRIVATE cxx_std_20
                                    INTERFACE $<$<NOT:$<BOOL:$<TARGET_PROPERTY:CXX_STANDARD>>>:cxx_std_20>)
    set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${name} PRIVATE ${ktl_arithmetic_options})
    if(PROJECT_IS_TOP_LEVEL)
        target_compile_options(${name} PRIVATE ${ktl_warnings})
    endif()
endfunction()

# ktl_export_only(name map): a shared library that exports nothing but the names of the map file.
function(ktl_export_only name map)
    if(CMAKE_EXECUTABLE_FORMAT STREQUAL ELF)
        target_link_options(${name} PRIVATE LINKER:--version-script=${map})
        set_target_properties(${name} PROPERTIES LINK_DEPENDS ${map})
    endif()
endfunction()
