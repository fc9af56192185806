# Installs the library, copies the example and builds the copy against the installed library, as a project of its own.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE output)
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${folder})
file(COPY ${example} DESTINATION ${folder})
run(${CMAKE_COMMAND} --install ${built} --prefix ${folder}/prefix)

# The program comes to lie where the libraries are, which is where Windows looks for them.
run(${CMAKE_COMMAND} -G ${generator} -S ${folder}/y4m_meter -B ${folder}/build
    -DCMAKE_CXX_COMPILER=${compiler} -DCMAKE_TOOLCHAIN_FILE=${toolchain} -DCMAKE_EXE_LINKER_FLAGS=${flags}
    -DZorvel_DIR=${folder}/prefix/${libraries}/cmake/Zorvel -DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${folder}/prefix/bin)
run(${CMAKE_COMMAND} --build ${folder}/build)
run(${emulator} ${folder}/prefix/bin/y4m_meter${suffix})
if(NOT output MATCHES "\noverall: 250 frames")
    message(FATAL_ERROR "the program printed: ${output}")
endif()
