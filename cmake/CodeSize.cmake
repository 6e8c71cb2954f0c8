# cmake -D LIBRARY=<file> -D BUDGET=<bytes> -D READELF=<program> -D STRIP=<program> -D REPORT=<file> -P CodeSize.cmake
#
# Reports the size of a library without its symbols and debug information, and fails if its executable sections
# together are larger than the budget.

set(stripped "${REPORT}.stripped")
execute_process(COMMAND "${STRIP}" --strip-unneeded -o "${stripped}" "${LIBRARY}" COMMAND_ERROR_IS_FATAL ANY)
file(SIZE "${stripped}" file_size)
execute_process(
    COMMAND "${READELF}" --section-headers --wide "${stripped}"
    OUTPUT_VARIABLE headers
    COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE "${stripped}")

# [Nr] Name Type Address Offset Size EntrySize Flags ...; X is executable.
string(REGEX MATCHALL " \\.[^ ]+ +[A-Z_]+ +[0-9a-f]+ [0-9a-f]+ [0-9a-f]+ [0-9a-f]+ +[A-Z]*X" sections "${headers}")
set(code 0)
set(details "")
foreach(section IN LISTS sections)
    string(REGEX MATCH "(\\.[^ ]+) +[A-Z_]+ +[0-9a-f]+ [0-9a-f]+ ([0-9a-f]+)" found "${section}")
    math(EXPR size "0x${CMAKE_MATCH_2}")
    math(EXPR code "${code} + ${size}")
    list(APPEND details "${CMAKE_MATCH_1} ${size}")
endforeach()
if(code EQUAL 0)
    message(FATAL_ERROR "${LIBRARY} has no executable section")
endif()

list(JOIN details ", " details)
get_filename_component(name "${LIBRARY}" NAME)
set(report "${name}: code ${code} of ${BUDGET} bytes (${details}); stripped file ${file_size} bytes")
file(WRITE "${REPORT}" "${report}\n")
message("${report}")
if(code GREATER BUDGET)
    message(FATAL_ERROR "the code of ${name} is larger than its budget of ${BUDGET} bytes")
endif()
