# Builds the library alone against platform libraries handed in from outside, as for a real television.

include("${CMAKE_CURRENT_LIST_DIR}/steps.cmake")

set(scratch "${work_dir}/sdk")
file(REMOVE_RECURSE "${scratch}")
string(REPLACE ";" "\\;" escaped_libraries "${sdk_libraries}")
configure("${source_dir}" "${scratch}" "-DKELUTV_PLATFORM_SDK_INCLUDE_DIRS=${source_dir}/platform/include"
          "-DKELUTV_PLATFORM_SDK_LIBRARIES=${escaped_libraries}" -DKELUTV_BUILD_TOOLS=OFF "-DCMAKE_INSTALL_LIBDIR=${libdir}")

# What needs the stand-ins is refused, not left out, where it is asked for.
foreach(option BUILD_SIMULATOR BUILD_TESTS BUILD_BENCH BUILD_FUZZ PACKAGES)
    execute_process(
        COMMAND "${CMAKE_COMMAND}" "-DKELUTV_${option}=ON" "${scratch}"
        RESULT_VARIABLE result
        ERROR_VARIABLE error
        OUTPUT_QUIET)
    if(result EQUAL 0 OR NOT error MATCHES "KELUTV_${option} is on and needs[ \n]+the[ \n]+stand-ins")
        message(FATAL_ERROR "KELUTV_${option} was not refused: ${error}")
    endif()
    execute_process(COMMAND "${CMAKE_COMMAND}" "-UKELUTV_${option}" "${scratch}" OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()

run("${CMAKE_COMMAND}" --build "${scratch}")

foreach(room platform simulator tests)
    if(EXISTS "${scratch}/${room}")
        message(FATAL_ERROR "${room} was built although platform libraries were given")
    endif()
endforeach()

compile("${scratch}/program" "${CMAKE_CURRENT_LIST_DIR}/consumer/main.c" "-I${source_dir}/include" "-L${scratch}/client"
        -lkelutvbaseclient "-Wl,-rpath,${scratch}/client")
run_program("${scratch}/program")

# What is installed knows the platform that it was built against.
set(prefix "${scratch}/prefix")
set(build_dir "${scratch}")
install_to("${prefix}" runtime development)
set(sdk_folders "")
foreach(library IN LISTS sdk_libraries)
    cmake_path(GET library PARENT_PATH folder)
    string(APPEND sdk_folders ":${folder}")
endforeach()
set(ENV{LD_LIBRARY_PATH} "${prefix}/${libdir}${sdk_folders}")
set(ENV{PKG_CONFIG_LIBDIR} "${prefix}/${libdir}/pkgconfig")
compile_by_pkg_config("${scratch}/link_by_pkg_config" kelutvbaseclient-link "${CMAKE_CURRENT_LIST_DIR}/consumer/link.cpp")
run_program("${scratch}/link_by_pkg_config")
configure("${CMAKE_CURRENT_LIST_DIR}/consumer" "${scratch}/consumer"
          "-Dkelutvbaseclient_DIR=${prefix}/${libdir}/cmake/kelutvbaseclient")
run("${CMAKE_COMMAND}" --build "${scratch}/consumer" --target consumer_link)
run_program("${scratch}/consumer/consumer_link")
