# Install rules and the package that find_package(ktl) reads.
include(CMakePackageConfigHelpers)

install(TARGETS ktl ktl_static EXPORT ktl-targets)
install(DIRECTORY include/ktl DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
install(EXPORT ktl-targets NAMESPACE ktl:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ktl)

write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ktl-config-version.cmake COMPATIBILITY SameMinorVersion)
configure_package_config_file(cmake/ktl-config.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/ktl-config.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ktl)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ktl-config.cmake ${CMAKE_CURRENT_BINARY_DIR}/ktl-config-version.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ktl)

if(KTL_BUILD_PROGRAM)
    install(TARGETS ktl_program)
endif()
