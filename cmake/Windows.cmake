# What a build for 64-bit Windows needs on top: programs and libraries in one folder, where they find each other, with
# the compiler's run time linked in, and libraries that tell their version.
enable_language(RC)

if(NOT CMAKE_RUNTIME_OUTPUT_DIRECTORY)
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/bin)
endif()
set(CMAKE_DEBUG_POSTFIX d) # a debug and a release build can be installed in one place

if(MINGW)
    target_link_options(ZorvelBuildOptions INTERFACE -static -Wl,--no-insert-timestamp)
endif()

# Adds to a library what lets it be unloaded without a trace, since it has the run time linked in.
function(zorvel_release_run_time target)
    if(MINGW)
        target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/Platform/windows/ReleaseRunTime.cpp)
    endif()
endfunction()

# Names the library as Windows does, gives it a version resource and exports the type information of the classes.
function(zorvel_configure_dll target description)
    set(name ${target})
    configure_file(cmake/version.rc.in ${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    target_compile_definitions(${target} PRIVATE
        $<$<AND:$<COMPILE_LANGUAGE:RC>,$<CONFIG:Debug>>:ZORVEL_FILE_DEBUG>)
    set_target_properties(${target} PROPERTIES PREFIX "")
    zorvel_release_run_time(${target})
    # Clang for mingw-w64 leaves the type information of an exported class out, to which callers built by GCC refer.
    if(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        set(definition "EXPORTS\n")
        foreach(class ${ARGN})
            string(LENGTH ${class} length)
            string(APPEND definition "_ZTI${length}${class} DATA\n")
        endforeach()
        file(CONFIGURE OUTPUT ${target}.def CONTENT "${definition}" @ONLY)
        target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.def)
    endif()
endfunction()
