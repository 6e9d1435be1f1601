# The CMake package: find_package(ImportOBJ).
include(CMakePackageConfigHelpers)
configure_package_config_file(
    ${CMAKE_CURRENT_LIST_DIR}/ImportOBJConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ImportOBJConfig.cmake
    INSTALL_DESTINATION ${install_package_folder})
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/ImportOBJConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ImportOBJConfig.cmake
              ${PROJECT_BINARY_DIR}/ImportOBJConfigVersion.cmake
        DESTINATION ${install_package_folder} COMPONENT Development)
install(EXPORT ImportOBJTargets NAMESPACE ImportOBJ::
        DESTINATION ${install_package_folder} COMPONENT Development)

install(FILES LICENSE THIRD-PARTY-NOTICES.md DESTINATION ${install_licence_folder}
        COMPONENT Runtime)
