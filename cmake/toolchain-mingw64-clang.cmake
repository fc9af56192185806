# Builds for 64-bit Windows with Clang and what belongs to mingw-w64's GCC: its C++ library, headers and run time.
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw64.cmake)

execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
    OUTPUT_VARIABLE run_time OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(gcc "${run_time}" DIRECTORY)
set(headers "-isystem ${gcc}/include/c++ -isystem ${gcc}/include/c++/x86_64-w64-mingw32")

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_FLAGS_INIT ${headers})
foreach(kind EXE SHARED MODULE)
    # Both compilers have functions of the C++ library's type information in line.
    set(CMAKE_${kind}_LINKER_FLAGS_INIT "-fuse-ld=lld -B${gcc} -L${gcc} -Wl,--allow-multiple-definition")
endforeach()
