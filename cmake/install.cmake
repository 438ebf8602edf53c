# `cmake --install` gives a package that a foreign project finds with find_package(posto).
include(CMakePackageConfigHelpers)

install(TARGETS posto EXPORT postoTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/posto DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h" PATTERN "*.def" PATTERN "*.inc")
install(EXPORT postoTargets NAMESPACE posto:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/posto)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/postoConfig.cmake.in ${PROJECT_BINARY_DIR}/postoConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/posto)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/postoConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/postoConfig.cmake ${PROJECT_BINARY_DIR}/postoConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/posto)
if(TARGET posto_program)
  install(TARGETS posto_program DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
