# Language level, visibility and warnings of everything built here.

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(KELUTV_CCACHE ccache)
    if(KELUTV_CCACHE)
        set(CMAKE_C_COMPILER_LAUNCHER "${KELUTV_CCACHE}")
        set(CMAKE_CXX_COMPILER_LAUNCHER "${KELUTV_CCACHE}")
    endif()
endif()

set(CMAKE_C_STANDARD 11)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# Directory positions and inode numbers outgrow 32 bits.
add_compile_definitions(_FILE_OFFSET_BITS=64)

# Sets the variable to options for a linker that takes half the time, if the compiler has it.
function(kelutv_fast_linker_options variable)
    include(CheckLinkerFlag)
    check_linker_flag(CXX -fuse-ld=lld KELUTV_HAS_LLD)
    set(${variable} $<$<BOOL:${KELUTV_HAS_LLD}>:-fuse-ld=lld> PARENT_SCOPE)
endfunction()

if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=[a-z,]*(address|thread)" AND NOT CMAKE_CXX_FLAGS MATCHES "fuzzer")
    kelutv_fast_linker_options(fast_linker)
    add_link_options(${fast_linker})
endif()

if(KELUTV_PACKAGES)
    # The same bytes wherever they are built. Precompiled headers would bring each source the static objects of headers
    # that it does not include.
    add_compile_options("-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.")
    set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
    set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
    if(KELUTV_CCACHE)
        # The cache knows the sources again in another folder and under another locale, where ./check makes the packages
        # a second time.
        set(another_place "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}"
                          CCACHE_SLOPPINESS=locale,pch_defines,time_macros)
        list(PREPEND CMAKE_C_COMPILER_LAUNCHER env ${another_place})
        list(PREPEND CMAKE_CXX_COMPILER_LAUNCHER env ${another_place})
    endif()
endif()

set(KELUTV_JOINED_SOURCES PROGRAMS CACHE STRING
    "Sources that are compiled as one: OFF, PROGRAMS (of a test, of a part of tool and simulator), ALL (of libraries, too)")
set_property(CACHE KELUTV_JOINED_SOURCES PROPERTY STRINGS OFF PROGRAMS ALL)
if(NOT KELUTV_JOINED_SOURCES MATCHES "^(OFF|PROGRAMS|ALL)$")
    message(FATAL_ERROR "KELUTV_JOINED_SOURCES is '${KELUTV_JOINED_SOURCES}', use: OFF PROGRAMS ALL")
endif()

add_library(kelutv_warnings INTERFACE)
target_compile_options(
    kelutv_warnings
    INTERFACE -Wall
              -Wextra
              -Wpedantic
              -Wshadow
              -Wconversion
              -Wno-sign-conversion
              -Werror)

# Where bytes are read, in the libraries and in wire/, undefined behaviour of every kind is looked for, and so it is where
# programs are fuzzed; elsewhere not what costs most and means little there.
set(KELUTV_PROGRAM_COMPILE_OPTIONS "")
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=[a-z,]*undefined" AND NOT CMAKE_CXX_FLAGS MATCHES "fuzzer")
    list(APPEND KELUTV_PROGRAM_COMPILE_OPTIONS -fno-sanitize=null,alignment)
endif()

# Header-only libraries of the programs: the host's serve cross builds too.
function(kelutv_add_header_library name header package)
    string(TOUPPER "${name}_INCLUDE_DIR" variable)
    find_path(${variable} "${header}" NO_CMAKE_FIND_ROOT_PATH)
    if(NOT ${variable})
        message(FATAL_ERROR "<${header}> is missing (Debian: ${package}). Only the library is built without it: "
                            "-DKELUTV_BUILD_TOOLS=OFF -DKELUTV_BUILD_SIMULATOR=OFF")
    endif()
    add_library(${name} INTERFACE)
    target_include_directories(${name} SYSTEM INTERFACE "${${variable}}")
endfunction()

# kelutv_join_sources(<target> [ACROSS_FOLDERS] [APART <folder or source>...])
#
# Compiles the sources of each folder of the target as one, which takes less time, where KELUTV_JOINED_SOURCES says so: not
# those with options of their own, and not what is APART since it gives a name of its own to something else than another.
# ACROSS_FOLDERS, as many as can be are compiled as one, as scripts/join-sources finds.
function(kelutv_join_sources target)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "ACROSS_FOLDERS" "" "APART")
    get_target_property(type ${target} TYPE)
    if(KELUTV_JOINED_SOURCES STREQUAL "OFF" OR (type STREQUAL "SHARED_LIBRARY" AND NOT KELUTV_JOINED_SOURCES STREQUAL "ALL"))
        return()
    endif()
    get_target_property(sources ${target} SOURCES)
    set(together "")
    foreach(source IN LISTS sources)
        cmake_path(IS_ABSOLUTE source is_generated)
        cmake_path(GET source PARENT_PATH folder)
        get_source_file_property(has_options "${source}" COMPILE_DEFINITIONS)
        if(NOT is_generated AND NOT has_options AND NOT folder IN_LIST ARG_APART AND NOT source IN_LIST ARG_APART)
            list(APPEND together "${source}")
        endif()
    endforeach()
    if(ARG_ACROSS_FOLDERS)
        kelutv_groups_across_folders(groups ${together})
    else()
        kelutv_groups_of_folders(groups ${together})
    endif()
    # The paths from the root make them the same in every folder, for the compiler's cache.
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY "${PROJECT_SOURCE_DIR}" OUTPUT_VARIABLE room)
    set(number 0)
    foreach(group IN LISTS groups)
        string(REPLACE "|" ";" group "${group}")
        list(TRANSFORM group REPLACE "(.+)" "#include \"${room}/\\1\"\n" OUTPUT_VARIABLE lines)
        string(CONCAT lines ${lines})
        set(file "${CMAKE_CURRENT_BINARY_DIR}/${target}_joined_${number}.cpp")
        # A name of one source may be that of a local of another, and a name of one file is no mistake where none includes it.
        file(CONFIGURE OUTPUT "${file}" CONTENT "#pragma GCC diagnostic ignored \"-Wshadow\"
#pragma GCC diagnostic ignored \"-Wsubobject-linkage\"\n${lines}" @ONLY)
        set_source_files_properties(${group} PROPERTIES HEADER_FILE_ONLY ON)
        target_sources(${target} PRIVATE "${file}")
        math(EXPR number "${number} + 1")
    endforeach()
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
endfunction()

# Sets the result to a list of groups, each of them sources with "|" between: those of each folder.
function(kelutv_groups_of_folders result)
    set(folders "")
    foreach(source IN LISTS ARGN)
        cmake_path(GET source PARENT_PATH folder)
        string(MAKE_C_IDENTIFIER "of_${folder}" folder)
        list(APPEND folders ${folder})
        list(APPEND ${folder} "${source}")
    endforeach()
    list(REMOVE_DUPLICATES folders)
    set(groups "")
    foreach(folder IN LISTS folders)
        list(JOIN ${folder} "|" group)
        list(APPEND groups "${group}")
    endforeach()
    set(${result} ${groups} PARENT_SCOPE)
endfunction()

# The same: sources of any folder that give no name to different things.
function(kelutv_groups_across_folders result)
    kelutv_find_python()
    execute_process(
        COMMAND "${Python3_EXECUTABLE}" -B "${PROJECT_SOURCE_DIR}/scripts/join-sources" --groups ${ARGN}
        WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
        OUTPUT_VARIABLE groups OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    string(REPLACE ";" "|" groups "${groups}")
    string(REPLACE "\n" ";" groups "${groups}")
    set(${result} ${groups} PARENT_SCOPE)
endfunction()

# Sets Python3_EXECUTABLE and makes Python3::Interpreter. Looking for Python takes long, so that it is done once, for whoever
# needs it first: the library alone needs none.
macro(kelutv_find_python)
    if(NOT TARGET Python3::Interpreter)
        find_package(Python3 3.11 REQUIRED COMPONENTS Interpreter)
        set_property(TARGET Python3::Interpreter PROPERTY IMPORTED_GLOBAL ON)
    endif()
    get_property(Python3_EXECUTABLE TARGET Python3::Interpreter PROPERTY IMPORTED_LOCATION)
endmacro()
