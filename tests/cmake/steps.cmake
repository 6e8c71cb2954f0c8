# Shared steps of the package tests; the settings file is the script's argument.

include("${CMAKE_ARGV3}")

# Socket paths are short, build paths may not be.
execute_process(COMMAND mktemp -d OUTPUT_VARIABLE runtime_dir OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(ENV{KQDROID_RUNTIME_DIR} "${runtime_dir}")
set(ENV{KQDROID_SERVICE_WAIT_MS} 0)

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(configure source binary)
    set(toolchain "")
    if(toolchain_file)
        set(toolchain "--toolchain" "${toolchain_file}")
    endif()
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -S "${source}" -B "${binary}" -G Ninja ${toolchain} "-DCMAKE_C_FLAGS=${c_flags}"
                "-DCMAKE_CXX_FLAGS=${cxx_flags}" ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Runs a built program, with no service there to answer it.
function(run_program)
    run(${emulator} ${ARGN})
    file(REMOVE_RECURSE "${runtime_dir}")
endfunction()

function(compile_c output)
    separate_arguments(flags UNIX_COMMAND "${c_flags}")
    run("${c_compiler}" ${flags} -std=c11 "${CMAKE_CURRENT_LIST_DIR}/consumer/main.c" -o "${output}" ${ARGN})
endfunction()
