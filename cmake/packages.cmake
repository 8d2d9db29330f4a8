# Debian packages, one for each component: tools/packages.sh makes them and looks at what came out.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ktl)
set(CPACK_PACKAGE_VENDOR "ktl")
set(CPACK_PACKAGE_CONTACT "The ktl developers <ktl@localhost>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Without them cpack would write packages that lack their dependencies, or none, and say so in passing.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/packages_check.cmake)

set(CPACK_COMPONENTS_ALL runtime dev)
if(TARGET ktl_program)
    list(APPEND CPACK_COMPONENTS_ALL program)
endif()
if(TARGET ktl_fortran)
    list(APPEND CPACK_COMPONENTS_ALL fortran_runtime fortran)
endif()

set(soname ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libktl${soname})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libktl-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libktl${soname} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME ktl)
set(CPACK_DEBIAN_FORTRAN_RUNTIME_PACKAGE_NAME libktl-fortran${soname})
set(CPACK_DEBIAN_FORTRAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_FORTRAN_RUNTIME_PACKAGE_DEPENDS "libktl${soname} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_FORTRAN_PACKAGE_NAME libktl-fortran-dev)
set(CPACK_DEBIAN_FORTRAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_FORTRAN_PACKAGE_DEPENDS
    "libktl-dev (= ${PROJECT_VERSION}), libktl-fortran${soname} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)

# Licence and README for every package, examples for those who build with it. The licence ends with the notice of the
# logarithm's source, which every copy has to carry.
file(STRINGS ${PROJECT_SOURCE_DIR}/src/engine/lanes/elementary.hpp notice REGEX "^///     ")
list(TRANSFORM notice REPLACE "^///     " "  ")
list(JOIN notice "\n" notice)
if(NOT notice MATCHES "Copyright")
    message(FATAL_ERROR "src/engine/lanes/elementary.hpp: the notice of fdlibm is not found")
endif()
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
file(WRITE ${PROJECT_BINARY_DIR}/copyright
     "${licence}\nThe method and the coefficients of the logarithm are those of fdlibm:\n\n${notice}\n")
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    set(folder ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    install(FILES ${PROJECT_BINARY_DIR}/copyright ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
            DESTINATION ${folder} COMPONENT ${component} EXCLUDE_FROM_ALL)
    set(examples_of_program heat_balance.csv)
    set(examples_of_dev c cpp README.md)
    set(examples_of_fortran fortran)
    foreach(example IN LISTS examples_of_${component})
        if(IS_DIRECTORY ${PROJECT_SOURCE_DIR}/examples/${example})
            install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/${example} DESTINATION ${folder}/examples
                    COMPONENT ${component} EXCLUDE_FROM_ALL)
        else()
            install(FILES ${PROJECT_SOURCE_DIR}/examples/${example} DESTINATION ${folder}/examples
                    COMPONENT ${component} EXCLUDE_FROM_ALL)
        endif()
    endforeach()
endforeach()

set(about "IFC-67 formulation, 0.01 to 800 degC and up to 1000 bar.")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "Properties of water and steam, shared library\n ${about}")
set(CPACK_COMPONENT_DEV_DESCRIPTION
    "Properties of water and steam, for C and C++\n Headers, static library and manual pages.\n ${about}")
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION
    "Properties of water and steam, program\n One state, or a table of states.\n ${about}")
set(CPACK_COMPONENT_FORTRAN_RUNTIME_DESCRIPTION
    "Properties of water and steam, Fortran shared library\n ${about}")
set(CPACK_COMPONENT_FORTRAN_DESCRIPTION
    "Properties of water and steam, for Fortran\n Static library for gfortran and the module ktl.\n ${about}")
include(CPack)
