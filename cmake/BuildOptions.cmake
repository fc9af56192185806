# Fills ZorvelBuildOptions: warnings, sanitizers, coverage, and paths that are the same in every folder.
if(CMAKE_CXX_COMPILER_FRONTEND_VARIANT STREQUAL "MSVC" OR MSVC)
    target_compile_options(ZorvelBuildOptions INTERFACE /W4 /EHsc $<$<BOOL:${ZORVEL_WARNINGS_AS_ERRORS}>:/WX>)
else()
    target_compile_options(ZorvelBuildOptions INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion
        $<$<CXX_COMPILER_ID:Clang>:-Wthread-safety>
        $<$<BOOL:${ZORVEL_WARNINGS_AS_ERRORS}>:-Werror>
        -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
    # In debug builds the standard library checks what it is asked, positions for example.
    target_compile_definitions(ZorvelBuildOptions INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
endif()

if(ZORVEL_SANITIZERS)
    target_compile_options(ZorvelBuildOptions INTERFACE
        -fsanitize=${ZORVEL_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(ZorvelBuildOptions INTERFACE -fsanitize=${ZORVEL_SANITIZERS})
endif()

if(ZORVEL_COVERAGE)
    target_compile_options(ZorvelBuildOptions INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(ZorvelBuildOptions INTERFACE --coverage)
endif()
