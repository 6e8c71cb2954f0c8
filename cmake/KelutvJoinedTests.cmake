# kelutv_join_test(<program> <is separate>)
#
# Has a test program, unless it is separate, joined with those of its CMakeLists.txt that are compiled with like definitions, unless
# KELUTV_JOINED_SOURCES is OFF: one program with the sources of all, of which as few as can be are compiled as one, for
# compiling headers and linking is what tests cost most. Each program is another name of it, by which it runs its tests alone.
# What is said of a program later in the CMakeLists.txt (definitions, libraries, dependencies) is said of all.

include_guard(GLOBAL)

function(kelutv_join_test program is_separate)
    if(KELUTV_JOINED_SOURCES STREQUAL "OFF")
        kelutv_reuse_precompiled_headers(${program})
        return()
    endif()
    get_target_property(left_out ${program} EXCLUDE_FROM_ALL)
    # The precompiled headers of all others are those of support_test.
    if(is_separate OR left_out OR program STREQUAL support_test)
        kelutv_group_alone(${program})
        return()
    endif()
    get_property(programs DIRECTORY PROPERTY KELUTV_JOINED_TESTS)
    if(NOT programs)
        cmake_language(DEFER CALL kelutv_join_tests)
    endif()
    set_property(DIRECTORY APPEND PROPERTY KELUTV_JOINED_TESTS ${program})
endfunction()

# Has the sources of a program compiled as few that is joined with no other.
function(kelutv_group_alone program)
    get_target_property(sources ${program} SOURCES)
    kelutv_can_be_joined(${program} "" can_be)
    if(NOT can_be)
        set_target_properties(
            ${program} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0
                                  UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
    elseif(sources MATCHES ";")
        kelutv_group_sources(files ${program} ${sources})
        set_property(TARGET ${program} PROPERTY SOURCES ${files})
    endif()
    kelutv_reuse_precompiled_headers(${program})
endfunction()

# Sets the variable to whether a program can be joined with others that have these definitions: all of its sources are C++
# ones that stand here, and no definition has another value.
function(kelutv_can_be_joined program definitions result)
    set(${result} OFF PARENT_SCOPE)
    get_target_property(sources ${program} SOURCES)
    foreach(source IN LISTS sources)
        if(IS_ABSOLUTE "${source}" OR NOT source MATCHES "\\.cpp$")
            return()
        endif()
    endforeach()
    get_target_property(own ${program} COMPILE_DEFINITIONS)
    foreach(definition IN LISTS own)
        string(REGEX REPLACE "=.*" "" name "${definition}")
        if(NOT definition IN_LIST definitions AND ";${definitions}" MATCHES ";${name}(=|;|$)")
            return()
        endif()
    endforeach()
    set(${result} ON PARENT_SCOPE)
endfunction()

# Joins those of the directory's test programs that can be.
function(kelutv_join_tests)
    get_property(programs DIRECTORY PROPERTY KELUTV_JOINED_TESTS)
    set(joined "")
    set(alone "")
    set(sources "")
    set(definitions "")
    foreach(program IN LISTS programs)
        kelutv_can_be_joined(${program} "${definitions}" can_be)
        if(can_be)
            list(APPEND joined ${program})
            get_target_property(own ${program} SOURCES)
            list(APPEND sources ${own})
            get_target_property(own ${program} COMPILE_DEFINITIONS)
            list(APPEND definitions ${own})
            list(REMOVE_ITEM definitions "own-NOTFOUND")
        else()
            list(APPEND alone ${program})
        endif()
    endforeach()
    list(LENGTH sources count)
    if(count LESS 2)
        list(APPEND alone ${joined})
        set(joined "")
    endif()
    foreach(program IN LISTS alone)
        kelutv_group_alone(${program})
    endforeach()
    if(joined)
        kelutv_join_programs(${joined})
    endif()
endfunction()

# kelutv_join_programs(<program>...)
function(kelutv_join_programs)

    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY "${PROJECT_SOURCE_DIR}" OUTPUT_VARIABLE room)
    string(MAKE_C_IDENTIFIER "joined_${room}" target)
    kelutv_add_joined_program(${target} ${ARGN})
    foreach(program IN LISTS ARGN)
        kelutv_take_joined(${target} ${program})
    endforeach()
    kelutv_reuse_precompiled_headers(${target})
endfunction()

# kelutv_group_sources(<result> <name> <source>...)
#
# Sets the result to files named after <name> that include the sources, and those sources that have options of their own.
function(kelutv_group_sources result name)
    set(together "")
    set(apart "")
    foreach(source IN LISTS ARGN)
        get_source_file_property(definitions "${source}" COMPILE_DEFINITIONS)
        get_source_file_property(options "${source}" COMPILE_OPTIONS)
        cmake_path(ABSOLUTE_PATH source NORMALIZE)
        if(definitions OR options)
            list(APPEND apart "${source}")
        else()
            list(APPEND together "${source}")
        endif()
    endforeach()
    list(REMOVE_DUPLICATES together)
    list(REMOVE_DUPLICATES apart)

    kelutv_find_python()
    execute_process(
        COMMAND "${Python3_EXECUTABLE}" -B "${PROJECT_SOURCE_DIR}/scripts/join-sources" --groups ${together}
        OUTPUT_VARIABLE groups OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    string(REPLACE ";" "\"\n#include \"" groups "${groups}")
    string(REGEX MATCHALL "[^\n]+(\n#include [^\n]+)*" groups "${groups}")
    set(files "")
    foreach(group IN LISTS groups)
        list(LENGTH files number)
        set(file "${CMAKE_CURRENT_BINARY_DIR}/joined/${name}_${number}.cpp")
        # A name of one source may be that of a local of another, and a name of one file is no mistake where none includes it.
        file(CONFIGURE OUTPUT "${file}" CONTENT "#pragma GCC diagnostic ignored \"-Wshadow\"
#pragma GCC diagnostic ignored \"-Wsubobject-linkage\"\n#include \"${group}\"\n" @ONLY)
        list(APPEND files "${file}")
    endforeach()
    set(${result} ${files} ${apart} PARENT_SCOPE)
endfunction()

# kelutv_add_joined_program(<target> <program>...)
#
# Adds the target, of the sources of the programs and of a main function that knows whose they are.
function(kelutv_add_joined_program target)
    set(all "")
    set(table "")
    foreach(program IN LISTS ARGN)
        get_target_property(sources ${program} SOURCES)
        list(APPEND all ${sources})
        foreach(source IN LISTS sources)
            cmake_path(ABSOLUTE_PATH source NORMALIZE)
            cmake_path(RELATIVE_PATH source BASE_DIRECTORY "${PROJECT_SOURCE_DIR}" OUTPUT_VARIABLE path)
            string(APPEND table "        {\"${program}\", \"${path}\"},\n")
        endforeach()
    endforeach()
    kelutv_group_sources(files ${target} ${all})
    set(main "${CMAKE_CURRENT_BINARY_DIR}/joined/${target}_main.cpp")
    file(CONFIGURE OUTPUT "${main}" CONTENT "#include \"support/JoinedTests.h\"

int main(int argc, char** argv) {
    return kelutv::test::runJoinedTests(argc, argv, {\n${table}    });\n}\n" @ONLY)
    add_executable(${target} "${main}" ${files})
    target_link_libraries(${target} PRIVATE kelutv_test_support GTest::gtest kelutv_warnings)
endfunction()

# Gives the target what is said of one of its programs, and makes that another name of the target.
function(kelutv_take_joined target program)
    foreach(property IN ITEMS COMPILE_DEFINITIONS INCLUDE_DIRECTORIES LINK_LIBRARIES)
        get_target_property(values ${program} ${property})
        if(values)
            list(REMOVE_ITEM values GTest::gtest_main)
            set_property(TARGET ${target} APPEND PROPERTY ${property} ${values})
        endif()
    endforeach()
    get_target_property(dependencies ${program} MANUALLY_ADDED_DEPENDENCIES)
    if(dependencies)
        add_dependencies(${target} ${dependencies})
    endif()
    set_target_properties(
        ${program}
        PROPERTIES SOURCES "${PROJECT_SOURCE_DIR}/tests/support/JoinedTests.h"
                   LINK_LIBRARIES ""
                   LINK_DEPENDS "${CMAKE_CURRENT_BINARY_DIR}/${target}"
                   LINKER_LANGUAGE CXX
                   CXX_LINKER_LAUNCHER "${PROJECT_SOURCE_DIR}/tests/support/link_joined;${CMAKE_CURRENT_BINARY_DIR}/${target}")
    add_dependencies(${program} ${target})
endfunction()
