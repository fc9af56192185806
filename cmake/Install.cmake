# Installs what programs run with (component Runtime), what they are built with (Development) and the example (Examples).
include(CMakePackageConfigHelpers)

install(TARGETS KELPlatform Zorvel EXPORT ZorvelTargets
    RUNTIME COMPONENT Runtime
    LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
    ARCHIVE COMPONENT Development)
install(DIRECTORY PublicInterfaces/ Platform/include/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Zorvel
    COMPONENT Development
    FILES_MATCHING PATTERN "*.h")

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Zorvel)
install(EXPORT ZorvelTargets NAMESPACE Zorvel:: DESTINATION ${package_folder} COMPONENT Development)
configure_package_config_file(cmake/ZorvelConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/ZorvelConfig.cmake
    INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ZorvelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/ZorvelConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/ZorvelConfigVersion.cmake
    DESTINATION ${package_folder}
    COMPONENT Development)

# All paths from the file's own place, so that the folder can be moved.
set(postfix "")
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    set(postfix "${CMAKE_DEBUG_POSTFIX}")
endif()
set(static_flags "")
set(static_libraries "")
if(library_type STREQUAL "STATIC")
    set(static_flags "-DZRV_STATIC -DKEL_STATIC -pthread")
    if(WIN32)
        set(static_libraries "-lsynchronization")
    endif()
endif()
file(RELATIVE_PATH to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" to_prefix "${to_prefix}")
file(RELATIVE_PATH to_headers ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR}/Zorvel)
file(RELATIVE_PATH to_libraries ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
configure_file(cmake/zorvel.pc.in zorvel${postfix}.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zorvel${postfix}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT Development)

# What shows strings, values and sets in a debugger.
set(debuggers tools/gdb/zorvel_printers.py tools/natvis/zorvel.natvis)
list(TRANSFORM debuggers PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
install(FILES ${debuggers} DESTINATION ${CMAKE_INSTALL_DATADIR}/Zorvel COMPONENT Development OPTIONAL)
if(NOT WIN32 AND library_type STREQUAL "SHARED") # GDB loads it with the library
    install(FILES tools/gdb/zorvel_printers.py
        DESTINATION ${CMAKE_INSTALL_DATADIR}/gdb/auto-load/${CMAKE_INSTALL_PREFIX}/${to_libraries}
        RENAME $<TARGET_FILE_NAME:KELPlatform>-gdb.py
        COMPONENT Development
        OPTIONAL)
endif()

set(readme_folder $<IF:$<BOOL:${WIN32}>,.,${CMAKE_INSTALL_DOCDIR}>)
install(FILES README.md DESTINATION ${readme_folder} COMPONENT Development)
if(TARGET y4m_meter)
    set_target_properties(y4m_meter PROPERTIES INSTALL_RPATH "$ORIGIN/../${to_libraries}")
    install(TARGETS y4m_meter RUNTIME COMPONENT Examples)
endif()
