# What a build for 64-bit Windows needs on top: programs and libraries in one folder, where they find each other, with
# the compiler's run time linked in, and libraries that tell their version.
enable_language(RC)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/bin)

if(MINGW)
    target_link_options(ZorvelBuildOptions INTERFACE -static)
endif()

# Names the library as Windows does and gives it a version resource.
function(zorvel_configure_dll target description)
    set(name ${target})
    configure_file(cmake/version.rc.in ${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    set_target_properties(${target} PROPERTIES PREFIX "")
endfunction()
