# What a build for 64-bit Windows needs on top: programs and libraries in one folder, where they find each other, with
# the compiler's run time linked in, and libraries that tell their version.
enable_language(RC)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/bin)

if(MINGW)
    target_link_options(ZorvelBuildOptions INTERFACE -static)
endif()

# Adds to a library what lets it be unloaded without a trace, since it has the run time linked in.
function(zorvel_release_run_time target)
    if(MINGW)
        target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/release_run_time.cpp)
    endif()
endfunction()

# Names the library as Windows does and gives it a version resource.
function(zorvel_configure_dll target description)
    set(name ${target})
    configure_file(cmake/version.rc.in ${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    set_target_properties(${target} PROPERTIES PREFIX "")
    zorvel_release_run_time(${target})
endfunction()
