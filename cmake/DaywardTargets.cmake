# One way to make each kind of target: warnings as errors, sanitizers by preset, private links.
#
#   dayward_library(NAME SOURCES a.cpp … [LINKS public…] [PRIVATE_LINKS private…])
#   dayward_program(NAME SOURCES a.cpp … LINKS …)
#   dayward_test(NAME SOURCES a.cpp … LINKS …)
include(CTest)
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

set(DAYWARD_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize= takes them")
option(DAYWARD_COVERAGE "Instrument for coverage" OFF)

find_program(DAYWARD_CCACHE ccache)
if(DAYWARD_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${DAYWARD_CCACHE})
endif()

add_library(dayward_warnings INTERFACE)
target_include_directories(dayward_warnings INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(dayward_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                                 -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(dayward_warnings INTERFACE -Wthread-safety -Wno-gnu-statement-expression
                           -Wno-deprecated-declarations)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT DAYWARD_SANITIZE)
    # Optimised, this compiler takes moved variants that are never read for uninitialized ones.
    target_compile_options(dayward_warnings INTERFACE $<$<CONFIG:Release>:-Wno-maybe-uninitialized>)
endif()
add_library(dayward_options INTERFACE)
target_link_libraries(dayward_options INTERFACE dayward_warnings)
if(DAYWARD_SANITIZE)
    target_compile_options(dayward_options INTERFACE -fsanitize=${DAYWARD_SANITIZE} -fno-omit-frame-pointer
                                                     -fno-sanitize-recover=all)
    target_link_options(dayward_options INTERFACE -fsanitize=${DAYWARD_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Instrumented code makes the first speak of moved variants that are never read; the second is
        # about a fence in a library header.
        target_compile_options(dayward_options INTERFACE -Wno-maybe-uninitialized -Wno-tsan)
    endif()
endif()
if(DAYWARD_COVERAGE)
    target_compile_options(dayward_options INTERFACE --coverage)
    target_link_options(dayward_options INTERFACE --coverage)
endif()

function(dayward_library NAME)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    if(ARG_SOURCES)
        add_library(${NAME} STATIC ${ARG_SOURCES})
        target_link_libraries(${NAME} PUBLIC dayward_options ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
    else()
        add_library(${NAME} INTERFACE)
        target_link_libraries(${NAME} INTERFACE dayward_options ${ARG_LINKS})
    endif()
    string(REPLACE "dayward_" "dayward::" ALIAS_NAME ${NAME})
    add_library(${ALIAS_NAME} ALIAS ${NAME})
endfunction()

function(dayward_program NAME)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${NAME} ${ARG_SOURCES})
    target_link_libraries(${NAME} PRIVATE dayward_options ${ARG_LINKS})
endfunction()

function(dayward_test NAME)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${NAME} ${ARG_SOURCES})
    target_link_libraries(${NAME} PRIVATE dayward_options dayward_test_support ${ARG_LINKS} GTest::gmock_main)
    target_include_directories(${NAME} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    add_test(NAME ${NAME} COMMAND ${NAME})
    set_tests_properties(${NAME} PROPERTIES TIMEOUT 600)
endfunction()
