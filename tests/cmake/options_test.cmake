# What cannot be had is off by default, and an error where it is asked for: kelutv_option().

set(scratch "${CMAKE_ARGV3}")
set(refusal "WANTED is on and needs what is not there")

# try(<tree> <what WANTED is then, or "refused"> <option>...)
function(try tree expected)
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_LIST_DIR}/options" -B "${scratch}/${tree}" ${ARGN}
        RESULT_VARIABLE result
        ERROR_VARIABLE error
        OUTPUT_QUIET)
    set(wanted refused)
    if(result EQUAL 0)
        file(READ "${scratch}/${tree}/wanted.txt" wanted)
    elseif(NOT error MATCHES "${refusal}")
        message(FATAL_ERROR "${tree} ${ARGN}: ${error}")
    endif()
    if(NOT wanted STREQUAL expected)
        message(FATAL_ERROR "${tree} ${ARGN}: WANTED is ${wanted}, not ${expected}")
    endif()
endfunction()

file(REMOVE_RECURSE "${scratch}")
try(asked refused -DTHERE=OFF -DWANTED=ON)
try(asked refused)
try(asked OFF -DWANTED=OFF)
try(asked ON -DTHERE=ON -DWANTED=ON)
try(asked refused -DTHERE=OFF)
try(default ON -DTHERE=ON)
try(default OFF -DTHERE=OFF)
try(default refused -DWANTED=ON)
try(never OFF -DTHERE=OFF)
