# Installs the two libraries, their headers and a package that find_package(Zorvel) finds.
include(CMakePackageConfigHelpers)

install(TARGETS KELPlatform Zorvel EXPORT ZorvelTargets)
install(DIRECTORY PublicInterfaces/ Platform/include/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Zorvel
    FILES_MATCHING PATTERN "*.h")

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Zorvel)
install(EXPORT ZorvelTargets NAMESPACE Zorvel:: DESTINATION ${package_folder})
configure_package_config_file(cmake/ZorvelConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/ZorvelConfig.cmake
    INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ZorvelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/ZorvelConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/ZorvelConfigVersion.cmake
    DESTINATION ${package_folder})
