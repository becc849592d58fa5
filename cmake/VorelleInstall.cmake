include(CMakePackageConfigHelpers)

install(TARGETS Vorelle EXPORT VorelleTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# Only the staged public headers (see VorelleHeaders.cmake), as <vorelle/Name.h>.
install(FILES ${VORELLE_STAGED_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vorelle)

install(EXPORT VorelleTargets NAMESPACE Vorelle:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Vorelle)
configure_package_config_file(cmake/VorelleConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VorelleConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Vorelle)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VorelleConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VorelleConfig.cmake ${PROJECT_BINARY_DIR}/VorelleConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Vorelle)
