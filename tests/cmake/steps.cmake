# Shared steps of the package tests; the settings file is the script's argument.

include("${CMAKE_ARGV3}")

set(ENV{KQDROID_SERVICE_WAIT_MS} 0)

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(toolchain "")
if(toolchain_file)
    set(toolchain "--toolchain" "${toolchain_file}")
endif()
set(configure_command "${CMAKE_COMMAND}" -G Ninja ${toolchain} "-DCMAKE_C_FLAGS=${c_flags}" "-DCMAKE_CXX_FLAGS=${cxx_flags}")

function(configure source binary)
    execute_process(
        COMMAND ${configure_command} -S "${source}" -B "${binary}" ${ARGN} COMMAND_ECHO STDOUT
        COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# expect_failure(<pattern> <command>...): the command fails and says something like that.
function(expect_failure pattern)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(result EQUAL 0 OR NOT output MATCHES "${pattern}")
        message(FATAL_ERROR "'${ARGN}' gives ${result} and not '${pattern}' but:\n${output}")
    endif()
endfunction()

# install_to(<prefix> <component>...)
function(install_to prefix)
    foreach(component IN LISTS ARGN)
        run("${CMAKE_COMMAND}" --install "${build_dir}" --prefix "${prefix}" --component ${component})
    endforeach()
endfunction()

# Runs a built program, with no service there to answer it.
function(run_program)
    # Socket paths are short, build paths may not be.
    execute_process(
        COMMAND mktemp -d
        OUTPUT_VARIABLE runtime_dir
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(ENV{KQDROID_RUNTIME_DIR} "${runtime_dir}")
    run(${emulator} ${ARGN})
    file(REMOVE_RECURSE "${runtime_dir}")
endfunction()

# compile(<output> <source> <flag>...)
function(compile output source)
    if(source MATCHES "\\.c$")
        separate_arguments(flags UNIX_COMMAND "${c_flags}")
        run("${c_compiler}" ${flags} -std=c11 "${source}" -o "${output}" ${ARGN})
    else()
        separate_arguments(flags UNIX_COMMAND "${cxx_flags}")
        run("${cxx_compiler}" ${flags} -std=c++17 "${source}" -o "${output}" -pthread ${ARGN})
    endif()
endfunction()

# compile_by_pkg_config(<output> <package> <source>): with the packages of the prefix.
function(compile_by_pkg_config output package source)
    execute_process(
        COMMAND pkg-config --cflags --libs "${package}"
        OUTPUT_VARIABLE flags
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    compile("${output}" "${source}" ${flags} "-Wl,-rpath,${prefix}/${libdir}")
endfunction()
