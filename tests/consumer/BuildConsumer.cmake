# Installs the library into a folder of its own and builds and runs the README's first program against it, as C++17.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE output)
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(READ ${root}/README.md readme)
if(NOT readme MATCHES "```cpp\n([^`]*)```")
    message(FATAL_ERROR "README.md has no program")
endif()
set(program "${CMAKE_MATCH_1}")
if(NOT readme MATCHES "It prints:\n\n```text\n([^`]*)```")
    message(FATAL_ERROR "README.md does not say what its program prints")
endif()
set(printed "${CMAKE_MATCH_1}")
string(REGEX MATCHALL "\n" lines "${program}")
list(LENGTH lines count)
if(count GREATER 20)
    message(FATAL_ERROR "the README's first program has ${count} lines, more than 20")
endif()

file(REMOVE_RECURSE ${folder})
file(WRITE ${folder}/main.cpp "${program}")
file(WRITE ${folder}/CMakeLists.txt [[
cmake_minimum_required(VERSION 3.25)
project(Consumer LANGUAGES CXX)
find_package(Zorvel REQUIRED)
add_executable(Consumer main.cpp)
target_compile_options(Consumer PRIVATE -Wall -Wextra -Wpedantic -Werror)
set_target_properties(Consumer PROPERTIES CXX_STANDARD 17 CXX_STANDARD_REQUIRED ON)
target_link_libraries(Consumer PRIVATE Zorvel::Zorvel)
if(WIN32) # the compiler's own run time is in no folder that is searched
    target_link_options(Consumer PRIVATE -static)
endif()
]])

# The program comes to lie where the libraries are, which is where Windows looks for them.
run(${CMAKE_COMMAND} --install ${built} --prefix ${folder}/prefix)
run(${CMAKE_COMMAND} -G ${generator} -S ${folder} -B ${folder}/build
    -DCMAKE_CXX_COMPILER=${compiler} -DCMAKE_TOOLCHAIN_FILE=${toolchain}
    -DZorvel_DIR=${folder}/prefix/${libraries}/cmake/Zorvel -DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${folder}/prefix/bin)
run(${CMAKE_COMMAND} --build ${folder}/build)
run(${emulator} ${folder}/prefix/bin/Consumer${suffix})
string(REPLACE "\r\n" "\n" output "${output}")
if(NOT output STREQUAL printed)
    message(FATAL_ERROR "the program printed: ${output}")
endif()
