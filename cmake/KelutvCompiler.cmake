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
