include(CMakePackageConfigHelpers)

install(TARGETS Vorelle EXPORT VorelleTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

foreach(header IN LISTS VORELLE_HEADERS)
    file(RELATIVE_PATH rel ${PROJECT_SOURCE_DIR} ${header})
    if(rel MATCHES "_p\\.h$")
        continue()  # private headers stay with the sources
    endif()
    get_filename_component(dir ${rel} DIRECTORY)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vorelle/${dir})
endforeach()
install(FILES ${VORELLE_UMBRELLA} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vorelle)

install(EXPORT VorelleTargets NAMESPACE Vorelle:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Vorelle)
configure_package_config_file(cmake/VorelleConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VorelleConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Vorelle)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VorelleConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VorelleConfig.cmake ${PROJECT_BINARY_DIR}/VorelleConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Vorelle)
