# kelutv_look_for_cffi(<variable>): whether the package for Python can be generated: its foreign functions are described by
# cffi, and called by it later.

include_guard(GLOBAL)

function(kelutv_look_for_cffi variable)
    if(NOT DEFINED KELUTV_CFFI_FOUND OR NOT KELUTV_CFFI_FOUND)
        kelutv_find_python()
        execute_process(COMMAND "${Python3_EXECUTABLE}" -c "import cffi" RESULT_VARIABLE missing OUTPUT_QUIET ERROR_QUIET)
        if(missing EQUAL 0)
            set(KELUTV_CFFI_FOUND ON CACHE INTERNAL "The interpreter has cffi")
        endif()
    endif()
    set(${variable} "${KELUTV_CFFI_FOUND}" PARENT_SCOPE)
endfunction()
