# How every target of the project is compiled, and the three kinds of target it has.

option(FV2_WARNINGS_AS_ERRORS "Stop at the first warning" OFF)
option(FV2_BENCH "Add the benchmarks; needs Google Benchmark and libdbus" OFF)
option(FV2_E2E "Add the end-to-end tests of this build's programs" OFF)
option(FV2_FUZZ "Add the fuzz programs; needs clang++ and its fuzzer among the sanitizers" OFF)
set(FV2_SANITIZE "" CACHE STRING "Sanitizers to build with: empty, 'address,undefined' or 'thread'")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})

# Qt's short keywords are ordinary words in this project.
add_compile_definitions(QT_NO_KEYWORDS)
add_compile_options(
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual -Wformat=2 -Wimplicit-fallthrough)
# g++ 12 reports overlapping copies inside "literal" + std::string that cannot happen (its bug 105651).
add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(FV2_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()
if(FV2_SANITIZE)
    add_compile_options(-fsanitize=${FV2_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${FV2_SANITIZE})
    # The optimiser's analyses report paths that only the sanitizers' own checks create.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
else()
    add_compile_options(-fstack-protector-strong)
    add_compile_definitions($<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
    add_link_options(-Wl,-z,relro,-z,now -Wl,--as-needed)
endif()

# fv2_room(<folder> SOURCES ... [LINKS ...]): one static library, fv2_<folder>, included as "<folder>/Header.h".
function(fv2_room folder)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(fv2_${folder} STATIC ${ARG_SOURCES})
    target_include_directories(fv2_${folder} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(fv2_${folder} PUBLIC Threads::Threads ${ARG_LINKS})
endfunction()

# fv2_test(<folder> SOURCES ... [LINKS ...]): one GoogleTest program for the room of the same name.
function(fv2_test folder)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINKS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_executable(test_${folder} ${ARG_SOURCES})
    if(FV2_SANITIZE)
        target_compile_options(test_${folder} PRIVATE -O0) # the tests' own speed is not worth its time
    endif()
    target_include_directories(test_${folder} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(test_${folder} PRIVATE ${ARG_LINKS} GTest::gtest GTest::gtest_main)
    add_dependencies(unit_tests test_${folder})
    add_test(NAME ${folder} COMMAND test_${folder})
    set_tests_properties(${folder} PROPERTIES TIMEOUT ${ARG_TIMEOUT})
endfunction()

# fv2_faults(<target>): gives a test program support/Faults.h, by which it lets system calls fail.
function(fv2_faults target)
    target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/tests/support/Faults.cpp)
    foreach(call accept4 bind chmod close connect eventfd ftruncate getsockopt listen open poll recv send setsockopt socket
                 statx unlink write)
        target_link_options(${target} PRIVATE LINKER:--wrap=${call})
    endforeach()
endfunction()
