# Builds the library against platform libraries handed in from outside, as for a real television.

include("${CMAKE_CURRENT_LIST_DIR}/steps.cmake")

set(scratch "${work_dir}/sdk")
file(REMOVE_RECURSE "${scratch}")
string(REPLACE ";" "\\;" escaped_libraries "${sdk_libraries}")
configure("${source_dir}" "${scratch}" "-DKELUTV_PLATFORM_SDK_INCLUDE_DIRS=${source_dir}/platform/include"
          "-DKELUTV_PLATFORM_SDK_LIBRARIES=${escaped_libraries}")
run("${CMAKE_COMMAND}" --build "${scratch}")

foreach(room platform simulator tests)
    if(EXISTS "${scratch}/${room}")
        message(FATAL_ERROR "${room} was built although platform libraries were given")
    endif()
endforeach()

compile_c("${scratch}/program" "-I${source_dir}/include" "-L${scratch}/client" -lkelutvbaseclient
          "-Wl,-rpath,${scratch}/client")
run_program("${scratch}/program")
