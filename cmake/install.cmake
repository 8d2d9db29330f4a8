# Install rules: what find_package(ktl), pkg-config and man read. Components: runtime, dev, program, fortran_runtime, fortran.
include(CMakePackageConfigHelpers)

set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/ktl)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# ktl_install_libraries(runtime dev set shared static): the kinds that are built, with their components, and the file of
# their targets.
function(ktl_install_libraries runtime dev set shared static)
    if(TARGET ${shared})
        install(TARGETS ${shared} EXPORT ${set}
                LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${runtime} NAMELINK_COMPONENT ${dev}
                RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${runtime}
                ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${dev})
    endif()
    if(NOT BUILD_SHARED_LIBS)
        install(TARGETS ${static} EXPORT ${set} ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${dev})
    endif()
    install(EXPORT ${set} NAMESPACE ktl:: DESTINATION ${config_folder} COMPONENT ${dev})
endfunction()

# ktl_install_pc(name component own): own is what the library itself is linked with, private unless there is a static
# library alone. The prefix is found from the place of the file, so the tree may be moved.
function(ktl_install_pc name component own)
    file(RELATIVE_PATH to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    set(pc_prefix "\${pcfiledir}/${to_prefix}")
    set(pc_public)
    set(pc_private ${own})
    if(NOT TARGET ${name})
        set(pc_public " ${own}")
        set(pc_private)
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${pkgconfig_folder} COMPONENT ${component})
endfunction()

if(TARGET ktl_diagram)
    install(TARGETS ktl_diagram EXPORT ktl-targets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
endif()
ktl_install_libraries(runtime dev ktl-targets ktl ktl_static)
ktl_install_pc(ktl dev "-lstdc++ -lm -pthread")
install(DIRECTORY include/ktl DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev
        FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp" PATTERN "*.def")

write_basic_package_version_file(${PROJECT_BINARY_DIR}/ktl-config-version.cmake COMPATIBILITY SameMinorVersion)
configure_package_config_file(cmake/ktl-config.cmake.in ${PROJECT_BINARY_DIR}/ktl-config.cmake
                              INSTALL_DESTINATION ${config_folder})
install(FILES ${PROJECT_BINARY_DIR}/ktl-config.cmake ${PROJECT_BINARY_DIR}/ktl-config-version.cmake
        DESTINATION ${config_folder} COMPONENT dev)

if(KTL_BUILD_FORTRAN)
    if(TARGET ktl_fortran)
        set_target_properties(ktl_fortran PROPERTIES INSTALL_RPATH "$ORIGIN")
    endif()
    ktl_install_libraries(fortran_runtime fortran ktl-fortran-targets ktl_fortran ktl_fortran_static)
    ktl_install_pc(ktl_fortran fortran -lgfortran)
    # The module file for this compiler, and its source for others.
    install(FILES $<TARGET_PROPERTY:ktl::ktl_fortran,Fortran_MODULE_DIRECTORY>/ktl.mod bindings/fortran/ktl.f90
            DESTINATION ${KTL_INSTALL_MODULEDIR} COMPONENT fortran)
endif()

if(KTL_BUILD_PROGRAM AND TARGET ktl_program)
    install(TARGETS ktl_program DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
    install(FILES docs/man/ktl.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
    if(NOT CMAKE_CROSSCOMPILING AND NOT WIN32) # the program writes its completion itself
        set(completion ${PROJECT_BINARY_DIR}/completion)
        install(FILES ${completion}/ktl DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT program)
        install(FILES ${completion}/_ktl DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT program)
        install(FILES ${completion}/ktl.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
                COMPONENT program)
    endif()
endif()

# Pages of section 3. The names of a page stand on the .Nm lines above its description; each gets a file of its own
# that refers to the page.
file(GLOB pages CONFIGURE_DEPENDS docs/man/*.3)
foreach(page IN LISTS pages)
    get_filename_component(title ${page} NAME_WE)
    file(STRINGS ${page} names REGEX "^\\.Nm [a-z0-9_]+( ,)?$")
    list(TRANSFORM names REPLACE "^\\.Nm ([a-z0-9_]+).*" "\\1")
    list(REMOVE_ITEM names ${title})
    foreach(name IN LISTS names)
        file(WRITE ${PROJECT_BINARY_DIR}/man3/${name}.3 ".so man3/${title}.3\n")
        list(APPEND pages ${PROJECT_BINARY_DIR}/man3/${name}.3)
    endforeach()
endforeach()
install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT dev)

if(PROJECT_IS_TOP_LEVEL)
    include(cmake/packages.cmake)
endif()
