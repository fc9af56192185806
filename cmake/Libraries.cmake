# How both libraries are built: nothing is exported that is not marked, and calls inside a library stay inside.

# Whether optimised shared libraries can be optimised as a whole. Static ones are for any compiler of the caller's.
set(ZORVEL_IPO OFF)
if(library_type STREQUAL "SHARED")
    include(CheckIPOSupported)
    check_ipo_supported(RESULT ZORVEL_IPO LANGUAGES CXX)
endif()

function(zorvel_configure_library target prefix description)
    string(TOUPPER ${prefix} macro)
    add_library(Zorvel::${target} ALIAS ${target})
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:ZorvelBuildOptions>)
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_include_directories(${target} PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/Zorvel>)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        POSITION_INDEPENDENT_CODE ON
        INTERPROCEDURAL_OPTIMIZATION_RELEASE ${ZORVEL_IPO}
        DEFINE_SYMBOL ${macro}_BUILDING
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR})
    if(library_type STREQUAL "STATIC")
        target_compile_definitions(${target} PUBLIC ${macro}_STATIC)
    elseif(WIN32)
        zorvel_configure_dll(${target} "${description}" ${ARGN})
    else()
        zorvel_configure_elf(${target} ${prefix})
    endif()
endfunction()

function(zorvel_configure_elf target prefix)
    configure_file(cmake/exports.map.in ${target}.map @ONLY)
    set(exports ${CMAKE_CURRENT_BINARY_DIR}/${target}.map)
    target_compile_options(${target} PRIVATE -fno-semantic-interposition -fno-plt)
    target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions -Wl,--version-script=${exports})
    if(NOT ZORVEL_SANITIZERS) # a sanitizer's run time is found in the program
        target_link_options(${target} PRIVATE -Wl,-z,defs)
    endif()
    set_target_properties(${target} PROPERTIES
        LINK_DEPENDS ${exports}
        INSTALL_RPATH "$ORIGIN" # the libraries find each other wherever they are put
        BUILD_WITH_INSTALL_RPATH ON)
endfunction()
