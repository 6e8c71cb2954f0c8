# kelutv_add_test(<name>
#                 SOURCES <file>...
#                 [LIBRARIES <target>...]      linked besides GoogleTest and the test support
#                 [ENVIRONMENT <NAME=value>...]
#                 [LINKS up|absent|dead...]    one test <name>.<link> each, KELUTV_TEST_LINK set
#                 [TIMEOUT <seconds>]          120 unless given
#                 [NO_EMULATOR <reason>]       cannot run under user-mode emulation
#                 [SEPARATE]                   never joined with others: it takes the place of functions, or counts its memory
#                 [THREADS])                   makes threads meet, its own or those of programs that it starts
#
# Builds one GoogleTest program, perhaps joined with others, and registers it with ctest; where KELUTV_ONLY_TESTS_OF_THREADS is on, only with THREADS or
# in a room that sets KELUTV_TESTS_OF_THREADS, since all of its tests are such. Builds for another machine leave out what
# KELUTV_TESTS_OF_ANY_MACHINE lists, those with sanitizers what KELUTV_TESTS_OF_TEXTS does.

include_guard(GLOBAL)

include(KelutvJoinedTests)

option(KELUTV_ONLY_TESTS_OF_THREADS "Leave out the tests that make no threads meet, for ThreadSanitizer" OFF)

# Tests are compiled often and run briefly.
set(KELUTV_TEST_COMPILE_OPTIONS -O0 -g1)
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=[a-z,]*undefined")
    # Undefined behaviour is looked for in what is tested; in the tests it would cost a third of their compilation.
    list(APPEND KELUTV_TEST_COMPILE_OPTIONS -fno-sanitize=undefined)
endif()

if(CMAKE_CROSSCOMPILING)
    set(KELUTV_GOOGLETEST_SOURCE_DIR "/usr/src/googletest" CACHE PATH "GoogleTest sources for cross builds")
    set(INSTALL_GTEST OFF)
    add_subdirectory("${KELUTV_GOOGLETEST_SOURCE_DIR}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
else()
    find_package(GTest REQUIRED)
endif()

# Programs that a test starts itself need the emulator too.
set(KELUTV_TEST_ENVIRONMENT "")
if(CMAKE_CROSSCOMPILING_EMULATOR)
    list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " KELUTV_EMULATOR)
    set(KELUTV_TEST_ENVIRONMENT "KELUTV_EMULATOR=${KELUTV_EMULATOR}")
endif()

# What a test leaves in its temporary folder makes it fail.
set(KELUTV_TEST_LAUNCHER sh "${PROJECT_SOURCE_DIR}/tests/support/leave_nothing")

# kelutv_configure_test(<test> [ENVIRONMENT ...] [TIMEOUT ...] [NO_EMULATOR ...])
#
# Gives any registered test the properties kelutv_add_test() gives its own.
function(kelutv_configure_test test)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "TIMEOUT;NO_EMULATOR" "ENVIRONMENT")
    if(ARG_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "kelutv_configure_test(${test}): unexpected ${ARG_UNPARSED_ARGUMENTS}")
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    set_property(TEST ${test} PROPERTY TIMEOUT ${ARG_TIMEOUT})
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT ${KELUTV_TEST_ENVIRONMENT} ${ARG_ENVIRONMENT})
    if(ARG_NO_EMULATOR)
        set_property(TEST ${test} APPEND PROPERTY LABELS no-emulator)
        set_property(GLOBAL APPEND_STRING PROPERTY KELUTV_NO_EMULATOR_LIST "${test}: ${ARG_NO_EMULATOR}\n")
    endif()
endfunction()

# kelutv_add_source_test(<test> <script> [<argument>...] [TIMEOUT <seconds>])
#
# Registers a test in Python of the sources and of scripts, which runs no program of the build. It says the same in every
# build, so that those with sanitizers and for other machines leave out what is labelled "sources".
function(kelutv_add_source_test test script)
    cmake_parse_arguments(PARSE_ARGV 2 ARG "" "TIMEOUT" "")
    kelutv_find_python()
    cmake_path(ABSOLUTE_PATH script)
    add_test(NAME ${test} COMMAND ${KELUTV_TEST_LAUNCHER} "${Python3_EXECUTABLE}" -B "${script}"
                                  ${ARG_UNPARSED_ARGUMENTS})
    kelutv_configure_test(${test} TIMEOUT "${ARG_TIMEOUT}")
    set_property(TEST ${test} APPEND PROPERTY LABELS sources)
endfunction()

# kelutv_add_program_test(<test> <program> [ARGUMENT <argument>] [ENVIRONMENT ...] [TIMEOUT ...] [NO_EMULATOR ...])
#
# Registers a run of a GoogleTest program, with ctest unless the program is left out of the build, and in the room's
# KELUTV_PROGRAM_TESTS, a list of <test>|<program>|<environment>|<argument>.
function(kelutv_add_program_test test program)
    cmake_parse_arguments(PARSE_ARGV 2 ARG "" "ARGUMENT;TIMEOUT;NO_EMULATOR" "ENVIRONMENT")
    list(JOIN ARG_ENVIRONMENT " " environment)
    set_property(DIRECTORY APPEND PROPERTY KELUTV_PROGRAM_TESTS "${test}|${program}|${environment}|${ARG_ARGUMENT}")
    get_target_property(left_out ${program} EXCLUDE_FROM_ALL)
    if(left_out)
        return()
    endif()
    add_test(NAME ${test} COMMAND ${KELUTV_TEST_LAUNCHER} ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${program}>
                                  ${ARG_ARGUMENT})
    kelutv_configure_test(
        ${test} TIMEOUT "${ARG_TIMEOUT}" NO_EMULATOR "${ARG_NO_EMULATOR}" ENVIRONMENT ${ARG_ENVIRONMENT})
endfunction()

# kelutv_reuse_precompiled_headers(<program>)
#
# Lets a test program take the precompiled headers of support_test. They are C++, so programs with C sources cannot.
function(kelutv_reuse_precompiled_headers program)
    get_target_property(sources ${program} SOURCES)
    if(TARGET support_test AND NOT program STREQUAL support_test AND NOT sources MATCHES "\\.c(;|$)")
        target_precompile_headers(${program} REUSE_FROM support_test)
    endif()
endfunction()

function(kelutv_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "SEPARATE;THREADS" "TIMEOUT;NO_EMULATOR" "SOURCES;LIBRARIES;ENVIRONMENT;LINKS")
    if(ARG_UNPARSED_ARGUMENTS OR NOT ARG_SOURCES)
        message(FATAL_ERROR "kelutv_add_test(${name}): needs SOURCES; unexpected: ${ARG_UNPARSED_ARGUMENTS}")
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(
        ${name} PRIVATE ${ARG_LIBRARIES} $<TARGET_NAME_IF_EXISTS:kelutv_test_support> GTest::gtest GTest::gtest_main
                        kelutv_warnings)
    if(KELUTV_ONLY_TESTS_OF_THREADS AND NOT ARG_THREADS AND NOT KELUTV_TESTS_OF_THREADS)
        set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
    elseif(CMAKE_CXX_FLAGS MATCHES "-fsanitize" AND name IN_LIST KELUTV_TESTS_OF_TEXTS)
        set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
    elseif(CMAKE_CROSSCOMPILING AND name IN_LIST KELUTV_TESTS_OF_ANY_MACHINE)
        set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
        set_property(GLOBAL APPEND_STRING PROPERTY KELUTV_NO_EMULATOR_LIST "${name}: says the same on any machine\n")
    endif()

    kelutv_join_test(${name} ${ARG_SEPARATE})

    set(properties TIMEOUT "${ARG_TIMEOUT}" NO_EMULATOR "${ARG_NO_EMULATOR}")
    if(NOT ARG_LINKS)
        kelutv_add_program_test(${name} ${name} ${properties} ENVIRONMENT ${ARG_ENVIRONMENT})
    endif()
    foreach(link IN LISTS ARG_LINKS)
        kelutv_add_program_test(${name}.${link} ${name} ${properties} ENVIRONMENT KELUTV_TEST_LINK=${link}
                                                                                  ${ARG_ENVIRONMENT})
    endforeach()
endfunction()

# Writes no-emulator.txt: the tests a run under an emulator leaves out, each with its reason.
function(kelutv_write_no_emulator_list)
    get_property(list GLOBAL PROPERTY KELUTV_NO_EMULATOR_LIST)
    file(WRITE "${CMAKE_BINARY_DIR}/no-emulator.txt" "${list}")
endfunction()
